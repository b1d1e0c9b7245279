#pragma once

#include "ado/value.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace zel::runner {

/// A JSON value to be written. Members of an object keep the order they were added in.
class Json {
public:
    using Array = std::vector<Json>;
    using Object = std::vector<std::pair<std::string, Json>>;

    Json() = default;
    Json(bool flag) : data_(flag) {}
    Json(int number) : data_(std::int64_t{number}) {}
    Json(std::int64_t number) : data_(number) {}
    Json(double number) : data_(number) {}
    Json(std::string text) : data_(std::move(text)) {}
    Json(std::string_view text) : data_(std::string(text)) {}
    Json(const char* text) : data_(std::string(text)) {}
    Json(Array items) : data_(std::move(items)) {}
    Json(Object members) : data_(std::move(members)) {}
    /// Null as null, a flag as true or false, numbers as numbers (money exactly), a date as its default text.
    Json(const ado::Value& value);

    /// For an array and an object; a fresh value becomes one.
    void append(Json item);
    void set(std::string name, Json value);
    /// Adds the members of another object.
    void merge(Json object);

    /// On one line. Bytes that are not UTF-8 become U+FFFD, so that the line is always valid JSON.
    [[nodiscard]] std::string dump() const;

private:
    struct Number {
        std::string text;
    };
    struct Writer;
    std::variant<std::monostate, bool, std::int64_t, double, Number, std::string, Array, Object> data_;
};

} // namespace zel::runner
