#pragma once

#include <QIcon>
#include <QString>

namespace zel::desktop {

/// An icon by our own short name ("save", "post-time"): the desktop theme's where it has one, else our own, in the
/// colour of the desktop's text.
[[nodiscard]] QIcon themeIcon(const QString& name);

} // namespace zel::desktop
