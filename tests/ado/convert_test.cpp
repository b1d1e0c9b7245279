#include "ado/convert.h"

#include "ado/error.h"

#include <cmath>
#include <functional>
#include <gtest/gtest.h>

namespace zel::ado {
namespace {

std::int32_t errorOf(const std::function<void()>& work) {
    try {
        work();
    } catch (const Error& error) {
        EXPECT_EQ(error.kind(), ErrorKind::Conversion);
        return error.number();
    }
    return 0;
}

TEST(ToText, NullAndTextsAndFlags) {
    EXPECT_EQ(toText(Value()), "");
    EXPECT_EQ(toText("O'BRIEN"), "O'BRIEN");
    EXPECT_EQ(toText(true), "True");
    EXPECT_EQ(toText(false), "False");
    EXPECT_EQ(toText(-17), "-17");
    EXPECT_EQ(toText(Currency::fromDecimal("18.20")), "18.2");
}

TEST(ToText, DatesInTheUsForm) {
    EXPECT_EQ(toText(DateTime::fromDate(2005, 7, 4)), "7/4/2005");
    EXPECT_EQ(toText(DateTime(38'537.5625)), "7/4/2005 1:30:00 PM");
    EXPECT_EQ(toText(DateTime::fromTime(13, 30)), "1:30:00 PM");
    EXPECT_EQ(toText(DateTime(0)), "12:00:00 AM");
    EXPECT_EQ(toText(DateTime::fromTime(0, 1)), "12:01:00 AM");
    EXPECT_EQ(toText(DateTime::fromTime(12, 0)), "12:00:00 PM");
    EXPECT_EQ(toText(DateTime(-1.25)), "12/29/1899 6:00:00 AM");
}

TEST(ToText, DoublesWithUpToFifteenDigits) {
    EXPECT_EQ(toText(18.2), "18.2");
    EXPECT_EQ(toText(0.1 + 0.2), "0.3");
    EXPECT_EQ(toText(1.0 / 3), "0.333333333333333");
    EXPECT_EQ(toText(2.0 / 3), "0.666666666666667");
    EXPECT_EQ(toText(-0.00001), "-0.00001");
    EXPECT_EQ(toText(123456789012345.0), "123456789012345");
    EXPECT_EQ(toText(1e15), "1E+15");
    EXPECT_EQ(toText(1e20), "1E+20");
    EXPECT_EQ(toText(1.25e-20), "1.25E-20");
    EXPECT_EQ(toText(1e300), "1E+300");
    EXPECT_EQ(toText(0.0), "0");
    EXPECT_EQ(toText(-0.0), "0");
    EXPECT_EQ(toText(100.0), "100");
}

TEST(ToText, SinglesWithUpToSevenDigits) {
    EXPECT_EQ(toText(18.2F), "18.2");
    EXPECT_EQ(toText(1.0F / 3), "0.3333333");
    EXPECT_EQ(toText(1234567.0F), "1234567");
    EXPECT_EQ(toText(12345678.0F), "1.234568E+07");
}

TEST(ToText, NumbersThatAreNoneStillHaveAText) {
    EXPECT_EQ(toText(std::nan("")), "NaN");
    EXPECT_EQ(toText(-INFINITY), "-Infinity");
}

TEST(IsDate, LooksAtTheTextOfTheValue) {
    for (const char* text :
         {"7/4/2005", "07/04/05", "July 4, 2005", "13:30", "1:30 PM", "7/4/2005 1:30 PM", "2005-07-04", "00:00"})
        EXPECT_TRUE(isDate(text)) << text;
    EXPECT_TRUE(isDate(DateTime(0)));
    EXPECT_FALSE(isDate("24:00"));
    EXPECT_FALSE(isDate(""));
    EXPECT_FALSE(isDate(Value()));
    EXPECT_FALSE(isDate(38'537));
    EXPECT_FALSE(isDate(38'537.5));
}

TEST(IsNumeric, TakesWhatClerksTypeForNumbers) {
    for (const char* text : {"12", " 1,234.50 ", "$5", "(5)", "1e3", "-5", "5-", "+5", ".5", "5.", "$1,000", "-$5",
                             "$-5", "($5.00)", "1d3", "1E-3", "024.50", "\t7", "- 5"})
        EXPECT_TRUE(isNumeric(text)) << text;
    EXPECT_TRUE(isNumeric(5));
    EXPECT_TRUE(isNumeric(true));
    EXPECT_TRUE(isNumeric(Currency()));
}

TEST(IsNumeric, RefusesEverythingElse) {
    for (const char* text :
         {"",    " ",    ".",   "$",  "-",   "()", "abc",     "1 2",   "1.2.3",    "(5", "5)",    "--5",
          "-5-", "(-5)", "$$5", "1e", "1e+", ",5", "1.5,000", "13:30", "7/4/2005", "e3", "1e999", "5$"})
        EXPECT_FALSE(isNumeric(text)) << text;
    EXPECT_FALSE(isNumeric(Value()));
    EXPECT_FALSE(isNumeric(DateTime(1)));
}

TEST(ToDouble, ReadsEachKindOfValue) {
    EXPECT_EQ(toDouble(" 1,234.50 "), 1234.5);
    EXPECT_EQ(toDouble("(5)"), -5);
    EXPECT_EQ(toDouble("5-"), -5);
    EXPECT_EQ(toDouble("1d3"), 1000);
    EXPECT_EQ(toDouble("1e-999"), 0);
    EXPECT_EQ(toDouble("024.50"), 24.5);
    EXPECT_EQ(toDouble(true), -1);
    EXPECT_EQ(toDouble(Currency::fromDecimal("18.2")), 18.2);
    EXPECT_EQ(toDouble(DateTime(38'537.5)), 38'537.5);
    EXPECT_EQ(toDouble(0.5F), 0.5);
}

TEST(ToDouble, FailsWithTheNumbersOfTheForms) {
    EXPECT_EQ(errorOf([] { (void)toDouble(Value()); }), errors::invalidUseOfNull);
    EXPECT_EQ(errorOf([] { (void)toDouble(""); }), errors::typeMismatch);
    EXPECT_EQ(errorOf([] { (void)toDouble("abc"); }), errors::typeMismatch);
    EXPECT_EQ(errorOf([] { (void)toDouble("1e999"); }), errors::overflow);
}

TEST(ToLong, RoundsHalfToEven) {
    EXPECT_EQ(toLong(0.5), 0);
    EXPECT_EQ(toLong(1.5), 2);
    EXPECT_EQ(toLong(2.5), 2);
    EXPECT_EQ(toLong("-2.5"), -2);
    EXPECT_EQ(toLong(Currency::fromDecimal("3.5")), 4);
    EXPECT_EQ(toLong(true), -1);
}

TEST(ToLong, HoldsThirtyTwoBits) {
    EXPECT_EQ(toLong("2147483647"), 2'147'483'647);
    EXPECT_EQ(toLong("-2147483648"), -2'147'483'647 - 1);
    EXPECT_EQ(errorOf([] { (void)toLong("2147483648"); }), errors::overflow);
    EXPECT_EQ(errorOf([] { (void)toLong(std::int64_t{-2'147'483'649}); }), errors::overflow);
    EXPECT_EQ(errorOf([] { (void)toLong(std::nan("")); }), errors::overflow);
    EXPECT_EQ(errorOf([] { (void)toLong(Value()); }), errors::invalidUseOfNull);
    EXPECT_EQ(errorOf([] { (void)toLong("12x"); }), errors::typeMismatch);
}

TEST(ToSingle, StaysSingle) {
    EXPECT_EQ(toSingle("18.2"), 18.2F);
    EXPECT_EQ(errorOf([] { (void)toSingle(1e39); }), errors::overflow);
    EXPECT_EQ(errorOf([] { (void)toSingle(Value()); }), errors::invalidUseOfNull);
}

TEST(ToCurrency, IsExactForTexts) {
    EXPECT_EQ(toCurrency("922337203685477.5807").ticks(), 9'223'372'036'854'775'807);
    EXPECT_EQ(toCurrency("($1,234.50)").ticks(), -12'345'000);
    EXPECT_EQ(toCurrency("1e3").ticks(), 10'000'000);
    EXPECT_EQ(toCurrency("18.20005").ticks(), 182'000);
    EXPECT_EQ(toCurrency(std::int64_t{900'000'000'000'001}).ticks(), 9'000'000'000'000'010'000);
    EXPECT_EQ(toCurrency(0.00015).ticks(), 2);
    EXPECT_EQ(errorOf([] { (void)toCurrency("99999999999999999"); }), errors::overflow);
    EXPECT_EQ(errorOf([] { (void)toCurrency(""); }), errors::typeMismatch);
    EXPECT_EQ(errorOf([] { (void)toCurrency(Value()); }), errors::invalidUseOfNull);
}

TEST(ToDateTime, ReadsTextsAndSerials) {
    EXPECT_EQ(toDateTime("7/4/2005 1:30 PM"), DateTime(38'537.5625));
    EXPECT_EQ(toDateTime("12:00:00 AM"), DateTime(0));
    EXPECT_EQ(toDateTime(38'537), DateTime(38'537));
    EXPECT_EQ(errorOf([] { (void)toDateTime("24:00"); }), errors::typeMismatch);
    EXPECT_EQ(errorOf([] { (void)toDateTime("38537"); }), errors::typeMismatch);
    EXPECT_EQ(errorOf([] { (void)toDateTime(Value()); }), errors::invalidUseOfNull);
    EXPECT_EQ(errorOf([] { (void)toDateTime(3e6); }), errors::overflow);
    EXPECT_EQ(errorOf([] { (void)toDateTime(-1e6); }), errors::overflow);
}

TEST(ToBoolean, ReadsWordsAndNumbers) {
    EXPECT_TRUE(toBoolean("True"));
    EXPECT_TRUE(toBoolean(" tRUE "));
    EXPECT_FALSE(toBoolean("False"));
    EXPECT_TRUE(toBoolean("-1"));
    EXPECT_TRUE(toBoolean("0.1"));
    EXPECT_FALSE(toBoolean("0"));
    EXPECT_TRUE(toBoolean(2));
    EXPECT_FALSE(toBoolean(Currency()));
    EXPECT_EQ(errorOf([] { (void)toBoolean("yes"); }), errors::typeMismatch);
    EXPECT_EQ(errorOf([] { (void)toBoolean(""); }), errors::typeMismatch);
    EXPECT_EQ(errorOf([] { (void)toBoolean(Value()); }), errors::invalidUseOfNull);
}

TEST(NumberAtHead, StopsWhereTheNumberEnds) {
    EXPECT_EQ(numberAtHead("12,5"), 12);
    EXPECT_EQ(numberAtHead("  12.5abc"), 12.5);
    EXPECT_EQ(numberAtHead("-3x"), -3);
    EXPECT_EQ(numberAtHead("1 2 3"), 123);
    EXPECT_EQ(numberAtHead(".5"), 0.5);
    EXPECT_EQ(numberAtHead("1e2x"), 100);
    EXPECT_EQ(numberAtHead("1ex"), 1);
    EXPECT_EQ(numberAtHead("0"), 0);
    EXPECT_EQ(numberAtHead(""), 0);
    EXPECT_EQ(numberAtHead("abc"), 0);
    EXPECT_EQ(numberAtHead("$5"), 0);
    EXPECT_EQ(numberAtHead("-"), 0);
}

} // namespace
} // namespace zel::ado
