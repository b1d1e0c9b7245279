#pragma once

#include "ado/recordset.h"
#include "core/screen.h"
#include "forms/buttons.h"
#include "forms/control_array.h"
#include "forms/label.h"
#include "forms/mask_ed_box.h"
#include "forms/tdb_combo.h"
#include "forms/vs_index_tab.h"

#include <cstdint>
#include <string>

namespace zel::incident {

/// Adds an incident, or edits the one that is selected in the shell, together with its default account code. Incidents
/// are never deleted here.
class frmIncidents : public core::Screen {
public:
    explicit frmIncidents(core::Session& state);

    void tbFormOpen() override;
    void tbNew() override { tabAE.setCurrTab(0); }
    void tbSave() override { cmdSave(tabAE.CurrTab()).press(); }
    void tbDelete() override;
    void tbRefresh() override;
    void fRebindIncident() override { fRebindCurrentIncident(); }
    /// Fills the edit page from the incident of the shell; without one the add page comes to the front.
    void fRebindCurrentIncident();
    /// Gives an incident a default account code; nothing happens without a code or an incident.
    void fAddAccountingCode(std::int32_t IncidentID, const std::string& AccountingCode);

    forms::vsIndexTab tabAE{*this, "tabAE", "Add Incident|Edit Incident"};
    forms::ControlArray<forms::Label> lblIncident{"lblIncident"};
    forms::ControlArray<forms::MaskEdBox> mskIncident{"mskIncident"};
    forms::ControlArray<forms::TDBCombo> dbcState{"dbcState"};
    forms::ControlArray<forms::Label> lblNote{"lblNote"};
    forms::ControlArray<forms::Label> lblAdminInfo{"lblAdminInfo"};
    forms::ControlArray<forms::CommandButton> cmdSave{"cmdSave"};
    forms::ControlArray<forms::CommandButton> cmdClear{"cmdClear"};
    forms::CommandButton cmdDelete{tabAE.onPage(1), "cmdDelete", "&Delete"};

protected:
    [[nodiscard]] DumpLines dumpLines() const override;

private:
    /// What the duplicate test says of a field.
    enum class Finding { Fine = 0, Duplicate = 3, Missing = 4 };

    void makePage(int page);
    void orderTabs(int page);
    void clear(int page);
    [[nodiscard]] Finding duplicateTest(int index);
    [[nodiscard]] std::string findings(int page);
    void save(int page);
    void addIncident();
    void editIncident();
    void writeFields(ado::Recordset& records, int page);
    void endSave();

    std::int32_t savedIncident_ = 0;
};

} // namespace zel::incident
