#pragma once

#include <string_view>

namespace zel::ado {

/// By what a request number sorts within its category, behind the letter: E-7.2 < E-7.10 < E-8 < E-70. The first group
/// of digits, the second as ten-thousandths, the third as ten-thousandths of those; 0 without digits. A group behind
/// the first counts at most 9999. The function of the same purpose on the server computes the same number.
[[nodiscard]] double sortValueOfRequestNumber(std::string_view requestNumber) noexcept;

} // namespace zel::ado
