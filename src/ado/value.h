#pragma once

#include "ado/currency.h"
#include "ado/date_time.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

namespace zel::ado {

/// What a field, a parameter or a control property holds. Null is a value of its own, not an empty text.
class Value {
public:
    enum class Type { Null, Boolean, Integer, Double, Single, Currency, Text, DateTime };

    Value() noexcept = default;
    Value(bool flag) : data_(flag) {}
    Value(int number) : data_(std::int64_t{number}) {}
    Value(std::int64_t number) : data_(number) {}
    Value(double number) : data_(number) {}
    Value(float number) : data_(number) {}
    Value(ado::Currency money) : data_(money) {}
    Value(ado::DateTime moment) : data_(moment) {}
    Value(std::string text) : data_(std::move(text)) {}
    Value(std::string_view text) : data_(std::string(text)) {}
    Value(const char* text) : data_(std::string(text)) {}

    [[nodiscard]] Type type() const noexcept { return static_cast<Type>(data_.index()); }
    [[nodiscard]] bool isNull() const noexcept { return type() == Type::Null; }
    /// Null or the empty text: what the screens call "empty".
    [[nodiscard]] bool isEmpty() const noexcept {
        const auto* text = std::get_if<std::string>(&data_);
        return isNull() || (text != nullptr && text->empty());
    }
    /// The held alternative; the caller has looked at type(). For conversions see convert.h.
    template <typename T>
    [[nodiscard]] const T& as() const {
        return std::get<T>(data_);
    }

    /// Same type and same content; text is compared to the letter.
    friend bool operator==(const Value&, const Value&) = default;

private:
    std::variant<std::monostate, bool, std::int64_t, double, float, ado::Currency, std::string, ado::DateTime> data_;
};

} // namespace zel::ado
