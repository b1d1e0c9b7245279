#include "posting/post_keys.h"

#include "ado/convert.h"
#include "ado/format.h"
#include "services/time_rules.h"

#include <fmt/format.h>

namespace zel::posting {

namespace {

constexpr int minutesPerDay = 1440;
constexpr int step = 15;

/// Minute of the day as the boxes count it: 24:00 is the last, 00:01 the first.
std::optional<int> minuteOf(std::string_view text) {
    if (text == "24:00" || text == "2400")
        return minutesPerDay;
    std::string typed(text);
    if (typed.size() == 4 && typed.find(':') == std::string::npos)
        typed.insert(2, 1, ':');
    const auto time = ado::parseDateTime(typed);
    if (!time)
        return std::nullopt;
    const ado::DateParts parts = time->parts();
    return parts.hour * 60 + parts.minute;
}

std::string boxText(int minute) {
    if (minute <= 0 || minute > minutesPerDay)
        return minute <= 0 ? "24:00" : "00:01";
    return fmt::format("{:02}:{:02}", minute / 60, minute % 60);
}

} // namespace

std::optional<std::string> steppedDate(std::string_view text, int key, ado::DateTime today) {
    const ado::DateTime from = ado::parseDateTime(text).value_or(today).date();
    switch (key) {
    case '+':
        return ado::format(from.addDays(1), "mm/dd/yyyy");
    case '-':
        return ado::format(from.addDays(-1), "mm/dd/yyyy");
    case '=':
        return ado::format(today.date(), "mm/dd/yyyy");
    default:
        return std::nullopt;
    }
}

std::optional<std::string> steppedTime(std::string_view text, int key, ado::DateTime now) {
    if (key == '=')
        return services::quarterHourOf(now);
    if (key != '+' && key != '-')
        return std::nullopt;
    const auto minute = minuteOf(text);
    if (!minute)
        return services::quarterHourOf(now);
    // 00:01 stands where the quarter hours have 00:00.
    const int mark = *minute == 1 ? 0 : *minute;
    const int next = key == '+' ? mark + step : mark - step;
    return next == 0 ? "00:01" : boxText(next);
}

} // namespace zel::posting
