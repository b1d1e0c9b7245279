#include "ado/convert.h"
#include "ado/error.h"
#include "korvandb/create.h"
#include "korvandb/ddl.h"
#include "korvandb/rows.h"
#include "support/database_test.h"

#include <gmock/gmock.h>

namespace zel::korvandb {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::UnorderedElementsAre;

/// A database as it is when it was just created.
class NewDatabase : public zel::test::DatabaseTest {
protected:
    /// Rows as texts, their cells joined by "|".
    std::vector<std::string> list(const std::string& statement, std::size_t columns = 1) {
        const Rows rows(engine(), statement);
        std::vector<std::string> lines;
        for (std::size_t row = 0; row < rows.size(); ++row) {
            std::string line = rows.text(row, 0);
            for (std::size_t column = 1; column < columns; ++column)
                line += "|" + rows.text(row, column);
            lines.push_back(line);
        }
        return lines;
    }
    std::int64_t number(const std::string& statement) { return Rows(engine(), statement).number(0, 0); }
    void run(const std::string& statement) { engine().prepare(statement, true)->execute({}); }
    ado::Engine& engine() { return connection().engine(); }
};
ZEL_ON_BOTH_ENGINES(NewDatabase);

TEST_P(NewDatabase, Holds_every_table_with_every_column_type_and_key) {
    for (const Table& table : theSchema().tables) {
        const ado::CatalogTable* made = engine().catalog().table(table.name);
        ASSERT_NE(made, nullptr) << table.name;
        ASSERT_EQ(made->columns.size(), table.columns.size()) << table.name;
        for (const Column& column : table.columns) {
            ASSERT_NE(made->column(column.name), nullptr) << table.name << "." << column.name;
            EXPECT_EQ(made->column(column.name)->type, column.type) << table.name << "." << column.name;
        }
        const Column* primary = table.primary();
        EXPECT_EQ(ado::lowerCase(made->key), primary == nullptr ? "" : ado::lowerCase(primary->name)) << table.name;
    }
    for (const View& view : theSchema().views)
        EXPECT_TRUE(engine().catalog().table(view.name)->isView()) << view.name;
}

TEST_P(NewDatabase, Holds_no_incident_and_gives_no_number_before_it_is_asked) {
    for (const char* table : {"Incidents", "Resources", "Persons", "PersonsPost", "NextNumbers"})
        EXPECT_EQ(number(std::string("SELECT count(*) FROM ") + table), 0) << table;
}

TEST_P(NewDatabase, Carries_its_versions) {
    EXPECT_THAT(list("SELECT Module, Version FROM Version", 2),
                UnorderedElementsAre("Database|5.01.00", "ZEL|5.01.00"));
}

TEST_P(NewDatabase, Statuses_tell_who_is_listed_and_who_may_be_posted) {
    EXPECT_THAT(list("SELECT Code, Description FROM L_Status WHERE ZEL = 1 ORDER BY Code", 2),
                ElementsAre("A|Assigned", "C|Checked In", "D|Demobed", "P|Pending Demob", "R|Reassigned"));
    EXPECT_THAT(list("SELECT Code FROM L_Status WHERE Postable = 1 ORDER BY Code"), ElementsAre("A", "C", "P"));
    EXPECT_EQ(number("SELECT count(*) FROM L_Status WHERE ZEL = 0"), 4);
}

TEST_P(NewDatabase, Knows_the_states_the_district_and_the_territories) {
    EXPECT_EQ(number("SELECT count(*) FROM L_State"), 56);
    EXPECT_THAT(list("SELECT Description FROM L_State WHERE Code IN ('DC', 'MT', 'PR') ORDER BY Code"),
                ElementsAre("District of Columbia", "Montana", "Puerto Rico"));
}

TEST_P(NewDatabase, Times_run_by_quarters_from_one_past_midnight_to_the_end_of_the_day) {
    const std::vector<std::string> times = list("SELECT Time FROM L_Time ORDER BY Time");
    ASSERT_EQ(times.size(), 97U);
    EXPECT_EQ(times.front(), "00:01");
    EXPECT_EQ(times[1], "00:15");
    EXPECT_EQ(times[2], "00:30");
    EXPECT_EQ(times[95], "23:45");
    EXPECT_EQ(times.back(), "24:00");
}

TEST_P(NewDatabase, The_code_of_a_class_rate_is_the_areas_letter_and_the_class_from_its_fourth_character) {
    const Rows rates(engine(), "SELECT Area, Class, ClassRatesCode FROM L_ClassRates");
    ASSERT_EQ(rates.size(), 15U);
    for (std::size_t row = 0; row < rates.size(); ++row)
        EXPECT_EQ(rates.text(row, 2), rates.text(row, 0).substr(0, 1) + rates.text(row, 1).substr(3));
    EXPECT_THAT(list("SELECT DISTINCT substr(Area, 1, 1) FROM L_ClassRates"), UnorderedElementsAre("A", "C", "H"));
    EXPECT_THAT(list("SELECT DISTINCT Class FROM L_ClassRates ORDER BY Class"),
                ElementsAre("AD-1", "AD-2", "AD-3", "AD-4", "AD-5"));
    EXPECT_THAT(list("SELECT Rate FROM L_ClassRates WHERE ClassRatesCode IN ('A3', 'C5') ORDER BY ClassRatesCode"),
                ElementsAre("21.36", "0"));
}

TEST_P(NewDatabase, Premium_codes_begin_with_the_blank_one_and_end_with_return_travel) {
    const std::vector<std::string> codes = list("SELECT PremiumCode, PremiumCode FROM L_Premium");
    EXPECT_EQ(codes.front(), "");
    EXPECT_EQ(codes.back(), "TRAVEL");
    for (const char* code : {"HP", "GUAR", "COP", "DAY OFF"})
        EXPECT_THAT(codes, Contains(code));
}

TEST_P(NewDatabase, Kinds_have_a_category_that_is_there) {
    EXPECT_THAT(list("SELECT Code FROM L_RequestCat"), ElementsAre("A", "C", "E", "O", "S"));
    EXPECT_EQ(number("SELECT count(*) FROM L_Kind WHERE RequestCat NOT IN (SELECT Code FROM L_RequestCat)"), 0);
    for (const char* category : {"A", "C", "E", "O", "S"})
        EXPECT_GT(number(std::string("SELECT count(*) FROM L_Kind WHERE RequestCat = '") + category + "'"), 2);
}

TEST_P(NewDatabase, Rate_types_of_equipment_are_the_four_units) {
    EXPECT_THAT(list("SELECT EquipDescription FROM L_RateType WHERE EquipRate = 1 ORDER BY EquipDescription"),
                ElementsAre("Daily", "Each", "Hourly", "Mileage"));
}

TEST_P(NewDatabase, Agencies_come_with_their_groups) {
    EXPECT_THAT(list("SELECT AgencyDesc, AGD, RGD FROM qryAgency WHERE AgencyCode = 'pvt'", 3),
                ElementsAre("Private Contractor|Private|Contract Rates"));
    EXPECT_EQ(number("SELECT count(*) FROM qryAgency WHERE AGD IS NULL OR RGD IS NULL"), 0);
}

TEST_P(NewDatabase, A_row_that_names_only_its_key_has_the_defaults_that_lists_count_on) {
    run("INSERT INTO Resources (ResourceID) VALUES (1)");
    run("INSERT INTO PersonsPost (PersonsPostID) VALUES (1)");
    EXPECT_THAT(list("SELECT ParentID, Collection, ContractedResource, NumberPersonnel FROM Resources", 4),
                ElementsAre("0|False|False|0"));
    EXPECT_THAT(list("SELECT FinalCol FROM PersonsPost"), ElementsAre("0"));
}

TEST_P(NewDatabase, An_incident_has_an_account_code_once_whatever_its_letters_case) {
    run("INSERT INTO AccountingCodes VALUES (1, 7, 'P4EK17', 'FORS', 1)");
    run("INSERT INTO AccountingCodes VALUES (2, 8, 'P4EK17', 'FORS', 1)");
    try {
        run("INSERT INTO AccountingCodes VALUES (3, 7, 'p4ek17', 'FORS', 0)");
        FAIL() << "the second code was taken";
    } catch (const ado::Error& refusal) {
        EXPECT_EQ(refusal.kind(), ado::ErrorKind::Constraint);
    }
}

TEST(ServerFunctions, Answer_with_any_search_path) {
    zel::test::TestDatabase database(ado::EngineKind::Postgres);
    ado::Engine& engine = database.connection().engine();
    engine.prepare("INSERT INTO Persons (PersonID) VALUES (41)", true)->execute({});
    engine.prepare("SET search_path TO pg_catalog", false)->execute({});
    const auto number = [&](const std::string& call) { return Rows(engine, "SELECT " + call).number(0, 0); };
    const auto text = [&](const std::string& call) { return Rows(engine, "SELECT " + call).text(0, 0); };
    EXPECT_EQ(number("dbo.usp_getNextNumber('Persons', '')"), 42);
    EXPECT_EQ(number("dbo.usp_getNextNumber('PERSONS', 'PersonID')"), 43);
    EXPECT_EQ(number("dbo.usp_getNextNumber('Incidents', '')"), 1);
    EXPECT_EQ(text("dbo.f_SortRequestNumber('E-7.10')"), "7.001");
    EXPECT_EQ(text("dbo.left('Abc'::dbo.citext, 2)"), "Ab");
    EXPECT_EQ(text("dbo.substring('Abcd'::dbo.citext, 2, 2)"), "bc");
    EXPECT_EQ(text("dbo.zel_standard(1234.5)"), "1,234.50");
    EXPECT_EQ(text("dbo.zel_money_text(-0.125)"), "-0.13");
    EXPECT_THROW((void)number("dbo.usp_getNextNumber('Horses', '')"), ado::Error);
    EXPECT_THROW((void)number("dbo.usp_getNextNumber('L_State', '')"), ado::Error);
}

TEST_P(NewDatabase, Request_numbers_sort_by_their_number_groups) {
    const std::string order = onSqlite() ? "f_SortRequestNumber" : "dbo.f_SortRequestNumber";
    run("INSERT INTO Resources (ResourceID, RequestNumber) VALUES (1, 'E-70'), (2, 'E-8'), (3, 'E-7.10'), (4, "
        "'E-7.2'), "
        "(5, 'E-7'), (6, 'E-'), (7, 'E-7.2.1'), (8, 'E-007.3')");
    EXPECT_THAT(list("SELECT RequestNumber FROM Resources ORDER BY " + order + "(RequestNumber)"),
                ElementsAre("E-", "E-7", "E-7.2", "E-7.2.1", "E-007.3", "E-7.10", "E-8", "E-70"));
}

TEST_P(NewDatabase, Tables_of_the_other_modules_can_be_emptied) {
    for (const char* table : {"ContractorDebit", "EquipmentPost", "EquipmentUOM", "quals", "daily", "airday",
                              "ics204_resources", "ics204", "projection", "projectiongroup", "acres", "division"})
        EXPECT_NO_THROW(run(std::string("DELETE FROM ") + table)) << table;
}

TEST_P(NewDatabase, Tables_are_not_made_twice_and_a_failure_leaves_them_alone) {
    EXPECT_THROW(createTables(engine()), ado::Error);
    EXPECT_EQ(number("SELECT count(*) FROM L_State"), 56);
}

/// What the screens look for most finds its index, so that it does not slow down with the incident.
class Plans : public NewDatabase {
protected:
    void SetUp() override {
        if (onSqlite())
            return;
        // The tables are empty, so that reading them whole would be cheapest.
        run("SET enable_seqscan = off");
        run("SET enable_bitmapscan = off");
    }
    std::string planOf(const std::string& statement) {
        const Rows rows(engine(), (onSqlite() ? "EXPLAIN QUERY PLAN " : "EXPLAIN ") + statement);
        std::string plan;
        for (std::size_t row = 0; row < rows.size(); ++row)
            plan += rows.text(row, onSqlite() ? 3 : 0) + "\n";
        return ado::lowerCase(plan);
    }
};
ZEL_ON_BOTH_ENGINES(Plans);

struct Search {
    const char* statement;
    const char* index;
};

constexpr Search searches[] = {
    {"SELECT * FROM PersonsPost WHERE PersonsPostID <> 5 AND PersonID = 1 AND ActivityDT = '2005-07-01 00:00:00' AND "
     "StartTime >= '1899-12-30 08:00:00' ORDER BY ActivityDT, StartTime ASC",
     "ix_personspost_personid_activitydt_starttime_stoptime"},
    {"SELECT * FROM PersonsPost WHERE PersonID = 1 AND FinalCol = 0 ORDER BY ActivityDT, StartTime, StopTime",
     "ix_personspost_personid_activitydt_starttime_stoptime"},
    {"SELECT * FROM ContractorPost WHERE EquipmentID = 1 AND ActivityDT = '2005-07-01 00:00:00'",
     "ix_contractorpost_equipmentid_activitydt"},
    {"SELECT * FROM ContractorPost WHERE ResourceID = 1 AND ActivityDT = '2005-07-01 00:00:00'",
     "ix_contractorpost_resourceid_activitydt"},
    {"SELECT max(LastDate) FROM PersonsInvoices WHERE PersonID = 1 AND Del = 0",
     "ix_personsinvoices_personid_lastdate_del"},
    {"SELECT max(LastDate) FROM EquipInvoices WHERE EquipmentID = 1 AND Del <> 1",
     "ix_equipinvoices_equipmentid_lastdate_del"},
    {"SELECT Name FROM Resources WHERE RequestNumber = 'O-1' AND IncidentID = 1",
     "ix_resources_incidentid_requestnumber"},
    {"SELECT PersonID FROM Persons WHERE ResourceID = 1", "ix_persons_resourceid"},
    {"SELECT PersonID FROM Persons WHERE FirstName = 'ADA' AND LastName = 'HOLTBY'", "ix_persons_lastname_firstname"},
    {"SELECT PersonID FROM Persons WHERE SSN = '900000001'", "ix_persons_ssn"},
    {"SELECT ResourceID FROM Equipment WHERE ResourceID = 1", "ix_equipment_resourceid"},
    {"SELECT Rate FROM UnitOfMeasure WHERE EquipmentID = 1", "ix_unitofmeasure_equipmentid"},
    {"SELECT * FROM PersonsDebit WHERE PersonID = 1 ORDER BY ActivityDT", "ix_personsdebit_personid_activitydt"},
};

TEST_P(Plans, Frequent_searches_use_their_index) {
    for (const Search& search : searches)
        EXPECT_THAT(planOf(search.statement), testing::HasSubstr(search.index)) << search.statement;
}

TEST_P(Plans, A_persons_postings_are_read_in_order_without_sorting_and_without_the_table) {
    const std::string plan = planOf(searches[1].statement);
    EXPECT_THAT(plan, testing::Not(testing::HasSubstr("sort")));
    EXPECT_THAT(plan, testing::Not(testing::HasSubstr("temp b-tree")));
    EXPECT_THAT(plan, testing::HasSubstr(onSqlite() ? "using covering index" : "index only scan"));
}

} // namespace
} // namespace zel::korvandb
