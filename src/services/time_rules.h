#pragma once

#include "ado/value.h"

#include <optional>
#include <string>
#include <string_view>

namespace zel::core {
class Session;
}

/// Times of day as clerks type them and as postings keep them. A stop at midnight is typed "24:00" and stored as the
/// time value 0; a start at midnight is one minute past, so that a start and a stop of one day never share the value 0.
namespace zel::services {

/// A time typed with three to five characters as hour, ":", minute; empty when it is none. See FormatByType code 1.
[[nodiscard]] std::string typedTime(std::string_view text);

/// Hour and minute on the quarter hour: up to 7 minutes past go back, from 8 on forward. The hour may come out as 24.
struct QuarterHour {
    int hour = 0, minute = 0;
    [[nodiscard]] static QuarterHour nearest(int hour, int minute) noexcept;
};

/// The text of RoundQuarterHour; nothing when the input is no time.
[[nodiscard]] std::optional<std::string> quarterHourText(std::string_view text);
/// The rule for all posting times: empty stays empty, "00:00" and "24:00" give the time value 0 as text. What is no
/// time is told to the clerk and becomes "00:00".
[[nodiscard]] std::string RoundQuarterHour(core::Session& session, const ado::Value& value);
/// The present time for the post screens, on the quarter hour; midnight is "00:01".
[[nodiscard]] std::string quarterHourOf(ado::DateTime moment);

/// "1:30 PM" as "13:30", "12:05 AM" as "00:05". Other hours stay as they are typed: "9:05 AM" is "9:05".
[[nodiscard]] std::string ConvertAmPm(std::string_view text);

} // namespace zel::services
