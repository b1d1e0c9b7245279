#include "desktop/qt_dialogs.h"

#include "desktop/icons.h"
#include "desktop/qt_text.h"
#include "forms/form.h"

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QGuiApplication>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>

#include <vector>

namespace zel::desktop {

using forms::Answer;

namespace {

/// Boxes show the arrow, whatever the program is busy with.
class PlainPointer {
public:
    PlainPointer() { QGuiApplication::setOverrideCursor(Qt::ArrowCursor); }
    ~PlainPointer() { QGuiApplication::restoreOverrideCursor(); }
    PlainPointer(const PlainPointer&) = delete;
    PlainPointer& operator=(const PlainPointer&) = delete;
};

struct Choice {
    Answer answer;
    const char* caption;
};

std::vector<Choice> choicesOf(forms::Buttons buttons) {
    switch (buttons) {
    case forms::Buttons::OK:
        return {{Answer::OK, "OK"}};
    case forms::Buttons::OKCancel:
        return {{Answer::OK, "OK"}, {Answer::Cancel, "Cancel"}};
    case forms::Buttons::YesNo:
        return {{Answer::Yes, "&Yes"}, {Answer::No, "&No"}};
    case forms::Buttons::YesNoCancel:
        break;
    }
    return {{Answer::Yes, "&Yes"}, {Answer::No, "&No"}, {Answer::Cancel, "Cancel"}};
}

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

/// The name of the icon's drawing, sharp at any scale.
const char* pictureOf(forms::Icon icon) {
    switch (icon) {
    case forms::Icon::Critical:
        return "critical";
    case forms::Icon::Question:
        return "question";
    case forms::Icon::Exclamation:
        return "exclamation";
    default:
        return "information";
    }
}

/// Spaces and tabs of the text stay as they are; what follows a tab stands in a column.
QString boxText(const std::string& text) {
    constexpr int tabWidth = 8;
    QString shown;
    int column = 0;
    for (const QChar letter : linesToQt(text)) {
        if (letter == QLatin1Char('\t')) {
            const int blanks = tabWidth - column % tabWidth;
            shown += QString(blanks, QChar(QChar::Nbsp));
            column += blanks;
        } else {
            shown += letter;
            column = letter == QLatin1Char('\n') ? 0 : column + 1;
        }
    }
    return shown;
}

/// "Databases (*.mdb)|*.mdb|All files|*.*" in Qt's words.
QString filterOf(const std::string& filter) {
    const QStringList parts = toQt(filter).split(QLatin1Char('|'), Qt::SkipEmptyParts);
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        const QString name = parts[i].section(QLatin1Char('('), 0, 0).trimmed();
        QString patterns = parts[i + 1];
        patterns.replace(QLatin1Char(';'), QLatin1Char(' ')).replace(QStringLiteral("*.*"), QStringLiteral("*"));
        filters << QStringLiteral("%1 (%2)").arg(name, patterns);
    }
    return filters.join(QStringLiteral(";;"));
}

/// What a name without an ending gets: "PDF files (*.pdf)|*.pdf" gives "pdf".
QString suffixOf(const std::string& filter) {
    return toQt(filter).section(QLatin1Char('|'), 1, 1).section(QStringLiteral("*."), 1, 1).remove(QLatin1Char('*'));
}

} // namespace

Answer QtDialogs::showMessage(const forms::MessageBox& box) {
    const PlainPointer pointer;
    QMessageBox window(parent());
    window.setObjectName(QStringLiteral("decoMessage"));
    window.setWindowTitle(toQt(box.title));
    window.setTextFormat(Qt::PlainText);
    window.setText(boxText(box.text));
    window.setIcon(iconOf(box.icon));
    auto* picture = window.findChild<QLabel*>(QStringLiteral("qt_msgboxex_icon_label"));
    if (picture != nullptr && box.icon != forms::Icon::None)
        picture->setPixmap(boxPicture(QLatin1String(pictureOf(box.icon)), window));
    // Left to right as the system names them, whatever order the desktop prefers.
    if (auto* buttons = window.findChild<QDialogButtonBox*>())
        buttons->setStyleSheet(QStringLiteral("QDialogButtonBox { button-layout: 0 }"));
    std::vector<std::pair<QAbstractButton*, Answer>> made;
    for (const Choice& choice : choicesOf(box.buttons)) {
        QPushButton* button = window.addButton(QString::fromLatin1(choice.caption), QMessageBox::ActionRole);
        made.emplace_back(button, choice.answer);
        if (static_cast<int>(made.size()) == box.defaultButton)
            window.setDefaultButton(button);
        if (choice.answer == Answer::Cancel || box.buttons == forms::Buttons::OK)
            window.setEscapeButton(button);
    }
    QObject::connect(&window, &QDialog::finished, &window, [this] { answered(); });
    window.exec();
    for (const auto& [button, answer] : made) {
        if (button == window.clickedButton())
            return answer;
    }
    return box.buttons == forms::Buttons::OK ? Answer::OK : forms::defaultAnswer(box);
}

std::string QtDialogs::showInput(const forms::InputBox& box) {
    const PlainPointer pointer;
    QInputDialog window(parent());
    window.setObjectName(QStringLiteral("decoInput"));
    window.setWindowTitle(toQt(box.title));
    window.setLabelText(boxText(box.prompt));
    window.setTextValue(toQt(box.defaultText));
    QObject::connect(&window, &QDialog::finished, &window, [this] { answered(); });
    return window.exec() == QDialog::Accepted ? fromQt(window.textValue()) : std::string();
}

std::string QtDialogs::showFile(const forms::FileBox& box) {
    const PlainPointer pointer;
    QFileDialog window(parent(), toQt(box.title), toQt(box.folder), filterOf(box.filter));
    window.setAcceptMode(box.save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    window.setFileMode(box.save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    if (box.save)
        window.setDefaultSuffix(suffixOf(box.filter));
    if (!box.fileName.empty())
        window.selectFile(toQt(box.fileName));
    QObject::connect(&window, &QDialog::finished, &window, [this] { answered(); });
    if (window.exec() != QDialog::Accepted || window.selectedFiles().isEmpty())
        return {};
    return fromQt(window.selectedFiles().constFirst());
}

void QtDialogs::showModal(forms::Form& form) {
    const PlainPointer pointer;
    while (form.Visible())
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
}

void QtDialogs::waitForTurn() {
    while (boxOpen())
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
}

} // namespace zel::desktop
