#include "platform/clock.h"

#include <chrono>
#include <ctime>

namespace zel::platform {

namespace {

constexpr std::int64_t secondsPerDay = 86'400;

} // namespace

ado::DateTime SystemClock::Now() const {
    const std::time_t now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
    std::tm local{};
    localtime_r(&now, &local);
    ado::DateParts parts;
    parts.year = local.tm_year + 1900;
    parts.month = local.tm_mon + 1;
    parts.day = local.tm_mday;
    parts.hour = local.tm_hour;
    parts.minute = local.tm_min;
    parts.second = local.tm_sec > 59 ? 59 : local.tm_sec; // a leap second has no place in a DateTime
    return ado::DateTime::fromParts(parts);
}

std::int64_t SystemClock::milliseconds() const {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::milliseconds>(now).count();
}

ado::DateTime ManualClock::Now() const {
    // By whole seconds of the day, so that a time that was waited for equals the same time written by hand.
    const ado::DateParts start = now_.parts();
    const std::int64_t seconds = start.hour * 3600 + start.minute * 60 + start.second + (elapsed_ - setAt_) / 1000;
    const std::int64_t days = seconds / secondsPerDay;
    ado::DateParts parts =
        ado::DateTime::fromDate(start.year, start.month, start.day).addDays(static_cast<double>(days)).parts();
    parts.hour = static_cast<int>(seconds % secondsPerDay / 3600);
    parts.minute = static_cast<int>(seconds / 60 % 60);
    parts.second = static_cast<int>(seconds % 60);
    return ado::DateTime::fromParts(parts);
}

void ManualClock::set(ado::DateTime now) {
    now_ = now;
    setAt_ = elapsed_;
}

} // namespace zel::platform
