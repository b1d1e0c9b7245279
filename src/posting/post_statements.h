#pragma once

#include "ado/sql.h"

namespace zel::core {
class Session;
}

/// What the lists and grids of the posting screen read, one text for both dialects.
namespace zel::posting::statements {

/// The persons of the incident whose status belongs to this program, or of all incidents.
[[nodiscard]] ado::Sql persons(const core::Session& session);
[[nodiscard]] ado::Sql crews(const core::Session& session);
/// Members of whatever crew the filter names.
[[nodiscard]] ado::Sql crewMembers();
[[nodiscard]] ado::Sql contractors(const core::Session& session);
/// Contract equipment of the type of gContractType.
[[nodiscard]] ado::Sql equipment(const core::Session& session);

} // namespace zel::posting::statements
