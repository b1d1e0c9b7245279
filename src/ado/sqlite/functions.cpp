#include "ado/sqlite/functions.h"

#include "ado/convert.h"
#include "ado/currency.h"
#include "ado/error.h"
#include "ado/format.h"
#include "ado/request_number.h"
#include "ado/sql/functions.h"
#include "ado/value.h"

#include <sqlite3.h>

#include <new>
#include <optional>
#include <string>
#include <string_view>

namespace zel::ado::sqlite {

namespace {

std::string_view textOf(sqlite3_value* value) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
    return text == nullptr ? std::string_view()
                           : std::string_view(text, static_cast<std::size_t>(sqlite3_value_bytes(value)));
}

void giveText(sqlite3_context* context, std::string_view text) {
    sqlite3_result_text64(context, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
}

std::optional<Currency> moneyOf(std::string_view text) {
    try {
        return Currency::fromDecimal(text);
    } catch (const Error&) {
        return std::nullopt;
    }
}

Value valueOf(sqlite3_value* value) {
    switch (sqlite3_value_type(value)) {
    case SQLITE_NULL:
        return {};
    case SQLITE_INTEGER:
        return std::int64_t{sqlite3_value_int64(value)};
    case SQLITE_FLOAT:
        return sqlite3_value_double(value);
    default:
        break;
    }
    const std::string_view text = textOf(value);
    if (const auto money = moneyOf(text))
        return *money;
    return text;
}

/// No exception may pass through the engine's C code; a value that cannot be formatted fails the statement instead.
template <typename Body>
void guarded(sqlite3_context* context, Body&& body) noexcept {
    try {
        body();
    } catch (const std::bad_alloc&) {
        sqlite3_result_error_nomem(context);
    } catch (const std::exception& failure) {
        sqlite3_result_error(context, failure.what(), -1);
    }
}

void sortRequestNumberFunction(sqlite3_context* context, int /*count*/, sqlite3_value** values) {
    if (sqlite3_value_type(values[0]) == SQLITE_NULL)
        return sqlite3_result_null(context);
    sqlite3_result_double(context, sortValueOfRequestNumber(textOf(values[0])));
}

void standardFunction(sqlite3_context* context, int /*count*/, sqlite3_value** values) {
    guarded(context, [&] { giveText(context, format(valueOf(values[0]), "Standard")); });
}

void moneyTextFunction(sqlite3_context* context, int /*count*/, sqlite3_value** values) {
    guarded(context, [&] {
        const Value value = valueOf(values[0]);
        if (value.isNull())
            sqlite3_result_null(context);
        else
            giveText(context, format(value, "0.00"));
    });
}

void joinFunction(sqlite3_context* context, int count, sqlite3_value** values) {
    guarded(context, [&] {
        std::string joined;
        for (int i = 0; i < count; ++i)
            joined += textOf(values[i]);
        giveText(context, joined);
    });
}

/// SQLite gives memory that is aligned to eight bytes, not to the sixteen that a number of this size asks for.
using Ticks [[gnu::aligned(8)]] = __int128;

/// Money sums exactly; whole numbers stay whole; anything else sums as the engine itself would.
struct Sum {
    Ticks ticks;
    double number;
    std::int64_t rows;
    bool inexact;
    bool money;
};

void sumStep(sqlite3_context* context, int /*count*/, sqlite3_value** values) {
    auto* sum = static_cast<Sum*>(sqlite3_aggregate_context(context, sizeof(Sum)));
    if (sum == nullptr)
        return sqlite3_result_error_nomem(context);
    const int type = sqlite3_value_type(values[0]);
    if (type == SQLITE_NULL)
        return;
    ++sum->rows;
    sum->number += sqlite3_value_double(values[0]);
    if (type == SQLITE_INTEGER) {
        sum->ticks += static_cast<__int128>(sqlite3_value_int64(values[0])) * Currency::ticksPerUnit;
        return;
    }
    const auto money = type == SQLITE_TEXT ? moneyOf(textOf(values[0])) : std::nullopt;
    if (!money) {
        sum->inexact = true;
        return;
    }
    sum->money = true;
    sum->ticks += money->ticks();
}

void sumFinal(sqlite3_context* context) {
    const auto* sum = static_cast<const Sum*>(sqlite3_aggregate_context(context, 0));
    if (sum == nullptr || sum->rows == 0)
        return sqlite3_result_null(context);
    if (sum->inexact)
        return sqlite3_result_double(context, sum->number);
    constexpr auto most = static_cast<__int128>(INT64_MAX);
    if (sum->money && sum->ticks <= most && sum->ticks >= -most)
        return giveText(context, Currency::fromTicks(static_cast<std::int64_t>(sum->ticks)).toFixedText());
    const __int128 whole = sum->ticks / Currency::ticksPerUnit;
    if (sum->money || whole > most || whole < -most)
        return sqlite3_result_error(context, "integer overflow", -1);
    sqlite3_result_int64(context, static_cast<sqlite3_int64>(whole));
}

int compareMoney(void* /*unused*/, int leftSize, const void* left, int rightSize, const void* right) {
    const std::string_view a(static_cast<const char*>(left), static_cast<std::size_t>(leftSize));
    const std::string_view b(static_cast<const char*>(right), static_cast<std::size_t>(rightSize));
    const auto leftMoney = moneyOf(a), rightMoney = moneyOf(b);
    if (leftMoney && rightMoney)
        return *leftMoney < *rightMoney ? -1 : *leftMoney == *rightMoney ? 0 : 1;
    if (leftMoney || rightMoney)
        return leftMoney ? -1 : 1;
    return a.compare(b);
}

void check(int code) {
    if (code != SQLITE_OK)
        throw Error(ErrorKind::Engine, errors::failed, sqlite3_errstr(code));
}

using ScalarFunction = void (*)(sqlite3_context*, int, sqlite3_value**);

void registerScalar(sqlite3* database, std::string_view name, int arguments, ScalarFunction function) {
    constexpr int kind = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
    check(sqlite3_create_function_v2(database, std::string(name).c_str(), arguments, kind, nullptr, function, nullptr,
                                     nullptr, nullptr));
}

} // namespace

void registerFunctions(sqlite3* database) {
    registerScalar(database, sql::functions::sortRequestNumber, 1, sortRequestNumberFunction);
    registerScalar(database, sql::functions::standard, 1, standardFunction);
    registerScalar(database, sql::functions::moneyText, 1, moneyTextFunction);
    registerScalar(database, sql::functions::join, -1, joinFunction);
    check(sqlite3_create_function_v2(database, "sum", 1, SQLITE_UTF8 | SQLITE_INNOCUOUS, nullptr, nullptr, sumStep,
                                     sumFinal, nullptr));
    check(sqlite3_create_collation_v2(database, std::string(sql::moneyCollation).c_str(), SQLITE_UTF8, nullptr,
                                      compareMoney, nullptr));
}

} // namespace zel::ado::sqlite
