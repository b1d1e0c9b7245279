#pragma once

#include <string>

namespace zel::forms {

class Form;

enum class Buttons { OK, OKCancel, YesNo, YesNoCancel };
enum class Icon { None, Critical, Question, Exclamation, Information };
/// Numbered as the screens store them.
enum class Answer { OK = 1, Cancel = 2, Yes = 6, No = 7 };

// Each member has a default so that a call names only what it needs.
struct MessageBox {
    std::string text = {};
    std::string title = {};
    Buttons buttons = Buttons::OK;
    Icon icon = Icon::None;
    int defaultButton = 1; ///< from 1, in the order of the buttons
};

struct InputBox {
    std::string prompt = {};
    std::string title = {};
    std::string defaultText = {};
};

struct FileBox {
    bool save = false;
    std::string title = {};
    std::string filter = {}; ///< "Databases (*.mdb)|*.mdb|All files|*.*"
    std::string folder = {};
    std::string fileName = {};
};

/// The one way to a box. Each call returns when the clerk has answered.
///
/// One message, input or file box is open at a time: a question that comes up meanwhile (from an event handled while
/// the box waits) is held back until the box is closed. Timers hold their events back by themselves, see Timer.
/// Questions asked from inside a modal form are shown at once, over the form.
class Dialogs {
public:
    virtual ~Dialogs() = default;

    Answer message(const MessageBox& box);
    /// The short form: MsgBox("Data Saved", title).
    Answer message(std::string text, std::string title, Buttons buttons = Buttons::OK, Icon icon = Icon::None,
                   int defaultButton = 1);
    /// Cancel gives an empty text.
    std::string input(const InputBox& box);
    /// Cancel gives an empty path.
    std::string file(const FileBox& box);
    /// Shows the form and returns when it is hidden or unloaded. See Form::ShowModal.
    void modal(Form& form);

    /// Whether a message, input or file box waits for its answer.
    [[nodiscard]] bool boxOpen() const noexcept { return open_; }

protected:
    virtual Answer showMessage(const MessageBox& box) = 0;
    virtual std::string showInput(const InputBox& box) = 0;
    virtual std::string showFile(const FileBox& box) = 0;
    /// Returns when `form.visible()` is false.
    virtual void showModal(Form& form) = 0;
    /// Handles the front end's events until boxOpen() is false.
    virtual void waitForTurn() = 0;
    /// A front end whose show functions nest event loops calls this as soon as the clerk has answered, so that a
    /// question held back in an inner loop can go on; it has to end before the outer one can return.
    void answered() noexcept { open_ = false; }

private:
    class Turn;
    bool open_ = false;
};

/// The answer that stands for the default button of the box.
[[nodiscard]] Answer defaultAnswer(const MessageBox& box);

} // namespace zel::forms
