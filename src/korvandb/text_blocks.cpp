#include "korvandb/text_blocks.h"

#include "ado/convert.h"

#include <fmt/format.h>

#include <algorithm>
#include <stdexcept>

namespace zel::korvandb {

namespace {

/// Cuts the first piece off a text; the separator goes with it.
std::string_view cut(std::string_view& text, char separator) {
    const std::size_t end = text.find(separator);
    const std::string_view piece = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    return piece;
}

TextBlock header(std::string_view line) {
    TextBlock block;
    block.name = ado::trim(cut(line, ':'));
    while (!line.empty())
        block.columns.emplace_back(ado::trim(cut(line, ',')));
    return block;
}

TextBlock::Cell cell(std::string_view text) {
    text = ado::trim(text);
    if (text.empty())
        return std::nullopt;
    return std::string(text == "\"\"" ? std::string_view() : text);
}

std::vector<TextBlock::Cell> cells(std::string_view row) {
    std::vector<TextBlock::Cell> made;
    const std::size_t bars = static_cast<std::size_t>(std::count(row.begin(), row.end(), '|'));
    for (std::size_t i = 0; i <= bars; ++i)
        made.push_back(cell(cut(row, '|')));
    return made;
}

} // namespace

std::vector<TextBlock> parseBlocks(std::string_view text) {
    std::vector<TextBlock> blocks;
    for (int number = 1; !text.empty(); ++number) {
        std::string_view line = cut(text, '\n');
        const std::string_view content = ado::trim(line);
        if (content.empty() || content.front() == '#')
            continue;
        if (line.front() != ' ') {
            blocks.push_back(header(content));
            continue;
        }
        while (!ado::trim(line).empty()) {
            std::vector<TextBlock::Cell> row = cells(cut(line, ';'));
            if (blocks.empty() || row.size() != blocks.back().columns.size())
                throw std::invalid_argument(fmt::format("line {}: a row with {} cells", number, row.size()));
            blocks.back().rows.push_back(std::move(row));
        }
    }
    return blocks;
}

} // namespace zel::korvandb
