#pragma once

#include "ado/sql.h"
#include "forms/value_array.h"

#include <cstdint>
#include <optional>

namespace zel::core {

class Session;

/// Whose rate lines the lists 11 to 13 show.
struct RateLinesOf {
    enum class Key { EquipmentID, ResourceID };
    Key key = Key::EquipmentID;
    std::int32_t id = 0;
};

/// The statement of a list; empty for a number outside 1 to 15 and for number 3. List 1 shows the accounts of the
/// current incident or, without `bForIncident`, those of all incidents.
[[nodiscard]] ado::Sql listStatement(const Session& session, bool bForIncident, int listNumber, RateLinesOf of = {});

/// Replaces the rows of the list; does nothing without a statement. Leaves the number of columns and rows in the
/// session. Without rows the list has one empty row, which list controls show as a blank line.
void LoadList(Session& session, bool bForIncident, forms::ValueArray& list, int listNumber, RateLinesOf of = {});

/// Sets the current incident after a load; -1 takes the one that `zel.ini` names. An incident that is gone falls back
/// to the saved one and then to the first. Gives the id taken, -1 when there is no incident at all.
std::int32_t SelectIncident(Session& session, std::int32_t lIncident);

/// The default account of an incident by its row in gIncidentList, -1 when it has none.
[[nodiscard]] std::int32_t defaultAccount(const Session& session, int row);

/// Reads the codes of the request categories into gRequestCats.
void LoadRequestCats(Session& session);

/// Columns of gIncidentList.
namespace incident_column {
inline constexpr int IncidentID = 0, IncidentName = 1, IncidentNumber = 2, IncidentLocation = 3, EndDate = 4,
                     ParentIncident = 5, IncidentState = 6, AdminName = 7, AdminAddr1 = 8, AdminAddr2 = 9,
                     AdminCity = 10, AdminState = 11, AdminZip = 12, AccountingID = 13, AccountingCode = 14,
                     aIncidentID = 15, IncidentDefault = 16, AgencyCode = 17, StartDate = 18;
}

} // namespace zel::core
