// The pages of crews and of equipment: whom and what they list.
#include "posting/frmPost.h"

#include "ado/convert.h"
#include "ado/recordset.h"
#include "core/modData.h"
#include "core/session.h"
#include "forms/tab_order.h"
#include "posting/post_columns.h"
#include "posting/post_statements.h"

namespace zel::posting {

using ado::Sql;
using ado::Value;

void frmPost::makeCrewPage() {
    makeEntryFields(crews);
    lblPost.add(tabPosting.onPage(crews), crewStopLabel).setCaption("* Stop Time");
    chkCrewLastDay.setCaption("Check here to Post Return Travel Day");
    chkCrewLastDay.Click = handler([this] { takeLastDay(crews); });
    const auto tellSelected = [this] {
        lblCrewMembers.setCaption("Crew Members:  (" + std::to_string(dblCrewMembers.SelBookmarks.Count()) +
                                  " selected)");
    };
    tellSelected();
    dblCrewMembers.SelChange = handler(tellSelected);
    for (const auto& [box, field] : {std::pair(0, "CrewInfo"), std::pair(1, "RequestNumber")}) {
        dbcCrew(box).addColumn(box == 0 ? "Crew" : "Request", field);
        dbcCrew(box).setListField(field);
        dbcCrew(box).setBoundColumn("ResourceID");
    }
    dbcCrew.on(&forms::TDBCombo::ItemChange, [this](int box) { handler([this, box] { takeCrew(box); })(); });
    dblCrewMembers.addColumn("Name", "Lnfn");
    dblCrewMembers.setListField("Lnfn");
    dblCrewMembers.setBoundColumn("PersonID");
    dblCrewMembers.setMultiSelect(true);
    addPersonPostColumns(dbgPostCrews);
    forms::setTabOrder({&dbcCrew(0), &dbcCrew(1), &dblCrewMembers, &dbcAcct(crews), &mskPost(2), &cboTime(2),
                        &cboTime(3), &mskPost(3), &cbPost(crews), &chkCrewLastDay, &cmdSave(crews), &cmdClear(crews),
                        &cmdDelete(crews), &cmdCrew(0), &cmdCrew(1), &cmdCrew(2), &dbgPostCrews});
    dbgPostCrews.AllowUpdate = false;
    // Crews are not posted yet: what would do it is out of reach.
    static constexpr const char* selections[] = {"Select &All", "Select &None", "&Invert Selection"};
    cmdCrew.each([](forms::CommandButton& button) {
        button.setCaption(selections[button.Index()]);
        button.setEnabled(false);
    });
    cmdSave(crews).setEnabled(false);
    cmdDelete(crews).setEnabled(false);
    cmdClear(crews).Click = handler([this] { fClearPost(crews); });
}

void frmPost::showCrews() {
    cmdPrint286.setCaption("Print OF288");
    lblCurrentPost.setCaption("Posting Crews");
    AdoSelect1.setRecordSource(statements::crews(session));
    AdoSelect1.Refresh();
    AdoSelect2.setRecordSource(statements::crewMembers());
    AdoSelect2.Refresh();
    showMembers(0);
    AdoPost.setRecordSource("Select * from PersonsPost order by ActivityDt, StartTime, StopTime");
    openPostings("PersonID=0", "");
    dbcCrew.each([this](forms::TDBCombo& crew) {
        if (!crew.isBound())
            crew.bind(AdoSelect1);
        crew.setText("");
    });
    if (!dblCrewMembers.isBound())
        dblCrewMembers.bind(AdoSelect2);
    if (dbgPostCrews.source() == nullptr)
        dbgPostCrews.bind(AdoPost);
    showAccount(crews);
}

void frmPost::takeCrew(int box) {
    const auto row = dbcCrew(box).SelectedItem();
    {
        const core::Moving moving(session);
        dbcCrew(1 - box).setSelectedItem(row);
    }
    fRebindCurrentCrew();
}

void frmPost::fRebindCurrentCrew() {
    const std::string crew = dbcCrew(0).BoundText();
    const Value account = dbcCrew(0).Columns("AccountingID").value();
    session.gAccountingID = account.isEmpty() || ado::toLong(account) < 1 ? -1 : ado::toLong(account);
    showAccount(crews);
    showMembers(crew.empty() ? 0 : ado::toLong(crew));
}

void frmPost::showMembers(std::int32_t crew) {
    AdoSelect2.setRecordSource(core::AddOrderBy(
        "LastName,FirstName", core::AddWhere("[ResourceID]=" + Sql::of(crew), statements::crewMembers()), -1));
    AdoSelect2.Refresh();
}

void frmPost::makeEquipmentPage() {
    static constexpr const char* captions[] = {"Contract Equipment", "Contract Crews", "Other Contracts"};
    optType.each([](forms::OptionButton& option) { option.setCaption(captions[option.Index()]); });
    optType.on(&forms::OptionButton::Click, [this](int type) { handler([this, type] { chooseType(type); })(); });
    dbcContractor.addColumn("Contractor", "ContractorName");
    dbcContractor.setBoundColumn("ContractorID");
    dbcContractor.ItemChange = handler([this] { fRebindCurrentContractor(); });
    for (const auto& [caption, field] : {std::pair("Request", "RequestNumber"), std::pair("Name", "Name")})
        dbcEquipment.addColumn(caption, field);
    dbcEquipment.setBoundColumn("EquipmentID");
    dbcAcct.add(tabPosting.onPage(equipment), equipment);
    lblEquipPost(0).setCaption("* Date");
    mskPostEquipPost(0).setMask(dateMask);
    mskPostEquipPost(0).setFormat("mm/dd/yyyy");
    addEquipmentPostColumns(dbgPostEquipment);
    dbgPostEquipment.Columns("Acct").setDropDown(&tdbDDAccts);
    dbgPostEquipment.AllowUpdate = false;
    makeButtons(equipment);
    forms::setTabOrder({&optType(0), &optType(1), &optType(2), &dbcContractor, &dbcEquipment, &dbcAcct(equipment),
                        &mskPostEquipPost(0), &cmdSave(equipment), &cmdClear(equipment), &cmdDelete(equipment),
                        &dbgPostEquipment});
    // Equipment is not posted yet: what would do it is out of reach.
    for (forms::Control* control : std::initializer_list<forms::Control*>{&mskPostEquipPost(0), &cmdSave(equipment),
                                                                          &cmdClear(equipment), &cmdDelete(equipment)})
        control->setEnabled(false);
}

void frmPost::showEquipment() {
    cmdPrint286.setCaption("Print OF286");
    lblCurrentPost.setCaption("Posting Equipment");
    AdoSelect1.setRecordSource(statements::contractors(session));
    AdoSelect1.Refresh();
    AdoSelect2.setRecordSource(statements::equipment(session) + " AND RequestNumber = '-100'");
    AdoSelect2.Refresh();
    AdoPost.setRecordSource("Select * from ContractorPost Where ContractorPostID=0");
    AdoPost.Refresh();
    if (!dbcContractor.isBound())
        dbcContractor.bind(AdoSelect1);
    if (!dbcEquipment.isBound())
        dbcEquipment.bind(AdoSelect2);
    if (dbgPostEquipment.source() == nullptr)
        dbgPostEquipment.bind(AdoPost);
    showAccount(equipment);
    {
        const core::Moving moving(session);
        optType(0).setValue(true);
    }
    chooseType(0);
}

void frmPost::chooseType(int type) {
    static constexpr const char* posting[] = {"Posting Equipment", "Posting Contract Crew", "Posting Other Contracts"};
    session.gContractType = type;
    session.gEquipTabOpen = true;
    lblCurrentPost.setCaption(posting[type]);
    dbcContractor.setText("");
    dbcEquipment.setText("");
    AdoSelect1.setRecordSource(statements::contractors(session));
    AdoSelect1.Refresh();
}

void frmPost::fRebindCurrentContractor() {
    const std::string contractor = dbcContractor.BoundText();
    const Sql all = statements::equipment(session);
    AdoSelect2.setRecordSource(all);
    ado::Recordset equipment;
    equipment.Open(all, session.connection());
    if (!contractor.empty())
        equipment.setFilter("ContractorID = " + Sql::of(ado::toLong(contractor)));
    AdoSelect2.setRecordset(std::move(equipment));
    dbcEquipment.setText("");
}

} // namespace zel::posting
