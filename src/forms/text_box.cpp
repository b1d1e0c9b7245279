#include "forms/text_box.h"

#include "forms/user.h"

namespace zel::forms {

bool TextBox::takeKey(int key) {
    if (key == keys::enter && multiLine_) {
        insert("\r\n");
        return true;
    }
    return TextEdit::takeKey(key);
}

bool TextBox::erase(bool forward) {
    // A line end is two characters, but one for the clerk.
    const std::string text = Text();
    const int start = forward ? SelStart() : SelStart() - 2;
    if (multiLine_ && SelLength() == 0 && start >= 0 && utf8::middle(text, start, 2) == "\r\n") {
        setSelStart(start);
        setSelLength(2);
    }
    return TextEdit::erase(forward);
}

} // namespace zel::forms
