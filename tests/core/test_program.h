#pragma once

#include "core/frmMain.h"
#include "core/settings.h"
#include "core/start_up.h"
#include "core/suite.h"
#include "forms/form_registry.h"
#include "forms/scripted_dialogs.h"
#include "forms/user.h"
#include "platform/clock.h"
#include "platform/processes.h"
#include "platform/scratch_folder.h"
#include "platform/timer_service.h"
#include "support/database_test.h"

#include <gmock/gmock.h>

#include <filesystem>

namespace zel::core {

/// A suite that opens the database of the test and keeps a record of what is asked of it.
class RecordingSuite : public Suite, public DatabaseLocator, public SupportService {
public:
    RecordingSuite(std::vector<std::string>& calls, test::TestDatabase& database)
        : calls_(calls), database_(database) {}

    DatabaseLocator& locator() override { return *this; }
    SupportService& support() override { return *this; }
    std::unique_ptr<ResourceDeleter> makeResourceDeleter() override;
    void copyDatabase(const std::string& path, const std::string& copy) override {
        calls_.push_back("copyDatabase " + path + " " + copy);
        if (copyFails)
            throw ado::Error(ado::ErrorKind::Engine, ado::errors::failed, "no room");
    }

    void ShowSecurity(Session&) override { calls_.emplace_back("ShowSecurity"); }
    std::shared_ptr<ado::Connection> GetConnection() override { return connection_; }
    bool CloseDatabase() override {
        calls_.emplace_back("CloseDatabase");
        if (connection_)
            connection_->Close();
        return true;
    }
    void OpenDesktop(Session&, const std::string& path, const std::string&, const std::string&, const std::string&,
                     const std::string& module) override {
        calls_.push_back("OpenDesktop " + std::filesystem::path(path).filename().string() + " " + module);
        open();
    }
    std::string OpenServer(Session&, const std::string& module, const std::string&, std::string& server,
                           std::string& catalog) override {
        calls_.push_back("OpenServer " + module + " '" + server + "' '" + catalog + "'");
        if (server.empty() && catalog.empty()) {
            if (refuseChoice)
                return {};
            server = chosenServer;
            catalog = chosenCatalog;
        }
        if (!serverAnswers)
            return {};
        open();
        return "connection text";
    }
    void ShowServerSecurity(Session&, const std::string& server) override {
        calls_.push_back("ShowServerSecurity " + server);
    }
    std::string Password() const override { return "secret"; }
    std::string UserName() const override { return "clerk"; }

    bool CheckReleaseDate(Session&, std::int32_t, const std::string&) override { return true; }
    void ShowSupport(Session&) override { calls_.emplace_back("ShowSupport"); }

    bool serverAnswers = true;
    /// The clerk leaves the selection window without a choice.
    bool refuseChoice = false;
    /// The connection comes back closed.
    bool opens = true;
    bool deletesIncident = false;
    bool copyFails = false;
    std::string chosenServer = "HOST01", chosenCatalog = "Korvan";

private:
    void open() {
        connection_ = std::make_shared<ado::Connection>();
        if (opens)
            connection_->Open(database_.open());
    }

    std::vector<std::string>& calls_;
    test::TestDatabase& database_;
    std::shared_ptr<ado::Connection> connection_;
};

/// A record screen that does nothing but say so.
class StubScreen : public Screen {
public:
    StubScreen(Session& state, std::string name, std::vector<std::string>& calls)
        : Screen(state, std::move(name)), calls_(calls) {}
    ~StubScreen() override { calls_.push_back("~" + Name()); }
    void tbFormOpen() override { calls_.push_back(Name() + ".tbFormOpen"); }
    void tbSave() override { calls_.push_back(Name() + ".tbSave"); }
    void tbDelete() override { calls_.push_back(Name() + ".tbDelete"); }

private:
    std::vector<std::string>& calls_;
};

/// A whole program in a folder of its own on a database of its own, driven without a window.
class TestProgram {
public:
    explicit TestProgram(ado::EngineKind kind) : database(kind) {
        std::filesystem::create_directories(home());
        std::filesystem::create_directories(folder / "database");
        folder.put("database/Korvan.mdb", "stands for the database");
        addCoreForms(session);
        session.frontEnd.statements = [this](const std::string& statement) { statements.push_back(statement); };
        forms.formLoaded = [this](forms::Form& form) { calls.push_back("load " + form.Name()); };
        forms.formUnloaded = [this](forms::Form& form) { calls.push_back("unload " + form.Name()); };
    }

