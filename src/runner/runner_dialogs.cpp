#include "runner/runner_dialogs.h"

#include <fmt/format.h>

namespace zel::runner {

forms::Answer RunnerDialogs::showMessage(const forms::MessageBox& box) {
    count();
    if (mirror)
        mirror([&box](forms::Dialogs& window) { (void)window.message(box); });
    return ScriptedDialogs::showMessage(box);
}

std::string RunnerDialogs::showInput(const forms::InputBox& box) {
    count();
    if (mirror)
        mirror([&box](forms::Dialogs& window) { (void)window.input(box); });
    return ScriptedDialogs::showInput(box);
}

std::string RunnerDialogs::showFile(const forms::FileBox& box) {
    count();
    if (mirror)
        mirror([&box](forms::Dialogs& window) { (void)window.file(box); });
    return ScriptedDialogs::showFile(box);
}

void RunnerDialogs::showModal(forms::Form& form) {
    count();
    ScriptedDialogs::showModal(form);
}

void RunnerDialogs::count() {
    if (answersLeft() > 0)
        return;
    if (++unanswered_ > unansweredLimit && stuck)
        stuck(fmt::format("the program asks without end; the last of {} boxes without an answer says: {}",
                          unansweredLimit, shown().empty() ? "" : shown().back().text));
}

} // namespace zel::runner
