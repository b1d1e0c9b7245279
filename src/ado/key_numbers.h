#pragma once

#include "ado/catalog.h"
#include "ado/engine.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

/// The statements behind usp_getNextNumber, the same on both engines. The table NextNumbers holds one row for each
/// table that got a key so far: TableName, and in NextNumber the key that the next call gives.
namespace zel::ado {

struct KeyColumn {
    std::string table;
    std::string column;
};

/// The key column that the numbers of a table go to. Throws Error for an unknown table, and for one without a key.
[[nodiscard]] KeyColumn keyColumn(const Catalog& catalog, std::string_view table, std::string_view field);

/// Moves the row of one table on and gives the key taken; no row before the first call.
[[nodiscard]] std::string moveNumberText(std::string_view parameter);
/// Makes the row, above the highest key in the table, or moves it when another clerk was faster. `greatest` is the
/// engine's function for the larger of two numbers.
[[nodiscard]] std::string firstNumberText(const KeyColumn& key, std::string_view parameter, std::string_view greatest);

/// Runs the first statement, and the one that `prepareFirst` makes when there is no row yet.
[[nodiscard]] std::int32_t takeNumber(PreparedStatement& move, const KeyColumn& key,
                                      const std::function<std::shared_ptr<PreparedStatement>()>& prepareFirst);

} // namespace zel::ado
