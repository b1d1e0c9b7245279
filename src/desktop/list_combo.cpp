#include "desktop/list_combo.h"

#include <QLineEdit>
#include <QWheelEvent>

namespace zel::desktop {

ListCombo::ListCombo(QWidget* parent) : QComboBox(parent) {
    setEditable(true);
    setInsertPolicy(QComboBox::NoInsert);
    setCompleter(nullptr);
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    lineEdit()->setContextMenuPolicy(Qt::NoContextMenu);
}

void ListCombo::showPopup() {
    if (openAsked)
        openAsked();
}

void ListCombo::wheelEvent(QWheelEvent* event) {
    event->ignore(); // turning the wheel over a form must not choose anything
}

} // namespace zel::desktop
