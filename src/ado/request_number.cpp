#include "ado/request_number.h"

#include <algorithm>

namespace zel::ado {

namespace {

bool isDigit(char c) noexcept {
    return c >= '0' && c <= '9';
}

double numberAt(std::string_view digits) noexcept {
    double number = 0;
    for (const char digit : digits)
        number = number * 10 + (digit - '0');
    return number;
}

/// The digits at the head of the text, cut off it.
std::string_view takeDigits(std::string_view& text) noexcept {
    const auto* end = std::find_if_not(text.begin(), text.end(), isDigit);
    const std::string_view digits = text.substr(0, static_cast<std::size_t>(end - text.begin()));
    text.remove_prefix(digits.size());
    return digits;
}

} // namespace

double sortValueOfRequestNumber(std::string_view requestNumber) noexcept {
    const auto* first = std::find_if(requestNumber.begin(), requestNumber.end(), isDigit);
    std::string_view rest = requestNumber.substr(static_cast<std::size_t>(first - requestNumber.begin()));
    double value = numberAt(takeDigits(rest));
    for (double weight = 1e4; weight <= 1e8 && rest.starts_with('.'); weight *= 1e4) {
        rest.remove_prefix(1);
        value += std::min(numberAt(takeDigits(rest)), 9'999.0) / weight;
    }
    return value;
}

} // namespace zel::ado
