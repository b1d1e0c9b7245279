#pragma once

#include "core/session.h"
#include "core/suite.h"
#include "forms/form_registry.h"
#include "forms/scripted_dialogs.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/processes.h"
#include "platform/scratch_folder.h"
#include "platform/timer_service.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdexcept>
#include <string>

namespace zel::services {

/// A suite for tests that have no business with it.
class NoSuite : public core::Suite {
public:
    core::DatabaseLocator& locator() override { throw std::logic_error("no locator in this test"); }
    std::unique_ptr<core::ResourceDeleter> makeResourceDeleter() override {
        throw std::logic_error("no resource deleter in this test");
    }
    void copyDatabase(const std::string&, const std::string&) override {
        throw std::logic_error("no database to copy in this test");
    }
    core::SupportService& support() override { throw std::logic_error("no support service in this test"); }
};

/// A session of its own for a test: boxes are answered beforehand, the clock stands still, files are real.
struct TestSession {
    explicit TestSession(const std::string& programFolder) {
        session.app.Path = programFolder;
        session.gLogFolder = programFolder;
    }

    forms::ScriptedDialogs dialogs;
    platform::ManualClock clock{ado::DateTime(38'537.5625)}; // 7/4/2005 1:30 PM
    platform::TimerService timers{clock};
    platform::DiskFiles files;
    platform::SystemProcesses processes;
    forms::FormRegistry forms{dialogs, timers};
    NoSuite suite;
    core::Session session{core::App{}, core::World{forms, dialogs, clock, files, processes, suite}};
};

/// A session in a program folder of its own.
class ServicesTest : public testing::Test {
protected:
    platform::ScratchFolder folder;
    TestSession program{folder.path()};
    core::Session& session = program.session;

    /// The one box shown since the last call; fails when there was none or more than one.
    forms::ShownBox box() {
        const auto shown = program.dialogs.take();
        EXPECT_EQ(shown.size(), 1U);
        return shown.empty() ? forms::ShownBox{} : shown.front();
    }
    void expectNoBox() { EXPECT_TRUE(program.dialogs.take().empty()); }
};

} // namespace zel::services
