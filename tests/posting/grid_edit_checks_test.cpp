#include "posting/grid_edit_checks.h"

#include "ado/convert.h"
#include "forms/adodc.h"
#include "forms/tdb_grid.h"
#include "forms/user.h"
#include "posting/post_columns.h"
#include "support/test_session.h"

#include <gmock/gmock.h>

namespace zel::posting {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A grid over the postings of one person, edited as a clerk does, with the check under test on every cell.
class PersonGridTest : public test::SessionTest {
protected:
    PersonGridTest() {
        execute("Insert into PersonsPost (PersonsPostID,PersonID,ActivityDT,StartTime,StopTime,KindCode,Class,Rate,"
                "PremiumCode,Hours,Amt,AccountingID) Values (1,5,'7/4/2005','1899-12-30 8:00:00 AM',"
                "'1899-12-30 12:00:00 PM','FFT1','AD-3',20,' ',4,0,7)");
        addPersonPostColumns(grid_);
        data_.setConnection(session().connection());
        data_.setRecordSource("Select * from PersonsPost where PersonID = 5 order by PersonsPostID");
        data_.Refresh();
        grid_.bind(data_);
        form_.Show();
        check(CheckPersonPostEdit);
    }
    template <typename Check>
    void check(Check&& stands) {
        grid_.BeforeColUpdate = [this, stands](int, const ado::Value&, bool& cancel) {
            stood_ = stands(session(), grid_);
            cancel = !stood_;
        };
    }
    bool edit(const std::string& column, const std::string& text) {
        EXPECT_EQ(user_.row(grid_, 0).refusal, "");
        EXPECT_EQ(user_.editCell(grid_, 0, column, text).refusal, "");
        (void)user_.commitRow(grid_);
        return stood_;
    }
    std::vector<std::string> posts() {
        return rows("Select ActivityDT,StartTime,StopTime,Class,Rate,PremiumCode,Hours,Amt from PersonsPost order by "
                    "PersonsPostID");
    }
    void addRow(const char* start, const char* stop) {
        execute(std::string("Insert into PersonsPost (PersonsPostID,PersonID,ActivityDT,StartTime,StopTime) Values "
                            "(2,5,'7/4/2005','1899-12-30 ") +
                start + "','1899-12-30 " + stop + "')");
    }

