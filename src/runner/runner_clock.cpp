#include "runner/runner_clock.h"

namespace zel::runner {

ado::DateTime RunnerClock::Now() const {
    constexpr double secondsOfDay = 24.0 * 60 * 60;
    if (stopped_)
        return counter_.Now();
    const std::int64_t seconds = milliseconds() / 1000;
    return system_.Now().addDays(static_cast<double>(seconds) / secondsOfDay);
}

void RunnerClock::stopAt(ado::DateTime now) {
    counter_.set(now);
    stopped_ = true;
}

} // namespace zel::runner
