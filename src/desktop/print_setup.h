#pragma once

#include "desktop/desk.h"

#include <QStringList>

class QWidget;

namespace zel::desktop {

/// Asks which of the machine's printers reports go to, and keeps the answer while the program runs.
void askForPrinter(Desk& desk, QWidget* over, const QStringList& printers);

/// Connects the shell's Print Setup. `over` gives the window that is in front.
void connectPrintSetup(Desk& desk, std::function<QWidget*()> over);

} // namespace zel::desktop
