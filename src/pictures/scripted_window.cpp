#include "pictures/scripted_window.h"

#include "runner/command_error.h"

#include <QApplication>
#include <QDialog>
#include <QMainWindow>
#include <QPointer>
#include <QTimer>

#include <exception>
#include <utility>

namespace zel::pictures {

ScriptedWindow::ScriptedWindow(const runner::Options& options, const Look& look)
    : RunningProgram(options), look_(look), camera_(options.out, look.tail) {
    boxes_.window = [this] { return screens_.front(); };
    dialogs().mirror = [this](const std::function<void(forms::Dialogs&)>& show) { mirror(show); };
    session().frontEnd.DoEvents = [counted = session().frontEnd.DoEvents] {
        counted();
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    };
}

void ScriptedWindow::start(const std::string& commandLine) {
    RunningProgram::start(commandLine);
    QMainWindow& window = screens_.shell()->window();
    window.showNormal();
    window.resize(look_.size);
    window.move(0, 0);
    window.activateWindow();
}

std::string ScriptedWindow::picture(const std::string& name) {
    checkBoxCame();
    return camera_.take(name);
}

void ScriptedWindow::pictureOfNextBox(const std::string& name) {
    checkBoxCame();
    nextBox_ = name;
}

void ScriptedWindow::checkBoxCame() {
    if (!nextBox_.empty())
        throw runner::CommandError("no box came for the picture " + std::exchange(nextBox_, {}));
}

/// The box opens as a clerk sees it, has its picture taken and closes; the script answers for it.
void ScriptedWindow::mirror(const std::function<void(forms::Dialogs&)>& show) {
    if (nextBox_.empty())
        return;
    std::exception_ptr failure;
    QTimer opened;
    opened.setSingleShot(true);
    QObject::connect(&opened, &QTimer::timeout, &opened, [this, &failure] {
        try {
            (void)camera_.take(std::exchange(nextBox_, {}));
        } catch (const std::exception&) {
            failure = std::current_exception(); // no exception may cross Qt's event loop
        }
        if (auto* box = qobject_cast<QDialog*>(QApplication::activeModalWidget()))
            box->done(QDialog::Rejected);
    });
    const QPointer<QWidget> before = screens_.front();
    opened.start(0);
    show(boxes_);
    // A display without a desktop gives the keyboard back to nobody.
    if (before != nullptr) {
        before->activateWindow();
        QCoreApplication::processEvents();
    }
    if (failure)
        std::rethrow_exception(failure);
}

} // namespace zel::pictures
