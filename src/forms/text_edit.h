#pragma once

#include "forms/control.h"
#include "forms/utf8.h"

#include <string>

namespace zel::forms {

/// What a text box, a masked box and the edit part of a combo have in common. Positions count characters, not bytes.
class TextEdit : public Control {
public:
    using Control::Control;

    [[nodiscard]] virtual std::string Text() const { return text_; }
    /// Raises Change when the text becomes another one.
    virtual void setText(std::string text);
    [[nodiscard]] int SelStart() const noexcept { return selStart_; }
    [[nodiscard]] int SelLength() const noexcept { return selLength_; }
    void setSelStart(int start);
    void setSelLength(int length);
    [[nodiscard]] std::string SelText() const;
    void selectAll();

    /// Characters that can be typed; 0 for any number.
    [[nodiscard]] int MaxLength() const noexcept { return maxLength_; }
    void setMaxLength(int length) { maxLength_ = length; }
    /// A locked box shows its text and can be entered, but typing changes nothing.
    [[nodiscard]] bool Locked() const noexcept { return locked_; }
    void setLocked(bool locked);

    /// Puts the text in place of the selection as typing or pasting does, without KeyPress. False: nothing changed.
    virtual bool insert(std::string_view text);
    /// Removes the selection, else the character before (or, with `forward`, behind) the caret.
    virtual bool erase(bool forward = false);

    [[nodiscard]] bool canTakeFocus() const noexcept override { return true; }
    bool takeKey(int key) override;
    [[nodiscard]] std::optional<Value> property(std::string_view name) const override;
    [[nodiscard]] std::string_view defaultProperty() const noexcept override { return "Text"; }

    std::function<void()> Change;

protected:
    /// New text and caret in one step, with Change and the observers told when the text is another one.
    void place(std::string text, int selStart, int selLength = 0);
    [[nodiscard]] const std::string& rawText() const noexcept { return text_; }
    virtual void textChanged() { raise(Change); }

private:
    std::string text_;
    int selStart_ = 0, selLength_ = 0, maxLength_ = 0;
    bool locked_ = false;
};

} // namespace zel::forms
