#include "platform/timer_service.h"

#include <algorithm>
#include <limits>

namespace zel::platform {

struct TimerService::Running::Timer {
    std::int64_t interval = 0;
    std::int64_t due = 0;
    bool firing = false;
    bool stopped = false;
    Callback fired;
};

TimerService::Running& TimerService::Running::operator=(Running&& other) noexcept {
    if (this != &other) {
        stop();
        timer_ = std::move(other.timer_);
    }
    return *this;
}

void TimerService::Running::stop() noexcept {
    if (timer_)
        timer_->stopped = true;
    timer_.reset();
}

TimerService::TimerService(const Clock& clock) : clock_(clock) {}

TimerService::~TimerService() = default;

TimerService::Running TimerService::start(std::int64_t intervalMilliseconds, Callback fired) {
    std::erase_if(timers_, [](const std::weak_ptr<Timer>& timer) { return timer.expired(); });
    Running running;
    running.timer_ = std::make_shared<Timer>();
    running.timer_->interval = std::max<std::int64_t>(intervalMilliseconds, 1);
    running.timer_->due = clock_.milliseconds() + running.timer_->interval;
    running.timer_->fired = std::move(fired);
    timers_.push_back(running.timer_);
    if (started_)
        started_();
    return running;
}

std::shared_ptr<TimerService::Timer> TimerService::earliest(std::int64_t upTo) const {
    std::shared_ptr<Timer> found;
    for (const auto& weak : timers_) {
        auto timer = weak.lock();
        if (timer && !timer->stopped && !timer->firing && timer->due <= upTo && (!found || timer->due < found->due))
            found = std::move(timer);
    }
    return found;
}

void TimerService::run() {
    const std::int64_t now = clock_.milliseconds();
    while (const auto timer = earliest(now)) {
        timer->due = std::max(timer->due, now - timer->interval + 1) + timer->interval;
        timer->firing = true;
        const auto done = [](Timer* fired) { fired->firing = false; };
        const std::unique_ptr<Timer, decltype(done)> guard(timer.get(), done);
        timer->fired();
    }
}

std::optional<std::int64_t> TimerService::nextDue() const {
    if (const auto timer = earliest(std::numeric_limits<std::int64_t>::max()))
        return timer->due;
    return std::nullopt;
}

void runFor(TimerService& timers, ManualClock& clock, std::int64_t milliseconds) {
    const std::int64_t end = clock.milliseconds() + milliseconds;
    for (auto due = timers.nextDue(); due && *due <= end; due = timers.nextDue()) {
        clock.advance(std::max<std::int64_t>(*due - clock.milliseconds(), 0));
        timers.run();
    }
    clock.advance(std::max<std::int64_t>(end - clock.milliseconds(), 0));
}

} // namespace zel::platform
