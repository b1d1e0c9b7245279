#include "posting/modMath.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>

namespace zel::posting {
namespace {

ado::DateTime at(int hour, int minute) {
    return ado::DateTime::fromTime(hour, minute);
}

struct HoursCase {
    int startHour, startMinute, stopHour, stopMinute;
    float hours;
};

class HoursOfPeriod : public testing::TestWithParam<HoursCase> {};

TEST_P(HoursOfPeriod, FollowTheMidnightAndMinuteRules) {
    const HoursCase& c = GetParam();
    EXPECT_EQ(CalcHours(at(c.startHour, c.startMinute), at(c.stopHour, c.stopMinute)), c.hours);
}

INSTANTIATE_TEST_SUITE_P(Table, HoursOfPeriod,
                         testing::Values(HoursCase{0, 1, 0, 0, 24.0F}, HoursCase{0, 1, 12, 0, 12.0F},
                                         HoursCase{0, 0, 23, 59, 24.0F}, HoursCase{8, 0, 0, 0, 16.0F},
                                         HoursCase{22, 0, 6, 0, 8.0F}, HoursCase{8, 0, 8, 0, 0.0F},
                                         HoursCase{0, 0, 0, 0, 0.0F},
                                         // A stop one minute early: -1 counts as 0, so the day is lost, not gained.
                                         HoursCase{8, 1, 8, 0, 0.0F},
                                         // 9 at the end goes up by one on both sides of zero: 29 to 30, -479 to -478.
                                         HoursCase{8, 0, 8, 29, 0.5F}, HoursCase{16, 0, 8, 1, 24.0F - 478.0F / 60.0F},
                                         HoursCase{8, 0, 8, 1, 1.0F / 60.0F}));

/// Counts quarter hours from one mark of the clock to another by walking.
int quartersWalked(int from, int to) {
    int walked = 0;
    for (int mark = from; mark != to; mark = (mark + 1) % 96)
        ++walked;
    return walked;
}

TEST(CalcHours, AgreesWithWalkingTheClockForEveryPairOfQuarterHours) {
    for (int start = 0; start < 96; ++start)
        for (int stop = 0; stop < 96; ++stop)
            ASSERT_EQ(CalcHours(at(start / 4, start % 4 * 15), at(stop / 4, stop % 4 * 15)),
                      static_cast<float>(quartersWalked(start, stop)) / 4.0F)
                << "start mark " << start << ", stop mark " << stop;
}

TEST(CalcHours, PaysASecondHalfFromMidnightForEveryQuarterHourStop) {
    for (int stop = 1; stop < 96; ++stop)
        ASSERT_EQ(CalcHours(oneMinutePastMidnight, at(stop / 4, stop % 4 * 15)), static_cast<float>(stop) / 4.0F);
}

TEST(CalcHours, OneMinutePastMidnightIsTheTimeThatScreensStore) {
    EXPECT_EQ(at(0, 1), oneMinutePastMidnight);
}

TEST(CalcAmount, PaysHoursOverTheThresholdAtTheMultiplier) {
    const auto rate = ado::Currency::fromDecimal("20");
    EXPECT_EQ(CalcAmount(10.0F, rate, 8.0F, 1.5F), ado::Currency::fromDecimal("220"));
    EXPECT_EQ(CalcAmount(10.0F, rate, 0.0F, 1.5F), ado::Currency::fromDecimal("200"));
    EXPECT_EQ(CalcAmount(8.0F, rate, 8.0F, 1.5F), ado::Currency::fromDecimal("160"));
}

TEST(CalcAmount, KeepsFourDecimals) {
    EXPECT_EQ(CalcAmount(0.25F, ado::Currency::fromDecimal("18.2025"), 0.0F, 1.0F),
              ado::Currency::fromDecimal("4.5506"));
}

TEST(RegularAndExtraHours, PartAtTheThreshold) {
    EXPECT_EQ(CalcRegularHours(10.0F, 8.0F), 8.0F);
    EXPECT_EQ(CalcExtraHours(10.0F, 8.0F), 2.0F);
    EXPECT_EQ(CalcRegularHours(8.0F, 8.0F), 8.0F);
    EXPECT_EQ(CalcExtraHours(8.0F, 8.0F), 0.0F);
    EXPECT_EQ(CalcRegularHours(10.0F, 0.0F), 10.0F);
    EXPECT_EQ(CalcExtraHours(10.0F, 0.0F), 0.0F);
}

TEST(CrossesMidnight, UnlessTheStopIsLaterOrTheEndOfTheDay) {
    EXPECT_TRUE(crossesMidnight(at(22, 0), at(6, 0)));
    EXPECT_TRUE(crossesMidnight(at(8, 0), at(8, 0)));
    EXPECT_FALSE(crossesMidnight(at(8, 0), at(20, 0)));
    EXPECT_FALSE(crossesMidnight(at(8, 0), endOfDay));
}

} // namespace
} // namespace zel::posting
