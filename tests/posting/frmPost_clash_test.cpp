// Clashing posts, midnight and special codes, from the ticket to the rows.
#include "posting/post_screen_test.h"

namespace zel::posting {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ClashScreenTest : public PostScreenTest {
protected:
    ClashScreenTest() {
        addPost(50, "10:00:00", "12:00:00");
        addPost(51, "14:00:00", "16:00:00");
        choose("DOE");
    }
    void addPost(int key, const std::string& start, const std::string& stop) {
        program.execute(
            "insert into PersonsPost (PersonsPostID,PersonID,ActivityDT,StartTime,StopTime,FinalCol) values (" +
            std::to_string(key) + ",1,'7/4/2005','1899-12-30 " + start + "','1899-12-30 " + stop + "',0)");
    }
    void post(const std::string& start, const std::string& stop) {
        ticket("07042005", start, stop);
        save();
    }
    std::vector<std::string> times() {
        return rows("Select StartTime,StopTime from PersonsPost order by ActivityDT,StartTime,PersonsPostID");
    }
    static constexpr const char* lines =
        "\tOverlapping hours from 10:00:00 AM to 12:00:00 PM\r\n\tOverlapping hours from 2:00:00 PM to 3:00:00 PM\r\n";
    static constexpr const char* prompt =
        "Would you like to overwrite the previous post(s) with the current one?\r\nIf you choose not to overwrite "
        "changes, the current post will be cancelled.";
};
ZEL_ON_BOTH_ENGINES(ClashScreenTest);

TEST_P(ClashScreenTest, TheFirstFormOfTheDialogueIsWordedWhole) {
    session.vYNMS = -1;
    program.dialogs.answer("No");
    post("0900", "1500");
    const auto box = program.box();
    EXPECT_EQ(box.title, "Overlapping Hours:");
    EXPECT_EQ(box.text,
              std::string("DOE, JOHN  (123-45-6789)  O-1\r\nThis person has overlapping hours for the period(s) of: "
                          "\r\n") +
                  lines + "\r\n" + prompt);
    EXPECT_EQ(box.buttons, "Yes|Yes to All|No|No to All");
    EXPECT_EQ(box.defaultAnswer, "Yes");
}

TEST_P(ClashScreenTest, TheSecondFormHasALineMoreAndTheLastAnswerAsDefault) {
    session.vYNMS = 2;
    program.dialogs.answer("No");
    post("0900", "1500");
    const auto box = program.box();
    EXPECT_EQ(box.text,
              std::string("DOE, JOHN  (123-45-6789)  O-1\r\nThis person has overlapping hours for the period(s) of: "
                          "\r\n\r\n") +
                  lines + "\r\n" + prompt);
    EXPECT_EQ(box.buttons, "Yes|Yes to All|No|No to All");
    EXPECT_EQ(box.defaultAnswer, "No");
}

TEST_P(ClashScreenTest, YesOverwritesAllThatClashAndEmptiesTheTicket) {
    program.dialogs.answer("Yes");
    post("0900", "1500");
    EXPECT_THAT(times(), ElementsAre("9:00:00 AM|3:00:00 PM"));
    EXPECT_EQ(screen().cboTime(0).Text(), "");
    EXPECT_EQ(session.vYNMS, 0);
}

TEST_P(ClashScreenTest, YesAsksAgainWithTheNextTicket) {
    program.dialogs.answer("Yes");
    program.dialogs.answer("No");
    post("0900", "1100");
    post("1030", "1130");
    EXPECT_EQ(program.dialogs.take().size(), 2U);
    EXPECT_THAT(times(), ElementsAre("9:00:00 AM|11:00:00 AM", "2:00:00 PM|4:00:00 PM"));
}

TEST_P(ClashScreenTest, YesToAllOverwritesTheNextOnesInSilence) {
    program.dialogs.answer("Yes to All");
    post("0900", "1100");
    post("1030", "1500");
    EXPECT_EQ(program.dialogs.take().size(), 1U);
    EXPECT_THAT(times(), ElementsAre("10:30:00 AM|3:00:00 PM"));
    EXPECT_EQ(session.vYNMS, 1);
}

TEST_P(ClashScreenTest, NoToAllRefusesTheNextOnesInSilence) {
    program.dialogs.answer("No to All");
    post("0900", "1100");
    post("1500", "1700");
    EXPECT_EQ(program.dialogs.take().size(), 1U);
    EXPECT_THAT(times(), ElementsAre("10:00:00 AM|12:00:00 PM", "2:00:00 PM|4:00:00 PM"));
    EXPECT_EQ(screen().cboTime(0).Text(), "15:00"); // the refused ticket stands
    EXPECT_TRUE(session.vYNMSc);
}

TEST_P(ClashScreenTest, ClosedWithoutAnAnswerTheTicketIsPostedBesideAndTheFirstFormComesNext) {
    session.vYNMS = 2;
    program.dialogs.answer("close");
    post("0900", "1100");
    EXPECT_EQ(session.vYNMS, -1);
    EXPECT_THAT(times(), ElementsAre("9:00:00 AM|11:00:00 AM", "10:00:00 AM|12:00:00 PM", "2:00:00 PM|4:00:00 PM"));
    program.dialogs.take();
    program.dialogs.answer("No");
    post("1430", "1500");
    EXPECT_EQ(program.box().defaultAnswer, "Yes");
}

TEST_P(ClashScreenTest, AReturnTravelDayClashesWithTheMinuteItTakes) {
    EXPECT_EQ(program.user.check(screen().chkLastDay, true).refusal, "");
    type(screen().mskPost(0), "07042005");
    type(screen().cboTime(0), "1000");
    program.dialogs.answer("No");
    save();
    EXPECT_NE(program.box().text.find("from 10:00:00 AM to 10:01:00 AM"), std::string::npos);
}

TEST_P(ClashScreenTest, WhatWasOverwrittenStaysGoneWhenMidnightIsAnsweredWithNo) {
    program.dialogs.answer("Yes");
    program.dialogs.answer("No");
    post("1500", "0600");
    EXPECT_EQ(program.dialogs.take().size(), 2U);
    EXPECT_THAT(times(), ElementsAre("10:00:00 AM|12:00:00 PM"));
    EXPECT_EQ(screen().cboTime(0).Text(), "15:00");
}

class MidnightScreenTest : public PostScreenTest {};
ZEL_ON_BOTH_ENGINES(MidnightScreenTest);

TEST_P(MidnightScreenTest, YesWritesBothHalvesWithThePersonsKindAndAccount) {
    choose("DOE");
    ticket("07042005", "2200", "0600");
    program.dialogs.answer("Yes");
    save();
    EXPECT_EQ(program.box().title, "ZEL: Posting Spans Midnight");
    EXPECT_THAT(posts(), ElementsAre("1|7/4/2005|10:00:00 PM|12:00:00 AM|SITL| |2|31",
                                     "1|7/5/2005|12:01:00 AM|6:00:00 AM|SITL| |6|31"));
    EXPECT_EQ(screen().mskPost(0).Text(), "__/__/____");
}

TEST_P(MidnightScreenTest, NoKeepsTheTicketAndAsksAgain) {
    choose("DOE");
    ticket("07042005", "2200", "0600");
    program.dialogs.answer("No");
    save();
    program.dialogs.take();
    EXPECT_THAT(posts(), IsEmpty());
    EXPECT_EQ(screen().mskPost(0).Text(), "07/04/2005");
    program.dialogs.answer("Yes");
    save();
    EXPECT_EQ(posts().size(), 2U);
}

TEST_P(MidnightScreenTest, AGuaranteeOverMidnightPaysEightHoursOnEachDay) {
    choose("DOE");
    EXPECT_EQ(program.user.pick(screen().cbPost(0), "GUAR").refusal, "");
    ticket("07042005", "2200", "0600");
    program.dialogs.answer("Yes");
    save();
    EXPECT_THAT(rows("Select PremiumCode,Hours,Amt from PersonsPost order by ActivityDT"),
                ElementsAre("GUAR|8|145.6", "GUAR|8|145.6"));
}

TEST_P(MidnightScreenTest, ASecondHalfStartsAt0001AndCanBePostedByHand) {
    choose("DOE");
    ticket("07052005", "0001", "0600");
    EXPECT_EQ(screen().mskPost(1).Text(), "6");
    save();
    EXPECT_THAT(program.dialogs.take(), IsEmpty());
    EXPECT_THAT(posts(), ElementsAre("1|7/5/2005|12:01:00 AM|6:00:00 AM|SITL| |6|31"));
}

TEST_P(MidnightScreenTest, AWholeDayIsFrom0001To2400) {
    choose("DOE");
    ticket("07052005", "0001", "2400");
    EXPECT_EQ(screen().mskPost(1).Text(), "24");
    save();
    EXPECT_THAT(posts(), ElementsAre("1|7/5/2005|12:01:00 AM|12:00:00 AM|SITL| |24|31"));
}

class PremiumScreenTest : public PostScreenTest {
protected:
    std::string post(const std::string& name, const std::string& code) {
        choose(name);
        EXPECT_EQ(program.user.pick(screen().dbcAcct(0), "P6AB12").refusal, "");
        EXPECT_EQ(program.user.pick(screen().cbPost(0), code).refusal, "");
        ticket("07042005", "0800", "1200");
        save();
        EXPECT_THAT(program.dialogs.take(), IsEmpty());
        return rows("Select PremiumCode,Hours,Amt from PersonsPost where PersonID = (Select PersonID from Persons "
                    "where LastName = '" +
                    name + "') order by PersonsPostID desc")
            .at(0);
    }
};
ZEL_ON_BOTH_ENGINES(PremiumScreenTest);

TEST_P(PremiumScreenTest, GuaranteedCodesPayEightHoursToAdAndNoneToOthers) {
    EXPECT_EQ(post("DOE", "GUAR"), "GUAR|8|0");
    EXPECT_EQ(post("ROE", "COP"), "COP|0|0");
}

TEST_P(PremiumScreenTest, ADayOffHasNoHours) {
    EXPECT_EQ(post("DOE", "DAY OFF"), "DAY OFF|0|0");
}

TEST_P(PremiumScreenTest, HazardPayStaysForAShortClassAndTheTicketForgetsIt) {
    EXPECT_EQ(post("ROE", "HP"), "HP|4|0");
    EXPECT_EQ(screen().cbPost(0).Text(), "");
}

TEST_P(PremiumScreenTest, ACodeTypedInSmallLettersIsTheSameCode) {
    choose("DOE");
    type(screen().cbPost(0), "guar");
    ticket("07042005", "0800", "1200");
    EXPECT_EQ(screen().cbPost(0).Text(), "GUAR");
    type(screen().cbPost(0), "cop");
    program.run([this] { screen().tbSave(); }); // from the toolbar: the box is not left
    EXPECT_THAT(rows("Select PremiumCode,Hours from PersonsPost"), ElementsAre("COP|8"));
}

TEST_P(PremiumScreenTest, AMemberOfACrewIsPostedUnderTheirOwnKind) {
    program.execute("Update Resources set Collection = 1 where ResourceID = 1");
    program.run([this] { screen().tbFormOpen(); });
    choose("DOE");
    ticket("07042005", "0800", "1200");
    save();
    EXPECT_THAT(posts(), ElementsAre("1|7/4/2005|8:00:00 AM|12:00:00 PM|FFT1| |4|31"));
}

} // namespace
} // namespace zel::posting
