#include "core/frmConfirm.h"

#include "ado/convert.h"
#include "core/start_up.h"
#include "forms/form_registry.h"

#include <array>
#include <string_view>

namespace zel::core {

namespace {

using Faces = std::array<std::string_view, 4>; // an empty face hides its button
constexpr Faces overwriteFaces{"", "Post Anyway", "Overwrite", "Cancel Post"};
constexpr Faces yesNoFaces{"&Yes", "", "&No", ""};
constexpr Faces allFaces{"&Yes", "Yes to &All", "&No", "N&o to All"};

constexpr std::string_view responseKeys = "yano"; // one for each button
constexpr std::array<const char*, 5> iconNames{"", "critical", "exclamation", "question", "information"};

} // namespace

frmConfirm::frmConfirm(Session& state) : DialogWindow(state, "frmConfirm") {
    cmdResponse.on(&forms::CommandButton::Click, [this](int index) { respond(index); });
    KeyPress = [this](int& keyAscii) { pressByKey(keyAscii); };
}

void frmConfirm::fill(const Question& question) {
    response_ = -1;
    session.vYNMS = -1;
    setCaption(question.title);
    lblMessage.setCaption(question.message);
    lblPrompt.setCaption(question.prompt);
    imgIcon.setTag(iconNames.at(static_cast<std::size_t>(question.icon)));
    const Faces& faces = question.OverwriteMode ? overwriteFaces : question.YesNoOnly ? yesNoFaces : allFaces;
    for (int index = 0; index < cmdResponse.Count(); ++index) {
        const std::string_view face = faces.at(static_cast<std::size_t>(index));
        cmdResponse(index).setCaption(std::string(face));
        cmdResponse(index).setVisible(!face.empty());
        cmdResponse(index).setDefault(index == question.defaultButton && !face.empty());
    }
    // Enter presses the button with the focus, which is why the default has it.
    if (question.defaultButton >= 0 && question.defaultButton < cmdResponse.Count())
        cmdResponse(question.defaultButton).SetFocus();
}

void frmConfirm::respond(int index) {
    response_ = index;
    session.vYNMS = index;
    Hide();
}

void frmConfirm::pressByKey(int& keyAscii) {
    if (keyAscii <= 0 || keyAscii > 127)
        return;
    const auto letter = ado::lowerCase(std::string(1, static_cast<char>(keyAscii)));
    const std::size_t index = responseKeys.find(letter);
    if (index == std::string_view::npos || !cmdResponse(static_cast<int>(index)).Visible())
        return;
    keyAscii = 0;
    cmdResponse(static_cast<int>(index)).press();
}

Screen::DumpLines frmConfirm::dumpLines() const {
    return {{"mvarResponse", std::to_string(response_)}};
}

int ConfirmDialog(Session& session, const std::string& title, const std::string& message, const std::string& prompt,
                  ConfirmIcon icon, int defaultButton, bool OverwriteMode, bool YesNoOnly) {
    auto* dialog = session.forms.get<frmConfirm>("frmConfirm");
    dialog->fill({title, message, prompt, icon, defaultButton, OverwriteMode, YesNoOnly});
    SetOnTop(*dialog);
    dialog->ShowModal();
    return session.vYNMS; // the dialogue itself may be gone
}

} // namespace zel::core
