#include "ado/decimal.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace zel::ado {

namespace {

void dropOuterZeros(Decimal& number) {
    const std::size_t first = number.digits.find_first_not_of('0');
    if (first == std::string::npos) {
        number = Decimal{};
        return;
    }
    number.digits.erase(0, first);
    number.point -= static_cast<int>(first);
    number.digits.erase(number.digits.find_last_not_of('0') + 1);
}

Decimal fromMagnitude(bool negative, std::uint64_t magnitude, int places) {
    Decimal number{.negative = negative, .digits = std::to_string(magnitude)};
    number.point = static_cast<int>(number.digits.size()) - places;
    dropOuterZeros(number);
    return number;
}

std::uint64_t magnitudeOf(std::int64_t number) {
    return number < 0 ? 0 - static_cast<std::uint64_t>(number) : static_cast<std::uint64_t>(number);
}

} // namespace

Decimal Decimal::of(double number, int significantDigits) {
    std::array<char, 64> text{};
    const auto printed = std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::scientific,
                                       significantDigits - 1);
    Decimal result;
    const char* next = text.data();
    if (*next == '-') {
        result.negative = true;
        ++next;
    }
    for (; next != printed.ptr && *next != 'e'; ++next)
        if (*next != '.')
            result.digits.push_back(*next);
    int exponent = 0;
    if (next != printed.ptr) {
        ++next;
        std::from_chars(*next == '+' ? next + 1 : next, printed.ptr, exponent);
    }
    result.point = exponent + 1;
    dropOuterZeros(result);
    return result;
}

Decimal Decimal::of(std::int64_t number) {
    return fromMagnitude(number < 0, magnitudeOf(number), 0);
}

Decimal Decimal::of(Currency money) {
    return fromMagnitude(money.ticks() < 0, magnitudeOf(money.ticks()), 4);
}

Decimal Decimal::rounded(int places) const {
    const int kept = point + places;
    if (kept >= static_cast<int>(digits.size()))
        return *this;
    if (kept < 0)
        return Decimal{};
    Decimal result = *this;
    const bool up = digits[static_cast<std::size_t>(kept)] >= '5';
    result.digits.erase(static_cast<std::size_t>(kept));
    if (up) {
        auto digit = result.digits.rbegin();
        while (digit != result.digits.rend() && *digit == '9')
            *digit++ = '0';
        if (digit != result.digits.rend()) {
            ++*digit;
        } else {
            result.digits.insert(0, 1, '1');
            ++result.point;
        }
    }
    dropOuterZeros(result);
    return result;
}

std::string Decimal::integerDigits() const {
    if (point <= 0)
        return {};
    std::string result = digits.substr(0, static_cast<std::size_t>(point));
    result.resize(static_cast<std::size_t>(point), '0');
    return result;
}

std::string Decimal::fractionDigits(int places) const {
    std::string result(static_cast<std::size_t>(std::clamp(-point, 0, places)), '0');
    if (const auto first = static_cast<std::size_t>(std::max(point, 0)); first < digits.size())
        result += digits.substr(first);
    result.resize(static_cast<std::size_t>(places), '0');
    return result;
}

} // namespace zel::ado
