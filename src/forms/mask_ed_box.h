#pragma once

#include "forms/mask.h"
#include "forms/text_edit.h"

namespace zel::forms {

/// A text box with an input mask. Without a mask it is a plain text box.
class MaskEdBox : public TextEdit {
public:
    using TextEdit::TextEdit;
    [[nodiscard]] std::string_view typeName() const noexcept override { return "MaskEdBox"; }

    /// Setting a mask empties the box to literals and prompts, and raises Change when the text becomes another one.
    [[nodiscard]] const std::string& Mask() const noexcept { return pattern_; }
    void setMask(std::string pattern);
    /// "_" at first.
    [[nodiscard]] const std::string& PromptChar() const noexcept { return promptChar_; }
    void setPromptChar(std::string character);
    /// Off: Text is ClipText, without literals and prompts.
    [[nodiscard]] bool PromptInclude() const noexcept { return promptInclude_; }
    void setPromptInclude(bool include);
    /// Whether the prompt character itself counts as good input.
    [[nodiscard]] bool AllowPrompt() const noexcept { return allowPrompt_; }
    void setAllowPrompt(bool allow) { allowPrompt_ = allow; }
    /// The format that FormattedText uses: "mm/dd/yyyy", "0.00".
    [[nodiscard]] const std::string& Format() const noexcept { return format_; }
    void setFormat(std::string format);

    [[nodiscard]] std::string Text() const override;
    /// Under a mask the text must fit it; a text that does not throws ado::Error 380 and the box stays as it was.
    void setText(std::string text) override;
    /// What was typed, without literals and prompts.
    [[nodiscard]] std::string ClipText() const;
    /// What is shown while the focus is elsewhere.
    [[nodiscard]] std::string FormattedText() const;
    /// Literals and prompts included, whatever PromptInclude says: what a front end shows while the box has the focus.
    [[nodiscard]] const std::string& shownText() const noexcept { return rawText(); }

    /// Characters that do not fit raise ValidationError and are left out.
    bool insert(std::string_view text) override;
    bool erase(bool forward = false) override;
    [[nodiscard]] std::optional<Value> property(std::string_view name) const override;

    std::function<void()> ValidationError;

private:
    [[nodiscard]] char32_t prompt() const;
    void clearRange(std::u32string& cells, int start, int length) const;
    /// Puts one character at or behind the caret; false when it has no place.
    bool typeAt(std::u32string& cells, int& caret, char32_t character) const;

    std::string pattern_, promptChar_ = "_", format_;
    forms::Mask mask_;
    bool promptInclude_ = true, allowPrompt_ = false;
};

} // namespace zel::forms
