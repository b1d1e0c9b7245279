// The entry fields of a ticket: what is refused, what is emptied, and what Save says about it.
#include "posting/post_screen_test.h"

namespace zel::posting {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class PostFieldsTest : public PostScreenTest {
protected:
    PostFieldsTest() { choose("DOE"); }
    /// From the toolbar: the box in which the clerk is stays the one in front and is not left.
    void saveFromToolbar() { EXPECT_EQ(program.user.toolbar(program.shell().tbMenu, "Save").refusal, ""); }
    std::string findings() {
        const auto shown = program.dialogs.take();
        return shown.empty() ? std::string() : shown.back().text;
    }
    static std::string told(const std::string& lines) { return "Error(s) adding post:" + lines; }
    static constexpr const char* missingStart = "\r\nInvalid Start Time.\r\nYou must include a Start Time for posting.";
    static constexpr const char* missingStop =
        "\r\nInvalid Stop Time.\r\nYou must include a Stop Time for posting.\r\nHours Not Calculated...Try Again.";
};
ZEL_ON_BOTH_ENGINES(PostFieldsTest);

TEST_P(PostFieldsTest, EachMessageStandsForItsOwnField) {
    ticket("07042005", "0800", "2000");
    type(screen().mskPost(0), "");
    save();
    EXPECT_EQ(findings(), told("\r\nYou must include an Activity Date for posting."));
    type(screen().mskPost(0), "07042005");
    type(screen().cboTime(0), "");
    save();
    EXPECT_EQ(findings(), told(missingStart));
    type(screen().cboTime(0), "0800");
    type(screen().dbcAcct(0), "");
    save();
    EXPECT_EQ(findings(), told("\r\nYou must include an Account Code."));
    EXPECT_THAT(posts(), IsEmpty());
}

TEST_P(PostFieldsTest, TheHoursOfAnEarlierPairDoNotStandForAMissingStop) {
    ticket("07042005", "0800", "2000");
    type(screen().cboTime(1), "");
    save();
    EXPECT_EQ(findings(), told("\r\nInvalid Stop Time.\r\nYou must include a Stop Time for posting."));
    EXPECT_EQ(screen().mskPost(1).Text(), "12");
}

TEST_P(PostFieldsTest, AStopThatIsStillBeingTypedIsRefusedAndNothingIsPosted) {
    type(screen().mskPost(0), "07042005");
    type(screen().cboTime(0), "0800");
    for (const char* typed : {"8", "08", "200", "abcd", "20:07", "2415", "2530"}) {
        type(screen().cboTime(1), typed);
        saveFromToolbar();
        const auto shown = program.dialogs.take();
        ASSERT_EQ(shown.size(), 2U) << typed;
        EXPECT_EQ(shown[0].text, "Invalid Time..Must be in 15 minute interval.") << typed;
        EXPECT_EQ(shown[1].text, told(missingStop)) << typed;
        EXPECT_EQ(screen().cboTime(1).Text(), "") << typed;
    }
    EXPECT_THAT(posts(), IsEmpty());
}

TEST_P(PostFieldsTest, AStartThatIsStillBeingTypedIsRefusedAndNothingIsPosted) {
    ticket("07042005", "0800", "2000");
    type(screen().cboTime(0), "0807");
    saveFromToolbar();
    const auto shown = program.dialogs.take();
    ASSERT_EQ(shown.size(), 2U);
    EXPECT_EQ(shown[0].text, "Invalid Time..Must be in 15 minute interval.");
    EXPECT_EQ(shown[1].text, told("\r\nYou must include a Start Time for posting."));
    EXPECT_THAT(posts(), IsEmpty());
}

TEST_P(PostFieldsTest, TimesThatAreStillBeingTypedArePostedAsTheyRead) {
    type(screen().mskPost(0), "07042005");
    type(screen().cboTime(0), "0800");
    type(screen().cboTime(1), "2400");
    saveFromToolbar();
    EXPECT_THAT(program.dialogs.take(), IsEmpty());
    EXPECT_THAT(posts(), ElementsAre("1|7/4/2005|8:00:00 AM|12:00:00 AM|SITL| |16|31"));
}

TEST_P(PostFieldsTest, NoStartAtMidnightIsTaken) {
    for (const char* start : {"0000", "00:00", "2400", "24:00"}) {
        ticket("07042005", "0800", "2000");
        type(screen().cboTime(0), start);
        saveFromToolbar();
        EXPECT_EQ(findings(), told("\r\nInvalid Start Time.")) << start;
    }
    EXPECT_THAT(posts(), IsEmpty());
}

TEST_P(PostFieldsTest, AReturnTravelDayStillNeedsAStart) {
    EXPECT_EQ(program.user.check(screen().chkLastDay, true).refusal, "");
    type(screen().mskPost(0), "07042005");
    save();
    EXPECT_EQ(findings(), told(missingStart));
    type(screen().cboTime(0), "0807");
    saveFromToolbar();
    EXPECT_EQ(findings(), told("\r\nYou must include a Start Time for posting."));
}

TEST_P(PostFieldsTest, AReturnTravelDayLastsOneMinuteFromAnyStart) {
    EXPECT_EQ(program.user.check(screen().chkLastDay, true).refusal, "");
    for (const char* start : {"8:00", "2345", "0001"}) {
        type(screen().mskPost(0), "07042005");
        type(screen().cboTime(0), start);
        save();
    }
    EXPECT_THAT(program.dialogs.take(), IsEmpty());
    EXPECT_THAT(rows("Select StartTime,StopTime,Hours from PersonsPost order by PersonsPostID"),
                ElementsAre("8:00:00 AM||0.01666667", "11:45:00 PM||0.01666667", "12:01:00 AM||0.03333334"));
}

TEST_P(PostFieldsTest, ADateThatIsNoneIsThrownAway) {
    for (const char* typed : {"02302005", "13012005", "07"}) {
        type(screen().mskPost(0), typed);
        EXPECT_EQ(program.user.leave(screen().mskPost(0)).refusal, "");
        EXPECT_EQ(screen().mskPost(0).Text(), "__/__/____") << typed;
    }
    EXPECT_THAT(program.dialogs.take(), IsEmpty());
}

TEST_P(PostFieldsTest, AYearOfTwoDigitsIsCompleted) {
    type(screen().mskPost(0), "070405");
    EXPECT_EQ(program.user.leave(screen().mskPost(0)).refusal, "");
    EXPECT_EQ(screen().mskPost(0).Text(), "07/04/2005");
}

TEST_P(PostFieldsTest, TheFirstDayOfTheIncidentIsTakenAndTheDayBeforeIsTold) {
    ticket("07012005", "0800", "2000");
    save();
    EXPECT_THAT(program.dialogs.take(), IsEmpty());
    EXPECT_EQ(session.gInvoiceDate, "6/30/2005"); // without an invoice: the day before
    type(screen().mskPost(0), "06302005");
    EXPECT_NE(program.user.moveFocus(screen().cboTime(0)).refusal, "");
    const auto box = program.box();
    EXPECT_EQ(box.text, "Cannot have an activity date prior to INCIDENT START date!\r\n\tActivity Date: 6/30/2005\r\n"
                        "Incident Start Date: 7/1/2005");
    EXPECT_EQ(box.icon, "exclamation");
}

TEST_P(PostFieldsTest, OnlyTheLatestInvoiceThatIsNotDeletedLocks) {
    invoice("7/3/2005");
    program.execute("insert into PersonsInvoices (InvoiceID,PersonID,LastDate,Del) values (2,1,'7/9/2005',1)");
    program.execute("insert into PersonsInvoices (InvoiceID,PersonID,LastDate,Del) values (3,2,'7/9/2005',0)");
    ticket("07042005", "0800", "2000");
    save();
    EXPECT_THAT(program.dialogs.take(), IsEmpty());
    EXPECT_EQ(session.gInvoiceDate, "7/3/2005");
    EXPECT_EQ(posts().size(), 1U);
}

TEST_P(PostFieldsTest, TheLockOfTheInvoiceStandsBehindAllOtherFindings) {
    invoice("7/4/2005");
    type(screen().mskPost(0), "07042005");
    save();
    EXPECT_EQ(findings(),
              told(std::string(missingStart) + missingStop +
                   "\r\nCannot have an activity date prior to or the same as the End Date for the latest INVOICE!\r\n"
                   "     Activity Date: 07/04/2005\r\n     Invoice Date: 7/4/2005"));
}

TEST_P(PostFieldsTest, KeysDoNotStepTheDateOfSomebodyWhoCannotBePosted) {
    choose("NOCODE");
    (void)program.user.keys(screen().mskPost(0), "+=");
    EXPECT_EQ(screen().mskPost(0).Text(), "__/__/____");
    EXPECT_EQ(screen().mskPost(0).BackColor(), forms::colors::lightGrey);
    EXPECT_EQ(screen().dbgPersonnelPost.BackColor(), forms::colors::lightGrey);
}

TEST_P(PostFieldsTest, APersonOfAStatusThatIsNotPostableIsGreyWithoutABox) {
    program.execute("Update Persons set PStatus = 'D' where PersonID = 1");
    program.run([this] { screen().tbFormOpen(); });
    EXPECT_EQ(screen().lblPersonStatus.Caption(), "Demobed");
    EXPECT_EQ(program.user.moveFocus(screen().mskPost(0)).refusal, "");
    EXPECT_THAT(program.dialogs.take(), IsEmpty());
    EXPECT_FALSE(screen().cmdSave(0).Enabled());
    EXPECT_TRUE(screen().mskPost(0).Locked());
}

TEST_P(PostFieldsTest, ClearEmptiesTheTicketAndLeavesPersonAccountAndReturnTravel) {
    ticket("07042005", "0800", "2000");
    EXPECT_EQ(program.user.check(screen().chkLastDay, true).refusal, "");
    EXPECT_EQ(program.user.pick(screen().cbPost(0), "GUAR").refusal, "");
    EXPECT_EQ(program.user.click(screen().cmdClear(0)).refusal, "");
    EXPECT_EQ(screen().mskPost(0).Text() + screen().cboTime(0).Text() + screen().cboTime(1).Text() +
                  screen().cbPost(0).Text() + screen().mskPost(1).Text(),
              "__/__/____");
    EXPECT_EQ(screen().dbcPersonnel.BoundText() + " " + screen().dbcAcct(0).Text(), "1 P6AB12");
    EXPECT_TRUE(screen().chkLastDay.isChecked());
}

TEST_P(PostFieldsTest, ReturnTravelTakesTheLastSpecialCodeAndGivesTheFirst) {
    EXPECT_EQ(program.user.pick(screen().cbPost(0), "GUAR").refusal, "");
    EXPECT_EQ(program.user.check(screen().chkLastDay, true).refusal, "");
    EXPECT_EQ(screen().cbPost(0).Text(), screen().cbPost(0).List(screen().cbPost(0).ListCount() - 1));
    EXPECT_EQ(program.user.pick(screen().cbPost(0), "GUAR").refusal, "");
    EXPECT_EQ(program.user.check(screen().chkLastDay, false).refusal, "");
    EXPECT_EQ(screen().cbPost(0).Text(), screen().cbPost(0).List(0));
}

TEST_P(PostFieldsTest, AnApostropheInTheKindIsTheFailureItAlwaysWas) {
    program.execute("Update Resources set KindCode = 'O''B' where ResourceID = 1");
    program.run([this] { screen().tbFormOpen(); });
    ticket("07042005", "0800", "2000");
    save();
    const auto box = program.box();
    EXPECT_EQ(box.title, "ZEL: Error");
    EXPECT_TRUE(box.text.ends_with("\r\nFailure during Split check\r\nThe posting was not written.")) << box.text;
    EXPECT_THAT(posts(), IsEmpty());
    EXPECT_EQ(screen().cboTime(1).Text(), "20:00"); // the ticket stands
}

} // namespace
} // namespace zel::posting
