#pragma once

#include "forms/control.h"
#include "platform/timer_service.h"

namespace zel::forms {

/// Raises Fired each Interval milliseconds while it is enabled. While a box is open it stays quiet; the event that fell
/// due meanwhile comes once, at the next turn after the box is closed.
class Timer : public Control {
public:
    Timer(Place place, std::string name, int index = noIndex);
    [[nodiscard]] std::string_view typeName() const noexcept override { return "Timer"; }
    /// 0 for never.
    [[nodiscard]] int Interval() const noexcept { return interval_; }
    void setInterval(int milliseconds);
    /// Enabled as of any control; switching it starts the interval anew.
    void setEnabled(bool enabled) override;
    [[nodiscard]] std::optional<Value> property(std::string_view name) const override;
    [[nodiscard]] std::string_view defaultProperty() const noexcept override { return "Enabled"; }

    std::function<void()> Fired;

private:
    void restart();
    void fire();

    int interval_ = 0;
    bool waiting_ = false; // a tick fell due while a box was open
    platform::TimerService::Running running_;
};

} // namespace zel::forms
