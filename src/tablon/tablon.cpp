#include "tablon/tablon.h"

#include "ado/convert.h"
#include "ado/recordset.h"
#include "core/failure.h"
#include "core/settings.h"
#include "core/suite.h"
#include "suite/open_engine.h"
#include "tablon/time_report.h"

#include <utility>

namespace zel::tablon {

namespace {

using forms::Icon;

constexpr int timeReport = 6, commissaryAuthorization = 9, crewRoster = 12;
/// Clerks who post while the report is read make it read again; more than a few times is no chance meeting.
constexpr int patience = 5;

core::App appIn(const std::string& home) {
    core::App app;
    app.Title = "Tablon";
    app.Path = home;
    app.EXEName = "Tablon";
    return app;
}

std::map<std::string, std::string> kindsOf(ado::Connection& connection) {
    std::map<std::string, std::string> kinds;
    ado::Recordset rows;
    rows.Open("SELECT KindCode, KindDesc FROM L_Kind", connection);
    for (std::int64_t position = 1; position <= rows.RecordCount(); ++position)
        kinds[ado::upperCase(ado::toText(rows.valueAt(position, 0)))] = ado::toText(rows.valueAt(position, 1));
    return kinds;
}

/// As it stands in a file's name: "P12", "R5", "all".
std::string nameOf(const Request& request) {
    if (request.whose == Whose::All)
        return "all";
    return (request.whose == Whose::Person ? "P" : "R") + std::to_string(request.key);
}

std::string nothingOf(const Request& request) {
    const std::string what = request.report == timeReport ? "no posted hours" : "nobody";
    const std::string key = std::to_string(request.key);
    if (request.whose == Whose::All)
        return "There " + std::string(request.report == timeReport ? "are " : "is ") + what + " to print.";
    if (request.report == timeReport)
        return (request.whose == Whose::Person ? "Person " : "Resource ") + key + " has " + what + " to print.";
    return request.whose == Whose::Person ? "There is no person " + key + " to print."
                                          : "Resource " + key + " has " + what + " to print.";
}

} // namespace

Tablon::Tablon(Surroundings surroundings, forms::Dialogs& dialogs)
    : surroundings_(std::move(surroundings)), forms_(dialogs, timers_),
      session_(appIn(surroundings_.home), {forms_, dialogs, clock_, files_, processes_, suite_}) {}

Outcome Tablon::tell(Outcome outcome, const std::string& text, Icon icon) {
    session_.dialogs.message(text, session_.title(": Report"), forms::Buttons::OK, icon);
    return outcome;
}

Outcome Tablon::run(const std::string& argument) {
    Outcome outcome = Outcome::Failed;
    core::guarded(
        session_,
        [&] {
            try {
                outcome = carryOut(parseRequest(argument));
            } catch (const RequestError& failure) {
                outcome = tell(Outcome::BadArgument, failure.what(), Icon::Critical);
            }
        },
        ": Report", Icon::Critical);
    return outcome;
}

Outcome Tablon::carryOut(const Request& request) {
    if (request.report != timeReport && request.report != commissaryAuthorization && request.report != crewRoster)
        return tell(Outcome::NotInThisBuild,
                    "Report " + std::to_string(request.report) + " is not part of this build of the reporting program.",
                    Icon::Information);
    open(request);
    select(request);
    return request.report == timeReport ? printTimeReport(request) : printPlain(request);
}

void Tablon::select(const Request& request) {
    session_.gIncidentID = request.incident;
    session_.gManageAll = request.manageAll;
    session_.gCurrentPersonID = request.whose == Whose::Person ? request.key : -1;
    session_.gCurrentResourceID = request.whose == Whose::Resource ? request.key : -1;
}

std::string Tablon::databaseFile() {
    if (!surroundings_.database.empty())
        return files_.actualPath(surroundings_.database);
    std::string path = core::IniGet(files_, core::FixPath(surroundings_.home) + "zel.ini", "ZEL", "DBSPath", "");
    if (path.empty() || !files_.fileExists(path))
        path = core::folderAbove(surroundings_.home) + "database/Korvan.mdb";
    return files_.actualPath(path);
}

void Tablon::open(const Request& request) {
    session_.gServerDialect = request.serverDialect;
    session_.gServerName = request.serverDialect ? request.server : core::DatabaseLocator::fileServer;
    session_.gCatalogName = request.serverDialect ? request.catalog : databaseFile();
    session_.adopt(std::make_shared<ado::Connection>(
        suite::openEngine(session_.gServerName, session_.gCatalogName, {request.user, request.password})));
}

std::optional<Tablon::TimeReport> Tablon::readTimeReport(reports::modRpt& engine, const Request& request) {
    reports::ReportValues values;
    values.FinalFlag = request.flag;
    for (int attempt = 0; attempt < patience; ++attempt) {
        if (!engine.GetSQLRS(timeReport, values))
            return std::nullopt;
        TimeReport report;
        report.layout = engine.crxReport->parsed();
        report.data = engine.data(report.layout);
        if (report.data.main.rows.empty())
            return report;
        report.postings = readPostings(session_.connection(), request);
        if (!misplaced(report.postings).empty())
            arrangeColumns(session_.connection(), request);
        else if (showsAsTheyAre(report.data.main, report.postings))
            return report;
    }
    tell(Outcome::Failed, "Hours are being posted for these people just now. Please print again.", Icon::Exclamation);
    return std::nullopt;
}

Outcome Tablon::print(const Request& request, const reports::modRpt& engine, const printing::Layout& layout,
                      const printing::ReportData& data) {
    surroundings_.print(engine.title + " " + nameOf(request), engine.title, layout, printing::makePages(layout, data));
    return Outcome::Printed;
}

Outcome Tablon::printPlain(const Request& request) {
    reports::modRpt engine(session_);
    if (!engine.GetSQLRS(request.report))
        return Outcome::Failed;
    const printing::Layout layout = engine.crxReport->parsed();
    const printing::ReportData data = engine.data(layout);
    if (data.main.rows.empty())
        return tell(Outcome::NothingToPrint, nothingOf(request), Icon::Information);
    return print(request, engine, layout, data);
}

Outcome Tablon::printTimeReport(const Request& request) {
    reports::modRpt engine(session_);
    std::optional<TimeReport> report = readTimeReport(engine, request);
    if (!report)
        return Outcome::Failed;
    tellOfPostingsWithoutAccount(request);
    if (report->data.main.rows.empty())
        return tell(Outcome::NothingToPrint, nothingOf(request), Icon::Information);
    addTimeReportFields(report->data.main, report->postings, kindsOf(session_.connection()));
    return print(request, engine, report->layout, report->data);
}

/// The form's statement leaves them out, and nobody may be paid short without a word.
void Tablon::tellOfPostingsWithoutAccount(const Request& request) {
    const std::vector<std::string> people = peopleWithoutAccount(session_.connection(), request);
    if (people.empty())
        return;
    std::string text = "Postings without an account code are not on the form:";
    for (const std::string& person : people)
        text += "\r\n" + person;
    tell(Outcome::Printed, text, Icon::Exclamation);
}

} // namespace zel::tablon
