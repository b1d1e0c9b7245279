#pragma once

#include "core/screen.h"
#include "forms/buttons.h"
#include "forms/control_array.h"
#include "forms/label.h"
#include "forms/progress_bar.h"

namespace zel::core {

/// Name and versions of the program; while it starts, also how far it is.
class frmAbout : public DialogWindow {
public:
    explicit frmAbout(Session& state);

    /// The face at start: no button, but the progress.
    void showLoading();
    /// Puts the versions of program, database and suite in.
    void showVersions();
    void finishLoading();
    /// The face of Help, About.
    void showAbout();

    forms::Label lblTitle{*this, "lblTitle", "Zelmark Hour Ledger"};
    forms::ControlArray<forms::Label> lblVersion{*this, "lblVersion", 6};
    forms::Label lblLoading{*this, "lblLoading", "Loading ZEL...Please Wait"};
    forms::Label lblStatus{*this, "lblStatus"};
    forms::ProgressBar prgBar{*this, "prgBar"};
    forms::CommandButton cmdOK{*this, "cmdOK", "OK"};
};

} // namespace zel::core
