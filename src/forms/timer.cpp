#include "forms/timer.h"

#include "ado/convert.h"
#include "forms/form.h"
#include "forms/form_registry.h"

namespace zel::forms {

namespace {

/// How soon a tick that met an open box is tried again, in milliseconds.
constexpr int retryInterval = 50;

} // namespace

Timer::Timer(Place place, std::string name, int index) : Control(place, std::move(name), index) {}

void Timer::setInterval(int milliseconds) {
    interval_ = milliseconds;
    restart();
}

void Timer::setEnabled(bool enabled) {
    Control::setEnabled(enabled);
    restart();
}

void Timer::restart() {
    waiting_ = false;
    running_.stop();
    if (Enabled() && interval_ > 0)
        running_ = form().forms().timers().start(interval_, [this] { fire(); });
}

void Timer::fire() {
    if (form().forms().dialogs().boxOpen()) {
        if (!waiting_) {
            waiting_ = true;
            running_ = form().forms().timers().start(retryInterval, [this] { fire(); });
        }
        return;
    }
    if (waiting_)
        restart();
    const FormRegistry::Action action(form().forms());
    raise(Fired);
}

std::optional<Value> Timer::property(std::string_view name) const {
    if (ado::equalIgnoringCase(name, "Interval"))
        return Value(interval_);
    return Control::property(name);
}

} // namespace zel::forms
