#pragma once

#include <QIcon>
#include <QPixmap>
#include <QString>

class QWidget;

namespace zel::desktop {

/// An icon by our own short name ("save", "post-time"): the desktop theme's where it has one, else our own, in the
/// colour of the desktop's text.
[[nodiscard]] QIcon themeIcon(const QString& name);
/// The icon of a box ("critical", "exclamation", "question", "information") in the size of boxes, sharp at any scale.
[[nodiscard]] QPixmap boxPicture(const QString& name, const QWidget& widget);

} // namespace zel::desktop
