#include "posting/modPost.h"

#include "ado/convert.h"
#include "core/frmConfirm.h"
#include "posting/modMath.h"
#include "support/recording_engine.h"
#include "support/test_session.h"

namespace zel::posting {
namespace {

using ado::DateTime;

class PostPersonTest : public test::SessionTest {
protected:
    PostPersonTest() {
        program().forms.add("frmConfirm", [this] { return std::make_unique<core::frmConfirm>(session()); });
        execute("Insert into Resources (ResourceID,IncidentID,RequestNumber,Name) Values (1,1,'O-1','DOE, JOHN')");
        addPerson(1, "AD", "AD-3", "18.20");
        addPerson(2, "FED", "", "0");
        session().vYNMS = -1;
    }

    void addPerson(int id, const std::string& code, const std::string& Class, const std::string& rate) {
        execute("Insert into Persons (PersonID,ResourceID,FirstName,LastName,SSN,FedCode,Class,Rate) Values (" +
                std::to_string(id) + ",1,'JOHN','DOE','123456789','" + code + "','" + Class + "'," + rate + ")");
    }
    static PersonPosting posting(const char* start, const char* stop, int person = 1) {
        PersonPosting post;
        post.ActivityDT = DateTime::fromDate(2005, 7, 4);
        post.Start = ado::toDateTime(start);
        post.Stop = ado::toDateTime(stop);
        post.KindCode = "FFT1";
        post.PersonID = person;
        post.AccountingID = 7;
        return post;
    }
    bool post(const char* start, const char* stop, int person = 1) {
        PersonPosting one = posting(start, stop, person);
        return PostPerson(session(), one);
    }
    /// Day, start, stop, special code, class, rate, hours, amount, kind and account of every posting.
    std::vector<std::string> posts() {
        return rows("Select ActivityDT,StartTime,StopTime,PremiumCode,Class,Rate,Hours,Amt,KindCode,AccountingID from "
                    "PersonsPost order by ActivityDT,StartTime,PersonsPostID");
    }
};
ZEL_ON_BOTH_ENGINES(PostPersonTest);

TEST_P(PostPersonTest, WritesOneRowWithHoursAndNoAmount) {
    EXPECT_TRUE(post("8:00 AM", "8:00 PM"));
    EXPECT_EQ(posts(), std::vector<std::string>{"7/4/2005|8:00:00 AM|8:00:00 PM| |AD-3|18.2|12|0|FFT1|7"});
    EXPECT_TRUE(boxes().empty());
}

TEST_P(PostPersonTest, SendsTheInsertAsWordedInBothDialects) {
    const auto sent = statementsOf([this] { EXPECT_TRUE(post("8:00 AM", "1:30 PM")); });
    EXPECT_EQ(sent.back(),
              "Insert into PersonsPost (PersonsPostID,PersonID,PremiumCode,Class,Rate,ActivityDT,StartTime,StopTime,"
              "Hours,Amt,KindCode,AccountingID)Values (1,1,' ','AD-3',18.2,'7/4/2005','1899-12-30 8:00:00 AM',"
              "'1899-12-30 1:30:00 PM',5.5,0,'FFT1',7)");
}

TEST_P(PostPersonTest, TakesAKeyReadsThePersonAndChecksBeforeItWrites) {
    const auto sent = statementsOf([this] { EXPECT_TRUE(post("8:00 AM", "1:30 PM")); });
    ASSERT_EQ(sent.size(), 7U);
    EXPECT_EQ(sent[1], "SELECT * FROM  Persons WHERE  PersonID=1"); // ResourceID
    EXPECT_EQ(sent[2], "SELECT * FROM  Persons WHERE  PersonID=1"); // Rate
    EXPECT_EQ(sent[3], "SELECT * FROM  Persons WHERE  PersonID=1"); // Class
    EXPECT_EQ(sent[4], "SELECT * FROM  qrySelectPersonnel WHERE  PersonID=1");
    EXPECT_EQ(sent[5].substr(0, 68), "SELECT * FROM PersonsPost WHERE PersonsPostID<>1 AND PersonID=1 AND ");
}

TEST_P(PostPersonTest, NoStatementIsPreparedTwice) {
    auto engine = std::make_unique<test::RecordingEngine>(database().open());
    const auto log = engine->log();
    session().gConnection = std::make_shared<ado::Connection>(std::move(engine));
    log->recording = true;
    for (const char* start : {"8:00 AM", "10:00 AM", "12:00 PM"}) {
        EXPECT_TRUE(post(start, "1:00 PM", 1));
        EXPECT_TRUE(post(start, "1:00 PM", 2));
        execute("Delete from PersonsPost");
    }
    EXPECT_GT(log->runs.size(), 6 * 7U);
    for (const auto& [text, times] : log->prepared)
        EXPECT_EQ(times, 1) << text;
}

TEST_P(PostPersonTest, AReturnTravelDayHasNoStopAndOneMinuteOfHours) {
    PersonPosting travel = posting("8:00 AM", "8:01 AM");
    travel.ReturnTravel = true;
    const auto sent = statementsOf([&] { EXPECT_TRUE(PostPerson(session(), travel)); });
    EXPECT_EQ(sent.back(),
              "Insert into PersonsPost (PersonsPostID,PersonID,PremiumCode,Class,Rate,ActivityDT,StartTime,"
              "Hours,Amt,KindCode,AccountingID)Values (1,1,' ','AD-3',18.2,'7/4/2005',"
              "'1899-12-30 8:00:00 AM',1.666667E-02,0,'FFT1',7)");
    EXPECT_EQ(rows("Select PersonsPostID from PersonsPost where StopTime is null"), std::vector<std::string>{"1"});
}

TEST_P(PostPersonTest, APostingToTheEndOfTheDayIsStoredAsMidnight) {
    EXPECT_TRUE(post("8:00 AM", "12:00 AM"));
    EXPECT_EQ(posts(), std::vector<std::string>{"7/4/2005|8:00:00 AM|12:00:00 AM| |AD-3|18.2|16|0|FFT1|7"});
}

struct PremiumCase {
    const char* premium;
    const char* Class;
    const char* written; ///< special code and hours
};

class PostedPremium : public PostPersonTest {};
ZEL_ON_BOTH_ENGINES(PostedPremium);

TEST_P(PostedPremium, FollowsTheClass) {
    const PremiumCase cases[] = {{"GUAR", "AD-3", "GUAR|8"}, {"COP", "AD-3", "COP|8"}, {"DAY OFF", "AD-3", "DAY OFF|0"},
                                 {"GUAR", "GS5", "GUAR|0"},  {"HP", "GS", "HP|12"},    {"HP", "GS5", " |12"},
                                 {"HP", "", "HP|12"},        {"", "AD-3", " |12"},     {"H", "AD-3", "H|12"}};
    int person = 100;
    for (const PremiumCase& c : cases) {
        addPerson(++person, "AD", c.Class, "10");
        PersonPosting one = posting("8:00 AM", "8:00 PM", person);
        one.Premium = c.premium;
        ASSERT_TRUE(PostPerson(session(), one));
        EXPECT_EQ(rows("Select PremiumCode,Hours from PersonsPost where PersonID = " + std::to_string(person)),
                  std::vector<std::string>{c.written})
            << c.premium << " in class " << c.Class;
        EXPECT_EQ(rows("Select Amt from PersonsPost where PersonID = " + std::to_string(person)),
                  std::vector<std::string>{"0"});
    }
}

class ClashingPost : public PostPersonTest {
protected:
    ClashingPost() {
        EXPECT_TRUE(post("8:00 AM", "12:00 PM"));
        EXPECT_TRUE(post("2:00 PM", "4:00 PM"));
    }
};
ZEL_ON_BOTH_ENGINES(ClashingPost);

TEST_P(ClashingPost, AsksInItsFirstFormAndOverwritesOnYes) {
    dialogs().answer("Yes");
    EXPECT_TRUE(post("11:00 AM", "3:00 PM"));
    const auto shown = boxes();
    ASSERT_EQ(shown.size(), 1U);
    EXPECT_EQ(shown[0].title, "Overlapping Hours:");
    EXPECT_EQ(shown[0].buttons, "Yes|Yes to All|No|No to All");
    EXPECT_EQ(posts(), std::vector<std::string>{"7/4/2005|11:00:00 AM|3:00:00 PM| |AD-3|18.2|4|0|FFT1|7"});
    EXPECT_EQ(session().vYNMS, 0);
}

TEST_P(ClashingPost, NoWritesNothing) {
    dialogs().answer("No");
    EXPECT_FALSE(post("11:00 AM", "3:00 PM"));
    EXPECT_EQ(posts().size(), 2U);
    EXPECT_TRUE(session().vYNMSc);
    EXPECT_EQ(session().vYNMS, 2);
}

TEST_P(ClashingPost, ClosingWithoutAnAnswerPostsBesideTheOthers) {
    dialogs().answer("close");
    EXPECT_TRUE(post("11:00 AM", "3:00 PM"));
    EXPECT_EQ(posts().size(), 3U);
    EXPECT_EQ(session().vYNMS, -1);
}

TEST_P(ClashingPost, YesToAllIsRepeatedInSilence) {
    dialogs().answer("Yes to All");
    EXPECT_TRUE(post("11:00 AM", "3:00 PM"));
    EXPECT_TRUE(post("11:00 AM", "5:00 PM"));
    EXPECT_EQ(boxes().size(), 1U);
    EXPECT_EQ(posts(), std::vector<std::string>{"7/4/2005|11:00:00 AM|5:00:00 PM| |AD-3|18.2|6|0|FFT1|7"});
}

TEST_P(ClashingPost, NoToAllIsRepeatedInSilence) {
    dialogs().answer("No to All");
    EXPECT_FALSE(post("11:00 AM", "3:00 PM"));
    EXPECT_FALSE(post("9:00 AM", "10:00 AM"));
    EXPECT_EQ(boxes().size(), 1U);
    EXPECT_EQ(posts().size(), 2U);
}

TEST_P(ClashingPost, TheSecondFormTakesTheLastAnswerAsDefaultAndCanOfferYesAndNoOnly) {
    session().vYNMS = 2;
    PersonPosting one = posting("11:00 AM", "3:00 PM");
    one.YesNoOnly = true;
    EXPECT_FALSE(PostPerson(session(), one));
    const auto shown = boxes();
    ASSERT_EQ(shown.size(), 1U);
    EXPECT_EQ(shown[0].buttons, "Yes|No");
    EXPECT_EQ(shown[0].defaultAnswer, "No");
}

TEST_P(ClashingPost, EqualStartAndStopIsNotChecked) {
    session().vYNMS = 0;
    const auto sent = statementsOf([this] { (void)post("9:00 AM", "9:00 AM"); });
    for (const std::string& statement : sent)
        EXPECT_EQ(statement.find("ORDER BY ActivityDT"), std::string::npos) << statement;
}

class PostAcrossMidnight : public PostPersonTest {
protected:
    static constexpr const char* question =
        "This post spans midnight.  If you continue, this posting will be split.\r\nDo you want to continue?";
};
ZEL_ON_BOTH_ENGINES(PostAcrossMidnight);

TEST_P(PostAcrossMidnight, AsksOnceAndWritesTwoRowsWithAmounts) {
    dialogs().answer("Yes");
    PersonPosting night = posting("10:00 PM", "6:00 AM");
    EXPECT_TRUE(PostPerson(session(), night));
    const auto shown = boxes();
    ASSERT_EQ(shown.size(), 1U);
    EXPECT_EQ(shown[0].text, question);
    EXPECT_EQ(shown[0].title, "ZEL: Posting Spans Midnight");
    EXPECT_EQ(shown[0].icon, "question");
    EXPECT_EQ(shown[0].buttons, "YesNo");
    EXPECT_TRUE(night.Asked);
    EXPECT_EQ(posts(), (std::vector<std::string>{"7/4/2005|10:00:00 PM|12:00:00 AM| |AD-3|18.2|2|36.4|FFT1|7",
                                                 "7/5/2005|12:01:00 AM|6:00:00 AM| |AD-3|18.2|6|109.2|FFT1|7"}));
}

TEST_P(PostAcrossMidnight, NoWritesNothingAndTheAnswerIsKeptForTheNextPerson) {
    dialogs().answer("No");
    PersonPosting night = posting("10:00 PM", "6:00 AM");
    EXPECT_FALSE(PostPerson(session(), night));
    night.PersonID = 2;
    EXPECT_FALSE(PostPerson(session(), night));
    EXPECT_EQ(boxes().size(), 1U);
    EXPECT_TRUE(posts().empty());
}

TEST_P(PostAcrossMidnight, WithoutSplittingItEndsAtMidnight) {
    PersonPosting night = posting("10:00 PM", "6:00 AM");
    night.AllowSplit = false;
    EXPECT_TRUE(PostPerson(session(), night));
    EXPECT_TRUE(boxes().empty());
    EXPECT_EQ(posts(), std::vector<std::string>{"7/4/2005|10:00:00 PM|12:00:00 AM| |AD-3|18.2|2|0|FFT1|7"});
}

TEST_P(PostAcrossMidnight, AGuaranteeGivesEightHoursOnEachDayByTheLengthOfTheClass) {
    addPerson(3, "OTHER", "GS10", "10");
    addPerson(4, "AD", "AD", "10");
    SplitPosting halves{DateTime::fromDate(2005, 7, 4),
                        ado::toDateTime("10:00 PM"),
                        ado::toDateTime("6:00 AM"),
                        3,
                        "FFT1",
                        "GS10",
                        10.0F,
                        "GUAR",
                        false,
                        7};
    EXPECT_TRUE(PostPersonSplit(session(), halves));
    halves.PersonID = 4;
    halves.Class = "AD";
    EXPECT_TRUE(PostPersonSplit(session(), halves));
    EXPECT_EQ(rows("Select PersonID,Hours,Amt from PersonsPost order by PersonID,ActivityDT"),
              (std::vector<std::string>{"3|8|80", "3|8|80", "4|0|0", "4|0|0"}));
}

TEST_P(PostAcrossMidnight, ADayOffPaysNothing) {
    SplitPosting halves{DateTime::fromDate(2005, 7, 4),
                        ado::toDateTime("10:00 PM"),
                        ado::toDateTime("6:00 AM"),
                        1,
                        "",
                        "AD-3",
                        18.2F,
                        "DAY OFF",
                        false,
                        7};
    EXPECT_TRUE(PostPersonSplit(session(), halves));
    EXPECT_EQ(rows("Select Hours,Amt from PersonsPost"), (std::vector<std::string>{"0|0", "0|0"}));
}

TEST_P(PostAcrossMidnight, HazardPayIsLeftOutForLongClasses) {
    SplitPosting halves{DateTime::fromDate(2005, 7, 4),
                        ado::toDateTime("10:00 PM"),
                        ado::toDateTime("6:00 AM"),
                        1,
                        "",
                        "AD-3",
                        18.2F,
                        "HP",
                        false,
                        7};
    EXPECT_TRUE(PostPersonSplit(session(), halves));
    halves.Class = "GS5";
    EXPECT_TRUE(PostPersonSplit(session(), halves));
    EXPECT_EQ(rows("Select Class,PremiumCode from PersonsPost order by PersonsPostID"),
              (std::vector<std::string>{"AD-3|", "AD-3|", "GS5|HP", "GS5|HP"}));
}

TEST_P(PostAcrossMidnight, AReturnTravelSplitLeavesTheSecondStopEmptyAndPaysNothingThere) {
    SplitPosting halves{DateTime::fromDate(2005, 7, 4),
                        ado::toDateTime("10:00 PM"),
                        ado::toDateTime("6:00 AM"),
                        1,
                        "",
                        "AD-3",
                        10.0F,
                        "",
                        true,
                        7};
    EXPECT_TRUE(PostPersonSplit(session(), halves));
    EXPECT_EQ(rows("Select StopTime,Hours,Amt,PremiumCode from PersonsPost order by ActivityDT"),
              (std::vector<std::string>{"12:00:00 AM|2|20| ", "|0|0| "}));
}

class PostFailure : public PostPersonTest {
protected:
    /// The database lets the row not be deleted, or not be inserted.
    void keepRow(int key) { refuse("delete", "old", key); }
    void keepOut(int key) { refuse("insert", "new", key); }

private:
    void refuse(const std::string& event, const std::string& row, int key) {
        const std::string head = "create trigger kept before " + event + " on PersonsPost for each row when ";
        const std::string test = row + ".PersonsPostID = " + std::to_string(key);
        if (onSqlite()) {
            direct(head + test + " begin select raise(abort, 'kept'); end");
            return;
        }
        direct("create function refuse() returns trigger language plpgsql as 'begin raise exception ''kept''; end'");
        direct(head + "(" + test + ") execute function refuse()");
    }
    void direct(const std::string& statement) { (void)connection().engine().prepare(statement, true)->execute({}); }
};
ZEL_ON_BOTH_ENGINES(PostFailure);

TEST_P(PostFailure, AnApostropheInTheKindFailsWithTheBoxAndWritesNothing) {
    PersonPosting one = posting("8:00 AM", "8:00 PM");
    one.KindCode = "FF'T";
    EXPECT_FALSE(PostPerson(session(), one));
    const auto shown = boxes();
    ASSERT_EQ(shown.size(), 1U);
    EXPECT_EQ(shown[0].title, "ZEL: Error");
    EXPECT_NE(shown[0].text.find("Failure during Split check"), std::string::npos);
    EXPECT_NE(shown[0].text.find("The posting was not written."), std::string::npos);
    EXPECT_TRUE(posts().empty());
}

TEST_P(PostFailure, AFailedInsertAfterAnOverwriteSaysThatTheRowsAreGone) {
    EXPECT_TRUE(post("8:00 AM", "12:00 PM"));
    dialogs().answer("Yes");
    PersonPosting one = posting("9:00 AM", "10:00 AM");
    one.KindCode = "FF'T";
    EXPECT_FALSE(PostPerson(session(), one));
    const auto shown = boxes();
    ASSERT_EQ(shown.size(), 2U);
    EXPECT_NE(shown[1].text.find("1 overlapping post(s) had been deleted."), std::string::npos);
    EXPECT_TRUE(posts().empty());
}

TEST_P(PostFailure, AnOverwriteThatStopsHalfWaySaysHowManyWent) {
    EXPECT_TRUE(post("8:00 AM", "9:00 AM"));
    EXPECT_TRUE(post("10:00 AM", "11:00 AM"));
    keepRow(2);
    dialogs().answer("Yes");
    EXPECT_FALSE(post("8:00 AM", "12:00 PM"));
    const auto shown = boxes();
    ASSERT_EQ(shown.size(), 2U);
    EXPECT_NE(shown[1].text.find("The posting was not written. 1 overlapping post(s) had been deleted."),
              std::string::npos)
        << shown[1].text;
    EXPECT_EQ(rows("Select PersonsPostID from PersonsPost"), std::vector<std::string>{"2"});
}

TEST_P(PostFailure, ASplitThatFailsAfterAnOverwriteSaysBoth) {
    EXPECT_TRUE(post("10:00 PM", "11:00 PM"));
    dialogs().answer("Yes");
    dialogs().answer("Yes");
    PersonPosting night = posting("9:00 PM", "6:00 AM");
    keepOut(4); // 1 was posted, 2 is the key of a posting that is not split
    EXPECT_FALSE(PostPerson(session(), night));
    const auto shown = boxes();
    ASSERT_EQ(shown.size(), 3U);
    EXPECT_NE(shown[2].text.find("The part before midnight was written, the part after midnight was not. 1 overlapping "
                                 "post(s) had been deleted."),
              std::string::npos)
        << shown[2].text;
    EXPECT_EQ(rows("Select PersonsPostID from PersonsPost"), std::vector<std::string>{"3"});
}

TEST_P(PostFailure, WithoutATableForPostingsTheBoxSaysThatNothingWasWritten) {
    execute("Drop table PersonsPost");
    EXPECT_FALSE(post("8:00 AM", "8:00 PM"));
    const auto shown = boxes();
    ASSERT_EQ(shown.size(), 1U);
    EXPECT_EQ(shown[0].title, "ZEL: Error");
    EXPECT_TRUE(shown[0].text.starts_with("Error: "));
    EXPECT_TRUE(shown[0].text.ends_with("\r\nThe posting was not written.")) << shown[0].text;
}

} // namespace
} // namespace zel::posting
