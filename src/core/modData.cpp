#include "core/modData.h"

#include "ado/command.h"
#include "ado/convert.h"
#include "ado/error.h"
#include "ado/format.h"
#include "forms/dialogs.h"

#include <fmt/format.h>

#include <algorithm>

namespace zel::core {

using ado::CursorType;
using ado::EditModeEnum;
using ado::LockType;
using ado::Recordset;
using ado::Sql;
using ado::Value;

namespace {

Recordset openRows(ado::Connection& connection, const Sql& source, const Sql& where,
                   std::optional<std::int32_t> incident = {}, LockType lock = LockType::ReadOnly) {
    Sql statement = AddWhere(where, AddSelect(source));
    if (incident)
        statement = AddIncidentFilter(statement, *incident);
    Recordset records;
    records.Open(std::move(statement), connection, CursorType::Static, lock);
    return records;
}

/// "<key> = <value>", the value in quotes when it is no number.
std::string criteriaFor(std::string_view keyField, const Value& value) {
    const std::string text = ado::toText(value);
    return ado::isNumeric(value) ? fmt::format("{} = {}", keyField, text) : fmt::format("{} = '{}'", keyField, text);
}

bool hasDependents(ado::Connection& connection, std::string_view keyField, const Value& value,
                   const std::vector<std::string>& tables) {
    const Sql condition = Sql::words(keyField) + "=" + Sql::of(value);
    return std::ranges::any_of(
        tables, [&](const std::string& table) { return !openRows(connection, Sql::words(table), condition).EOF_(); });
}

/// Deletes the current row and stands on the one in front of it, or on the new first.
void deleteCurrent(Recordset& records) {
    const std::int64_t position = records.AbsolutePosition();
    records.Delete();
    if (records.RecordCount() == 0)
        return;
    if (position > 1)
        records.MovePrevious();
    else
        records.MoveFirst();
}

} // namespace

std::int64_t CountRows(ado::Connection& connection, const Sql& source, const Sql& where) {
    return openRows(connection, source, where).RecordCount();
}

Value FieldLookup(ado::Connection& connection, std::string_view field, const Sql& source, const Sql& where,
                  std::optional<std::int32_t> incident, const std::optional<Value>& newValue) {
    Recordset records =
        openRows(connection, source, where, incident, newValue ? LockType::Optimistic : LockType::ReadOnly);
    if (records.EOF_())
        return {};
    if (newValue) {
        records.setValue(field, *newValue);
        records.Update();
    }
    return records.value(field);
}

Value FieldList(ado::Connection& connection, std::string_view field, const Sql& source, const Sql& where,
                std::optional<std::int32_t> incident, std::string_view delimiter) {
    Recordset records = openRows(connection, source, where, incident);
    if (records.EOF_())
        return {};
    std::string list;
    const std::size_t column = records.fieldIndex(field);
    for (std::int64_t position = 1; position <= records.RecordCount(); ++position)
        list.append(ado::toText(records.valueAt(position, column))).append(delimiter);
    return list;
}

double SumColumn(ado::Connection& connection, const Sql& source, std::string_view field, const Sql& where) {
    Recordset records = openRows(connection, source, where);
    std::string joined;
    for (; !records.EOF_(); records.MoveNext())
        joined += "," + ado::toText(records.value(field));
    return joined.empty() ? 0.0 : ado::numberAtHead(std::string_view(joined).substr(1));
}

bool FindRow(Recordset& records, std::string_view keyField, const Value& value) {
    try {
        Recordset clone = records.Clone();
        if (clone.AbsolutePosition() == Recordset::positionUnknown)
            return false;
        clone.MoveFirst();
        clone.Find(criteriaFor(keyField, value));
        if (clone.EOF_())
            return false;
        records.setBookmark(clone.bookmark());
        return true;
    } catch (const ado::Error&) {
        return false;
    }
}

void RSClose(Recordset& records, forms::Dialogs& dialogs, const std::string& title) {
    const auto showFailure = [&](const ado::Error& error) {
        dialogs.message(fmt::format("Error Number: {}\r\nDescription: {}", error.number(), error.description()),
                        title + ": RSClose Error");
    };
    try {
        if (records.State() == ado::stateClosed)
            return;
        if (records.EditMode() != EditModeEnum::None)
            records.Update();
    } catch (const ado::Error& error) {
        showFailure(error);
    }
    try {
        records.CancelUpdate();
        records.Close();
    } catch (const ado::Error& error) {
        showFailure(error);
    }
}

void RSClose(std::unique_ptr<Recordset>& records, forms::Dialogs& dialogs, const std::string& title) {
    if (records)
        RSClose(*records, dialogs, title);
    else
        records = std::make_unique<Recordset>();
}

bool DeleteByFind(Recordset& records, std::string_view keyField, const Value& value,
                  const std::vector<std::string>& dependentTables) {
    try {
        ado::Connection* connection = records.ActiveConnection();
        if (connection == nullptr || hasDependents(*connection, keyField, value, dependentTables) ||
            !FindRow(records, keyField, value))
            return false;
        deleteCurrent(records);
        return true;
    } catch (const ado::Error&) {
        return false;
    }
}

bool DeleteByKey(ado::Connection& connection, std::string_view table, std::string_view keyField, const Value& value,
                 const std::vector<std::string>& dependentTables) {
    if (hasDependents(connection, keyField, value, dependentTables))
        return false;
    const Sql criteria = Sql::words(keyField) + " = " + Sql::of(value);
    Recordset records = openRows(connection, Sql::words(table), {}, {}, LockType::Optimistic);
    records.setFilter(criteria); // the other rows of the table stay where they are
    if (records.EOF_())
        return false;
    records.Find(criteria.text());
    deleteCurrent(records);
    return true;
}

bool DeleteFirst(ado::Connection& connection, std::string_view table, std::string_view keyField, const Value& value) {
    Recordset records;
    records.Open("Select * From " + Sql::words(table) + " Where " + Sql::words(keyField) + " = " + Sql::of(value),
                 connection);
    if (records.EOF_())
        return false;
    records.Delete();
    records.Update();
    return true;
}

void DeleteByKeyPassword(ado::Connection& connection, std::string_view table, std::int32_t value,
                         std::string_view keyField, const std::string& password, const OpenConnection& open) {
    if (table.empty() || keyField.empty() || value < 1)
        return;
    const std::unique_ptr<ado::Connection> second = open(connection.ConnectionString() + ";PWD=" + password);
    second->Execute("Delete From " + Sql::words(table) + " Where " + Sql::words(keyField) + " = " + Sql::of(value));
    second->Close();
}

std::int32_t NextNumber(ado::Connection& connection, std::string_view table, std::string_view field) {
    using ado::DataType;
    using ado::ParameterDirection;
    ado::Command command;
    command.ActiveConnection = &connection;
    command.CommandText = "usp_getNextNumber";
    command.Type = ado::CommandType::StoredProcedure;
    command.Parameters = {{"tablename", DataType::VarChar, ParameterDirection::Input, 40, table},
                          {"fieldname", DataType::VarChar, ParameterDirection::Input, 40, field},
                          {"nextnumber", DataType::Integer, ParameterDirection::Output, 0, Value()}};
    command.Execute();
    return ado::toLong(command.Parameters[2].value);
}

void EnsureEquipmentRow(ado::Connection& connection, std::int32_t resourceID, std::int32_t accountingID,
                        std::string_view name) {
    if (resourceID > 0) {
        Recordset records;
        records.Open("Select ResourceID from Equipment where ResourceID = " + Sql::of(resourceID), connection,
                     CursorType::Static, LockType::ReadOnly);
        if (!records.EOF_())
            return;
    }
    connection.Execute("Insert into Equipment (EquipmentID,ResourceID,UniqueEquipmentName,AccountingID) Values (" +
                       Sql::of(NextNumber(connection, "Equipment")) + "," + Sql::of(resourceID) + ",'" + Sql::of(name) +
                       "'," + Sql::of(accountingID) + ")");
}

std::string LastInvoiceDate(ado::Connection& connection, std::int32_t id, std::string_view) {
    Recordset records;
    records.Open("Select MAX(LastDate) as InvDate from EquipInvoices WHERE EquipmentID = " + Sql::of(id) +
                     " and Del = 0",
                 connection, CursorType::Static, LockType::ReadOnly);
    const Value last = records.EOF_() ? Value() : records.value("InvDate");
    return last.isEmpty() ? std::string() : ado::format(last, "m/d/yyyy");
}

int CheckRequestNumber(ado::Connection& connection, forms::Dialogs& dialogs, const std::string& title,
                       std::int32_t gIncidentID, std::string_view requestNumber, std::string_view field) {
    if (requestNumber.empty() || requestNumber == "_-____" || requestNumber == " -    ")
        return 0;
    Recordset records;
    records.Open("select name, requestnumber, kindcode from resources where " + Sql::words(field) + " = '" +
                     Sql::of(requestNumber) + "' and incidentid = " + Sql::of(gIncidentID),
                 connection, CursorType::Static, LockType::ReadOnly);
    std::string inUse;
    for (; !records.EOF_(); records.MoveNext()) {
        const std::string number = ado::toText(records.value("requestnumber"));
        inUse +=
            fmt::format("Request#: {0} already in use: \r\n\tRequest#: {0}\r\n\tName:       {1}\r\n\tKindCode: {2}",
                        number, ado::toText(records.value("name")), ado::toText(records.value("kindcode")));
    }
    if (inUse.empty())
        return 1;
    return static_cast<int>(
        dialogs.message(inUse, title + ": WARNING", forms::Buttons::OKCancel, forms::Icon::Exclamation));
}

} // namespace zel::core
