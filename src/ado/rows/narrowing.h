#pragma once

#include "ado/engine.h"
#include "ado/rows/criteria.h"

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace zel::ado {

/// A condition that an engine can test itself, with the values for its parameters.
struct EngineCondition {
    std::string text;
    std::vector<Value> parameters;
};

/// What of a filter the engine may test, so that rows no one asked for are never fetched. The filter is still applied
/// to what comes, so a part that cannot be put into the engine's words is left out. Nothing when no part can.
///
/// Columns are named as those of a subquery called `rowsOfSource`; parameters are numbered from `firstParameter`.
[[nodiscard]] std::optional<EngineCondition> narrowingCondition(const Criteria& filter,
                                                                std::span<const ResultColumn> columns,
                                                                EngineKind engine, std::size_t firstParameter);

inline constexpr std::string_view rowsOfSource = "zel_rows";

} // namespace zel::ado
