#include "core/open_database.h"

#include "core/frmRefs.h"
#include "core/session.h"
#include "core/settings.h"
#include "core/start_up.h"
#include "core/suite.h"
#include "forms/form_registry.h"
#include "platform/files.h"

namespace zel::core {

namespace {

constexpr const char* moduleKey = "ZEL";

// Where the suite puts its database: beside the program folder.
std::string ordinaryDatabase(const Session& session) {
    return folderAbove(session.app.Path) + "database/Korvan.mdb";
}

bool isOpen(const Session& session) {
    return session.gConnection && session.gConnection->State() == ado::stateOpen;
}

void readServerNames(Session& session) {
    session.gServerName = GetSetting(session, "Server");
    session.gCatalogName = GetSetting(session, "Catalog");
}

std::string pseudoPath(const Session& session) {
    return "\\\\" + session.gServerName + "\\Data\\" + session.gCatalogName + ".xxx";
}

// The connection text of a database that the clerk chose in the file dialog, see PickDatabase.
void openFile(Session& session, const std::string& path) {
    SaveSetting(session, "DBSPath", path);
    if (isOpen(session))
        session.gConnection->Close();
    session.gDBPath = path;
    session.gConnection = std::make_shared<ado::Connection>();
    DatabaseLocator& locator = session.suite.locator();
    const std::string user = locator.UserName();
    const std::string password = locator.Password();
    locator.OpenDesktop(session, session.gDBPath, user, password, session.gMinDBVersion + "," + session.gAppVersion,
                        moduleKey);
    if (auto connection = locator.GetConnection())
        session.adopt(std::move(connection));
}

} // namespace

bool OpenServerDB(Session& session, bool bAsk) {
    if (bAsk) {
        session.gServerName.clear();
        session.gCatalogName.clear();
    } else if (session.gServerName.empty() || session.gCatalogName.empty()) {
        readServerNames(session);
    }
    session.gConnection = std::make_shared<ado::Connection>();
    DatabaseLocator& locator = session.suite.locator();
    session.gConnectResult = locator.OpenServer(session, moduleKey, FixPath(session.app.Path) + "zel.ini",
                                                session.gServerName, session.gCatalogName);
    if (session.gConnectResult.empty())
        return false;
    if (auto connection = locator.GetConnection())
        session.adopt(std::move(connection));
    if (!isOpen(session)) {
        session.dialogs.message("Could not open the Korvan database...Closing ZEL!", session.title(": No Connection"),
                                forms::Buttons::OK, forms::Icon::Critical);
        CloseApp(session);
        return false;
    }
    SaveSetting(session, "Server", session.gServerName);
    SaveSetting(session, "Catalog", session.gCatalogName);
    session.gDBPath = session.gServerName == DatabaseLocator::fileServer ? session.gCatalogName : pseudoPath(session);
    return true;
}

void OpenDesktopDB(Session& session, std::string path) {
    if (path.empty())
        return;
    if (!session.files.fileExists(path)) {
        path = ordinaryDatabase(session);
        if (!session.files.fileExists(path)) {
            PickDatabase(session); // opens what was picked
            return;
        }
    }
    if (session.gPickCancelled)
        return;
    openFile(session, path);
}

std::string PickDatabase(Session& session, const std::string& hint) {
    if (!hint.empty() && session.files.fileExists(hint))
        return hint;
    auto* refs = session.forms.get<frmRefs>("frmRefs");
    if (refs == nullptr)
        return {};
    SetOnTop(*refs);
    for (;;) {
        std::string path = refs->askForDatabase();
        if (path.empty()) {
            session.gPickCancelled = true;
            return {};
        }
        if (session.files.fileExists(path)) {
            OpenDesktopDB(session, path);
            return path;
        }
    }
}

std::string repairedDatabasePath(Session& session, const std::string& saved) {
    std::string path = saved;
    if (path.empty() || !session.files.fileExists(path))
        path = ordinaryDatabase(session);
    if (!session.files.fileExists(path)) {
        session.gDBPath.clear();
        return PickDatabase(session); // opens it, and has written DBSPath
    }
    session.gDBPath = path;
    OpenDesktopDB(session, path); // writes DBSPath
    return path;
}

bool IsDbError(std::int32_t number) noexcept {
    const auto known = [](std::int32_t candidate) {
        return candidate == 3639 || candidate == 3661 || candidate == 3604 || candidate == 16389;
    };
    return known(number) || known(number & 0xFFFF);
}

} // namespace zel::core
