#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zel::forms {

/// The entries of a plain combo or list box: a text each, and a number that the screen keeps with it.
struct ListItem {
    std::string text;
    std::int32_t data = 0;
};

/// Index of the entry with the text, letters ignored, or -1.
[[nodiscard]] int findItem(const std::vector<ListItem>& items, std::string_view text) noexcept;
/// Index of the first entry that begins with the text, letters ignored, or -1. An empty text begins nothing.
[[nodiscard]] int findItemPrefix(const std::vector<ListItem>& items, std::string_view text) noexcept;

} // namespace zel::forms
