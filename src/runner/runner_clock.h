#pragma once

#include "platform/clock.h"
#include "platform/timer_service.h"

#include <optional>

namespace zel::runner {

/// The clock of a program without a window. The time of day is the machine's until it is stopped; the counter by which
/// timers fire stands still until time is let pass, which moves both.
class RunnerClock final : public platform::Clock {
public:
    [[nodiscard]] ado::DateTime Now() const override;
    [[nodiscard]] std::int64_t milliseconds() const override { return counter_.milliseconds(); }
    void stopAt(ado::DateTime now);

    [[nodiscard]] platform::TimerService& timers() noexcept { return timers_; }
    /// Timers fire at their moments.
    void pass(std::int64_t milliseconds) { platform::runFor(timers_, counter_, milliseconds); }

private:
    platform::SystemClock system_;
    platform::ManualClock counter_{ado::DateTime()};
    platform::TimerService timers_{counter_};
    bool stopped_ = false;
};

} // namespace zel::runner
