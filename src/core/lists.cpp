#include "core/lists.h"

#include "ado/convert.h"
#include "ado/recordset.h"
#include "core/modData.h"
#include "core/session.h"
#include "core/settings.h"
#include "services/list_rows.h"

#include <array>

namespace zel::core {

namespace {

constexpr int rateLinesList = 11;
// The empty row of the rate lines is one column short of their statement.
constexpr int emptyRateLineColumns = 7;

void leaveEmptyRow(forms::ValueArray& list, int columns, std::vector<std::string> names) {
    list.redim(1, columns);
    names.resize(static_cast<std::size_t>(columns));
    list.setColumnNames(std::move(names));
}

std::int32_t savedIncident(Session& session) {
    const std::string saved = GetSetting(session, "Incident");
    return saved.empty() ? -1 : static_cast<std::int32_t>(ado::numberAtHead(saved));
}

// False when the incident is not in the list.
bool takeIncident(Session& session, std::int32_t incident) {
    const int row = services::FindListRow(session.gIncidentList, incident_column::IncidentID, std::to_string(incident));
    if (row < 0)
        return false;
    session.gIncidentID = incident;
    session.gIncidentIndex = static_cast<std::int16_t>(row);
    session.gAccountingID = defaultAccount(session, row);
    session.gIncidentStart = services::listText(session.gIncidentList, row, incident_column::StartDate);
    SaveSetting(session, "Incident", std::to_string(incident));
    return true;
}

} // namespace

void LoadList(Session& session, bool bForIncident, forms::ValueArray& list, int listNumber, RateLinesOf of) {
    const ado::Sql statement = listStatement(session, bForIncident, listNumber, of);
    if (statement.empty())
        return;
    ado::Recordset rows;
    rows.Open(statement, session.connection(), ado::CursorType::Static, ado::LockType::ReadOnly);
    list = forms::ValueArray::fromRecordset(rows);
    session.gListRows = list.rows();
    session.gListColumns = static_cast<int>(rows.fieldCount());
    if (session.gListRows == 0) {
        std::vector<std::string> names = list.columnNames();
        leaveEmptyRow(list, listNumber == rateLinesList ? emptyRateLineColumns : session.gListColumns,
                      std::move(names));
    }
}

std::int32_t defaultAccount(const Session& session, int row) {
    const std::string account = services::listText(session.gIncidentList, row, incident_column::AccountingID);
    return account.empty() ? -1 : static_cast<std::int32_t>(ado::numberAtHead(account));
}

std::int32_t SelectIncident(Session& session, std::int32_t lIncident) {
    const std::int32_t saved = savedIncident(session);
    LoadList(session, false, session.gIncidentList, 5);
    if (session.gListRows == 0) {
        session.gIncidentID = -1;
        session.gIncidentIndex = -1;
        session.gIncidentStart.clear();
        return -1;
    }
    const auto first = static_cast<std::int32_t>(
        ado::numberAtHead(services::listText(session.gIncidentList, 0, incident_column::IncidentID)));
    std::int32_t wanted = lIncident == -1 ? saved : lIncident;
    if (wanted == -1)
        wanted = first;
    for (const std::int32_t candidate : std::array{wanted, saved, first}) {
        if (takeIncident(session, candidate))
            break;
    }
    return session.gIncidentID;
}

void LoadRequestCats(Session& session) {
    session.gRequestCats = FieldList(session.connection(), "Code", "L_RequestCat", {}, {}, ",");
}

} // namespace zel::core
