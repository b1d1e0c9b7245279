#include "forms/row_list.h"

#include "ado/convert.h"
#include "ado/error.h"
#include "ado/format.h"
#include "forms/adodc.h"

#include <utility>

namespace zel::forms {

ListColumn::ListColumn(RowList& list, std::string caption, std::string dataField)
    : list_(list), caption_(std::move(caption)), dataField_(std::move(dataField)) {}

void ListColumn::setCaption(std::string caption) {
    caption_ = std::move(caption);
    list_.face_.notify(Property::Columns);
}

void ListColumn::setDataField(std::string field) {
    dataField_ = std::move(field);
    list_.face_.notify(Property::Columns);
}

void ListColumn::setVisible(bool visible) {
    visible_ = visible;
    list_.face_.notify(Property::Columns);
}

void ListColumn::setWidth(int twips) {
    width_ = twips;
    list_.face_.notify(Property::Columns);
}

void ListColumn::setNumberFormat(std::string format) {
    numberFormat_ = std::move(format);
    list_.face_.notify(Property::Columns);
}

Value ListColumn::value() const {
    const auto row = list_.SelectedItem();
    return row < 0 ? Value() : list_.fieldValue(row, dataField_.empty() ? caption_ : dataField_);
}

std::string ListColumn::Text() const {
    const auto row = list_.SelectedItem();
    return row < 0 ? std::string() : cellText(row);
}

std::string ListColumn::cellText(std::int64_t row) const {
    return shown(list_.fieldValue(row, dataField_.empty() ? caption_ : dataField_));
}

std::string ListColumn::shown(const Value& value) const {
    if (ValueItems.Translate) {
        if (auto display = ValueItems.displayOf(ado::toText(value)))
            return *display;
    }
    return numberFormat_.empty() ? ado::toText(value) : ado::format(value, numberFormat_);
}

void RowList::bind(ValueArray& array) {
    setSource(arraySource(array));
}

void RowList::bind(ado::Recordset& records) {
    setSource(recordsetSource(records));
}

void RowList::bind(Adodc& control) {
    setSource(adodcSource(control));
    sourceWatch_ = control.observe([this](Property) { ReBind(); });
}

void RowList::unbind() {
    setSource(nullptr);
}

void RowList::setSource(std::unique_ptr<RowSource> source) {
    sourceWatch_.end();
    source_ = std::move(source);
    if (ownColumns_)
        removeColumns();
    doubtful_ = true;
    sourceChanged();
    face_.notify(Property::Items);
}

std::int64_t RowList::rowCount() const {
    return source_ ? source_->rowCount() : 0;
}

ListColumn& RowList::addColumn(std::string caption, std::string dataField) {
    if (std::exchange(ownColumns_, false))
        columns_.clear(); // in silence: who is told looks at the columns, and would have them made anew
    columns_.emplace_back(*this, std::move(caption), std::move(dataField));
    face_.notify(Property::Columns);
    return columns_.back();
}

void RowList::removeColumns() {
    columns_.clear();
    ownColumns_ = false;
    face_.notify(Property::Columns);
}

void RowList::ensureColumns() {
    if (!columns_.empty() || !source_)
        return;
    ownColumns_ = true;
    for (int column = 0; column < source_->columnCount(); ++column)
        columns_.emplace_back(*this, source_->columnName(column), source_->columnName(column));
}

void RowList::renewColumns() {
    if (!ownColumns_ || !source_ || source_->columnCount() == 0)
        return;
    // Hidden columns that Columns() added stand behind those of the source.
    bool same = source_->columnCount() <= static_cast<int>(columns_.size());
    for (int column = 0; same && column < source_->columnCount(); ++column)
        same = source_->columnName(column) == columns_[column].DataField();
    if (!same)
        removeColumns();
}

int RowList::columnCount() {
    ensureColumns();
    return static_cast<int>(columns_.size());
}

ListColumn& RowList::Columns(int index) {
    ensureColumns();
    if (index < 0 || index >= static_cast<int>(columns_.size()))
        throw ado::Error(ado::ErrorKind::State, ado::errors::itemNotFound, "Invalid column index");
    return columns_[index];
}

ListColumn& RowList::Columns(std::string_view captionOrField) {
    ensureColumns();
    const int index = namedColumn(captionOrField);
    if (index >= 0)
        return columns_[index];
    if (!source_ || source_->columnIndex(captionOrField) < 0) {
        throw ado::Error(ado::ErrorKind::State, ado::errors::itemNotFound,
                         "Invalid column: " + std::string(captionOrField));
    }
    columns_.emplace_back(*this, std::string(captionOrField), std::string(captionOrField)).setVisible(false);
    return columns_.back();
}

int RowList::columnIndex(std::string_view captionOrField) {
    ensureColumns();
    return namedColumn(captionOrField);
}

int RowList::namedColumn(std::string_view captionOrField) const noexcept {
    int index = 0;
    for (const ListColumn& column : columns_) {
        if (ado::equalIgnoringCase(column.Caption(), captionOrField) ||
            (!column.DataField().empty() && ado::equalIgnoringCase(column.DataField(), captionOrField)))
            return index;
        ++index;
    }
    return -1;
}

void RowList::setListField(std::string field) {
    listField_ = std::move(field);
    face_.notify(Property::Columns);
}

int RowList::sourceColumn(std::string_view captionOrField) const {
    if (!source_)
        return -1;
    const int named = namedColumn(captionOrField);
    if (named >= 0 && !columns_[named].DataField().empty())
        captionOrField = columns_[named].DataField();
    const int column = source_->columnIndex(captionOrField);
    if (column >= 0 || named < 0)
        return column;
    // A list in memory without names is taken column by column.
    return source_->columnCount() > named && source_->columnName(named).empty() ? named : -1;
}

int RowList::listFieldColumn() const {
    if (!listField_.empty())
        return sourceColumn(listField_);
    if (columns_.empty() || ownColumns_)
        return source_ && source_->columnCount() > 0 ? 0 : -1;
    const ListColumn& first = columns_.front();
    return sourceColumn(first.DataField().empty() ? first.Caption() : first.DataField());
}

int RowList::boundFieldColumn() const {
    return boundColumn_.empty() ? listFieldColumn() : sourceColumn(boundColumn_);
}

const ListColumn* RowList::columnShowing(int column) const {
    for (const ListColumn& candidate : columns_) {
        if (!candidate.isPlain() &&
            sourceColumn(candidate.DataField().empty() ? candidate.Caption() : candidate.DataField()) == column)
            return &candidate;
    }
    return nullptr;
}

std::string RowList::shownText(std::int64_t row, int column, const ListColumn* shownBy) const {
    if (column < 0)
        return {};
    const Value value = source_->cell(row, column);
    return shownBy != nullptr ? shownBy->shown(value) : ado::toText(value);
}

Bookmark RowList::bookmark() const {
    const auto row = SelectedItem();
    return row < 0 ? 0 : source_->bookmarkAt(row);
}

void RowList::setBookmark(Bookmark row) {
    setSelectedItem(source_ && row != 0 ? source_->rowOf(row) : -1);
}

std::int64_t RowList::SelectedItem() const {
    if (!source_)
        return -1;
    if (followsSource() && source_->records() != nullptr)
        return source_->currentRow();
    if (chosen_ == 0)
        return -1;
    const auto row = source_->rowOf(chosen_);
    if (doubtful_ && (row < 0 || ado::toText(source_->cell(row, std::max(boundFieldColumn(), 0))) != chosenValue_))
        chosen_ = 0;
    doubtful_ = false;
    return chosen_ == 0 ? -1 : row;
}

void RowList::setSelectedItem(std::int64_t row) {
    chooseAndTell(row);
}

bool RowList::choose(std::int64_t row) {
    const bool another = row != SelectedItem();
    if (row < 0 || !source_) {
        chosen_ = 0;
    } else {
        source_->moveTo(row);
        chosen_ = source_->bookmarkAt(row);
        chosenValue_ = ado::toText(source_->cell(row, std::max(boundFieldColumn(), 0)));
        doubtful_ = false;
    }
    return another;
}

void RowList::chooseAndTell(std::int64_t row) {
    const bool another = choose(row);
    rowChosen();
    face_.notify(Property::Selection);
    if (another)
        Control::raise(ItemChange);
}

std::string RowList::BoundText() const {
    const auto row = SelectedItem();
    const int column = boundFieldColumn();
    return row < 0 || column < 0 ? std::string() : ado::toText(source_->cell(row, column));
}

void RowList::setBoundText(std::string_view value) {
    const int column = boundFieldColumn();
    std::int64_t found = -1;
    const auto rows = column < 0 || value.empty() ? 0 : rowCount();
    for (std::int64_t row = 0; row < rows && found < 0; ++row) {
        if (ado::equalIgnoringCase(ado::toText(source_->cell(row, column)), value))
            found = row;
    }
    chooseAndTell(found);
}

void RowList::ReBind() {
    renewColumns();
    doubtful_ = true;
    sourceChanged();
    face_.notify(Property::Items);
}

std::string RowList::listText(std::int64_t row) const {
    const int column = listFieldColumn();
    return row < 0 ? std::string() : shownText(row, column, columnShowing(column));
}

Value RowList::fieldValue(std::int64_t row, std::string_view captionOrField) const {
    const int column = sourceColumn(captionOrField);
    return column < 0 || row < 0 || row >= rowCount() ? Value() : source_->cell(row, column);
}

template <typename Matches>
std::int64_t RowList::firstRow(std::string_view column, Matches&& matches) const {
    const int field = column.empty() ? listFieldColumn() : sourceColumn(column);
    const ListColumn* shownBy = columnShowing(field);
    const auto rows = field < 0 ? 0 : rowCount();
    for (std::int64_t row = 0; row < rows; ++row) {
        if (matches(shownText(row, field, shownBy)))
            return row;
    }
    return -1;
}

std::int64_t RowList::findText(std::string_view text, std::string_view column) const {
    return firstRow(column, [text](const std::string& cell) { return ado::equalIgnoringCase(cell, text); });
}

std::int64_t RowList::findPrefix(std::string_view text, std::string_view column) const {
    if (text.empty())
        return -1;
    return firstRow(
        column, [text](std::string_view cell) { return ado::equalIgnoringCase(cell.substr(0, text.size()), text); });
}

} // namespace zel::forms
