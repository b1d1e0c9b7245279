#include "forms/menu.h"

#include "ado/convert.h"

namespace zel::forms {

Menu::Menu(Place place, std::string name, std::string caption, int index)
    : Captioned(place, std::move(name), index), parent_(dynamic_cast<Menu*>(place.container)) {
    setCaption(std::move(caption));
    if (parent_ != nullptr)
        parent_->entries_.push_back(this);
}

void Menu::setChecked(bool checked) {
    checked_ = checked;
    notify(Property::Look);
}

bool Menu::available() const {
    if (!Enabled() || (!Visible() && parent_ != nullptr))
        return false;
    return parent_ == nullptr || parent_->available();
}

std::optional<Value> Menu::property(std::string_view name) const {
    if (ado::equalIgnoringCase(name, "Checked"))
        return Value(checked_);
    return Captioned::property(name);
}

} // namespace zel::forms
