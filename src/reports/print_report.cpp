#include "reports/print_report.h"

#include "ado/convert.h"
#include "core/failure.h"
#include "core/screen.h"
#include "core/session.h"
#include "core/suite.h"
#include "forms/dialogs.h"
#include "platform/files.h"
#include "platform/processes.h"

#include <utility>

namespace zel::reports {

namespace {

void showInternally(core::Session& session, modRpt& engine, const Viewer& show, int ReportNumber) {
    if (!engine.GetSQLRS(ReportNumber))
        return;
    if (show)
        core::guarded(session, [&] { show(engine, engine.title, false); });
    else
        core::writeLog(session, "This program has no viewer for the report " + engine.title + ".");
}

// The argument tells of a server only. Which file is open, and whose layouts are meant, goes beside it.
void startTablon(core::Session& session, const std::string& program, const std::string& argument) {
    core::guarded(session, [&] {
        if (!session.processes.start(program, {argument},
                                     {{"ZEL_HOME", session.app.Path}, {"ZEL_DATABASE", session.gDBPath}}))
            throw platform::FileError(platform::errors::accessDenied, program + " cannot be started.");
    });
}

} // namespace

std::string tablonArgument(core::Session& session, int ReportNumber, const std::string& Option, bool flag) {
    const auto& locator = session.suite.locator();
    const std::string parts[] = {std::to_string(session.gIncidentID),
                                 std::to_string(ReportNumber),
                                 std::string(ado::trim(Option)),
                                 session.gServerName + "/" + session.gCatalogName,
                                 locator.UserName(),
                                 locator.Password(),
                                 ado::toText(ado::Value(session.gServerDialect)),
                                 ado::toText(ado::Value(session.gManageAll)),
                                 ado::toText(ado::Value(flag))};
    std::string joined;
    for (const std::string& part : parts)
        joined += (&part == parts ? "" : ",") + part;
    return joined;
}

void PrintReport(core::Session& session, modRpt& engine, const Viewer& show, int ReportNumber, std::string Option,
                 bool flag) {
    if (Option.empty())
        Option = "0";
    const std::string program = session.files.actualPath(platform::FixPath(session.app.Path) + "reports/Tablon.exe");
    if (!session.files.fileExists(program)) {
        session.dialogs.message("Korvan Reporting module not found.\r\nPlease install Tablon!",
                                session.title(": Tablon"), forms::Buttons::OK, forms::Icon::Critical);
        return;
    }
    if (ReportNumber == 2 || (ReportNumber == 11 && session.gServerDialect))
        showInternally(session, engine, show, ReportNumber);
    else if (ReportNumber != 11)
        startTablon(session, program, tablonArgument(session, ReportNumber, Option, flag));
}

void connectReports(core::Session& session, Viewer show) {
    const auto engine = std::make_shared<modRpt>(session);
    session.extensions.PrintReport = [&session, engine, show](int number, const std::string& option) {
        PrintReport(session, *engine, show, number, option);
    };
    session.extensions.printCrewRoster = [&session, engine, show = std::move(show)] {
        showInternally(session, *engine, show, 12);
    };
}

} // namespace zel::reports
