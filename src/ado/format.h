#pragma once

#include "ado/value.h"

#include <string>
#include <string_view>

namespace zel::ado {

/// A value in a named or spelled format. Named: "Standard" ("1,234.50"), "Currency" ("$1,234.50", "($1,234.50)"),
/// "Short Time" ("13:30"). Dates: d dd m mm (minutes behind an h) yy yyyy h hh n nn s ss AM/PM, upper or lower case.
/// Numbers: 0 # . , % literal characters and escapes, up to three sections parted by ";". Text: @ & < > as in ">&-".
/// A value that the format cannot take comes back as its default text; Null gives the empty text.
[[nodiscard]] std::string format(const Value& value, std::string_view pattern);

} // namespace zel::ado
