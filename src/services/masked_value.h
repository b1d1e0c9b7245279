#pragma once

#include "ado/value.h"

#include <string>
#include <string_view>

namespace zel::core {
class Session;
}
namespace zel::forms {
class MaskEdBox;
}

namespace zel::services {

/// Puts a value into a box as its mask wants it: dates with their zeros and slashes, times as hh:nn, request numbers
/// trimmed. The box is emptied first and shows its prompts afterwards. Throws ado::Error 380 for a text that does not
/// fit.
void SetMaskedValue(core::Session& session, forms::MaskEdBox& box, const ado::Value& value);

/// The text that SetMaskedValue puts into a date mask: "07042005", "7/14/2005" and "12/4/2005" with their zeros and
/// slashes; anything else as it stands.
[[nodiscard]] std::string dateForMask(std::string_view text);

} // namespace zel::services
