#include "ado/format.h"

#include "ado/convert.h"
#include "ado/format_kinds.h"
#include "ado/number_text.h"

#include <cmath>
#include <optional>

namespace zel::ado {

namespace {

enum class Kind { Letters, Moment, Number };

std::string_view spelledOut(std::string_view pattern) {
    if (equalIgnoringCase(pattern, "Standard"))
        return "#,##0.00";
    if (equalIgnoringCase(pattern, "Currency"))
        return "$#,##0.00;($#,##0.00)";
    if (equalIgnoringCase(pattern, "Short Time"))
        return "hh:nn";
    return pattern;
}

/// The first telling mark decides, as one pattern serves one kind of value.
Kind kindOf(std::string_view pattern) {
    Kind kind = Kind::Number;
    forEachMark(pattern, [&](char mark, bool literal) {
        if (literal)
            return true;
        if (std::string_view("@&<>!").find(mark) != std::string_view::npos)
            kind = Kind::Letters;
        else if (std::string_view("dDmMyYhHnNsS").find(mark) != std::string_view::npos)
            kind = Kind::Moment;
        else
            return mark != '0' && mark != '#';
        return false;
    });
    return kind;
}

std::optional<DateTime> momentOf(const Value& value) {
    if (value.type() == Value::Type::Text) {
        const auto& text = value.as<std::string>();
        if (auto moment = parseDateTime(text))
            return moment;
    }
    if (value.type() == Value::Type::DateTime)
        return value.as<DateTime>();
    if (!isNumeric(value))
        return std::nullopt;
    const double serial = toDouble(value);
    return std::abs(serial) < 3e6 ? std::optional(DateTime(serial)) : std::nullopt;
}

std::optional<Decimal> decimalOf(const Value& value) {
    switch (value.type()) {
    case Value::Type::Currency:
        return Decimal::of(value.as<Currency>());
    case Value::Type::Integer:
        return Decimal::of(value.as<std::int64_t>());
    case Value::Type::Single:
        return Decimal::of(value.as<float>(), 7);
    default:
        break;
    }
    if (value.type() != Value::Type::DateTime && !isNumeric(value))
        return std::nullopt;
    const double number = toDouble(value);
    return std::isfinite(number) ? std::optional(Decimal::of(number, 15)) : std::nullopt;
}

} // namespace

std::string format(const Value& value, std::string_view pattern) {
    if (value.isNull())
        return {};
    const std::string_view spelled = spelledOut(pattern);
    if (spelled.empty())
        return toText(value);
    switch (kindOf(spelled)) {
    case Kind::Letters:
        return formatLetters(toText(value), spelled);
    case Kind::Moment:
        if (const auto moment = momentOf(value))
            return formatMoment(*moment, spelled);
        break;
    case Kind::Number:
        if (const auto number = decimalOf(value))
            return formatNumber(*number, spelled);
        break;
    }
    return toText(value);
}

} // namespace zel::ado
