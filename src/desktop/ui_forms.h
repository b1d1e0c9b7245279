#pragma once

#include <QStringList>

#include <string_view>

class QWidget;

namespace zel::desktop {

/// The widgets of a screen as drawn in its .ui file; null for a screen that has no face.
[[nodiscard]] QWidget* makeWidgets(std::string_view form);
/// The screens that have a face.
[[nodiscard]] QStringList drawnForms();

} // namespace zel::desktop
