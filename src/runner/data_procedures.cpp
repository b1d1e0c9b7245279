#include "ado/convert.h"
#include "core/modData.h"
#include "core/session.h"
#include "runner/procedures.h"

namespace zel::runner {

namespace {

using ado::Sql;

Sql statement(const Call& call, std::size_t index) {
    return Sql::words(call.textOr(index, ""));
}

/// The current incident where the flag is set.
std::optional<std::int32_t> incident(const Call& call, std::size_t index) {
    if (call.flagOr(index, false))
        return call.session.gIncidentID;
    return std::nullopt;
}

std::vector<std::string> tables(const Call& call, std::size_t first) {
    return {call.arguments.begin() + static_cast<std::ptrdiff_t>(first), call.arguments.end()};
}

void addSelect(Call& call) {
    call.result = core::AddSelect(statement(call, 0)).text();
}

void addWhere(Call& call) {
    call.result = core::AddWhere(statement(call, 0), statement(call, 1)).text();
}

void addIncidentFilter(Call& call) {
    call.result = core::AddIncidentFilter(statement(call, 0), call.session.gIncidentID).text();
}

void addOrderBy(Call& call) {
    call.result = core::AddOrderBy(call.text(0), statement(call, 1), call.number(2)).text();
}

void countRows(Call& call) {
    call.result = core::CountRows(call.session.connection(), statement(call, 0), statement(call, 1));
}

void fieldLookup(Call& call) {
    std::optional<ado::Value> newValue;
    if (call.arguments.size() > 4)
        newValue = call.value(4);
    call.result = core::FieldLookup(call.session.connection(), call.text(0), statement(call, 1), statement(call, 2),
                                    incident(call, 3), newValue);
}

void fieldList(Call& call) {
    call.result = core::FieldList(call.session.connection(), call.text(0), statement(call, 1), statement(call, 2),
                                  incident(call, 3), call.textOr(4, ","));
}

void sumColumn(Call& call) {
    call.result = core::SumColumn(call.session.connection(), statement(call, 0), call.text(1), statement(call, 2));
}

void deleteByKey(Call& call) {
    call.result =
        core::DeleteByKey(call.session.connection(), call.text(0), call.text(1), call.value(2), tables(call, 3));
}

void deleteFirst(Call& call) {
    call.result = core::DeleteFirst(call.session.connection(), call.text(0), call.text(1), call.value(2));
}

void nextNumber(Call& call) {
    call.result = std::int64_t{core::NextNumber(call.session.connection(), call.text(0), call.textOr(1, ""))};
}

void ensureEquipmentRow(Call& call) {
    core::EnsureEquipmentRow(call.session.connection(), call.number(0), call.number(1), call.text(2));
}

void lastInvoiceDate(Call& call) {
    call.result = core::LastInvoiceDate(call.session.connection(), call.number(0), call.textOr(1, ""));
}

void checkRequestNumber(Call& call) {
    auto& session = call.session;
    call.result = core::CheckRequestNumber(session.connection(), session.dialogs, session.app.Title,
                                           session.gIncidentID, call.text(0), call.textOr(1, "requestnumber"));
}

} // namespace

void addDataProcedures(Procedures& table) {
    table.push_back({"AddSelect", "source", 1, 1, addSelect});
    table.push_back({"AddWhere", "condition statement", 2, 2, addWhere});
    table.push_back({"AddIncidentFilter", "statement", 1, 1, addIncidentFilter});
    table.push_back({"AddOrderBy", "sort statement direction", 3, 3, addOrderBy});
    table.push_back({"CountRows", "source [where]", 1, 2, countRows});
    table.push_back({"FieldLookup", "field source [where] [incident] [newValue]", 2, 5, fieldLookup});
    table.push_back({"FieldList", "field source [where] [incident] [delimiter]", 2, 5, fieldList});
    table.push_back({"SumColumn", "source field [where]", 2, 3, sumColumn});
    table.push_back({"DeleteByKey", "table key value [dependent...]", 3, anyCount, deleteByKey});
    table.push_back({"DeleteFirst", "table key value", 3, 3, deleteFirst});
    table.push_back({"NextNumber", "table [field]", 1, 2, nextNumber});
    table.push_back({"EnsureEquipmentRow", "resource account name", 3, 3, ensureEquipmentRow});
    table.push_back({"LastInvoiceDate", "id [kind]", 1, 2, lastInvoiceDate});
    table.push_back({"CheckRequestNumber", "number [field]", 1, 2, checkRequestNumber});
}

} // namespace zel::runner
