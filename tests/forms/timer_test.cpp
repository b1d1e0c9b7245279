#include "forms/timer.h"

#include "forms/screen_test.h"

namespace zel::forms {

namespace {

class TimerTest : public ScreenTest {
protected:
    TimerTest() {
        timer.Fired = [this] { ++fired; };
    }
    void pass(int milliseconds) { platform::runFor(desk.timers, desk.clock, milliseconds); }

    int fired = 0;
    Form form{desk.forms, "frmRefs"};
    Timer timer{form, "tmrMinute"};
};

} // namespace

TEST_F(TimerTest, FiresEachIntervalWhileItIsEnabled) {
    timer.setInterval(60'000);
    pass(59'999);
    EXPECT_EQ(fired, 0);
    pass(60'001);
    EXPECT_EQ(fired, 2);
    timer.setEnabled(false);
    pass(600'000);
    EXPECT_EQ(fired, 2);
    timer.setEnabled(true);
    pass(60'000);
    EXPECT_EQ(fired, 3);
}

TEST_F(TimerTest, IntervalZeroNeverFires) {
    pass(600'000);
    EXPECT_EQ(fired, 0);
}

TEST_F(TimerTest, TickThatFallsIntoAnOpenBoxComesOnceBehindIt) {
    timer.setInterval(1'000);
    struct BoxDialogs : ScriptedDialogs {
        std::function<void()> meanwhile;
        Answer showMessage(const MessageBox&) override {
            meanwhile();
            return Answer::OK;
        }
    } dialogs;
    FormRegistry forms(dialogs, desk.timers);
    Form boxed(forms, "frmBoxed");
    Timer held{boxed, "tmrHeld"};
    int heldFired = 0;
    held.Fired = [&] { ++heldFired; };
    held.setInterval(1'000);
    dialogs.meanwhile = [&] { pass(5'000); };
    dialogs.message("waiting", "");
    EXPECT_EQ(heldFired, 0);
    EXPECT_EQ(fired, 5) << "a timer of another program is not concerned";
    pass(100);
    EXPECT_EQ(heldFired, 1);
    pass(1'000);
    EXPECT_EQ(heldFired, 2);
}

TEST_F(TimerTest, StopsWithItsForm) {
    {
        Form other(desk.forms, "frmOther");
        Timer gone{other, "tmrGone"};
        gone.Fired = [this] { ++fired; };
        gone.setInterval(10);
    }
    pass(1'000);
    EXPECT_EQ(fired, 0);
}

TEST_F(TimerTest, MaySwitchItselfOffWhileItFires) {
    timer.Fired = [this] {
        ++fired;
        timer.setEnabled(false);
    };
    timer.setInterval(10);
    pass(100);
    EXPECT_EQ(fired, 1);
}

} // namespace zel::forms
