#pragma once

#include "ado/recordset.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zel::forms {
class Dialogs;
}

/// What all screens compose their statements with, and the small jobs on records that they share.
namespace zel::core {

// Statements. What is asked of the text ignores case; what is put in stands in capitals.

/// "SELECT * FROM  " and the source, unless it is a select already.
[[nodiscard]] ado::Sql AddSelect(ado::Sql source);
/// The condition joined with WHERE or AND, in front of an order by. A blank condition changes nothing.
[[nodiscard]] ado::Sql AddWhere(const ado::Sql& condition, const ado::Sql& statement);
/// The condition of one incident, joined likewise.
[[nodiscard]] ado::Sql AddIncidentFilter(const ado::Sql& statement, std::int32_t gIncidentID);
/// Replaces the order of the statement. Direction -1 is ascending, any other descending. A request number sorts by its
/// letter and then by its number; columns that a join has twice are qualified.
[[nodiscard]] ado::Sql AddOrderBy(std::string_view sort, const ado::Sql& statement, int direction);

// Records. A source is a table's name or a select; `where` may be empty; an `incident` adds AddIncidentFilter.

[[nodiscard]] std::int64_t CountRows(ado::Connection& connection, const ado::Sql& source, const ado::Sql& where = {});
/// The field of the first row, Null without one. A new value is written to it first, and read back.
ado::Value FieldLookup(ado::Connection& connection, std::string_view field, const ado::Sql& source,
                       const ado::Sql& where = {}, std::optional<std::int32_t> incident = {},
                       const std::optional<ado::Value>& newValue = {});
/// The field of every row, the delimiter behind each; Null without a row.
[[nodiscard]] ado::Value FieldList(ado::Connection& connection, std::string_view field, const ado::Sql& source,
                                   const ado::Sql& where, std::optional<std::int32_t> incident,
                                   std::string_view delimiter);
/// The number in the first row of the column, whatever rows follow: the rows are joined by commas and read as one
/// number.
[[nodiscard]] double SumColumn(ado::Connection& connection, const ado::Sql& source, std::string_view field,
                               const ado::Sql& where = {});
/// Moves to the row and tells whether there was one; stays without a hit. Never throws.
[[nodiscard]] bool FindRow(ado::Recordset& records, std::string_view keyField, const ado::Value& value);
/// Finishes what is pending and closes. A failure is shown in a box and goes no further; the title is the
/// application's.
void RSClose(ado::Recordset& records, forms::Dialogs& dialogs, const std::string& title);
/// Likewise; makes a record set where there is none.
void RSClose(std::unique_ptr<ado::Recordset>& records, forms::Dialogs& dialogs, const std::string& title);

// Deletes. True when the row went; a row in the first dependent table that has one keeps it.

bool DeleteByFind(ado::Recordset& records, std::string_view keyField, const ado::Value& value,
                  const std::vector<std::string>& dependentTables);
bool DeleteByKey(ado::Connection& connection, std::string_view table, std::string_view keyField,
                 const ado::Value& value, const std::vector<std::string>& dependentTables = {});
/// The first row that has the value, if any.
bool DeleteFirst(ado::Connection& connection, std::string_view table, std::string_view keyField,
                 const ado::Value& value);
/// Opens a connection from a connection text that ends in ";PWD=" and the password.
using OpenConnection = std::function<std::unique_ptr<ado::Connection>(const std::string& connectionText)>;
/// For tables that the normal connection may not change: a connection of its own, with the password. Nothing happens
/// for an empty name or a value below 1.
void DeleteByKeyPassword(ado::Connection& connection, std::string_view table, std::int32_t value,
                         std::string_view keyField, const std::string& password, const OpenConnection& open);

// Keys, and what single screens have in common.

/// The only source of new keys.
[[nodiscard]] std::int32_t NextNumber(ado::Connection& connection, std::string_view table, std::string_view field = {});
/// A contract crew needs an Equipment row of its own: made when the resource has none.
void EnsureEquipmentRow(ado::Connection& connection, std::int32_t resourceID, std::int32_t accountingID,
                        std::string_view name);
/// End of the latest invoice of a piece of equipment as "7/4/2005"; empty without one. Every kind is read as equipment.
[[nodiscard]] std::string LastInvoiceDate(ado::Connection& connection, std::int32_t id, std::string_view kind);
/// Warns when a resource of the incident has the request number in `field` already: 0 for a blank box, 1 when it is
/// free or the clerk goes on, 2 for Cancel.
[[nodiscard]] int CheckRequestNumber(ado::Connection& connection, forms::Dialogs& dialogs, const std::string& title,
                                     std::int32_t gIncidentID, std::string_view requestNumber,
                                     std::string_view field = "requestnumber");

} // namespace zel::core
