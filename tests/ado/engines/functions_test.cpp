#include "engine_fixture.h"

#include "ado/request_number.h"

namespace zel::ado {
namespace {

/// The functions that translated statements call give the same on both engines.
class FunctionsTest : public EngineFixture {
protected:
    Value ofAmount(std::string_view expression, const Value& amount) {
        run(engine(), "DELETE FROM PersonsDebit");
        run(engine(), "INSERT INTO PersonsDebit (PersonsDebitID, Amt) VALUES (1, ?)", {amount});
        return one(engine(), "SELECT " + std::string(expression) + " FROM PersonsDebit");
    }
    Value ofHours(std::string_view expression, const Value& hours) {
        run(engine(), "DELETE FROM PersonsPost");
        run(engine(), "INSERT INTO PersonsPost (PersonsPostID, Hours) VALUES (1, ?)", {hours});
        return one(engine(), "SELECT " + std::string(expression) + " FROM PersonsPost");
    }
    Value sortValue(const Value& requestNumber) {
        run(engine(), "DELETE FROM Resources");
        run(engine(), "INSERT INTO Resources (ResourceID, RequestNumber) VALUES (1, ?)", {requestNumber});
        return one(engine(), "SELECT f_SortRequestNumber(RequestNumber) FROM Resources");
    }
};
ZEL_ON_BOTH_ENGINES(FunctionsTest);

Value money(std::string_view text) {
    return Currency::fromDecimal(text);
}

TEST_P(FunctionsTest, StandardHasCommasAndTwoDecimals) {
    EXPECT_EQ(ofAmount("zel_standard(Amt)", money("1234.5")), Value("1,234.50"));
    EXPECT_EQ(ofAmount("zel_standard(Amt)", money("-1234567.891")), Value("-1,234,567.89"));
    EXPECT_EQ(ofAmount("zel_standard(Amt)", money("0")), Value("0.00"));
    EXPECT_EQ(ofAmount("zel_standard(Amt)", money("0.005")), Value("0.01"));
    EXPECT_EQ(ofAmount("zel_standard(Amt)", Value()), Value(""));
    EXPECT_EQ(ofHours("zel_standard(Hours)", 1000.25), Value("1,000.25"));
}

TEST_P(FunctionsTest, MoneyAsTextHasTwoDecimalsAndNoCommas) {
    EXPECT_EQ(ofAmount("zel_money_text(Amt)", money("1234.5")), Value("1234.50"));
    EXPECT_EQ(ofAmount("zel_money_text(Amt)", money("-0.129")), Value("-0.13"));
    EXPECT_EQ(ofAmount("zel_money_text(Amt)", money("18")), Value("18.00"));
    EXPECT_EQ(ofAmount("zel_money_text(Amt)", Value()), Value());
}

TEST_P(FunctionsTest, RequestNumbersSortByTheirNumbers) {
    const std::vector<const char*> inOrder = {"E-0.5",  "E-2",    "E-7.2",    "E-7.10",  "E-8",  "E-10",
                                              "E-10.1", "E-10.2", "E-10.2.3", "E-10.10", "E-70", "E-123456"};
    for (std::size_t i = 1; i < inOrder.size(); ++i)
        EXPECT_LT(sortValue(inOrder[i - 1]).as<double>(), sortValue(inOrder[i]).as<double>()) << inOrder[i];
}

TEST_P(FunctionsTest, TheSortValueIsTheSameOnBothEngines) {
    for (const char* text : {"", "E", "E-", "no number", "C-17", "O-1.1", "E-7.2.9", "E-1.2.3.4", "E-7.99999", "E-1.x2",
                             "E-007.010", "17", "E-12A3"})
        EXPECT_EQ(sortValue(text), Value(sortValueOfRequestNumber(text))) << text;
    EXPECT_EQ(sortValue(Value()), Value());
}

TEST(RequestNumberTest, TheSortValueWeighsGroupsByTenThousands) {
    EXPECT_EQ(sortValueOfRequestNumber("E-7"), 7.0);
    EXPECT_EQ(sortValueOfRequestNumber("E-7.2"), 7.0002);
    EXPECT_EQ(sortValueOfRequestNumber("E-7.10.3"), 7.0010 + 0.00000003);
    EXPECT_EQ(sortValueOfRequestNumber("E-7.12345"), 7.9999);
    EXPECT_EQ(sortValueOfRequestNumber("_-____"), 0.0);
}

} // namespace
} // namespace zel::ado
