#include "desktop/print_setup.h"

#include "forms/dialogs.h"

#include <QInputDialog>
#include <QPointer>
#include <QPrinterInfo>

#include <utility>

namespace zel::desktop {

void askForPrinter(Desk& desk, QWidget* over, const QStringList& printers) {
    if (printers.isEmpty()) {
        desk.session.dialogs.message("This machine has no printer. A report can be saved as PDF.",
                                     desk.session.title(": Print Setup"), forms::Buttons::OK, forms::Icon::Information);
        return;
    }
    const QPointer<QInputDialog> dialog(new QInputDialog(over));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setObjectName(QStringLiteral("decoPrintSetup"));
    dialog->setWindowTitle(QInputDialog::tr("Print Setup"));
    dialog->setLabelText(QInputDialog::tr("Reports go to this printer:"));
    dialog->setComboBoxItems(printers);
    const QString now = desk.printer.isEmpty() ? QPrinterInfo::defaultPrinterName() : desk.printer;
    dialog->setTextValue(printers.contains(now) ? now : printers.constFirst());
    QString chosen;
    QObject::connect(dialog, &QInputDialog::textValueSelected, [&chosen](const QString& name) { chosen = name; });
    if (dialog->exec() == QDialog::Accepted)
        desk.printer = chosen;
}

void connectPrintSetup(Desk& desk, std::function<QWidget*()> over) {
    desk.session.extensions.printSetup = [&desk, over = std::move(over)] {
        askForPrinter(desk, over(), QPrinterInfo::availablePrinterNames());
    };
}

} // namespace zel::desktop
