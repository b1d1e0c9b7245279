#include "ado/convert.h"

#include "ado/conversion_error.h"
#include "ado/decimal.h"
#include "ado/number_text.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace zel::ado {

namespace {

constexpr int doubleDigits = 15;
constexpr int singleDigits = 7;

/// Plain digits as long as no more than `digits` of them are needed, else "1.5E+20".
std::string floatingText(double number, int digits) {
    if (!std::isfinite(number))
        return std::isnan(number) ? "NaN" : number < 0 ? "-Infinity" : "Infinity";
    const Decimal decimal = Decimal::of(number, digits);
    if (decimal.isZero())
        return "0";
    std::string text = decimal.negative ? "-" : "";
    if (decimal.point <= digits && decimal.places() <= digits) {
        text += decimal.point > 0 ? decimal.integerDigits() : "0";
        if (decimal.places() > 0)
            text += '.' + decimal.fractionDigits(decimal.places());
        return text;
    }
    text += decimal.digits.front();
    if (decimal.digits.size() > 1)
        text += '.' + decimal.digits.substr(1);
    const int exponent = decimal.point - 1;
    const std::string places = std::to_string(std::abs(exponent));
    return text + (exponent < 0 ? "E-" : "E+") + (places.size() < 2 ? "0" : "") + places;
}

std::string timeText(const DateParts& parts) {
    const auto two = [](int number) { return (number < 10 ? "0" : "") + std::to_string(number); };
    const int hour = parts.hour % 12 == 0 ? 12 : parts.hour % 12;
    return std::to_string(hour) + ':' + two(parts.minute) + ':' + two(parts.second) + (parts.hour < 12 ? " AM" : " PM");
}

std::string momentText(DateTime moment) {
    const DateParts parts = moment.parts();
    const bool dayZero = parts.year == 1899 && parts.month == 12 && parts.day == 30;
    if (dayZero)
        return timeText(parts);
    std::string text = std::to_string(parts.month) + '/' + std::to_string(parts.day) + '/' + std::to_string(parts.year);
    if (parts.hour != 0 || parts.minute != 0 || parts.second != 0)
        text += ' ' + timeText(parts);
    return text;
}

/// Empty for a number too large for a double; one too small is 0.
std::optional<double> doubleOfPlain(const std::string& number) {
    double result = 0.0;
    const auto parsed = std::from_chars(number.data(), number.data() + number.size(), result);
    if (parsed.ec != std::errc::result_out_of_range)
        return result;
    return number.find("e-") == std::string::npos ? std::nullopt : std::optional(0.0);
}

double doubleOfText(const std::string& text) {
    const auto number = plainNumber(text);
    if (!number)
        throwTypeMismatch();
    const auto result = doubleOfPlain(*number);
    if (!result)
        throwOverflow();
    return *result;
}

std::int32_t longOf(double number) {
    const double rounded = std::nearbyint(number);
    if (!(rounded >= std::numeric_limits<std::int32_t>::min() && rounded <= std::numeric_limits<std::int32_t>::max()))
        throwOverflow();
    return static_cast<std::int32_t>(rounded);
}

DateTime momentOf(double serial) {
    constexpr double firstDay = -657'434.0;
    constexpr double behindLastDay = 2'958'466.0;
    if (!(serial > firstDay - 1 && serial < behindLastDay))
        throwOverflow();
    return DateTime(serial);
}

} // namespace

std::string toText(const Value& value) {
    switch (value.type()) {
    case Value::Type::Null:
        return {};
    case Value::Type::Boolean:
        return value.as<bool>() ? "True" : "False";
    case Value::Type::Integer:
        return std::to_string(value.as<std::int64_t>());
    case Value::Type::Double:
        return floatingText(value.as<double>(), doubleDigits);
    case Value::Type::Single:
        return floatingText(value.as<float>(), singleDigits);
    case Value::Type::Currency:
        return value.as<Currency>().toText();
    case Value::Type::Text:
        return value.as<std::string>();
    case Value::Type::DateTime:
        return momentText(value.as<DateTime>());
    }
    return {};
}

bool isDate(const Value& value) {
    if (value.type() == Value::Type::Text)
        return parseDateTime(value.as<std::string>()).has_value();
    return value.type() == Value::Type::DateTime;
}

bool isNumeric(const Value& value) {
    switch (value.type()) {
    case Value::Type::Null:
    case Value::Type::DateTime:
        return false;
    case Value::Type::Text: {
        const auto number = plainNumber(value.as<std::string>());
        return number && doubleOfPlain(*number);
    }
    default:
        return true;
    }
}

double toDouble(const Value& value) {
    switch (value.type()) {
    case Value::Type::Null:
        break;
    case Value::Type::Boolean:
        return value.as<bool>() ? -1.0 : 0.0;
    case Value::Type::Integer:
        return static_cast<double>(value.as<std::int64_t>());
    case Value::Type::Double:
        return value.as<double>();
    case Value::Type::Single:
        return value.as<float>();
    case Value::Type::Currency:
        return value.as<Currency>().toDouble();
    case Value::Type::Text:
        return doubleOfText(value.as<std::string>());
    case Value::Type::DateTime:
        return value.as<DateTime>().serial();
    }
    throwInvalidUseOfNull();
}

std::int32_t toLong(const Value& value) {
    return longOf(toDouble(value));
}

float toSingle(const Value& value) {
    const double number = toDouble(value);
    if (!(std::abs(number) <= std::numeric_limits<float>::max()))
        throwOverflow();
    return static_cast<float>(number);
}

Currency toCurrency(const Value& value) {
    if (value.type() == Value::Type::Currency)
        return value.as<Currency>();
    if (value.type() == Value::Type::Integer)
        return Currency::fromDecimal(toText(value));
    if (value.type() == Value::Type::Text) {
        const auto number = plainNumber(value.as<std::string>());
        if (number && number->find('e') == std::string::npos)
            return Currency::fromDecimal(*number);
    }
    return Currency::fromDouble(toDouble(value));
}

DateTime toDateTime(const Value& value) {
    if (value.type() == Value::Type::DateTime)
        return value.as<DateTime>();
    if (value.type() != Value::Type::Text)
        return momentOf(toDouble(value));
    if (const auto moment = parseDateTime(value.as<std::string>()))
        return *moment;
    throwTypeMismatch();
}

bool toBoolean(const Value& value) {
    if (value.type() == Value::Type::Boolean)
        return value.as<bool>();
    if (value.type() == Value::Type::Text) {
        const std::string_view text = trim(value.as<std::string>());
        if (equalIgnoringCase(text, "true"))
            return true;
        if (equalIgnoringCase(text, "false"))
            return false;
    }
    return toDouble(value) != 0.0;
}

} // namespace zel::ado
