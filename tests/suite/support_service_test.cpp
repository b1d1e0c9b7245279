#include "ado/convert.h"
#include "suite/suite_program.h"

namespace zel::suite {

class SupportServiceTest : public SuiteTest {
protected:
    SupportServiceTest() {
        connect();
        execute("insert into Resources (ResourceID, IncidentID, Name) values (3, 7, 'PUMP')");
        execute("insert into Equipment (EquipmentID, ResourceID) values (30, 3)");
    }
    void addUse(const std::string& day) {
        execute("insert into ContractorPost (ContractorPostID, EquipmentID, ActivityDT) values (301, 30, '" + day +
                "')");
    }
    bool check(const std::string& date) { return suite.support().CheckReleaseDate(session, 3, date); }
};
ZEL_ON_BOTH_ENGINES(SupportServiceTest);

TEST_P(SupportServiceTest, AReleaseBeforeTheLastPostingIsRefused) {
    addUse("2005-07-03");
    EXPECT_FALSE(check("07/02/2005"));
    const auto shown = box();
    EXPECT_EQ(shown.text, "The release date 07/02/2005 lies before the last posting of this resource on 07/03/2005.\r\n"
                          "Correct the date, or delete the postings first.");
    EXPECT_EQ(shown.title, "ZEL: Release Date");
    EXPECT_EQ(shown.icon, "exclamation");
}

TEST_P(SupportServiceTest, TheDayOfTheLastPostingAndLaterDaysPass) {
    addUse("2005-07-03");
    EXPECT_TRUE(check("7/3/2005"));
    EXPECT_TRUE(check("07/04/2005"));
    EXPECT_TRUE(dialogs.take().empty());
}

TEST_P(SupportServiceTest, PostingsOfItsPeopleCountToo) {
    execute("insert into Persons (PersonID, ResourceID, LastName) values (11, 3, 'DOE')");
    execute("insert into PersonsPost (PersonsPostID, PersonID, ActivityDT) values (101, 11, '2005-07-09')");
    addUse("2005-07-03");
    EXPECT_FALSE(check("07/08/2005"));
    EXPECT_TRUE(check("07/09/2005"));
}

TEST_P(SupportServiceTest, WithoutPostingsOrADateThereIsNothingToSay) {
    EXPECT_TRUE(check("01/01/1999"));
    addUse("2005-07-03");
    EXPECT_TRUE(check("__/__/____"));
    EXPECT_TRUE(dialogs.take().empty());
}

TEST_P(SupportServiceTest, SupportNamesTheVersions) {
    session.gDBVersion = "5.01.00";
    session.gBuildVersion = "Unknown";
    suite.support().ShowSupport(session);
    EXPECT_THAT(box().text, testing::HasSubstr("Program version:\t5.01.00\r\nDatabase version:\t5.01.00\r\n"));
}

} // namespace zel::suite
