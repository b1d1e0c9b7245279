#pragma once

#include "ado/value.h"
#include "korvandb/text_blocks.h"

#include <string>
#include <string_view>
#include <vector>

namespace zel::korvandb {

/// One row of the demo texts, its cells by name.
class DemoRow {
public:
    DemoRow(const TextBlock& block, std::size_t row) : block_(&block), row_(row) {}

    /// Null for an empty cell.
    [[nodiscard]] ado::Value cell(std::string_view column) const;
    [[nodiscard]] std::string text(std::string_view column) const;
    [[nodiscard]] int number(std::string_view column) const;
    [[nodiscard]] bool flag(std::string_view column) const { return number(column) != 0; }
    /// 0 for an empty cell.
    [[nodiscard]] ado::Currency money(std::string_view column) const;
    [[nodiscard]] ado::DateTime date(std::string_view column) const;

private:
    [[nodiscard]] const TextBlock::Cell& at(std::string_view column) const;

    const TextBlock* block_;
    std::size_t row_;
};

/// The blocks of database/demo.txt and database/lookups.txt by name.
class DemoTexts {
public:
    DemoTexts();

    [[nodiscard]] std::vector<DemoRow> rows(std::string_view name) const;
    /// A column of a block as a plain list.
    [[nodiscard]] std::vector<std::string> list(std::string_view name, std::string_view column) const;

private:
    [[nodiscard]] const TextBlock& block(std::string_view name) const;

    std::vector<TextBlock> blocks_;
};

} // namespace zel::korvandb
