#include "core/failure.h"
#include "core/frmAbout.h"
#include "core/frmMain.h"
#include "core/start_up.h"
#include "core/suite.h"
#include "core/tools.h"
#include "forms/form_registry.h"
#include "services/clsStopWatch.h"

#include <stdexcept>
#include <utility>

namespace zel::core {

struct frmMain::Entry {
    const char* name;
    const char* caption;
    const char* parent; // empty for a top entry
};

namespace {

constexpr const char* top = "";

} // namespace

void frmMain::makeMenus() {
    static constexpr Entry entries[] = {
        {"mnuFile", "&File", top},
        {"mnuScanPort", "S&canner Port", "mnuFile"},
        {"mnuDataPath", "&Open Database", "mnuFile"},
        {"mnuSettings", "&Settings", "mnuFile"},
        {"mnuPrintSetup", "&Print Setup", "mnuFile"},
        {"mnuFileRefresh", "&Refresh", "mnuFile"},
        {"mnuExit", "E&xit", "mnuFile"},
        {"mnuIncident", "&Incident Data", top},
        {"mnuIncidentAE", "Incident &Add/Edit", "mnuIncident"},
        {"mnuIncidentAccounts", "Incident Accounts", "mnuIncident"},
        {"mnuIncidentOfficePay", "Admin Office for Payment", "mnuIncident"},
        {"mnuPers", "&Personnel", top},
        {"mnuPersInfo", "Personnel &Info / Edit", "mnuPers"},
        {"mnuPersDeduct", "Personnel &Deduct", "mnuPers"},
        {"mnuPersPost", "Personnel &Post", "mnuPers"},
        {"mnuCrewRoster", "Crew/Operator &Roster", "mnuPers"},
        {"mnuCrewEdit", "Crew/Operator Add/&Edit", "mnuPers"},
        {"mnuCrewPost", "&Crew/Operator Post", "mnuPers"},
        {"mnuContracts", "&Contracts", top},
        {"mnuConInfo", "&Contractor/Equipment Info", "mnuContracts"},
        {"mnuConDeduct", "Contractor &Debits", "mnuContracts"},
        {"mnuConInvoice", "Contractor &OF286", "mnuContracts"},
        {"mnuConEqPost", "&Equipment Post", "mnuContracts"},
        {"mnuResSearch", "Find Resource", "mnuContracts"},
        {"mnuPost", "Post &Time", top},
        {"mnuPostPers", "&Personnel", "mnuPost"},
        {"mnuPostCrews", "&Crews/Operators", "mnuPost"},
        {"mnuPostEq", "&Equipment", "mnuPost"},
        {"mnuDeduct", "&Debits", top},
        {"mnuDedPers", "&Personnel", "mnuDeduct"},
        {"mnuDedCon", "&Contractor", "mnuDeduct"},
        {"mnuReports", "&Reports", top},
        {"mnuRepContHrs", "&Work/Rest Ratio", "mnuReports"},
        {"mnuRepExcessHours", "Shifts in E&xcess of Standard Hrs", "mnuReports"},
        {"mnuRepEquipMgmt", "Equipment &Management", "mnuReports"},
        {"mnuRepCrewRoster", "&Crew Roster", "mnuReports"},
        {"mnuRepCommAuth", "Commissary &Authorization", "mnuReports"},
        {"mnuRepCommChg", "Commissary Cha&rges by Date", "mnuReports"},
        {"mnuPersonnelTimeRpt", "Personnel Time Report (Fax/Print)", "mnuReports"},
        {"mnuContDebets", "Contractor &Debits", "mnuReports"},
        {"mnuRepSumCon", "Payment Summary of &Equipment", "mnuReports"},
        {"mnuRepSumHours", "Summary of &Hours Worked", "mnuReports"},
        {"mnuTools", "T&ools", top},
        {"mnuToolsBackup", "&Backup Korvan Database", "mnuTools"},
        {"mnuToolsDelDB", "&Erase Korvan Database", "mnuTools"},
        {"mnuToolsDelInc", "&Delete Incident", "mnuTools"},
        {"mnuSecurity", "&Security", "mnuTools"},
        {"mnuToolsClearHourglass", "Clear &Hourglass", "mnuTools"},
        {"mnuLogCurrStatus", "&Log Current Status", "mnuTools"},
        {"mnuToolsTimeTest", "Activate &Timing Test", "mnuTools"},
        {"mnuToolsTimingScreen", "&Screen to Screen", "mnuToolsTimeTest"},
        {"mnuToolsTimingDetails", "Screen &Details", "mnuToolsTimeTest"},
        {"mnuHelp", "&Help", top},
        {"mnuHelpAbout", "&About", "mnuHelp"},
        {"mnuHelpSupport", "&Support", "mnuHelp"},
        {"mnuPopup", "Popup", top},
        {"mnuPopupNew", "&New Record", "mnuPopup"},
        {"mnuPopupEdit", "&Edit Record", "mnuPopup"},
        {"mnuPopupSave", "&Save Record", "mnuPopup"},
        {"mnuPopupDelete", "&Delete Record", "mnuPopup"},
        {"mnuPopupRemarks", "Add/Edit &Remarks", "mnuPopup"},
        {"mnuPopupMoveFirst", "F&irst", "mnuPopup"},
        {"mnuPopupMoveLast", "&Last", "mnuPopup"},
        {"mnuPopupMoveNext", "Nex&t", "mnuPopup"},
        {"mnuPopupMovePrevious", "&Previous", "mnuPopup"},
        {"mnuPopupFind", "", "mnuPopup"},
        {"mnuPopupRefresh", "Refresh", "mnuPopup"},
        {"mnuPopupCancel", "Cancel", "mnuPopup"},
        {"mnuPostCrewPopUp", "PostCrewPopUp", top},
        {"mnuPostCrewPopUpCopy", "Copy Selected Postings", "mnuPostCrewPopUp"},
        {"mnuPostCrewPopUpPaste", "Paste Copied Posting to Selected Mbrs", "mnuPostCrewPopUp"},
    };
    for (const Entry& entry : entries)
        addMenu(entry);
    menu("mnuPopup").setVisible(false);
    menu("mnuPostCrewPopUp").setVisible(false);
    menu("mnuPopupFind").setVisible(false); // it has neither caption nor action
    menu("mnuFileRefresh").setShortcut("F5");
    connectFileMenu();
    connectScreenMenus();
    connectReports();
    connectTools();
    connectPopup();
}

void frmMain::addMenu(const Entry& entry) {
    if (*entry.parent == '\0')
        menus_.emplace_back(*this, entry.name, entry.caption);
    else
        menus_.emplace_back(forms::Place(menu(entry.parent)), entry.name, entry.caption);
}

forms::Menu& frmMain::menu(std::string_view name) {
    for (forms::Menu& entry : menus_) {
        if (entry.Name() == name)
            return entry;
    }
    throw std::out_of_range("menu " + std::string(name) + " does not exist");
}

void frmMain::onMenu(std::string_view name, std::function<void()> action) {
    menu(name).Click = always(std::move(action));
}

void frmMain::connectFileMenu() {
    onMenu("mnuScanPort", [this] {
        if (session.extensions.scannerPort)
            session.extensions.scannerPort();
        else
            log("The scanner is not part of this program.");
    });
    onMenu("mnuDataPath", [this] { mnuDataPath_Click(); });
    onMenu("mnuSettings", [this] { OpenScreen("Settings", true, 0); });
    onMenu("mnuPrintSetup", [this] { OpenScreen("Print", false, 0); });
    onMenu("mnuFileRefresh", [this] { mnuFileRefresh_Click(); });
    onMenu("mnuExit", [this] { CloseApp(session); });
}

void frmMain::connectScreenMenus() {
    struct Opens {
        const char* menu;
        const char* screen;
        int tab;
    };
    static constexpr Opens opens[] = {
        {"mnuIncidentAE", "Incidents", 0},
        {"mnuIncidentAccounts", "Accounts", 0},
        {"mnuIncidentOfficePay", "AdminOffice", 0},
        {"mnuPersInfo", "Personnel", 1},
        {"mnuPersDeduct", "Deductions", 0},
        {"mnuPersPost", "Post", 0},
        {"mnuCrewRoster", "Roster", 0},
        {"mnuCrewEdit", "Crews", 0},
        {"mnuCrewPost", "Post", 1},
        {"mnuConInfo", "Contractor", 0},
        {"mnuConDeduct", "Deductions", 1},
        {"mnuConEqPost", "Post", 2},
        {"mnuResSearch", "Resources", 0},
        {"mnuPostPers", "Post", 0},
        {"mnuPostCrews", "Post", 1},
        {"mnuPostEq", "Post", 2},
        {"mnuDedPers", "Deductions", 0},
        {"mnuDedCon", "Deductions", 1},
    };
    for (const Opens& entry : opens)
        onMenu(entry.menu, [this, entry] { OpenScreen(entry.screen, true, entry.tab); });
    onMenu("mnuHelpAbout", [this] {
        if (auto* about = forms().get<frmAbout>("frmAbout"))
            about->showAbout();
    });
    onMenu("mnuHelpSupport", [this] { session.suite.support().ShowSupport(session); });
}

void frmMain::connectReports() {
    struct Prints {
        const char* menu;
        int report;
    };
    static constexpr Prints prints[] = {
        {"mnuConInvoice", 7},     {"mnuRepContHrs", 1},  {"mnuRepExcessHours", 5}, {"mnuRepEquipMgmt", 11},
        {"mnuRepCrewRoster", 12}, {"mnuRepCommAuth", 9}, {"mnuRepCommChg", 2},     {"mnuPersonnelTimeRpt", 15},
        {"mnuContDebets", 10},    {"mnuRepSumCon", 4},   {"mnuRepSumHours", 3},
    };
    for (const Prints& entry : prints)
        onMenu(entry.menu, [this, entry] { PrintReport(entry.report); });
}

void frmMain::PrintReport(int reportNumber) {
    // The key is for one report: a menu entry chosen later prints all again.
    const std::string option = std::exchange(selectionKey, std::string());
    if (session.extensions.PrintReport)
        session.extensions.PrintReport(reportNumber, option);
    else
        log("Report " + std::to_string(reportNumber) + " is not part of this program.");
    forms().setHourglass(false);
}

void frmMain::connectTools() {
    onMenu("mnuToolsBackup", [this] { BackupDatabase(session); });
    onMenu("mnuToolsDelDB", [this] { EraseDatabase(session, lblStatus); });
    onMenu("mnuToolsDelInc", [this] { mnuToolsDelInc_Click(); });
    onMenu("mnuSecurity", [this] { SetSecurity(session); });
    onMenu("mnuToolsClearHourglass", [this] {
        SetWorking(session, false);
        forms().setHourglass(false);
    });
    onMenu("mnuLogCurrStatus", [this] { tbLogDump(); });
    onMenu("mnuToolsTimingScreen", [this] { toggleTiming(true); });
    onMenu("mnuToolsTimingDetails", [this] { toggleTiming(false); });
}

// Only one of the two is on at a time: each switches the other off.
void frmMain::toggleTiming(bool screens) {
    forms::Menu& chosen = menu(screens ? "mnuToolsTimingScreen" : "mnuToolsTimingDetails");
    forms::Menu& other = menu(screens ? "mnuToolsTimingDetails" : "mnuToolsTimingScreen");
    chosen.setChecked(!chosen.Checked());
    other.setChecked(false);
    if (!session.gStopWatch)
        return;
    session.gStopWatch->ScreenEnabled = screens && chosen.Checked();
    session.gStopWatch->DetailsEnabled = !screens && chosen.Checked();
}

void frmMain::mnuToolsDelInc_Click() {
    bool success = false;
    session.suite.makeResourceDeleter()->DeleteIncident(session, session.gIncidentID, success);
    if (!success)
        return;
    session.gIncidentID = -1;
    session.gIncidentIndex = -1;
    forms().setHourglass(true);
    mnuFileRefresh_Click();
    OpenScreen("Incidents", true, 0);
    forms().setHourglass(false);
}

} // namespace zel::core
