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

} // namespace zel::forms
