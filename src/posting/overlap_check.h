#pragma once

#include "ado/date_time.h"
#include "ado/sql.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zel::core {
class Session;
}

namespace zel::posting {

/// Lists the stretches that a new period shares with rows of `PersonsPost` of the same person, one line each, empty
/// when there is none. The row with the key `PersonsPostID` does not clash with itself. Leaves the keys of the clashing
/// rows in `vYNMSa`. Any failure ends the scan: what was found so far is the answer.
[[nodiscard]] std::string CheckPersonOverlap(core::Session& session, ado::DateTime ActivityDT, std::int32_t PersonID,
                                             std::int32_t PersonsPostID, ado::DateTime Start, ado::DateTime Stop);

/// The same for rows of `ContractorPost`. Mode "Special" looks at the special times, any other at the primary ones.
[[nodiscard]] std::string CheckEquipOverlap(core::Session& session, ado::DateTime ActivityDT, std::int32_t EquipmentID,
                                            std::int32_t ResourceID, std::int32_t ContractorPostID, ado::DateTime Start,
                                            ado::DateTime Stop, std::string_view Mode);

/// The statements that the two checks send, one for each half of the period.
[[nodiscard]] std::vector<ado::Sql> personOverlapStatements(const core::Session& session, ado::DateTime ActivityDT,
                                                            std::int32_t PersonID, std::int32_t PersonsPostID,
                                                            ado::DateTime Start, ado::DateTime Stop);
[[nodiscard]] std::vector<ado::Sql> equipOverlapStatements(const core::Session& session, ado::DateTime ActivityDT,
                                                           std::int32_t EquipmentID, std::int32_t ResourceID,
                                                           std::int32_t ContractorPostID, ado::DateTime Start,
                                                           ado::DateTime Stop, std::string_view Mode);

} // namespace zel::posting
