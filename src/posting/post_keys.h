#pragma once

#include "ado/date_time.h"

#include <optional>
#include <string>
#include <string_view>

namespace zel::posting {

/// What "+", "-" and "=" make of the date in a box: a day on, a day back, today; nothing for any other key. An empty
/// box starts from today.
[[nodiscard]] std::optional<std::string> steppedDate(std::string_view text, int key, ado::DateTime today);

/// What the same keys make of a time box: a quarter hour on or back, or the present time on the quarter hour. The day
/// runs from 00:01 to 24:00 and around: 24:00 goes on to 00:01.
[[nodiscard]] std::optional<std::string> steppedTime(std::string_view text, int key, ado::DateTime now);

} // namespace zel::posting
