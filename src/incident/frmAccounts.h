#pragma once

#include "ado/recordset.h"
#include "core/screen.h"
#include "forms/adodc.h"
#include "forms/buttons.h"
#include "forms/control_array.h"
#include "forms/label.h"
#include "forms/mask_ed_box.h"
#include "forms/tdb_combo.h"
#include "forms/tdb_grid.h"

#include <cstdint>
#include <string>

namespace zel::incident {

/// Lists the account codes of the current incident, or of all, and adds, edits and deletes them. An incident with codes
/// always has one default.
class frmAccounts : public core::Screen {
public:
    explicit frmAccounts(core::Session& state);

    void tbFormOpen() override;
    void tbSave() override { cmdSave.press(); }
    void tbDelete() override;
    void tbRefresh() override { fRebindIncident(); }
    void fRebindIncident() override;
    void fClearAE();

    forms::Adodc adoCAccounts{*this, "adoCAccounts"};
    forms::TDBGrid dbgAccounts{*this, "dbgAccounts"};
    forms::ControlArray<forms::CommandButton> cmdAE{*this, "cmdAE", 2};
    forms::Frame fraAE{*this, "fraAE"};
    forms::Label lblAE{fraAE, "lblAE"};
    forms::Label lblIncident{fraAE, "lblIncident", "* Incident"};
    forms::TDBCombo dbcIncident{fraAE, "dbcIncident"};
    forms::Label lblAcctCode{fraAE, "lblAcctCode", "* Accounting Code"};
    forms::MaskEdBox mskAcctCode{fraAE, "mskAcctCode"};
    forms::Label lblAgency{fraAE, "lblAgency", "Agency Code"};
    forms::TDBCombo dbcAgency{fraAE, "dbcAgency"};
    forms::CheckBox chkDefault{fraAE, "chkDefault"};
    forms::CommandButton cmdSave{fraAE, "cmdSave", "&Save"};
    forms::CommandButton cmdClose{*this, "cmdClose", "&Close"};

protected:
    [[nodiscard]] DumpLines dumpLines() const override;

private:
    struct Account {
        std::int32_t id = -1, incident = -1;
        std::string code, agency;
        bool isDefault = false;
    };

    void makeGrid();
    void openEntry(int index);
    void focusEntry();
    void takeIncident();
    /// The row the grid stands on; without one the id is -1.
    [[nodiscard]] Account currentAccount();
    [[nodiscard]] std::string saveFindings();
    void save();
    /// Settles the default box against the incident's default code, asking where it has to.
    /// Gives the key of the code that lost its place as default, -1 for none.
    std::int32_t settleDefault();
    std::int32_t askForNewDefault(ado::Recordset& defaults);
    void write();
    void refreshRows(std::int32_t account);

    void beforeInsert(bool& cancel);
    void beforeUpdate(bool& cancel);
    void afterGridWrite();
    [[nodiscard]] std::string tablesInUse(std::int32_t account);
    /// False when the clerk keeps the default code, or it is the only one.
    [[nodiscard]] bool passDefaultOn(const Account& account);
    void deleteAccount();

    std::int32_t incidentKey_ = -1, accountKey_ = -1;
};

} // namespace zel::incident
