#include "services/time_rules.h"

#include "services_test.h"

#include <fmt/format.h>

namespace zel::services {
namespace {

struct Typed {
    std::string text, time;
};

void PrintTo(const Typed& typed, std::ostream* stream) {
    *stream << typed.text;
}

class TypedTime : public testing::TestWithParam<Typed> {};

TEST_P(TypedTime, BecomesHourColonMinute) {
    EXPECT_EQ(typedTime(GetParam().text), GetParam().time);
}

INSTANTIATE_TEST_SUITE_P(ThreeCharacters, TypedTime,
                         testing::Values(Typed{"9:3", "09:3"}, Typed{"0:1", "00:1"}, Typed{"930", "9:30"},
                                         Typed{"123", "12:3"}, Typed{"240", "24:0"}, Typed{"245", ""},
                                         Typed{"250", "2:50"}, Typed{"260", ""}, Typed{"999", ""}, Typed{"000", ""},
                                         Typed{"001", "00:1"}, Typed{"0:0", ""}, Typed{":93", ""}, Typed{"93:", ""},
                                         Typed{"9:x", ""}, Typed{"x:9", ""}, Typed{"9 3", ""}, Typed{"1::", ""}));
INSTANTIATE_TEST_SUITE_P(FourCharacters, TypedTime,
                         testing::Values(Typed{"9:30", "09:30"}, Typed{"12:3", "12:03"}, Typed{"0930", "09:30"},
                                         Typed{"2400", "24:00"}, Typed{"24:0", "24:00"}, Typed{"2430", ""},
                                         Typed{"2401", ""}, Typed{"2500", ""}, Typed{"0960", ""}, Typed{"0000", ""},
                                         Typed{"0:00", ""}, Typed{"00:0", ""}, Typed{"0001", "00:01"},
                                         Typed{":930", ""}, Typed{"930:", ""}, Typed{"-930", ""}, Typed{"1e10", ""},
                                         Typed{"1.30", ""}, Typed{"9:-3", ""}));
INSTANTIATE_TEST_SUITE_P(FiveCharacters, TypedTime,
                         testing::Values(Typed{"09:30", "09:30"}, Typed{"00:00", "00:00"}, Typed{"24:00", "24:00"},
                                         Typed{"24:01", ""}, Typed{"23:59", "23:59"}, Typed{"23:60", ""},
                                         Typed{"09.30", ""}, Typed{"9:300", ""}, Typed{"093:0", ""}, Typed{"09:3x", ""},
                                         Typed{" 9:30", ""}));
INSTANTIATE_TEST_SUITE_P(OtherLengths, TypedTime,
                         testing::Values(Typed{"", ""}, Typed{"9", ""}, Typed{"93", ""}, Typed{"09:300", ""},
                                         Typed{"9:30 AM", ""}));

class RoundQuarterHourTest : public ServicesTest {};

TEST_F(RoundQuarterHourTest, EveryMinuteOfADayGoesToItsQuarterHour) {
    for (int minute = 1; minute < 24 * 60; ++minute) {
        const std::string typed = fmt::format("{:02}:{:02}", minute / 60, minute % 60);
        const int past = minute % 60;
        const int rounded = past <= 7 ? 0 : past <= 22 ? 15 : past <= 37 ? 30 : past <= 52 ? 45 : 60;
        const int total = minute / 60 * 60 + rounded;
        std::string wanted = fmt::format("{:02}:{:02}", total / 60, total % 60);
        if (total == 0)
            wanted = "00:01"; // a start at midnight
        if (total == 24 * 60)
            wanted = "00:00"; // a stop at midnight
        ASSERT_EQ(RoundQuarterHour(session, typed), wanted) << typed;
        const std::string digits = typed.substr(0, 2) + typed.substr(3);
        ASSERT_EQ(RoundQuarterHour(session, digits), wanted) << digits;
    }
    expectNoBox();
}

TEST_F(RoundQuarterHourTest, TheEdgesOfTheQuarters) {
    EXPECT_EQ(RoundQuarterHour(session, "07:07"), "07:00");
    EXPECT_EQ(RoundQuarterHour(session, "07:08"), "07:15");
    EXPECT_EQ(RoundQuarterHour(session, "07:53"), "08:00");
    EXPECT_EQ(RoundQuarterHour(session, "00:05"), "00:01");
    EXPECT_EQ(RoundQuarterHour(session, "23:58"), "00:00");
    EXPECT_EQ(RoundQuarterHour(session, " 0708 "), "07:15");
}

TEST_F(RoundQuarterHourTest, MidnightIsTheTimeValueZero) {
    for (const char* midnight : {"00:00", "24:00", "0000", "2400"})
        EXPECT_EQ(RoundQuarterHour(session, midnight), "12:00:00 AM") << midnight;
    expectNoBox();
}

TEST_F(RoundQuarterHourTest, EmptyStaysEmpty) {
    EXPECT_EQ(RoundQuarterHour(session, ""), "");
    EXPECT_EQ(RoundQuarterHour(session, ado::Value()), "");
    expectNoBox();
}

TEST_F(RoundQuarterHourTest, WhatIsNoTimeIsToldAndBecomesMidnight) {
    for (const char* wrong : {"930", "9:30", "25:00", "24:15", "2430", "12:60", "ab:cd", "1e10", "-930", "12345",
                              "1:5PM", "9", "    ", "13:30:00", "__:__"}) {
        EXPECT_EQ(RoundQuarterHour(session, wrong), "00:00") << wrong;
        const auto shown = box();
        EXPECT_EQ(shown.text, "Invalid Time Entered...Time Will be 2400");
        EXPECT_EQ(shown.title, "ZEL:Post Update Error");
        EXPECT_EQ(shown.icon, "exclamation");
        EXPECT_EQ(shown.buttons, "OK");
    }
}

TEST(QuarterHourOf, ThePresentTimeNeverFallsOnMidnight) {
    const auto at = [](int hour, int minute) { return quarterHourOf(ado::DateTime::fromTime(hour, minute)); };
    EXPECT_EQ(at(13, 30), "13:30");
    EXPECT_EQ(at(9, 8), "09:15");
    EXPECT_EQ(at(0, 0), "00:01");
    EXPECT_EQ(at(0, 7), "00:01");
    EXPECT_EQ(at(0, 8), "00:15");
    EXPECT_EQ(at(23, 52), "23:45");
    EXPECT_EQ(at(23, 53), "00:01");
    EXPECT_EQ(quarterHourOf(ado::DateTime(38'537.5625)), "13:30");
}

TEST(ConvertAmPm, MorningsAndAfternoons) {
    EXPECT_EQ(ConvertAmPm("9:05 AM"), "9:05");
    EXPECT_EQ(ConvertAmPm("09:05 AM"), "09:05");
    EXPECT_EQ(ConvertAmPm("1:30 PM"), "13:30");
    EXPECT_EQ(ConvertAmPm("01:30 PM"), "13:30");
    EXPECT_EQ(ConvertAmPm("11:59 PM"), "23:59");
    EXPECT_EQ(ConvertAmPm("1:30:00 PM"), "13:30:00");
    EXPECT_EQ(ConvertAmPm("1:30PM"), "13:30");
}

TEST(ConvertAmPm, TwelveIsMidnightOrNoon) {
    EXPECT_EQ(ConvertAmPm("12:00 AM"), "00:00");
    EXPECT_EQ(ConvertAmPm("12:01:00 AM"), "00:01:00");
    EXPECT_EQ(ConvertAmPm("12:00 PM"), "12:00");
}

TEST(ConvertAmPm, TextWithoutASuffixStays) {
    EXPECT_EQ(ConvertAmPm("13:30"), "13:30");
    EXPECT_EQ(ConvertAmPm(""), "");
    EXPECT_EQ(ConvertAmPm("P"), "P");
    EXPECT_EQ(ConvertAmPm("PM"), "");
    EXPECT_EQ(ConvertAmPm("x:30 PM"), "x:30");
}

} // namespace
} // namespace zel::services
