#include "posting/post_columns.h"
#include "posting/post_screen_test.h"

namespace zel::posting {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

ZEL_ON_BOTH_ENGINES(PostScreenTest);

TEST_P(PostScreenTest, OpensOnThePersonsWithTheirCaptions) {
    EXPECT_EQ(screen().cmdPrint286.Caption(), "Print OF288");
    EXPECT_EQ(screen().lblCurrentPost.Caption(), "Posting Personnel");
    EXPECT_EQ(screen().dbcPersonnel.rowCount(), 3);
    EXPECT_EQ(screen().cboTime(0).ListCount(), 97);
    EXPECT_EQ(screen().dbgPersonnelPost.rowCount(), 0);
}

TEST_P(PostScreenTest, OpeningReadsTheTimesAndTheStatuses) {
    program.run([this] { screen().tbFormOpen(); });
    EXPECT_THAT(program.statements, Contains("Select time from L_Time order by time"));
    EXPECT_THAT(program.statements, Contains("SELECT Code,Description FROM L_Status WHERE ZEL=1"));
    choose("DOE");
    EXPECT_EQ(screen().lblPersonStatus.Caption(), rows("Select Description from L_Status where Code = 'C'").at(0));
}

TEST_P(PostScreenTest, ThePersonInFrontIsTheCurrentOneOfTheNextScreen) {
    choose("ROE");
    session.gCurrentPersonID = session.gCurrentResourceID = -1;
    program.run([this] { program.shell().OpenScreen("Settings", true, 0); });
    EXPECT_EQ(session.gCurrentPersonID, 2);
    EXPECT_EQ(session.gCurrentResourceID, 2);
}

TEST_P(PostScreenTest, ATicketIsPostedAndTheNextOneBeginsInTheDate) {
    choose("DOE");
    EXPECT_EQ(session.gAccountingID, 31);
    EXPECT_EQ(screen().dbcAcct(0).Text(), "P6AB12");
    ticket("07042005", "0800", "2000");
    EXPECT_EQ(screen().mskPost(1).Text(), "12");
    save();
    EXPECT_THAT(program.dialogs.take(), IsEmpty());
    EXPECT_THAT(posts(), ElementsAre("1|7/4/2005|8:00:00 AM|8:00:00 PM|SITL| |12|31"));
    EXPECT_TRUE(screen().mskPost(0).hasFocus());
    EXPECT_EQ(screen().mskPost(0).Text(), "__/__/____");
    EXPECT_EQ(screen().cboTime(0).Text(), "");
    EXPECT_EQ(screen().mskPost(1).Text(), "");
    EXPECT_EQ(screen().dbcPersonnel.BoundText(), "1");
    EXPECT_EQ(screen().dbgPersonnelPost.rowCount(), 1);
    EXPECT_FALSE(program.forms.Hourglass());
}

TEST_P(PostScreenTest, ATicketTakesItsDigitsAndThreeKeys) {
    choose("DOE");
    EXPECT_EQ(program.user.moveFocus(screen().mskPost(0)).refusal, "");
    forms::Control* active = &screen().mskPost(0);
    for (const char* keys : {"07042005{Tab}", "0800{Tab}", "2000{Enter}"}) {
        EXPECT_EQ(program.user.keys(*active, keys).refusal, "");
        active = screen().ActiveControl();
    }
    EXPECT_THAT(program.dialogs.take(), IsEmpty());
    EXPECT_EQ(posts().size(), 1U);
}

TEST_P(PostScreenTest, WithNothingFilledInOneBoxTellsAllInOrder) {
    session.gAccountingID = -1;
    screen().dbcAcct(0).setText("");
    save();
    const auto box = program.box();
    EXPECT_EQ(box.text,
              "Error(s) adding post:\r\nYou must include an Account Code.\r\nYou must include an Activity Date "
              "for posting.\r\nInvalid Start Time.\r\nYou must include a Start Time for posting.\r\nInvalid Stop "
              "Time.\r\nYou must include a Stop Time for posting.\r\nHours Not Calculated...Try Again.");
    EXPECT_EQ(box.title, "ZEL: Error Adding Post");
    EXPECT_EQ(box.icon, "none");
    EXPECT_EQ(box.buttons, "OK");
    EXPECT_THAT(posts(), IsEmpty());
}

TEST_P(PostScreenTest, NothingIsPostedForNobody) {
    EXPECT_EQ(program.user.pick(screen().dbcAcct(0), "P6AB12").refusal, "");
    ticket("07042005", "0800", "2000");
    save();
    EXPECT_EQ(program.box().text, "Error(s) adding post:\r\nYou must select a person first.");
    EXPECT_THAT(posts(), IsEmpty());
}

TEST_P(PostScreenTest, EqualTimesAreRefused) {
    choose("DOE");
    ticket("07042005", "0800", "0800");
    save();
    EXPECT_EQ(program.box().text, "Error(s) adding post:\r\nStart Time and Stop Time must have different values.");
}

TEST_P(PostScreenTest, AStopOf0001IsRefusedAndOneOf2400IsTheEndOfTheDay) {
    choose("DOE");
    ticket("07042005", "0800", "0001");
    save();
    EXPECT_EQ(program.box().text, "Error(s) adding post:\r\nInvalid Stop Time.");
    type(screen().cboTime(1), "2400");
    save();
    EXPECT_THAT(program.dialogs.take(), IsEmpty());
    EXPECT_THAT(posts(), ElementsAre("1|7/4/2005|8:00:00 AM|12:00:00 AM|SITL| |16|31"));
}

TEST_P(PostScreenTest, AStopOf0000IsRefused) {
    choose("DOE");
    ticket("07042005", "0800", "0000");
    save();
    EXPECT_EQ(program.box().text, "Error(s) adding post:\r\nInvalid Stop Time.");
}

TEST_P(PostScreenTest, TimesAreOnTheQuarterHourOr0001) {
    choose("DOE");
    type(screen().cboTime(0), "0807");
    EXPECT_EQ(program.user.leave(screen().cboTime(0)).refusal, "");
    const auto box = program.box();
    EXPECT_EQ(box.text, "Invalid Time..Must be in 15 minute interval.");
    EXPECT_EQ(box.title, "ZEL: Post Error");
    EXPECT_EQ(box.icon, "exclamation");
    EXPECT_EQ(screen().cboTime(0).Text(), "");
    for (const char* good : {"0800", "0815", "0801", "0830", "0845"}) {
        type(screen().cboTime(0), good);
        EXPECT_EQ(program.user.leave(screen().cboTime(0)).refusal, "");
        EXPECT_THAT(program.dialogs.take(), IsEmpty()) << good;
        EXPECT_EQ(screen().cboTime(0).Text(), std::string(good).insert(2, ":"));
    }
    type(screen().cboTime(0), "800");
    EXPECT_EQ(program.user.leave(screen().cboTime(0)).refusal, "");
    EXPECT_EQ(program.box().text, "Invalid Time..Must be in 15 minute interval.");
}

TEST_P(PostScreenTest, ADateBeforeTheIncidentKeepsTheFocus) {
    choose("DOE");
    type(screen().mskPost(0), "06302005");
    (void)program.user.moveFocus(screen().cboTime(0));
    EXPECT_EQ(program.box().title, "ZEL: Invalid Date vs Incident Start Date");
    EXPECT_TRUE(screen().mskPost(0).hasFocus());
}

TEST_P(PostScreenTest, TheEndOfTheLatestInvoiceLocksTheDaysUpToIt) {
    invoice("7/4/2005");
    choose("DOE");
    ticket("07042005", "0800", "2000");
    program.statements.clear();
    save();
    EXPECT_EQ(
        program.box().text,
        "Error(s) adding post:\r\nCannot have an activity date prior to or the same as the End Date for the latest "
        "INVOICE!\r\n     Activity Date: 07/04/2005\r\n     Invoice Date: 7/4/2005");
    EXPECT_THAT(program.statements,
                Contains("select max(lastdate) from personsinvoices where personid=1 and del <> 1"));
    type(screen().mskPost(0), "07052005");
    save();
    EXPECT_THAT(program.dialogs.take(), IsEmpty());
    EXPECT_EQ(posts().size(), 1U);
}

TEST_P(PostScreenTest, AReturnTravelDayNeedsNoStop) {
    choose("DOE");
    EXPECT_EQ(program.user.check(screen().chkLastDay, true).refusal, "");
    EXPECT_EQ(screen().lblPost(3).Caption(), "Stop Time");
    type(screen().mskPost(0), "07042005");
    type(screen().cboTime(0), "0800");
    save();
    EXPECT_THAT(program.dialogs.take(), IsEmpty());
    EXPECT_THAT(rows("Select StartTime from PersonsPost where StopTime is null"), ElementsAre("8:00:00 AM"));
    EXPECT_TRUE(screen().chkLastDay.isChecked());
    EXPECT_EQ(program.user.check(screen().chkLastDay, false).refusal, "");
    EXPECT_EQ(screen().lblPost(3).Caption(), "* Stop Time");
}

TEST_P(PostScreenTest, OnlyOthersThanAdCanChooseHazardPay) {
    choose("DOE");
    EXPECT_EQ(forms::findItem(screen().cbPost(0).items(), "HP"), -1);
    choose("ROE");
    EXPECT_GE(forms::findItem(screen().cbPost(0).items(), "HP"), 0);
    EXPECT_EQ(screen().cbPost(0).List(screen().cbPost(0).ListCount() - 1), "");
}

TEST_P(PostScreenTest, APersonWithoutAnAccountEmptiesTheBox) {
    choose("ROE");
    EXPECT_EQ(session.gAccountingID, -1);
    EXPECT_EQ(screen().dbcAcct(0).Text(), "");
}

TEST_P(PostScreenTest, APersonWithoutAnEmploymentCodeCannotBePostedAndIsToldOnce) {
    choose("NOCODE");
    EXPECT_EQ(program.user.moveFocus(screen().mskPost(0)).refusal, "");
    const auto box = program.box();
    EXPECT_EQ(box.text,
              "Individual doesn't have an Employment Code.\r\nYou cannot take time for this individual until one "
              "is assigned.\r\nGo to the Personnel screen to assign AD/Fed/Other.");
    EXPECT_EQ(box.title, "ZEL: Missing Data");
    EXPECT_EQ(box.icon, "information");
    EXPECT_FALSE(screen().cboTime(0).Enabled());
    EXPECT_FALSE(screen().cmdSave(0).Enabled());
    EXPECT_EQ(program.user.moveFocus(screen().dbcAcct(0)).refusal, "");
    EXPECT_EQ(program.user.moveFocus(screen().mskPost(0)).refusal, "");
    EXPECT_THAT(program.dialogs.take(), IsEmpty());
    choose("DOE");
    EXPECT_TRUE(screen().cboTime(0).Enabled());
}

TEST_P(PostScreenTest, AClashAnsweredWithNoKeepsTheFieldsFilled) {
    program.execute("insert into PersonsPost (PersonsPostID,PersonID,ActivityDT,StartTime,StopTime,FinalCol) values "
                    "(50,1,'7/4/2005','1899-12-30 10:00:00','1899-12-30 12:00:00',0)");
    choose("DOE");
    ticket("07042005", "0800", "2000");
    program.dialogs.answer("No");
    save();
    EXPECT_EQ(program.box().title, "Overlapping Hours:");
    EXPECT_EQ(posts().size(), 1U);
    EXPECT_EQ(screen().mskPost(0).Text(), "07/04/2005");
    EXPECT_EQ(screen().cboTime(1).Text(), "20:00");
}

TEST_P(PostScreenTest, AfterARefusedTicketTheNextDateIsTypedOverTheOldOne) {
    program.execute("insert into PersonsPost (PersonsPostID,PersonID,ActivityDT,StartTime,StopTime,FinalCol) values "
                    "(50,1,'7/4/2005','1899-12-30 10:00:00','1899-12-30 12:00:00',0)");
    choose("DOE");
    program.dialogs.answer("No");
    EXPECT_EQ(program.user.keys(screen().mskPost(0), "07042005{Tab}0800{Tab}2000{Enter}").refusal, "");
    EXPECT_EQ(program.user.keys(screen().mskPost(0), "07052005{Tab}0900{Tab}1100{Enter}").refusal, "");
    EXPECT_EQ(posts().size(), 2U);
    EXPECT_EQ(screen().mskPost(0).ClipText(), "") << "posted, and ready for the next ticket";
}

TEST_P(PostScreenTest, OnlyThePersonsOwnRowsAreRead) {
    program.execute("insert into PersonsPost (PersonsPostID,PersonID,ActivityDT,FinalCol) values (50,1,'7/4/2005',0)");
    program.execute("insert into PersonsPost (PersonsPostID,PersonID,ActivityDT,FinalCol) values (51,1,'7/3/2005',0)");
    program.execute("insert into PersonsPost (PersonsPostID,PersonID,ActivityDT,FinalCol) values (52,1,'7/3/2005',1)");
    program.execute("insert into PersonsPost (PersonsPostID,PersonID,ActivityDT,FinalCol) values (53,2,'7/4/2005',0)");
    choose("DOE");
    ASSERT_EQ(screen().dbgPersonnelPost.rowCount(), 2);
    EXPECT_EQ(screen().dbgPersonnelPost.cellText(0, post_column::PersonsPostID), "51");
    EXPECT_EQ(screen().dbgPersonnelPost.row(), 1); // the newest is in sight
}

TEST_P(PostScreenTest, KeysStepDatesAndTimes) {
    choose("DOE");
    EXPECT_EQ(program.user.keys(screen().mskPost(0), "=").refusal, "");
    EXPECT_EQ(screen().mskPost(0).Text(), "07/04/2005");
    EXPECT_EQ(program.user.keys(screen().mskPost(0), "++-").refusal, "");
    EXPECT_EQ(screen().mskPost(0).Text(), "07/05/2005");
    type(screen().cboTime(0), "23:45");
    EXPECT_EQ(program.user.keys(screen().cboTime(0), "+").refusal, "");
    EXPECT_EQ(screen().cboTime(0).Text(), "24:00");
    EXPECT_EQ(program.user.keys(screen().cboTime(0), "+").refusal, "");
    EXPECT_EQ(screen().cboTime(0).Text(), "00:01");
}

TEST_P(PostScreenTest, EnterInATimeBoxIsATabWhereTheClerkWantsIt) {
    choose("DOE");
    EXPECT_EQ(program.user.check(screen().CkKeyPadEnterTab, true).refusal, "");
    EXPECT_EQ(program.user.type(screen().cboTime(0), "0800").refusal, "");
    EXPECT_EQ(program.user.keys(screen().cboTime(0), "{Enter}").refusal, "");
    EXPECT_FALSE(screen().cboTime(0).hasFocus());
    EXPECT_THAT(program.dialogs.take(), IsEmpty());
}

TEST_P(PostScreenTest, EachPageHasItsCaptionsAndLists) {
    EXPECT_EQ(program.user.selectTab(screen().tabPosting, 1).refusal, "");
    EXPECT_EQ(screen().lblCurrentPost.Caption(), "Posting Crews");
    EXPECT_EQ(screen().cmdPrint286.Caption(), "Print OF288");
    EXPECT_EQ(program.user.selectTab(screen().tabPosting, 2).refusal, "");
    EXPECT_EQ(screen().lblCurrentPost.Caption(), "Posting Equipment");
    EXPECT_EQ(screen().cmdPrint286.Caption(), "Print OF286");
    EXPECT_TRUE(session.gEquipTabOpen);
    EXPECT_EQ(program.user.selectTab(screen().tabPosting, 0).refusal, "");
    EXPECT_EQ(screen().dbcPersonnel.rowCount(), 3);
    for (const forms::ShownBox& box : program.dialogs.take())
        ADD_FAILURE() << box.text;
}

TEST_P(PostScreenTest, TheShellSavesAndDeletesOnThePageInFront) {
    EXPECT_EQ(program.user.toolbar(program.shell().tbMenu, "Save").refusal, "");
    EXPECT_EQ(program.box().title, "ZEL: Error Adding Post");
    program.execute("insert into PersonsPost (PersonsPostID,PersonID,ActivityDT,FinalCol) values (50,1,'7/4/2005',0)");
    choose("DOE");
    EXPECT_EQ(program.user.toolbar(program.shell().tbMenu, "Delete").refusal, "");
    EXPECT_THAT(posts(), IsEmpty());
}

} // namespace
} // namespace zel::posting
