#include "core/database_version.h"
#include "core/failure.h"
#include "core/frmMain.h"
#include "core/lists.h"
#include "core/open_database.h"
#include "core/settings.h"
#include "core/start_up.h"
#include "forms/form_registry.h"

namespace zel::core {

namespace {

struct ServerNames {
    std::string server, catalog;
};

bool connect(Session& session, const ServerNames& old) {
    if (OpenServerDB(session, true))
        return true;
    if (session.Ended())
        return false;
    if (session.gFirstOpen) {
        session.End();
        return false;
    }
    if (!session.gServerDialect && old.server.empty()) {
        // A database file has no names of a server: the old one is opened by its path.
        OpenDesktopDB(session, session.gDBPath);
        return session.gConnection && session.gConnection->State() == ado::stateOpen;
    }
    session.gServerName = old.server;
    session.gCatalogName = old.catalog;
    return OpenServerDB(session, false);
}

void reloadLists(Session& session) {
    SaveSetting(session, "Incident", "");
    SelectIncident(session, -1);
    LoadList(session, true, session.gAccountList, 1);
    LoadList(session, false, session.gStateList, 4);
    LoadList(session, false, session.gIncidentList, 5);
    LoadList(session, false, session.gKindList, 2);
    LoadList(session, false, session.gStatusList, 6);
    LoadList(session, false, session.gAgencyList, 7);
    LoadList(session, false, session.gAreaList, 8);
    LoadList(session, false, session.gClassList, 9);
}

void showIncidents(Session& session) {
    // At the first start there is no shell yet; it shows the incident itself when it loads.
    auto* shell = dynamic_cast<frmMain*>(session.forms.loaded("frmMain"));
    if (shell == nullptr)
        return;
    shell->bindIncidents();
    shell->dbcIncident.each([](forms::TDBCombo& box) {
        box.Refresh();
        box.setText("");
    });
    shell->showIncident();
    shell->showDatabase();
}

} // namespace

bool OpenDB(Session& session, const std::string& server, const std::string& catalog) {
    SaveSetting(session, "Incident", std::to_string(session.gIncidentID));
    const bool given = !server.empty() && !catalog.empty();
    const ServerNames names =
        given ? ServerNames{server, catalog} : ServerNames{session.gServerName, session.gCatalogName};
    if (!connect(session, names))
        return false;
    GetVersion(session);
    if (session.gDBVersion.empty()) {
        TellNoDatabase(session);
        return false;
    }
    if (IsOldDatabase(session))
        return AskAboutOldDatabase(session) && OpenDB(session, "", "");
    reloadLists(session);
    showIncidents(session);
    return true;
}

} // namespace zel::core
