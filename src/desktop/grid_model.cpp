#include "desktop/grid_model.h"

#include "desktop/control_view.h"
#include "desktop/icons.h"
#include "desktop/qt_text.h"
#include "forms/tdb_grid.h"

#include <QGuiApplication>
#include <QPalette>

#include <algorithm>
#include <limits>

namespace zel::desktop {

using forms::TDBGrid;

namespace {

/// On a dark desktop a light grey would glare: the same grey from the other end, and a red that can be read on it.
bool isDarkDesktop() {
    return QGuiApplication::palette().color(QPalette::Base).lightness() < 128;
}

QColor backOf(int color) {
    const QColor given = colorOf(color);
    if (!isDarkDesktop() || given.saturation() > 0)
        return given;
    constexpr int mirror = 290; // a little above black, so that it stands out from the other rows
    return QColor::fromHsl(0, 0, std::clamp(mirror - given.lightness(), 0, 255));
}

/// A key that stands for a text is read as that text.
bool showsWords(const forms::GridColumn& column) {
    return column.ValueItems.Translate || column.DropDown() != nullptr;
}

QColor redOf() {
    return isDarkDesktop() ? QColor(0xff, 0x9d, 0x94) : QColor(0xb0, 0, 0); // pure red on grey reads badly
}

} // namespace

GridModel::GridModel(TDBGrid& grid, QObject* parent)
    : QAbstractTableModel(parent), grid_(&grid), lock_(themeIcon("lock")) {}

void GridModel::detach() {
    beginResetModel();
    grid_ = nullptr;
    rows_ = columns_ = 0;
    endResetModel();
}

int GridModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : rows_;
}

int GridModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : columns_;
}

bool GridModel::hasColumn(int column) const {
    return grid_ != nullptr && column < columns_ && column < grid_->columnCount();
}

std::int64_t GridModel::gridRow(int row) const {
    if (grid_ == nullptr || row < 0 || row >= rows_)
        return TDBGrid::noRow;
    return row < grid_->rowCount() ? row : static_cast<std::int64_t>(TDBGrid::newRow);
}

int GridModel::viewRow(std::int64_t row) const {
    if (row == TDBGrid::newRow)
        return rows_ - 1;
    return row >= 0 && row < rows_ ? static_cast<int>(row) : -1;
}

QVariant GridModel::rowColor(int row, int role) const {
    const std::int64_t number = gridRow(row);
    if (number < 0)
        return {};
    const forms::RowStyle style = grid_->rowStyle(number);
    if (role == Qt::BackgroundRole)
        return style.backColor == forms::colors::automatic ? QVariant() : QVariant(backOf(style.backColor));
    if (style.foreColor == forms::colors::automatic) {
        const bool light = style.backColor != forms::colors::automatic && backOf(style.backColor).lightness() > 127;
        return light ? QVariant(QColor(Qt::black)) : QVariant();
    }
    if (style.foreColor == forms::colors::black && style.backColor == forms::colors::automatic)
        return {}; // the desktop's own text colour, which is not black everywhere
    if (style.foreColor == forms::colors::red)
        return redOf();
    return colorOf(style.foreColor);
}

int GridModel::alignment(int row, int column) const {
    using Type = ado::Value::Type;
    const std::int64_t number = gridRow(row);
    const int middle = Qt::AlignVCenter;
    if (number < 0)
        return middle | Qt::AlignLeft;
    switch (grid_->cellValue(number, column).type()) {
    case Type::Integer:
    case Type::Double:
    case Type::Single:
    case Type::Currency:
        return middle | (showsWords(grid_->Columns(column)) ? Qt::AlignLeft : Qt::AlignRight);
    case Type::DateTime:
    case Type::Boolean:
        return middle | Qt::AlignHCenter;
    default:
        return middle | Qt::AlignLeft;
    }
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
    const std::int64_t row = gridRow(index.row());
    if (row == TDBGrid::noRow || !hasColumn(index.column()))
        return {};
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return row == TDBGrid::newRow && grid_->row() != TDBGrid::newRow
                   ? QString()
                   : linesToQt(grid_->cellText(row, index.column())).replace(QLatin1Char('\n'), QLatin1Char(' '));
    case Qt::TextAlignmentRole:
        return alignment(index.row(), index.column());
    case Qt::BackgroundRole:
    case Qt::ForegroundRole:
        return rowColor(index.row(), role);
    default:
        return {};
    }
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (grid_ == nullptr)
        return {};
    if (orientation == Qt::Horizontal) {
        if (role == Qt::DisplayRole && hasColumn(section))
            return toQt(grid_->Columns(section).Caption());
        return {};
    }
    const std::int64_t row = gridRow(section);
    const bool locked = row >= 0 && grid_->rowStyle(row).locked;
    if (role == Qt::DecorationRole && locked)
        return lock_;
    if (role == Qt::ToolTipRole && locked)
        return QStringLiteral("Locked");
    if (role == Qt::DisplayRole)
        return row == TDBGrid::newRow ? QStringLiteral("*") : QStringLiteral(" ");
    return {};
}

Qt::ItemFlags GridModel::flags(const QModelIndex& index) const {
    Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
    const std::int64_t row = gridRow(index.row());
    if (row != TDBGrid::noRow && hasColumn(index.column()) && grid_->whyLocked(row, index.column()).empty())
        flags |= Qt::ItemIsEditable;
    return flags;
}

void GridModel::refresh() {
    tellColumns();
    tellRows();
    if (rows_ > 0 && columns_ > 0)
        Q_EMIT dataChanged(index(0, 0), index(rows_ - 1, columns_ - 1));
}

void GridModel::tellColumns() {
    const int columns = grid_ == nullptr || grid_->source() == nullptr ? 0 : grid_->columnCount();
    if (columns == columns_)
        return;
    beginResetModel();
    columns_ = columns;
    rows_ = 0;
    endResetModel();
}

void GridModel::tellRows() {
    constexpr std::int64_t most = std::numeric_limits<int>::max() - 1;
    const bool bound = grid_ != nullptr && grid_->source() != nullptr;
    const int rows = bound ? static_cast<int>(std::min(grid_->rowCount(), most)) + (grid_->AllowAddNew ? 1 : 0) : 0;
    if (rows > rows_) {
        beginInsertRows({}, rows_, rows - 1);
        rows_ = rows;
        endInsertRows();
    } else if (rows < rows_) {
        beginRemoveRows({}, rows, rows_ - 1);
        rows_ = rows;
        endRemoveRows();
    }
}

} // namespace zel::desktop
