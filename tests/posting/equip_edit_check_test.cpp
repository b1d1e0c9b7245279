#include "ado/convert.h"
#include "forms/adodc.h"
#include "forms/tdb_grid.h"
#include "forms/user.h"
#include "posting/grid_edit_checks.h"
#include "posting/modMath.h"
#include "support/test_session.h"

#include <gmock/gmock.h>

#include <optional>

namespace zel::posting {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A grid over the posts of one piece of equipment, with the check of its times on every cell.
class EquipGridTest : public test::SessionTest {
protected:
    EquipGridTest() {
        session().gEquipTabOpen = true;
        execute("Insert into ContractorPost (ContractorPostID,EquipmentID,ResourceID,ActivityDT,StartTime,StopTime,"
                "Units,Rate,Amt,GuarAmt,SStartTime,SStopTime,SUnits,SRate,SAmt) Values (1,5,6,'7/4/2005','1899-12-30 "
                "8:00:00 AM','1899-12-30 12:00:00 PM',4,20,80,350,'1899-12-30 1:00:00 PM','1899-12-30 2:00:00 PM',1,30,"
                "30)");
        for (const auto& [caption, field] :
             {std::pair("ContractorPostID", "ContractorPostID"), std::pair("EquipmentID", "EquipmentID"),
              std::pair("ResourceID", "ResourceID"), std::pair("Date", "ActivityDT"), std::pair("Start", "StartTime"),
              std::pair("Stop", "StopTime"), std::pair("Units", "Units"), std::pair("Rate", "Rate"),
              std::pair("Amt", "Amt"), std::pair("Guarantee", "GuarAmt"), std::pair("SStart", "SStartTime"),
              std::pair("SStop", "SStopTime"), std::pair("SUnits", "SUnits"), std::pair("SRate", "SRate"),
              std::pair("SAmt", "SAmt")})
            grid_.addColumn(caption, field);
        for (const char* time : {"Start", "Stop", "SStart", "SStop"})
            grid_.Columns(time).setNumberFormat("HH:mm");
        data_.setConnection(session().connection());
        data_.setRecordSource("Select * from ContractorPost where ContractorPostID = 1");
        data_.Refresh();
        grid_.bind(data_);
        form_.Show();
        grid_.BeforeColUpdate = [this](int, const ado::Value&, bool& cancel) {
            stood_ = CheckEquipPostEdit(session(), grid_, mode_, [this](const EquipSplit& split) {
                split_ = split;
                return true;
            });
            cancel = !stood_;
        };
    }
    bool edit(const std::string& column, const std::string& text) {
        mode_ = column.starts_with("SSt") ? "Special" : "Primary";
        EXPECT_EQ(user_.row(grid_, 0).refusal, "");
        EXPECT_EQ(user_.editCell(grid_, 0, column, text).refusal, "");
        (void)user_.commitRow(grid_);
        return stood_;
    }
    std::vector<std::string> primary() { return rows("Select StartTime,StopTime,Units,Rate,Amt from ContractorPost"); }
    std::vector<std::string> special() {
        return rows("Select SStartTime,SStopTime,SUnits,SRate,SAmt from ContractorPost where ContractorPostID = 1");
    }
    void addRow(const std::string& columns, const std::string& times) {
        execute("Insert into ContractorPost (ContractorPostID,EquipmentID,ResourceID,ActivityDT," + columns +
                ") Values (2,5,6,'7/4/2005'," + times + ")");
    }

