#pragma once

#include "core/screen.h"
#include "forms/buttons.h"
#include "forms/control_array.h"
#include "forms/label.h"

namespace zel::core {

/// The icon of the confirmation dialogue.
enum class ConfirmIcon { None = 0, Critical = 1, Exclamation = 2, Question = 3, Information = 4 };

/// The confirmation dialogue, whose answer may stand for all that follows.
class frmConfirm : public DialogWindow {
public:
    explicit frmConfirm(Session& state);

    struct Question {
        std::string title, message, prompt;
        ConfirmIcon icon = ConfirmIcon::None;
        int defaultButton = 0;
        bool OverwriteMode = false, YesNoOnly = false;
    };
    void fill(const Question& question);

    [[nodiscard]] int Response() const noexcept { return response_; }

    /// Its Tag names the icon that the front end draws: "", "critical", "exclamation", "question", "information".
    forms::Label imgIcon{*this, "imgIcon"};
    forms::Label lblMessage{*this, "lblMessage"};
    forms::Label lblPrompt{*this, "lblPrompt"};
    forms::ControlArray<forms::CommandButton> cmdResponse{*this, "cmdResponse", 4};

protected:
    [[nodiscard]] DumpLines dumpLines() const override;

private:
    void respond(int index);
    void pressByKey(int& keyAscii);

    int response_ = -1;
};

/// Asks and waits for the answer, which also goes to vYNMS: the index of the button, -1 when the clerk closed the
/// dialogue without one.
int ConfirmDialog(Session& session, const std::string& title, const std::string& message, const std::string& prompt,
                  ConfirmIcon icon, int defaultButton, bool OverwriteMode, bool YesNoOnly);

} // namespace zel::core
