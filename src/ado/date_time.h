#pragma once

#include <compare>

namespace zel::ado {

/// Calendar parts of a DateTime. `weekday` is 1 for Sunday to 7 for Saturday.
struct DateParts {
    int year = 1899, month = 12, day = 30;
    int hour = 0, minute = 0, second = 0;
    int weekday = 7;
};

/// A date with a time of day: days since 1899-12-30, the time in the fraction. A time of day alone lies on day 0.
/// Dates before day 0 count their fraction away from zero, so -1.25 is 1899-12-29 06:00.
class DateTime {
public:
    constexpr DateTime() noexcept = default;
    constexpr explicit DateTime(double serial) noexcept : serial_(serial) {}
    /// Parts out of range are an assertion: callers check first (see isValidDate).
    [[nodiscard]] static DateTime fromParts(const DateParts& parts);
    [[nodiscard]] static DateTime fromDate(int year, int month, int day);
    [[nodiscard]] static DateTime fromTime(int hour, int minute, int second = 0);

    [[nodiscard]] constexpr double serial() const noexcept { return serial_; }
    /// Rounded to the nearest second.
    [[nodiscard]] DateParts parts() const;
    /// The day without the time of day.
    [[nodiscard]] DateTime date() const;
    /// The time of day on day 0, a fraction from 0.0 to below 1.0.
    [[nodiscard]] DateTime time() const;
    [[nodiscard]] DateTime addDays(double days) const { return DateTime(serial_ + days); }

    friend constexpr auto operator<=>(DateTime, DateTime) noexcept = default; // NOLINT(modernize-use-nullptr)

private:
    double serial_ = 0.0;
};

/// Years 100 to 9999, real month lengths (Gregorian).
[[nodiscard]] bool isValidDate(int year, int month, int day) noexcept;

} // namespace zel::ado
