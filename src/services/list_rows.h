#pragma once

#include "forms/value_array.h"

#include <string>
#include <string_view>

namespace zel::services {

/// Row of the first list row whose column shows the value, letters ignored; -1 when there is none.
[[nodiscard]] int FindListRow(const forms::ValueArray& list, int column, std::string_view value);
/// The same for two columns that must both match.
[[nodiscard]] int FindListRow(const forms::ValueArray& list, int column, std::string_view value, int secondColumn,
                              std::string_view secondValue);

/// The cell as text, empty outside the list.
[[nodiscard]] std::string listText(const forms::ValueArray& list, int row, int column);

} // namespace zel::services
