#include "ado/sqlite/values.h"

#include "ado/convert.h"
#include "ado/error.h"
#include "ado/row_store.h"

#include <sqlite3.h>

#include <algorithm>
#include <array>

namespace zel::ado::sqlite {

namespace {

struct DeclaredType {
    std::string_view name;
    ColumnType type;
};

constexpr std::array<DeclaredType, 9> declaredTypes{{{"INTEGER", ColumnType::Integer},
                                                     {"CITEXT", ColumnType::Text},
                                                     {"FLAGINT", ColumnType::Flag},
                                                     {"REAL", ColumnType::Double},
                                                     {"MONEYTEXT", ColumnType::Currency},
                                                     {"DATETEXT", ColumnType::DateTime},
                                                     {"TEXT", ColumnType::Text},
                                                     {"INT", ColumnType::Integer},
                                                     {"DOUBLE", ColumnType::Double}}};

/// Money at rest: "-1234.5000", always with four decimals.
bool looksLikeMoney(std::string_view text) {
    if (text.starts_with('-'))
        text.remove_prefix(1);
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    if (text.size() < 6 || text.size() > 20 || text[text.size() - 5] != '.')
        return false;
    const std::string_view whole = text.substr(0, text.size() - 5);
    return std::ranges::all_of(whole, isDigit) && std::ranges::all_of(text.substr(text.size() - 4), isDigit) &&
           (whole.size() == 1 || whole.front() != '0');
}

void addMoneyText(std::string_view text, RowStore& rows) {
    try {
        rows.addCurrency(Currency::fromDecimal(text));
    } catch (const Error&) {
        if (isNumeric(text)) // "1e-05": another program's number
            rows.addCurrency(toCurrency(text));
        else
            rows.addText(text);
    }
}

void addDateText(std::string_view text, RowStore& rows) {
    if (const auto moment = parseIsoText(text))
        rows.addDateTime(*moment);
    else
        rows.addText(text);
}

/// A result without a declared type: max(LastDate), sum(Amt), a concatenation. Where dates or money went into it, they
/// are known by the one form that each has at rest.
void addComputedText(std::string_view text, sql::ComputedKind kind, RowStore& rows) {
    if (kind.moment && text.size() == 19 && text[4] == '-' && text[7] == '-' && text[10] == ' ')
        addDateText(text, rows);
    else if (kind.money && looksLikeMoney(text))
        addMoneyText(text, rows);
    else
        rows.addText(text);
}

void addTextCell(std::string_view text, CellReader reader, RowStore& rows) {
    switch (reader.type) {
    case ColumnType::DateTime:
        addDateText(text, rows);
        break;
    case ColumnType::Currency:
        addMoneyText(text, rows);
        break;
    case ColumnType::Unknown:
        addComputedText(text, reader.computed, rows);
        break;
    default:
        rows.addText(text);
    }
}

void addIntegerCell(std::int64_t number, ColumnType type, RowStore& rows) {
    switch (type) {
    case ColumnType::Flag:
        rows.addFlag(number != 0);
        break;
    case ColumnType::Double:
        rows.addDouble(static_cast<double>(number));
        break;
    default:
        rows.addInteger(number);
    }
}

std::string_view textOf(sqlite3_stmt* statement, int column) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
    return {text, static_cast<std::size_t>(sqlite3_column_bytes(statement, column))};
}

int bindText(sqlite3_stmt* statement, int index, std::string_view text, sqlite3_destructor_type lifetime) {
    return sqlite3_bind_text64(statement, index, text.data(), text.size(), lifetime, SQLITE_UTF8);
}

} // namespace

ColumnType columnTypeOf(std::string_view declared) noexcept {
    const auto found = std::ranges::find_if(
        declaredTypes, [&](const DeclaredType& entry) { return equalIgnoringCase(entry.name, declared); });
    return found == declaredTypes.end() ? ColumnType::Unknown : found->type;
}

int bindValue(sqlite3_stmt* statement, int index, const Value& value) {
    switch (value.type()) {
    case Value::Type::Null:
        break;
    case Value::Type::Boolean:
        return sqlite3_bind_int(statement, index, value.as<bool>() ? 1 : 0);
    case Value::Type::Integer:
        return sqlite3_bind_int64(statement, index, value.as<std::int64_t>());
    case Value::Type::Double:
        return sqlite3_bind_double(statement, index, value.as<double>());
    case Value::Type::Single:
        return sqlite3_bind_double(statement, index, value.as<float>());
    case Value::Type::Currency:
        return bindText(statement, index, value.as<Currency>().toFixedText(), SQLITE_TRANSIENT);
    case Value::Type::Text:
        return bindText(statement, index, value.as<std::string>(), SQLITE_STATIC);
    case Value::Type::DateTime:
        return bindText(statement, index, toIsoText(value.as<DateTime>()), SQLITE_TRANSIENT);
    }
    return sqlite3_bind_null(statement, index);
}

void addCell(sqlite3_stmt* statement, int column, CellReader reader, RowStore& rows) {
    switch (sqlite3_column_type(statement, column)) {
    case SQLITE_INTEGER:
        addIntegerCell(sqlite3_column_int64(statement, column), reader.type, rows);
        break;
    case SQLITE_FLOAT:
        rows.addDouble(sqlite3_column_double(statement, column));
        break;
    case SQLITE_TEXT:
    case SQLITE_BLOB:
        addTextCell(textOf(statement, column), reader, rows);
        break;
    default:
        rows.addNull();
    }
}

} // namespace zel::ado::sqlite
