#pragma once

#include "forms/dialogs.h"

#include <cstdint>
#include <functional>
#include <string>

namespace zel::core {

class Session;

/// What a handler knows of the exception it caught.
struct Failure {
    std::int32_t number = 0;
    std::string description;
};

/// Of the exception that is being handled.
[[nodiscard]] Failure currentFailure();

/// The common error box for the exception that is being handled: "Error: <number> Desc: <description>".
void showFailure(Session& session, const std::string& titleTail = ": Error", forms::Icon icon = forms::Icon::None);

/// The edge of an event handler or step: runs it, and shows the common error box when it fails. True when it did not.
bool guarded(Session& session, const std::function<void()>& action, const std::string& titleTail = ": Error",
             forms::Icon icon = forms::Icon::None);

/// Runs a step whose failure must not stop the next ones.
void skipFailures(const std::function<void()>& step) noexcept;

} // namespace zel::core
