#pragma once

#include "ado/value.h"
#include "printing/layout.h"

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zel::ado {
class Recordset;
}

namespace zel::printing {

/// The rows that a report shows.
struct Rows {
    std::vector<std::string> fields;
    std::vector<std::vector<ado::Value>> rows;

    /// Where a field stands.
    [[nodiscard]] std::optional<std::size_t> find(std::string_view field) const noexcept;
    /// The field of a row; names ignore case, and of two with one name the first is meant. Throws ado::Error 3265.
    [[nodiscard]] const ado::Value& value(std::size_t row, std::string_view field) const;
    [[nodiscard]] static Rows of(ado::Recordset& records);
};

/// What a report is made of beside its layout.
struct ReportData {
    Rows main, subreport;
    std::map<std::string, ado::Value> parameters;
};

/// An item in its place on a page, its text filled in. Inches from the page's left top corner.
struct Mark {
    Item item;
    double x = 0, y = 0;
};

using Page = std::vector<Mark>;

/// Lays the rows out on pages. A report without rows is one page with its headers and footers.
[[nodiscard]] std::vector<Page> makePages(const Layout& layout, const ReportData& data);

} // namespace zel::printing
