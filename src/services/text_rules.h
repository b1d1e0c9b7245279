#pragma once

#include "ado/value.h"

#include <string>
#include <string_view>

namespace zel::core {
class Session;
}

namespace zel::services {

/// What a field holds, as FormatByType and the columns of grids number it.
namespace fieldType {
inline constexpr int ssn = 0, time = 1, phone = 2, requestNumber = 3, accountingCode = 4, zip = 5, zipPlusFour = 6,
                     date = 7, dateYearFirst = 8, custom = 9, upperCase = 10;
} // namespace fieldType

/// The text as the field keeps it: types 0 (nine digits become 000-00-0000), 1 (a time, or empty), 3 (a request number;
/// what cannot be one is told to the clerk and becomes empty), 7 (mm/dd/yyyy), 10 (upper case). Other types give an
/// empty text.
[[nodiscard]] std::string FormatByType(core::Session& session, std::string_view text, int type);

/// Without each of the characters; with none given only those of code 48 to 122 stay. Null and empty come back as they
/// are.
[[nodiscard]] ado::Value StripChars(const ado::Value& value, std::string_view characters = {});
/// Exactly `length` characters: padded or cut in front with `left`, else behind.
[[nodiscard]] std::string PadText(std::string_view value, bool left, char pad, int length);
/// Null and empty become 0 or "".
[[nodiscard]] ado::Value BlankIfEmpty(const ado::Value& value, bool numeric = false);

/// What a mask box shows of a date (mm/dd/yyyy) or a time (hh:nn), prompts taken out; Null for what is neither. The
/// time "24:00" is the time value 0; five characters that are no time stand as they are, four digits become hh:mm.
[[nodiscard]] ado::Value FormatMaskValue(const ado::Value& value, bool time = false);

} // namespace zel::services
