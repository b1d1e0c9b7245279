#include "korvandb/value_rules.h"

#include <fmt/format.h>

namespace zel::korvandb {

namespace {

using ado::ColumnType;

/// SQLite keeps what it is given: each column's form at rest is the program's own promise.
std::string sqliteCondition(ColumnType type, const std::string& name) {
    switch (type) {
    case ColumnType::Flag:
        return fmt::format("{0} IS NULL OR {0} NOT IN (0, 1)", name);
    case ColumnType::Integer:
        return fmt::format(
            "{0} IS NOT NULL AND (typeof({0}) <> 'integer' OR {0} NOT BETWEEN -2147483648 AND 2147483647)", name);
    case ColumnType::Double:
        return fmt::format("typeof({0}) NOT IN ('real', 'integer', 'null')", name);
    case ColumnType::DateTime: // what is a day of no calendar changes when it is read and written again
        return fmt::format("{0} IS NOT NULL AND (typeof({0}) <> 'text' OR datetime({0}, '+0 days') IS NOT {0})", name);
    case ColumnType::Currency: {
        const std::string whole = fmt::format("ltrim(substr({0}, 1, length({0}) - 5), '-')", name);
        return fmt::format(
            "{0} IS NOT NULL AND (typeof({0}) <> 'text' OR {0} NOT GLOB '*[0-9].[0-9][0-9][0-9][0-9]' OR "
            "{1} GLOB '*[^0-9]*' OR {0} GLOB '--*' OR {0} GLOB '0[0-9]*' OR {0} GLOB '-0[0-9]*')",
            name, whole);
    }
    default:
        return fmt::format("typeof({0}) NOT IN ('text', 'null')", name);
    }
}

/// PostgreSQL holds values to their types; these slip through.
std::string postgresCondition(ColumnType type, const std::string& name) {
    switch (type) {
    case ColumnType::Flag:
        return fmt::format("{0} IS NULL OR {0} NOT IN (0, 1)", name);
    case ColumnType::Double:
        return fmt::format("{0} IN ('NaN', 'Infinity', '-Infinity')", name);
    case ColumnType::DateTime:
        return fmt::format("NOT isfinite({0}) OR {0} <> date_trunc('second', {0})", name);
    case ColumnType::Currency:
        return fmt::format("{0} = 'NaN'", name);
    default:
        return {};
    }
}

std::string complaintOf(ColumnType type) {
    switch (type) {
    case ColumnType::Flag:
        return "neither 0 nor 1";
    case ColumnType::Integer:
        return "no whole number of 32 bits";
    case ColumnType::Double:
        return "no number";
    case ColumnType::DateTime:
        return "no day and time in the form 2005-07-04 13:30:00";
    case ColumnType::Currency:
        return "no amount with four decimals";
    default:
        return "no text";
    }
}

} // namespace

ValueRule valueRule(const Column& column, const std::string& quotedName, ado::EngineKind engine) {
    const bool sqlite = engine == ado::EngineKind::Sqlite;
    return {sqlite ? sqliteCondition(column.type, quotedName) : postgresCondition(column.type, quotedName),
            complaintOf(column.type)};
}

} // namespace zel::korvandb