    forms::Form form_{program().forms, "frmGrid"};
    forms::Adodc data_{form_, "AdoPost"};
    forms::TDBGrid grid_{form_, "dbgPersonnelPost"};
    forms::User user_{program().forms};
    bool stood_ = false; // what the check said of the last edit
};
ZEL_ON_BOTH_ENGINES(PersonGridTest);

TEST_P(PersonGridTest, ANewStopIsRoundedAndPaidWithHoursOverEightAtOneAndAHalf) {
    EXPECT_TRUE(edit("Stop", "18:07"));
    EXPECT_THAT(boxes(), IsEmpty());
    EXPECT_THAT(posts(), ElementsAre("7/4/2005|8:00:00 AM|6:00:00 PM|AD-3|20| |10|220"));
}

TEST_P(PersonGridTest, AStopAtTheEndOfTheDayIsTypedAs2400) {
    EXPECT_TRUE(edit("Stop", "24:00"));
    EXPECT_THAT(posts(), ElementsAre("7/4/2005|8:00:00 AM|12:00:00 AM|AD-3|20| |16|400"));
}

TEST_P(PersonGridTest, AnEmptyRateIsPaidAsNone) {
    execute("Update PersonsPost set Rate = null");
    data_.Refresh();
    EXPECT_TRUE(edit("Stop", "14:00"));
    EXPECT_THAT(posts(), ElementsAre("7/4/2005|8:00:00 AM|2:00:00 PM|AD-3|0| |6|0"));
}

TEST_P(PersonGridTest, AStopThatIsNoTimeIsToldAndMeansTheEndOfTheDay) {
    EXPECT_TRUE(edit("Stop", "930"));
    const auto shown = boxes();
    ASSERT_EQ(shown.size(), 1U);
    EXPECT_EQ(shown[0].text, "Invalid Time Entered...Time Will be 2400");
    EXPECT_EQ(shown[0].title, "ZEL:Post Update Error");
    EXPECT_THAT(posts(), ElementsAre("7/4/2005|8:00:00 AM|12:00:00 AM|AD-3|20| |16|400"));
}

TEST_P(PersonGridTest, AReturnTravelDayHasNoStopToMeasureBy) {
    execute("Update PersonsPost set StopTime = null");
    data_.Refresh();
    EXPECT_FALSE(edit("Start", "09:00"));
    const auto shown = boxes();
    ASSERT_EQ(shown.size(), 1U);
    EXPECT_EQ(shown[0].text, "Error: 13 Desc: Type mismatch");
    EXPECT_THAT(rows("Select StartTime,StopTime from PersonsPost"), ElementsAre("8:00:00 AM|"));
}

TEST_P(PersonGridTest, AClashRefusesTheEditAndSaysWhere) {
    addRow("2:00:00 PM", "4:00:00 PM");
    EXPECT_FALSE(edit("Stop", "15:00"));
    const auto shown = boxes();
    ASSERT_EQ(shown.size(), 1U);
    EXPECT_EQ(shown[0].text, "\r\nThis person has overlapping hours for the period(s) of: \r\n\r\n\tOverlapping hours "
                             "from 2:00:00 PM to 3:00:00 PM\r\n\r\n\r\nEdit that one first.");
    EXPECT_EQ(shown[0].title, "ZEL: Overlapping Hours");
    EXPECT_EQ(shown[0].icon, "critical");
    EXPECT_EQ(posts()[0], "7/4/2005|8:00:00 AM|12:00:00 PM|AD-3|20| |4|0");
}

TEST_P(PersonGridTest, AnEditAcrossMidnightAsksAndNoRefusesIt) {
    dialogs().answer("No");
    EXPECT_FALSE(edit("Stop", "06:00"));
    const auto shown = boxes();
    ASSERT_EQ(shown.size(), 1U);
    EXPECT_EQ(shown[0].text,
              "This post spans midnight.  If you continue, this posting will be split.\r\nThis could cause "
              "conflicts if there are posts after this one!\r\n\r\nDo you really want to continue?");
    EXPECT_EQ(shown[0].title, "ZEL: WARNING Posting Spans Midnight");
    EXPECT_EQ(shown[0].icon, "question");
    EXPECT_EQ(shown[0].buttons, "YesNo");
    EXPECT_FALSE(session().gSplitDone);
    EXPECT_EQ(posts().size(), 1U);
}

TEST_P(PersonGridTest, AnEditAcrossMidnightIsSplitOnYes) {
    dialogs().answer("Yes");
    EXPECT_TRUE(edit("Stop", "06:00"));
    EXPECT_TRUE(session().gSplitDone);
    EXPECT_EQ(rows("Select ActivityDT,StartTime,StopTime,Class,Rate,Hours,Amt,AccountingID from PersonsPost where "
                   "PersonsPostID > 1 order by PersonsPostID"),
              (std::vector<std::string>{"7/4/2005|8:00:00 AM|12:00:00 AM|AD-3|20|16|320|0",
                                        "7/5/2005|12:01:00 AM|6:00:00 AM|AD-3|20|6|120|0"}));
}

TEST_P(PersonGridTest, WhileTheProgramIsWorkingNothingStands) {
    session().Working = true;
    EXPECT_FALSE(edit("Stop", "18:00"));
    EXPECT_THAT(boxes(), IsEmpty());
    EXPECT_EQ(posts()[0], "7/4/2005|8:00:00 AM|12:00:00 PM|AD-3|20| |4|0");
}

class SpecialCodeTest : public PersonGridTest {
protected:
    SpecialCodeTest() {
        check([](core::Session& session, forms::TDBGrid& grid) {
            return checkSpecialCode(session, grid, grid.Columns("Special").Text());
        });
    }
};
ZEL_ON_BOTH_ENGINES(SpecialCodeTest);

TEST_P(SpecialCodeTest, GuaranteesPayEightHoursAndNoAmountToAdClasses) {
    EXPECT_TRUE(edit("Special", "COP"));
    EXPECT_THAT(posts(), ElementsAre("7/4/2005|8:00:00 AM|12:00:00 PM|AD-3|20|COP|8|0"));
    EXPECT_TRUE(edit("Special", "DAY OFF"));
    EXPECT_THAT(posts(), ElementsAre("7/4/2005|8:00:00 AM|12:00:00 PM|AD-3|20|DAY OFF|0|0"));
}

TEST_P(SpecialCodeTest, AnyOtherCodeBringsTheHoursOfTheTimesBack) {
    EXPECT_TRUE(edit("Special", "COP"));
    EXPECT_TRUE(edit("Special", "HP"));
    EXPECT_THAT(posts(), ElementsAre("7/4/2005|8:00:00 AM|12:00:00 PM|AD-3|20|HP|4|80"));
}

TEST_P(SpecialCodeTest, AnUnknownCodeIsRefused) {
    EXPECT_FALSE(edit("Special", "NONE"));
    const auto shown = boxes();
    ASSERT_EQ(shown.size(), 1U);
    EXPECT_EQ(shown[0].text, "Invalid Special Code.");
    EXPECT_EQ(shown[0].title, "ZEL:Update Error");
    EXPECT_EQ(shown[0].icon, "exclamation");
    EXPECT_THAT(posts(), ElementsAre("7/4/2005|8:00:00 AM|12:00:00 PM|AD-3|20| |4|0"));
}

class ClassEditTest : public PersonGridTest {
protected:
    ClassEditTest() {
        check([](core::Session& session, forms::TDBGrid& grid) { return fClassChanged(session, grid, "CONUS"); });
    }
    std::string planRate(const std::string& Class) {
        return rows("Select Rate from L_ClassRates where Class = '" + Class + "' and ClassRatesCode = 'C" +
                    Class.substr(3, 1) + "'")
            .at(0);
    }
};
ZEL_ON_BOTH_ENGINES(ClassEditTest);

TEST_P(ClassEditTest, AClassTakesTheRateOfThePayPlan) {
    const std::string rate = planRate("AD-4");
    EXPECT_TRUE(edit("Class", "ad-4"));
    EXPECT_THAT(rows("Select Class,Rate from PersonsPost"), ElementsAre("AD-4|" + rate));
    EXPECT_THAT(rows("Select Amt from PersonsPost"),
                ElementsAre(ado::toText(ado::Currency::fromDouble(4 * ado::toDouble(rate)))));
}

TEST_P(ClassEditTest, Ad5IsRatedByHand) {
    dialogs().answer("text:18.20");
    EXPECT_TRUE(edit("Class", "AD-5"));
    const auto shown = boxes();
    ASSERT_EQ(shown.size(), 1U);
    EXPECT_EQ(shown[0].text, "Enter the rate. (ie 18.20)");
    EXPECT_EQ(shown[0].title, "ZEL:AD-5 Rate");
    EXPECT_THAT(rows("Select Class,Rate,Amt from PersonsPost"), ElementsAre("AD-5|18.2|72.8"));
}

TEST_P(ClassEditTest, AClassOutsideThePayPlanIsRefused) {
    EXPECT_FALSE(edit("Class", "ZZ-9"));
    const auto shown = boxes();
    ASSERT_EQ(shown.size(), 1U);
    EXPECT_EQ(shown[0].text, "Cannot find a rate to match the class.");
    EXPECT_EQ(shown[0].title, "ZEL:Class Error");
    EXPECT_EQ(shown[0].icon, "exclamation");
    EXPECT_THAT(rows("Select Class,Rate from PersonsPost"), ElementsAre("AD-3|20"));
}

} // namespace
} // namespace zel::posting
