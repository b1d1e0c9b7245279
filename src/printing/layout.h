#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace zel::printing {

/// A layout that cannot be read: what is wrong, and where.
class LayoutError : public std::runtime_error {
public:
    LayoutError(int line, int column, const std::string& what)
        : std::runtime_error("line " + std::to_string(line) + ", column " + std::to_string(column) + ": " + what),
          line_(line), column_(column) {}
    [[nodiscard]] int line() const noexcept { return line_; }
    [[nodiscard]] int column() const noexcept { return column_; }

private:
    int line_, column_;
};

enum class Align { Left, Center, Right };
/// What becomes of a text that is wider than its place.
enum class Fit { Shrink, Wrap };
/// The pages of its sheet that an item stands on.
enum class OnPages { All, Last, AllButLast };

/// A box, a line or a text of a band. Lengths are inches from the band's left top corner.
struct Item {
    enum class Kind { Box, Line, Text };
    Kind kind = Kind::Text;
    /// A line goes from x, y to x + width, y + height.
    double x = 0, y = 0, width = 0, height = 0;
    double thickness = 0.01;
    /// With {fields} in braces.
    std::string text = {};
    double size = 9; ///< points
    bool bold = false;
    Align align = Align::Left;
    Fit fit = Fit::Shrink;
    /// Printed only when this is true; with `unless`, when it is not. Empty is always.
    std::string condition = {};
    bool unless = false;
    OnPages pages = OnPages::All;
};

enum class BandKind {
    ReportHeader,
    ReportFooter,
    PageHeader,
    PageFooter,
    GroupHeader,
    GroupFooter,
    Details,
    ColumnHeader,
    ColumnFooter
};

struct Band {
    BandKind kind = BandKind::Details;
    std::string group; ///< the field of a group band
    double height = 0;
    std::vector<Item> items;
};

/// Sheets with columns side by side: a new value of `key` begins a column, as does a full one.
struct Columns {
    int count = 0; ///< 0: the layout has none
    int rows = 0;
    double width = 0;
    std::string key;
};

/// How a report looks: see docs/layouts.md.
struct Layout {
    double pageWidth = 8.5, pageHeight = 11, margin = 0.5;
    /// The order that the rows have to be brought into first, as a record set takes it; empty is their own.
    std::string sort;
    std::vector<Band> bands;
    Columns columns;
    /// A new value of this field begins a sheet, and pages are counted within it.
    std::string sheet;
    /// A new value of this field begins a page, and the sheet goes on.
    std::string newPage;
    /// The field by which a row finds its row of the sub-report's source.
    std::string subreportKey;

    [[nodiscard]] const Band* band(BandKind kind, std::string_view group = {}) const;
    /// Fields that rows are grouped by, the outer one first.
    [[nodiscard]] std::vector<std::string> groups() const;
};

/// Throws LayoutError.
[[nodiscard]] Layout parseLayout(std::string_view text);

} // namespace zel::printing
