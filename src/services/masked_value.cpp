#include "services/masked_value.h"

#include "ado/convert.h"
#include "ado/format.h"
#include "forms/mask_ed_box.h"
#include "services/text_rules.h"

#include <cctype>

namespace zel::services {

namespace {

/// The time value 0 has no text that fits five places but 00:00.
std::string timeForMask(const ado::Value& time) {
    return time.type() == ado::Value::Type::DateTime ? ado::format(time, "hh:nn") : ado::toText(time);
}

std::string textForMask(core::Session& session, std::string_view mask, const std::string& text) {
    if (mask == ">?-9999")
        return FormatByType(session, text, fieldType::requestNumber);
    if (mask == "99/99/9999" || mask == "##/##/####")
        return dateForMask(text);
    if (mask == "99:99")
        return timeForMask(FormatMaskValue(text, true));
    if (mask == "###-##-####" || mask == ">aa-aaa-aaaaaa")
        return text;
    if (mask == "P-aaaaaa")
        return {};
    if (text.find('_') == std::string::npos)
        return text;
    // A box that was left half filled is kept with its blanks: what was typed comes back, the mask has the literals.
    std::string typed = text;
    if (mask.empty())
        std::erase(typed, '_');
    else
        std::erase_if(typed, [](unsigned char character) { return character < 0x80 && std::isalnum(character) == 0; });
    return typed;
}

} // namespace

std::string dateForMask(std::string_view text) {
    std::string date(text);
    if (date.size() == 8 && date.find('/') == std::string::npos) {
        date.insert(4, 1, '/');
        date.insert(2, 1, '/');
    } else if (date.size() == 8) {
        // 7/4/2005: both numbers lack their zero.
        if (const auto moment = ado::parseDateTime(date))
            return ado::toText(FormatMaskValue(*moment));
    } else if (date.size() == 9) {
        date.insert(date[2] == '/' ? 3 : 0, 1, '0');
    }
    return date;
}

void SetMaskedValue(core::Session& session, forms::MaskEdBox& box, const ado::Value& value) {
    box.setPromptInclude(false);
    box.setSelStart(0);
    box.setSelLength(0);
    box.setText("");
    box.setPromptInclude(true);
    const std::string text = ado::toText(value);
    if (box.Mask().empty() && text.empty())
        return;
    box.setText(textForMask(session, box.Mask(), text));
}

} // namespace zel::services
