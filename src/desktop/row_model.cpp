#include "desktop/row_model.h"

#include "desktop/control_view.h"
#include "desktop/qt_text.h"
#include "forms/combo_box.h"
#include "forms/list_box.h"
#include "forms/list_view.h"
#include "forms/row_list.h"
#include "forms/tdb_combo.h"

#include <QHeaderView>
#include <QTableView>

#include <algorithm>

namespace zel::desktop {

namespace {

constexpr int wholeWidth = -1;
constexpr int margin = 12;

/// How wide the texts of a column are, as the first rows have them: a long list is not read for it. What stands far to
/// the right of a text, a key behind a name, is not meant to be seen.
int textWidth(const RowModel& rows, int column, const QTableView& view) {
    constexpr int sample = 60;
    int width = 0;
    for (int row = 0; row < std::min(rows.rowCount(), sample); ++row) {
        const QString text = rows.index(row, column).data().toString().section(QStringLiteral("   "), 0, 0);
        width = std::max(width, view.fontMetrics().horizontalAdvance(text) + margin);
    }
    return width;
}

} // namespace

RowModel::RowModel(forms::Control& list, QObject* parent) : QAbstractTableModel(parent) {
    detach();
    if (auto* rows = dynamic_cast<forms::RowList*>(&list)) {
        rows_ = [rows] { return rows->isBound() ? static_cast<int>(rows->rowCount()) : 0; };
        columns_ = [rows] { return rows->isBound() ? rows->columnCount() : 0; };
        text_ = [rows](int row, int column) { return toQt(rows->Columns(column).cellText(row)); };
        header_ = [rows](int column) { return toQt(rows->Columns(column).Caption()); };
        width_ = [rows](int column) { return rows->Columns(column).Visible() ? rows->Columns(column).Width() : 0; };
    } else if (const auto* view = dynamic_cast<const forms::ListView*>(&list)) {
        rows_ = [view] { return static_cast<int>(view->ListItems().size()); };
        columns_ = [view] { return static_cast<int>(view->ColumnHeaders().size()); };
        text_ = [view](int row, int column) {
            const auto& item = view->ListItems().at(static_cast<std::size_t>(row));
            const auto sub = static_cast<std::size_t>(column - 1);
            if (column == 0)
                return toQt(item.text);
            return sub < item.subItems.size() ? toQt(item.subItems[sub]) : QString();
        };
        header_ = [view](int column) { return toQt(view->ColumnHeaders().at(static_cast<std::size_t>(column))); };
        width_ = [view](int column) { return view->columnWidth(column); };
    } else if (const auto* combo = dynamic_cast<const forms::ComboBox*>(&list)) {
        rows_ = [combo] { return combo->ListCount(); };
        columns_ = [] { return 1; };
        text_ = [combo](int row, int) { return toQt(combo->List(row)); };
    } else if (const auto* box = dynamic_cast<const forms::ListBox*>(&list)) {
        rows_ = [box] { return box->ListCount(); };
        columns_ = [] { return 1; };
        text_ = [box](int row, int) { return toQt(box->List(row)); };
    }
}

void RowModel::detach() {
    rows_ = [] { return 0; };
    columns_ = [] { return 0; };
    text_ = [](int, int) { return QString(); };
    header_ = [](int) { return QString(); };
    width_ = [](int) { return wholeWidth; };
}

int RowModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : rows_();
}

int RowModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : columns_();
}

QVariant RowModel::data(const QModelIndex& index, int role) const {
    if ((role != Qt::DisplayRole && role != Qt::EditRole) || index.row() >= rows_() || index.column() >= columns_())
        return {};
    return text_(index.row(), index.column());
}

QVariant RowModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole && section < columns_())
        return header_(section);
    if (orientation == Qt::Horizontal && role == Qt::TextAlignmentRole)
        return static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter);
    return {};
}

void RowModel::reset() {
    beginResetModel();
    endResetModel();
}

int RowModel::layOut(QTableView& view) const {
    view.setTextElideMode(Qt::ElideNone); // columns are wide enough; dots would only hint at a hidden key
    int sum = 0;
    int last = -1;
    for (int column = 0; column < columns_(); ++column) {
        const int twips = width_(column);
        view.setColumnHidden(column, twips == 0);
        if (twips == 0)
            continue;
        last = column;
        if (twips == wholeWidth)
            continue;
        const int head = view.fontMetrics().horizontalAdvance(header_(column)) + margin;
        const int width = std::max({pixels(twips, view), head, textWidth(*this, column, view)});
        view.setColumnWidth(column, width);
        sum += width;
    }
    view.horizontalHeader()->setStretchLastSection(last >= 0);
    return sum;
}

int chosenRow(const forms::Control& list) {
    if (const auto* combo = dynamic_cast<const forms::TDBCombo*>(&list)) {
        if (!combo->isBound())
            return -1;
        const auto chosen = combo->SelectedItem();
        if (chosen >= 0 || combo->Text().empty())
            return static_cast<int>(chosen);
        return static_cast<int>(combo->findPrefix(combo->Text()));
    }
    if (const auto* rows = dynamic_cast<const forms::RowList*>(&list))
        return rows->isBound() ? static_cast<int>(rows->SelectedItem()) : -1;
    if (const auto* combo = dynamic_cast<const forms::ComboBox*>(&list))
        return combo->ListIndex();
    if (const auto* box = dynamic_cast<const forms::ListBox*>(&list))
        return box->ListIndex();
    const auto* view = dynamic_cast<const forms::ListView*>(&list);
    return view == nullptr ? -1 : view->selectedItem();
}

void prepareTable(QTableView& view) {
    view.setSelectionBehavior(QAbstractItemView::SelectRows);
    view.setSelectionMode(QAbstractItemView::SingleSelection);
    view.setEditTriggers(QAbstractItemView::NoEditTriggers);
    view.setShowGrid(false);
    view.setWordWrap(false);
    view.setTabKeyNavigation(false);
    view.verticalHeader()->hide();
    // One height for all rows: a million of them need not be measured.
    view.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    view.verticalHeader()->setDefaultSectionSize(view.fontMetrics().height() + 6);
    view.horizontalHeader()->setHighlightSections(false);
}

} // namespace zel::desktop
