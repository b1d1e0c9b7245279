#include "desktop/grid_view.h"

#include "desktop/qt_text.h"
#include "desktop/row_model.h"
#include "forms/tdb_grid.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTableView>
#include <QTimer>

#include <algorithm>

namespace zel::desktop {

using forms::Property;
using forms::TDBGrid;

GridView::GridView(TDBGrid& grid, QTableView& widget, Desk& desk)
    : ControlView(grid, widget, desk), grid_(grid), table_(widget), model_(grid), editor_(new CellEditor(&widget)) {
    connectTable();
    connectCells();
}

void GridView::connectTable() {
    prepareTable(table_);
    table_.setShowGrid(true);
    table_.setSelectionMode(QAbstractItemView::ExtendedSelection);
    table_.verticalHeader()->show();
    table_.verticalHeader()->setFixedWidth(table_.fontMetrics().height() + 8);
    table_.setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed |
                           QAbstractItemView::AnyKeyPressed | QAbstractItemView::SelectedClicked);
    table_.setItemDelegate(editor_);
    table_.setModel(&model_);
    table_.viewport()->installEventFilter(this);
    table_.verticalHeader()->viewport()->installEventFilter(this);
    connect(&model_, &GridModel::modelReset, this, [this] { shapes_.clear(); });
    connect(table_.selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& cell) { cellEntered(cell); });
    connect(table_.selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] { rowsMarked(); });
    // A press left of a row marks it, also when it is the current one.
    connect(table_.verticalHeader(), &QHeaderView::sectionPressed, this, [this] { rowsMarked(); });
    connect(table_.horizontalHeader(), &QHeaderView::sectionClicked, this, [this](int column) { headClicked(column); });
    connect(&table_, &QTableView::doubleClicked, this, [this] {
        if (control() != nullptr && grid_.DblClick)
            act([](forms::User& user, forms::Control& grid) { return user.doubleClick(grid); });
    });
}

void GridView::connectCells() {
    editor_->opened = [this](const QModelIndex& cell) { return openCell(cell); };
    editor_->entered = [this](const QString& text) { closeCell(text); };
    editor_->closed = [this] { leaveCell(); };
}

void GridView::detach() {
    drawing_ = true;
    if (footer_)
        footer_->detach();
    model_.detach();
    ControlView::detach();
}

void GridView::settled() {
    if (control() == nullptr || closing_ || grid_.editing() || !table_.isVisible())
        return;
    refresh();
}

void GridView::draw(Property property) {
    ControlView::draw(property);
    const bool rows = property == Property::Items || property == Property::Columns || property == Property::Selection;
    if (closing_ && rows) {
        drawLater(); // the cell's editor goes first
    } else if (property == Property::Items || property == Property::Columns) {
        if (!grid_.editing())
            editor_->abandon();
        refresh();
    } else if (property == Property::Selection) {
        drawCurrent();
        drawMarks();
    } else if (property == Property::Look) {
        table_.viewport()->update();
    }
}

void GridView::drawLater() {
    QTimer::singleShot(0, this, [this] {
        if (control() != nullptr && !closing_)
            refresh();
    });
}

void GridView::refresh() {
    drawing_ = true;
    model_.refresh();
    layOut();
    drawFooter();
    table_.verticalHeader()->viewport()->update(); // the locks
    drawing_ = false;
    drawCurrent();
    drawMarks();
}

