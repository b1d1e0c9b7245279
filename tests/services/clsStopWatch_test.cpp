#include "services/clsStopWatch.h"

#include "services_test.h"

namespace zel::services {
namespace {

class clsStopWatchTest : public ServicesTest {
protected:
    clsStopWatch watch{session};

    std::int64_t measure(std::int64_t milliseconds) {
        watch.StartTimer();
        program.clock.advance(milliseconds);
        return watch.StopTimer();
    }
};

TEST_F(clsStopWatchTest, IsQuietAtFirst) {
    EXPECT_FALSE(watch.ScreenEnabled);
    EXPECT_FALSE(watch.DetailsEnabled);
    EXPECT_EQ(measure(250), 250);
    expectNoBox();
}

TEST_F(clsStopWatchTest, EitherModeShowsTheMilliseconds) {
    watch.ScreenEnabled = true;
    EXPECT_EQ(measure(1250), 1250);
    auto shown = box();
    EXPECT_EQ(shown.text, "1250 milliseconds");
    EXPECT_EQ(shown.title, "Time Results");
    watch.ScreenEnabled = false;
    watch.DetailsEnabled = true;
    EXPECT_EQ(measure(0), 0);
    EXPECT_EQ(box().text, "0 milliseconds");
}

} // namespace
} // namespace zel::services
