#pragma once

#include "ado/convert.h"
#include "ado/recordset.h"
#include "core/frmMain.h"
#include "core/start_up.h"
#include "forms/form_registry.h"
#include "forms/scripted_dialogs.h"
#include "forms/user.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/processes.h"
#include "platform/scratch_folder.h"
#include "platform/timer_service.h"
#include "suite/frmServerSelect.h"
#include "suite/korvan_suite.h"
#include "support/database_test.h"

#include <gmock/gmock.h>

#include <filesystem>

namespace zel::suite {

/// A program with the suite of this build, on a database of the test.
class SuiteTest : public test::DatabaseTest {
protected:
    SuiteTest() {
        std::filesystem::create_directories(folder / "zel");
        core::addCoreForms(session);
        addSuiteForms(session);
        session.gAppVersion = "5.01.00";
        session.frontEnd.ended = [this] { ended = true; };
    }

    /// Connects the session without any window.
    void connect() { session.adopt(std::make_shared<ado::Connection>(database().open())); }
    void execute(const std::string& statement) { connection().Execute(std::string_view(statement)); }
    std::int64_t rows(const std::string& from) {
        ado::Recordset records;
        records.Open(ado::Sql::words("select count(*) as HowMany from " + from), connection());
        return ado::toLong(records.value("HowMany"));
    }
    forms::ShownBox box() {
        const auto shown = dialogs.take();
        EXPECT_EQ(shown.size(), 1U);
        return shown.empty() ? forms::ShownBox{} : shown.front();
    }
    /// Server and catalog as a clerk names them.
    std::string server() { return onSqlite() ? std::string(core::DatabaseLocator::fileServer) : database().server(); }
    std::string catalog() { return onSqlite() ? database().file().string() : database().catalog(); }

    platform::ScratchFolder folder;
    forms::ScriptedDialogs dialogs;
    platform::ManualClock clock{ado::DateTime(38'537.5625)}; // 7/4/2005 1:30 PM
    platform::TimerService timers{clock};
    platform::DiskFiles files;
    platform::SystemProcesses processes;
    forms::FormRegistry forms{dialogs, timers};
    KorvanSuite suite;
    core::Session session{core::App{.Path = folder / "zel", .Command = {}},
                          core::World{forms, dialogs, clock, files, processes, suite}};
    bool ended = false;
};

} // namespace zel::suite
