#include "ado/convert.h"
#include "core/data_controls.h"
#include "core/failure.h"
#include "core/lists.h"
#include "core/modData.h"
#include "core/screen.h"
#include "core/session.h"
#include "core/suite.h"
#include "personnel/frmPersonnel.h"
#include "services/control_groups.h"
#include "services/list_columns.h"
#include "services/list_rows.h"
#include "services/masked_value.h"

/// What the person screen lists and shows.
namespace zel::personnel {

using ado::Sql;
using core::Moving;
namespace column = core::incident_column;

namespace {

constexpr int disabledGrey = 0xC0C0C0;
constexpr int statusCodeColumn = 2;

Sql recordSource(const core::Session& session) {
    const Sql all(
        "SELECT qrySelectPersonnel.* FROM (qrySelectPersonnel INNER JOIN L_Kind ON qrySelectPersonnel.KindCode = "
        "L_Kind.KindCode) LEFT JOIN L_Status ON qrySelectPersonnel.PStatus = L_Status.Code WHERE "
        "((qrySelectPersonnel.PStatus Is Null or ((L_Status.ZEL)=1) AND ((L_Kind.RequestCat)='O'))) ORDER BY "
        "qrySelectPersonnel.LnFn");
    return session.gManageAll ? all : core::AddWhere("IncidentID=" + Sql::of(session.gIncidentID), all);
}

} // namespace

void frmPersonnel::tbFormOpen() {
    opening([this] {
        adoCPersonnel.setRecordSource(recordSource(session));
        core::RebindDataControls(*this, session.connection(), session.suite.locator().Password(), session.gRefreshing);
        bindLists();
        translateStatuses();
        showRequestNumberTip();
        dbcIncidentMulti.each([this](forms::TDBCombo& box) { box.setVisible(session.gManageAll); });
        lblIncidentMulti.each([this](forms::Label& label) { label.setVisible(session.gManageAll); });
        if (!session.gManageAll)
            useDefaultAccount();
        fRebindIncident();
        enterPage(sides.at(static_cast<std::size_t>(tabAE.CurrTab())));
    });
}

void frmPersonnel::bindLists() {
    const Moving moving(session);
    core::LoadList(session, true, session.gAccountList, 1);
    const auto bind = [](const forms::ControlArray<forms::TDBCombo>& boxes, forms::ValueArray& list, int number) {
        boxes.each([&](forms::TDBCombo& box) {
            const std::string text = box.Text();
            services::SetListColumns(box, list, number, true);
            box.setText(text);
        });
    };
    bind(dbcIncidentMulti, session.gIncidentList, 5);
    bind(dbcAcct, session.gAccountList, 1);
    bind(dbcState, session.gStateList, 4);
    bind(dbcStatus, session.gStatusList, 6);
    bind(dbcKind, session.gKindList, 2);
    bind(dbcAgency, session.gAgencyList, 7);
    bind(dbcAreas, session.gAreaList, 8);
    bind(dbcClass, session.gClassList, 9);
}

void frmPersonnel::translateStatuses() {
    ado::Recordset statuses;
    statuses.Open("SELECT Code,Description FROM L_Status WHERE ZEL=1", session.connection(), ado::CursorType::Static,
                  ado::LockType::ReadOnly);
    forms::ValueItems& items = dbcPersonnel.Columns("Status").ValueItems;
    items.Clear();
    items.Translate = true;
    for (; !statuses.EOF_(); statuses.MoveNext())
        items.Add(ado::toText(statuses.value("Code")), ado::toText(statuses.value("Description")));
}

void frmPersonnel::useDefaultAccount() {
    session.gAccountingID = core::defaultAccount(session, session.gIncidentIndex);
    dbcAcct(addSide.page)
        .setText(services::listText(session.gIncidentList, session.gIncidentIndex, column::AccountingCode));
}

void frmPersonnel::fRebindIncident() {
    {
        const Moving moving(session);
        const std::int32_t person = session.gCurrentPersonID;
        adoCPersonnel.setRecordSource(recordSource(session));
        adoCPersonnel.Refresh();
        dbcPersonnel.ReBind();
        // Without a person to look for no row of the list is read.
        dbcPersonnel.setBoundText(person > 0 ? std::to_string(person) : std::string());
    }
    fRebindCurrentPerson();
}

bool frmPersonnel::hasPerson() const {
    return adoCPersonnel.isOpen() && dbcPersonnel.SelectedItem() >= 0 && core::HasRows(adoCPersonnel, true);
}

ado::Recordset& frmPersonnel::chosenPerson() {
    ado::Recordset& records = adoCPersonnel.Recordset();
    const std::string person = dbcPersonnel.BoundText();
    if (ado::toText(records.value("PersonID")) != person)
        records.Find("personid = " + person, 0, ado::SearchDirection::Forward, records.bookmarkAt(1));
    return records;
}

void frmPersonnel::fRebindCurrentPerson() {
    fClearPersonUpdate();
    if (hasPerson())
        showPerson(chosenPerson());
}

void frmPersonnel::showPerson(const ado::Recordset& person) {
    const Moving moving(session);
    const Side& side = editSide;
    const auto text = [&](const char* field) { return ado::toText(person.value(field)); };
    const auto show = [&](forms::MaskEdBox& box, const char* field) {
        // What another module wrote otherwise than the mask wants it leaves the box empty.
        core::skipFailures([&] { services::SetMaskedValue(session, box, text(field)); });
    };
    session.gCurrentPersonID = ado::toLong(person.value("PersonID"));
    showIncident(person);
    showAccount(person);
    mskCrew(side.page).setText(text("RequestNumber"));
    lockRequestNumber(text("RequestNumber"));
    mskPersonnel(side.firstName).setText(text("FirstName"));
    mskPersonnel(side.lastName).setText(text("LastName"));
    show(mskPersonnel(side.ssn), "SSN");
    dbcKind(side.kind).setText(text("KindCode"));
    showStatus(person);
    dbcAgency(side.page).setText(text("AgencyCode"));
    mskRemarks(side.page).setText(text("Remarks"));
    for (const PlainField& field : addressBeforeState)
        mskPersAddress(side.*field.index).setText(text(field.column));
    dbcState(side.state).setText(text("State"));
    for (const PlainField& field : addressBehindState)
        show(mskPersAddress(side.*field.index), field.column);
    showPay(person);
    lblMergeNotify(1).setVisible(true);
}

void frmPersonnel::showIncident(const ado::Recordset& person) {
    if (!session.gManageAll)
        return;
    session.gIncidentID = ado::toLong(person.value("IncidentID"));
    reloadAccounts();
    const int row =
        services::FindListRow(session.gIncidentList, column::IncidentID, std::to_string(session.gIncidentID));
    dbcIncidentMulti(editSide.page).setText(services::listText(session.gIncidentList, row, column::IncidentName));
}

void frmPersonnel::showAccount(const ado::Recordset& person) {
    const ado::Value account = person.value("AccountingID");
    const std::int32_t id = account.isEmpty() ? 0 : ado::toLong(account);
    session.gAccountingID = id > 0 ? id : -1;
    dbcAcct(editSide.page).setText(id > 0 ? ado::toText(person.value("AccountingCode")) : std::string());
}

void frmPersonnel::showStatus(const ado::Recordset& person) {
    forms::TDBCombo& box = dbcStatus(editSide.status);
    const int row = services::FindListRow(session.gStatusList, statusCodeColumn, ado::toText(person.value("PStatus")));
    if (row >= 0)
        box.setSelectedItem(row);
    else
        box.setText(ado::toText(person.value("Status")));
}

void frmPersonnel::lockRequestNumber(const std::string& number) {
    // Such a person came with a crew or with equipment, whose number it is.
    const bool locked = number.starts_with('C') || number.starts_with('E');
    mskCrew(editSide.page).setEnabled(!locked);
    mskCrew(editSide.page).setBackColor(locked ? disabledGrey : forms::colors::automatic);
}

void frmPersonnel::clear(const Side& side) {
    const Moving moving(session);
    services::ClearMaskedBox(mskCrew(side.page));
    for (const int index : {side.firstName, side.lastName, side.ssn})
        services::ClearMaskedBox(mskPersonnel(index));
    for (const int index : {side.addr1, side.addr2, side.city, side.zip, side.phone, side.fax})
        services::ClearMaskedBox(mskPersAddress(index));
    for (const int index : {side.pointOfHire, side.currentRate})
        services::ClearMaskedBox(mskPayInfo(index));
    services::ClearMaskedBox(mskOtherRate(side.page));
    services::ClearMaskedBox(mskRemarks(side.page));
    for (forms::TDBCombo* box :
         {&dbcIncidentMulti(side.page), &dbcAcct(side.page), &dbcKind(side.kind), &dbcStatus(side.status),
          &dbcAgency(side.page), &dbcState(side.state), &dbcAreas(side.page), &dbcClass(side.page)})
        box->setText("");
    for (forms::CheckBox* box :
         {&chkContract(side.page), &ckPayInfo(side.initialEmployment), &ckPayInfo(side.returnTravel)})
        box->setValue(forms::CheckBox::unchecked);
    chkContract(side.page).setEnabled(false);
    mskPayInfo(side.currentRate).setEnabled(false);
    cboAD(side.page).setText("");
    fAD(cboAD(side.page));
}

void frmPersonnel::fClearPersonnelAdd() {
    clear(addSide);
    tabPersDetail(addSide.page).setCurrTab(0); // the address; who is paid how is not known yet
    // The next person is most often one of the same incident.
    if (session.gManageAll)
        session.gAccountingID = -1;
    else
        useDefaultAccount();
}

void frmPersonnel::fClearPersonUpdate() {
    clear(editSide);
    lockRequestNumber({});
}

void frmPersonnel::enterPage(const Side& side) {
    if (session.gManageAll) {
        // Either page has an incident of its own, whose accounts are listed.
        const int row = static_cast<int>(dbcIncidentMulti(side.page).SelectedItem());
        const std::string incident = services::listText(session.gIncidentList, row, column::IncidentID);
        if (!incident.empty()) {
            session.gIncidentID = static_cast<std::int32_t>(ado::numberAtHead(incident));
            reloadAccounts();
        }
    }
    takeAccount(side);
}

void frmPersonnel::takeIncident(const Side& side) {
    const int row = static_cast<int>(dbcIncidentMulti(side.page).SelectedItem());
    dbcAcct(side.page).setText("");
    enterPage(side);
    dbcAcct(side.page).setText(services::listText(session.gIncidentList, row, column::AccountingCode));
    takeAccount(side);
}

void frmPersonnel::reloadAccounts() {
    core::LoadList(session, true, session.gAccountList, 1);
    dbcAcct.each([](forms::TDBCombo& box) {
        const std::string text = box.Text();
        box.ReBind();
        box.setText(text);
    });
}

void frmPersonnel::takeAccount(const Side& side) {
    forms::TDBCombo& box = dbcAcct(side.page);
    session.gAccountingID = -1;
    if (const ado::Value chosen = box.SelectedItem() < 0 ? ado::Value() : box.Columns("AcctID").value();
        !chosen.isEmpty()) {
        session.gAccountingID = ado::toLong(chosen);
    } else if (side.page == editSide.page && hasPerson()) {
        // A code that the incident has no more stays with the person until another one is chosen.
        const ado::Recordset& person = chosenPerson();
        const ado::Value kept = person.value("AccountingID");
        if (!kept.isEmpty() && !box.Text().empty() && box.Text() == ado::toText(person.value("AccountingCode")))
            session.gAccountingID = ado::toLong(kept);
    }
}

} // namespace zel::personnel
