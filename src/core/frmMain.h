#pragma once

#include "core/screen.h"
#include "forms/buttons.h"
#include "forms/control_array.h"
#include "forms/label.h"
#include "forms/menu.h"
#include "forms/progress_bar.h"
#include "forms/tdb_combo.h"
#include "forms/toolbar.h"

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>

namespace zel::forms {
class TDBGrid;
}

namespace zel::core {

/// The shell: menus, toolbar, screen buttons and the incident selector. It shows the record screens one at a time and
/// sends them their commands.
class frmMain : public Screen {
public:
    explicit frmMain(Session& state);
    ~frmMain() override;

    /// What its load event does: the current incident, the lists, every visible screen.
    void load();
    /// Shows a screen by name. `bHideAll` closes the others first; `tab` is the page that it opens on.
    void OpenScreen(std::string_view name, bool bHideAll, int tab);
    /// Reads the incidents anew and makes every visible screen read its data anew.
    void fRefresh() { mnuFileRefresh_Click(); }
    void mnuFileRefresh_Click();
    /// What the next report prints: "P" or "R" and a key; empty is all. Screens set it before they ask for a report.
    std::string selectionKey;
    void mnuRep286_Click() { PrintReport(7); }
    void mnuRep288_Click() { PrintReport(6); }
    void PrintReport(int reportNumber);
    /// Puts the current incident into both incident boxes.
    void showIncident();
    /// Puts the names of server and database into the status line.
    void showDatabase();
    /// Binds both incident boxes to the list of incidents.
    void bindIncidents();
    /// The record screen that was used last, null when none is open.
    [[nodiscard]] Form* ActiveForm() const;
    /// An entry of the menus or pop-up menus by its name; throws std::out_of_range.
    [[nodiscard]] forms::Menu& menu(std::string_view name);
    void tbLogDump() override;

    forms::Toolbar tbMenu{*this, "tbMenu"};
    forms::ControlArray<forms::OptionButton> optMenu{*this, "optMenu", 7};
    forms::Label lblIncidentName{*this, "lblIncidentName", "Incident Name"};
    forms::Label lblIncidentNumber{*this, "lblIncidentNumber", "Incident Number"};
    forms::ControlArray<forms::TDBCombo> dbcIncident{*this, "dbcIncident", 2};
    forms::CheckBox chkManageAll{*this, "chkManageAll"};
    forms::Label lblDate{*this, "lblDate"};
    forms::Label lblStatus{*this, "lblStatus"};
    forms::ProgressBar prgBar{*this, "prgBar"};

protected:
    [[nodiscard]] DumpLines dumpLines() const override;

private:
    struct Entry;
    struct Range;
    void makeMenus();
    void makeToolbar();
    void makeButtons();
    void makeSelector();
    void addMenu(const Entry& entry);
    void onMenu(std::string_view name, std::function<void()> action);
    void connectFileMenu();
    void connectScreenMenus();
    void connectReports();
    void connectTools();
    void connectPopup();
    void onGrid(std::string_view name, std::function<void(forms::TDBGrid&)> action);

    void tbMenu_ButtonClick(const std::string& key);
    void optMenu_Click(int index);
    void dbcIncident_Change(int index);
    void chkManageAll_Click();
    void mnuDataPath_Click();
    void mnuToolsDelInc_Click();
    void toggleTiming(bool screens);
    void addRemarks(forms::TDBGrid& grid);
    void takeIncident(std::int64_t row);
    void clearPersonUpdate();
    void openVisibleScreens();

    void HideScreens();
    void open(const Range& range, int tab);
    [[nodiscard]] static const std::vector<Range>& ranges();
    void log(const std::string& text) const;

    std::deque<forms::Menu> menus_;
    bool openingScreen_ = false; // the screen buttons are moved by the program
    bool showingIncident_ = false;
};

/// Makes the windows of the core known to the session's form registry.
void addCoreForms(Session& session);

/// Changes to another database that the clerk chooses. False when the clerk left without one that can be used.
bool OpenDB(Session& session, const std::string& server, const std::string& catalog);

} // namespace zel::core
