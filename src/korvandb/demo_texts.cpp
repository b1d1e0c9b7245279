#include "korvandb/demo_texts.h"

#include "ado/convert.h"
#include "korvandb/texts.h"

#include <algorithm>
#include <cassert>

namespace zel::korvandb {

const TextBlock::Cell& DemoRow::at(std::string_view column) const {
    const auto found = std::ranges::find(block_->columns, column);
    assert(found != block_->columns.end());
    return block_->rows[row_][static_cast<std::size_t>(found - block_->columns.begin())];
}

ado::Value DemoRow::cell(std::string_view column) const {
    const TextBlock::Cell& found = at(column);
    return found ? ado::Value(*found) : ado::Value();
}

std::string DemoRow::text(std::string_view column) const {
    return at(column).value_or("");
}

int DemoRow::number(std::string_view column) const {
    return ado::toLong(text(column));
}

ado::Currency DemoRow::money(std::string_view column) const {
    const TextBlock::Cell& found = at(column);
    return found ? ado::Currency::fromDecimal(*found) : ado::Currency();
}

ado::DateTime DemoRow::date(std::string_view column) const {
    return ado::parseIsoText(text(column)).value();
}

DemoTexts::DemoTexts() : blocks_(parseBlocks(texts::demo)) {
    for (TextBlock& lookup : parseBlocks(texts::lookups))
        blocks_.push_back(std::move(lookup));
}

const TextBlock& DemoTexts::block(std::string_view name) const {
    const auto found = std::ranges::find(blocks_, name, &TextBlock::name);
    assert(found != blocks_.end());
    return *found;
}

std::vector<DemoRow> DemoTexts::rows(std::string_view name) const {
    const TextBlock& found = block(name);
    std::vector<DemoRow> made;
    for (std::size_t row = 0; row < found.rows.size(); ++row)
        made.emplace_back(found, row);
    return made;
}

std::vector<std::string> DemoTexts::list(std::string_view name, std::string_view column) const {
    std::vector<std::string> made;
    for (const DemoRow& row : rows(name))
        made.push_back(row.text(column));
    return made;
}

} // namespace zel::korvandb
