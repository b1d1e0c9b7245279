#pragma once

#include "forms/scripted_dialogs.h"

#include <functional>
#include <string>

namespace zel::runner {

/// The boxes of a program without a window. A script that answers too few of them must not hang: a question that comes
/// back for ever, because its default is refused, ends in `stuck`.
class RunnerDialogs final : public forms::ScriptedDialogs {
public:
    /// As many boxes without an answer as one command may bring.
    static constexpr int unansweredLimit = 1000;

    /// Told why; does not return.
    std::function<void(const std::string& why)> stuck;
    /// Where there is a window, shows each message, input and file box there as well. The answer is the script's.
    std::function<void(const std::function<void(forms::Dialogs&)>& show)> mirror;
    void beginCommand() noexcept { unanswered_ = 0; }

protected:
    forms::Answer showMessage(const forms::MessageBox& box) override;
    std::string showInput(const forms::InputBox& box) override;
    std::string showFile(const forms::FileBox& box) override;
    void showModal(forms::Form& form) override;

private:
    void count();
    int unanswered_ = 0;
};

} // namespace zel::runner
