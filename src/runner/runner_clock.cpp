#include "runner/runner_clock.h"

namespace zel::runner {

ado::DateTime RunnerClock::Now() const {
    constexpr double millisecondsOfDay = 24.0 * 60 * 60 * 1000;
    if (stopped_)
        return counter_.Now();
    return system_.Now().addDays(static_cast<double>(milliseconds() / 1000 * 1000) / millisecondsOfDay);
}

void RunnerClock::stopAt(ado::DateTime now) {
    counter_.set(now);
    stopped_ = true;
}

} // namespace zel::runner
