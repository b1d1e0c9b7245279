#include "ado/date_time.h"

#include <gtest/gtest.h>

namespace zel::ado {
namespace {

TEST(DateTime, DayZeroIsTheThirtiethOfDecember1899) {
    const DateParts parts = DateTime().parts();
    EXPECT_EQ(parts.year, 1899);
    EXPECT_EQ(parts.month, 12);
    EXPECT_EQ(parts.day, 30);
    EXPECT_EQ(parts.hour, 0);
    EXPECT_EQ(parts.weekday, 7);
}

TEST(DateTime, CountsDaysAsTheFormsDo) {
    EXPECT_EQ(DateTime::fromDate(1899, 12, 31).serial(), 1);
    EXPECT_EQ(DateTime::fromDate(1900, 3, 1).serial(), 61);
    EXPECT_EQ(DateTime::fromDate(2000, 2, 29).serial(), 36'585);
    EXPECT_EQ(DateTime::fromDate(2005, 7, 4).serial(), 38'537);
    EXPECT_EQ(DateTime::fromDate(100, 1, 1).serial(), -657'434);
    EXPECT_EQ(DateTime::fromDate(9999, 12, 31).serial(), 2'958'465);
}

TEST(DateTime, EveryDayFromTheFirstToTheLastComesBack) {
    int weekday = DateTime(-657'434).parts().weekday;
    for (int day = -657'434; day <= 2'958'465; ++day) {
        const DateParts parts = DateTime(day).parts();
        ASSERT_TRUE(isValidDate(parts.year, parts.month, parts.day)) << day;
        ASSERT_EQ(DateTime::fromDate(parts.year, parts.month, parts.day).serial(), day);
        ASSERT_EQ(parts.weekday, weekday) << day;
        weekday = weekday % 7 + 1;
    }
}

TEST(DateTime, TheFourthOfJuly2005WasAMonday) {
    EXPECT_EQ(DateTime::fromDate(2005, 7, 4).parts().weekday, 2);
}

TEST(DateTime, EverySecondOfADayComesBack) {
    for (int second = 0; second < 86'400; ++second) {
        const DateParts wanted{.year = 2005,
                               .month = 7,
                               .day = 4,
                               .hour = second / 3600,
                               .minute = second / 60 % 60,
                               .second = second % 60};
        const DateParts parts = DateTime::fromParts(wanted).parts();
        ASSERT_EQ(parts.day, 4) << second;
        ASSERT_EQ(parts.hour * 3600 + parts.minute * 60 + parts.second, second);
    }
}

TEST(DateTime, TheTimeOfDayBeforeDayZeroCountsAwayFromZero) {
    const DateParts parts = DateTime(-1.25).parts();
    EXPECT_EQ(parts.day, 29);
    EXPECT_EQ(parts.hour, 6);
    EXPECT_EQ(DateTime::fromParts(parts).serial(), -1.25);
    EXPECT_EQ(DateTime(-1.25).date().serial(), -1);
    EXPECT_EQ(DateTime(-1.25).time().serial(), 0.25);
}

TEST(DateTime, LessThanHalfASecondBeforeMidnightIsTheNextDay) {
    const DateParts parts = DateTime(38'537.9999999).parts();
    EXPECT_EQ(parts.day, 5);
    EXPECT_EQ(parts.hour, 0);
    EXPECT_EQ(parts.weekday, 3);
}

TEST(DateTime, PartsADateFromItsTimeOfDay) {
    const DateTime moment(38'537.5625);
    EXPECT_EQ(moment.date(), DateTime::fromDate(2005, 7, 4));
    EXPECT_EQ(moment.time(), DateTime::fromTime(13, 30));
    EXPECT_EQ(moment.addDays(-1).date(), DateTime::fromDate(2005, 7, 3));
}

TEST(DateTime, NumbersOutsideTheCalendarGiveTheNearestDay) {
    EXPECT_EQ(DateTime(1e30).parts().year, 9999);
    EXPECT_EQ(DateTime(-1e30).parts().year, 100);
}

TEST(IsValidDate, KnowsMonthLengthsAndLeapYears) {
    EXPECT_TRUE(isValidDate(2004, 2, 29));
    EXPECT_TRUE(isValidDate(2000, 2, 29));
    EXPECT_FALSE(isValidDate(1900, 2, 29));
    EXPECT_FALSE(isValidDate(2005, 2, 29));
    EXPECT_FALSE(isValidDate(2005, 4, 31));
    EXPECT_FALSE(isValidDate(2005, 13, 1));
    EXPECT_FALSE(isValidDate(2005, 0, 1));
    EXPECT_FALSE(isValidDate(2005, 1, 0));
    EXPECT_FALSE(isValidDate(99, 1, 1));
    EXPECT_FALSE(isValidDate(10000, 1, 1));
}

} // namespace
} // namespace zel::ado
