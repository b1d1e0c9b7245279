#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Request numbers: a category letter, "-", a number with decimal groups (E-7.2).
namespace zel::services {

/// Without leading zeros and blanks in the number and each of its groups: "E-007.02" is "E-7.2".
[[nodiscard]] std::string TrimRequestNumber(std::string_view text);

/// With its hyphen put in where it is missing, trimmed; nothing when something other than a number stands behind it.
[[nodiscard]] std::optional<std::string> requestNumber(std::string_view text);

/// The keys of the person screen's request-number box: a letter comes first and is one of the categories ("O,A,", each
/// with a comma), but neither C nor E, which are crews and equipment. Gives the key to take, 0 for none.
[[nodiscard]] int requestNumberKey(int keyAscii, bool firstCharacter, std::string_view categories);

} // namespace zel::services
