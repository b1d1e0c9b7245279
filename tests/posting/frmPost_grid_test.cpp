#include "posting/post_columns.h"
#include "posting/post_screen_test.h"

namespace zel::posting {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

ZEL_ON_BOTH_ENGINES(PostGridScreenTest);

TEST_P(PostGridScreenTest, AnInvoicedRowIsRedOnGreyLockedAndStays) {
    const forms::RowStyle style = grid().rowStyle(0);
    EXPECT_TRUE(style.locked);
    EXPECT_EQ(style.foreColor, forms::colors::red);
    EXPECT_EQ(style.backColor, forms::colors::lightGrey);
    EXPECT_FALSE(grid().rowStyle(1).locked);
    EXPECT_NE(program.user.editCell(grid(), 0, "Stop", "18:00").refusal, "");
    deleteRow(0);
    const auto box = program.box();
    EXPECT_EQ(box.text, "Cannot Delete an Invoiced posting.");
    EXPECT_EQ(box.title, "Cannot Delete");
    EXPECT_EQ(box.icon, "exclamation");
    EXPECT_EQ(posts().size(), 2U);
}

TEST_P(PostGridScreenTest, AFreeRowIsDeletedWithoutAQuestion) {
    deleteRow(1);
    EXPECT_THAT(program.dialogs.take(), IsEmpty());
    EXPECT_EQ(posts().size(), 1U);
    EXPECT_EQ(grid().rowCount(), 1);
}

TEST_P(PostGridScreenTest, AnEditedStopIsPaid) {
    edit("Stop", "18:00");
    EXPECT_THAT(program.dialogs.take(), IsEmpty());
    EXPECT_THAT(rows("Select StopTime,Hours,Amt from PersonsPost where PersonsPostID = 51"),
                ElementsAre("6:00:00 PM|10|220"));
}

TEST_P(PostGridScreenTest, AnEditAcrossMidnightLeavesTheTwoHalvesInPlaceOfTheRow) {
    program.dialogs.answer("Yes");
    edit("Stop", "06:00");
    EXPECT_EQ(program.box().title, "ZEL: WARNING Posting Spans Midnight");
    EXPECT_THAT(rows("Select ActivityDT,StartTime,StopTime,Hours from PersonsPost where PersonsPostID <> 50 order by "
                     "ActivityDT"),
                ElementsAre("7/4/2005|8:00:00 AM|12:00:00 AM|16", "7/5/2005|12:01:00 AM|6:00:00 AM|6"));
    EXPECT_FALSE(session.gSplitDone);
    EXPECT_FALSE(session.Working);
    EXPECT_EQ(grid().rowCount(), 3);
}

TEST_P(PostGridScreenTest, ARateAbove100IsAskedAboutAndNoKeepsTheOldOne) {
    program.dialogs.answer("No");
    edit("Rate", "150");
    EXPECT_EQ(program.box().title, "Excess Rate");
    EXPECT_THAT(rows("Select Rate from PersonsPost where PersonsPostID = 51"), ElementsAre("20"));
    edit("Rate", "100");
    EXPECT_THAT(program.dialogs.take(), IsEmpty());
    EXPECT_THAT(rows("Select Rate from PersonsPost where PersonsPostID = 51"), ElementsAre("100"));
}

TEST_P(PostGridScreenTest, AGuaranteePaysEightHours) {
    edit("Special", "COP");
    EXPECT_THAT(rows("Select PremiumCode,Hours,Amt from PersonsPost where PersonsPostID = 51"), ElementsAre("COP|8|0"));
}

TEST_P(PostGridScreenTest, AnUnsavedEditIsCommittedBySaveAndNothingIsPosted) {
    EXPECT_EQ(program.user.editCell(grid(), 1, "Remarks", "late").refusal, "");
    ASSERT_TRUE(grid().DataChanged());
    program.run([this] { screen().cmdSave(0).press(); });
    EXPECT_THAT(program.dialogs.take(), IsEmpty());
    EXPECT_THAT(rows("Select Remarks from PersonsPost where PersonsPostID = 51"), ElementsAre("late"));
    EXPECT_TRUE(screen().mskPost(0).hasFocus());
    EXPECT_EQ(posts().size(), 2U);
}

TEST_P(PostGridScreenTest, ASplitTakesItsRowAwayAtOnce) {
    program.dialogs.answer("Yes");
    EXPECT_EQ(program.user.editCell(grid(), 1, "Stop", "06:00").refusal, "");
    EXPECT_EQ(program.user.keys(grid(), "{Escape}").refusal, ""); // too late: it is written
    EXPECT_FALSE(session.gSplitDone);
    EXPECT_THAT(rows("Select PersonsPostID from PersonsPost where PersonsPostID = 51"), IsEmpty());
    EXPECT_EQ(posts().size(), 3U);
    EXPECT_EQ(program.user.editCell(grid(), 2, "Remarks", "second half").refusal, "");
    EXPECT_EQ(program.user.commitRow(grid()).refusal, "");
    EXPECT_EQ(posts().size(), 3U);
}

TEST_P(PostGridScreenTest, ASplitRowThatAnotherClerkHasChangedStaysAndIsTold) {
    program.dialogs.answer("Yes");
    EXPECT_EQ(program.user.row(grid(), 1).refusal, "");
    EXPECT_EQ(grid().cellText(1, post_column::Stop), "12:00");
    program.execute("Update PersonsPost set StopTime = '1899-12-30 13:00:00' where PersonsPostID = 51");
    EXPECT_EQ(program.user.editCell(grid(), 1, "Stop", "06:00").refusal, "");
    const auto shown = program.dialogs.take();
    ASSERT_EQ(shown.size(), 2U);
    EXPECT_TRUE(
        shown[1].text.ends_with("\r\nThe posting was split, but the row that was split is still there. Delete it."))
        << shown[1].text;
    EXPECT_FALSE(session.gSplitDone);
    EXPECT_EQ(posts().size(), 4U);
    EXPECT_EQ(grid().rowCount(), 4);
    EXPECT_FALSE(grid().DataChanged());
}

TEST_P(PostGridScreenTest, TheDayTheHoursAndTheAmountAreNotTyped) {
    for (const char* column : {"Date", "Hours", "Amt"})
        EXPECT_NE(program.user.editCell(grid(), 1, column, "1").refusal, "") << column;
    for (const char* column : {"Start", "Stop", "KindCode", "Class", "Rate", "Special", "Remarks", "AccountingID"})
        EXPECT_FALSE(grid().Columns(column).Locked()) << column;
}

TEST_P(PostGridScreenTest, OnlyAdHaveAClassAndOnlyAdAndOtherARate) {
    choose("ROE");
    EXPECT_TRUE(grid().Columns("Class").Locked());
    EXPECT_TRUE(grid().Columns("Rate").Locked());
    program.execute("Update Persons set FedCode = 'OTHER' where PersonID = 2");
    program.run([this] { screen().tbFormOpen(); });
    EXPECT_TRUE(grid().Columns("Class").Locked());
    EXPECT_FALSE(grid().Columns("Rate").Locked());
}

TEST_P(PostGridScreenTest, AClassIsRatedByTheAreaOfThePerson) {
    edit("Class", "ad-1");
    const auto rate = rows("Select Rate from L_ClassRates where Class = 'AD-1' and ClassRatesCode = 'C1'").at(0);
    EXPECT_THAT(rows("Select Class,Rate from PersonsPost where PersonsPostID = 51"), ElementsAre("AD-1|" + rate));
    EXPECT_THAT(program.dialogs.take(), IsEmpty());
}

TEST_P(PostGridScreenTest, AnAd5RateThatIsTakenBackLeavesTheClass) {
    program.dialogs.answer("Cancel");
    edit("Class", "AD-5");
    EXPECT_EQ(program.box().title, "ZEL:AD-5 Rate");
    EXPECT_THAT(rows("Select Class,Rate from PersonsPost where PersonsPostID = 51"), ElementsAre("AD-3|20"));
}

TEST_P(PostGridScreenTest, AnAd5RateThatIsNoNumberIsToldAndLeavesTheClass) {
    program.dialogs.answer("text:much");
    edit("Class", "AD-5");
    const auto shown = program.dialogs.take();
    ASSERT_EQ(shown.size(), 2U);
    EXPECT_EQ(shown[1].text, "Error: 13 Desc: Type mismatch");
    EXPECT_THAT(rows("Select Class,Rate from PersonsPost where PersonsPostID = 51"), ElementsAre("AD-3|20"));
}

TEST_P(PostGridScreenTest, ARateThatIsNoNumberIsToldAndTheOldOneStays) {
    edit("Rate", "much");
    EXPECT_EQ(program.box().text, "Error: 13 Desc: Type mismatch");
    EXPECT_THAT(rows("Select Rate from PersonsPost where PersonsPostID = 51"), ElementsAre("20"));
}

TEST_P(PostGridScreenTest, ARateAbove100StandsOnYes) {
    program.dialogs.answer("Yes");
    edit("Rate", "100.01");
    EXPECT_EQ(program.box().text, "The Rate entered was $100.01 which is greater then $100. \r\nIs this rate correct?");
    EXPECT_THAT(rows("Select Rate from PersonsPost where PersonsPostID = 51"), ElementsAre("100.01"));
}

TEST_P(PostGridScreenTest, AKindComesFromItsList) {
    const auto kind = rows("Select KindCode from L_Kind where KindCode <> 'FFT1' order by KindCode").at(0);
    edit("KindCode", kind);
    EXPECT_THAT(program.dialogs.take(), IsEmpty());
    edit("KindCode", "NONE");
    const auto box = program.box();
    EXPECT_EQ(box.text, "Invalid Kind Code.");
    EXPECT_EQ(box.title, "ZEL:Update Error");
    EXPECT_THAT(rows("Select KindCode from PersonsPost where PersonsPostID = 51"), ElementsAre(kind));
}

TEST_P(PostGridScreenTest, AnAccountIsShownByItsCodeAndWrittenByItsKey) {
    program.addAccount(32, 7, "P6ZZ99");
    program.run([this] { screen().tbFormOpen(); });
    EXPECT_EQ(grid().cellText(1, post_column::AccountingID), "P6AB12");
    edit("AccountingID", "P6ZZ99");
    EXPECT_THAT(program.dialogs.take(), IsEmpty());
    EXPECT_THAT(rows("Select AccountingID from PersonsPost where PersonsPostID = 51"), ElementsAre("32"));
    edit("AccountingID", "NONE");
    EXPECT_EQ(program.box().text, "Invalid Account Code.");
    EXPECT_THAT(rows("Select AccountingID from PersonsPost where PersonsPostID = 51"), ElementsAre("32"));
}

TEST_P(PostGridScreenTest, ASpecialCodeIsWrittenInCapitals) {
    edit("Special", "cop");
    EXPECT_THAT(rows("Select PremiumCode,Hours,Amt from PersonsPost where PersonsPostID = 51"), ElementsAre("COP|8|0"));
}

TEST_P(PostGridScreenTest, AnEmptySpecialCodeBringsTheHoursOfTheTimesBack) {
    edit("Special", "COP");
    edit("Special", "");
    EXPECT_THAT(program.dialogs.take(), IsEmpty());
    EXPECT_THAT(rows("Select PremiumCode,Hours,Amt from PersonsPost where PersonsPostID = 51"), ElementsAre("|4|80"));
}

TEST_P(PostGridScreenTest, ARowUnderEditIsWrittenBeforeThePageOrThePersonChanges) {
    const auto remark = [this] { return rows("Select Remarks from PersonsPost where PersonsPostID = 51").at(0); };
    EXPECT_EQ(program.user.editCell(grid(), 1, "Remarks", "first").refusal, "");
    EXPECT_EQ(program.user.selectTab(screen().tabPosting, 1).refusal, "");
    EXPECT_EQ(remark(), "first");
    EXPECT_EQ(program.user.selectTab(screen().tabPosting, 0).refusal, "");
    EXPECT_EQ(program.user.editCell(grid(), 1, "Remarks", "second").refusal, "");
    choose("ROE");
    EXPECT_EQ(remark(), "second");
    choose("DOE");
    EXPECT_EQ(program.user.editCell(grid(), 1, "Remarks", "third").refusal, "");
    EXPECT_EQ(program.user.toolbar(program.shell().tbMenu, "Refresh").refusal, "");
    EXPECT_EQ(remark(), "third");
    EXPECT_EQ(program.user.editCell(grid(), 1, "Remarks", "fourth").refusal, "");
    program.run([this] { program.shell().OpenScreen("Settings", true, 0); });
    EXPECT_EQ(remark(), "fourth");
}

TEST_P(PostGridScreenTest, ARowThatAnotherClerkHasChangedIsToldAndKeepsThePageInFront) {
    EXPECT_EQ(program.user.editCell(grid(), 1, "Remarks", "mine").refusal, "");
    program.execute("Update PersonsPost set Remarks = 'theirs' where PersonsPostID = 51");
    (void)program.user.selectTab(screen().tabPosting, 1);
    EXPECT_EQ(program.box().title, "ZEL: Error");
    EXPECT_EQ(screen().tabPosting.CurrTab(), 0);
    EXPECT_TRUE(grid().DataChanged());
}

TEST_P(PostGridScreenTest, ADeleteThatFailsLeavesTheRowAndSaysWhatToTry) {
    keepRows();
    deleteRow(1);
    const auto box = program.box();
    EXPECT_EQ(box.title, "ZEL: Error Deleting Posting");
    EXPECT_TRUE(box.text.starts_with("Try deleting blank posting by selecting...\r\nTools\r\nClear OF-288 Blank "
                                     "Records.\r\nPlease note Error Number: "))
        << box.text;
    EXPECT_NE(box.text.find("\r\nDescription: "), std::string::npos);
    EXPECT_EQ(grid().rowCount(), 2);
}

TEST_P(PostGridScreenTest, DeleteOfTheToolbarAndOfThePopUpFollowTheRuleOfTheButton) {
    EXPECT_EQ(program.user.row(grid(), 0).refusal, "");
    EXPECT_EQ(program.user.toolbar(program.shell().tbMenu, "Delete").refusal, "");
    EXPECT_EQ(program.box().title, "Cannot Delete");
    EXPECT_EQ(program.user.row(grid(), 0).refusal, "");
    EXPECT_EQ(program.user.deleteRow(grid()).refusal, "");
    EXPECT_EQ(program.box().title, "Cannot Delete");
    EXPECT_EQ(program.user.row(grid(), 1).refusal, "");
    EXPECT_EQ(program.user.deleteRow(grid()).refusal, "");
    EXPECT_EQ(posts().size(), 1U);
}

TEST_P(PostGridScreenTest, AnInvoiceOfZeroIsNone) {
    program.execute("Update PersonsPost set InvoiceID = 0 where PersonsPostID = 50");
    program.run([this] { screen().tbFormOpen(); });
    EXPECT_FALSE(grid().rowStyle(0).locked);
    deleteRow(0);
    EXPECT_EQ(posts().size(), 1U);
}

TEST_P(PostGridScreenTest, WithNoRowsDeleteDoesNothing) {
    choose("ROE");
    EXPECT_EQ(program.user.click(screen().cmdDelete(0)).refusal, "");
    EXPECT_THAT(program.dialogs.take(), IsEmpty());
    EXPECT_EQ(posts().size(), 2U);
}

} // namespace
} // namespace zel::posting
