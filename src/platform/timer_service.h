#pragma once

#include "platform/clock.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace zel::platform {

/// Calls back at intervals, on the one thread of the program: a front end calls run() when nextDue() has come, the
/// automation runner lets time pass with runFor().
class TimerService {
public:
    using Callback = std::function<void()>;

    explicit TimerService(const Clock& clock);
    ~TimerService();
    TimerService(const TimerService&) = delete;
    TimerService& operator=(const TimerService&) = delete;

    /// A running timer, which stops when it is destroyed. It may outlive the service.
    class Running {
    public:
        Running() = default;
        Running(Running&&) noexcept = default;
        Running& operator=(Running&& other) noexcept;
        ~Running() { stop(); }
        void stop() noexcept;
        [[nodiscard]] explicit operator bool() const noexcept { return timer_ != nullptr; }

    private:
        friend class TimerService;
        struct Timer;
        std::shared_ptr<Timer> timer_;
    };

    /// Fires for the first time after one interval, which is at least a millisecond. Ticks that nobody ran in time are
    /// not made up for: the timer fires once and goes on from there.
    [[nodiscard]] Running start(std::int64_t intervalMilliseconds, Callback fired);
    /// Fires the timers that are due, the earliest first. A timer that fires does not fire again inside its own call.
    void run();
    /// When the next timer falls due on the clock's counter; nothing when none runs.
    [[nodiscard]] std::optional<std::int64_t> nextDue() const;
    /// Called when nextDue() may have come nearer, so that a front end can wait for the right moment.
    void onStarted(Callback started) { started_ = std::move(started); }

private:
    using Timer = Running::Timer;
    [[nodiscard]] std::shared_ptr<Timer> earliest(std::int64_t upTo) const;

    const Clock& clock_;
    std::vector<std::weak_ptr<Timer>> timers_; // in the order they were started
    Callback started_;
};

/// Lets time pass on a test clock, each timer firing at its own moment.
void runFor(TimerService& timers, ManualClock& clock, std::int64_t milliseconds);

} // namespace zel::platform
