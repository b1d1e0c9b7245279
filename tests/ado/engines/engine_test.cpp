#include "ado/error.h"
#include "ado/row_store.h"
#include "support/database_test.h"

#include <gmock/gmock.h>

#include <array>
#include <initializer_list>
#include <vector>

namespace zel::ado {
namespace {

class EngineTest : public zel::test::DatabaseTest {
protected:
    void SetUp() override { engine_ = database().open(); }

    [[nodiscard]] Engine& engine() { return *engine_; }
    /// The text with its parameters as the engine marks them: ? becomes ?1, ?2 or $1, $2.
    [[nodiscard]] std::string marked(std::string_view text) const {
        std::string result;
        int number = 0;
        for (const char letter : text)
            result += letter == '?' ? (onSqlite() ? "?" : "$") + std::to_string(++number) : std::string(1, letter);
        return result;
    }
    std::int64_t run(std::string_view text, std::initializer_list<Value> values = {}) {
        return engine().prepare(marked(text), true)->execute(std::vector<Value>(values));
    }
    std::vector<Value> row(std::string_view text, std::initializer_list<Value> values = {}) {
        const auto statement = engine().prepare(marked(text), false);
        RowStore rows(statement->columns().size());
        statement->query(std::vector<Value>(values), rows);
        std::vector<Value> cells;
        for (std::size_t i = 0; rows.rows() > 0 && i < rows.columns(); ++i)
            cells.push_back(rows.at(0, i));
        return cells;
    }

private:
    std::unique_ptr<Engine> engine_;
};
ZEL_ON_BOTH_ENGINES(EngineTest);

const Value july4 = DateTime::fromDate(2005, 7, 4);

TEST_P(EngineTest, CellsComeBackInTheTypeOfTheirColumn) {
    run("INSERT INTO PersonsPost (PersonsPostID, ActivityDT, StartTime, Rate, Hours, Remarks) VALUES (?, ?, ?, ?, ?, "
        "?)",
        {7, july4, DateTime::fromTime(13, 30), Currency::fromDecimal("18.2"), 1.25, "wet"});
    EXPECT_THAT(row("SELECT PersonsPostID, ActivityDT, StartTime, Rate, Hours, Remarks, InvoiceID FROM PersonsPost"),
                testing::ElementsAre(Value(7), july4, Value(DateTime::fromTime(13, 30)),
                                     Value(Currency::fromDecimal("18.2")), Value(1.25), Value("wet"), Value()));
}

TEST_P(EngineTest, AFlagIsTrueOrFalse) {
    run("INSERT INTO Equipment (EquipmentID, Withdrawn, GovtOperatorYN) VALUES (1, ?, ?)", {true, false});
    EXPECT_THAT(row("SELECT Withdrawn, GovtOperatorYN FROM Equipment WHERE Withdrawn = 1"),
                testing::ElementsAre(Value(true), Value(false)));
}

TEST_P(EngineTest, ComputedCellsAreTypedToo) {
    run("INSERT INTO PersonsPost (PersonsPostID, ActivityDT, Rate, Hours) VALUES (1, ?, ?, 2)",
        {july4, Currency::fromDecimal("0.1")});
    run("INSERT INTO PersonsPost (PersonsPostID, ActivityDT, Rate, Hours) VALUES (2, ?, ?, 3.5)",
        {july4, Currency::fromDecimal("0.2")});
    EXPECT_THAT(row("SELECT max(ActivityDT), sum(Rate), max(Rate), sum(Hours), count(*), max(PersonsPostID) "
                    "FROM PersonsPost"),
                testing::ElementsAre(july4, Value(Currency::fromDecimal("0.3")), Value(Currency::fromDecimal("0.2")),
                                     Value(5.5), Value(2), Value(2)));
}

TEST_P(EngineTest, TheFirstKeyOfATableIsAboveTheHighestThere) {
    run("INSERT INTO Persons (PersonID) VALUES (41)");
    EXPECT_EQ(engine().nextNumber("Persons", ""), 42);
    EXPECT_EQ(engine().nextNumber("PERSONS", "PersonID"), 43);
    EXPECT_EQ(engine().nextNumber("Incidents", ""), 1);
}

} // namespace
} // namespace zel::ado
