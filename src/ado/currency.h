#pragma once

#include <compare>
#include <cstdint>
#include <string>
#include <string_view>

namespace zel::ado {

/// An amount of money, exact to four decimals: a 64-bit count of ten-thousandths of a dollar.
/// Every conversion from a wider number rounds half to even, as the currency type of the forms does.
class Currency {
public:
    static constexpr std::int64_t ticksPerUnit = 10'000;

    constexpr Currency() noexcept = default;
    [[nodiscard]] static constexpr Currency fromTicks(std::int64_t ticks) noexcept {
        Currency money;
        money.ticks_ = ticks;
        return money;
    }
    /// Throws Error (overflow, 6) when the number is outside the range or not a number.
    [[nodiscard]] static Currency fromDouble(double number);
    /// A plain decimal text ("-12.5", "18.20004"); throws Error (type mismatch, 13) for anything else.
    [[nodiscard]] static Currency fromDecimal(std::string_view text);

    [[nodiscard]] constexpr std::int64_t ticks() const noexcept { return ticks_; }
    [[nodiscard]] double toDouble() const noexcept { return static_cast<double>(ticks_) / ticksPerUnit; }
    /// The shortest decimal text: "18.2", "0", "-0.0001".
    [[nodiscard]] std::string toText() const;
    /// Always four decimals, the form money has at rest: "18.2000".
    [[nodiscard]] std::string toFixedText() const;

    friend constexpr auto operator<=>(Currency, Currency) noexcept = default;
    /// Both throw Error (overflow, 6).
    friend Currency operator+(Currency left, Currency right);
    friend Currency operator-(Currency left, Currency right);

private:
    std::int64_t ticks_ = 0;
};

} // namespace zel::ado
