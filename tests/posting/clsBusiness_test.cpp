#include "posting/clsBusiness.h"

#include "ado/convert.h"
#include "services/services_test.h"
#include "support/database_test.h"

namespace zel::posting {
namespace {

const ado::DateTime fourthOfJuly = ado::DateTime::fromDate(2005, 7, 4);

class clsBusinessTest : public services::ServicesTest {
protected:
    const clsBusiness rules{session};
};

TEST_F(clsBusinessTest, AnInvoiceThatEndsOnOrAfterTheActivityForbidsItWithoutABox) {
    session.gInvoiceDate = "7/3/2005";
    EXPECT_TRUE(rules.CompareInvoiceDate(fourthOfJuly));
    session.gInvoiceDate = "7/4/2005";
    EXPECT_FALSE(rules.CompareInvoiceDate(fourthOfJuly));
    session.gInvoiceDate = "7/5/2005";
    EXPECT_FALSE(rules.CompareInvoiceDate(fourthOfJuly));
    expectNoBox();
}

TEST_F(clsBusinessTest, TextsThatAreNoDatePass) {
    for (const char* text : {"", "none", "24:00"}) {
        session.gInvoiceDate = session.gIncidentStart = session.gHireDate = text;
        EXPECT_TRUE(rules.CompareInvoiceDate(fourthOfJuly)) << text;
        EXPECT_TRUE(rules.CompareIncStartDate(fourthOfJuly)) << text;
        EXPECT_TRUE(rules.CompareHireDate(fourthOfJuly)) << text;
    }
    expectNoBox();
}

TEST_F(clsBusinessTest, TheDayOfTheStartAndOfTheHirePass) {
    session.gIncidentStart = session.gHireDate = "07/04/2005";
    EXPECT_TRUE(rules.CompareIncStartDate(fourthOfJuly));
    EXPECT_TRUE(rules.CompareHireDate(fourthOfJuly));
    expectNoBox();
}

TEST_F(clsBusinessTest, AnActivityBeforeTheIncidentIsTold) {
    session.gIncidentStart = "7/5/2005";
    EXPECT_FALSE(rules.CompareIncStartDate(fourthOfJuly));
    const auto shown = box();
    EXPECT_EQ(shown.title, "ZEL: Invalid Date vs Incident Start Date");
    EXPECT_EQ(shown.text, "Cannot have an activity date prior to INCIDENT START date!\r\n"
                          "\tActivity Date: 7/4/2005\r\nIncident Start Date: 7/5/2005");
    EXPECT_EQ(shown.icon, "exclamation");
}

TEST_F(clsBusinessTest, AnActivityBeforeTheHireIsTold) {
    session.gHireDate = "7/5/2005";
    EXPECT_FALSE(rules.CompareHireDate(fourthOfJuly));
    const auto shown = box();
    EXPECT_EQ(shown.title, "ZEL: Invalid Date vs Resource Hire Date");
    EXPECT_EQ(shown.text, "Cannot have an activity date prior to RESOURCE HIRE date!\r\n"
                          "Activity Date: 7/4/2005\r\nHire Date: 7/5/2005");
    EXPECT_EQ(shown.icon, "exclamation");
}

TEST_F(clsBusinessTest, ARateUpToAHundredIsNotAskedAbout) {
    for (float rate : {-5.0F, 0.0F, 18.2F, 99.99F, 100.0F}) {
        const float before = rate;
        EXPECT_TRUE(rules.ValidRate(rate)) << before;
        EXPECT_EQ(rate, before);
    }
    expectNoBox();
}

TEST_F(clsBusinessTest, ARateAboveAHundredStaysOnYes) {
    float rate = 100.01F;
    program.dialogs.answer("Yes");
    EXPECT_TRUE(rules.ValidRate(rate));
    EXPECT_EQ(rate, 100.01F);
    const auto shown = box();
    EXPECT_EQ(shown.title, "Excess Rate");
    EXPECT_EQ(shown.text, "The Rate entered was $100.01 which is greater then $100. \r\nIs this rate correct?");
    EXPECT_EQ(shown.buttons, "YesNo");
    EXPECT_EQ(shown.icon, "exclamation");
}

TEST_F(clsBusinessTest, ARateAboveAHundredBecomesZeroOnNo) {
    float rate = 182.0F;
    program.dialogs.answer("No");
    EXPECT_FALSE(rules.ValidRate(rate));
    EXPECT_EQ(rate, 0.0F);
}

/// Invoices of a person in the database of either engine.
class PostDateInvoiced : public test::DatabaseTest {
protected:
    PostDateInvoiced() {
        program.session.gConnection = std::make_shared<ado::Connection>(database().open());
        add(1, 17, "2005-07-04", 0);
        add(2, 17, "2005-06-20", 0);
        add(3, 18, "2005-07-04", 1);
    }
    void add(int invoice, int person, const char* last, int deleted) {
        connection().Execute("insert into PersonsInvoices (InvoiceID,PersonID,LastDate,Del) values (" +
                             ado::Sql::of(invoice) + "," + ado::Sql::of(person) + ",'" + ado::Sql::of(last) + "'," +
                             ado::Sql::of(deleted) + ")");
    }
    bool invoiced(int person, const char* day) {
        return clsBusiness(program.session).PostDateInvoiced(person, ado::toDateTime(day));
    }

    platform::ScratchFolder folder;
    services::TestSession program{folder.path()};
};

ZEL_ON_BOTH_ENGINES(PostDateInvoiced);

TEST_P(PostDateInvoiced, TheLatestInvoiceCoversItsLastDay) {
    EXPECT_TRUE(invoiced(17, "7/3/2005"));
    EXPECT_TRUE(invoiced(17, "7/4/2005"));
    EXPECT_FALSE(invoiced(17, "7/5/2005"));
}

TEST_P(PostDateInvoiced, DeletedInvoicesAndOtherPersonsDoNotCount) {
    EXPECT_FALSE(invoiced(18, "7/1/2005"));
    EXPECT_FALSE(invoiced(19, "7/1/2005"));
}

TEST_P(PostDateInvoiced, AsksForTheLatestInvoiceThatIsNotDeleted) {
    std::string sent;
    program.session.connection().setObserver([&](const std::string& statement) { sent = statement; });
    (void)invoiced(17, "7/3/2005");
    EXPECT_EQ(sent, "Select Max(LastDate) as LastDate From PersonsInvoices Where PersonID = 17 and Del = 0");
}

TEST_P(PostDateInvoiced, WithoutADatabaseItIsAnErrorOfTheObject) {
    program.session.gConnection.reset();
    EXPECT_THROW((void)invoiced(17, "7/3/2005"), ado::Error);
}

} // namespace
} // namespace zel::posting
