#include "forms/control.h"

#include "ado/convert.h"
#include "forms/form.h"

namespace zel::forms {

Place::Place(Control& inContainer) : form(inContainer.form()), container(&inContainer) {}

Place::Place(Control& tabStrip, int onPage) : form(tabStrip.form()), container(&tabStrip), page(onPage) {}

Control::Control(Place place, std::string name, int index)
    : form_(place.form), container_(place.container), page_(place.page), name_(std::move(name)), index_(index),
      tabIndex_(static_cast<int>(place.form.controls().size())) {
    form_.adopt(*this);
}

Control::~Control() {
    form_.forget(*this);
}

std::string Control::fullName() const {
    return index_ == noIndex ? name_ : name_ + "(" + std::to_string(index_) + ")";
}

void Control::setVisible(bool visible) {
    if (visible == visible_)
        return;
    visible_ = visible;
    notify(Property::Visible);
    form_.dropUnreachableFocus();
}

void Control::setEnabled(bool enabled) {
    if (enabled == enabled_)
        return;
    enabled_ = enabled;
    notify(Property::Enabled);
    form_.dropUnreachableFocus();
}

bool Control::shown() const {
    return visible_ && (container_ == nullptr || (container_->pageShown(page_) && container_->shown()));
}

bool Control::usable() const {
    if (!enabled_)
        return false;
    return container_ == nullptr ? form_.Enabled() : container_->pageUsable(page_) && container_->usable();
}

void Control::setToolTipText(std::string text) {
    toolTip_ = std::move(text);
    notify(Property::Look);
}

void Control::setBackColor(int color) {
    backColor_ = color;
    notify(Property::Look);
}

void Control::setForeColor(int color) {
    foreColor_ = color;
    notify(Property::Look);
}

bool Control::hasFocus() const {
    return form_.ActiveControl() == this;
}

void Control::SetFocus() {
    if (canTakeFocus() && shown() && usable())
        form_.moveFocus(this);
}

std::optional<Value> Control::property(std::string_view name) const {
    const auto is = [name](std::string_view other) { return ado::equalIgnoringCase(name, other); };
    if (is("Name"))
        return Value(name_);
    if (is("Index"))
        return Value(index_);
    if (is("Visible"))
        return Value(visible_);
    if (is("Enabled"))
        return Value(enabled_);
    if (is("Tag"))
        return Value(tag_);
    if (is("ToolTipText"))
        return Value(toolTip_);
    if (is("BackColor"))
        return Value(backColor_);
    if (is("ForeColor"))
        return Value(foreColor_);
    if (is("TabIndex"))
        return Value(tabIndex_);
    if (is("TabStop"))
        return Value(tabStop_);
    return std::nullopt;
}

} // namespace zel::forms
