#pragma once

#include "ado/recordset.h"
#include "core/screen.h"
#include "forms/adodc.h"
#include "forms/buttons.h"
#include "forms/combo_box.h"
#include "forms/control_array.h"
#include "forms/label.h"
#include "forms/mask_ed_box.h"
#include "forms/tdb_combo.h"
#include "forms/vs_index_tab.h"
#include "personnel/personnel_fields.h"
#include "posting/clsBusiness.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace zel::personnel {

/// Adds and edits individuals: the order (a Resources row) and the person on it (a Persons row) as one record.
class frmPersonnel : public core::Screen {
public:
    explicit frmPersonnel(core::Session& state);

    void tbFormOpen() override;
    void tbFormClose() override;
    void tbNew() override { tabAE.setCurrTab(addSide.page); }
    void tbSave() override;
    void tbDelete() override;
    void tbRefresh() override { fRebindIncident(); }
    void tbFilter() override { fRebindIncident(); }
    /// Lists the persons of the current incident, or of all, and shows the one that was shown before.
    void fRebindIncident() override;
    /// Fills the edit page from the chosen person; without one it is empty.
    void fRebindCurrentPerson();
    void fClearPersonnelAdd();
    void fClearPersonUpdate();
    /// Shows and hides what depends on the employment type in the box.
    void fAD(forms::ComboBox& box);
    /// Puts the rate of area and class into Current Rate: 0 the add page, 1 the edit page.
    void fFixRates(int Index);
    /// Deletes an order that has neither persons nor equipment; false keeps it.
    bool fDeleteOldResource(std::int32_t ResourceID);
    [[nodiscard]] static std::string ReqNumCheck(std::string text) { return text; }

    forms::vsIndexTab tabAE{*this, "tabAE", "Add Personnel|Edit Personnel"};
    forms::Adodc adoCPersonnel{*this, "adoCPersonnel"};
    forms::TDBCombo dbcPersonnel{tabAE.onPage(1), "dbcPersonnel"};
    forms::ControlArray<forms::Label> lblPersonnel{"lblPersonnel"};
    forms::ControlArray<forms::MaskEdBox> mskCrew{"mskCrew"};
    forms::ControlArray<forms::Label> lblIncidentMulti{"lblIncidentMulti"};
    forms::ControlArray<forms::TDBCombo> dbcIncidentMulti{"dbcIncidentMulti"};
    forms::ControlArray<forms::TDBCombo> dbcAcct{"dbcAcct"};
    forms::ControlArray<forms::MaskEdBox> mskPersonnel{"mskPersonnel"};
    forms::ControlArray<forms::TDBCombo> dbcKind{"dbcKind"};
    forms::ControlArray<forms::TDBCombo> dbcStatus{"dbcStatus"};
    forms::ControlArray<forms::TDBCombo> dbcAgency{"dbcAgency"};
    forms::ControlArray<forms::ComboBox> cboAD{"cboAD"};
    forms::ControlArray<forms::CheckBox> chkContract{"chkContract"};
    forms::ControlArray<forms::Label> lblContract{"lblContract"};
    forms::ControlArray<forms::Label> lblOtherRate{"lblOtherRate"};
    forms::ControlArray<forms::MaskEdBox> mskOtherRate{"mskOtherRate"};
    forms::ControlArray<forms::MaskEdBox> mskRemarks{"mskRemarks"};
    forms::ControlArray<forms::vsIndexTab> tabPersDetail{"tabPersDetail"};
    forms::ControlArray<forms::MaskEdBox> mskPersAddress{"mskPersAddress"};
    forms::ControlArray<forms::TDBCombo> dbcState{"dbcState"};
    forms::ControlArray<forms::CheckBox> ckPayInfo{"ckPayInfo"};
    forms::ControlArray<forms::MaskEdBox> mskPayInfo{"mskPayInfo"};
    forms::ControlArray<forms::TDBCombo> dbcAreas{"dbcAreas"};
    forms::ControlArray<forms::TDBCombo> dbcClass{"dbcClass"};
    forms::ControlArray<forms::CommandButton> cmdSave{"cmdSave"};
    forms::ControlArray<forms::CommandButton> cmdClear{"cmdClear"};
    forms::ControlArray<forms::Label> lblMergeNotify{"lblMergeNotify"};

protected:
    [[nodiscard]] DumpLines dumpLines() const override;

private:
    // The controls and their events.
    void makeOrder(const Side& side);
    void makeAddress(const Side& side);
    void makePay(const Side& side);
    void makeButtons();
    void addLabel(forms::Place place, const Side& side, const char* caption);
    forms::MaskEdBox& addBox(const forms::ControlArray<forms::MaskEdBox>& boxes, int index, int maxLength,
                             const char* mask = "");
    void connect(const Side& side);
    void employmentKey(const Side& side, int& keyAscii);
    void leaveEmployment(const Side& side);
    void requestNumberKeyPress(const Side& side, int& keyAscii);
    void leaveRequestNumber(const Side& side);
    void enterPage(const Side& side);
    void takeIncident(const Side& side);
    void takeAccount(const Side& side);
    void reloadAccounts();
    void showMergeNotice();

    // The lists and the page shown.
    void bindLists();
    void showRequestNumberTip();
    void translateStatuses();
    void useDefaultAccount();
    [[nodiscard]] bool hasPerson() const;
    /// The record set of the list, on the person that the list shows.
    [[nodiscard]] ado::Recordset& chosenPerson();
    void clear(const Side& side);
    void showPerson(const ado::Recordset& person);
    void showIncident(const ado::Recordset& person);
    void lockRequestNumber(const std::string& number);
    void showAccount(const ado::Recordset& person);
    void showStatus(const ado::Recordset& person);
    void showPay(const ado::Recordset& person);

    // The checks of a save, in their order.
    [[nodiscard]] bool mayBeSaved(const Side& side);
    [[nodiscard]] bool ssnMayBeUsed(const Side& side);
    void normalise(const Side& side);
    [[nodiscard]] std::string findings(const Side& side);
    [[nodiscard]] bool ratesAreMeant(const Side& side);
    [[nodiscard]] bool contractIsMeant(const Side& side);

    // The save itself.
    void save(const Side& side);
    void add();
    void addOrder();
    void addPerson();
    void writeAddedPay(ado::Recordset& persons);
    void edit();
    void writeEditedPay(ado::Recordset& person);
    void writeNoPay(ado::Recordset& records) const;
    void writeAddress(ado::Recordset& records, const Side& side);
    [[nodiscard]] std::string ssnDigits(const Side& side) const;
    [[nodiscard]] ado::Value statusCode(const Side& side);
    [[nodiscard]] bool isContracted(const Side& side) const;
    [[nodiscard]] bool hasOtherRate(const Side& side) const;

    posting::clsBusiness business_{session};
    bool saving_ = false;
    std::int32_t resourceKey_ = 0; // of the order that is being added
};

} // namespace zel::personnel
