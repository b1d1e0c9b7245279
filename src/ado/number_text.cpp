#include "ado/number_text.h"

#include "ado/convert.h"

#include <charconv>

namespace zel::ado {

namespace {

constexpr bool isDigit(char c) noexcept {
    return c >= '0' && c <= '9';
}
constexpr bool isBlank(char c) noexcept {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}
constexpr bool isExponentLetter(char c) noexcept {
    return c == 'e' || c == 'E' || c == 'd' || c == 'D';
}

std::string_view withoutBlanks(std::string_view text) {
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

/// Signs, the dollar sign and the brackets of a negative amount, each at most once and in any order around the digits.
class Wrapping {
public:
    /// Takes the marks off both ends; false when they do not fit together.
    bool unwrap(std::string_view& text) {
        while (!text.empty() && takeFront(text.front()))
            text = withoutBlanks(text.substr(1));
        while (!text.empty() && takeBack(text.back()))
            text = withoutBlanks(text.substr(0, text.size() - 1));
        return !twice_ && open_ == closed_ && !(open_ && signed_);
    }
    [[nodiscard]] bool negative() const noexcept { return minus_ || open_; }

private:
    bool once(bool& seen) {
        twice_ = twice_ || seen;
        return seen = true;
    }
    bool takeSign(char mark) {
        if (mark != '-' && mark != '+')
            return false;
        minus_ = mark == '-';
        return once(signed_);
    }
    bool takeFront(char mark) {
        if (mark == '$')
            return once(dollar_);
        return mark == '(' ? once(open_) : takeSign(mark);
    }
    bool takeBack(char mark) { return mark == ')' ? once(closed_) : takeSign(mark); }

    bool minus_ = false, signed_ = false, dollar_ = false, open_ = false, closed_ = false, twice_ = false;
};

/// Moves the digits at the head of `text` behind `number`; false when there is none.
bool takeDigits(std::string_view& text, std::string& number, bool commas) {
    const std::size_t before = number.size();
    while (!text.empty() && (isDigit(text.front()) || (commas && text.front() == ',' && number.size() > before))) {
        if (isDigit(text.front()))
            number.push_back(text.front());
        text.remove_prefix(1);
    }
    return number.size() > before;
}

bool takeExponent(std::string_view& text, std::string& number) {
    std::string exponent = "e";
    std::string_view rest = text.substr(1);
    if (!rest.empty() && (rest.front() == '-' || rest.front() == '+')) {
        if (rest.front() == '-')
            exponent += '-';
        rest.remove_prefix(1);
    }
    if (!takeDigits(rest, exponent, false))
        return false;
    number += exponent;
    text = rest;
    return true;
}

/// Digits with an optional point and exponent at the head of `text`; false when there is no digit.
bool takeUnsigned(std::string_view& text, std::string& number, bool commas) {
    bool any = takeDigits(text, number, commas);
    if (!any)
        number.push_back('0');
    if (!text.empty() && text.front() == '.') {
        text.remove_prefix(1);
        std::string fraction = ".";
        if (takeDigits(text, fraction, false)) {
            number += fraction;
            any = true;
        }
    }
    if (any && !text.empty() && isExponentLetter(text.front()))
        takeExponent(text, number);
    return any;
}

} // namespace

std::optional<std::string> plainNumber(std::string_view text) {
    text = withoutBlanks(text);
    Wrapping wrapping;
    if (!wrapping.unwrap(text))
        return std::nullopt;
    std::string number = wrapping.negative() ? "-" : "";
    if (!takeUnsigned(text, number, true) || !text.empty())
        return std::nullopt;
    return number;
}

double numberAtHead(std::string_view text) {
    std::string packed;
    packed.reserve(text.size());
    for (const char c : text)
        if (!isBlank(c))
            packed.push_back(c);
    std::string_view rest = packed;
    std::string number;
    if (!rest.empty() && (rest.front() == '-' || rest.front() == '+')) {
        if (rest.front() == '-')
            number.push_back('-');
        rest.remove_prefix(1);
    }
    if (!takeUnsigned(rest, number, false))
        return 0.0;
    double result = 0.0;
    std::from_chars(number.data(), number.data() + number.size(), result);
    return result;
}

} // namespace zel::ado
