#include "forms/tdb_combo.h"

#include "ado/convert.h"
#include "forms/user.h"

#include <algorithm>

namespace zel::forms {

void TDBCombo::setText(std::string text) {
    choose(text.empty() ? -1 : findText(text));
    typed_ = false;
    TextEdit::setText(std::move(text));
}

void TDBCombo::setDropDownWidth(int twips) {
    dropDownWidth_ = twips;
    notify(Property::Look);
}

void TDBCombo::setOpen(bool open) {
    if (open == open_)
        return;
    open_ = open;
    raise(open ? Open : Close);
    notify(Property::Open);
}

void TDBCombo::pick(std::int64_t row) {
    chooseAndTell(row);
    setOpen(false);
    raise(Click);
}

void TDBCombo::rowChosen() {
    typed_ = false;
    const auto row = SelectedItem();
    place(row < 0 ? std::string() : listText(row), 0);
}

bool TDBCombo::insert(std::string_view text) {
    if (!TextEdit::insert(text))
        return false;
    typed_ = true;
    const int caret = SelStart();
    if (!autoCompletion_ || caret != utf8::length(rawText()))
        return true;
    const auto row = findPrefix(rawText());
    if (row < 0)
        return true;
    std::string whole = listText(row);
    const int rest = utf8::length(whole) - caret;
    // What the clerk typed stays as typed, so that nothing seems to change under the caret.
    whole.replace(0, utf8::offset(whole, caret), rawText());
    place(std::move(whole), caret, rest);
    return true;
}

bool TDBCombo::erase(bool forward) {
    if (!TextEdit::erase(forward))
        return false;
    typed_ = true;
    return true;
}

bool TDBCombo::takeKey(int key) {
    if (key == keys::f4) {
        setOpen(!open_);
        return true;
    }
    if (key == keys::up || key == keys::down) {
        const auto row = SelectedItem() + (key == keys::down ? 1 : -1);
        if (!Locked() && rowCount() > 0)
            chooseAndTell(std::clamp<std::int64_t>(row, 0, rowCount() - 1));
        return true;
    }
    if (open_ && key == keys::escape) {
        setOpen(false);
        return true;
    }
    if (key == keys::enter) {
        const bool wasOpen = open_;
        chooseTypedRow();
        setOpen(false);
        return wasOpen;
    }
    return TextEdit::takeKey(key);
}

void TDBCombo::focusGoes() {
    chooseTypedRow();
    setOpen(false);
}

void TDBCombo::chooseTypedRow() {
    if (!typed_)
        return;
    typed_ = false;
    const auto row = findText(rawText());
    const bool another = choose(row);
    if (row >= 0)
        place(listText(row), utf8::length(rawText()));
    notify(Property::Selection);
    if (another)
        raise(ItemChange);
}

std::optional<Value> TDBCombo::property(std::string_view name) const {
    const auto is = [name](std::string_view other) { return ado::equalIgnoringCase(name, other); };
    if (is("BoundText"))
        return Value(BoundText());
    if (is("BoundColumn"))
        return Value(BoundColumn());
    if (is("ListField"))
        return Value(ListField());
    if (is("SelectedItem"))
        return Value(SelectedItem());
    if (is("Bookmark"))
        return Value(bookmark());
    return TextEdit::property(name);
}

} // namespace zel::forms
