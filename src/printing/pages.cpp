#include "printing/pages.h"

#include "ado/convert.h"
#include "ado/error.h"
#include "ado/recordset.h"
#include "printing/text_template.h"

#include <algorithm>
#include <utility>

namespace zel::printing {

std::optional<std::size_t> Rows::find(std::string_view field) const noexcept {
    for (std::size_t column = 0; column < fields.size(); ++column) {
        if (ado::equalIgnoringCase(fields[column], field))
            return column;
    }
    return std::nullopt;
}

const ado::Value& Rows::value(std::size_t row, std::string_view field) const {
    if (const auto column = find(field))
        return rows[row][*column];
    throw ado::Error(ado::ErrorKind::State, ado::errors::itemNotFound,
                     "The layout names the field '" + std::string(field) + "', which the report does not read.");
}

Rows Rows::of(ado::Recordset& records) {
    Rows rows;
    for (std::size_t column = 0; column < records.fieldCount(); ++column)
        rows.fields.push_back(records.fieldInfo(column).name);
    for (std::int64_t row = 1; row <= records.RecordCount(); ++row) {
        std::vector<ado::Value>& values = rows.rows.emplace_back();
        for (std::size_t column = 0; column < rows.fields.size(); ++column)
            values.push_back(records.valueAt(row, column));
    }
    return rows;
}

namespace {

/// Lays rows out one after the other. Page numbers stand as marks until a sheet's rows are all placed.
class Pager {
public:
    Pager(const Layout& layout, const ReportData& data)
        : layout_(layout), rows_(data.main), text_(layout, data), groups_(layout.groups()),
          groupFirst_(groups_.size(), 0) {}

    std::vector<Page> run();

private:
    [[nodiscard]] double heightOf(BandKind kind, std::string_view group = {}) const;
    /// Whether the row's value of the field is another than that of the row above.
    [[nodiscard]] bool differs(std::size_t row, std::string_view field) const;
    [[nodiscard]] bool beginsSheet(std::size_t row) const {
        return row > 0 && !layout_.sheet.empty() && differs(row, layout_.sheet);
    }
    [[nodiscard]] bool beginsPage(std::size_t row) const {
        return row > 0 && !layout_.newPage.empty() && differs(row, layout_.newPage);
    }
    void place(const Band* band, double x, double y, const Scope& scope);
    /// Only what holds no field: the ruling of a place that stays empty.
    void placeFixed(const Band* band, double x, double y);
    [[nodiscard]] Scope scope(std::size_t row, std::size_t first, std::size_t last) const {
        return {row, first, last, sheetFirst_};
    }

    void startPage(std::size_t row);
    void endPage(std::size_t row);
    void endSheet(std::size_t row);
    void flow(BandKind kind, std::string_view group, std::size_t row, std::size_t first, std::size_t last,
              double keepWith = 0);

    void flowRow(std::size_t row);
    void closeGroups(std::size_t level, std::size_t row);
    void openGroups(std::size_t level, std::size_t row);
    void columnRow(std::size_t row);
    void beginColumn(std::size_t row);
    void endColumn(std::size_t row);
    void ruleColumn(int column, int usedRows);
    [[nodiscard]] double columnLeft(int column) const;
    [[nodiscard]] double rowTop(int row) const;

