#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zel::korvandb {

/// Rows of a text in the folder database/: "NAME: COLUMN, ...", then rows of cells parted by "|", one a line or parted
/// by ";".
struct TextBlock {
    /// Empty (NULL) for an empty cell; "" in the text is the empty text.
    using Cell = std::optional<std::string>;

    std::string name;
    std::vector<std::string> columns;
    std::vector<std::vector<Cell>> rows;
};

/// Throws std::invalid_argument that names the line when a row has not as many cells as the block has columns.
[[nodiscard]] std::vector<TextBlock> parseBlocks(std::string_view text);

} // namespace zel::korvandb
