#pragma once

#include "ado/currency.h"

#include <cstdint>
#include <string>

namespace zel::ado {

/// A finite number as a clerk reads it: significant decimal digits and the place of the point.
/// Texts and formats start from here, so that 1.005 is five thousandths and not the nearest binary fraction below it.
struct Decimal {
    bool negative = false;
    std::string digits; ///< without leading or trailing zeros; empty for zero
    int point = 0;      ///< the value is 0.digits times ten to the power of `point`

    /// The double rounded to so many significant digits: 15 for double, 7 for single precision.
    [[nodiscard]] static Decimal of(double number, int significantDigits);
    [[nodiscard]] static Decimal of(std::int64_t number);
    [[nodiscard]] static Decimal of(Currency money);

    [[nodiscard]] bool isZero() const noexcept { return digits.empty(); }
    /// Digits behind the decimal point.
    [[nodiscard]] int places() const noexcept {
        const int behind = static_cast<int>(digits.size()) - point;
        return behind > 0 ? behind : 0;
    }
    /// Rounded to so many places, half away from zero, as formats do.
    [[nodiscard]] Decimal rounded(int places) const;
    /// The digits before the point, empty below one.
    [[nodiscard]] std::string integerDigits() const;
    /// Exactly `places` digits behind the point, cut or filled with zeros.
    [[nodiscard]] std::string fractionDigits(int places) const;
};

} // namespace zel::ado
