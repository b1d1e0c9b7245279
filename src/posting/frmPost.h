#pragma once

#include "core/screen.h"
#include "forms/adodc.h"
#include "forms/buttons.h"
#include "forms/combo_box.h"
#include "forms/control_array.h"
#include "forms/label.h"
#include "forms/mask_ed_box.h"
#include "forms/tdb_combo.h"
#include "forms/tdb_drop_down.h"
#include "forms/tdb_grid.h"
#include "forms/tdb_list.h"
#include "forms/value_array.h"
#include "forms/vs_index_tab.h"
#include "posting/clsBusiness.h"

#include <cstdint>
#include <string>

namespace zel::posting {

/// The posting screen: persons, crews and operators, equipment. A posting is one stretch of time on one day against one
/// account. Persons are posted here; the pages of crews and equipment show their lists.
class frmPost : public core::Screen {
public:
    explicit frmPost(core::Session& state);

    void tbFormOpen() override;
    void tbFormClose() override;
    void tbSave() override;
    void tbDelete() override;
    void tbNew() override;
    void tbRefresh() override;
    void fRebindIncident() override;

    /// What a field check says.
    enum class FieldResult { Good = 0, Missing = 4, Zero = 5, NoHours = 8, TooManyDays = 9 };
    enum class FieldKind { cboTime = 1, mskPost = 2, mskPostEquipPost = 3 };
    FieldResult fCheckPostField(FieldKind kind, int index);
    /// Whether the person may be posted: a postable status and an employment code.
    void fCheckPersonStatus();
    void fClearPersonPost();
    void fRebindCurrentPerson();
    void LockPersGrid();

    forms::Adodc AdoSelect1{*this, "AdoSelect1"}, AdoSelect2{*this, "AdoSelect2"}, AdoPost{*this, "AdoPost"};
    forms::Label lblCurrentPost{*this, "lblCurrentPost"};
    forms::CommandButton cmdPrint286{*this, "cmdPrint286"};
    forms::CheckBox CkKeyPadEnterTab{*this, "CkKeyPadEnterTab"};
    forms::vsIndexTab tabPosting{*this, "tabPosting", "Personnel|Crews/Operators|Equipment"};

    // Persons.
    forms::TDBCombo dbcPersonnel{tabPosting.onPage(0), "dbcPersonnel"};
    forms::Label lblPersonStatus{tabPosting.onPage(0), "lblPersonStatus"};
    forms::ControlArray<forms::TDBCombo> dbcAcct{"dbcAcct"};
    forms::ControlArray<forms::Label> lblPost{"lblPost"};
    forms::ControlArray<forms::MaskEdBox> mskPost{"mskPost"};
    forms::ControlArray<forms::ComboBox> cboTime{"cboTime"};
    forms::ControlArray<forms::ComboBox> cbPost{"cbPost"};
    forms::CheckBox chkLastDay{tabPosting.onPage(0), "chkLastDay"};
    forms::ControlArray<forms::CommandButton> cmdSave{"cmdSave"};
    forms::ControlArray<forms::CommandButton> cmdClear{"cmdClear"};
    forms::ControlArray<forms::CommandButton> cmdDelete{"cmdDelete"};
    forms::TDBGrid dbgPersonnelPost{tabPosting.onPage(0), "dbgPersonnelPost"};
    forms::TDBDropDown ddcKindCode{*this, "ddcKindCode"};
    forms::TDBDropDown tdbDDAccts{*this, "tdbDDAccts"};

    // Crews and operators.
    forms::ControlArray<forms::TDBCombo> dbcCrew{tabPosting.onPage(1), "dbcCrew", 2};
    forms::CheckBox chkCrewLastDay{tabPosting.onPage(1), "chkCrewLastDay"};
    forms::Label lblCrewMembers{tabPosting.onPage(1), "lblCrewMembers"};
    forms::TDBList dblCrewMembers{tabPosting.onPage(1), "dblCrewMembers"};
    forms::ControlArray<forms::CommandButton> cmdCrew{tabPosting.onPage(1), "cmdCrew", 3};
    forms::TDBGrid dbgPostCrews{tabPosting.onPage(1), "dbgPostCrews"};

    // Equipment.
    forms::ControlArray<forms::OptionButton> optType{tabPosting.onPage(2), "optType", 3};
    forms::TDBCombo dbcContractor{tabPosting.onPage(2), "dbcContractor"};
    forms::TDBCombo dbcEquipment{tabPosting.onPage(2), "dbcEquipment"};
    forms::ControlArray<forms::Label> lblEquipPost{tabPosting.onPage(2), "lblEquipPost", 1};
    forms::ControlArray<forms::MaskEdBox> mskPostEquipPost{tabPosting.onPage(2), "mskPostEquipPost", 1};
    forms::TDBGrid dbgPostEquipment{tabPosting.onPage(2), "dbgPostEquipment"};

protected:
    [[nodiscard]] DumpLines dumpLines() const override;

private:
    enum Page { persons = 0, crews = 1, equipment = 2 };
    /// The numbers of a page's date and hours box; its time boxes have the same numbers.
    static constexpr int firstBox(int page) { return page * 2; }
    static constexpr const char* dateMask = "99/99/9999";
    static constexpr int stopLabel = 3, crewStopLabel = 7; // in lblPost

    void makePersonPage();
    void makeEntryFields(int page);
    void makeButtons(int page);
    void makeCrewPage();
    void makeEquipmentPage();
    void connectPersonPage();
    void connectGrid();
    void loadLists();
    void loadTimes();
    void loadStatuses();
    void loadPremiums();

    void showPage(int page);
    void showPersons();
    void standOnPerson();
    void showCrews();
    void showEquipment();
    void showAccount(int box);
    void openPostings(const ado::Sql& filter, const std::string& sort);
    void takeCrew(int box);
    void fRebindCurrentCrew();
    void showMembers(std::int32_t crew);
    void chooseType(int type);
    void fRebindCurrentContractor();
    void fClearPost(int page);

    void takePerson();
    void takeAccount(int box);
    [[nodiscard]] std::int32_t currentPerson() const;
    [[nodiscard]] std::string personText(std::string_view column);
    void fillPremiums(const std::string& FedCode);
    void takeLastDay(int page);

    FieldResult checkTime(int index);
    FieldResult checkDate(int index);
    void refuseTime(int index);
    [[nodiscard]] bool validDate(int index);
    void stepByKey(int& key);

    void savePerson();
    void readLastInvoice();
    [[nodiscard]] std::string personFindings();
    [[nodiscard]] ado::DateTime boxTime(int index) const;
    [[nodiscard]] bool isZeroTime(int index) const;
    void postPerson();

    [[nodiscard]] bool cellMayStand(int column);
    [[nodiscard]] bool takeFromList(int column, forms::TDBDropDown& list, const char* refusal);
    void afterRowWritten();
    void endSplit();
    void tellGridFailure(const ado::Error& failure);
    [[nodiscard]] static bool isInvoiced(forms::TDBGrid& grid, std::int64_t row);
    static void lockInvoiced(forms::TDBGrid& grid);
    void deletePersonPost();
    void printForm();

    clsBusiness business_{session};
    forms::ValueArray statuses_; // code and description of those of this program
    bool mPostAllowed_ = true;
    std::int32_t accountInFront_ = -1;   // theirs, or the one chosen since
    std::int32_t personInFront_ = 0;     // kept while another page shows its own lists
    std::int32_t toldOfMissingCode_ = 0; // the person whose missing employment code was told of
};

} // namespace zel::posting
