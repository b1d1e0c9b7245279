#include "forms/dialogs.h"

#include "forms/form.h"
#include "forms/form_registry.h"

namespace zel::forms {

/// The one box that may be open: waits until the one before is closed.
class Dialogs::Turn {
public:
    explicit Turn(Dialogs& dialogs) : dialogs_(dialogs) {
        if (dialogs_.open_)
            dialogs_.waitForTurn();
        dialogs_.open_ = true;
    }
    ~Turn() { dialogs_.open_ = false; }
    Turn(const Turn&) = delete;
    Turn& operator=(const Turn&) = delete;

private:
    Dialogs& dialogs_;
};

Answer Dialogs::message(const MessageBox& box) {
    const Turn turn(*this);
    return showMessage(box);
}

Answer Dialogs::message(std::string text, std::string title, Buttons buttons, Icon icon, int defaultButton) {
    return message({std::move(text), std::move(title), buttons, icon, defaultButton});
}

std::string Dialogs::input(const InputBox& box) {
    const Turn turn(*this);
    return showInput(box);
}

std::string Dialogs::file(const FileBox& box) {
    const Turn turn(*this);
    return showFile(box);
}

void Dialogs::modal(Form& form) {
    if (open_)
        waitForTurn();
    FormRegistry& forms = form.forms();
    const FormRegistry::Action stay(forms); // the form outlives its own closing until the caller has read its answer
    forms.modal_.push_back(&form);
    form.Show();
    if (form.Visible())
        showModal(form);
    std::erase(forms.modal_, &form);
}

Answer defaultAnswer(const MessageBox& box) {
    switch (box.buttons) {
    case Buttons::OK:
        return Answer::OK;
    case Buttons::OKCancel:
        return box.defaultButton == 2 ? Answer::Cancel : Answer::OK;
    case Buttons::YesNo:
        return box.defaultButton == 2 ? Answer::No : Answer::Yes;
    case Buttons::YesNoCancel:
        break;
    }
    if (box.defaultButton == 3)
        return Answer::Cancel;
    return box.defaultButton == 2 ? Answer::No : Answer::Yes;
}

} // namespace zel::forms
