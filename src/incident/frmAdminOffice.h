#pragma once

#include "core/screen.h"
#include "forms/adodc.h"
#include "forms/buttons.h"
#include "forms/label.h"
#include "forms/tdb_grid.h"
#include "incident/office_fields.h"

namespace zel::incident {

/// Keeps the administrative offices for payment, from which an agreement takes its office. They belong to no incident.
class frmAdminOffice : public core::Screen {
public:
    explicit frmAdminOffice(core::Session& state);

    void tbFormOpen() override;
    void tbSave() override { cmdSave.press(); }
    void tbDelete() override;
    void tbRefresh() override { fRebindIncident(); }
    void fRebindIncident() override;

    forms::Adodc adoCAdminOffice{*this, "adoCAdminOffice"};
    forms::TDBGrid dbgOffice{*this, "dbgOffice"};
    forms::ControlArray<forms::CommandButton> cmdAE{*this, "cmdAE", 2};
    forms::Frame fraAE{*this, "fraAE"};
    forms::Label lblAE{fraAE, "lblAE"};
    forms::ControlArray<forms::Label> lblOffice{fraAE, "lblOffice", 6};
    forms::ControlArray<forms::MaskEdBox> mskOffice{fraAE, "mskOffice", 4};
    forms::TDBCombo dbcState{fraAE, "dbcState"};
    forms::CommandButton cmdSave{fraAE, "cmdSave", "&Save"};
    forms::CommandButton cmdClose{*this, "cmdClose", "&Close"};

protected:
    [[nodiscard]] DumpLines dumpLines() const override;

private:
    void makeGrid();
    void openEntry(int index);
    void save();
    void deleteOffice();
    [[nodiscard]] std::int32_t currentOffice();
    void refreshRows(std::int32_t office);

    OfficeFields fields_{mskOffice, dbcState};
    std::int32_t officeKey_ = -1;
};

} // namespace zel::incident