/// A width that the clerk has dragged stays until the columns become others.
void GridView::layOut() {
    decltype(shapes_) shapes;
    bool pressed = false;
    for (int column = 0; column < model_.columnCount(); ++column) {
        const forms::GridColumn& shape = grid_.Columns(column);
        shapes.emplace_back(toQt(shape.Caption()), shape.Visible() && shape.Width() > 0, shape.Width());
        pressed = pressed || shape.ButtonHeader;
    }
    table_.horizontalHeader()->setSectionsClickable(pressed || grid_.HeadClick != nullptr);
    if (shapes == shapes_)
        return;
    constexpr int margin = 16;
    shapes_ = std::move(shapes);
    bool any = false;
    for (int column = 0; column < static_cast<int>(shapes_.size()); ++column) {
        const auto& [caption, shown, twips] = shapes_[static_cast<std::size_t>(column)];
        table_.setColumnHidden(column, !shown);
        any = any || shown;
        const int head = table_.horizontalHeader()->fontMetrics().horizontalAdvance(caption) + margin;
        if (shown)
            table_.setColumnWidth(column, std::max(pixels(twips, table_), head));
    }
    table_.horizontalHeader()->setStretchLastSection(any);
}

void GridView::drawFooter() {
    bool any = false;
    for (int column = 0; column < model_.columnCount(); ++column)
        any = any || !grid_.Columns(column).FooterText().empty();
    if (footer_ == nullptr && any)
        footer_ = new GridFooter(grid_, table_);
    if (footer_ != nullptr)
        footer_->refresh();
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
        table_.selectionModel()->setCurrentIndex(cell, QItemSelectionModel::NoUpdate);
    drawing_ = false;
}

/// The marked rows, or the current one where none is.
void GridView::drawMarks() {
    if (drawing_ || control() == nullptr || model_.columnCount() == 0)
        return;
    std::vector<int> rows;
    for (int i = 0; grid_.source() != nullptr && i < grid_.SelBookmarks.Count(); ++i)
        rows.push_back(model_.viewRow(grid_.source()->rowOf(grid_.SelBookmarks(i))));
    if (rows.empty())
        rows.push_back(model_.viewRow(grid_.row()));
    std::sort(rows.begin(), rows.end());
    QItemSelection marks;
    for (std::size_t i = 0; i < rows.size();) {
        std::size_t end = i + 1;
        while (end < rows.size() && rows[end] == rows[end - 1] + 1)
            ++end;
        if (rows[i] >= 0)
            marks.select(model_.index(rows[i], 0), model_.index(rows[end - 1], model_.columnCount() - 1));
        i = end;
    }
    drawing_ = true;
    if (table_.selectionModel()->selection() != marks)
        table_.selectionModel()->select(marks, QItemSelectionModel::ClearAndSelect);
    drawing_ = false;
}

void GridView::cellEntered(const QModelIndex& cell) {
    if (drawing_ || control() == nullptr || !cell.isValid())
        return;
    const std::int64_t row = model_.gridRow(cell.row());
    const QPointer<GridView> self(this);
    if (row != grid_.row()) {
        drawing_ = marking_; // the marks to come start from those that are seen
        act([row](forms::User& user, forms::Control& grid) { return user.row(grid, row); });
        if (self == nullptr)
            return;
        drawing_ = false;
    }
    if (control() == nullptr)
        return;
    if (grid_.row() == row)
        grid_.setCol(cell.column());
    else // the row that was left keeps the clerk
        drawLater();
}

void GridView::rowsMarked() {
    if (drawing_ || control() == nullptr || grid_.source() == nullptr || grid_.editing())
        return;
    std::vector<std::int64_t> rows;
    const std::int64_t current = model_.gridRow(table_.currentIndex().row());
    bool withCurrent = false;
    for (const QModelIndex& index : table_.selectionModel()->selectedRows(0)) {
        const std::int64_t row = model_.gridRow(index.row());
        if (row == current)
            withCurrent = true;
        else if (row >= 0)
            rows.push_back(row);
    }
    std::sort(rows.begin(), rows.end());
    if (withCurrent && current >= 0)
        rows.push_back(current); // the last one marked becomes the current row
    if (rows.size() == 1 && !marking_)
        rows.clear(); // the clerk only went there
    if (rows.empty() && grid_.SelBookmarks.Count() == 0)
        return;
    const QPointer<GridView> self(this);
    drawing_ = true;
    act([&rows](forms::User& user, forms::Control& grid) { return user.selectRows(grid, rows); });
    if (self == nullptr)
        return;
    drawing_ = false;
    if (control() != nullptr && !rows.empty() && grid_.row() != rows.back())
        drawLater();
}

