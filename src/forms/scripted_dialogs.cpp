#include "forms/scripted_dialogs.h"

#include "ado/convert.h"
#include "forms/buttons.h"
#include "forms/form.h"
#include "forms/user.h"

#include <utility>

namespace zel::forms {

namespace {

const char* nameOf(Buttons buttons) {
    static constexpr const char* names[] = {"OK", "OKCancel", "YesNo", "YesNoCancel"};
    return names[static_cast<int>(buttons)];
}

const char* nameOf(Icon icon) {
    static constexpr const char* names[] = {"none", "critical", "question", "exclamation", "information"};
    return names[static_cast<int>(icon)];
}

std::string nameOf(Answer answer) {
    switch (answer) {
    case Answer::OK:
        return "OK";
    case Answer::Cancel:
        return "Cancel";
    case Answer::Yes:
        return "Yes";
    case Answer::No:
        break;
    }
    return "No";
}

/// The button of a message box that the text names, or nothing when the box has no such button. Closing a box is
/// Cancel, and OK where there is nothing else.
std::optional<Answer> answerOf(Buttons buttons, std::string_view text) {
    std::string_view wanted = text;
    if (ado::equalIgnoringCase(text, "close") && buttons != Buttons::YesNo)
        wanted = buttons == Buttons::OK ? "OK" : "Cancel";
    const bool ok = buttons == Buttons::OK || buttons == Buttons::OKCancel;
    const bool cancel = buttons == Buttons::OKCancel || buttons == Buttons::YesNoCancel;
    for (Answer answer : {Answer::OK, Answer::Cancel, Answer::Yes, Answer::No}) {
        const bool there = answer == Answer::OK ? ok : answer == Answer::Cancel ? cancel : !ok;
        if (there && ado::equalIgnoringCase(nameOf(answer), wanted))
            return answer;
    }
    return std::nullopt;
}

/// A caption as it is read: "&Yes" is Yes, "Debits && Additions" is "Debits & Additions".
std::string faceOf(std::string_view caption) {
    std::string face;
    for (std::size_t i = 0; i < caption.size(); ++i) {
        if (caption[i] == '&' && ++i == caption.size())
            break;
        face += caption[i];
    }
    return face;
}

std::vector<CommandButton*> buttonsOf(const Form& form) {
    std::vector<CommandButton*> buttons;
    for (Control* control : form.controls()) {
        auto* button = dynamic_cast<CommandButton*>(control);
        if (button != nullptr && button->shown())
            buttons.push_back(button);
    }
    return buttons;
}

/// Texts of the labels of a form, line by line: what a clerk reads in it.
std::string textOf(const Form& form) {
    std::string text;
    for (Control* control : form.controls()) {
        const auto* label = dynamic_cast<Label*>(control);
        if (label == nullptr || !label->shown() || label->Caption().empty())
            continue;
        if (!text.empty())
            text += "\r\n";
        text += label->Caption();
    }
    return text;
}

std::string tail(const std::string& answer, std::string_view prefix) {
    return answer.substr(prefix.size());
}

} // namespace

std::vector<ShownBox> ScriptedDialogs::take() {
    return std::exchange(shown_, {});
}

Answer ScriptedDialogs::showMessage(const MessageBox& box) {
    Answer given = defaultAnswer(box);
    ShownBox shown{.kind = "message",
                   .title = box.title,
                   .text = box.text,
                   .icon = nameOf(box.icon),
                   .buttons = nameOf(box.buttons),
                   .defaultAnswer = nameOf(given),
                   .answer = {}};
    if (const auto prepared = next()) {
        if (const auto answer = answerOf(box.buttons, *prepared))
            given = *answer;
        else
            misfit(shown, *prepared);
    } else {
        shown.answered = false;
    }
    shown.answer = nameOf(given);
    shown_.push_back(std::move(shown));
    return given;
}

std::string ScriptedDialogs::showInput(const InputBox& box) {
    ShownBox shown{.kind = "input",
                   .title = box.title,
                   .text = box.prompt,
                   .icon = "none",
                   .buttons = "OKCancel",
                   .defaultAnswer = box.defaultText,
                   .answer = box.defaultText};
    if (const auto prepared = next()) {
        if (prepared->starts_with("text:"))
            shown.answer = tail(*prepared, "text:");
        else if (ado::equalIgnoringCase(*prepared, "Cancel") || ado::equalIgnoringCase(*prepared, "close"))
            shown.answer.clear();
        else if (!ado::equalIgnoringCase(*prepared, "OK"))
            misfit(shown, *prepared);
    } else {
        shown.answered = false;
    }
    shown_.push_back(shown);
    return shown.answer;
}

std::string ScriptedDialogs::showFile(const FileBox& box) {
    ShownBox shown{.kind = "file",
                   .title = box.title,
                   .text = box.fileName,
                   .icon = "none",
                   .buttons = "OKCancel",
                   .defaultAnswer = "",
                   .answer = {}};
    if (const auto prepared = next()) {
        if (prepared->starts_with("file:"))
            shown.answer = tail(*prepared, "file:");
        else if (!ado::equalIgnoringCase(*prepared, "Cancel") && !ado::equalIgnoringCase(*prepared, "close"))
            misfit(shown, *prepared);
    } else {
        shown.answered = false;
    }
    shown_.push_back(shown);
    return shown.answer;
}

void ScriptedDialogs::showModal(Form& form) {
    const auto buttons = buttonsOf(form);
    ShownBox shown;
    shown.kind = "form";
    shown.title = form.Caption();
    shown.text = textOf(form);
    shown.icon = "none";
    CommandButton* press = nullptr;
    for (CommandButton* button : buttons) {
        shown.buttons += (shown.buttons.empty() ? "" : "|") + faceOf(button->Caption());
        if (button->Default() && button->usable())
            press = button;
    }
    shown.defaultAnswer = press != nullptr ? faceOf(press->Caption()) : "close";
    std::string commands;
    if (const auto prepared = next()) {
        if (prepared->starts_with("form:"))
            commands = tail(*prepared, "form:");
        else
            press = buttonFor(buttons, *prepared, shown, press);
    } else {
        shown.answered = false;
    }
    shown.answer = !commands.empty() ? "form:" + commands : press != nullptr ? faceOf(press->Caption()) : "close";
    shown_.push_back(std::move(shown));
    act(form, press, commands);
}

CommandButton* ScriptedDialogs::buttonFor(const std::vector<CommandButton*>& buttons, const std::string& answer,
                                          const ShownBox& box, CommandButton* otherwise) const {
    if (ado::equalIgnoringCase(answer, "close"))
        return nullptr;
    for (CommandButton* button : buttons) {
        if ((ado::equalIgnoringCase(faceOf(button->Caption()), answer) ||
             ado::equalIgnoringCase(button->Caption(), answer)) &&
            button->usable())
            return button;
    }
    misfit(box, answer);
    return otherwise;
}

void ScriptedDialogs::act(Form& form, CommandButton* press, const std::string& commands) {
    if (!commands.empty()) {
        if (runCommands)
            runCommands(form, commands);
        else if (complain)
            complain("no commands can be run here: form:" + commands);
    } else if (press != nullptr) {
        User(form.forms()).click(*press);
    }
    // Whatever was done, nobody is left to close it; a form that refuses is taken away.
    if (form.Visible())
        form.Unload();
    if (form.Visible())
        form.Hide();
}

std::optional<std::string> ScriptedDialogs::next() {
    if (answers_.empty())
        return std::nullopt;
    std::string answer = std::move(answers_.front());
    answers_.pop_front();
    return answer;
}

void ScriptedDialogs::misfit(const ShownBox& box, const std::string& answer) const {
    if (complain)
        complain("the answer \"" + answer + "\" does not suit the " + box.kind + " \"" + box.title + "\"");
}

} // namespace zel::forms
