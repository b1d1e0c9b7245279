#include "forms/combo_box.h"

#include "ado/convert.h"
#include "ado/error.h"
#include "forms/user.h"

#include <algorithm>

namespace zel::forms {

void ComboBox::AddItem(std::string text, std::int32_t itemData) {
    items_.push_back({std::move(text), itemData});
    notify(Property::Items);
}

void ComboBox::RemoveItem(int index) {
    items_.erase(items_.begin() + index);
    if (listIndex_ >= index)
        listIndex_ = listIndex_ == index ? -1 : listIndex_ - 1;
    notify(Property::Items);
}

void ComboBox::Clear() {
    items_.clear();
    listIndex_ = -1;
    quiet_ = true;
    place({}, 0);
    quiet_ = false;
    notify(Property::Items);
}

std::string ComboBox::List(int index) const {
    return index < 0 || index >= ListCount() ? std::string() : items_[index].text;
}

std::int32_t ComboBox::ItemData(int index) const {
    return index < 0 || index >= ListCount() ? 0 : items_[index].data;
}

void ComboBox::setListIndex(int index) {
    if (index < -1 || index >= ListCount())
        throw ado::Error(ado::ErrorKind::Conversion, 380, "Invalid property value");
    quiet_ = true; // the entry is what was chosen; its text follows, and Click tells of both
    place(List(index), 0);
    quiet_ = false;
    listIndex_ = index;
    notify(Property::Selection);
    raise(Click);
}

void ComboBox::setText(std::string text) {
    if (style_ == Style::DropDownList && !text.empty() && findItem(items_, text) < 0)
        throw ado::Error(ado::ErrorKind::Conversion, 383, "'Text' property is read-only");
    TextEdit::setText(std::move(text));
}

void ComboBox::setOpen(bool open) {
    if (open == open_)
        return;
    open_ = open;
    if (open)
        raise(DropDown);
    notify(Property::Open);
}

bool ComboBox::insert(std::string_view text) {
    if (style_ == Style::DropDown)
        return TextEdit::insert(text);
    // One letter after the other walks through the entries that begin with it.
    for (int step = 1; step <= ListCount(); ++step) {
        const int index = (listIndex_ + step) % ListCount();
        if (ado::equalIgnoringCase(std::string_view(items_[index].text).substr(0, text.size()), text)) {
            setListIndex(index);
            return true;
        }
    }
    return false;
}

bool ComboBox::takeKey(int key) {
    if (key == keys::f4) {
        setOpen(!open_);
        return true;
    }
    if (key == keys::up || key == keys::down) {
        const int index = std::clamp(listIndex_ + (key == keys::down ? 1 : -1), 0, ListCount() - 1);
        if (ListCount() > 0 && index != listIndex_ && !Locked())
            setListIndex(index);
        return true;
    }
    if (open_ && (key == keys::enter || key == keys::escape)) {
        setOpen(false);
        return true;
    }
    if (style_ == Style::DropDownList && (key == keys::backspace || key == keys::del))
        return true;
    return TextEdit::takeKey(key);
}

std::optional<Value> ComboBox::property(std::string_view name) const {
    if (ado::equalIgnoringCase(name, "ListIndex"))
        return Value(listIndex_);
    if (ado::equalIgnoringCase(name, "ListCount"))
        return Value(ListCount());
    return TextEdit::property(name);
}

void ComboBox::textChanged() {
    listIndex_ = findItem(items_, rawText());
    if (!quiet_)
        TextEdit::textChanged();
}

} // namespace zel::forms
