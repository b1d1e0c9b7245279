#include "services/text_rules.h"

#include "ado/convert.h"
#include "ado/format.h"
#include "core/session.h"
#include "forms/dialogs.h"
#include "forms/text_edit.h"
#include "services/request_number.h"
#include "services/time_rules.h"

#include <algorithm>

namespace zel::services {

namespace {

bool allDigits(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

std::string withoutPrompts(std::string text) {
    std::erase(text, '_');
    return text;
}

} // namespace

std::string FormatByType(core::Session& session, std::string_view text, int type) {
    switch (type) {
    case fieldType::ssn:
        return text.size() == 9 && allDigits(text) ? ado::format(text, "000-00-0000") : std::string(text);
    case fieldType::time:
        return typedTime(text);
    case fieldType::requestNumber:
        if (auto number = requestNumber(text))
            return *std::move(number);
        session.dialogs.message("Characters entered after the hypen must be a number or a decimal.", session.app.Title);
        return {};
    case fieldType::date:
        return ado::format(text, "mm/dd/yyyy");
    case fieldType::upperCase:
        return ado::upperCase(text);
    default:
        return {};
    }
}

ado::Value StripChars(const ado::Value& value, std::string_view characters) {
    if (value.isEmpty())
        return value;
    std::u32string text = forms::utf8::decode(ado::toText(value));
    const std::u32string unwanted = forms::utf8::decode(characters);
    std::erase_if(text, [&](char32_t c) {
        return unwanted.empty() ? c < 48 || c > 122 : unwanted.find(c) != std::u32string::npos;
    });
    return forms::utf8::encode(text);
}

std::string PadText(std::string_view value, bool left, char pad, int length) {
    std::u32string text = forms::utf8::decode(value);
    const auto wanted = static_cast<std::size_t>(std::max(length, 0));
    if (text.size() > wanted)
        text.erase(left ? 0 : wanted, text.size() - wanted);
    else
        text.insert(left ? 0 : text.size(), wanted - text.size(), static_cast<char32_t>(pad));
    return forms::utf8::encode(text);
}

ado::Value BlankIfEmpty(const ado::Value& value, bool numeric) {
    if (!value.isEmpty())
        return value;
    return numeric ? ado::Value(0) : ado::Value("");
}

ado::Value FormatMaskValue(const ado::Value& value, bool time) {
    const std::string text = withoutPrompts(ado::toText(value));
    if (time && text == "24:00")
        return ado::DateTime(0.0);
    if (ado::isDate(text))
        return ado::format(text, time ? "hh:nn" : "mm/dd/yyyy");
    const std::string_view typed = ado::trim(text);
    if (time && typed.size() == 5)
        return typed;
    if (time && typed.size() == 4 && allDigits(typed))
        return std::string(typed.substr(0, 2)) + ':' + std::string(typed.substr(2));
    return {};
}

} // namespace zel::services
