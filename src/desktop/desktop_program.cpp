#include "desktop/desktop_program.h"

#include "core/start_up.h"
#include "program/program_parts.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QMainWindow>
#include <QSocketNotifier>
#include <QThread>

#include <algorithm>

namespace zel::desktop {

namespace {

/// A loop that only waits for something must not keep a core busy.
constexpr unsigned long idleMilliseconds = 2;

} // namespace

DesktopProgram::DesktopProgram(const std::string& home)
    : suite_(program::makeSuite()), session_(program::describe(program::programFolder(home)),
                                             {forms_, dialogs_, clock_, files_, processes_, *suite_}),
      screens_(std::make_unique<Screens>(desk_)) {
    program::addScreens(session_);
    dialogs_.window = [this] { return screens_->front(); };
    session_.frontEnd.DoEvents = [this] { doEvents(); };
    session_.frontEnd.ended = [] { QCoreApplication::quit(); };
    wake_.setSingleShot(true);
    QObject::connect(&wake_, &QTimer::timeout, &wake_, [this] { runTimers(); });
    timers_.onStarted([this] { armTimer(); });
}

bool DesktopProgram::start(const std::string& commandLine) {
    instance_ = std::make_unique<platform::SingleInstance>(session_.app.Path);
    session_.app.PrevInstance = !instance_->isFirst();
    session_.frontEnd.activatePrevious = [this] { (void)instance_->activateFirst(); };
    session_.app.Command = commandLine;
    listenForOthers();
    {
        const forms::FormRegistry::Action action(forms_);
        core::Main(session_);
    }
    return !session_.Ended();
}

void DesktopProgram::listenForOthers() {
    if (instance_->descriptor() < 0)
        return;
    auto* notifier = new QSocketNotifier(instance_->descriptor(), QSocketNotifier::Read, &wake_);
    QObject::connect(notifier, &QSocketNotifier::activated, notifier, [this] {
        if (!instance_->activationAsked() || screens_->shell() == nullptr)
            return;
        QMainWindow& window = screens_->shell()->window();
        window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
        window.raise();
        window.activateWindow();
    });
}

/// What waits is drawn and timers fire; keys and clicks wait until the work is done, so that it is never done twice.
void DesktopProgram::doEvents() {
    if (QCoreApplication::instance() == nullptr)
        return;
    QElapsedTimer spent;
    spent.start();
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    if (spent.elapsed() == 0)
        QThread::msleep(idleMilliseconds);
}

void DesktopProgram::armTimer() {
    const auto due = timers_.nextDue();
    if (!due)
        return;
    wake_.start(static_cast<int>(std::max<std::int64_t>(*due - clock_.milliseconds(), 0)));
}

void DesktopProgram::runTimers() {
    core::guarded(session_, [this] {
        const forms::FormRegistry::Action action(forms_);
        timers_.run();
    });
    armTimer();
}

} // namespace zel::desktop
