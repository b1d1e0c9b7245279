#pragma once

#include "ado/row_store.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string_view>

/// How cells compare when rows are filtered, searched and sorted on the client: as the engines do it.
namespace zel::ado {

[[nodiscard]] constexpr unsigned char foldCase(char letter) noexcept {
    const auto code = static_cast<unsigned char>(letter);
    return code >= 'A' && code <= 'Z' ? static_cast<unsigned char>(code + ('a' - 'A')) : code;
}

/// Below, at or above 0. ASCII letters only lose their case, other bytes compare as they are.
[[nodiscard]] inline int compareIgnoringCase(std::string_view left, std::string_view right) noexcept {
    const std::size_t shared = std::min(left.size(), right.size());
    for (std::size_t place = 0; place < shared; ++place) {
        const int difference = int{foldCase(left[place])} - int{foldCase(right[place])};
        if (difference != 0)
            return difference;
    }
    if (left.size() == right.size())
        return 0;
    return left.size() < right.size() ? -1 : 1;
}

/// Moments are equal when they are the same second, however their fraction of a day was worked out.
[[nodiscard]] inline double wholeSeconds(double serial) noexcept {
    return std::round(serial * 86'400.0);
}

/// A cell that is neither Null nor a text, as a number that orders it among its like; moments in seconds.
[[nodiscard]] inline double cellNumber(const RowStore& rows, std::size_t row, std::size_t column) {
    const Value value = rows.at(row, column);
    switch (value.type()) {
    case Value::Type::Boolean:
        return value.as<bool>() ? 1.0 : 0.0;
    case Value::Type::Integer:
        return static_cast<double>(value.as<std::int64_t>());
    case Value::Type::Double:
        return value.as<double>();
    case Value::Type::Single:
        return value.as<float>();
    case Value::Type::Currency:
        return value.as<Currency>().toDouble();
    case Value::Type::DateTime:
        return wholeSeconds(value.as<DateTime>().serial());
    case Value::Type::Null:
    case Value::Type::Text:
        break;
    }
    return 0.0;
}

} // namespace zel::ado
