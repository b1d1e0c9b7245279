#include "ado/format.h"

#include <gtest/gtest.h>

namespace zel::ado {
namespace {

const DateTime fourthOfJuly(38'537.5625); // 7/4/2005 13:30

TEST(Format, DatesInEveryFormTheScreensUse) {
    EXPECT_EQ(format(fourthOfJuly, "mm/dd/yyyy"), "07/04/2005");
    EXPECT_EQ(format(fourthOfJuly, "MM/DD/YYYY"), "07/04/2005");
    EXPECT_EQ(format(fourthOfJuly, "MM/dd/yyyy"), "07/04/2005");
    EXPECT_EQ(format(fourthOfJuly, "m/d/yyyy"), "7/4/2005");
    EXPECT_EQ(format(fourthOfJuly, "YYYY/MM/DD"), "2005/07/04");
    EXPECT_EQ(format(fourthOfJuly, "m/d/yy"), "7/4/05");
    EXPECT_EQ(format(fourthOfJuly, "yyyy-mm-dd.hh.nn"), "2005-07-04.13.30");
    EXPECT_EQ(format(fourthOfJuly, "yyyy-mm-dd.hh.nn.ss"), "2005-07-04.13.30.00");
    EXPECT_EQ(format(fourthOfJuly, "yyyy-mm-dd-hh-nn"), "2005-07-04-13-30");
}

TEST(Format, MinutesStandBehindAnHour) {
    EXPECT_EQ(format(fourthOfJuly, "hh:nn"), "13:30");
    EXPECT_EQ(format(fourthOfJuly, "hh:mm"), "13:30");
    EXPECT_EQ(format(fourthOfJuly, "HH:mm"), "13:30");
    EXPECT_EQ(format(fourthOfJuly, "Short Time"), "13:30");
    EXPECT_EQ(format(DateTime::fromTime(9, 5), "h:n"), "9:5");
    EXPECT_EQ(format(DateTime::fromTime(0, 0), "hh:nn"), "00:00");
}

TEST(Format, HoursOfTheHalfDay) {
    EXPECT_EQ(format(fourthOfJuly, "h:nn AM/PM"), "1:30 PM");
    EXPECT_EQ(format(DateTime(0), "hh:nn am/pm"), "12:00 am");
    EXPECT_EQ(format(DateTime(0.5), "hh:nn:ss AM/PM"), "12:00:00 PM");
}

TEST(Format, LiteralsInDates) {
    EXPECT_EQ(format(fourthOfJuly, "\"day \"d\\d"), "day 4d");
    EXPECT_EQ(format(fourthOfJuly, "d \"open"), "4 open");
}

TEST(Format, TextThatIsADateTakesADateFormat) {
    EXPECT_EQ(format("7/4/2005", "mm/dd/yyyy"), "07/04/2005");
    EXPECT_EQ(format("1:30 PM", "hh:nn"), "13:30");
    EXPECT_EQ(format(38'537, "mm/dd/yyyy"), "07/04/2005");
    EXPECT_EQ(format("24:00", "hh:nn"), "24:00");
    EXPECT_EQ(format("soon", "mm/dd/yyyy"), "soon");
    EXPECT_EQ(format(1e300, "mm/dd/yyyy"), "1E+300");
}

TEST(Format, MoneyAsTheScreensShowIt) {
    const std::string_view money = "$#,##0.00;($#,##0.00)";
    EXPECT_EQ(format(Currency::fromDecimal("1234.5"), money), "$1,234.50");
    EXPECT_EQ(format(Currency::fromDecimal("-1234.5"), money), "($1,234.50)");
    EXPECT_EQ(format(Currency(), money), "$0.00");
    EXPECT_EQ(format(0.5, money), "$0.50");
    EXPECT_EQ(format(1234567.891, money), "$1,234,567.89");
    EXPECT_EQ(format(-0.001, money), "$0.00");
    EXPECT_EQ(format(Currency::fromDecimal("999999.999"), money), "$1,000,000.00");
    EXPECT_EQ(format(Currency::fromDecimal("922337203685477.5807"), money), "$922,337,203,685,477.58");
}

TEST(Format, TheFooterOfDebits) {
    EXPECT_EQ(format(1234.5, "\\$###,##0.00"), "$1,234.50");
    EXPECT_EQ(format(-12, "\\$###,##0.00"), "-$12.00");
    EXPECT_EQ(format(1234567, "\\$###,##0.00"), "$1,234,567.00");
}

TEST(Format, NamedNumberFormats) {
    EXPECT_EQ(format(1234.5, "Standard"), "1,234.50");
    EXPECT_EQ(format(-1234.5, "standard"), "-1,234.50");
    EXPECT_EQ(format(0, "Standard"), "0.00");
    EXPECT_EQ(format("18.2", "Standard"), "18.20");
    EXPECT_EQ(format(1234.5, "Currency"), "$1,234.50");
    EXPECT_EQ(format(-1234.5, "CURRENCY"), "($1,234.50)");
}

TEST(Format, RoundsHalfAwayFromZeroOnTheDecimalDigits) {
    EXPECT_EQ(format(0.125, "0.00"), "0.13");
    EXPECT_EQ(format(1.005, "0.00"), "1.01");
    EXPECT_EQ(format(-0.125, "0.00"), "-0.13");
    EXPECT_EQ(format(2.5, "0"), "3");
    EXPECT_EQ(format(0.5, "0"), "1");
    EXPECT_EQ(format(0.49, "0"), "0");
    EXPECT_EQ(format(99.995, "#,##0.00"), "100.00");
    EXPECT_EQ(format(0.0004, "0.00"), "0.00");
    EXPECT_EQ(format(18.205F, "0.00"), "18.21");
}

TEST(Format, DigitsFillTheirPlacesFromTheRight) {
    EXPECT_EQ(format("123456789", "000-00-0000"), "123-45-6789");
    EXPECT_EQ(format("1234567", "000-00-0000"), "001-23-4567");
    EXPECT_EQ(format(7, "00"), "07");
    EXPECT_EQ(format("7", "00"), "07");
    EXPECT_EQ(format(123, "00"), "123");
    EXPECT_EQ(format(930, "00:00"), "09:30");
    EXPECT_EQ(format(0, "#"), "");
    EXPECT_EQ(format(5, "0.##"), "5.");
    EXPECT_EQ(format(5.25, "0.0##"), "5.25");
    EXPECT_EQ(format(0.25, ".00"), ".25");
    EXPECT_EQ(format(12.25, ".00"), "12.25");
}

TEST(Format, PercentAndThirdSection) {
    EXPECT_EQ(format(0.125, "0.0%"), "12.5%");
    EXPECT_EQ(format(0, "0.00;(0.00);none"), "none");
    EXPECT_EQ(format(-2, "0.00;(0.00);none"), "(2.00)");
    EXPECT_EQ(format(-2, "0.00;;"), "-2.00");
    EXPECT_EQ(format(2, "0\\;0"), "0;2");
}

TEST(Format, ANumberFormatLeavesOtherTextAlone) {
    EXPECT_EQ(format("abc", "0.00"), "abc");
    EXPECT_EQ(format("", "0.00"), "");
    EXPECT_EQ(format("1e999", "0.00"), "1e999");
    EXPECT_EQ(format(Value(), "0.00"), "");
    EXPECT_EQ(format(Value(), "mm/dd/yyyy"), "");
    EXPECT_EQ(format(5, ""), "5");
}

TEST(Format, LettersIntoPlaces) {
    EXPECT_EQ(format("e12", ">&-"), "E-12");
    EXPECT_EQ(format("E-12", ">&-"), "E--12");
    EXPECT_EQ(format("ab", "@@@"), " ab");
    EXPECT_EQ(format("ab", "!@@@"), "ab ");
    EXPECT_EQ(format("ab", "&&&"), "ab");
    EXPECT_EQ(format("abcd", "@@@"), "abcd");
    EXPECT_EQ(format("5551234567", "(@@@) @@@-@@@@"), "(555) 123-4567");
    EXPECT_EQ(format("ABC", "<"), "abc");
    EXPECT_EQ(format("", ">&-"), "-");
    EXPECT_EQ(format(7, "@@@"), "  7");
    EXPECT_EQ(format("ab", "\\@@@"), "@ab");
}

} // namespace
} // namespace zel::ado