/// Until there is a mark the current row only looks marked; the first one then stands alone.
void GridView::startMarks() {
    marking_ = true;
    if (control() == nullptr || grid_.SelBookmarks.Count() > 0)
        return;
    drawing_ = true;
    table_.clearSelection();
    drawing_ = false;
}

void GridView::toggleMark() {
    const QModelIndex current = table_.currentIndex();
    if (!current.isValid())
        return;
    startMarks();
    table_.selectionModel()->select(current, QItemSelectionModel::Toggle | QItemSelectionModel::Rows);
    marking_ = false;
}

void GridView::headClicked(int column) {
    if (control() != nullptr && column >= 0 && column < model_.columnCount())
        act([this, column](forms::User& user, forms::Control& grid) {
            return user.headClick(grid, grid_.Columns(column).Caption());
        });
}

/// The marked rows, cells parted by tabs; the current cell where no row is marked.
void GridView::copy() const {
    QStringList lines;
    QModelIndexList rows;
    if (grid_.SelBookmarks.Count() > 0)
        rows = table_.selectionModel()->selectedRows(0);
    std::sort(rows.begin(), rows.end());
    for (const QModelIndex& row : rows) {
        QStringList cells;
        for (int column = 0; column < model_.columnCount(); ++column) {
            if (!table_.isColumnHidden(column))
                cells << model_.index(row.row(), column).data().toString();
        }
        lines << cells.join(QLatin1Char('\t'));
    }
    if (rows.isEmpty() && table_.currentIndex().isValid())
        lines << table_.currentIndex().data().toString();
    QGuiApplication::clipboard()->setText(lines.join(QLatin1Char('\n')));
}

bool GridView::keyPressed(const QKeyEvent& event) {
    constexpr auto markers = Qt::ControlModifier | Qt::ShiftModifier;
    auto* key = const_cast<QKeyEvent*>(&event);
    marking_ = (event.modifiers() & markers) != 0;
    // Keys that an open cell leaves over: up and down go to another row, the rest was the cell's.
    if (editor_->isOpen())
        return event.key() != Qt::Key_Up && event.key() != Qt::Key_Down;
    if (key->matches(QKeySequence::Copy)) {
        copy();
        return true;
    }
    if (isScreenKey(event))
        return ControlView::keyPressed(event);
    switch (event.key()) {
    case Qt::Key_Delete:
        if (grid_.AllowDelete)
            act([](forms::User& user, forms::Control& grid) { return user.deleteRow(grid); });
        return true;
    case Qt::Key_Space:
        if ((event.modifiers() & Qt::ControlModifier) == 0)
            return false;
        toggleMark();
        return true;
    case Qt::Key_F9:
        headClicked(table_.currentIndex().column());
        return true;
    default:
        return false; // Qt moves the current cell, which cellEntered tells the grid
    }
}

QPoint GridView::menuPlace() const {
    return table_.viewport()->mapToGlobal(table_.visualRect(table_.currentIndex()).bottomLeft());
}

bool GridView::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonPress) {
        const auto modifiers = static_cast<QMouseEvent*>(event)->modifiers();
        marking_ = watched == table_.verticalHeader()->viewport() || (modifiers & Qt::ShiftModifier) != 0;
        if ((modifiers & Qt::ControlModifier) != 0)
            startMarks();
    }
    return watched == &table_ ? ControlView::eventFilter(watched, event) : false;
}

forms::GridColumn* GridView::openCell(const QModelIndex& cell) {
    if (control() == nullptr)
        return nullptr;
    const std::int64_t row = model_.gridRow(cell.row());
    const int column = cell.column();
    const bool open =
        act([row, column](forms::User& user, forms::Control& grid) { return user.beginCell(grid, row, column); });
    return open && control() != nullptr ? &grid_.Columns(column) : nullptr;
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
