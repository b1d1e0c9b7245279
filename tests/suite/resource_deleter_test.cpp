#include "ado/convert.h"
#include "suite/resource_deleter.h"
#include "suite/suite_program.h"

namespace zel::suite {

class ResourceDeleterTest : public SuiteTest {
protected:
    ResourceDeleterTest() { connect(); }

    void addIncident(int id) {
        execute("insert into Incidents (IncidentID, IncidentName, IncidentNumber) values (" + std::to_string(id) +
                ", 'BEAR CREEK', 'OR-ABC-000123')");
    }
    void addResource(int id, const std::string& name, int collection = 0) {
        execute("insert into Resources (ResourceID, IncidentID, Name, RequestNumber, Collection, NumberPersonnel) "
                "values (" +
                std::to_string(id) + ", 7, '" + name + "', 'O-" + std::to_string(id) + "', " +
                std::to_string(collection) + ", 1)");
    }
    void addPerson(int id, int resource, const std::string& lastName) {
        execute("insert into Persons (PersonID, ResourceID, LastName, FirstName) values (" + std::to_string(id) + ", " +
                std::to_string(resource) + ", '" + lastName + "', 'JOHN')");
    }
    void addPosting(int id, int person, double hours, bool invoiced = false) {
        execute("insert into PersonsPost (PersonsPostID, PersonID, ActivityDT, Hours, InvoiceID) values (" +
                std::to_string(id) + ", " + std::to_string(person) + ", '2005-07-01', " + std::to_string(hours) + ", " +
                (invoiced ? "5" : "Null") + ")");
    }
    void addDebit(int id, int person, const std::string& amount) {
        execute("insert into PersonsDebit (PersonsDebitID, PersonID, Amt) values (" + std::to_string(id) + ", " +
                std::to_string(person) + ", " + amount + ")");
    }
    bool deleteResources(const std::string& resources, const std::string& persons) {
        return suite.makeResourceDeleter()->DeleteResources(session, resources, persons, ",");
    }
    bool deleteIncident(int id) {
        bool success = true;
        suite.makeResourceDeleter()->DeleteIncident(session, id, success);
        return success;
    }
};
ZEL_ON_BOTH_ENGINES(ResourceDeleterTest);

TEST_P(ResourceDeleterTest, TheQuestionTellsWhatHangsOnThePerson) {
    addResource(1, "DOE, JOHN");
    addPerson(11, 1, "DOE");
    addPosting(101, 11, 12.5);
    addPosting(102, 11, 8, true);
    addDebit(201, 11, "12.5");
    addDebit(202, 11, "1032.25");
    EXPECT_FALSE(deleteResources("1", "11")); // the default

    const auto shown = box();
    EXPECT_EQ(shown.text, "This will be deleted:\r\n\tDOE, JOHN\r\n\r\nwith all that hangs on it:\r\n"
                          "\tPostings: 2 with 20.50 hours, 1 of them invoiced\r\n"
                          "\tDebits: 2, together $1,044.75\r\n\r\n"
                          "All of it is deleted in one step and cannot be brought back.\r\n\r\n"
                          "Do you want to continue?");
    EXPECT_EQ(shown.title, "ZEL: Delete Resource");
    EXPECT_EQ(shown.icon, "exclamation");
    EXPECT_EQ(shown.buttons, "YesNo");
    EXPECT_EQ(shown.defaultAnswer, "No");
    EXPECT_EQ(rows("PersonsPost"), 2);
    EXPECT_EQ(rows("Persons"), 1);
}

TEST_P(ResourceDeleterTest, AnIndividualGoesWithAllHisRows) {
    addResource(1, "DOE, JOHN");
    addPerson(11, 1, "DOE");
    addPosting(101, 11, 8);
    addDebit(201, 11, "5");
    addResource(2, "ROE, JANE");
    addPerson(12, 2, "ROE");
    addPosting(102, 12, 8);
    dialogs.answer("Yes");
    EXPECT_TRUE(deleteResources("1", "11"));
    EXPECT_EQ(rows("Persons"), 1);
    EXPECT_EQ(rows("PersonsPost"), 1);
    EXPECT_EQ(rows("PersonsDebit"), 0);
    EXPECT_EQ(rows("Resources"), 1);
    EXPECT_EQ(rows("Resources where ResourceID = 2"), 1);
}

TEST_P(ResourceDeleterTest, ACrewStaysWhenAMemberGoesEvenTheLast) {
    addResource(1, "CREW ONE", 1);
    addPerson(11, 1, "DOE");
    addPerson(12, 1, "ROE");
    dialogs.answer("Yes");
    EXPECT_TRUE(deleteResources("1", "11"));
    EXPECT_EQ(rows("Resources where ResourceID = 1 and NumberPersonnel = 1"), 1);
    dialogs.answer("Yes");
    EXPECT_TRUE(deleteResources("1", "12"));
    EXPECT_EQ(rows("Resources where ResourceID = 1 and NumberPersonnel = 0"), 1);
}

TEST_P(ResourceDeleterTest, AWholeCrewGoesWithItsMembers) {
    addResource(1, "CREW ONE", 1);
    addPerson(11, 1, "DOE");
    addPerson(12, 1, "ROE");
    addPosting(101, 11, 8);
    addPosting(102, 12, 8, true);
    dialogs.answer("Yes");
    EXPECT_TRUE(deleteResources("1", ""));
    EXPECT_THAT(box().text, testing::HasSubstr("\tCREW ONE, O-1\r\n"));
    EXPECT_EQ(rows("Persons"), 0);
    EXPECT_EQ(rows("PersonsPost"), 0);
    EXPECT_EQ(rows("Resources"), 0);
}

TEST_P(ResourceDeleterTest, EquipmentGoesWithRatesUseAndAdjustments) {
    addResource(3, "PUMP", 1);
    execute("insert into Equipment (EquipmentID, ResourceID, UniqueEquipmentName) values (30, 3, 'PUMP 1')");
    execute("insert into ContractorPost (ContractorPostID, EquipmentID, ResourceID, ActivityDT, InvoiceID) values "
            "(301, 30, 3, '2005-07-01', 9)");
    execute("insert into UnitOfMeasure (UnitOfMeasureID, EquipmentID, ResourceID, [Primary], Rate) values (31, 30, 3, "
            "1, 5)");
    execute("insert into ContractorAdjustments (ContractorAdjustmentID, EquipmentID, Amt) values (32, 30, -4.5)");
    dialogs.answer("Yes");
    EXPECT_TRUE(deleteResources("3,", ""));
    EXPECT_THAT(box().text, testing::HasSubstr("\tEquipment postings: 1, 1 of them invoiced\r\n"
                                               "\tAdjustments: 1, together ($4.50)\r\n\tRate lines: 1\r\n"));
    for (const char* table : {"Resources", "Equipment", "ContractorPost", "UnitOfMeasure", "ContractorAdjustments"})
        EXPECT_EQ(rows(table), 0) << table;
}

TEST_P(ResourceDeleterTest, AFailureHalfWayLeavesEverything) {
    addResource(1, "DOE, JOHN");
    addPerson(11, 1, "DOE");
    addPosting(101, 11, 8);
    execute("insert into PersonsInvoices (InvoiceID, PersonID) values (5, 11)");
    execute("alter table PersonsInvoices rename to Elsewhere");
    connect();
    dialogs.answer("Yes");
    EXPECT_FALSE(deleteResources("1", "11"));
    const auto shown = dialogs.take();
    ASSERT_EQ(shown.size(), 2U);
    EXPECT_EQ(shown[1].title, "ZEL: Delete Resource");
    EXPECT_EQ(rows("PersonsPost"), 1);
    EXPECT_EQ(rows("Persons"), 1);
}

TEST_P(ResourceDeleterTest, KeysThatNameNothingAskNothing) {
    EXPECT_FALSE(deleteResources("", "11"));
    EXPECT_FALSE(deleteResources("0", ""));
    EXPECT_FALSE(deleteResources("x", "y"));
    EXPECT_FALSE(deleteResources("4711", ""));
    EXPECT_TRUE(dialogs.take().empty());
}

TEST_P(ResourceDeleterTest, AnIncidentGoesWithEverythingAndNothingElse) {
    addIncident(7);
    execute("insert into Incidents (IncidentID, IncidentName) values (8, 'ELK RIDGE')");
    execute("insert into AccountingCodes (AccountingID, IncidentID, AccountingCode, IncidentDefault) values (31, 7, "
            "'A', 1)");
    execute("insert into AccountingCodes (AccountingID, IncidentID, AccountingCode, IncidentDefault) values (32, 8, "
            "'B', 1)");
    execute("insert into Contractor (ContractorID, IncidentID, ContractorName) values (41, 7, 'ACME')");
    execute("insert into Agreement (AgreementID, ContractorID) values (42, 41)");
    addResource(1, "DOE, JOHN");
    addPerson(11, 1, "DOE");
    addPosting(101, 11, 8);
    dialogs.answer("Yes");
    EXPECT_TRUE(deleteIncident(7));

    const auto shown = box();
    EXPECT_EQ(shown.title, "ZEL: Delete Incident");
    EXPECT_EQ(shown.defaultAnswer, "No");
    EXPECT_THAT(shown.text, testing::HasSubstr("\tBEAR CREEK, OR-ABC-000123\r\n"));
    for (const char* table : {"Resources", "Persons", "PersonsPost", "Contractor", "Agreement"})
        EXPECT_EQ(rows(table), 0) << table;
    EXPECT_EQ(rows("Incidents"), 1);
    EXPECT_EQ(rows("AccountingCodes"), 1);
}

TEST_P(ResourceDeleterTest, NoKeepsTheIncident) {
    addIncident(7);
    EXPECT_FALSE(deleteIncident(7));
    EXPECT_EQ(rows("Incidents"), 1);
}

TEST_P(ResourceDeleterTest, WithoutAnIncidentItSaysSo) {
    EXPECT_FALSE(deleteIncident(-1));
    EXPECT_EQ(box().text, "There is no incident to delete.");
}

} // namespace zel::suite
