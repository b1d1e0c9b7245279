#include "runner/fake_program.h"

#include "ado/sqlite/create.h"
#include "ado/sqlite/open.h"

#include <fmt/format.h>

#include <unistd.h>

namespace zel::runner {

frmTest::frmTest(FakeProgram& program) : Form(program.forms(), "frmTest") {
    setCaption("Test");
    tbMenu.addButton("Save", "Save");
    tbMenu.ButtonClick = [this](const std::string& key) { forms().dialogs().message("Toolbar " + key, "ZEL"); };
    mnuExit.Click = [this] { forms().dialogs().message("Exit", "ZEL"); };
    mnuPopup.setVisible(false);
    mnuPopupDelete.Click = [this] { people.deleteRow(static_cast<int>(dbgPeople.row())); };
    txtHidden.setVisible(false);
    txtName.LostFocus = [this] { txtName.setText(txtName.Text() + "."); };
    cmdSave(0).setCaption("&Save");
    cmdSave(0).Click = [this] {
        const auto answer = forms().dialogs().message("Save " + txtName.Text() + "?\r\nNow?", "ZEL: WARNING",
                                                      forms::Buttons::YesNo, forms::Icon::Question, 2);
        setCaption(answer == forms::Answer::Yes ? "saved" : "not saved");
    };
    cmdSave(1).Click = [this] { forms().load("frmAsk")->ShowModal(); };
    cboKind.AddItem("ENGINE", 7);
    cboKind.AddItem("DOZER", 8);
    lstNames.setMultiSelect(true);
    for (const char* name : {"ADAMS", "BAKER", "CLARK"})
        lstNames.AddItem(name);
    people.setColumnNames({"Name", "Rate"});
    people.addRow({"ADAMS", ado::Currency::fromTicks(182000)});
    people.addRow({"BAKER", ado::Value()});
    dbcPeople.addColumn("Name", "Name");
    dbcPeople.setListField("Name");
    dbcPeople.bind(people);
    dbgPeople.addColumn("Person", "Name");
    dbgPeople.addColumn("", "Rate");
    dbgPeople.bind(people);
    dbgPeople.RightClick = [this] { forms().PopupMenu(mnuPopup); };
    tmrMinute.Fired = [this] { ++ticks; };
    tmrMinute.setInterval(60000);
}

frmAsk::frmAsk(FakeProgram& program) : Form(program.forms(), "frmAsk") {
    setCaption("Office");
    cmdOK.setDefault(true);
    cmdOK.Click = [this, &program] {
        program.office = txtOffice.Text();
        Unload();
    };
}

FakeProgram::FakeProgram()
    : session_(core::App(), {forms_, dialogs_, clock_, files_, processes_, *this}),
      folder_(std::filesystem::temp_directory_path() / fmt::format("zel_runner_test_{}", ::getpid())) {
    session_.app.Path = "/zel";
    forms_.add("frmTest", [this] { return std::make_unique<frmTest>(*this); });
    forms_.add("frmAsk", [this] { return std::make_unique<frmAsk>(*this); });
}

FakeProgram::~FakeProgram() {
    session_.gConnection.reset();
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
}

frmTest& FakeProgram::screen() {
    return *forms_.get<frmTest>("frmTest");
}

void FakeProgram::start(const std::string& commandLine) {
    startedWith = commandLine;
    forms_.load("frmTest")->Show();
}

void FakeProgram::openScreen(const std::string& name, int tab) {
    opened = fmt::format("{} {}", name, tab);
}

void FakeProgram::tick(std::int64_t milliseconds) {
    platform::runFor(timers_, clock_, milliseconds);
}

void FakeProgram::observeStatements(std::function<void(const std::string&)> observer) {
    observer_ = std::move(observer);
}

void FakeProgram::openDatabase() {
    constexpr const char* peopleTable = "CREATE TABLE People (PersonID INTEGER PRIMARY KEY, "
                                        "Name CITEXT COLLATE NOCASE, Paid FLAGINT, Born DATETEXT, "
                                        "Rate MONEYTEXT COLLATE ZMONEY)";
    std::filesystem::create_directories(folder_);
    const auto file = folder_ / "Korvan.mdb";
    ado::createSqliteFile(file, [](ado::Engine& engine) {
        for (const char* statement :
             {"CREATE TABLE Version (Module CITEXT COLLATE NOCASE, Version CITEXT)",
              "CREATE TABLE NextNumbers (TableName CITEXT COLLATE NOCASE PRIMARY KEY, NextNumber INTEGER)", peopleTable,
              "INSERT INTO People VALUES (1, 'ADAMS', 1, '1970-01-02 00:00:00', '18.2000')",
              "INSERT INTO People VALUES (2, NULL, 0, '1899-12-30 13:30:00', NULL)"})
            engine.prepare(statement, true)->execute({});
    });
    session_.gConnection = std::make_shared<ado::Connection>(ado::openSqlite(file, {.durable = false}));
    session_.gConnection->setObserver([this](const std::string& statement) {
        if (observer_)
            observer_(statement);
    });
}

} // namespace zel::runner
