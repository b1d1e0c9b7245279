#include "services/time_rules.h"

#include "ado/convert.h"
#include "core/session.h"
#include "forms/dialogs.h"

#include <algorithm>

#include <fmt/format.h>

namespace zel::services {

namespace {

constexpr bool isDigit(char c) noexcept {
    return c >= '0' && c <= '9';
}

/// One or two digits; -1 for anything else.
int twoDigits(std::string_view text) noexcept {
    if (text.empty() || text.size() > 2)
        return -1;
    int number = 0;
    for (const char c : text) {
        if (!isDigit(c))
            return -1;
        number = number * 10 + (c - '0');
    }
    return number;
}

struct TypedTime {
    std::string hour, minute;
};

std::string padded(std::string_view digits) {
    return (digits.size() < 2 ? "0" : "") + std::string(digits);
}

TypedTime splitThree(std::string_view text, std::size_t colon) {
    if (colon == 1)
        return {padded(text.substr(0, 1)), std::string(text.substr(2))};
    if (colon != std::string_view::npos)
        return {};
    // 930 is 9:30, since there is no hour 93; 123 is 12:3.
    const std::size_t hourDigits = twoDigits(text.substr(0, 2)) > 24 ? 1 : 2;
    return {std::string(text.substr(0, hourDigits)), std::string(text.substr(hourDigits))};
}

TypedTime splitFour(std::string_view text, std::size_t colon) {
    if (colon == 1 || colon == 2)
        return {padded(text.substr(0, colon)), padded(text.substr(colon + 1))};
    if (colon != std::string_view::npos)
        return {};
    return {std::string(text.substr(0, 2)), std::string(text.substr(2))};
}

TypedTime split(std::string_view text) {
    const std::size_t colon = text.find(':');
    if (text.size() == 3)
        return splitThree(text, colon);
    if (text.size() == 4)
        return splitFour(text, colon);
    if (text.size() == 5 && colon == 2)
        return {std::string(text.substr(0, 2)), std::string(text.substr(3))};
    return {};
}

/// "dd:dd" as hour and minute from 00:00 to 24:00; nothing for anything else.
std::optional<QuarterHour> readTime(std::string_view text) {
    if (text.size() != 5 || text[2] != ':')
        return std::nullopt;
    const QuarterHour time{twoDigits(text.substr(0, 2)), twoDigits(text.substr(3))};
    const bool valid = time.hour >= 0 && time.minute >= 0 && time.minute < 60 &&
                       (time.hour < 24 || (time.hour == 24 && time.minute == 0));
    return valid ? std::optional(time) : std::nullopt;
}

} // namespace

std::string typedTime(std::string_view text) {
    const TypedTime time = split(text);
    const int hour = twoDigits(time.hour);
    const int minute = twoDigits(time.minute);
    if (hour < 0 || hour > 24 || minute < 0 || minute > 59 || (hour == 24 && minute > 0))
        return {};
    // Only who types all five characters may mean the midnight at which a day begins.
    if (text.size() < 5 && hour == 0 && minute == 0)
        return {};
    return time.hour + ':' + time.minute;
}

QuarterHour QuarterHour::nearest(int hour, int minute) noexcept {
    const int quarters = (minute + 7) / 15;
    return {hour + quarters / 4, quarters % 4 * 15};
}

std::optional<std::string> quarterHourText(std::string_view text) {
    std::string time(ado::trim(text));
    if (time.size() == 4 && std::all_of(time.begin(), time.end(), isDigit))
        time.insert(2, 1, ':');
    const auto typed = readTime(time);
    if (!typed)
        return std::nullopt;
    if (time == "00:00" || time == "24:00")
        return ado::toText(ado::DateTime(0.0));
    QuarterHour rounded = QuarterHour::nearest(typed->hour, typed->minute);
    if (rounded.hour == 0 && rounded.minute == 0)
        rounded.minute = 1;
    if (rounded.hour == 24)
        rounded.hour = 0; // the end of the day stays 00:00
    return fmt::format("{:02}:{:02}", rounded.hour, rounded.minute);
}

std::string RoundQuarterHour(core::Session& session, const ado::Value& value) {
    const std::string text = ado::toText(value);
    if (text.empty())
        return {};
    if (auto rounded = quarterHourText(text))
        return *std::move(rounded);
    session.dialogs.message("Invalid Time Entered...Time Will be 2400", session.title(":Post Update Error"),
                            forms::Buttons::OK, forms::Icon::Exclamation);
    return "00:00";
}

std::string quarterHourOf(ado::DateTime moment) {
    const ado::DateParts now = moment.parts();
    QuarterHour rounded = QuarterHour::nearest(now.hour, now.minute);
    rounded.hour %= 24;
    if (rounded.hour == 0 && rounded.minute == 0)
        rounded.minute = 1;
    return fmt::format("{:02}:{:02}", rounded.hour, rounded.minute);
}

std::string ConvertAmPm(std::string_view text) {
    const std::string_view typed = ado::trim(text);
    const std::string_view suffix = typed.size() < 2 ? std::string_view{} : typed.substr(typed.size() - 2);
    const bool afternoon = ado::equalIgnoringCase(suffix, "PM");
    if (!afternoon && !ado::equalIgnoringCase(suffix, "AM"))
        return std::string(typed);
    const std::string_view time = ado::trim(typed.substr(0, typed.size() - 2));
    const std::size_t hourDigits = time.size() > 2 && time[2] == ':' ? 2 : 1;
    const int hour = twoDigits(time.substr(0, hourDigits));
    std::string result(time);
    if (afternoon && hour >= 0 && hour != 12)
        result.replace(0, hourDigits, std::to_string(hour + 12));
    else if (!afternoon && hour == 12)
        result.replace(0, hourDigits, "00");
    return result;
}

} // namespace zel::services
