#pragma once

#include "printing/pages.h"

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace zel::printing {

/// Rows that a band speaks of: the one it shows, and those that its sums run over, `last` not included.
struct Scope {
    std::size_t row = 0, first = 0, last = 0;
    /// The first row of the sheet's rows.
    std::size_t sheetFirst = 0;
};

/// Stand for the page's number and the number of pages until all pages are there.
inline constexpr char pageMark = '\x01', pagesMark = '\x02';

/// Fills the fields of a layout's texts.
class TextTemplate {
public:
    TextTemplate(const Layout& layout, const ReportData& data) : layout_(layout), data_(data) {}

    [[nodiscard]] std::string fill(std::string_view text, const Scope& scope);
    /// Whether an item is to be printed.
    [[nodiscard]] bool shown(const Item& item, const Scope& scope);

private:
    [[nodiscard]] std::string field(std::string_view expression, const Scope& scope);
    [[nodiscard]] ado::Value value(std::string_view name, const Scope& scope);
    [[nodiscard]] ado::Value sum(std::string_view name, std::size_t first, std::size_t last);
    [[nodiscard]] ado::Value subreport(std::string_view name, const Scope& scope) const;

    /// Sums of a field from the first row on, one more than there are rows, so that a sum is a difference.
    struct Sums {
        bool money = false;
        std::vector<std::int64_t> ticks;
        std::vector<double> numbers;
    };
    const Sums& sumsOf(std::string_view name);

    const Layout& layout_;
    const ReportData& data_;
    std::map<std::string, Sums, std::less<>> sums_;
};

} // namespace zel::printing
