#pragma once

#include "ado/engine.h"

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace zel::ado {

/// The number of a row among the rows held; it never changes while they are.
using RowId = std::uint32_t;

struct SortKey {
    std::size_t column = 0;
    bool descending = false;
};

/// "LastName, [First Name] DESC"; empty gives none. Throws Error 3265 for an unknown name, 3001 for anything else
/// wrong.
[[nodiscard]] std::vector<SortKey> parseSort(std::string_view text, std::span<const ResultColumn> columns);

/// Rows that compare equal keep their order; Null stands first in ascending order; text ignores case.
void sortRows(std::vector<RowId>& order, const RowStore& rows, std::span<const SortKey> keys);

} // namespace zel::ado
