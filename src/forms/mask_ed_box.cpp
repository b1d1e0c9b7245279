#include "forms/mask_ed_box.h"

#include "ado/convert.h"
#include "ado/error.h"
#include "ado/format.h"

#include <algorithm>

namespace zel::forms {

void MaskEdBox::setMask(std::string pattern) {
    if (pattern == pattern_ && !pattern.empty() && ClipText().empty())
        return;
    pattern_ = std::move(pattern);
    mask_ = forms::Mask(pattern_);
    place(mask_.empty() ? std::string(rawText()) : utf8::encode(mask_.blank(prompt())), 0);
}

void MaskEdBox::setPromptChar(std::string character) {
    std::u32string cells = utf8::decode(rawText());
    const char32_t before = prompt();
    promptChar_ = std::move(character);
    for (int i = 0; i < mask_.size(); ++i) {
        if (!mask_.isLiteral(i) && cells[i] == before)
            cells[i] = prompt();
    }
    place(utf8::encode(cells), SelStart(), SelLength());
}

void MaskEdBox::setPromptInclude(bool include) {
    promptInclude_ = include;
}

void MaskEdBox::setFormat(std::string format) {
    format_ = std::move(format);
    notify(Property::Text);
}

std::string MaskEdBox::Text() const {
    return promptInclude_ || mask_.empty() ? rawText() : ClipText();
}

void MaskEdBox::setText(std::string text) {
    if (mask_.empty()) {
        TextEdit::setText(std::move(text));
        return;
    }
    const auto laid = mask_.lay(utf8::decode(text), prompt());
    if (!laid) {
        throw ado::Error(ado::ErrorKind::Conversion, 380, "Invalid property value");
    }
    place(utf8::encode(*laid), 0);
}

std::string MaskEdBox::ClipText() const {
    if (mask_.empty())
        return rawText();
    const std::u32string cells = utf8::decode(rawText());
    std::u32string typed;
    for (int i = 0; i < mask_.size(); ++i) {
        if (!mask_.isLiteral(i) && cells[i] != prompt())
            typed += cells[i];
    }
    return utf8::encode(typed);
}

std::string MaskEdBox::FormattedText() const {
    if (format_.empty() || ClipText().empty())
        return Text();
    const Value text(rawText());
    if (ado::isNumeric(text))
        return ado::format(Value(ado::toDouble(text)), format_);
    if (ado::isDate(text))
        return ado::format(Value(ado::toDateTime(text)), format_);
    return ado::format(text, format_);
}

bool MaskEdBox::insert(std::string_view text) {
    if (mask_.empty())
        return TextEdit::insert(text);
    if (Locked())
        return false;
    std::u32string cells = utf8::decode(rawText());
    int caret = SelStart();
    clearRange(cells, caret, SelLength());
    bool refused = false;
    for (char32_t character : utf8::decode(text))
        refused = !typeAt(cells, caret, character) || refused;
    place(utf8::encode(cells), caret);
    if (refused)
        raise(ValidationError);
    return !refused;
}

bool MaskEdBox::typeAt(std::u32string& cells, int& caret, char32_t character) const {
    const int at = mask_.nextFree(caret);
    const bool isPrompt = character == prompt() && !allowPrompt_;
    if (at < mask_.size() && !isPrompt) {
        if (const auto fitting = mask_.fit(at, character)) {
            cells[at] = *fitting;
            caret = mask_.nextFree(at + 1);
            return true;
        }
    }
    // The separator behind a full group was stepped over already; a clerk who types it all the same means that one.
    if (caret > 0 && mask_.isLiteral(caret - 1) && cells[caret - 1] == character)
        return true;
    // The separator typed in the middle of a group ends the group.
    for (int next = caret; next < mask_.size(); ++next) {
        if (mask_.isLiteral(next) && cells[next] == character) {
            caret = mask_.nextFree(next + 1);
            return true;
        }
    }
    return false;
}

bool MaskEdBox::erase(bool forward) {
    if (mask_.empty())
        return TextEdit::erase(forward);
    if (Locked())
        return false;
    std::u32string cells = utf8::decode(rawText());
    int start = SelStart();
    int length = SelLength();
    if (length == 0) {
        start = forward ? mask_.nextFree(start) : mask_.previousFree(start);
        length = 1;
    }
    if (start < 0 || start >= mask_.size())
        return false;
    clearRange(cells, start, length);
    place(utf8::encode(cells), start);
    return true;
}

std::optional<Value> MaskEdBox::property(std::string_view name) const {
    const auto is = [name](std::string_view other) { return ado::equalIgnoringCase(name, other); };
    if (is("Mask"))
        return Value(pattern_);
    if (is("FormattedText"))
        return Value(FormattedText());
    if (is("ClipText"))
        return Value(ClipText());
    if (is("Format"))
        return Value(format_);
    if (is("PromptInclude"))
        return Value(promptInclude_);
    return TextEdit::property(name);
}

char32_t MaskEdBox::prompt() const {
    return promptChar_.empty() ? U' ' : utf8::decode(promptChar_).front();
}

void MaskEdBox::clearRange(std::u32string& cells, int start, int length) const {
    const int end = std::min(start + length, mask_.size());
    for (int i = start; i < end; ++i) {
        if (!mask_.isLiteral(i))
            cells[i] = prompt();
    }
}

} // namespace zel::forms
