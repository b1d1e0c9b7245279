#pragma once

#include "forms/dialogs.h"

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zel::forms {

class CommandButton;

/// A box as it was shown and answered, in the words of the automation runner.
struct ShownBox {
    std::string kind; ///< message, input, file, form
    std::string title, text;
    std::string icon;    ///< none critical question exclamation information
    std::string buttons; ///< OK OKCancel YesNo YesNoCancel, or the captions on a form
    std::string defaultAnswer;
    std::string answer;
    bool answered = true; ///< false: no answer was prepared, the default was taken
};

/// Dialogs without a clerk: answers are prepared beforehand, and each box shown is kept. For tests and the runner.
///
/// An answer is OK, Cancel, Yes, No, a button's caption (mnemonic signs ignored), `text:...` for an input box,
/// `file:...` for a file box, `close`, or `form:...` for commands that run while a modal form waits. A box without an
/// answer takes its default: the default button, the default text, Cancel for a file, and for a form its default button
/// or its closing.
class ScriptedDialogs : public Dialogs {
public:
    void answer(std::string answer) { answers_.push_back(std::move(answer)); }
    [[nodiscard]] std::size_t answersLeft() const noexcept { return answers_.size(); }
    void forgetAnswers() { answers_.clear(); }

    [[nodiscard]] const std::vector<ShownBox>& shown() const noexcept { return shown_; }
    /// The boxes shown since the last call.
    std::vector<ShownBox> take();

    /// Runs the commands of a `form:` answer. Without one such an answer is an error.
    std::function<void(Form& form, const std::string& commands)> runCommands;
    /// Called for an answer that does not suit the box ("Yes" for an OK box); the default is taken then.
    std::function<void(const std::string& complaint)> complain;

protected:
    Answer showMessage(const MessageBox& box) override;
    std::string showInput(const InputBox& box) override;
    std::string showFile(const FileBox& box) override;
    void showModal(Form& form) override;
    void waitForTurn() override {}

private:
    [[nodiscard]] std::optional<std::string> next();
    [[nodiscard]] CommandButton* buttonFor(const std::vector<CommandButton*>& buttons, const std::string& answer,
                                           const ShownBox& box, CommandButton* otherwise) const;
    void act(Form& form, CommandButton* press, const std::string& commands);
    void misfit(const ShownBox& box, const std::string& answer) const;

    std::deque<std::string> answers_;
    std::vector<ShownBox> shown_;
};

} // namespace zel::forms
