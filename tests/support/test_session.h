#pragma once

#include "core/session.h"
#include "core/suite.h"
#include "forms/form_registry.h"
#include "forms/scripted_dialogs.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/processes.h"
#include "platform/timer_service.h"
#include "support/database_test.h"

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace zel::test {

/// Programs are not started; what would have been is kept.
class RecordedProcesses final : public platform::Processes {
public:
    [[nodiscard]] bool start(const std::string& program, const std::vector<std::string>& arguments,
                             const platform::Environment& environment) override {
        started.push_back({program, arguments, environment});
        return true;
    }
    struct Start {
        std::string program;
        std::vector<std::string> arguments;
        platform::Environment environment;
    };
    std::vector<Start> started;
};

/// The suite's objects as tests need them: the locator holds a user and a password, the deleter answers as told.
class PlainSuite final : public core::Suite {
public:
    PlainSuite();
    ~PlainSuite() override;
    [[nodiscard]] core::DatabaseLocator& locator() override;
    [[nodiscard]] std::unique_ptr<core::ResourceDeleter> makeResourceDeleter() override;
    [[nodiscard]] core::SupportService& support() override;
    void copyDatabase(const std::string& path, const std::string& copy) override;

    /// What the deleter and the release-date check answer, and what they were asked, in words.
    bool deleterAnswer = true, releaseDateAnswer = true;
    std::vector<std::string> calls;

private:
    class Locator;
    class Deleter;
    class Support;
    std::unique_ptr<Locator> locator_;
    std::unique_ptr<Support> support_;
};

/// A running program without a window or a start: the session with scripted boxes, a clock that stands at
/// 2005-07-04 08:00, and a program folder of its own that goes away with it.
class TestSession {
public:
    TestSession();
    ~TestSession();
    TestSession(const TestSession&) = delete;
    TestSession& operator=(const TestSession&) = delete;

    core::Session& session() noexcept { return *session_; }
    const std::filesystem::path folder; ///< App.Path

    forms::ScriptedDialogs dialogs;
    platform::ManualClock clock;
    platform::TimerService timers;
    platform::DiskFiles files;
    RecordedProcesses processes;
    PlainSuite suite;
    forms::FormRegistry forms;

private:
    std::unique_ptr<core::Session> session_;
};

/// A screen test: a fresh database on either engine, opened by a session in the dialect that belongs to it (desktop on
/// SQLite, server on PostgreSQL).
class SessionTest : public DatabaseTest {
protected:
    SessionTest();
    [[nodiscard]] core::Session& session() noexcept { return test_.session(); }
    [[nodiscard]] TestSession& program() noexcept { return test_; }
    [[nodiscard]] forms::ScriptedDialogs& dialogs() noexcept { return test_.dialogs; }
    /// The boxes shown since the last call.
    [[nodiscard]] std::vector<forms::ShownBox> boxes() { return test_.dialogs.take(); }

    void execute(std::string_view statement) { (void)session().connection().Execute(statement); }
    /// Each row as its values in default text, parted by "|".
    [[nodiscard]] std::vector<std::string> rows(std::string_view statement);
    /// The statements that the work sends, as composed.
    template <typename Work>
    [[nodiscard]] std::vector<std::string> statementsOf(Work&& work) {
        std::vector<std::string> sent;
        session().connection().setObserver([&sent](const std::string& statement) { sent.push_back(statement); });
        work();
        session().connection().setObserver(nullptr);
        return sent;
    }

private:
    TestSession test_;
};

} // namespace zel::test
