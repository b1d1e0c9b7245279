#include "korvandb/check.h"
#include "support/database_test.h"

#include <gmock/gmock.h>

namespace zel::korvandb {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

void ignoreProgress(std::string_view /*work*/, std::int64_t /*done*/, std::int64_t /*total*/) {}

/// Plants one fault in a sound database and looks at what the check says of it.
class Check : public zel::test::DatabaseTest {
protected:
    void SetUp() override {
        run("INSERT INTO Incidents (IncidentID, IncidentName) VALUES (1, 'PINE')");
        run("INSERT INTO AccountingCodes VALUES (5, 1, 'P4', 'FORS', 1)");
        run("INSERT INTO Resources (ResourceID, IncidentID, AccountingID) VALUES (10, 1, 5)");
        run("INSERT INTO Persons (PersonID, ResourceID) VALUES (30, 10)");
        run("INSERT INTO PersonsPost (PersonsPostID, PersonID, ActivityDT, StartTime, Rate, Hours) VALUES "
            "(70, 30, '2005-07-01 00:00:00', '1899-12-30 08:00:00', '18.2000', 2.5)");
    }
    void run(const std::string& statement) { connection().engine().prepare(statement, true)->execute({}); }
    std::vector<std::string> faults() {
        connection().engine().refreshCatalog();
        return checkDatabase(connection().engine(), ignoreProgress);
    }
};
ZEL_ON_BOTH_ENGINES(Check);

TEST_P(Check, A_sound_database_has_no_faults) {
    EXPECT_THAT(faults(), IsEmpty());
}

TEST_P(Check, A_row_whose_parent_is_gone) {
    run("UPDATE Persons SET ResourceID = 11");
    EXPECT_THAT(faults(),
                ElementsAre("Persons.ResourceID: 1 row is of no row of Resources, the first with PersonID 30."));
}

TEST_P(Check, Every_relation_is_looked_at) {
    for (const char* statement :
         {"INSERT INTO AccountingCodes VALUES (6, 99, 'X', NULL, 1)",
          "INSERT INTO Resources (ResourceID, IncidentID, AccountingID, AgreementID) VALUES (11, 99, 99, 99)",
          "INSERT INTO Persons (PersonID, ResourceID, AccountingID) VALUES (31, 99, 99)",
          "INSERT INTO Equipment (EquipmentID, ResourceID, AgreementID, AccountingID) VALUES (41, 99, 99, 99)",
          "INSERT INTO UnitOfMeasure (UnitOfMeasureID, EquipmentID, ResourceID) VALUES (51, 99, 99)",
          "INSERT INTO Contractor (ContractorID, IncidentID) VALUES (61, 99)",
          "INSERT INTO Agreement (AgreementID, ContractorID, AdminOfficeID) VALUES (62, 99, 99)",
          "INSERT INTO PersonsPost (PersonsPostID, PersonID, AccountingID, InvoiceID) VALUES (71, 99, 99, 99)",
          ("INSERT INTO ContractorPost (ContractorPostID, EquipmentID, ResourceID, AccountingID, InvoiceID) VALUES "
           "(72, 99, 99, 99, 99)"),
          "INSERT INTO PersonsDebit (PersonsDebitID, PersonID, AccountingID) VALUES (81, 99, 99)",
          ("INSERT INTO ContractorAdjustments (ContractorAdjustmentID, ContractorID, EquipmentID, ResourceID, "
           "AccountingID, InvoiceID) VALUES (82, 99, 99, 99, 99, 99)")})
        run(statement);
    std::vector<std::string> columns;
    for (const std::string& fault : faults())
        columns.push_back(fault.substr(0, fault.find(':')));
    EXPECT_THAT(columns,
                ElementsAre("AccountingCodes.IncidentID", "Resources.IncidentID", "Resources.AccountingID",
                            "Resources.AgreementID", "Persons.ResourceID", "Persons.AccountingID",
                            "Equipment.ResourceID", "Equipment.AgreementID", "Equipment.AccountingID",
                            "UnitOfMeasure.EquipmentID", "UnitOfMeasure.ResourceID", "Contractor.IncidentID",
                            "Agreement.ContractorID", "Agreement.AdminOfficeID", "PersonsPost.PersonID",
                            "PersonsPost.AccountingID", "PersonsPost.InvoiceID", "ContractorPost.EquipmentID",
                            "ContractorPost.ResourceID", "ContractorPost.AccountingID", "ContractorPost.InvoiceID",
                            "PersonsDebit.PersonID", "PersonsDebit.AccountingID", "ContractorAdjustments.ContractorID",
                            "ContractorAdjustments.EquipmentID", "ContractorAdjustments.ResourceID",
                            "ContractorAdjustments.AccountingID", "ContractorAdjustments.InvoiceID"));
}

TEST_P(Check, No_account_is_no_orphan) {
    run("UPDATE Resources SET AccountingID = NULL");
    run("UPDATE Persons SET AccountingID = 0");
    run("UPDATE PersonsPost SET AccountingID = -1");
    EXPECT_THAT(faults(), IsEmpty());
}

TEST_P(Check, A_key_number_that_would_be_given_twice) {
    run("INSERT INTO NextNumbers VALUES ('Persons', 30)");
    EXPECT_THAT(faults(), ElementsAre("NextNumbers: the next key of Persons would be 30, but 30 is in use."));
    run("UPDATE NextNumbers SET NextNumber = 31");
    EXPECT_THAT(faults(), IsEmpty());
}

TEST_P(Check, A_key_number_of_no_table) {
    run("INSERT INTO NextNumbers VALUES ('Horses', 4)");
    EXPECT_THAT(faults(), ElementsAre("NextNumbers: 'Horses' is no table with keys."));
}

TEST_P(Check, A_key_below_1_is_no_key) {
    run("INSERT INTO AdminOffice (AdminOfficeID) VALUES (0)");
    EXPECT_THAT(faults(), ElementsAre("AdminOffice.AdminOfficeID: 1 row is no key, being below 1, the first with "
                                      "AdminOfficeID 0."));
}

TEST_P(Check, A_flag_of_minus_one) {
    run("UPDATE Resources SET Collection = -1");
    EXPECT_THAT(faults(), ElementsAre("Resources.Collection: 1 row is neither 0 nor 1, the first with ResourceID 10."));
}

TEST_P(Check, Two_defaults_or_none_in_one_incident) {
    run("INSERT INTO AccountingCodes VALUES (6, 1, 'P5', 'FORS', 1)");
    EXPECT_THAT(faults(), ElementsAre("AccountingCodes: incident 1 has 2 default codes."));
    run("UPDATE AccountingCodes SET IncidentDefault = 0");
    EXPECT_THAT(faults(), ElementsAre("AccountingCodes: incident 1 has no default codes."));
}

TEST_P(Check, A_missing_version) {
    run("DELETE FROM Version WHERE Module = 'Database'");
    EXPECT_THAT(faults(), ElementsAre("Version: there is no row for the module Database."));
}

TEST_P(Check, Missing_tables_columns_views_and_indexes) {
    run("DROP VIEW qryAgency");
    run("DROP TABLE quals");
    run("ALTER TABLE airday RENAME COLUMN ResourceID TO Resource");
    run(onSqlite() ? "DROP INDEX ix_Persons_SSN" : "DROP INDEX dbo.ix_persons_ssn");
    EXPECT_THAT(faults(), ElementsAre("The index ix_Persons_SSN is missing.", "The table quals is missing.",
                                      "The column airday.ResourceID is missing.", "The view qryAgency is missing."));
}

TEST_P(Check, A_time_with_a_fraction_of_a_second) {
    run("UPDATE PersonsPost SET StartTime = '1899-12-30 08:00:00.25'");
    EXPECT_THAT(faults(),
                ElementsAre("PersonsPost.StartTime: 1 row is no day and time in the form 2005-07-04 13:30:00, "
                            "the first with PersonsPostID 70."));
}

/// What only SQLite would keep: PostgreSQL refuses such values itself.
class FileCheck : public testing::Test {
protected:
    void SetUp() override { run("INSERT INTO PersonsPost (PersonsPostID) VALUES (70), (71)"); }
    void run(const std::string& statement) { database_.connection().engine().prepare(statement, true)->execute({}); }
    std::vector<std::string> faults() { return checkDatabase(database_.connection().engine(), ignoreProgress); }
    /// Sets the column of both rows, one after the other, and counts the faults.
    std::size_t faultsWith(const std::string& column, const std::string& literal) {
        run("UPDATE PersonsPost SET " + column + " = " + literal + " WHERE PersonsPostID = 71");
        const std::size_t count = faults().size();
        run("UPDATE PersonsPost SET " + column + " = NULL");
        return count;
    }

private:
    zel::test::TestDatabase database_{ado::EngineKind::Sqlite};
};

TEST_F(FileCheck, Dates_are_texts_of_19_characters_and_days_of_the_calendar) {
    for (const char* bad : {"'7/4/2005'", "'2005-07-04'", "'2005-07-04 24:00:00'", "'2005-02-30 00:00:00'", "''",
                            "38537", "'2005-07-04T08:00:00'", "'2005-07-04 8:00:00'"})
        EXPECT_EQ(faultsWith("ActivityDT", bad), 1U) << bad;
    for (const char* good : {"'2005-07-04 00:00:00'", "'1899-12-30 23:59:59'", "'2004-02-29 08:00:00'", "NULL"})
        EXPECT_EQ(faultsWith("ActivityDT", good), 0U) << good;
}

TEST_F(FileCheck, Money_is_a_text_with_four_decimals) {
    for (const char* bad : {"'18.2'", "'18'", "'18.20000'", "'$18.2000'", "'1,018.2000'", "'--1.0000'", "'-.5000'",
                            "'.5000'", "'007.0000'", "'1-2.0000'", "''", "'1e3'"})
        EXPECT_EQ(faultsWith("Amt", bad), 1U) << bad;
    for (const char* good : {"'18.2000'", "'-0.0001'", "'0.0000'", "'922337203685477.5807'", "NULL"})
        EXPECT_EQ(faultsWith("Amt", good), 0U) << good;
}

TEST_F(FileCheck, Numbers_are_numbers) {
    EXPECT_EQ(faultsWith("Hours", "'eight'"), 1U);
    EXPECT_EQ(faultsWith("Hours", "8"), 0U);
    EXPECT_EQ(faultsWith("CollectionPostID", "'none'"), 1U);
    EXPECT_EQ(faultsWith("CollectionPostID", "-2147483649"), 1U);
    EXPECT_EQ(faultsWith("Class", "x'4144'"), 1U);
}

TEST_F(FileCheck, A_fault_names_how_many_rows_have_it_and_the_first) {
    run("UPDATE PersonsPost SET Amt = '5'");
    EXPECT_THAT(faults(), ElementsAre("PersonsPost.Amt: 2 rows are no amount with four decimals, the first with "
                                      "PersonsPostID 70."));
}

} // namespace
} // namespace zel::korvandb
