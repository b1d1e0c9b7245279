#include "core/start_up.h"

#include "ado/convert.h"
#include "ado/format.h"
#include "core/database_version.h"
#include "core/frmAbout.h"
#include "core/frmMain.h"
#include "core/lists.h"
#include "core/open_database.h"
#include "core/session.h"
#include "core/settings.h"
#include "forms/form_registry.h"
#include "platform/clock.h"
#include "services/clsDebug.h"
#include "services/clsStopWatch.h"

namespace zel::core {

namespace {

void resetForStart(Session& session) {
    session.PreLoad = true;
    session.gPickCancelled = false;
    session.Unloading = false;
    session.gRefreshing = false;
    if (!session.gDebug)
        session.gDebug = std::make_shared<services::clsDebug>(session);
    session.gStopWatch = std::make_shared<services::clsStopWatch>(session);
    session.gStopWatch->ScreenEnabled = false;
    session.gIncidentStart.clear();
}

// Only the first part of the command line counts, and without one the database is on a server.
void chooseDialect(Session& session) {
    const std::string& command = session.app.Command;
    session.gServerDialect = command.empty() || ado::toBoolean(ado::Value(command.substr(0, command.find(','))));
}

frmAbout& showLoading(Session& session) {
    auto* about = session.forms.get<frmAbout>("frmAbout");
    about->showLoading();
    session.Loading = true;
    session.Working = false;
    session.DoEvents();
    session.gFirstOpen = true;
    return *about;
}

bool findDesktopDatabase(Session& session) {
    [[maybe_unused]] const std::string path = GetSetting(session, "DBSPath"); // opens it
    if (session.gConnection && session.gConnection->State() == ado::stateOpen && !session.gDBPath.empty())
        return true;
    session.dialogs.message("Can not find or make a connection to the database!", session.title(": No Path to DB"),
                            forms::Buttons::OK, forms::Icon::Critical);
    session.PreLoad = true;
    CloseApp(session);
    return false;
}

bool findDatabase(Session& session) {
    if (!session.gServerDialect)
        return findDesktopDatabase(session);
    OpenServerDB(session, false);
    return !session.Ended();
}

// False when the start is over.
bool acceptVersion(Session& session) {
    GetVersion(session);
    if (session.gDBVersion.empty()) {
        TellNoDatabase(session);
        CloseApp(session);
        return false;
    }
    if (!IsOldDatabase(session))
        return true;
    if (AskAboutOldDatabase(session) && OpenDB(session, "", ""))
        return true;
    if (!session.Ended())
        CloseApp(session);
    return false;
}

void loadLists(Session& session) {
    session.PreLoad = false;
    LoadList(session, false, session.gStateList, 4);
    LoadList(session, false, session.gIncidentList, 5);
    LoadList(session, false, session.gKindList, 2);
    LoadList(session, false, session.gStatusList, 6);
    LoadList(session, false, session.gAgencyList, 7);
    LoadList(session, false, session.gAreaList, 8);
    LoadList(session, false, session.gClassList, 9);
    LoadList(session, false, session.gRateTypeList, 10);
    LoadList(session, false, session.gPostableList, 14);
}

frmMain& showShell(Session& session, frmAbout& about) {
    const bool restart = IsFormLoaded(session, "frmMain");
    auto* shell = session.forms.get<frmMain>("frmMain");
    if (restart)
        shell->load(); // it stayed loaded, so that its load event does not come by itself
    shell->Show();
    about.prgBar.setValue(30);
    about.prgBar.setValue(80);
    shell->lblDate.setCaption(ado::format(ado::Value(session.clock.Today()), "MM/dd/yyyy"));
    return *shell;
}

void openFirstScreen(Session& session, frmMain& shell) {
    session.Loading = false;
    if (session.gIncidentID > 0) {
        LoadList(session, true, session.gAccountList, 1);
        shell.OpenScreen("Persons", true, 0);
    }
}

void start(Session& session) {
    resetForStart(session);
    chooseDialect(session);
    if (session.app.PrevInstance) {
        if (session.frontEnd.activatePrevious)
            session.frontEnd.activatePrevious();
        session.End();
        return;
    }
    BuildAppVersion(session);
    frmAbout& about = showLoading(session);
    if (!findDatabase(session) || !acceptVersion(session))
        return;
    GetBuildVersion(session);
    about.showVersions();
    session.forms.setHourglass(true);
    about.prgBar.setValue(5);
    loadLists(session);
    frmMain& shell = showShell(session, about);
    openFirstScreen(session, shell);
    LoadRequestCats(session);
    about.finishLoading();
    session.forms.setHourglass(false);
    shell.showIncident();
}

} // namespace

void Main(Session& session) {
    try {
        start(session);
    } catch (const std::exception&) {
        TellNoDatabase(session);
        CloseApp(session);
    }
}

void TellNoDatabase(Session& session) {
    session.dialogs.message("No database found.", session.title(": Cannot Open Application"), forms::Buttons::OK,
                            forms::Icon::Critical);
}

bool AskAboutOldDatabase(Session& session) {
    const std::string text =
        "You are trying to connect to a prior year database (Version " + session.gDBVersion +
        ").\r\n"
        "This version of ZEL requires a 2005 database (version 5.01.00 or greater).\r\n"
        "\r\n"
        "Options:\r\n"
        "\r\n"
        "1)  If you're using a 2004 database (version 4.xx) you must upgrade it using the RMU (Rollup Merge Utility) "
        "utility.\r\n"
        "Select the Cancel button below.\r\n"
        "\r\n"
        "2)  If you're trying to open a 2005 datatbase, select the OK button below and let Korvan check for existing "
        "servers/databases.\r\n"
        "Once this is done, the Server and Database Selection window will appear.\r\n"
        "Select or type the server name with \\Korvan at the end (ex. HOST09\\Korvan), then select or type the "
        "database name and select the OK button.";
    return session.dialogs.message(text, "Incorrect Database Version", forms::Buttons::OKCancel) == forms::Answer::OK;
}

void SetWorking(Session& session, std::optional<bool> on) {
    session.Working = on.value_or(!session.Working);
    session.forms.setHourglass(session.Working);
}

void SetReloading(Session& session, std::optional<bool> on) {
    session.Reloading = on.value_or(!session.Reloading);
}

void SetOnTop(forms::Form& form) {
    form.setTopMost(true);
}

bool IsFormLoaded(const Session& session, std::string_view name) {
    return session.forms.loaded(name) != nullptr;
}

} // namespace zel::core
