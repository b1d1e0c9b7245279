#pragma once

#include "ado/recordset.h"
#include "ado/value.h"
#include "printing/layout.h"
#include "printing/pages.h"
#include "reports/report_statements.h"

#include <map>
#include <memory>
#include <string>

namespace zel::core {
class Session;
}

namespace zel::reports {

/// A layout that was opened, with the values of its parameter fields. The text is a copy: the file is free at once.
struct OpenLayout {
    std::string name, text;
    std::map<std::string, ado::Value> parameters;

    /// Throws platform::FileError, which names the layout, the line and the column.
    [[nodiscard]] printing::Layout parsed() const;
};

/// The state of the report engine: what the last report read, and the layout that shows it. One for each session.
class modRpt {
public:
    explicit modRpt(core::Session& state) : session(state) {}

    ado::Sql sqlRpt, sqlRptSub;
    std::unique_ptr<ado::Recordset> rsRpt, rsRptSub;
    std::unique_ptr<OpenLayout> crxReport;
    std::string title;

    /// Composes the report's statements, opens its layout and its record sets. True when they are ready; every refusal
    /// and every failure is shown in a box, and leaves nothing open.
    bool GetSQLRS(int ReportNumber, const ReportValues& values = {});
    /// What a layout shows of the report that is ready, its rows in the order that the layout asks for.
    [[nodiscard]] printing::ReportData data(const printing::Layout& layout);

private:
    bool accepted(int number);
    bool composed(int number, const ReportValues& values);
    void openLayout(const std::string& name);
    void setParameters(int number, const ReportValues& values);
    void openRecords();
    void closeAll();

    core::Session& session;
    std::string layout_;
};

} // namespace zel::reports
