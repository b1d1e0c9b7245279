#pragma once

#include "printing/pages.h"

#include <compare>
#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace zel::printing {

/// Where a text stands on pages: bytes of the text of a mark, everything counted from 0.
struct FoundText {
    std::size_t page = 0, mark = 0, first = 0, length = 0;
    friend auto operator<=>(const FoundText&, const FoundText&) = default;
};

/// Every place on the page that shows the text, letters' case aside, in the order of its marks.
[[nodiscard]] std::vector<FoundText> textsOnPage(const std::vector<Page>& pages, std::size_t page,
                                                 std::string_view text);

/// The first place behind `from`, or the last before it; after the last page it goes on with the first.
[[nodiscard]] std::optional<FoundText> findText(const std::vector<Page>& pages, std::string_view text,
                                                const FoundText& from, bool backwards = false);

} // namespace zel::printing
