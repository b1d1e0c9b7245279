#include "core/frmMain.h"

#include "ado/convert.h"
#include "core/failure.h"
#include "core/frmAbout.h"
#include "core/frmConfirm.h"
#include "core/frmRefs.h"
#include "core/lists.h"
#include "core/open_database.h"
#include "core/settings.h"
#include "core/start_up.h"
#include "forms/form_registry.h"
#include "forms/tab_order.h"
#include "services/list_columns.h"
#include "services/list_rows.h"

namespace zel::core {

using incident_column::IncidentID;
using incident_column::IncidentName;
using incident_column::IncidentNumber;

namespace {

/// gRefreshing for the length of a refresh, however it ends.
class Refreshing {
public:
    explicit Refreshing(Session& session) : session_(session) { session_.gRefreshing = true; }
    ~Refreshing() { session_.gRefreshing = false; }
    Refreshing(const Refreshing&) = delete;
    Refreshing& operator=(const Refreshing&) = delete;

private:
    Session& session_;
};

} // namespace

frmMain::frmMain(Session& state) : Screen(state, "frmMain") {
    setCaption(session.app.Title + " - Zelmark Hour Ledger");
    makeMenus();
    makeToolbar();
    makeButtons();
    makeSelector();
    LoadEvent = always([this] { load(); });
    UnloadEvent = [this](bool&) {
        if (!session.Unloading)
            CloseApp(session);
    };
}

frmMain::~frmMain() {
    session.forms.setGridPopup(nullptr);
}

void frmMain::load() {
    session.gIniPath = FixPath(session.app.Path) + "zel.ini";
    if (!session.gPickCancelled)
        SelectIncident(session, -1);
    mnuFileRefresh_Click();
    prgBar.setValue(0);
}

void frmMain::makeToolbar() {
    tbMenu.addButton("Save", "Save", "Save the record");
    tbMenu.addButton("Delete", "Delete", "Delete the record");
    tbMenu.addButton("Refresh", "Refresh", "Read everything anew");
    tbMenu.addButton("Open", "Open", "Open another database");
    tbMenu.addButton("Exit", "Exit", "Leave the program");
    tbMenu.ButtonClick = [this](const std::string& key) { tbMenu_ButtonClick(key); };
}

void frmMain::makeButtons() {
    static constexpr const char* captions[] = {
        "Personnel", "Crews/ Operators", "Contracts",       "Commissary/ Debits && Additions",
        "Post Time", "Personnel Search", "Equipment Search"};
    int index = 0;
    for (const char* caption : captions) {
        optMenu(index).setGraphical(true);
        optMenu(index++).setCaption(caption);
    }
    optMenu.on(&forms::OptionButton::Click, [this](int pressed) { optMenu_Click(pressed); });
}

void frmMain::makeSelector() {
    chkManageAll.setCaption("Manage All Incidents as One");
    chkManageAll.setToolTipText("Used to Post time to another Incident...Not to change the Incident a resource is "
                                "assigned to.");
    chkManageAll.Click = always([this] { chkManageAll_Click(); });
    dbcIncident.each(
        [this](forms::TDBCombo& box) { box.ItemChange = [this, index = box.Index()] { dbcIncident_Change(index); }; });
    std::vector<forms::Control*> order{&dbcIncident(0), &dbcIncident(1), &chkManageAll};
    optMenu.each([&order](forms::OptionButton& button) { order.push_back(&button); });
    forms::setTabOrder(order);
}

void frmMain::tbMenu_ButtonClick(const std::string& key) {
    guarded(session, [this, &key] {
        if (key == "Exit") {
            if (session.dialogs.message("Do you wish to exit " + session.app.Title + "?", session.app.Title,
                                        forms::Buttons::YesNo) == forms::Answer::Yes)
                CloseApp(session);
        } else if (key == "Open") {
            mnuDataPath_Click();
        } else if (key == "Save" && ActiveForm() != nullptr) {
            ActiveForm()->tbSave();
        } else if (key == "Delete" && ActiveForm() != nullptr) {
            ActiveForm()->tbDelete();
        } else if (key == "Refresh") {
            mnuFileRefresh_Click();
        }
    });
    session.forms.setHourglass(false);
}

void frmMain::bindIncidents() {
    showingIncident_ = true;
    dbcIncident.each([this](forms::TDBCombo& box) {
        services::SetListColumns(box, session.gIncidentList, 5, false);
        if (box.Index() == 1)
            box.setListField("IncidentNumber");
    });
    showingIncident_ = false;
}

void frmMain::showIncident() {
    if (session.gIncidentIndex < 0)
        return;
    showingIncident_ = true;
    const std::string name = services::listText(session.gIncidentList, session.gIncidentIndex, IncidentName);
    const std::string number = services::listText(session.gIncidentList, session.gIncidentIndex, IncidentNumber);
    dbcIncident(0).setText(name);
    dbcIncident(1).setText(number);
    // Two incidents of one name are told apart by their row.
    dbcIncident.each([this](forms::TDBCombo& box) {
        if (box.isBound() && box.SelectedItem() != session.gIncidentIndex)
            box.setSelectedItem(session.gIncidentIndex);
    });
    showingIncident_ = false;
}

void frmMain::showDatabase() {
    lblStatus.setCaption("Server: " + session.gServerName + " Database: " + session.gCatalogName);
}

void frmMain::dbcIncident_Change(int index) {
    if (session.Working || showingIncident_)
        return;
    guarded(session, [this, index] {
        session.forms.setHourglass(true);
        takeIncident(dbcIncident(index).SelectedItem());
        if (Form* incidents = session.forms.loaded("frmIncidents"))
            incidents->tbFormOpen();
        fRefresh();
        clearPersonUpdate();
    });
    session.forms.setHourglass(false);
}

void frmMain::takeIncident(std::int64_t row) {
    if (row < 0) {
        session.gIncidentID = -1;
        session.gIncidentIndex = -1;
        session.gAccountingID = -1;
        return;
    }
    const int item = static_cast<int>(row);
    session.gIncidentID =
        static_cast<std::int32_t>(ado::numberAtHead(services::listText(session.gIncidentList, item, IncidentID)));
    session.gIncidentIndex = static_cast<std::int16_t>(item);
    session.gAccountingID = defaultAccount(session, item);
    LoadList(session, true, session.gAccountList, 1);
    showIncident();
}

void frmMain::clearPersonUpdate() {
    Form* personnel = session.forms.loaded("frmPersonnel");
    if (personnel == nullptr || !session.extensions.fClearPersonUpdate)
        return;
    const auto* person = dynamic_cast<const forms::TextEdit*>(personnel->find("dbcPersonnel"));
    if (person != nullptr && person->Text().empty())
        session.extensions.fClearPersonUpdate();
}

void frmMain::mnuFileRefresh_Click() {
    const Refreshing refreshing(session);
    LoadList(session, false, session.gIncidentList, 5);
    SelectIncident(session, session.gIncidentID);
    if (session.gIncidentID < 1) {
        dbcIncident.each([](forms::TDBCombo& box) {
            box.setText("");
            box.Refresh();
        });
    } else {
        bindIncidents();
        showIncident();
    }
    openVisibleScreens();
    if (session.gIncidentID == -1)
        OpenScreen("Incidents", false, 0);
    showDatabase();
}

void frmMain::openVisibleScreens() {
    Form* front = ActiveForm();
    for (Form* form : session.forms.forms()) {
        if (form != this && form->Visible() && !session.Working)
            guarded(session, [form] { form->tbFormOpen(); });
    }
    session.Working = false;
    if (front != nullptr && front == ActiveForm())
        front->SetFocus();
}

void frmMain::chkManageAll_Click() {
    session.gManageAll = chkManageAll.isChecked();
    const bool single = !session.gManageAll;
    if (session.gManageAll) {
        session.dialogs.message("Managing All Incidents as One...\r\n\r\n"
                                "When adding a new resource you MUST select an incident and account code for the "
                                "resource.",
                                "Warning", forms::Buttons::OK, forms::Icon::Exclamation);
    }
    dbcIncident(0).setVisible(single);
    dbcIncident(1).setVisible(single);
    lblIncidentName.setVisible(single);
    lblIncidentNumber.setVisible(single);
    mnuFileRefresh_Click();
}

void frmMain::mnuDataPath_Click() {
    session.gFirstOpen = false;
    CloseForRestart(session);
    const bool opened = OpenDB(session, "", "");
    session.Unloading = false;
    if (opened && session.gIncidentID > 0) {
        LoadList(session, true, session.gAccountList, 1);
        OpenScreen("Persons", true, 0);
    }
}

void addCoreForms(Session& session) {
    session.forms.add("frmMain", [&session] { return std::make_unique<frmMain>(session); });
    session.forms.add("frmAbout", [&session] { return std::make_unique<frmAbout>(session); });
    session.forms.add("frmRefs", [&session] { return std::make_unique<frmRefs>(session); });
    session.forms.add("frmConfirm", [&session] { return std::make_unique<frmConfirm>(session); });
    session.forms.setShell("frmMain");
}

void frmMain::log(const std::string& text) const {
    writeLog(session, text);
}

} // namespace zel::core
