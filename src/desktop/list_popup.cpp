#include "desktop/list_popup.h"

#include "forms/control.h"

#include <QCoreApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScreen>
#include <QScrollBar>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>

namespace zel::desktop {

namespace {

constexpr int mostRows = 12;

} // namespace

ListPopup::ListPopup(forms::Control& list, QWidget& combo, QWidget& keyTarget)
    : QFrame(&combo, Qt::Popup), list_(list), keyTarget_(keyTarget), model_(list), table_(new QTableView(this)) {
    setFrameShape(QFrame::StyledPanel);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(table_);
    prepareTable(*table_);
    table_->setFrameShape(QFrame::NoFrame);
    table_->setModel(&model_);
    table_->setFocusPolicy(Qt::NoFocus);
    table_->setMinimumSize(1, 1); // a list of two rows is as high as two rows
    setFocusProxy(&keyTarget);
    table_->installEventFilter(this);
    installEventFilter(this);
    connect(table_, &QTableView::clicked, this, [this](const QModelIndex& index) {
        if (picked)
            picked(index.row());
    });
}

void ListPopup::showBelow(QWidget& combo, int width) {
    model_.reset();
    const int columns = model_.layOut(*table_);
    table_->horizontalHeader()->setVisible(model_.columnCount() > 1);
    const int rows = std::clamp(model_.rowCount(), 1, mostRows);
    const int header = table_->horizontalHeader()->isHidden() ? 0 : table_->horizontalHeader()->sizeHint().height();
    const int height = header + rows * table_->verticalHeader()->defaultSectionSize() + 2 * frameWidth();
    const int bar = model_.rowCount() > mostRows ? table_->verticalScrollBar()->sizeHint().width() : 0;
    const QRect screen = combo.screen()->availableGeometry();
    const int wide = std::min(std::max({combo.width(), width, columns + bar + 4}), screen.width());
    QPoint corner = combo.mapToGlobal(QPoint(0, combo.height()));
    if (corner.y() + height > screen.bottom())
        corner.setY(combo.mapToGlobal(QPoint(0, 0)).y() - height);
    corner.setX(std::max(screen.left(), std::min(corner.x(), screen.right() - wide)));
    setGeometry(QRect(corner, QSize(wide, height)));
    show();
    showChosen();
}

void ListPopup::showChosen() {
    const int row = chosenRow(list_);
    table_->clearSelection();
    if (row < 0 || row >= model_.rowCount())
        return;
    table_->selectRow(row);
    table_->scrollTo(model_.index(row, 0));
}

void ListPopup::hideEvent(QHideEvent* event) {
    QFrame::hideEvent(event);
    if (closed)
        closed();
}

bool ListPopup::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress && event->type() != QEvent::KeyRelease &&
        event->type() != QEvent::ShortcutOverride)
        return QFrame::eventFilter(watched, event);
    QCoreApplication::sendEvent(&keyTarget_, event);
    return true;
}

} // namespace zel::desktop
