#include "forms/toolbar.h"

#include "ado/convert.h"

namespace zel::forms {

void Toolbar::addButton(std::string key, std::string caption, std::string toolTip, std::string icon) {
    buttons_.push_back({std::move(key), std::move(caption), std::move(toolTip), std::move(icon)});
    notify(Property::Items);
}

const Toolbar::Button* Toolbar::button(std::string_view key) const noexcept {
    for (const Button& button : buttons_) {
        if (ado::equalIgnoringCase(button.key, key))
            return &button;
    }
    return nullptr;
}

void Toolbar::setButtonEnabled(std::string_view key, bool enabled) {
    for (Button& button : buttons_) {
        if (ado::equalIgnoringCase(button.key, key))
            button.enabled = enabled;
    }
    notify(Property::Items);
}

std::optional<Value> Toolbar::property(std::string_view name) const {
    if (ado::equalIgnoringCase(name, "Buttons"))
        return Value(static_cast<int>(buttons_.size()));
    return Control::property(name);
}

} // namespace zel::forms
