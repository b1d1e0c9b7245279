#include "forms/adodc.h"

#include "ado/convert.h"
#include "ado/error.h"

namespace zel::forms {

namespace {

[[noreturn]] void refuseClosed() {
    throw ado::Error(ado::ErrorKind::State, ado::errors::objectClosed,
                     "Operation is not allowed when the object is closed.");
}

} // namespace

void Adodc::Refresh() {
    if (connection_ == nullptr)
        refuseClosed();
    // The old rows stay when the new source cannot be opened.
    auto records = std::make_unique<ado::Recordset>();
    records->Open(source_, *connection_);
    records_ = std::move(records);
    ++openings_;
    notify(Property::Items);
}

void Adodc::Close() {
    records_.reset();
    notify(Property::Items);
}

bool Adodc::isOpen() const noexcept {
    return records_ && records_->State() == ado::stateOpen;
}

ado::Recordset& Adodc::Recordset() const {
    if (!records_)
        refuseClosed();
    return *records_;
}

void Adodc::setRecordset(ado::Recordset records) {
    records_ = std::make_unique<ado::Recordset>(std::move(records));
    ++openings_;
    notify(Property::Items);
}

void Adodc::setFilter(ado::Sql filter) {
    Recordset().setFilter(std::move(filter));
    notify(Property::Items);
}

void Adodc::setSort(std::string sort) {
    Recordset().setSort(std::move(sort));
    notify(Property::Items);
}

std::optional<Value> Adodc::property(std::string_view name) const {
    const auto is = [name](std::string_view other) { return ado::equalIgnoringCase(name, other); };
    if (is("RecordSource"))
        return Value(source_.text());
    if (is("ConnectionString"))
        return Value(connectionString_);
    if (is("RecordCount"))
        return isOpen() ? Value(records_->RecordCount()) : Value();
    if (is("AbsolutePosition"))
        return isOpen() ? Value(records_->AbsolutePosition()) : Value();
    return Control::property(name);
}

} // namespace zel::forms
