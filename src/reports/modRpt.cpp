#include "reports/modRpt.h"

#include "core/failure.h"
#include "core/modData.h"
#include "core/session.h"
#include "forms/dialogs.h"
#include "platform/files.h"

namespace zel::reports {

using forms::Buttons;
using forms::Icon;

printing::Layout OpenLayout::parsed() const {
    try {
        return printing::parseLayout(text);
    } catch (const printing::LayoutError& error) {
        throw platform::FileError(platform::errors::invalidFormat,
                                  "The layout " + name + ".rpt has an error in " + error.what() + ".");
    }
}

void modRpt::closeAll() {
    for (auto* records : {&rsRpt, &rsRptSub}) {
        if (*records)
            core::RSClose(**records, session.dialogs, session.app.Title);
        *records = std::make_unique<ado::Recordset>();
    }
    crxReport.reset();
}

bool modRpt::accepted(int number) {
    if (!session.gManageAll && session.gIncidentID < 1) {
        session.dialogs.message("Cannot find current incident.", session.title(": Cannot Print Selection"), Buttons::OK,
                                Icon::Information);
        return false;
    }
    if (!isComposedReport(number)) {
        session.dialogs.message("No Report Identified to Create SQL For", "Modulerpts.GetSQL", Buttons::OK,
                                Icon::Critical);
        sqlRpt = {};
        return false;
    }
    return true;
}

bool modRpt::composed(int number, const ReportValues& values) {
    ReportStatements made =
        composeReport(number, values,
                      {session.gIncidentID, session.gManageAll, session.gCurrentPersonID, session.gCurrentResourceID});
    sqlRpt = made.sqlRpt;
    sqlRptSub = made.sqlRptSub;
    title = made.title;
    layout_ = made.layout;
    if (made.silent)
        return false;
    if (!made.refusal.empty()) {
        session.dialogs.message(made.refusal, session.title(": GetSQLRS"), Buttons::OK, Icon::Information);
        return false;
    }
    if (sqlRpt.empty()) {
        session.dialogs.message("Invalid Report. (sqlRpt not set)", "Modulerpts.GetSQL", Buttons::OK, Icon::Critical);
        return false;
    }
    return true;
}

void modRpt::openLayout(const std::string& name) {
    const std::string path = session.files.actualPath(platform::FixPath(session.app.Path) + "Reports/" + name + ".rpt");
    const std::optional<std::string> text = session.files.read(path);
    if (!text)
        throw platform::FileError(platform::errors::fileNotFound, "The layout " + path + " cannot be read.");
    crxReport = std::make_unique<OpenLayout>(OpenLayout{name, *text, {}});
}

void modRpt::setParameters(int number, const ReportValues& values) {
    auto& parameters = crxReport->parameters;
    if (number == 1 || number == 5) {
        parameters["StartDate"] = values.StartDate;
        parameters["EndDate"] = values.EndDate;
        parameters["SortField"] = values.SortField;
    }
    if (number == 5)
        parameters["MinValue"] = values.MinValue;
    if (number == 6)
        parameters["FinalFlag"] = values.FinalFlag;
    if (number == 7) {
        parameters["DebitTotal"] = values.DebitTotal;
        parameters["AdditionTotal"] = values.AdditionTotal;
        parameters["ContCrew"] = values.ContCrew;
    }
}

void modRpt::openRecords() {
    rsRpt->Open(sqlRpt, session.connection(), ado::CursorType::Static, ado::LockType::Optimistic);
    if (!sqlRptSub.empty())
        rsRptSub->Open(sqlRptSub, session.connection(), ado::CursorType::Static, ado::LockType::Optimistic);
}

bool modRpt::GetSQLRS(int ReportNumber, const ReportValues& values) {
    const bool opened = core::guarded(session, [&] { closeAll(); });
    if (!opened || !accepted(ReportNumber) || !composed(ReportNumber, values))
        return false;
    const bool ready = core::guarded(session, [&] {
        openLayout(layout_);
        setParameters(ReportNumber, values);
        openRecords();
    });
    if (!ready)
        closeAll();
    return ready;
}

printing::ReportData modRpt::data(const printing::Layout& layout) {
    if (!layout.sort.empty())
        rsRpt->setSort(layout.sort);
    printing::ReportData data;
    data.main = printing::Rows::of(*rsRpt);
    if (rsRptSub->State() == ado::stateOpen)
        data.subreport = printing::Rows::of(*rsRptSub);
    data.parameters = crxReport->parameters;
    return data;
}

} // namespace zel::reports
