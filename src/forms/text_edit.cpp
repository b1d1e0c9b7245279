#include "forms/text_edit.h"

#include "ado/convert.h"
#include "forms/user.h"

#include <algorithm>

namespace zel::forms {

void TextEdit::setText(std::string text) {
    if (maxLength_ > 0)
        text.resize(utf8::offset(text, maxLength_));
    place(std::move(text), 0);
}

void TextEdit::setSelStart(int start) {
    selStart_ = std::clamp(start, 0, utf8::length(text_));
    selLength_ = 0;
    notify(Property::Selection);
}

void TextEdit::setSelLength(int length) {
    selLength_ = std::clamp(length, 0, utf8::length(text_) - selStart_);
    notify(Property::Selection);
}

std::string TextEdit::SelText() const {
    return std::string(utf8::middle(text_, selStart_, selLength_));
}

void TextEdit::selectAll() {
    setSelStart(0);
    setSelLength(utf8::length(text_));
}

void TextEdit::setLocked(bool locked) {
    locked_ = locked;
    notify(Property::Enabled);
}

bool TextEdit::insert(std::string_view text) {
    if (locked_)
        return false;
    const int kept = utf8::length(text_) - selLength_;
    if (maxLength_ > 0)
        text = utf8::middle(text, 0, std::max(0, maxLength_ - kept));
    if (text.empty() && selLength_ == 0)
        return false;
    std::string whole = text_;
    const auto from = utf8::offset(whole, selStart_);
    whole.replace(from, utf8::offset(whole, selStart_ + selLength_) - from, text);
    place(std::move(whole), selStart_ + utf8::length(text));
    return true;
}

bool TextEdit::erase(bool forward) {
    if (locked_)
        return false;
    int start = selStart_;
    int length = selLength_;
    if (length == 0) {
        length = 1;
        start -= forward ? 0 : 1;
    }
    if (start < 0 || start >= utf8::length(text_))
        return false;
    std::string whole = text_;
    const auto from = utf8::offset(whole, start);
    whole.erase(from, utf8::offset(whole, start + length) - from);
    place(std::move(whole), start);
    return true;
}

bool TextEdit::takeKey(int key) {
    switch (key) {
    case keys::backspace:
        erase();
        return true;
    case keys::del:
        erase(true);
        return true;
    case keys::left:
        setSelStart(selLength_ > 0 ? selStart_ : selStart_ - 1);
        return true;
    case keys::right:
        setSelStart(selStart_ + std::max(selLength_, 1));
        return true;
    case keys::home:
        setSelStart(0);
        return true;
    case keys::end:
        setSelStart(utf8::length(text_));
        return true;
    default:
        break;
    }
    if (key < keys::space || key >= keys::first)
        return false;
    insert(utf8::encode(static_cast<char32_t>(key)));
    return true;
}

std::optional<Value> TextEdit::property(std::string_view name) const {
    const auto is = [name](std::string_view other) { return ado::equalIgnoringCase(name, other); };
    if (is("Text"))
        return Value(Text());
    if (is("SelStart"))
        return Value(selStart_);
    if (is("SelLength"))
        return Value(selLength_);
    if (is("SelText"))
        return Value(SelText());
    if (is("MaxLength"))
        return Value(maxLength_);
    if (is("Locked"))
        return Value(locked_);
    return Control::property(name);
}

void TextEdit::place(std::string text, int selStart, int selLength) {
    const bool changed = text != text_;
    text_ = std::move(text);
    const int length = utf8::length(text_);
    selStart_ = std::clamp(selStart, 0, length);
    selLength_ = std::clamp(selLength, 0, length - selStart_);
    notify(changed ? Property::Text : Property::Selection);
    if (changed)
        textChanged();
}

} // namespace zel::forms
