#include "desktop/box_icon.h"

namespace zel::desktop {

QMessageBox::Icon iconOf(forms::Icon icon) {
    switch (icon) {
    case forms::Icon::Critical:
        return QMessageBox::Critical;
    case forms::Icon::Question:
        return QMessageBox::Question;
    case forms::Icon::Exclamation:
        return QMessageBox::Warning;
    case forms::Icon::Information:
        return QMessageBox::Information;
    case forms::Icon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

} // namespace zel::desktop
