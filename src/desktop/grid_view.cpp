#include "desktop/grid_view.h"

#include "desktop/qt_text.h"
#include "desktop/row_model.h"
#include "forms/tdb_drop_down.h"
#include "forms/tdb_grid.h"

#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTableView>
#include <QTimer>

#include <set>

namespace zel::desktop {

using forms::Property;
using forms::TDBGrid;

namespace {

/// The mask in Qt's letters; the prompt is the same.
QString inputMask(const std::string& mask) {
    QString translated;
    for (const QChar letter : toQt(mask)) {
        if (letter == QLatin1Char('#') || letter == QLatin1Char('9'))
            translated += QLatin1Char('9');
        else if (letter == QLatin1Char('?'))
            translated += QLatin1Char('a');
        else if (letter == QLatin1Char('a') || letter == QLatin1Char('A'))
            translated += QLatin1Char('n');
        else if (letter == QLatin1Char('&') || letter == QLatin1Char('C') || letter == QLatin1Char('@'))
            translated += QLatin1Char('x');
        else
            translated += letter;
    }
    return translated.isEmpty() ? translated : translated + QStringLiteral(";_");
}

QStringList choices(const forms::GridColumn& column) {
    QStringList texts;
    if (const forms::TDBDropDown* list = column.DropDown()) {
        for (std::int64_t row = 0; list->isBound() && row < list->rowCount(); ++row)
            texts << toQt(list->listText(row));
    } else if (column.ValueItems.presentation != forms::ValueItems::Presentation::Normal) {
        for (const forms::ValueItem& item : column.ValueItems.items())
            texts << toQt(column.ValueItems.Translate ? item.display : item.value);
    }
    return texts;
}

} // namespace

/// Opens the cells: the grid decides whether a cell opens and what becomes of its text.
class GridView::CellDelegate final : public QStyledItemDelegate {
public:
    explicit CellDelegate(GridView& view) : QStyledItemDelegate(&view), view_(view) {}

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex& cell) const override {
        return view_.openCell(*parent, cell);
    }
    void setEditorData(QWidget* editor, const QModelIndex& cell) const override {
        const QString text = cell.data(Qt::EditRole).toString();
        if (auto* combo = dynamic_cast<QComboBox*>(editor)) {
            combo->setCurrentIndex(combo->findText(text));
            if (combo->isEditable())
                combo->setEditText(text);
        } else if (auto* line = dynamic_cast<QLineEdit*>(editor)) {
            line->setText(text);
            line->selectAll();
        }
    }
    void setModelData(QWidget* editor, QAbstractItemModel*, const QModelIndex&) const override {
        if (const auto* combo = dynamic_cast<const QComboBox*>(editor))
            view_.closeCell(combo->currentText());
        else if (const auto* line = dynamic_cast<const QLineEdit*>(editor))
            view_.closeCell(line->text());
    }
    void destroyEditor(QWidget* editor, const QModelIndex& cell) const override {
        view_.leaveCell();
        QStyledItemDelegate::destroyEditor(editor, cell);
    }

private:
    GridView& view_;
};

GridView::GridView(TDBGrid& grid, QTableView& widget, Desk& desk)
    : ControlView(grid, widget, desk), grid_(grid), table_(widget), model_(grid) {
    connectTable();
}

void GridView::connectTable() {
    prepareTable(table_);
    table_.setShowGrid(true);
    table_.setSelectionMode(QAbstractItemView::ExtendedSelection);
    table_.verticalHeader()->show();
    table_.verticalHeader()->setFixedWidth(table_.fontMetrics().height() + 8);
    table_.setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed |
                           QAbstractItemView::AnyKeyPressed | QAbstractItemView::SelectedClicked);
    table_.setItemDelegate(new CellDelegate(*this));
    table_.setModel(&model_);
    table_.horizontalHeader()->setSectionsClickable(true);
    connect(table_.selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& cell) { cellEntered(cell); });
    connect(table_.selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] { rowsMarked(); });
    connect(table_.horizontalHeader(), &QHeaderView::sectionClicked, this, [this](int column) {
        if (control() != nullptr)
            act([this, column](forms::User& user, forms::Control& grid) {
                return user.headClick(grid, grid_.Columns(column).Caption());
            });
    });
    connect(&table_, &QTableView::doubleClicked, this, [this] {
        if (control() != nullptr && grid_.DblClick)
            act([](forms::User& user, forms::Control& grid) { return user.doubleClick(grid); });
    });
}

void GridView::detach() {
    drawing_ = true;
    model_.detach();
    ControlView::detach();
}

void GridView::settled() {
    if (control() == nullptr || closing_ || grid_.editing() || !table_.isVisible())
        return;
    drawing_ = true;
    model_.refresh();
    drawing_ = false;
    drawCurrent();
}

void GridView::draw(Property property) {
    ControlView::draw(property);
    if (closing_ && (property == Property::Items || property == Property::Columns || property == Property::Selection)) {
        // The cell's editor must be gone before the rows are drawn anew.
        QTimer::singleShot(0, this, [this] {
            if (control() != nullptr)
                draw(Property::Items);
        });
        return;
    }
    if (property == Property::Items || property == Property::Columns) {
        drawing_ = true;
        model_.reset();
        layOut();
        drawing_ = false;
        drawCurrent();
        drawMarks();
    } else if (property == Property::Selection) {
        drawCurrent();
        drawMarks();
    } else if (property == Property::Look) {
        table_.viewport()->update();
    }
}

