#include "platform/timer_service.h"

#include <gtest/gtest.h>
#include <vector>

namespace zel::platform {
namespace {

class TimerServiceTest : public testing::Test {
protected:
    ManualClock clock{ado::DateTime(38'537)};
    TimerService timers{clock};
    std::vector<std::int64_t> fired;

    TimerService::Callback note() {
        return [this] { fired.push_back(clock.milliseconds()); };
    }
};

TEST_F(TimerServiceTest, FiresAtEachIntervalWhileTimePasses) {
    const auto timer = timers.start(15'000, note());
    runFor(timers, clock, 60'000);
    EXPECT_EQ(fired, (std::vector<std::int64_t>{15'000, 30'000, 45'000, 60'000}));
    EXPECT_EQ(clock.milliseconds(), 60'000);
}

TEST_F(TimerServiceTest, TwoTimersFireInTheOrderTheyFallDue) {
    const auto slow = timers.start(25, note());
    const auto fast = timers.start(10, note());
    runFor(timers, clock, 30);
    EXPECT_EQ(fired, (std::vector<std::int64_t>{10, 20, 25, 30}));
}

TEST_F(TimerServiceTest, NothingFiresBeforeItsTime) {
    const auto timer = timers.start(100, note());
    clock.advance(99);
    timers.run();
    EXPECT_TRUE(fired.empty());
    EXPECT_EQ(timers.nextDue(), 100);
}

TEST_F(TimerServiceTest, MissedTicksAreNotMadeUpFor) {
    const auto timer = timers.start(100, note());
    clock.advance(1000);
    timers.run();
    EXPECT_EQ(fired.size(), 1U);
    EXPECT_GT(*timers.nextDue(), 1000);
    EXPECT_LE(*timers.nextDue(), 1100);
}

TEST_F(TimerServiceTest, AStoppedTimerStaysQuiet) {
    auto timer = timers.start(10, note());
    timer.stop();
    EXPECT_FALSE(timer);
    EXPECT_EQ(timers.nextDue(), std::nullopt);
    runFor(timers, clock, 100);
    EXPECT_TRUE(fired.empty());
}

TEST_F(TimerServiceTest, ATimerMayStopItselfOrStartAnother) {
    TimerService::Running second;
    TimerService::Running first = timers.start(10, [&] {
        fired.push_back(clock.milliseconds());
        first.stop();
        second = timers.start(5, note());
    });
    runFor(timers, clock, 20);
    EXPECT_EQ(fired, (std::vector<std::int64_t>{10, 15, 20}));
}

TEST_F(TimerServiceTest, ATimerDoesNotFireInsideItsOwnCall) {
    int depth = 0;
    int deepest = 0;
    const auto timer = timers.start(10, [&] {
        deepest = std::max(deepest, ++depth);
        clock.advance(50);
        timers.run();
        --depth;
    });
    clock.advance(10);
    timers.run();
    EXPECT_EQ(deepest, 1);
}

TEST_F(TimerServiceTest, OthersFireInsideATimersCall) {
    const auto other = timers.start(15, note());
    const auto waiting = timers.start(10, [&] {
        clock.advance(10);
        timers.run();
    });
    clock.advance(10);
    timers.run();
    EXPECT_EQ(fired, std::vector<std::int64_t>{20});
}

TEST_F(TimerServiceTest, AnErrorInACallbackLeavesTheTimerRunning) {
    const auto timer = timers.start(10, [] { throw 1; });
    clock.advance(10);
    EXPECT_THROW(timers.run(), int);
    EXPECT_EQ(timers.nextDue(), 20);
}

TEST_F(TimerServiceTest, TheFrontEndHearsOfANewTimer) {
    int heard = 0;
    timers.onStarted([&] { ++heard; });
    const auto timer = timers.start(10, note());
    EXPECT_EQ(heard, 1);
}

TEST(TimerServiceLifetime, ATimerMayOutliveTheService) {
    const ManualClock clock{ado::DateTime(0)};
    TimerService::Running timer;
    {
        TimerService timers(clock);
        timer = timers.start(10, [] {});
    }
    timer.stop();
    EXPECT_FALSE(timer);
}

} // namespace
} // namespace zel::platform
