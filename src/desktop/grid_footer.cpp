#include "desktop/grid_footer.h"

#include "desktop/qt_text.h"
#include "forms/tdb_grid.h"

#include <QEvent>
#include <QHeaderView>
#include <QLayout>
#include <QPainter>
#include <QScrollBar>
#include <QTableView>
#include <QVBoxLayout>

namespace zel::desktop {

namespace {

constexpr int padding = 4;

} // namespace

GridFooter::GridFooter(forms::TDBGrid& grid, QTableView& table)
    : QWidget(table.parentWidget()), grid_(&grid), table_(&table) {
    setObjectName(QStringLiteral("decoFooter"));
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    auto* around = new QWidget(table.parentWidget());
    if (QLayout* layout = table.parentWidget() == nullptr ? nullptr : table.parentWidget()->layout())
        delete layout->replaceWidget(&table, around);
    auto* column = new QVBoxLayout(around);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(&table, 1);
    column->addWidget(this);
    table.installEventFilter(this);
    connect(table.horizontalHeader(), &QHeaderView::sectionResized, this, [this] { update(); });
    connect(table.horizontalScrollBar(), &QScrollBar::valueChanged, this, [this] { update(); });
    refresh();
}

void GridFooter::refresh() {
    bool any = false;
    for (int column = 0; grid_ != nullptr && column < grid_->columnCount(); ++column)
        any = any || !text(column).isEmpty();
    setVisible(any && table_ != nullptr && !table_->isHidden());
    update();
}

QSize GridFooter::sizeHint() const {
    return {0, fontMetrics().height() + 2 * padding};
}

QString GridFooter::text(int column) const {
    const bool shown = grid_ != nullptr && table_ != nullptr && !table_->isColumnHidden(column);
    return shown ? toQt(grid_->Columns(column).FooterText()) : QString();
}

QRect GridFooter::cell(int column) const {
    const int left = table_->viewport()->mapTo(table_, QPoint()).x() + table_->columnViewportPosition(column);
    return {left, 0, table_->columnWidth(column), height()};
}

void GridFooter::paintEvent(QPaintEvent*) {
    if (grid_ == nullptr || table_ == nullptr)
        return;
    QPainter painter(this);
    QFont bold = font();
    bold.setBold(true);
    painter.setFont(bold);
    painter.setClipRect(table_->viewport()->mapTo(table_, QPoint()).x(), 0, width(), height());
    for (int column = 0; column < grid_->columnCount(); ++column)
        painter.drawText(cell(column).adjusted(padding, 0, -padding, 0), Qt::AlignRight | Qt::AlignVCenter,
                         text(column));
}

bool GridFooter::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ShowToParent || event->type() == QEvent::HideToParent)
        refresh();
    return QWidget::eventFilter(watched, event);
}

} // namespace zel::desktop
