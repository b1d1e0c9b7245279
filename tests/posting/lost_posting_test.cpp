#include "posting/modPost.h"

#include "ado/convert.h"
#include "ado/postgres/open.h"
#include "core/frmConfirm.h"
#include "core/modData.h"
#include "support/test_session.h"

#include <gmock/gmock.h>

namespace zel::posting {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// The server ends the clerk's session while a row is written or deleted, so that nobody knows whether it was.
class LostPostingTest : public test::SessionTest {
protected:
    LostPostingTest() {
        program().forms.add("frmConfirm", [this] { return std::make_unique<core::frmConfirm>(session()); });
        execute("Insert into Resources (ResourceID,IncidentID,RequestNumber,Name) Values (1,1,'O-1','DOE, JOHN')");
        execute("Insert into Persons (PersonID,ResourceID,FirstName,LastName,SSN,FedCode,Class,Rate) Values "
                "(1,1,'JOHN','DOE','123456789','AD','AD-3',10)");
        other("create function end_session() returns trigger language plpgsql as 'begin perform "
              "pg_terminate_backend(pg_backend_pid()); perform pg_sleep(10); return null; end'");
        session().vYNMS = -1;
        EXPECT_EQ(core::NextNumber(session().connection(), "PersonsPost"), 1); // the next posting is 2
    }
    /// On a connection that is not ended.
    void other(const std::string& statement) {
        (void)database().connection().engine().prepare(statement, true)->execute({});
    }
    void endSessionOn(const std::string& event, int key) {
        other("create trigger lost before " + event + " on PersonsPost for each row when (" +
              (event == "insert" ? "new" : "old") + ".PersonsPostID = " + std::to_string(key) +
              ") execute function end_session()");
    }
    /// New sessions are refused, or taken again.
    void refuseSessions(bool refused) {
        const auto besides = ado::openPostgres({database().server(), "postgres", test::serverUser, {}});
        (void)besides
            ->prepare("alter database \"" + database().catalog() + "\" with allow_connections " +
                          (refused ? "false" : "true"),
                      true)
            ->execute({});
    }
    bool post(const char* start, const char* stop) {
        PersonPosting one;
        one.ActivityDT = ado::DateTime::fromDate(2005, 7, 4);
        one.Start = ado::toDateTime(start);
        one.Stop = ado::toDateTime(stop);
        one.PersonID = 1;
        one.AccountingID = 7;
        return PostPerson(session(), one);
    }
    /// A row that is there under the key, as after a write that went through.
    void present(int key) {
        other("insert into PersonsPost (PersonsPostID,PersonID,ActivityDT) values (" + std::to_string(key) +
              ",99,'2005-07-04')");
    }
    std::string failureText() {
        const auto shown = boxes();
        return shown.empty() ? std::string() : shown.back().text;
    }
    std::vector<std::string> posts() {
        return rows("Select PersonsPostID from PersonsPost where PersonID = 1 order by PersonsPostID");
    }
};
INSTANTIATE_TEST_SUITE_P(Engines, LostPostingTest, testing::Values(ado::EngineKind::Postgres), test::engineName);

TEST_P(LostPostingTest, ARowThatDidNotArriveIsToldAsNotWritten) {
    endSessionOn("insert", 2);
    EXPECT_FALSE(post("8:00 AM", "12:00 PM"));
    EXPECT_THAT(failureText(), HasSubstr("\r\nFailure during Split check\r\nThe posting was not written."));
    EXPECT_THAT(posts(), IsEmpty());
}

TEST_P(LostPostingTest, ARowThatArrivedIsToldAsWrittenAndCounts) {
    present(2);
    endSessionOn("insert", 2);
    EXPECT_TRUE(post("8:00 AM", "12:00 PM"));
    EXPECT_THAT(failureText(), HasSubstr("\r\nThe posting was written."));
}

TEST_P(LostPostingTest, WithoutAnAnswerFromTheDatabaseNothingIsClaimed) {
    endSessionOn("insert", 2);
    refuseSessions(true);
    EXPECT_FALSE(post("8:00 AM", "12:00 PM"));
    EXPECT_THAT(failureText(), HasSubstr("It is not known whether the posting was written."));
    refuseSessions(false);
}

TEST_P(LostPostingTest, HalvesAreLookedUpOneByOne) {
    dialogs().answer("Yes");
    endSessionOn("insert", 4); // 2 is the key of a posting that is not split
    EXPECT_FALSE(post("10:00 PM", "6:00 AM"));
    EXPECT_THAT(failureText(), HasSubstr("The part before midnight was written, the part after midnight was not."));
    EXPECT_THAT(posts(), ElementsAre("3"));
}

TEST_P(LostPostingTest, ALostFirstHalfMeansNeither) {
    dialogs().answer("Yes");
    endSessionOn("insert", 3);
    EXPECT_FALSE(post("10:00 PM", "6:00 AM"));
    EXPECT_THAT(failureText(), HasSubstr("Neither half of the posting was written."));
    EXPECT_THAT(posts(), IsEmpty());
}

TEST_P(LostPostingTest, ASecondHalfThatArrivedMakesThePostingWhole) {
    dialogs().answer("Yes");
    present(4);
    endSessionOn("insert", 4);
    EXPECT_TRUE(post("10:00 PM", "6:00 AM"));
    EXPECT_THAT(failureText(), HasSubstr("Both halves of the posting were written."));
}

TEST_P(LostPostingTest, AHalfThatGotNoKeyWasNotWritten) {
    dialogs().answer("Yes");
    other("create trigger lost before update on NextNumbers for each row when (new.NextNumber > 4) execute function "
          "end_session()");
    EXPECT_FALSE(post("10:00 PM", "6:00 AM"));
    EXPECT_THAT(failureText(), HasSubstr("The part before midnight was written, the part after midnight was not."));
    EXPECT_THAT(posts(), ElementsAre("3"));
}

TEST_P(LostPostingTest, AHalfInDoubtIsSaidToBe) {
    dialogs().answer("Yes");
    endSessionOn("insert", 4);
    refuseSessions(true);
    EXPECT_FALSE(post("10:00 PM", "6:00 AM"));
    EXPECT_THAT(failureText(), HasSubstr("it is not known whether the part after midnight was."));
    refuseSessions(false);
}

TEST_P(LostPostingTest, ADeleteThatIsLostIsLookedUpToo) {
    EXPECT_TRUE(post("8:00 AM", "9:00 AM"));
    EXPECT_TRUE(post("10:00 AM", "11:00 AM"));
    endSessionOn("delete", 3);
    dialogs().answer("Yes");
    EXPECT_FALSE(post("8:00 AM", "12:00 PM"));
    EXPECT_THAT(failureText(), HasSubstr("The posting was not written. 1 overlapping post(s) had been deleted."));
    EXPECT_THAT(posts(), ElementsAre("3"));
}

TEST_P(LostPostingTest, ADeleteInDoubtIsSaidToBe) {
    EXPECT_TRUE(post("8:00 AM", "9:00 AM"));
    endSessionOn("delete", 2);
    refuseSessions(true);
    dialogs().answer("Yes");
    EXPECT_FALSE(post("8:00 AM", "12:00 PM"));
    EXPECT_THAT(failureText(), HasSubstr("Of one overlapping post it is not known whether it was deleted."));
    refuseSessions(false);
}

} // namespace
} // namespace zel::posting
