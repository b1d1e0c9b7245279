#include "core/failure.h"
#include "core/session.h"
#include "core/settings.h"
#include "core/start_up.h"
#include "core/suite.h"
#include "forms/form_registry.h"
#include "services/clsDebug.h"

#include <array>

namespace zel::core {

namespace {

constexpr std::array recordScreens{"frmContracts",  "frmPost",      "frmCrews",     "frmCrewRoster",
                                   "frmDeductions", "frmPersonnel", "frmIncidents", "frmPersonnelFilter",
                                   "frmEquipSearch"};
constexpr std::array ownWindows{"frmAbout", "frmRefs", "frmConfirm", "frmMain"};
constexpr std::string_view shellName = "frmMain";

enum class Shell { Unload, Keep };

void unload(Session& session, std::string_view name) {
    if (forms::Form* form = session.forms.loaded(name))
        skipFailures([form] { form->Unload(); });
}

void unloadTheRest(Session& session, Shell shell) {
    for (forms::Form* form : session.forms.forms()) {
        if (shell == Shell::Unload || form->Name() != shellName)
            unload(session, form->Name());
    }
}

void unloadScreens(Session& session, Shell shell) {
    session.Unloading = true;
    session.DoEvents();
    SetReloading(session, true);
    if (!session.PreLoad) {
        for (const char* name : recordScreens)
            unload(session, name);
    }
    for (const char* name : ownWindows) {
        if (shell == Shell::Unload || name != shellName)
            unload(session, name);
    }
    unloadTheRest(session, shell);
}

void writeSettings(Session& session) {
    if (session.gPickCancelled)
        return;
    SaveSetting(session, "Version", session.gAppVersion);
    SaveSetting(session, "DBSPath", session.gDBPath);
    SaveSetting(session, "Incident", std::to_string(session.gIncidentID));
    SaveSetting(session, "Last User", session.mvarUserID);
}

void closeDatabase(Session& session) {
    session.suite.locator().CloseDatabase();
    session.DoEvents();
}

} // namespace

void CloseApp(Session& session) {
    // Two passes: a screen that is going may bring up another one.
    for (int pass = 1; pass <= 2; ++pass)
        skipFailures([&] { unloadScreens(session, Shell::Unload); });
    skipFailures([&] { unloadTheRest(session, Shell::Unload); });
    skipFailures([&] { writeSettings(session); });
    skipFailures([&] { closeDatabase(session); });
    session.End();
}

void CloseForRestart(Session& session) {
    try {
        unloadScreens(session, Shell::Keep);
        unloadTheRest(session, Shell::Keep);
        writeSettings(session);
        closeDatabase(session);
    } catch (const std::exception& failure) {
        if (session.gDebug)
            session.gDebug->Prn(std::string("debug Desc: ") + failure.what(), services::clsDebug::error);
    }
}

void SetSecurity(Session& session) {
    const auto step = [&session](const std::function<void()>& action) {
        guarded(session, action, ": SetSecurity Error", forms::Icon::Information);
    };
    step([&] { session.PreLoad = false; });
    step([&] { CloseForRestart(session); });
    step([&] {
        DatabaseLocator& locator = session.suite.locator();
        if (session.gServerDialect)
            locator.ShowServerSecurity(session, session.gServerName);
        else
            locator.ShowSecurity(session);
    });
    step([&] { SaveSetting(session, "DBSPath", session.gDBPath); });
    step([&] { Main(session); });
}

} // namespace zel::core
