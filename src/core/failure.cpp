#include "core/failure.h"

#include "ado/error.h"
#include "core/session.h"

#include <fmt/format.h>

#include <stdexcept>

namespace zel::core {

namespace {

constexpr std::int32_t subscriptOutOfRange = 9;
constexpr std::int32_t internalError = 51;

} // namespace

Failure currentFailure() {
    try {
        throw;
    } catch (const ado::Error& error) {
        return {error.number(), error.description()};
    } catch (const std::out_of_range& error) {
        return {subscriptOutOfRange, error.what()};
    } catch (const std::exception& error) {
        return {internalError, error.what()};
    }
}

void showFailure(Session& session, const std::string& titleTail, forms::Icon icon) {
    const Failure failure = currentFailure();
    session.dialogs.message(fmt::format("Error: {} Desc: {}", failure.number, failure.description),
                            session.title(titleTail), forms::Buttons::OK, icon);
}

bool guarded(Session& session, const std::function<void()>& action, const std::string& titleTail, forms::Icon icon) {
    try {
        action();
        return true;
    } catch (const std::exception&) {
        showFailure(session, titleTail, icon);
        return false;
    }
}

void skipFailures(const std::function<void()>& step) noexcept {
    try {
        step();
    } catch (const std::exception&) {
        // What is on its way out has nobody left to tell.
    }
}

} // namespace zel::core
