#include "forms/label.h"

#include "ado/convert.h"

namespace zel::forms {

void Captioned::setCaption(std::string caption) {
    if (caption == caption_)
        return;
    caption_ = std::move(caption);
    notify(Property::Caption);
}

void Captioned::setFontBold(bool bold) {
    bold_ = bold;
    notify(Property::Look);
}

std::optional<Value> Captioned::property(std::string_view name) const {
    if (ado::equalIgnoringCase(name, "Caption"))
        return Value(caption_);
    if (ado::equalIgnoringCase(name, "FontBold"))
        return Value(bold_);
    return Control::property(name);
}

} // namespace zel::forms