void GridView::layOut() {
    constexpr int margin = 16;
    int last = -1;
    for (int column = 0; column < model_.columnCount(); ++column) {
        const forms::GridColumn& shape = grid_.Columns(column);
        const bool shown = shape.Visible() && shape.Width() > 0;
        table_.setColumnHidden(column, !shown);
        if (!shown)
            continue;
        last = column;
        const int head = table_.fontMetrics().horizontalAdvance(toQt(shape.Caption())) + margin;
        table_.setColumnWidth(column, std::max(pixels(shape.Width(), table_), head));
    }
    table_.horizontalHeader()->setStretchLastSection(last >= 0);
}

void GridView::drawCurrent() {
    if (drawing_ || control() == nullptr)
        return;
    drawing_ = true;
    const int row = model_.viewRow(grid_.row());
    int column = grid_.Col();
    while (column < model_.columnCount() && table_.isColumnHidden(column))
        ++column;
    const QModelIndex cell = model_.index(row, column);
    if (row < 0)
        table_.setCurrentIndex({});
    else if (cell.isValid() && table_.currentIndex() != cell)
        table_.selectionModel()->setCurrentIndex(cell, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    drawing_ = false;
}

void GridView::drawMarks() {
    if (drawing_ || control() == nullptr || grid_.SelBookmarks.Count() == 0 || grid_.source() == nullptr)
        return;
    drawing_ = true;
    QItemSelection marks;
    for (int i = 0; i < grid_.SelBookmarks.Count(); ++i) {
        const int row = model_.viewRow(grid_.source()->rowOf(grid_.SelBookmarks(i)));
        if (row >= 0)
            marks.select(model_.index(row, 0), model_.index(row, std::max(model_.columnCount() - 1, 0)));
    }
    table_.selectionModel()->select(marks, QItemSelectionModel::ClearAndSelect);
    drawing_ = false;
}

void GridView::cellEntered(const QModelIndex& cell) {
    if (drawing_ || control() == nullptr || !cell.isValid())
        return;
    const std::int64_t row = model_.gridRow(cell.row());
    const QPointer<GridView> self(this);
    if (row != grid_.row())
        act([row](forms::User& user, forms::Control& grid) { return user.row(grid, row); });
    if (self == nullptr || control() == nullptr)
        return;
    if (grid_.row() == row)
        grid_.setCol(cell.column());
    else // the row that was left keeps the clerk
        QTimer::singleShot(0, this, [this] { drawCurrent(); });
}

void GridView::rowsMarked() {
    if (drawing_ || control() == nullptr || grid_.source() == nullptr || grid_.editing())
        return;
    std::vector<std::int64_t> rows;
    std::set<int> seen;
    for (const QItemSelectionRange& range : table_.selectionModel()->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row) {
            if (model_.gridRow(row) >= 0 && seen.insert(row).second)
                rows.push_back(row);
        }
    }
    // One row is the current one and no more; marking takes at least two, or ends with one.
    if (rows.size() < 2 && grid_.SelBookmarks.Count() == 0)
        return;
    act([&rows](forms::User& user, forms::Control& grid) { return user.selectRows(grid, rows); });
}

void GridView::copy() const {
    QStringList lines;
    QModelIndexList rows = table_.selectionModel()->selectedRows(0);
    std::sort(rows.begin(), rows.end());
    for (const QModelIndex& row : rows) {
        QStringList cells;
        for (int column = 0; column < model_.columnCount(); ++column) {
            if (!table_.isColumnHidden(column))
                cells << model_.index(row.row(), column).data().toString();
        }
        lines << cells.join(QLatin1Char('\t'));
    }
    QGuiApplication::clipboard()->setText(lines.join(QLatin1Char('\n')));
}

bool GridView::keyPressed(const QKeyEvent& event) {
    auto* key = const_cast<QKeyEvent*>(&event);
    if (key->matches(QKeySequence::Copy)) {
        copy();
        return true;
    }
    switch (event.key()) {
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_Escape:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return ControlView::keyPressed(event);
    case Qt::Key_Delete:
        if (grid_.AllowDelete)
            act([](forms::User& user, forms::Control& grid) { return user.deleteRow(grid); });
        return true;
    default:
        return false; // Qt moves the current cell, which cellEntered tells the grid
    }
}

bool GridView::eventFilter(QObject* watched, QEvent* event) {
    return ControlView::eventFilter(watched, event);
}

QWidget* GridView::openCell(QWidget& parent, const QModelIndex& cell) {
    if (control() == nullptr)
        return nullptr;
    const std::int64_t row = model_.gridRow(cell.row());
    const int column = cell.column();
    const bool open =
        act([row, column](forms::User& user, forms::Control& grid) { return user.beginCell(grid, row, column); });
    if (!open || control() == nullptr)
        return nullptr;
    const forms::GridColumn& shape = grid_.Columns(column);
    if (const QStringList texts = choices(shape); !texts.isEmpty()) {
        auto* combo = new QComboBox(&parent);
        combo->addItems(texts);
        return combo;
    }
    auto* line = new QLineEdit(&parent);
    line->setFrame(false);
    if (shape.DataWidth() > 0)
        line->setMaxLength(shape.DataWidth());
    if (!shape.EditMask().empty())
        line->setInputMask(inputMask(shape.EditMask()));
    return line;
}

void GridView::closeCell(const QString& text) {
    const QPointer<GridView> self(this);
    closing_ = true;
    act([&text](forms::User& user, forms::Control& grid) { return user.endCell(grid, fromQt(text)); });
    if (self != nullptr)
        closing_ = false;
}

void GridView::leaveCell() {
    if (control() == nullptr || !grid_.editing())
        return;
    act([](forms::User& user, forms::Control& grid) { return user.cancelCell(grid); });
}

} // namespace zel::desktop