    [[nodiscard]] std::string home() const { return folder / "zel"; }
    [[nodiscard]] std::string ini() const { return folder.bytes("zel/zel.ini"); }
    void putIni(const std::string& text) const { folder.put("zel/zel.ini", text); }
    /// Screens of later subsystems, as stand-ins.
    void addScreen(const std::string& name) {
        forms.add(name, [this, name] { return std::make_unique<StubScreen>(session, name, calls); });
    }
    /// Past the program, on a connection of the test.
    void execute(const std::string& statement) { database.connection().Execute(std::string_view(statement)); }
    void addIncident(int id, const std::string& name, const std::string& number) {
        execute("insert into Incidents (IncidentID, IncidentName, IncidentNumber, StartDate) "
                "values (" +
                std::to_string(id) + ", '" + name + "', '" + number + "', '2005-07-01')");
    }
    void addAccount(int id, int incident, const std::string& code) {
        execute("insert into AccountingCodes (AccountingID, IncidentID, AccountingCode, "
                "IncidentDefault) values (" +
                std::to_string(id) + ", " + std::to_string(incident) + ", '" + code + "', 1)");
    }
    void start(const std::string& commandLine = "") {
        session.app.Command = commandLine;
        const forms::FormRegistry::Action action(forms);
        Main(session);
    }
    void run(const std::function<void()>& what) {
        const forms::FormRegistry::Action action(forms);
        what();
    }
    [[nodiscard]] frmMain& shell() { return *forms.get<frmMain>("frmMain"); }
    /// The one box shown since the last call.
    forms::ShownBox box() {
        const auto shown = dialogs.take();
        EXPECT_EQ(shown.size(), 1U);
        return shown.empty() ? forms::ShownBox{} : shown.front();
    }
    std::vector<std::string> takeCalls() { return std::exchange(calls, {}); }

    platform::ScratchFolder folder;
    test::TestDatabase database;
    std::vector<std::string> calls, statements;
    forms::ScriptedDialogs dialogs;
    platform::ManualClock clock{ado::DateTime(38'537.5625)}; // 7/4/2005 1:30 PM
    platform::TimerService timers{clock};
    platform::DiskFiles files;
    platform::SystemProcesses processes;
    forms::FormRegistry forms{dialogs, timers};
    RecordingSuite suite{calls, database};
    Session session{App{.Path = folder / "zel", .Major = 5, .Minor = 1, .Revision = 0, .Command = {}},
                    World{forms, dialogs, clock, files, processes, suite}};
    forms::User user{forms};
};

inline std::unique_ptr<ResourceDeleter> RecordingSuite::makeResourceDeleter() {
    class Deleter : public ResourceDeleter {
    public:
        Deleter(std::vector<std::string>& calls, bool succeeds) : calls_(calls), succeeds_(succeeds) {}
        bool DeleteResources(Session&, const std::string&, const std::string&, const std::string&) override {
            return false;
        }
        void DeleteIncident(Session&, std::int32_t incident, bool& success) override {
            calls_.push_back("DeleteIncident " + std::to_string(incident));
            success = succeeds_;
        }

    private:
        std::vector<std::string>& calls_;
        bool succeeds_;
    };
    return std::make_unique<Deleter>(calls_, deletesIncident);
}

/// A test on a whole program, on both engines where the suite is made with ZEL_ON_BOTH_ENGINES.
class ProgramTest : public ::testing::TestWithParam<ado::EngineKind> {
protected:
    TestProgram program{GetParam()};
    Session& session = program.session;
};

} // namespace zel::core
