#pragma once

#include "ado/connection.h"
#include "core/session.h"
#include "core/suite.h"
#include "forms/buttons.h"
#include "forms/combo_box.h"
#include "forms/control_array.h"
#include "forms/form.h"
#include "forms/form_registry.h"
#include "forms/list_box.h"
#include "forms/menu.h"
#include "forms/tdb_combo.h"
#include "forms/tdb_grid.h"
#include "forms/text_box.h"
#include "forms/timer.h"
#include "forms/toolbar.h"
#include "forms/vs_index_tab.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/processes.h"
#include "platform/timer_service.h"
#include "runner/program.h"
#include "runner/runner_dialogs.h"

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace zel::runner {

class FakeProgram;

/// A screen with one control of each kind that commands are meant for.
class frmTest : public forms::Form {
public:
    explicit frmTest(FakeProgram& program);

    forms::Toolbar tbMenu{*this, "tbMenu"};
    forms::Menu mnuFile{*this, "mnuFile", "&File"};
    forms::Menu mnuExit{mnuFile, "mnuExit", "E&xit"};
    forms::Menu mnuPopup{*this, "mnuPopup", "Popup"};
    forms::Menu mnuPopupDelete{mnuPopup, "mnuPopupDelete", "&Delete Record"};
    forms::TextBox txtName{*this, "txtName"};
    forms::TextBox txtHidden{*this, "txtHidden"};
    forms::CheckBox chkAll{*this, "chkAll"};
    forms::ControlArray<forms::CommandButton> cmdSave{*this, "cmdSave", 2};
    forms::vsIndexTab tabMain{*this, "tabMain", "Add|Edit"};
    forms::ComboBox cboKind{*this, "cboKind"};
    forms::ListBox lstNames{*this, "lstNames"};
    forms::TDBCombo dbcPeople{*this, "dbcPeople"};
    forms::TDBGrid dbgPeople{*this, "dbgPeople"};
    forms::Timer tmrMinute{*this, "tmrMinute"};
    forms::ValueArray people;
    int ticks = 0;
};

/// A window that asks for a name.
class frmAsk : public forms::Form {
public:
    explicit frmAsk(FakeProgram& program);

    forms::TextBox txtOffice{*this, "txtOffice"};
    forms::CommandButton cmdOK{*this, "cmdOK", "&OK"};
};

class FakeProgram final : public Program, public core::Suite {
public:
    FakeProgram();
    ~FakeProgram() override;

    core::Session& session() override { return session_; }
    forms::FormRegistry& forms() override { return forms_; }
    RunnerDialogs& dialogs() override { return dialogs_; }
    void start(const std::string& commandLine) override;
    void openScreen(const std::string& name, int tab) override;
    void quit() override { quitted = true; }
    void setNow(ado::DateTime now) override { clock_.set(now); }
    void tick(std::int64_t milliseconds) override;
    void observeStatements(std::function<void(const std::string&)> observer) override;
    void beginCommand() override { dialogs_.beginCommand(); }
    /// Gives the session a database with the table People (PersonID, Name, Paid, Born, Rate) and two rows.
    void openDatabase();

    core::DatabaseLocator& locator() override { throw std::logic_error("not asked for here"); }
    std::unique_ptr<core::ResourceDeleter> makeResourceDeleter() override { return nullptr; }
    core::SupportService& support() override { throw std::logic_error("not asked for here"); }
    void copyDatabase(const std::string&, const std::string&) override { throw std::logic_error("not asked for here"); }

    platform::ManualClock& clock() { return clock_; }
    frmTest& screen();

    std::string startedWith;
    std::string opened;
    std::string office;
    bool quitted = false;

private:
    platform::ManualClock clock_{ado::DateTime::fromDate(2005, 7, 4)};
    platform::TimerService timers_{clock_};
    platform::DiskFiles files_;
    platform::SystemProcesses processes_;
    RunnerDialogs dialogs_;
    forms::FormRegistry forms_{dialogs_, timers_};
    core::Session session_;
    std::function<void(const std::string&)> observer_;
    std::filesystem::path folder_;
};

} // namespace zel::runner
