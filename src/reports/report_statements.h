#pragma once

#include "ado/sql.h"

#include <cstdint>
#include <string>

namespace zel::reports {

/// What GetSQLRS is given beside the number. A number that is left out is 0, which no report takes for a key.
struct ReportValues {
    std::int32_t ReportRun = 0;
    /// "R" by request number, "P" by name, anything else by excess hours.
    std::string SortField = {};
    std::string StartDate = {}, EndDate = {};
    double MinValue = 0;
    std::int32_t ContractorID = 0, EquipmentID = 0, ResourceID = 0;
    bool ContCrew = false;
    bool FinalFlag = false;
    double DebitTotal = 0, AdditionTotal = 0;
};

/// What is selected in the program. A key below 1 is none.
struct Selection {
    std::int32_t IncidentID = -1;
    bool ManageAll = false;
    std::int32_t PersonID = -1, ResourceID = -1;
};

/// What a report reads and which layout shows it.
struct ReportStatements {
    ado::Sql sqlRpt, sqlRptSub;
    std::string title, layout;
    /// The value that is missing, in the words of the box. Nothing is composed then.
    std::string refusal;
    /// The report ends without a word, since no run was named.
    bool silent = false;
};

/// Whether the number is one that statements are composed for.
[[nodiscard]] bool isComposedReport(int number);

/// Composes the statements of a report; without a report of that number they are empty.
[[nodiscard]] ReportStatements composeReport(int number, const ReportValues& values, const Selection& selection);

} // namespace zel::reports
