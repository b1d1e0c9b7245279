#include "ado/currency.h"

#include "ado/conversion_error.h"
#include "ado/decimal.h"

#include <cmath>
#include <limits>

namespace zel::ado {

namespace {

constexpr int decimals = 4;

/// Takes one decimal digit behind `ticks`; Error 6 when it does not fit.
void appendDigit(std::uint64_t& ticks, unsigned digit) {
    if (__builtin_mul_overflow(ticks, std::uint64_t{10}, &ticks) || __builtin_add_overflow(ticks, digit, &ticks))
        throwOverflow();
}

/// Half to even. 0.00015 is a half as the clerk typed it, though its binary fraction lies a little below.
double nearestTick(double scaled) {
    const double below = std::floor(scaled);
    const double slack = std::abs(scaled) * 2 * std::numeric_limits<double>::epsilon();
    constexpr double finest = 0.001;
    if (slack < finest && std::abs(scaled - below - 0.5) <= slack)
        return 2 * std::nearbyint(scaled / 2);
    return std::nearbyint(scaled);
}

/// What lies behind the fourth decimal.
enum class Rest { Less, Half, More };

Rest classify(std::string_view digits) {
    if (digits.empty() || digits.front() < '5')
        return Rest::Less;
    if (digits.front() > '5')
        return Rest::More;
    return digits.find_first_not_of('0', 1) == std::string_view::npos ? Rest::Half : Rest::More;
}

std::int64_t withSign(std::uint64_t ticks, bool negative) {
    constexpr auto limit = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
    if (ticks > limit + (negative ? 1 : 0))
        throwOverflow();
    return static_cast<std::int64_t>(negative ? 0 - ticks : ticks);
}

} // namespace

Currency Currency::fromDouble(double number) {
    const double ticks = nearestTick(number * static_cast<double>(ticksPerUnit));
    constexpr double limit = 9223372036854775808.0;
    if (!(ticks >= -limit && ticks < limit))
        throwOverflow();
    return fromTicks(static_cast<std::int64_t>(ticks));
}

Currency Currency::fromDecimal(std::string_view text) {
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+'))
        text.remove_prefix(1);
    const std::size_t point = text.find('.');
    const std::string_view whole = text.substr(0, point);
    const std::string_view fraction = point == std::string_view::npos ? std::string_view{} : text.substr(point + 1);
    constexpr std::string_view digits = "0123456789";
    if ((whole.empty() && fraction.empty()) || whole.find_first_not_of(digits) != std::string_view::npos ||
        fraction.find_first_not_of(digits) != std::string_view::npos)
        throwTypeMismatch();

    std::uint64_t ticks = 0;
    for (const char digit : whole)
        appendDigit(ticks, static_cast<unsigned>(digit - '0'));
    for (std::size_t place = 0; place < decimals; ++place)
        appendDigit(ticks, place < fraction.size() ? static_cast<unsigned>(fraction[place] - '0') : 0U);
    const Rest rest = classify(fraction.size() > decimals ? fraction.substr(decimals) : std::string_view{});
    if (rest == Rest::More || (rest == Rest::Half && ticks % 2 != 0))
        ++ticks;
    return fromTicks(withSign(ticks, negative));
}

std::string Currency::toText() const {
    const Decimal number = Decimal::of(*this);
    std::string text = number.negative ? "-" : "";
    text += number.point > 0 ? number.integerDigits() : "0";
    if (const int places = number.places(); places > 0)
        text += '.' + number.fractionDigits(places);
    return text;
}

std::string Currency::toFixedText() const {
    const Decimal number = Decimal::of(*this);
    return (number.negative ? "-" : "") + (number.point > 0 ? number.integerDigits() : "0") + '.' +
           number.fractionDigits(decimals);
}

Currency operator+(Currency left, Currency right) {
    std::int64_t ticks = 0;
    if (__builtin_add_overflow(left.ticks_, right.ticks_, &ticks))
        throwOverflow();
    return Currency::fromTicks(ticks);
}

Currency operator-(Currency left, Currency right) {
    std::int64_t ticks = 0;
    if (__builtin_sub_overflow(left.ticks_, right.ticks_, &ticks))
        throwOverflow();
    return Currency::fromTicks(ticks);
}

} // namespace zel::ado
