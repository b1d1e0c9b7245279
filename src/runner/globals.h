#pragma once

#include "runner/json.h"

#include <string_view>

namespace zel::core {
class Session;
}

namespace zel::runner {

/// The state that all screens share, by its own names. Lists are given as rows of values.
[[nodiscard]] Json allGlobals(const core::Session& session);
/// One of them, letters ignored; throws CommandError for a name that is none.
[[nodiscard]] Json globalValue(const core::Session& session, std::string_view name);

} // namespace zel::runner
