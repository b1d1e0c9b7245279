#include "ado/date_time.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <cmath>
#include <cstdint>

namespace zel::ado {

namespace {

constexpr double secondsPerDay = 86'400.0;
constexpr std::int64_t lastDay = 2'958'465; // 9999-12-31
constexpr std::int64_t firstDay = -657'434; // 0100-01-01

constexpr bool isLeapYear(int year) noexcept {
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

constexpr int daysInMonth(int year, int month) noexcept {
    constexpr std::array<int, 12> lengths{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return month == 2 && isLeapYear(year) ? 29 : lengths[static_cast<std::size_t>(month - 1)];
}

// Years are counted from March, so that the leap day is the last of a year, in cycles of 400 years (146,097 days).
constexpr std::int64_t daysBeforeDayZero = 693'899; // from 0000-03-01 to 1899-12-30

constexpr std::int64_t dayNumber(int year, int month, int day) noexcept {
    const std::int64_t marchYear = month > 2 ? year : year - 1;
    const std::int64_t marchMonth = month > 2 ? month - 3 : month + 9;
    const std::int64_t dayOfYear = (153 * marchMonth + 2) / 5 + day - 1;
    return 365 * marchYear + marchYear / 4 - marchYear / 100 + marchYear / 400 + dayOfYear - daysBeforeDayZero;
}

static_assert(dayNumber(1899, 12, 30) == 0);
static_assert(dayNumber(2005, 7, 4) == 38'537);
static_assert(dayNumber(9999, 12, 31) == lastDay);
static_assert(dayNumber(100, 1, 1) == firstDay);

void setCalendarDay(DateParts& parts, std::int64_t day) noexcept {
    const std::int64_t days = day + daysBeforeDayZero;
    const std::int64_t cycle = days / 146'097;
    const std::int64_t dayOfCycle = days % 146'097;
    const std::int64_t yearOfCycle =
        (dayOfCycle - dayOfCycle / 1'460 + dayOfCycle / 36'524 - dayOfCycle / 146'096) / 365;
    const std::int64_t dayOfYear = dayOfCycle - (365 * yearOfCycle + yearOfCycle / 4 - yearOfCycle / 100);
    const std::int64_t marchMonth = (5 * dayOfYear + 2) / 153;
    parts.day = static_cast<int>(dayOfYear - (153 * marchMonth + 2) / 5 + 1);
    parts.month = static_cast<int>(marchMonth < 10 ? marchMonth + 3 : marchMonth - 9);
    parts.year = static_cast<int>(400 * cycle + yearOfCycle + (parts.month <= 2 ? 1 : 0));
    parts.weekday = static_cast<int>(((day + 6) % 7 + 7) % 7) + 1;
}

} // namespace

bool isValidDate(int year, int month, int day) noexcept {
    return year >= 100 && year <= 9999 && month >= 1 && month <= 12 && day >= 1 && day <= daysInMonth(year, month);
}

DateTime DateTime::fromParts(const DateParts& parts) {
    const double day = fromDate(parts.year, parts.month, parts.day).serial();
    const double time = fromTime(parts.hour, parts.minute, parts.second).serial();
    return DateTime(day < 0 ? day - time : day + time);
}

DateTime DateTime::fromDate(int year, int month, int day) {
    assert(isValidDate(year, month, day));
    return DateTime(static_cast<double>(dayNumber(year, month, day)));
}

DateTime DateTime::fromTime(int hour, int minute, int second) {
    assert(hour >= 0 && hour < 24 && minute >= 0 && minute < 60 && second >= 0 && second < 60);
    return DateTime((hour * 3600 + minute * 60 + second) / secondsPerDay);
}

DateParts DateTime::parts() const {
    // A number that is no date (outside the years 100 to 9999) is read as the nearest one.
    const double inRange = std::isnan(serial_) ? 0.0
                                               : std::clamp(serial_, static_cast<double>(firstDay) - 0.99999,
                                                            static_cast<double>(lastDay) + 0.99999);
    auto day = static_cast<std::int64_t>(inRange);
    auto seconds = std::lround(std::abs(inRange - static_cast<double>(day)) * secondsPerDay);
    if (seconds == 86'400) {
        ++day;
        seconds = 0;
    }
    DateParts parts;
    setCalendarDay(parts, day);
    parts.hour = static_cast<int>(seconds / 3600);
    parts.minute = static_cast<int>(seconds / 60 % 60);
    parts.second = static_cast<int>(seconds % 60);
    return parts;
}

DateTime DateTime::date() const {
    return DateTime(std::trunc(serial_));
}

DateTime DateTime::time() const {
    return DateTime(std::abs(serial_ - std::trunc(serial_)));
}

} // namespace zel::ado
