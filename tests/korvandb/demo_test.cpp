#include "ado/convert.h"
#include "korvandb/check.h"
#include "korvandb/demo.h"
#include "korvandb/rows.h"
#include "korvandb/schema.h"
#include "support/database_test.h"

#include <gmock/gmock.h>

#include <stdexcept>

namespace zel::korvandb {
namespace {

using ado::EngineKind;
using testing::IsEmpty;

void ignoreProgress(std::string_view /*work*/, std::int64_t /*done*/, std::int64_t /*total*/) {}

class Demo : public zel::test::DatabaseTest {
protected:
    void fill(const DemoSize& size = {}) { fillDemo(connection().engine(), size, ignoreProgress); }
    std::int64_t count(const std::string& source) {
        return Rows(connection().engine(), "SELECT count(*) FROM " + source).number(0, 0);
    }
};
ZEL_ON_BOTH_ENGINES(Demo);

TEST_P(Demo, Has_two_incidents_with_their_people_and_contracts) {
    fill();
    EXPECT_EQ(count("Incidents"), 2);
    EXPECT_EQ(count("qrySelectPersonnel WHERE Collection = 0"), 60);
    EXPECT_EQ(count("Resources WHERE Collection = 1 AND ContractedResource = 0"), 4);
    EXPECT_EQ(count("Equipment INNER JOIN Resources ON Equipment.ResourceID = Resources.ResourceID "
                    "WHERE substr(RequestNumber, 1, 1) = 'E'"),
              12);
    EXPECT_EQ(count("qryContractsCrew"), 3);
    EXPECT_EQ(count("Contractor"), 6);
    EXPECT_EQ(count("Agreement"), 8);
    EXPECT_EQ(count("UnitOfMeasure"), 24);
    EXPECT_EQ(count("Resources WHERE Collection = 1 AND NumberPersonnel <> (SELECT count(*) FROM Persons WHERE "
                    "Persons.ResourceID = Resources.ResourceID)"),
              0);
}

TEST_P(Demo, Everyone_whose_time_is_taken_has_two_weeks_of_postings) {
    fill();
    EXPECT_EQ(count("PersonsPost"), (60 + 50) * 14);
    EXPECT_EQ(count("(SELECT PersonID FROM PersonsPost GROUP BY PersonID HAVING count(*) = 14 AND "
                    "count(DISTINCT ActivityDT) = 14) complete"),
              110);
    EXPECT_EQ(count("ContractorPost"), 15 * 14);
    EXPECT_EQ(count("PersonsDebit"), 55);
    EXPECT_EQ(count("ContractorAdjustments"), 10);
    EXPECT_EQ(count("ContractorAdjustments WHERE substr(cast(Amt AS text), 1, 1) = '-'"), 3);
}

TEST_P(Demo, Nights_end_at_midnight_and_go_on_at_one_past_it) {
    fill();
    EXPECT_EQ(
        count("PersonsPost WHERE StopTime = '1899-12-30 00:00:00' AND StartTime = '1899-12-30 18:00:00' AND Hours = 6"),
        count(
            "PersonsPost WHERE StartTime = '1899-12-30 00:01:00' AND StopTime = '1899-12-30 06:00:00' AND Hours = 6"));
    EXPECT_EQ(count("PersonsPost WHERE StartTime = '1899-12-30 00:01:00'"), (5 + 12) * 7);
    EXPECT_EQ(count("PersonsPost WHERE Amt <> '0.0000' AND abs(Amt - Hours * Rate) > 0.00005"), 0);
    EXPECT_EQ(count("PersonsPost WHERE StopTime IS NULL AND PremiumCode = 'TRAVEL'"), 5);
}

TEST_P(Demo, Special_codes_follow_the_rules_of_posting) {
    fill();
    EXPECT_GT(count("PersonsPost WHERE PremiumCode = 'HP'"), 10);
    EXPECT_EQ(count("PersonsPost WHERE PremiumCode = 'HP' AND Class <> ''"), 0);
    EXPECT_GT(count("PersonsPost WHERE PremiumCode IN ('GUAR', 'COP') AND substr(Class, 1, 2) = 'AD' AND Hours = 8"),
              3);
    EXPECT_EQ(count("PersonsPost WHERE PremiumCode IN ('GUAR', 'COP') AND (CASE WHEN substr(Class, 1, 2) = 'AD' THEN 8 "
                    "ELSE 0 END) <> Hours"),
              0);
    EXPECT_EQ(count("PersonsPost WHERE PremiumCode = 'DAY OFF' AND Hours <> 0"), 0);
    EXPECT_EQ(count("PersonsPost WHERE PremiumCode <> ' ' AND PremiumCode NOT IN (SELECT PremiumCode FROM L_Premium)"),
              0);
}

TEST_P(Demo, Invoices_lock_the_postings_up_to_their_last_day_unless_they_are_deleted) {
    fill();
    EXPECT_EQ(count("PersonsInvoices"), 12);
    EXPECT_EQ(count("PersonsInvoices WHERE Del = 1"), 6);
    EXPECT_EQ(count("PersonsPost WHERE InvoiceID > 0"), 6 * 7);
    EXPECT_EQ(count("PersonsPost INNER JOIN PersonsInvoices ON PersonsPost.InvoiceID = PersonsInvoices.InvoiceID WHERE "
                    "Del = 1 OR ActivityDT > LastDate OR PersonsPost.PersonID <> PersonsInvoices.PersonID"),
              0);
    EXPECT_EQ(count("ContractorPost WHERE InvoiceID > 0"), 3 * 7);
    EXPECT_EQ(count("EquipInvoices WHERE Del = 1"), 3);
}

TEST_P(Demo, Is_sound_and_the_next_key_of_each_table_is_free) {
    fill();
    EXPECT_THAT(checkDatabase(connection().engine(), ignoreProgress), IsEmpty());
    EXPECT_EQ(connection().engine().nextNumber("Persons", ""), 138);
    EXPECT_EQ(connection().engine().nextNumber("PersonsPost", ""), 1541);
}

TEST_P(Demo, Social_security_numbers_are_nobodys) {
    fill();
    EXPECT_EQ(count("Persons WHERE SSN NOT LIKE '9________'"), 0);
    EXPECT_EQ(count("(SELECT SSN FROM Persons WHERE SSN <> '999999999' GROUP BY SSN HAVING count(*) > 1) twice"), 0);
}

TEST_P(Demo, Grows_with_the_individuals_and_days_asked_for) {
    fill({.persons = 200, .days = 3});
    EXPECT_EQ(count("qrySelectPersonnel WHERE Collection = 0"), 200);
    EXPECT_EQ(count("PersonsPost"), (200 + 50) * 3);
    EXPECT_THAT(checkDatabase(connection().engine(), ignoreProgress), IsEmpty());
}

TEST_P(Demo, A_failure_half_way_leaves_no_row) {
    const auto stop = [](std::string_view work, std::int64_t, std::int64_t) {
        if (work == "postings")
            throw std::runtime_error("stop");
    };
    EXPECT_THROW(fillDemo(connection().engine(), {}, stop), std::runtime_error);
    EXPECT_EQ(count("Incidents"), 0);
    EXPECT_THAT(checkDatabase(connection().engine(), ignoreProgress), IsEmpty());
}

/// All rows of all tables, by table and key.
std::vector<std::string> wholeContent(ado::Engine& engine) {
    std::vector<std::string> lines;
    for (const Table& table : theSchema().tables) {
        if (table.primary() == nullptr)
            continue;
        std::string columns;
        for (const Column& column : table.columns)
            columns += (columns.empty() ? "\"" : ", \"") +
                       (engine.kind() == EngineKind::Sqlite ? column.name : ado::lowerCase(column.name)) + "\"";
        const Rows rows(engine, "SELECT " + columns + " FROM " + table.name + " ORDER BY " + table.primary()->name);
        for (std::size_t row = 0; row < rows.size(); ++row) {
            std::string line = table.name;
            for (std::size_t column = 0; column < table.columns.size(); ++column)
                line += "|" + rows.text(row, column);
            lines.push_back(line);
        }
    }
    return lines;
}

TEST(DemoContent, Is_the_same_on_both_engines_and_every_time) {
    const auto filled = [](EngineKind kind) {
        zel::test::TestDatabase database(kind);
        fillDemo(database.connection().engine(), {}, ignoreProgress);
        return wholeContent(database.connection().engine());
    };
    const std::vector<std::string> first = filled(EngineKind::Sqlite);
    EXPECT_GT(first.size(), 2'000U);
    EXPECT_EQ(first, filled(EngineKind::Sqlite));
    EXPECT_EQ(first, filled(EngineKind::Postgres));
}

} // namespace
} // namespace zel::korvandb
