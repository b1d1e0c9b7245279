#include "ado/postgres/values.h"

#include "ado/convert.h"
#include "ado/error.h"
#include "ado/row_store.h"

#include <array>
#include <charconv>

namespace zel::ado::postgres {

namespace {

/// Built-in types by the number they have in every server.
enum ServerType : unsigned {
    boolType = 16,
    int8Type = 20,
    int2Type = 21,
    int4Type = 23,
    float4Type = 700,
    float8Type = 701,
    dateType = 1082,
    timeType = 1083,
    timestampType = 1114,
    timestampWithZoneType = 1184,
    numericType = 1700
};

/// The last character of the code space, which is never one of a text, followed by what it stands for.
constexpr std::string_view escapeCharacter = "\xF4\x8F\xBF\xBF";

std::string shortest(double number) {
    std::array<char, 32> buffer{};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number).ptr;
    return {buffer.data(), end};
}

template <typename Number>
bool parse(std::string_view text, Number& number) {
    const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), number);
    return failure == std::errc() && end == text.data() + text.size();
}

void addDoubleText(std::string_view text, RowStore& rows) {
    double number = 0;
    if (parse(text, number))
        rows.addDouble(number);
    else
        rows.addText(text);
}

void addIntegerText(std::string_view text, RowStore& rows) {
    std::int64_t number = 0;
    if (parse(text, number))
        rows.addInteger(number);
    else
        addDoubleText(text, rows);
}

/// Four decimals or fewer are money or a part of it; more come from an average or a quotient.
void addFreeNumber(std::string_view text, RowStore& rows) {
    const std::size_t point = text.find('.');
    if (point == std::string_view::npos)
        addIntegerText(text, rows);
    else if (text.size() - point - 1 <= 4)
        rows.addCurrency(Currency::fromDecimal(text));
    else
        addDoubleText(text, rows);
}

} // namespace

ParameterTexts::ParameterTexts(std::span<const Value> values) : made_(values.size()) {
    pointers_.reserve(values.size());
    for (std::size_t i = 0; i < values.size(); ++i)
        pointers_.push_back(textOf(values[i], made_[i]));
}

const char* ParameterTexts::textOf(const Value& value, std::string& place) {
    switch (value.type()) {
    case Value::Type::Null:
        return nullptr;
    case Value::Type::Boolean:
        return value.as<bool>() ? "1" : "0";
    case Value::Type::Integer:
        place = std::to_string(value.as<std::int64_t>());
        break;
    case Value::Type::Double:
        place = shortest(value.as<double>());
        break;
    case Value::Type::Single:
        place = shortest(value.as<float>());
        break;
    case Value::Type::Currency:
        place = value.as<Currency>().toText();
        break;
    case Value::Type::DateTime:
        place = toIsoText(value.as<DateTime>());
        break;
    case Value::Type::Text: {
        const auto& text = value.as<std::string>();
        if (!needsEncoding(text))
            return text.c_str();
        place = storedText(text);
        break;
    }
    }
    return place.c_str();
}

bool needsEncoding(std::string_view text) noexcept {
    return text.find('\0') != std::string_view::npos || text.find(escapeCharacter) != std::string_view::npos;
}

std::string storedText(std::string_view text) {
    std::string stored;
    stored.reserve(text.size() + 16);
    while (!text.empty()) {
        const bool escape = text.starts_with(escapeCharacter);
        if (escape || text.front() == '\0') {
            stored += escapeCharacter;
            stored += escape ? '1' : '0';
            text.remove_prefix(escape ? escapeCharacter.size() : 1);
        } else {
            stored += text.front();
            text.remove_prefix(1);
        }
    }
    return stored;
}

std::string textFromStored(std::string_view stored) {
    std::string text;
    text.reserve(stored.size());
    while (!stored.empty()) {
        const std::size_t at = stored.find(escapeCharacter);
        text += stored.substr(0, at);
        if (at == std::string_view::npos)
            break;
        stored.remove_prefix(at + escapeCharacter.size());
        if (stored.starts_with('0'))
            text += '\0';
        else
            text += escapeCharacter;
        stored.remove_prefix(stored.starts_with('0') || stored.starts_with('1') ? 1 : 0);
    }
    return text;
}

CellReader cellReaderOf(unsigned serverType, int modifier, bool computed) {
    switch (serverType) {
    case boolType:
        return {ColumnType::Flag};
    case int2Type:
        return {computed ? ColumnType::Integer : ColumnType::Flag};
    case int4Type:
    case int8Type:
        return {ColumnType::Integer};
    case float4Type:
    case float8Type:
        return {ColumnType::Double};
    case numericType:
        return {ColumnType::Currency, modifier < 0};
    case dateType:
    case timeType:
    case timestampType:
    case timestampWithZoneType:
        return {ColumnType::DateTime};
    default:
        return {ColumnType::Text};
    }
}

void addCell(std::string_view text, CellReader reader, RowStore& rows) {
    switch (reader.type) {
    case ColumnType::Flag:
        return rows.addFlag(!text.empty() && text != "0" && text != "f");
    case ColumnType::Integer:
        return addIntegerText(text, rows);
    case ColumnType::Double:
        return addDoubleText(text, rows);
    case ColumnType::Currency:
        return reader.freeNumber ? addFreeNumber(text, rows) : rows.addCurrency(Currency::fromDecimal(text));
    case ColumnType::DateTime:
        if (const auto moment = parseIsoText(text))
            return rows.addDateTime(*moment);
        return rows.addText(text);
    default:
        break;
    }
    if (needsEncoding(text))
        rows.addText(textFromStored(text));
    else
        rows.addText(text);
}

} // namespace zel::ado::postgres
