#include "forms/buttons.h"

#include "ado/convert.h"
#include "forms/form.h"
#include "forms/user.h"

namespace zel::forms {

void CommandButton::press() {
    if (shown() && usable())
        raise(Click);
}

bool CommandButton::takeKey(int key) {
    if (key != keys::space && key != keys::enter)
        return false;
    press();
    return true;
}

void CheckBox::setValue(int value) {
    if (value == value_)
        return;
    value_ = value;
    notify(Property::Text);
    raise(Click);
}

bool CheckBox::takeKey(int key) {
    if (key != keys::space)
        return false;
    setValue(value_ == checked ? unchecked : checked);
    return true;
}

std::optional<Value> CheckBox::property(std::string_view name) const {
    if (ado::equalIgnoringCase(name, "value"))
        return Value(value_);
    return Captioned::property(name);
}

void OptionButton::setValue(bool on) {
    if (on == value_)
        return;
    value_ = on;
    notify(Property::Text);
    if (!on)
        return;
    for (Control* other : form().controls()) {
        auto* option = dynamic_cast<OptionButton*>(other);
        if (option != nullptr && option != this && option->container() == container() && option->page() == page())
            option->setValue(false);
    }
    raise(Click);
}

bool OptionButton::takeKey(int key) {
    if (key != keys::space)
        return false;
    setValue(true);
    return true;
}

std::optional<Value> OptionButton::property(std::string_view name) const {
    if (ado::equalIgnoringCase(name, "value"))
        return Value(value_);
    return Captioned::property(name);
}

} // namespace zel::forms
