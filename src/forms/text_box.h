#pragma once

#include "forms/text_edit.h"

namespace zel::forms {

/// A box for free text, of one line or, with MultiLine, of many parted by CR LF.
class TextBox : public TextEdit {
public:
    using TextEdit::TextEdit;
    [[nodiscard]] std::string_view typeName() const noexcept override { return "TextBox"; }

    [[nodiscard]] bool MultiLine() const noexcept { return multiLine_; }
    void setMultiLine(bool multiLine) { multiLine_ = multiLine; }
    /// Not empty: the front end shows this character for each one typed.
    [[nodiscard]] const std::string& PasswordChar() const noexcept { return passwordChar_; }
    void setPasswordChar(std::string character) { passwordChar_ = std::move(character); }

    bool takeKey(int key) override;
    bool erase(bool forward = false) override;

private:
    bool multiLine_ = false;
    std::string passwordChar_;
};

} // namespace zel::forms
