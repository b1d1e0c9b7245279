#include "platform/clock.h"

#include "ado/convert.h"

#include <gtest/gtest.h>

namespace zel::platform {
namespace {

const ado::DateTime start = *ado::parseDateTime("7/4/2005 8:00:00 AM");

TEST(SystemClock, TellsALocalTimeOfThisCentury) {
    const SystemClock clock;
    const ado::DateParts now = clock.Now().parts();
    EXPECT_GE(now.year, 2024);
    EXPECT_LT(now.year, 2200);
    const auto before = clock.milliseconds();
    EXPECT_GE(clock.milliseconds(), before);
}

TEST(ManualClock, StandsStillUntilTimeIsLetPass) {
    ManualClock clock(start);
    EXPECT_EQ(clock.Now(), start);
    clock.advance(90'500);
    EXPECT_EQ(ado::toText(clock.Now()), "7/4/2005 8:01:30 AM");
    EXPECT_EQ(clock.milliseconds(), 90'500);
    clock.advance(16 * 3'600'000);
    EXPECT_EQ(ado::toText(clock.Now()), "7/5/2005 12:01:30 AM");
}

TEST(ManualClock, TimeReachedByWaitingEqualsTheSameTimeWritten) {
    ManualClock clock(start);
    for (int minute = 1; minute <= 3000; ++minute) {
        clock.advance(60'000);
        ASSERT_EQ(clock.Now(), *ado::parseIsoText(ado::toIsoText(clock.Now()))) << minute;
    }
    EXPECT_EQ(clock.Now(), *ado::parseDateTime("7/6/2005 10:00 AM"));
}

TEST(ManualClock, SettingTheTimeLeavesTheCounter) {
    ManualClock clock(start);
    clock.advance(1234);
    clock.set(*ado::parseDateTime("7/5/2005 6:30 AM"));
    EXPECT_EQ(ado::toText(clock.Now()), "7/5/2005 6:30:00 AM");
    EXPECT_EQ(clock.milliseconds(), 1234);
    clock.advance(1000);
    EXPECT_EQ(ado::toText(clock.Now()), "7/5/2005 6:30:01 AM");
}

} // namespace
} // namespace zel::platform
