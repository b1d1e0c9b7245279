#pragma once

#include "ado/date_time.h"
#include "ado/decimal.h"

#include <string>
#include <string_view>

/// The three families of spelled formats, each for a value of its own kind. See format().
namespace zel::ado {

[[nodiscard]] std::string formatMoment(DateTime moment, std::string_view pattern);
[[nodiscard]] std::string formatNumber(const Decimal& number, std::string_view pattern);
[[nodiscard]] std::string formatLetters(std::string_view text, std::string_view pattern);

/// Calls `visit(character, literal)` for each character of a pattern: what stands behind "\" or between double quotes
/// is literal. Stops when visit returns false.
template <typename Visit>
void forEachMark(std::string_view pattern, Visit visit) {
    bool quoted = false;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        if (pattern[i] == '"') {
            quoted = !quoted;
            continue;
        }
        const bool escaped = !quoted && pattern[i] == '\\' && i + 1 < pattern.size();
        if (escaped)
            ++i;
        if (!visit(pattern[i], quoted || escaped))
            return;
    }
}

} // namespace zel::ado
