#include "ado/convert.h"

#include <gtest/gtest.h>

namespace zel::ado {
namespace {

std::string read(std::string_view text) {
    const auto moment = parseDateTime(text);
    return moment ? toIsoText(*moment) : "none";
}

TEST(ParseDateTime, ReadsNumericDatesMonthFirst) {
    EXPECT_EQ(read("7/4/2005"), "2005-07-04 00:00:00");
    EXPECT_EQ(read("07/04/2005"), "2005-07-04 00:00:00");
    EXPECT_EQ(read("7-4-2005"), "2005-07-04 00:00:00");
    EXPECT_EQ(read("  7/4/2005  "), "2005-07-04 00:00:00");
}

TEST(ParseDateTime, ReadsYearFirstDates) {
    EXPECT_EQ(read("2005-07-04"), "2005-07-04 00:00:00");
    EXPECT_EQ(read("2005/7/4"), "2005-07-04 00:00:00");
    EXPECT_EQ(read("2005-07-04 13:30:05"), "2005-07-04 13:30:05");
    EXPECT_EQ(read("2005-07-04T13:30:05"), "2005-07-04 13:30:05");
}

TEST(ParseDateTime, TwoDigitYearsBelowThirtyLieInThisCentury) {
    EXPECT_EQ(read("7/4/05"), "2005-07-04 00:00:00");
    EXPECT_EQ(read("7/4/29"), "2029-07-04 00:00:00");
    EXPECT_EQ(read("7/4/30"), "1930-07-04 00:00:00");
    EXPECT_EQ(read("7/4/99"), "1999-07-04 00:00:00");
    EXPECT_EQ(read("7/4/5"), "2005-07-04 00:00:00");
    EXPECT_EQ(read("7/4/00"), "2000-07-04 00:00:00");
}

TEST(ParseDateTime, ReadsMonthNames) {
    EXPECT_EQ(read("July 4, 2005"), "2005-07-04 00:00:00");
    EXPECT_EQ(read("jul 4 2005"), "2005-07-04 00:00:00");
    EXPECT_EQ(read("4 JULY 2005"), "2005-07-04 00:00:00");
    EXPECT_EQ(read("4-Jul-05"), "2005-07-04 00:00:00");
    EXPECT_EQ(read("Juli 4, 2005"), "none");
    EXPECT_EQ(read("July 32, 2005"), "none");
}

TEST(ParseDateTime, TimesAloneLieOnDayZero) {
    EXPECT_EQ(read("13:30"), "1899-12-30 13:30:00");
    EXPECT_EQ(read("1:30 PM"), "1899-12-30 13:30:00");
    EXPECT_EQ(read("1:30:15pm"), "1899-12-30 13:30:15");
    EXPECT_EQ(read("1 PM"), "1899-12-30 13:00:00");
    EXPECT_EQ(read("12:00:00 AM"), "1899-12-30 00:00:00");
    EXPECT_EQ(read("12:01:00 AM"), "1899-12-30 00:01:00");
    EXPECT_EQ(read("12:00 PM"), "1899-12-30 12:00:00");
    EXPECT_EQ(read("0:05"), "1899-12-30 00:05:00");
    EXPECT_EQ(parseDateTime("12:00:00 AM")->serial(), 0.0);
}

TEST(ParseDateTime, ReadsADateWithATime) {
    EXPECT_EQ(read("7/4/2005 1:30 PM"), "2005-07-04 13:30:00");
    EXPECT_EQ(read("7/4/2005 13:30"), "2005-07-04 13:30:00");
    EXPECT_EQ(read("July 4, 2005 12:00:00 AM"), "2005-07-04 00:00:00");
    EXPECT_EQ(read("12/29/1899 6:00 AM"), "1899-12-29 06:00:00");
}

TEST(ParseDateTime, RefusesWhatIsNoDateAndNoTime) {
    for (const char* text : {"",
                             " ",
                             "24:00",
                             "25:00",
                             "12:60",
                             "12:30:60",
                             "1:5:",
                             "13:30 PM",
                             "abc",
                             "930",
                             "0930",
                             "38537",
                             "1.5",
                             "2/30/2005",
                             "2/29/2005",
                             "13/1/2005",
                             "0/1/2005",
                             "1/0/2005",
                             "1/1",
                             "1/1/",
                             "__/__/____",
                             "07/04/",
                             "7/4-2005",
                             "7/4/20055",
                             "100/4/05",
                             "7/4/2005 x",
                             "7/4/2005 24:00",
                             "7/4/20051:30",
                             "1:30 PM x",
                             ":30",
                             "July 2005",
                             "PM",
                             "1:30 PMX",
                             "2005-07",
                             "7//2005",
                             "- -",
                             "7/4/2005\n"})
        EXPECT_EQ(read(text), "none") << text;
}

TEST(IsoText, IsNineteenCharactersLong) {
    EXPECT_EQ(toIsoText(DateTime(38'537.5625)), "2005-07-04 13:30:00");
    EXPECT_EQ(toIsoText(DateTime(0.0)), "1899-12-30 00:00:00");
    EXPECT_EQ(toIsoText(DateTime(-657'434)), "0100-01-01 00:00:00");
}

TEST(IsoText, ComesBackAsTheSameMoment) {
    for (double serial : {38'537.0, 38'537.5625, 0.0, 0.25, -1.25, -657'434.0, 2'958'465.999988425925926})
        EXPECT_EQ(toIsoText(*parseIsoText(toIsoText(DateTime(serial)))), toIsoText(DateTime(serial)));
    EXPECT_EQ(parseIsoText("2005-07-04 13:30:00"), DateTime(38'537.5625));
    EXPECT_EQ(parseIsoText("1899-12-30 13:30:00"), DateTime::fromTime(13, 30));
    EXPECT_EQ(parseIsoText("2005-07-04"), DateTime(38'537.0));
    EXPECT_EQ(parseIsoText("2005-07-04T13:30:00"), DateTime(38'537.5625));
}

TEST(IsoText, KeepsAFractionOfASecond) {
    EXPECT_NEAR((parseIsoText("2005-07-04 00:00:00.500")->serial() - 38'537) * 86'400, 0.5, 1e-3);
    EXPECT_EQ(toIsoText(*parseIsoText("2005-07-04 13:29:59.999999")), "2005-07-04 13:30:00");
}

TEST(IsoText, RefusesEverythingElse) {
    for (const char* text : {"", "2005-07-4", "2005-7-04", "2005-02-30", "2005-07-04 ", "2005-07-04 13:30",
                             "2005-07-04 24:00:00", "2005-07-04 13:60:00", "2005-07-04 13:30:60", "2005-07-04 13:30:0x",
                             "2005-07-04 13:30:00.", "2005-07-04 13:30:00x", "2005-07-04 13:30:00+02", "7/4/2005",
                             "2005-07-0x", "0000-00-00 00:00:00", "x005-07-04"})
        EXPECT_FALSE(parseIsoText(text).has_value()) << text;
}

} // namespace
} // namespace zel::ado
