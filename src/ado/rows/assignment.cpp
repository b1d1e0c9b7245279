#include "ado/rows/assignment.h"

#include "ado/convert.h"
#include "ado/error.h"

#include <fmt/format.h>

namespace zel::ado {

namespace {

/// Flags are 1 where the forms' language would make -1 of True.
std::int64_t wholeNumber(const Value& value) {
    if (value.type() == Value::Type::Boolean)
        return value.as<bool>() ? 1 : 0;
    return toLong(value);
}

double number(const Value& value) {
    if (value.type() == Value::Type::Boolean)
        return value.as<bool>() ? 1.0 : 0.0;
    return toDouble(value);
}

Value converted(const Value& value, ColumnType type) {
    switch (type) {
    case ColumnType::Flag:
        return toBoolean(value);
    case ColumnType::Integer:
        return wholeNumber(value);
    case ColumnType::Double:
        return number(value);
    case ColumnType::Currency:
        return toCurrency(value);
    case ColumnType::Text:
        return toText(value);
    case ColumnType::DateTime:
        return toDateTime(value);
    case ColumnType::Unknown:
        break;
    }
    return value;
}

} // namespace

Value assignedValue(const Value& value, const ResultColumn& column) {
    if (value.isNull())
        return value;
    try {
        return converted(value, column.type);
    } catch (const Error& reason) {
        throw Error(ErrorKind::Conversion, errors::errorsOccurred,
                    fmt::format("Multiple-step operation generated errors. Check each status value. {}: {}",
                                column.name, reason.description()));
    }
}

} // namespace zel::ado
