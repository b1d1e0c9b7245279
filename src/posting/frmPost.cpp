#include "posting/frmPost.h"

#include "ado/convert.h"
#include "ado/recordset.h"
#include "core/data_controls.h"
#include "core/failure.h"
#include "core/frmMain.h"
#include "core/lists.h"
#include "core/modData.h"
#include "core/session.h"
#include "core/suite.h"
#include "forms/form_registry.h"
#include "forms/tab_order.h"
#include "forms/user.h"
#include "platform/clock.h"
#include "posting/post_columns.h"
#include "posting/post_keys.h"
#include "posting/post_statements.h"
#include "services/grid_columns.h"
#include "services/list_columns.h"

#include <map>

namespace zel::posting {

using ado::Sql;
using forms::CheckBox;

frmPost::frmPost(core::Session& state) : Screen(state, "frmPost") {
    setCaption("Post Time");
    CkKeyPadEnterTab.setCaption("&Use Enter Key as Tab for Posting");
    makePersonPage();
    makeCrewPage();
    makeEquipmentPage();
    forms::setTabOrder({&CkKeyPadEnterTab, &cmdPrint286});
    connectPersonPage();
    connectGrid();
    tabPosting.Switch = [this](int oldPage, int, bool& cancel) {
        cancel = oldPage == persons && !dbgPersonnelPost.Update();
    };
    tabPosting.Click = handler([this] { opening([this] { showPage(tabPosting.CurrTab()); }); });
    cmdPrint286.Click = handler([this] { printForm(); });
    KeyPress = [this](int& key) { stepByKey(key); };
    UnloadEvent = [this](bool&) { core::skipFailures([this] { tbFormClose(); }); };
}

void frmPost::makeEntryFields(int page) {
    const forms::Place place = tabPosting.onPage(page);
    const int first = firstBox(page);
    dbcAcct.add(place, page);
    for (const int index : {first, first + 1}) {
        mskPost.add(place, index);
        cboTime.add(place, index);
    }
    mskPost(first).setMask(dateMask);
    mskPost(first).setFormat("mm/dd/yyyy");
    mskPost(first + 1).setLocked(true);
    mskPost(first + 1).setTabStop(false);
    cbPost.add(place, page);
    makeButtons(page);
}

void frmPost::makeButtons(int page) {
    const forms::Place place = tabPosting.onPage(page);
    cmdSave.add(place, page).setCaption("Commit &Posting");
    cmdClear.add(place, page).setCaption("&Clear");
    cmdDelete.add(place, page).setCaption("&Delete");
}

void frmPost::makePersonPage() {
    makeEntryFields(persons);
    cmdSave(persons).setDefault(true);
    static constexpr const char* captions[] = {"Account", "* Date",  "* Start Time", "* Stop Time",
                                               "Hours",   "Special", "Person"};
    int index = 0;
    for (const char* caption : captions)
        lblPost.add(tabPosting.onPage(persons), index++).setCaption(caption);
    chkLastDay.setCaption("Check here to Post Return Travel Day");
    dbcPersonnel.addColumn("Name", "LnFn");
    for (const auto& [caption, field] :
         {std::pair("PID", "PersonID"), std::pair("PStatus", "PStatus"), std::pair("FedCode", "FedCode"),
          std::pair("AcctID", "AccountingID"), std::pair("AcctCode", "AccountingCode"), std::pair("Area", "Area")})
        dbcPersonnel.addColumn(caption, field).setVisible(false);
    dbcPersonnel.setListField("LnFn");
    dbcPersonnel.setBoundColumn("PersonID");
    addPersonPostColumns(dbgPersonnelPost);
    dbgPersonnelPost.AllowDelete = true;
    dbgPersonnelPost.Columns(post_column::KindCode).setDropDown(&ddcKindCode);
    dbgPersonnelPost.Columns(post_column::AccountingID).setDropDown(&tdbDDAccts);
    ddcKindCode.setDataField("KindCode");
    tdbDDAccts.setDataField("AccountingID");
    tdbDDAccts.setValueTranslate(true);
    forms::setTabOrder({&dbcPersonnel, &dbcAcct(persons), &mskPost(0), &cboTime(0), &cboTime(1), &mskPost(1),
                        &cbPost(persons), &chkLastDay, &cmdSave(persons), &cmdClear(persons), &cmdDelete(persons),
                        &dbgPersonnelPost});
}

void frmPost::connectPersonPage() {
    dbcPersonnel.ItemChange = handler([this] { takePerson(); });
    dbcAcct.on(&forms::TDBCombo::ItemChange, [this](int box) { handler([this, box] { takeAccount(box); })(); });
    mskPost(0).GotFocus = handler([this] { fCheckPersonStatus(); });
    for (const int date : {firstBox(persons), firstBox(crews)})
        mskPost(date).Validate = [this, date](bool& keepFocus) { keepFocus = !validDate(date); };
    cbPost(0).Validate = [this](bool&) { cbPost(0).setText(ado::upperCase(cbPost(0).Text())); };
    cboTime.each([this](forms::ComboBox& box) {
        box.Validate = [this, index = box.Index()](bool&) {
            handler([this, index] { (void)fCheckPostField(FieldKind::cboTime, index); })();
        };
    });
    chkLastDay.Click = handler([this] { takeLastDay(persons); });
    cmdSave(persons).Click = handler([this] { savePerson(); });
    cmdClear(persons).Click = handler([this] { fClearPersonPost(); });
    cmdDelete(persons).Click = handler([this] { deletePersonPost(); });
}

void frmPost::loadTimes() {
    ado::Recordset times;
    times.Open("Select time from L_Time order by time", session.connection());
    // A ticket half keyed in outlives the lists.
    std::map<int, std::string> typed;
    cboTime.each([&typed](forms::ComboBox& box) {
        typed[box.Index()] = box.Text();
        box.Clear();
    });
    for (; !times.EOF_(); times.MoveNext()) {
        const std::string time = ado::toText(times.value(0));
        cboTime.each([&time](forms::ComboBox& box) { box.AddItem(time); });
    }
    cboTime.each([&typed](forms::ComboBox& box) { box.setText(typed[box.Index()]); });
}

void frmPost::loadStatuses() {
    ado::Recordset statuses;
    statuses.Open("SELECT Code,Description FROM L_Status WHERE ZEL=1", session.connection());
    statuses_ = forms::ValueArray::fromRecordset(statuses);
}

void frmPost::tbFormOpen() {
    opening([this] {
        if (session.gIncidentID < 1 && !session.gManageAll) {
            session.dialogs.message("Incident not identified.  Exit ZEL and try again.",
                                    session.title(": Incident Not Found"));
            return;
        }
        (void)dbgPersonnelPost.Update(); // lists that are read anew take no edits with them
        for (forms::Adodc* data : {&AdoSelect1, &AdoSelect2, &AdoPost})
            data->setRecordSource("Select * from PersonsPost where PersonsPostID = 0");
        core::RebindDataControls(*this, session.connection(), session.suite.locator().Password(), session.gRefreshing);
        loadLists();
        fRebindIncident();
    });
}

void frmPost::loadLists() {
    const core::Moving moving(session); // a list that is bound anew forgets its row, and no account goes with it
    loadTimes();
    loadStatuses();
    core::LoadList(session, !session.gManageAll, session.gAccountList, 1);
    dbcAcct.each([this](forms::TDBCombo& account) {
        services::SetListColumns(account, session.gAccountList, 1, !session.gManageAll);
    });
    services::SetListColumns(ddcKindCode, session.gKindList, 2, false);
    services::SetListColumns(tdbDDAccts, session.gAccountList, 1, !session.gManageAll);
    loadPremiums();
}

void frmPost::loadPremiums() {
    for (const int page : {persons, crews}) {
        const std::string chosen = cbPost(page).Text();
        services::FillPremiumList(session, cbPost(page),
                                  page == crews ? services::PremiumKind::Crews : services::PremiumKind::Persons, "");
        cbPost(page).setText(chosen);
    }
}

void frmPost::tbRefresh() {
    opening([this] { fRebindIncident(); });
}

void frmPost::tbFormClose() {
    (void)dbgPersonnelPost.Update();
    forms::RowList* list = nullptr;
    if (tabPosting.CurrTab() == persons)
        list = &dbcPersonnel;
    else if (tabPosting.CurrTab() == crews)
        list = &dblCrewMembers;
    if (list != nullptr && list->SelectedItem() >= 0) {
        session.gCurrentPersonID = ado::toLong(list->Columns("PersonID").value());
        if (const ado::Value resource = list->Columns("RResourceID").value(); !resource.isEmpty())
            session.gCurrentResourceID = ado::toLong(resource);
    }
    for (forms::Adodc* data : {&AdoSelect1, &AdoSelect2, &AdoPost})
        data->Close();
}

void frmPost::tbSave() {
    if (forms::CommandButton* button = cmdSave.find(tabPosting.CurrTab()))
        button->press();
}

void frmPost::tbDelete() {
    if (forms::CommandButton* button = cmdDelete.find(tabPosting.CurrTab()))
        button->press();
}

void frmPost::tbNew() {
    const int page = tabPosting.CurrTab();
    (page == equipment ? mskPostEquipPost(0) : mskPost(firstBox(page))).SetFocus();
}

void frmPost::fRebindIncident() {
    showPage(tabPosting.CurrTab());
}

void frmPost::showPage(int page) {
    switch (page) {
    case persons:
        showPersons();
        break;
    case crews:
        showCrews();
        break;
    default:
        showEquipment();
        break;
    }
}

void frmPost::showPersons() {
    cmdPrint286.setCaption("Print OF288");
    lblCurrentPost.setCaption("Posting Personnel");
    AdoSelect1.setRecordSource(statements::persons(session));
    AdoSelect1.Refresh();
    AdoSelect2.setRecordSource("Select * from persons where personid = 0");
    AdoSelect2.Refresh();
    AdoPost.setRecordSource("Select * from PersonsPost where PersonsPostID = 0");
    AdoPost.Refresh();
    AdoPost.setRecordSource("Select * from PersonsPost");
    if (dbcPersonnel.source() == nullptr)
        dbcPersonnel.bind(AdoSelect1);
    if (dbgPersonnelPost.source() == nullptr)
        dbgPersonnelPost.bind(AdoPost);
    standOnPerson();
    showAccount(persons);
    fRebindCurrentPerson();
}

void frmPost::standOnPerson() {
    // The rows are other ones now; choosing the same person again is no choice of the clerk's.
    const auto row =
        personInFront_ > 0 ? dbcPersonnel.findText(std::to_string(personInFront_), "PersonID") : std::int64_t{-1};
    dbcPersonnel.setText(row < 0 ? std::string() : dbcPersonnel.listText(row));
    personInFront_ = currentPerson();
    if (personInFront_ < 1)
        mPostAllowed_ = true;
    else if (session.gRefreshing)
        session.gAccountingID = accountInFront_; // the shell has taken the default of the incident
    LockPersGrid();
}

void frmPost::showAccount(int box) {
    dbcAcct(box).setText("");
    if (session.gAccountingID > 0) {
        const auto row = dbcAcct(box).findText(std::to_string(session.gAccountingID), "AcctID");
        if (row >= 0)
            dbcAcct(box).setText(dbcAcct(box).listText(row));
    }
}

void frmPost::takeAccount(int box) {
    const ado::Value account = dbcAcct(box).Columns("AcctID").value();
    session.gAccountingID = account.isEmpty() ? -1 : ado::toLong(account);
    if (box == persons)
        accountInFront_ = session.gAccountingID;
}

void frmPost::printForm() {
    auto* shell = dynamic_cast<core::frmMain*>(session.forms.shell());
    if (shell == nullptr)
        return;
    const auto keyOf = [](const char* letter, const ado::Value& id) {
        return id.isEmpty() ? std::string() : letter + ado::toText(id);
    };
    switch (tabPosting.CurrTab()) {
    case persons:
        shell->selectionKey = keyOf("P", dbcPersonnel.Columns("PID").value());
        shell->mnuRep288_Click();
        break;
    case crews:
        shell->selectionKey =
            keyOf("R", core::HasRows(AdoSelect1, true) ? AdoSelect1.Recordset().value("ResourceID") : ado::Value());
        shell->mnuRep288_Click();
        break;
    default:
        shell->selectionKey =
            dbcEquipment.isBound() ? keyOf("R", dbcEquipment.Columns("ResourceID").value()) : std::string();
        shell->mnuRep286_Click();
        break;
    }
}

core::Screen::DumpLines frmPost::dumpLines() const {
    return {{"mPostAllowed", ado::toText(ado::Value(mPostAllowed_))},
            {"gAccountingID", std::to_string(session.gAccountingID)},
            {"gInvoiceDate", session.gInvoiceDate}};
}

} // namespace zel::posting
