#pragma once

#include "forms/value_array.h"
#include "runner/json.h"

namespace zel::runner {

/// The rows of a list in memory as arrays of values.
[[nodiscard]] inline Json listRows(const forms::ValueArray& list) {
    Json rows(Json::Array{});
    for (int row = 0; row < list.rows(); ++row) {
        Json cells(Json::Array{});
        for (int column = 0; column < list.columns(); ++column)
            cells.append(list(row, column));
        rows.append(std::move(cells));
    }
    return rows;
}

} // namespace zel::runner
