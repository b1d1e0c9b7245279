#pragma once

#include "forms/control.h"
#include "forms/form.h"

namespace zel::incident {

/// Close on a screen whose entry opens below its list: the entry first, then the screen.
inline void closeEntry(forms::Form& screen, forms::Control& entry) {
    if (entry.Visible())
        entry.setVisible(false);
    else
        screen.Unload();
}

} // namespace zel::incident