    forms::Form form_{program().forms, "frmGrid"};
    forms::Adodc data_{form_, "AdoPost"};
    forms::TDBGrid grid_{form_, "dbgPostEquipment"};
    forms::User user_{program().forms};
    std::string mode_;
    bool stood_ = false;
    std::optional<EquipSplit> split_; // what the split writer was told
};
ZEL_ON_BOTH_ENGINES(EquipGridTest);

TEST_P(EquipGridTest, ANewStopGivesUnitsAndAnAmountWithoutAThreshold) {
    EXPECT_TRUE(edit("Stop", "18:07"));
    EXPECT_THAT(boxes(), IsEmpty());
    EXPECT_THAT(primary(), ElementsAre("8:00:00 AM|6:00:00 PM|10|20|200"));
    EXPECT_THAT(special(), ElementsAre("1:00:00 PM|2:00:00 PM|1|30|30"));
}

TEST_P(EquipGridTest, TheSpecialTimesHaveColumnsOfTheirOwn) {
    EXPECT_TRUE(edit("SStop", "15:00"));
    EXPECT_THAT(special(), ElementsAre("1:00:00 PM|3:00:00 PM|2|30|60"));
    EXPECT_THAT(primary(), ElementsAre("8:00:00 AM|12:00:00 PM|4|20|80"));
}

TEST_P(EquipGridTest, AnEmptyRateIsPaidAsNone) {
    execute("Update ContractorPost set Rate = null");
    data_.Refresh();
    EXPECT_TRUE(edit("Stop", "14:00"));
    EXPECT_THAT(primary(), ElementsAre("8:00:00 AM|2:00:00 PM|6|0|0"));
}

TEST_P(EquipGridTest, AClashNamesTheResourceAndRefuses) {
    addRow("StartTime,StopTime", "'1899-12-30 2:00:00 PM','1899-12-30 4:00:00 PM'");
    EXPECT_FALSE(edit("Stop", "15:00"));
    const auto shown = boxes();
    ASSERT_EQ(shown.size(), 1U);
    EXPECT_EQ(shown[0].text,
              "\r\nThis resource has overlapping hours for the period(s) of: \r\n\r\n\tOverlapping hours "
              "from 14:00 to 15:00\r\n\r\n\r\nEdit that one first.");
    EXPECT_EQ(shown[0].title, "ZEL: Overlapping Hours");
    EXPECT_EQ(shown[0].icon, "critical");
    EXPECT_EQ(primary().at(0), "8:00:00 AM|12:00:00 PM|4|20|80");
}

TEST_P(EquipGridTest, SpecialTimesClashWithSpecialTimesOnly) {
    addRow("StartTime,StopTime", "'1899-12-30 2:00:00 PM','1899-12-30 4:00:00 PM'");
    EXPECT_TRUE(edit("SStop", "15:00"));
    EXPECT_THAT(boxes(), IsEmpty());
}

TEST_P(EquipGridTest, AcrossMidnightTheSplitWriterGetsTheRowAndItsGuarantee) {
    dialogs().answer("Yes");
    EXPECT_TRUE(edit("Stop", "06:00"));
    EXPECT_EQ(boxes().at(0).title, "ZEL: WARNING Posting Spans Midnight");
    ASSERT_TRUE(split_);
    EXPECT_EQ(split_->ActivityDT, ado::DateTime::fromDate(2005, 7, 4));
    EXPECT_EQ(split_->Start, ado::DateTime::fromTime(8, 0));
    EXPECT_EQ(split_->Stop, ado::DateTime::fromTime(6, 0));
    EXPECT_EQ(split_->Rate, 20.0);
    EXPECT_EQ(split_->Mode, "Primary");
    EXPECT_EQ(split_->Guarantee, "350");
    EXPECT_TRUE(session().gSplitDone);
}

TEST_P(EquipGridTest, AcrossMidnightNoRefusesTheEdit) {
    dialogs().answer("No");
    EXPECT_FALSE(edit("Stop", "06:00"));
    EXPECT_FALSE(split_);
    EXPECT_FALSE(session().gSplitDone);
    EXPECT_EQ(primary().at(0), "8:00:00 AM|12:00:00 PM|4|20|80");
}

TEST_P(EquipGridTest, ToTheEndOfTheDayIsNoSplit) {
    EXPECT_TRUE(edit("Stop", "24:00"));
    EXPECT_FALSE(split_);
    EXPECT_THAT(primary(), ElementsAre("8:00:00 AM|12:00:00 AM|16|20|320"));
}

TEST_P(EquipGridTest, WhileTheProgramIsWorkingNothingStands) {
    session().Working = true;
    EXPECT_FALSE(edit("Stop", "18:00"));
    EXPECT_THAT(boxes(), IsEmpty());
}

} // namespace
} // namespace zel::posting
