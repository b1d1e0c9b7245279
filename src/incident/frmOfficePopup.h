#pragma once

#include "core/screen.h"
#include "forms/adodc.h"
#include "forms/buttons.h"
#include "forms/label.h"
#include "incident/office_fields.h"

namespace zel::incident {

/// Adds one administrative office without leaving the contracts screen.
class frmOfficePopup : public core::DialogWindow {
public:
    explicit frmOfficePopup(core::Session& state);

    /// The list of offices of the screen that asked; it is opened anew as the dialog closes and stands on a new office.
    void serve(forms::Adodc& offices) { offices_ = &offices; }

    forms::ControlArray<forms::Label> lblOffice{*this, "lblOffice", 6};
    forms::ControlArray<forms::MaskEdBox> mskOffice{*this, "mskOffice", 4};
    forms::TDBCombo dbcState{*this, "dbcState"};
    /// 0 Cancel, 1 Save.
    forms::ControlArray<forms::CommandButton> cmdSave{"cmdSave"};

private:
    void close(bool save);

    OfficeFields fields_{mskOffice, dbcState};
    forms::Adodc* offices_ = nullptr;
};

} // namespace zel::incident
