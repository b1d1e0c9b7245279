#include "reports/modRpt.h"

#include "support/test_session.h"

#include <gmock/gmock.h>

namespace zel::reports {
namespace {

using testing::IsEmpty;
using testing::SizeIs;

class GetSQLRSTest : public test::SessionTest {
protected:
    GetSQLRSTest() : engine(session()) { session().gIncidentID = 1; }
    void putLayout(const std::string& name) {
        program().files.makeFolder((program().folder / "Reports").string());
        program().files.write((program().folder / "Reports" / (name + ".rpt")).string(), "layout of " + name);
    }
    /// The report is refused with this one box, and nothing is open.
    void expectRefused(int number, const std::string& title, const std::string& text, const std::string& icon) {
        EXPECT_FALSE(engine.GetSQLRS(number));
        const auto shown = boxes();
        ASSERT_THAT(shown, SizeIs(1));
        EXPECT_EQ(shown[0].title, title);
        EXPECT_EQ(shown[0].text, text);
        EXPECT_EQ(shown[0].icon, icon);
        EXPECT_EQ(engine.rsRpt->State(), ado::stateClosed);
        EXPECT_EQ(engine.crxReport, nullptr);
    }
    modRpt engine;
};
ZEL_ON_BOTH_ENGINES(GetSQLRSTest);

TEST_P(GetSQLRSTest, WithoutAnIncidentNothingIsPrintedUnlessAllAreManagedAsOne) {
    session().gIncidentID = 0;
    expectRefused(2, "ZEL: Cannot Print Selection", "Cannot find current incident.", "information");
    session().gManageAll = true;
    putLayout("CommissaryCharges");
    EXPECT_TRUE(engine.GetSQLRS(2));
    EXPECT_THAT(boxes(), IsEmpty());
}

TEST_P(GetSQLRSTest, AnUnknownNumberIsRefusedAndTheStatementEmptied) {
    putLayout("CommissaryCharges");
    ASSERT_TRUE(engine.GetSQLRS(2));
    for (const int number : {0, 10, 15}) {
        expectRefused(number, "Modulerpts.GetSQL", "No Report Identified to Create SQL For", "critical");
        EXPECT_EQ(engine.sqlRpt.text(), "");
    }
}

TEST_P(GetSQLRSTest, AMissingValueIsNamed) {
    expectRefused(7, "ZEL: GetSQLRS", "No EquipmentID", "information");
    expectRefused(8, "ZEL: GetSQLRS", "No Contractor Selected", "information");
    expectRefused(12, "ZEL: GetSQLRS", "No Crew Selected", "information");
    expectRefused(14, "ZEL: GetSQLRS", "No EquipmentID", "information");
}

TEST_P(GetSQLRSTest, TheHoursReportsEndSilentlyWithoutARun) {
    EXPECT_FALSE(engine.GetSQLRS(1));
    EXPECT_FALSE(engine.GetSQLRS(5));
    EXPECT_THAT(boxes(), IsEmpty());
    EXPECT_EQ(engine.rsRpt->State(), ado::stateClosed);
}

TEST_P(GetSQLRSTest, ALayoutThatIsNotThereIsToldAndNothingIsRead) {
    const auto sent = statementsOf([&] { EXPECT_FALSE(engine.GetSQLRS(2)); });
    EXPECT_THAT(sent, IsEmpty());
    const auto shown = boxes();
    ASSERT_THAT(shown, SizeIs(1));
    EXPECT_EQ(shown[0].title, "ZEL: Error");
    EXPECT_THAT(shown[0].text, testing::StartsWith("Error: 53 Desc: The layout "));
}

TEST_P(GetSQLRSTest, TheSummaryOfHoursOfAnIncidentFailsInTheDatabaseWithTheBox) {
    putLayout("SummHours");
    EXPECT_FALSE(engine.GetSQLRS(3));
    EXPECT_THAT(boxes(), SizeIs(1));
    EXPECT_EQ(engine.rsRpt->State(), ado::stateClosed);
    EXPECT_EQ(engine.crxReport, nullptr);
}

TEST_P(GetSQLRSTest, TheTimeReportOpensBothSourcesAndItsParameter) {
    putLayout("OF288");
    session().gCurrentPersonID = 5;
    ReportValues values;
    values.FinalFlag = true;
    const auto sent = statementsOf([&] { ASSERT_TRUE(engine.GetSQLRS(6, values)); });
    EXPECT_THAT(sent, testing::ElementsAre(engine.sqlRpt.text(), engine.sqlRptSub.text()));
    EXPECT_EQ(engine.rsRpt->RecordCount(), 0);
    EXPECT_EQ(engine.rsRptSub->RecordCount(), 0);
    EXPECT_EQ(engine.crxReport->text, "layout of OF288");
    EXPECT_EQ(engine.crxReport->parameters, (std::map<std::string, ado::Value>{{"FinalFlag", true}}));
    EXPECT_EQ(engine.title, "OF-288");
}

TEST_P(GetSQLRSTest, TheHoursReportsHandTheirRangeToTheLayout) {
    putLayout("WorkRest");
    putLayout("ExcessHours");
    ReportValues values;
    values.ReportRun = 3;
    values.SortField = "R";
    values.StartDate = "7/1/2005";
    values.EndDate = "7/4/2005";
    values.MinValue = 1.5;
    ASSERT_TRUE(engine.GetSQLRS(1, values));
    EXPECT_EQ(
        engine.crxReport->parameters,
        (std::map<std::string, ado::Value>{{"StartDate", "7/1/2005"}, {"EndDate", "7/4/2005"}, {"SortField", "R"}}));
    ASSERT_TRUE(engine.GetSQLRS(5, values));
    EXPECT_EQ(engine.crxReport->parameters.at("MinValue"), ado::Value(1.5));
}

TEST_P(GetSQLRSTest, TheInvoiceHandsItsTotalsToTheLayout) {
    putLayout("OF286");
    ReportValues values;
    values.ResourceID = 104;
    values.ContCrew = true;
    values.DebitTotal = 250.75;
    values.AdditionTotal = 50;
    ASSERT_TRUE(engine.GetSQLRS(7, values));
    EXPECT_EQ(engine.crxReport->parameters,
              (std::map<std::string, ado::Value>{{"DebitTotal", 250.75}, {"AdditionTotal", 50.0}, {"ContCrew", true}}));
}

} // namespace
} // namespace zel::reports
