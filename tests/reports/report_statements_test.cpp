#include "reports/report_statements.h"

#include "statement_catalogue.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>

namespace zel::reports {
namespace {

std::string catalogued(const std::string& name) {
    static const test::Catalogue catalogue = test::readCatalogue();
    for (const test::CatalogueEntry& entry : catalogue.entries) {
        if (entry.name == name)
            return entry.both;
    }
    return "no entry " + name;
}

struct StatementCase {
    const char* name;
    int number;
    ReportValues values;
    Selection selection;
    bool second = false;
};

void PrintTo(const StatementCase& given, std::ostream* stream) {
    *stream << given.name;
}

class ReportStatementTest : public ::testing::TestWithParam<StatementCase> {};

TEST_P(ReportStatementTest, IsTheOneInTheCatalogueToTheLetter) {
    const StatementCase& given = GetParam();
    const ReportStatements made = composeReport(given.number, given.values, given.selection);
    EXPECT_EQ((given.second ? made.sqlRptSub : made.sqlRpt).text(), catalogued(given.name));
    EXPECT_EQ(made.refusal, "");
}

constexpr Selection one{1, false, -1, -1}, all{1, true, -1, -1}, person{1, false, 201, -1}, crew{1, false, -1, 101};

ReportValues run(const char* sort) {
    ReportValues values;
    values.ReportRun = 1;
    values.SortField = sort;
    return values;
}

ReportValues keys(std::int32_t contractor, std::int32_t equipment, std::int32_t resource, bool contCrew) {
    ReportValues values;
    values.ContractorID = contractor;
    values.EquipmentID = equipment;
    values.ResourceID = resource;
    values.ContCrew = contCrew;
    return values;
}

INSTANTIATE_TEST_SUITE_P(Hours, ReportStatementTest,
                         ::testing::Values(StatementCase{"work and rest by request number", 1, run("R"), one},
                                           StatementCase{"work and rest by name", 1, run("P"), one},
                                           StatementCase{"work and rest by excess hours", 1, run("X"), one},
                                           StatementCase{"excess hours by request number", 5, run("R"), one},
                                           StatementCase{"excess hours by name", 5, run("P"), one},
                                           StatementCase{"excess hours by excess hours", 5, run(""), one}));

INSTANTIATE_TEST_SUITE_P(
    Persons, ReportStatementTest,
    ::testing::Values(
        StatementCase{"commissary charges by date", 2, {}, one},
        StatementCase{"commissary charges by date, all incidents", 2, {}, all},
        StatementCase{"summary of hours of a person", 3, {}, person}, StatementCase{"summary of hours", 3, {}, one},
        StatementCase{"summary of hours, all incidents", 3, {}, all},
        StatementCase{"debits in the summary of hours", 3, {}, person, true},
        StatementCase{"debits in the summary of hours, incident", 3, {}, one, true},
        StatementCase{"time report of a resource", 6, {}, Selection{1, false, 201, 101}},
        StatementCase{"time report of a person", 6, {}, person}, StatementCase{"time report", 6, {}, one},
        StatementCase{"time report, all incidents", 6, {}, all},
        StatementCase{"debits in the time report of a resource", 6, {}, crew, true},
        StatementCase{"debits in the time report of a person", 6, {}, person, true},
        StatementCase{"debits in the time report", 6, {}, one, true},
        StatementCase{"commissary authorization, person", 9, {}, Selection{1, false, 201, 101}},
        StatementCase{"commissary authorization, crew", 9, {}, crew},
        StatementCase{"commissary authorization, all", 9, {}, one}, StatementCase{"crew roster", 12, {}, crew},
        StatementCase{"commissary detail, person", 13, {}, Selection{1, false, 201, 101}},
        StatementCase{"commissary detail, crew", 13, {}, crew}, StatementCase{"commissary detail, all", 13, {}, one}));

INSTANTIATE_TEST_SUITE_P(
    Contracts, ReportStatementTest,
    ::testing::Values(StatementCase{"payment summary of a contractor, all incidents", 4, keys(301, 0, 0, false), all},
                      StatementCase{"payment summary of a contractor", 4, keys(301, 0, 0, false), one},
                      StatementCase{"payment summary", 4, {}, one},
                      StatementCase{"payment summary, all incidents", 4, {}, all},
                      StatementCase{"use invoice of a contract crew", 7, keys(0, 0, 104, true), one},
                      StatementCase{"use invoice of a contract crew, all incidents", 7, keys(0, 0, 104, true), all},
                      StatementCase{"use invoice of equipment", 7, keys(0, 401, 0, false), one},
                      StatementCase{"use invoice of equipment, all incidents", 7, keys(0, 401, 0, false), all},
                      StatementCase{"contractor debits", 8, keys(301, 0, 0, false), one},
                      StatementCase{"contractor debits, all incidents", 8, keys(301, 0, 0, false), all},
                      StatementCase{"equipment management", 11, {}, one},
                      StatementCase{"equipment management, all incidents", 11, {}, all},
                      StatementCase{"deductions and additions of a contract crew", 14, keys(0, 0, 104, true), one},
                      StatementCase{"deductions and additions of equipment", 14, keys(0, 401, 0, false), one}));

TEST(ReportRefusalTest, AMissingValueIsNamedAndNothingIsComposed) {
    struct Missing {
        int number;
        ReportValues values;
        const char* word;
    };
    for (const Missing& missing :
         {Missing{7, keys(0, 401, 0, true), "No ResourceID"}, Missing{7, keys(0, 0, 104, false), "No EquipmentID"},
          Missing{8, {}, "No Contractor Selected"}, Missing{12, {}, "No Crew Selected"},
          Missing{14, keys(0, 401, 0, true), "No ResourceID"}, Missing{14, keys(0, 0, 104, false), "No EquipmentID"}}) {
        const ReportStatements made = composeReport(missing.number, missing.values, one);
        EXPECT_EQ(made.refusal, missing.word) << missing.number;
        EXPECT_TRUE(made.sqlRpt.empty()) << missing.number;
    }
}

TEST(ReportTitleTest, EveryReportHasItsTitleAndLayout) {
    struct Named {
        int number;
        bool contCrew;
        const char *title, *layout;
    };
    for (const Named& named :
         {Named{1, false, "Work/Rest", "WorkRest"}, Named{2, false, "Commissary Charges By Date", "CommissaryCharges"},
          Named{3, false, "Summary of Hours Worked", "SummHours"},
          Named{4, false, "Payment Summary of Equipment Usage", "SummContractor"},
          Named{5, false, "Hours in Excess of Standard", "ExcessHours"}, Named{6, false, "OF-288", "OF288"},
          Named{7, false, "OF-286", "OF286"}, Named{7, true, "OF-286 Contract Crew", "OF286"},
          Named{8, false, "Contractor Debits", "ContractorDebits"},
          Named{9, false, "Commissary Authorization", "CommAuthorization"},
          Named{11, false, "Equipment Management", "EquipMgmt"}, Named{12, false, "Crew Roster", "CrewRoster"},
          Named{13, false, "Commissry Detail", "CommissaryDetail"},
          Named{14, false, "Equipment Deductions & Additions", "EquipDeductions"},
          Named{14, true, "Contract Crew Deductions & Additions", "EquipDeductions"}}) {
        ReportValues values;
        values.ContCrew = named.contCrew;
        const ReportStatements made = composeReport(named.number, values, one);
        EXPECT_EQ(made.title, named.title);
        EXPECT_EQ(made.layout, named.layout);
    }
}

} // namespace
} // namespace zel::reports
