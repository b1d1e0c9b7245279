#pragma once

#include "ado/engine.h"

namespace zel::ado {

/// What a column holds when `value` is assigned to it: text becomes a date, a number or a flag, money has four decimals
/// rounded half to even, any number but 0 is a set flag. Throws Error 0x80040E21 for a value that the column cannot
/// hold.
[[nodiscard]] Value assignedValue(const Value& value, const ResultColumn& column);

} // namespace zel::ado
