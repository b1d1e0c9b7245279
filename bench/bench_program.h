#pragma once

#include "core/session.h"
#include "forms/form_registry.h"
#include "forms/scripted_dialogs.h"
#include "forms/user.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/processes.h"
#include "platform/timer_service.h"
#include "posting/frmPost.h"

#include <filesystem>
#include <memory>
#include <string>

namespace zel::core {
class frmMain;
}

namespace zel::bench {

/// The whole program without a window, started on an open database, in the dialect that belongs to the engine.
class BenchProgram {
public:
    explicit BenchProgram(std::unique_ptr<ado::Engine> engine);
    ~BenchProgram();
    BenchProgram(const BenchProgram&) = delete;
    BenchProgram& operator=(const BenchProgram&) = delete;

    [[nodiscard]] core::Session& session() noexcept { return *session_; }
    [[nodiscard]] forms::User& user() noexcept { return user_; }
    [[nodiscard]] core::frmMain& shell();
    [[nodiscard]] posting::frmPost& post();

    void openPosting();
    void choosePerson(std::int64_t row);
    /// Keys a ticket into the boxes and commits it.
    void post(const std::string& date, const std::string& start, const std::string& stop);
    /// Ends the program when the screen said anything.
    void requireNoBox();
    /// What was said was to be expected.
    void forgetBoxes() { (void)dialogs_.take(); }

private:
    class BenchSuite;
    std::filesystem::path folder_;
    forms::ScriptedDialogs dialogs_;
    platform::ManualClock clock_;
    platform::TimerService timers_;
    platform::DiskFiles files_;
    platform::SystemProcesses processes_;
    forms::FormRegistry forms_;
    std::unique_ptr<BenchSuite> suite_;
    std::unique_ptr<core::Session> session_;
    forms::User user_;
};

/// What a clerk does must be possible: ends the program with the reason when it is not.
void require(const forms::Outcome& outcome);

} // namespace zel::bench
