#include "engine_fixture.h"

namespace zel::ado {
namespace {

using testing::ElementsAre;

class CellsTest : public EngineFixture {
protected:
    /// Writes the text as a bound parameter and reads it back.
    std::string roundTrip(const std::string& text) {
        run(engine(), "DELETE FROM Resources");
        run(engine(), "INSERT INTO Resources (ResourceID, Remarks) VALUES (1, ?)", {text});
        return one(engine(), "SELECT Remarks FROM Resources").as<std::string>();
    }
};
ZEL_ON_BOTH_ENGINES(CellsTest);

const Value july4 = DateTime::fromDate(2005, 7, 4);

Value money(std::string_view text) {
    return Currency::fromDecimal(text);
}

TEST_P(CellsTest, CellsComeBackInTheTypeOfTheirColumn) {
    run(engine(),
        "INSERT INTO PersonsPost (PersonsPostID, ActivityDT, StartTime, Rate, Hours, Remarks) VALUES (?, ?, ?, ?, ?, "
        "?)",
        {7, july4, DateTime::fromTime(13, 30), money("18.2"), 1.25, "wet"});
    EXPECT_THAT(firstRow(engine(), "SELECT PersonsPostID, ActivityDT, StartTime, Rate, Hours, Remarks, InvoiceID "
                                   "FROM PersonsPost"),
                ElementsAre(Value(7), july4, Value(DateTime::fromTime(13, 30)), money("18.2"), Value(1.25),
                            Value("wet"), Value()));
}

TEST_P(CellsTest, AFlagIsTrueOrFalse) {
    run(engine(), "INSERT INTO Equipment (EquipmentID, Withdrawn, GovtOperatorYN) VALUES (1, ?, ?)", {true, false});
    EXPECT_THAT(firstRow(engine(), "SELECT Withdrawn, GovtOperatorYN FROM Equipment WHERE Withdrawn = 1"),
                ElementsAre(Value(true), Value(false)));
}

TEST_P(CellsTest, ComputedCellsAreTypedAsTheirColumnsAre) {
    const std::string_view insert = "INSERT INTO PersonsPost (PersonsPostID, ActivityDT, Rate, Hours) "
                                    "VALUES (?, ?, ?, ?)";
    run(engine(), insert, {1, july4, money("0.1"), 2.0});
    run(engine(), insert, {2, july4, money("0.2"), 3.5});
    EXPECT_THAT(firstRow(engine(), "SELECT max(ActivityDT), sum(Rate), max(Rate), sum(Hours), count(*), "
                                   "max(PersonsPostID) FROM PersonsPost"),
                ElementsAre(july4, money("0.3"), money("0.2"), Value(5.5), Value(2), Value(2)));
}

TEST_P(CellsTest, TextThatLooksLikeMoneyOrADateStaysText) {
    run(engine(), "INSERT INTO PersonsPost (PersonsPostID, Rate, Remarks, KindCode) VALUES (1, ?, ?, ?)",
        {money("0.1"), "12.5000", "2005-07-04 00:00:00"});
    EXPECT_THAT(firstRow(engine(), "SELECT max(Remarks), max(KindCode), sum(Rate), '1.2500', Remarks || '', "
                                   "(SELECT max(Rate) FROM PersonsPost) FROM PersonsPost GROUP BY Remarks"),
                ElementsAre(Value("12.5000"), Value("2005-07-04 00:00:00"), money("0.1"), Value("1.2500"),
                            Value("12.5000"), money("0.1")));
}

TEST_P(CellsTest, MoneyIsSeenThroughViewsAndSubqueries) {
    run(engine(), "INSERT INTO PersonsPost (PersonsPostID, ActivityDT, Rate, Remarks) VALUES (1, ?, ?, ?)",
        {july4, money("0.1"), "12.5000"});
    run(engine(), "CREATE VIEW qryPaid AS SELECT sum(Rate) AS Paid, max(Remarks) AS Said, max(ActivityDT) AS Last "
                  "FROM PersonsPost");
    engine().refreshCatalog();
    EXPECT_THAT(firstRow(engine(), "SELECT * FROM (SELECT Paid, Said, Last FROM qryPaid) x"),
                ElementsAre(money("0.1"), Value("12.5000"), july4));
    EXPECT_THAT(firstRow(engine(), "SELECT coalesce(x.Paid, 0), x.Said || '', x.* FROM qryPaid x"),
                ElementsAre(money("0.1"), Value("12.5000"), money("0.1"), Value("12.5000"), july4));
}

TEST_P(CellsTest, NothingSumsToNull) {
    EXPECT_THAT(firstRow(engine(), "SELECT sum(Rate), max(ActivityDT), count(*) FROM PersonsPost"),
                ElementsAre(Value(), Value(), Value(0)));
}

TEST_P(CellsTest, MoneySumsExactly) {
    const auto insert =
        engine().prepare(marked(GetParam(), "INSERT INTO PersonsDebit (PersonsDebitID, Amt) VALUES (?, ?)"), true);
    for (int i = 1; i <= 1000; ++i)
        insert->execute(std::vector<Value>{i, money("0.1001")});
    EXPECT_EQ(one(engine(), "SELECT sum(Amt) FROM PersonsDebit"), money("100.1"));
    run(engine(), "UPDATE PersonsDebit SET Amt = ? WHERE PersonsDebitID = 1", {money("90000000000000.0001")});
    EXPECT_EQ(one(engine(), "SELECT sum(Amt) FROM PersonsDebit"), money("90000000000100"));
}

TEST_P(CellsTest, MoneyComparesAndSortsByItsNumber) {
    int key = 0;
    for (const char* amount : {"9.5", "-3", "10", "100.0001", "0"})
        run(engine(), "INSERT INTO PersonsDebit (PersonsDebitID, Amt) VALUES (?, ?)", {++key, money(amount)});
    EXPECT_EQ(one(engine(), "SELECT count(*) FROM PersonsDebit WHERE Amt > ?", {money("9.5")}), Value(2));
    EXPECT_EQ(one(engine(), "SELECT count(*) FROM PersonsDebit WHERE Amt = ?", {money("10")}), Value(1));
    EXPECT_EQ(one(engine(), "SELECT Amt FROM PersonsDebit ORDER BY Amt DESC"), money("100.0001"));
    EXPECT_EQ(one(engine(), "SELECT min(Amt) FROM PersonsDebit"), money("-3"));
}

TEST_P(CellsTest, TextComparesWithoutRegardToCase) {
    run(engine(), "INSERT INTO Resources (ResourceID, Name) VALUES (1, ?)", {"Ridge Top"});
    EXPECT_EQ(one(engine(), "SELECT Name FROM Resources WHERE Name = ?", {"RIDGE TOP"}), Value("Ridge Top"));
    EXPECT_EQ(one(engine(), "SELECT Name FROM Resources WHERE Name = ?", {"RIDGE"}), Value());
}

TEST_P(CellsTest, EarlyAndLateDatesKeepTheirDay) {
    for (const DateTime moment : {DateTime::fromDate(1899, 12, 30), DateTime::fromDate(1700, 2, 28),
                                  DateTime::fromDate(9999, 12, 31), DateTime::fromTime(23, 59, 59)}) {
        run(engine(), "DELETE FROM PersonsPost");
        run(engine(), "INSERT INTO PersonsPost (PersonsPostID, ActivityDT) VALUES (1, ?)", {moment});
        EXPECT_EQ(one(engine(), "SELECT ActivityDT FROM PersonsPost WHERE ActivityDT = ?", {moment}), Value(moment));
    }
}

TEST_P(CellsTest, NumbersKeepTheirLastDigit) {
    run(engine(), "INSERT INTO PersonsPost (PersonsPostID, Hours, Rate) VALUES (?, ?, ?)",
        {2147483647, 0.1, Currency::fromTicks(-1)});
    EXPECT_THAT(firstRow(engine(), "SELECT PersonsPostID, Hours, Rate FROM PersonsPost"),
                ElementsAre(Value(2147483647), Value(0.1), Value(Currency::fromTicks(-1))));
}

TEST_P(CellsTest, QuotesSemicolonsAndCommentMarksAreOnlyText) {
    for (const std::string text :
         {"O'BRIEN", "\"; DROP TABLE Persons; --", "' or 'a'='a", "/* ; */", "100% _ \\ ?1 $1"})
        EXPECT_EQ(roundTrip(text), text);
    EXPECT_EQ(one(engine(), "SELECT count(*) FROM Persons"), Value(0));
}

TEST_P(CellsTest, EveryCharacterComesBack) {
    EXPECT_EQ(roundTrip("\r\n\t\x01\x7F"), "\r\n\t\x01\x7F");
    EXPECT_EQ(roundTrip("caf\xC3\xA9 \xF0\x9F\x94\xA5 \xE2\x82\xAC"), "caf\xC3\xA9 \xF0\x9F\x94\xA5 \xE2\x82\xAC");
    const std::string withNul("a\0b\0\0c", 6);
    EXPECT_EQ(roundTrip(withNul), withNul);
    const std::string lastCharacter = "\xF4\x8F\xBF\xBF";
    EXPECT_EQ(roundTrip(lastCharacter + "0" + std::string(1, '\0') + lastCharacter),
              lastCharacter + "0" + std::string(1, '\0') + lastCharacter);
    EXPECT_EQ(roundTrip(""), "");
}

TEST_P(CellsTest, AMegabyteOfTextComesBack) {
    std::string text;
    while (text.size() < 1'000'000)
        text += "line " + std::to_string(text.size()) + " 'quoted'; \xF0\x9F\x94\xA5\r\n";
    EXPECT_EQ(roundTrip(text), text);
}

} // namespace
} // namespace zel::ado