    const Layout& layout_;
    const Rows& rows_;
    TextTemplate text_;
    std::vector<std::string> groups_;
    std::vector<std::size_t> groupFirst_;
    std::vector<Page> pages_;
    double y_ = 0;
    bool pageOpen_ = false;
    std::size_t pageFirst_ = 0, sheetFirst_ = 0, sheetFirstPage_ = 0;
    int column_ = -1, rowInColumn_ = 0;
    std::size_t columnFirst_ = 0;
};

double Pager::heightOf(BandKind kind, std::string_view group) const {
    const Band* band = layout_.band(kind, group);
    return band == nullptr ? 0 : band->height;
}

bool Pager::differs(std::size_t row, std::string_view field) const {
    return !ado::equalIgnoringCase(ado::toText(rows_.value(row, field)), ado::toText(rows_.value(row - 1, field)));
}

void Pager::place(const Band* band, double x, double y, const Scope& scope) {
    if (band == nullptr)
        return;
    for (const Item& item : band->items) {
        if (!text_.shown(item, scope))
            continue;
        Mark mark{item, x + item.x, y + item.y};
        mark.item.text = text_.fill(item, scope);
        pages_.back().push_back(std::move(mark));
    }
}

void Pager::placeFixed(const Band* band, double x, double y) {
    if (band == nullptr)
        return;
    for (const Item& item : band->items) {
        if (text_.isFixed(item))
            pages_.back().push_back({item, x + item.x, y + item.y});
    }
}

void Pager::startPage(std::size_t row) {
    pages_.emplace_back();
    pageOpen_ = true;
    pageFirst_ = row;
    column_ = -1;
    y_ = layout_.margin;
    if (pages_.size() == 1) {
        place(layout_.band(BandKind::ReportHeader), layout_.margin, y_, scope(row, 0, rows_.rows.size()));
        y_ += heightOf(BandKind::ReportHeader);
    }
    place(layout_.band(BandKind::PageHeader), layout_.margin, y_, scope(row, row, row));
    y_ += heightOf(BandKind::PageHeader);
}

void Pager::endPage(std::size_t row) {
    endColumn(row);
    for (int column = column_ + 1; column < layout_.columns.count; ++column)
        ruleColumn(column, 0);
    // The footer speaks of the last row that the page shows.
    const std::size_t shown = row > pageFirst_ ? row - 1 : pageFirst_;
    place(layout_.band(BandKind::PageFooter), layout_.margin,
          layout_.pageHeight - layout_.margin - heightOf(BandKind::PageFooter), scope(shown, pageFirst_, row));
    pageOpen_ = false;
}

/// Fills in the numbers of the sheet's pages, and takes away what belongs to its last page only, or to the others.
void Pager::endSheet(std::size_t row) {
    endPage(row);
    const std::size_t count = pages_.size() - sheetFirstPage_;
    constexpr char marks[] = {pageMark, pagesMark, '\0'};
    for (std::size_t page = sheetFirstPage_; page < pages_.size(); ++page) {
        const bool last = page + 1 == pages_.size();
        std::erase_if(pages_[page], [last](const Mark& mark) {
            return mark.item.pages == (last ? OnPages::AllButLast : OnPages::Last);
        });
        for (Mark& mark : pages_[page]) {
            if (mark.item.text.find_first_of(marks) == std::string::npos)
                continue;
            std::string numbered;
            for (const char c : mark.item.text) {
                if (c == pageMark)
                    numbered += std::to_string(page - sheetFirstPage_ + 1);
                else if (c == pagesMark)
                    numbered += std::to_string(count);
                else
                    numbered += c;
            }
            mark.item.text = std::move(numbered);
        }
    }
    sheetFirstPage_ = pages_.size();
}

void Pager::flow(BandKind kind, std::string_view group, std::size_t row, std::size_t first, std::size_t last,
                 double keepWith) {
    const Band* band = layout_.band(kind, group);
    if (band == nullptr)
        return;
    const double bottom = layout_.pageHeight - layout_.margin - heightOf(BandKind::PageFooter);
    constexpr double rounding = 1e-9;
    if (y_ + band->height + keepWith > bottom + rounding) {
        // A footer that goes to the next page speaks of rows that stand on this one.
        const std::size_t next = kind == BandKind::GroupFooter || kind == BandKind::ReportFooter ? last : row;
        endPage(next);
        startPage(std::min(next, rows_.rows.empty() ? 0 : rows_.rows.size() - 1));
        pageFirst_ = next;
    }
    place(band, layout_.margin, y_, scope(row, first, last));
    y_ += band->height;
}

void Pager::closeGroups(std::size_t level, std::size_t row) {
    for (std::size_t inner = groups_.size(); inner-- > level;)
        flow(BandKind::GroupFooter, groups_[inner], row - 1, groupFirst_[inner], row);
}

void Pager::openGroups(std::size_t level, std::size_t row) {
    double below = heightOf(BandKind::Details);
    for (std::size_t inner = level; inner < groups_.size(); ++inner)
        below += heightOf(BandKind::GroupHeader, groups_[inner]);
    for (; level < groups_.size(); ++level) {
        groupFirst_[level] = row;
        below -= heightOf(BandKind::GroupHeader, groups_[level]);
        flow(BandKind::GroupHeader, groups_[level], row, row, row, below);
    }
}

void Pager::flowRow(std::size_t row) {
    std::size_t changed = row == 0 ? 0 : groups_.size();
    for (std::size_t level = groups_.size(); row > 0 && level-- > 0;) {
        if (differs(row, groups_[level]))
            changed = level;
    }
    const bool newSheet = beginsSheet(row), newPage = newSheet || beginsPage(row);
    if (newPage)
        changed = 0;
    if (row > 0)
        closeGroups(changed, row);
    if (newSheet) {
        endSheet(row);
        sheetFirst_ = row;
    } else if (newPage) {
        endPage(row);
    }
    if (!pageOpen_)
        startPage(row);
    openGroups(changed, row);
    flow(BandKind::Details, {}, row, row, row + 1);
}

double Pager::columnLeft(int column) const {
    return layout_.margin + column * layout_.columns.width;
}

double Pager::rowTop(int row) const {
    return y_ + heightOf(BandKind::ColumnHeader) + row * heightOf(BandKind::Details);
}

/// Rules what is left of a column, all of it when no row stands in it.
void Pager::ruleColumn(int column, int usedRows) {
    for (int row = usedRows; row < layout_.columns.rows; ++row)
        placeFixed(layout_.band(BandKind::Details), columnLeft(column), rowTop(row));
    if (usedRows > 0)
        return;
    placeFixed(layout_.band(BandKind::ColumnHeader), columnLeft(column), y_);
    placeFixed(layout_.band(BandKind::ColumnFooter), columnLeft(column), rowTop(layout_.columns.rows));
}

void Pager::endColumn(std::size_t row) {
    if (column_ < 0)
        return;
    ruleColumn(column_, rowInColumn_);
    place(layout_.band(BandKind::ColumnFooter), columnLeft(column_), rowTop(layout_.columns.rows),
          scope(row - 1, columnFirst_, row));
}

void Pager::beginColumn(std::size_t row) {
    if (column_ + 1 == layout_.columns.count) {
        endPage(row);
        startPage(row);
    } else {
        endColumn(row);
    }
    ++column_;
    rowInColumn_ = 0;
    columnFirst_ = row;
    place(layout_.band(BandKind::ColumnHeader), columnLeft(column_), y_, scope(row, row, row));
}

void Pager::columnRow(std::size_t row) {
    if (beginsSheet(row)) {
        endSheet(row);
        sheetFirst_ = row;
    } else if (beginsPage(row)) {
        endPage(row);
    }
    if (!pageOpen_)
        startPage(row);
    const bool fits = column_ >= 0 && rowInColumn_ < layout_.columns.rows && !differs(row, layout_.columns.key);
    if (!fits)
        beginColumn(row);
    place(layout_.band(BandKind::Details), columnLeft(column_), rowTop(rowInColumn_++), scope(row, row, row + 1));
}

std::vector<Page> Pager::run() {
    const std::size_t count = rows_.rows.size();
    for (std::size_t row = 0; row < count; ++row)
        layout_.columns.count > 0 ? columnRow(row) : flowRow(row);
    if (!pageOpen_)
        startPage(0);
    if (layout_.columns.count == 0) {
        if (count > 0)
            closeGroups(0, count);
        flow(BandKind::ReportFooter, {}, count == 0 ? 0 : count - 1, 0, count);
    }
    endSheet(count);
    return std::move(pages_);
}

} // namespace

std::vector<Page> makePages(const Layout& layout, const ReportData& data) {
    return Pager(layout, data).run();
}

} // namespace zel::printing
