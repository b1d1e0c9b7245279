#pragma once

namespace zel::printing {

/// From now on Qt's remarks about the desktop are dropped: they mean nothing to a clerk, and would stand among what the
/// program says. What is critical is still told.
void dropRemarks();

} // namespace zel::printing
