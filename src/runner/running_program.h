#pragma once

#include "core/session.h"
#include "core/suite.h"
#include "forms/form_registry.h"
#include "platform/files.h"
#include "platform/single_instance.h"
#include "runner/options.h"
#include "runner/printing.h"
#include "runner/program.h"
#include "runner/runner_clock.h"
#include "runner/runner_dialogs.h"

#include <memory>

namespace zel::runner {

/// The whole program without a window.
class RunningProgram : public Program {
public:
    /// Throws std::exception for a program folder that is not there and settings that cannot be written.
    explicit RunningProgram(const Options& options);

    [[nodiscard]] core::Session& session() override { return session_; }
    [[nodiscard]] forms::FormRegistry& forms() override { return forms_; }
    [[nodiscard]] RunnerDialogs& dialogs() override { return dialogs_; }
    void start(const std::string& commandLine) override;
    void openScreen(const std::string& name, int tab) override;
    void quit() override;
    void setNow(ado::DateTime now) override { clock_.stopAt(now); }
    void tick(std::int64_t milliseconds) override { clock_.pass(milliseconds); }
    void observeStatements(std::function<void(const std::string&)> observer) override;
    void beginCommand() override;
    [[nodiscard]] std::vector<std::string> takePrinted() override { return printing_.take(); }

private:
    void doEvents();

    RunnerClock clock_;
    platform::DiskFiles files_;
    RunnerDialogs dialogs_;
    Printing printing_{dialogs_};
    forms::FormRegistry forms_{dialogs_, clock_.timers()};
    std::unique_ptr<core::Suite> suite_;
    core::Session session_;
    std::unique_ptr<platform::SingleInstance> instance_;
    std::int64_t turns_ = 0;
};

} // namespace zel::runner
