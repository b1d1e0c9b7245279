#include "forms/list_view.h"

#include "ado/convert.h"

namespace zel::forms {

void ListView::addColumnHeader(std::string caption, int width) {
    headers_.push_back(std::move(caption));
    widths_.push_back(width);
    notify(Property::Columns);
}

void ListView::addItem(std::string text, std::vector<std::string> subItems) {
    items_.push_back({std::move(text), std::move(subItems)});
    notify(Property::Items);
}

void ListView::Clear() {
    items_.clear();
    selected_ = -1;
    notify(Property::Items);
}

void ListView::setSelectedItem(int index) {
    if (index < -1 || index >= static_cast<int>(items_.size()))
        return;
    selected_ = index;
    notify(Property::Selection);
    if (index >= 0)
        raise(ItemClick, index);
}

std::optional<Value> ListView::property(std::string_view name) const {
    if (ado::equalIgnoringCase(name, "Text"))
        return Value(selected_ < 0 ? std::string() : items_[selected_].text);
    if (ado::equalIgnoringCase(name, "ListItems"))
        return Value(static_cast<int>(items_.size()));
    return Control::property(name);
}

} // namespace zel::forms
