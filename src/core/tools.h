#pragma once

#include "ado/sql.h"

#include <cstdint>
#include <vector>

namespace zel::forms {
class Label;
}

namespace zel::core {

class Session;

/// Copies the database file beside itself under the time; tells nobody, neither of success nor of failure.
void BackupDatabase(Session& session);

/// Empties the database after three questions. `status` shows how far it is.
void EraseDatabase(Session& session, forms::Label& status);

/// What has to go with an incident, in the order that the references between the tables ask for. Tables of the other
/// modules of the suite are among them.
[[nodiscard]] std::vector<ado::Sql> deleteIncidentStatements(std::int32_t incident);
/// Runs them. A failure is shown and leaves what was removed before it removed.
bool DeleteIncident(Session& session, std::int32_t incident);

} // namespace zel::core
