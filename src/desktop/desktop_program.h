#pragma once

#include "core/session.h"
#include "core/suite.h"
#include "desktop/desk.h"
#include "desktop/qt_dialogs.h"
#include "desktop/screens.h"
#include "forms/form_registry.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/processes.h"
#include "platform/single_instance.h"
#include "platform/timer_service.h"

#include <QTimer>

#include <memory>
#include <string>

namespace zel::desktop {

/// The whole program with its window.
class DesktopProgram final {
public:
    /// Throws std::exception for a program folder that is not there.
    explicit DesktopProgram(const std::string& home);

    /// Runs the start; false when the program ended with it.
    bool start(const std::string& commandLine);
    [[nodiscard]] core::Session& session() noexcept { return session_; }
    [[nodiscard]] Screens& screens() noexcept { return *screens_; }
    [[nodiscard]] Desk& desk() noexcept { return desk_; }

private:
    void doEvents();
    void armTimer();
    void runTimers();
    void listenForOthers();

    platform::SystemClock clock_;
    platform::TimerService timers_{clock_};
    platform::DiskFiles files_;
    platform::SystemProcesses processes_;
    QtDialogs dialogs_;
    forms::FormRegistry forms_{dialogs_, timers_};
    std::unique_ptr<core::Suite> suite_;
    core::Session session_;
    Desk desk_{session_};
    std::unique_ptr<Screens> screens_;
    std::unique_ptr<platform::SingleInstance> instance_;
    QTimer wake_;
};

} // namespace zel::desktop
