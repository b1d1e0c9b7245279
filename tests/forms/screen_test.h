#pragma once

#include "forms/form.h"
#include "forms/form_registry.h"
#include "forms/scripted_dialogs.h"
#include "forms/user.h"
#include "platform/clock.h"
#include "platform/timer_service.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace zel::forms {

/// What a screen stands in: registry, dialogs with prepared answers, a clock that stands still.
struct Desk {
    platform::ManualClock clock{ado::DateTime::fromDate(2005, 7, 4)};
    platform::TimerService timers{clock};
    ScriptedDialogs dialogs;
    FormRegistry forms{dialogs, timers};
    User user{forms};
};

/// A test of one screen: events are noted in the order they come.
class ScreenTest : public ::testing::Test {
protected:
    /// A handler that notes its event.
    [[nodiscard]] std::function<void()> note(std::string event) {
        return [this, event] { events.push_back(event); };
    }
    std::vector<std::string> takeEvents() { return std::exchange(events, {}); }

    Desk desk;
    std::vector<std::string> events;
};

inline testing::AssertionResult done(const Outcome& outcome) {
    if (outcome)
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << outcome.refusal;
}

} // namespace zel::forms
