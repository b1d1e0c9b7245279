#include "ado/convert.h"
#include "core/failure.h"
#include "core/frmMain.h"
#include "core/settings.h"
#include "forms/form_registry.h"
#include "services/log_controls.h"

namespace zel::core {

namespace {

std::string text(bool flag) {
    return ado::toText(ado::Value(flag));
}

// The last part of a folder's path.
std::string lastPart(std::string folder) {
    while (folder.size() > 1 && folder.ends_with('/'))
        folder.pop_back();
    return folder.substr(folder.rfind('/') + 1);
}

// False when the clerk wants no dump after all.
bool chooseLogFolder(Session& session) {
    const std::string answer =
        session.dialogs.input({"What subdirectory would you like to store the debugging records in?",
                               session.title(": Debug Log(s) Path"), lastPart(session.gLogFolder)});
    if (answer.empty())
        return false;
    std::string folder = FixPath(answer);
    if (!folder.starts_with('/') || !session.files.folderExists(folder)) {
        folder = FixPath(session.app.Path) + FixPath(lastPart(answer));
        session.files.makeFolder(folder);
    }
    session.gLogFolder = folder;
    return true;
}

} // namespace

Screen::DumpLines frmMain::dumpLines() const {
    const Form* active = ActiveForm();
    return {
        {"ActiveForm", active == nullptr ? "" : active->Name()},
        {"PreLoad", text(session.PreLoad)},
        {"Loading", text(session.Loading)},
        {"Working", text(session.Working)},
        {"Reloading", text(session.Reloading)},
        {"Unloading", text(session.Unloading)},
        {"Validating", text(session.Validating)},
        {"TimeChanged(0)", text(session.TimeChanged[0])},
        {"TimeChanged(1)", text(session.TimeChanged[1])},
        {"mvarUserID", session.mvarUserID},
        {"vYNMS", std::to_string(session.vYNMS)},
        {"vYNMSc", text(session.vYNMSc)},
        {"vYNMSa", session.vYNMSa},
        {"KillT", text(session.KillT)},
        {"ErrMsg", session.ErrMsg},
        {"UpdFlag", std::to_string(session.UpdFlag)},
        {"UpdIndex", ado::toText(session.UpdIndex)},
        {"lMergeID", std::to_string(session.lMergeID)},
        {"App.PrevInstance", text(session.app.PrevInstance)},
    };
}

void frmMain::tbLogDump() {
    if (!chooseLogFolder(session))
        return;
    writeDump("======================================\r\n");
    for (Form* form : session.forms.forms()) {
        if (form != this)
            guarded(session, [form] { form->tbLogDump(); });
    }
}

} // namespace zel::core
