#pragma once

#include "ado/value.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// Conversions between values as the forms' language makes them: US texts, fixed, whatever the machine's locale.
namespace zel::ado {

/// Default text: "7/4/2005", "1:30:00 PM", "7/4/2005 1:30:00 PM", "True", "18.2", up to 15 digits of a double and 7 of
/// a single ("1E+20" style beyond them). Null gives the empty text, as joining texts does.
[[nodiscard]] std::string toText(const Value& value);

/// Whether the text of the value is a date or a time: "7/4/2005", "07/04/05", "July 4, 2005", "13:30", "1:30 PM",
/// "7/4/2005 1:30 PM", "2005-07-04". "24:00" is none. Two-digit years below 30 lie in 20xx.
[[nodiscard]] bool isDate(const Value& value);
/// Whether toDouble would succeed: "12", " 1,234.50 ", "$5", "(5)", "1e3". An empty text is not numeric.
[[nodiscard]] bool isNumeric(const Value& value);

/// These throw Error: 13 for a text that is none, 94 for Null, 6 for overflow. toLong rounds half to even, 32 bits.
[[nodiscard]] std::int32_t toLong(const Value& value);
[[nodiscard]] double toDouble(const Value& value);
[[nodiscard]] float toSingle(const Value& value);
[[nodiscard]] Currency toCurrency(const Value& value);
[[nodiscard]] DateTime toDateTime(const Value& value);
/// "True", "False" in any letters, or a number that is not zero.
[[nodiscard]] bool toBoolean(const Value& value);

/// The number at the head of a text, blanks skipped; 0 when there is none ("12,5" is 12, "0" + text is the usual call).
[[nodiscard]] double numberAtHead(std::string_view text);

/// isDate and toDateTime in one step.
[[nodiscard]] std::optional<DateTime> parseDateTime(std::string_view text);
/// The 19 characters that dates have at rest: "2005-07-04 13:30:00".
[[nodiscard]] std::string toIsoText(DateTime moment);
/// The reverse, fast; also accepts a fraction of seconds and a bare date. Empty for anything else.
[[nodiscard]] std::optional<DateTime> parseIsoText(std::string_view text);

[[nodiscard]] std::string upperCase(std::string_view text);
[[nodiscard]] std::string lowerCase(std::string_view text);
[[nodiscard]] std::string_view trim(std::string_view text);
/// ASCII letters only, as the engines' text comparison.
[[nodiscard]] bool equalIgnoringCase(std::string_view left, std::string_view right) noexcept;

} // namespace zel::ado
