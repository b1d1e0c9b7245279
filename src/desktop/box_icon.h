#pragma once

#include "forms/dialogs.h"

#include <QMessageBox>

namespace zel::desktop {

/// The toolkit's sign for the icon of a box.
[[nodiscard]] QMessageBox::Icon iconOf(forms::Icon icon);

} // namespace zel::desktop
