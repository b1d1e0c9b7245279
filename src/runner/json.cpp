#include "runner/json.h"

#include "ado/convert.h"

#include <fmt/format.h>

#include <cmath>
#include <cstddef>

namespace zel::runner {

namespace {

/// Length of the well-formed UTF-8 character at the head, 0 for anything else.
std::size_t characterLength(std::string_view text) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const auto follows = [&](std::size_t i, unsigned low = 0x80, unsigned high = 0xBF) {
        return i < text.size() && byte(i) >= low && byte(i) <= high;
    };
    const unsigned head = byte(0);
    if (head < 0x80)
        return 1;
    if (head >= 0xC2 && head <= 0xDF)
        return follows(1) ? 2 : 0;
    if (head >= 0xE0 && head <= 0xEF) {
        const unsigned low = head == 0xE0 ? 0xA0 : 0x80;
        const unsigned high = head == 0xED ? 0x9F : 0xBF;
        return follows(1, low, high) && follows(2) ? 3 : 0;
    }
    if (head >= 0xF0 && head <= 0xF4) {
        const unsigned low = head == 0xF0 ? 0x90 : 0x80;
        const unsigned high = head == 0xF4 ? 0x8F : 0xBF;
        return follows(1, low, high) && follows(2) && follows(3) ? 4 : 0;
    }
    return 0;
}

void appendEscaped(std::string& out, char c) {
    switch (c) {
    case '"':
        out += "\\\"";
        break;
    case '\\':
        out += "\\\\";
        break;
    case '\n':
        out += "\\n";
        break;
    case '\r':
        out += "\\r";
        break;
    case '\t':
        out += "\\t";
        break;
    default:
        if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F)
            out += fmt::format("\\u{:04x}", static_cast<unsigned>(c));
        else
            out += c;
    }
}

void appendText(std::string& out, std::string_view text) {
    out += '"';
    while (!text.empty()) {
        const auto length = characterLength(text);
        if (length == 1)
            appendEscaped(out, text.front());
        else if (length == 0)
            out += "\xEF\xBF\xBD";
        else
            out += text.substr(0, length);
        text.remove_prefix(length == 0 ? 1 : length);
    }
    out += '"';
}

template <typename Real>
void appendReal(std::string& out, Real number) {
    if (std::isfinite(number))
        out += fmt::format("{}", number);
    else
        out += "null";
}

} // namespace

struct Json::Writer {
    std::string& out;

    void operator()(std::monostate) const { out += "null"; }
    void operator()(bool flag) const { out += flag ? "true" : "false"; }
    void operator()(std::int64_t number) const { out += std::to_string(number); }
    void operator()(double number) const { appendReal(out, number); }
    void operator()(const Number& number) const { out += number.text; }
    void operator()(const std::string& text) const { appendText(out, text); }
    void operator()(const Array& items) const {
        out += '[';
        for (const auto& item : items) {
            if (&item != &items.front())
                out += ',';
            std::visit(*this, item.data_);
        }
        out += ']';
    }
    void operator()(const Object& members) const {
        out += '{';
        for (const auto& member : members) {
            if (&member != &members.front())
                out += ',';
            appendText(out, member.first);
            out += ':';
            std::visit(*this, member.second.data_);
        }
        out += '}';
    }
};

Json::Json(const ado::Value& value) {
    using Type = ado::Value::Type;
    switch (value.type()) {
    case Type::Null:
        break;
    case Type::Boolean:
        data_ = value.as<bool>();
        break;
    case Type::Integer:
        data_ = value.as<std::int64_t>();
        break;
    case Type::Double:
        data_ = value.as<double>();
        break;
    case Type::Single: {
        Number number;
        appendReal(number.text, value.as<float>());
        data_ = std::move(number);
        break;
    }
    case Type::Currency:
        data_ = Number{ado::toText(value)};
        break;
    case Type::Text:
        data_ = value.as<std::string>();
        break;
    case Type::DateTime:
        data_ = ado::toText(value);
        break;
    }
}

void Json::append(Json item) {
    if (std::holds_alternative<std::monostate>(data_))
        data_ = Array{};
    std::get<Array>(data_).push_back(std::move(item));
}

void Json::set(std::string name, Json value) {
    if (std::holds_alternative<std::monostate>(data_))
        data_ = Object{};
    std::get<Object>(data_).emplace_back(std::move(name), std::move(value));
}

void Json::merge(Json object) {
    if (auto* members = std::get_if<Object>(&object.data_)) {
        for (auto& [name, value] : *members)
            set(std::move(name), std::move(value));
    }
}

std::string Json::dump() const {
    std::string out;
    std::visit(Writer{out}, data_);
    return out;
}

} // namespace zel::runner
