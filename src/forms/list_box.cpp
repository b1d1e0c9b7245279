#include "forms/list_box.h"

#include "ado/convert.h"
#include "ado/error.h"
#include "forms/user.h"
#include "forms/utf8.h"

#include <algorithm>

namespace zel::forms {

void ListBox::AddItem(std::string text, std::int32_t itemData) {
    items_.push_back({std::move(text), itemData});
    selected_.push_back(false);
    notify(Property::Items);
}

void ListBox::RemoveItem(int index) {
    items_.erase(items_.begin() + index);
    selected_.erase(selected_.begin() + index);
    if (listIndex_ >= index)
        listIndex_ = listIndex_ == index ? -1 : listIndex_ - 1;
    notify(Property::Items);
}

void ListBox::Clear() {
    items_.clear();
    selected_.clear();
    listIndex_ = -1;
    notify(Property::Items);
}

std::string ListBox::List(int index) const {
    return index < 0 || index >= ListCount() ? std::string() : items_[index].text;
}

std::int32_t ListBox::ItemData(int index) const {
    return index < 0 || index >= ListCount() ? 0 : items_[index].data;
}

void ListBox::setListIndex(int index) {
    if (index < -1 || index >= ListCount())
        throw ado::Error(ado::ErrorKind::Conversion, 380, "Invalid property value");
    listIndex_ = index;
    notify(Property::Selection);
    raise(Click);
}

bool ListBox::Selected(int index) const {
    if (multiSelect_)
        return index >= 0 && index < ListCount() && selected_[index];
    return index == listIndex_ && index >= 0;
}

void ListBox::setSelected(int index, bool selected) {
    if (index < 0 || index >= ListCount())
        return;
    if (!multiSelect_) {
        setListIndex(selected ? index : -1);
        return;
    }
    selected_[index] = selected;
    notify(Property::Selection);
    raise(Click);
}

int ListBox::SelCount() const {
    if (!multiSelect_)
        return listIndex_ >= 0 ? 1 : 0;
    return static_cast<int>(std::count(selected_.begin(), selected_.end(), true));
}

bool ListBox::takeKey(int key) {
    if (ListCount() == 0)
        return false;
    if (key == keys::up || key == keys::down) {
        setListIndex(std::clamp(listIndex_ + (key == keys::down ? 1 : -1), 0, ListCount() - 1));
        return true;
    }
    if (key == keys::space && multiSelect_) {
        setSelected(listIndex_, !Selected(listIndex_));
        return true;
    }
    if (key <= keys::space || key >= keys::first)
        return false;
    const int hit = findItemPrefix(items_, utf8::encode(static_cast<char32_t>(key)));
    if (hit >= 0)
        setListIndex(hit);
    return true;
}

std::optional<Value> ListBox::property(std::string_view name) const {
    const auto is = [name](std::string_view other) { return ado::equalIgnoringCase(name, other); };
    if (is("Text"))
        return Value(Text());
    if (is("ListIndex"))
        return Value(listIndex_);
    if (is("ListCount"))
        return Value(ListCount());
    if (is("Columns"))
        return Value(columns_);
    if (is("SelCount"))
        return Value(SelCount());
    return Control::property(name);
}

} // namespace zel::forms
