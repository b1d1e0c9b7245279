#pragma once

#include "ado/date_time.h"

#include <cstdint>

namespace zel::platform {

/// The one place where the program learns what time it is: local time, and a millisecond counter for measuring.
class Clock {
public:
    virtual ~Clock() = default;
    /// Whole seconds.
    [[nodiscard]] virtual ado::DateTime Now() const = 0;
    /// Counts up from some moment in the past, whatever is done to the time of day.
    [[nodiscard]] virtual std::int64_t milliseconds() const = 0;
    [[nodiscard]] ado::DateTime Today() const { return Now().date(); }
};

/// The machine's clock.
class SystemClock final : public Clock {
public:
    [[nodiscard]] ado::DateTime Now() const override;
    [[nodiscard]] std::int64_t milliseconds() const override;
};

/// A clock that stands still until it is moved: for tests and for automation.
class ManualClock final : public Clock {
public:
    explicit ManualClock(ado::DateTime now) : now_(now) {}
    [[nodiscard]] ado::DateTime Now() const override;
    [[nodiscard]] std::int64_t milliseconds() const override { return elapsed_; }
    /// Another time of day. The counter stays, so that no timer falls due by it.
    void set(ado::DateTime now);
    void advance(std::int64_t milliseconds) { elapsed_ += milliseconds; }

private:
    ado::DateTime now_;
    std::int64_t elapsed_ = 0, setAt_ = 0;
};

} // namespace zel::platform
