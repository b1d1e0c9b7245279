#include "incident/frmAccounts.h"

#include "ado/convert.h"
#include "ado/error.h"
#include "core/data_controls.h"
#include "core/failure.h"
#include "core/lists.h"
#include "core/modData.h"
#include "core/open_database.h"
#include "core/session.h"
#include "core/suite.h"
#include "forms/form_registry.h"
#include "incident/entry_frame.h"
#include "services/list_columns.h"
#include "services/list_rows.h"

#include <fmt/format.h>

namespace zel::incident {

using ado::Sql;
using ado::Value;
using forms::Answer;
using forms::Buttons;
using forms::Icon;
namespace column = core::incident_column;

namespace {

constexpr int codeWidth = 64;

constexpr ado::Words allCodes =
    "Select Incidents.IncidentID as IIncidentID, IncidentNumber, IncidentName, ParentIncident, AccountingID, "
    "AccountingCode, AccountingCodes.IncidentID as IncidentID, AgencyCode, IncidentDefault FROM AccountingCodes LEFT "
    "OUTER JOIN Incidents ON AccountingCodes.IncidentID = Incidents.IncidentID order by IncidentName, IncidentDefault";

constexpr ado::Words codesOfOne =
    "Select Incidents.IncidentID as IIncidentID, IncidentNumber, IncidentName, ParentIncident, AccountingID, "
    "AccountingCode, AccountingCodes.IncidentID as IncidentID, AgencyCode, IncidentDefault FROM AccountingCodes LEFT "
    "OUTER JOIN Incidents ON AccountingCodes.IncidentID = Incidents.IncidentID WHERE AccountingCodes.IncidentID = ";

Sql recordSource(const core::Session& session) {
    if (session.gManageAll)
        return allCodes;
    return codesOfOne + Sql::of(session.gIncidentID) + " order by IncidentName, IncidentDefault";
}

Sql defaultCode(std::int32_t incident) {
    return "Select * from AccountingCodes where IncidentDefault = 1 and IncidentID = " + Sql::of(incident);
}

Sql otherCodes(std::int32_t incident, std::int32_t account) {
    return "Select * from AccountingCodes where IncidentID = " + Sql::of(incident) + " and AccountingID <> " +
           Sql::of(account);
}

bool isSet(const Value& flag) {
    return !flag.isEmpty() && ado::toBoolean(flag);
}

} // namespace

frmAccounts::frmAccounts(core::Session& state) : Screen(state, "frmAccounts") {
    setCaption("Manage Incident Accounts");
    makeGrid();
    cmdAE(0).setCaption("&Add");
    cmdAE(1).setCaption("&Edit");
    fraAE.setVisible(false);
    mskAcctCode.setMaxLength(codeWidth);
    chkDefault.setCaption("Set as Default Accounting Code For This Incident");
    LoadEvent = always([this] { tbFormOpen(); });
    cmdAE.on(&forms::CommandButton::Click, [this](int index) { handler([this, index] { openEntry(index); })(); });
    mskAcctCode.LostFocus = handler([this] { mskAcctCode.setText(ado::upperCase(mskAcctCode.Text())); });
    dbcIncident.LostFocus = handler([this] { takeIncident(); });
    dbcIncident.ItemChange = handler([this] { takeIncident(); });
    cmdSave.Click = handler([this] { save(); });
    cmdClose.Click = handler([this] { closeEntry(*this, fraAE); });
}

void frmAccounts::makeGrid() {
    dbgAccounts.addColumn("AcctID", "AccountingID").setVisible(false);
    dbgAccounts.addColumn("IncidentID", "IncidentID").setVisible(false);
    dbgAccounts.addColumn("Incident Name", "IncidentName").setWidth(4000);
    dbgAccounts.addColumn("Incident Default", "IncidentDefault").setWidth(2000);
    dbgAccounts.addColumn("Agency Code", "AgencyCode").setWidth(1800);
    dbgAccounts.addColumn("Accounting Code", "AccountingCode").setDataWidth(codeWidth);
    dbgAccounts.addColumn("IIncidentID", "IIncidentID").setVisible(false);
    dbgAccounts.AllowAddNew = true;
    dbgAccounts.AllowDelete = true;
    dbgAccounts.bind(adoCAccounts);
    dbgAccounts.BeforeInsert = [this](bool& cancel) { beforeInsert(cancel); };
    dbgAccounts.BeforeUpdate = [this](bool& cancel) { beforeUpdate(cancel); };
    dbgAccounts.AfterUpdate = handler([this] { afterGridWrite(); });
    // A row goes by the rules of the delete command, which looks for what hangs on the code.
    dbgAccounts.BeforeDelete = [this](bool& cancel) {
        cancel = true;
        tbDelete();
    };
}

void frmAccounts::tbFormOpen() {
    opening([this] {
        adoCAccounts.setRecordSource(recordSource(session));
        core::RebindDataControls(*this, session.connection(), session.suite.locator().Password(), session.gRefreshing);
        services::SetListColumns(dbcAgency, session.gAgencyList, 7, false);
        services::SetListColumns(dbcIncident, session.gIncidentList, 5, false);
        dbcIncident.setEnabled(session.gManageAll);
        fRebindIncident();
    });
}

void frmAccounts::fRebindIncident() {
    adoCAccounts.setRecordSource(recordSource(session));
    adoCAccounts.Refresh();
    dbgAccounts.ReBind();
}

void frmAccounts::fClearAE() {
    dbcAgency.setBoundText("");
    dbcAgency.setText("");
    mskAcctCode.setText("");
    chkDefault.setValue(forms::CheckBox::unchecked);
}

frmAccounts::Account frmAccounts::currentAccount() {
    Account account;
    const Value id = dbgAccounts.Columns("AcctID").value();
    if (id.isEmpty())
        return account;
    account.id = ado::toLong(id);
    if (const Value incident = dbgAccounts.Columns("IncidentID").value(); !incident.isEmpty())
        account.incident = ado::toLong(incident);
    account.code = ado::toText(dbgAccounts.Columns("Accounting Code").value());
    account.agency = ado::toText(dbgAccounts.Columns("Agency Code").value());
    account.isDefault = isSet(dbgAccounts.Columns("Incident Default").value());
    return account;
}

void frmAccounts::openEntry(int index) {
    const bool add = index == 0;
    const Account account = currentAccount();
    if (!add && account.id < 1)
        return;
    fClearAE();
    chkDefault.setEnabled(true);
    lblAE.setCaption(add ? "  Add Account" : "  Edit Account");
    if (add) {
        accountKey_ = -1;
        // The first code of an incident is its default.
        if (account.id < 1) {
            chkDefault.setValue(forms::CheckBox::checked);
            chkDefault.setEnabled(false);
        }
        if (!session.gManageAll) {
            incidentKey_ = session.gIncidentID;
            dbcIncident.setText(
                services::listText(session.gIncidentList, session.gIncidentIndex, column::IncidentName));
        }
    } else {
        accountKey_ = account.id;
        incidentKey_ = account.incident;
        dbcIncident.setText(ado::toText(dbgAccounts.Columns("Incident Name").value()));
        mskAcctCode.setText(account.code);
        dbcAgency.setText(account.agency);
        chkDefault.setValue(account.isDefault ? forms::CheckBox::checked : forms::CheckBox::unchecked);
    }
    fraAE.setVisible(true);
    focusEntry();
}

void frmAccounts::focusEntry() {
    if (dbcIncident.Enabled())
        dbcIncident.SetFocus();
    else
        mskAcctCode.SetFocus();
}

void frmAccounts::takeIncident() {
    const std::string typed = dbcIncident.Text();
    if (typed.empty())
        return;
    int row = services::FindListRow(session.gIncidentList, column::IncidentName, typed);
    if (row < 0)
        row = services::FindListRow(session.gIncidentList, column::IncidentNumber, typed);
    incidentKey_ = row < 0 ? -1 : ado::toLong(session.gIncidentList(row, column::IncidentID));
}

std::string frmAccounts::saveFindings() {
    std::string text;
    // An edited code keeps its incident, also where two incidents have one name.
    if (dbcIncident.Enabled())
        takeIncident();
    if (incidentKey_ < 0)
        text += "Cannot find selected Incident.\r\n";
    mskAcctCode.setText(ado::upperCase(mskAcctCode.Text()));
    if (mskAcctCode.Text().empty())
        text += "You MUST input an Accounting Code.\r\n";
    if (!dbcAgency.Text().empty() && services::FindListRow(session.gAgencyList, 0, dbcAgency.Text()) < 0)
        text += "Invalid Agency Code.\r\n";
    return text;
}

void frmAccounts::save() {
    const std::string text = saveFindings();
    if (!text.empty()) {
        session.dialogs.message(text + "\r\nCorrect any problems and save again!", "Save Errors", Buttons::OK,
                                Icon::Exclamation);
        return;
    }
    std::int32_t oldDefault = -1;
    try {
        oldDefault = settleDefault();
        write();
    } catch (const ado::Error& failure) {
        // The incident keeps its default when the new one could not be written.
        if (oldDefault > 0)
            session.connection().Execute("Update AccountingCodes set IncidentDefault = 1 Where AccountingID = " +
                                         Sql::of(oldDefault));
        if (core::IsDbError(failure.number()))
            session.dialogs.message("You cannot have duplicate Accounting Codes on the same Incident.",
                                    session.title(": Unique Accounting Code Required"), Buttons::OK, Icon::Information);
        else
            session.dialogs.message(
                fmt::format("Number: {}\r\nDescription: {}", failure.number(), failure.description()),
                session.title(": Error"));
        refreshRows(accountKey_);
        return;
    }
    refreshRows(accountKey_);
    fClearAE();
    core::LoadList(session, true, session.gAccountList, 1);
    chkDefault.setValue(forms::CheckBox::unchecked);
    chkDefault.setEnabled(true);
    focusEntry();
}

std::int32_t frmAccounts::settleDefault() {
    ado::Recordset defaults;
    defaults.Open(defaultCode(incidentKey_), session.connection());
    std::int32_t oldDefault = -1;
    if (chkDefault.isChecked() && !defaults.EOF_())
        oldDefault = askForNewDefault(defaults);
    if (chkDefault.isChecked())
        return oldDefault;
    if (defaults.EOF_()) {
        session.dialogs.message("No default Accounting Code set...Setting current Accounting Code as default for this "
                                "Incident.",
                                "No Default Accounting Code");
        chkDefault.setValue(forms::CheckBox::checked);
    } else if (ado::equalIgnoringCase(ado::toText(defaults.value("AccountingCode")), mskAcctCode.Text()) ||
               ado::toLong(defaults.value("AccountingID")) == accountKey_) {
        session.dialogs.message("You Must have a default accounting code. If you want to change it then\r\nselect the "
                                "account you wish to be the default and set it as default. ",
                                "Default account error");
        chkDefault.setValue(forms::CheckBox::checked);
    }
    return oldDefault;
}

std::int32_t frmAccounts::askForNewDefault(ado::Recordset& defaults) {
    const std::string old = ado::toText(defaults.value("AccountingCode"));
    const Answer answer = session.dialogs.message(
        fmt::format("Accounting Code {} is set as the default for this incident!\r\nDo you want to make {} the new "
                    "default for this incident?",
                    old, mskAcctCode.Text()),
        "Default Account Code Already Set", Buttons::YesNo, Icon::Question);
    if (answer != Answer::Yes) {
        chkDefault.setValue(forms::CheckBox::unchecked);
        return -1;
    }
    defaults.setValue("IncidentDefault", false);
    defaults.Update();
    return ado::toLong(defaults.value("AccountingID"));
}

void frmAccounts::write() {
    const Sql code = Sql::of(mskAcctCode.Text());
    const Sql agency = Sql::of(dbcAgency.Text());
    const bool ticked = chkDefault.isChecked();
    const Sql flag = session.gServerDialect ? (ticked ? Sql("1") : Sql("0")) : (ticked ? Sql("True") : Sql("False"));
    if (lblAE.Caption().find("Add") != std::string::npos) {
        accountKey_ = core::NextNumber(session.connection(), "AccountingCodes", "AccountingID");
        // The desktop insert goes by the order of the columns.
        const Sql head = session.gServerDialect
                             ? Sql("Insert into AccountingCodes (AccountingID,IncidentID,AccountingCode,AgencyCode,"
                                   "IncidentDefault) values (")
                             : Sql("Insert into AccountingCodes values (");
        session.connection().Execute(head + Sql::of(accountKey_) + "," + Sql::of(incidentKey_) + ",'" + code + "','" +
                                     agency + "'," + flag + ")");
        return;
    }
    session.connection().Execute("Update AccountingCodes set AccountingCode = '" + code + "', AgencyCode = '" + agency +
                                 "', IncidentDefault = " + flag + " Where IncidentID = " + Sql::of(incidentKey_) +
                                 " and AccountingID = " + Sql::of(accountKey_));
}

void frmAccounts::refreshRows(std::int32_t account) {
    fRebindIncident();
    ado::Recordset& records = adoCAccounts.Recordset();
    if (account > 0 && core::FindRow(records, "AccountingID", account))
        dbgAccounts.setBookmark(records.bookmark());
}

void frmAccounts::beforeInsert(bool& cancel) {
    const std::int32_t incident = session.gManageAll ? incidentKey_ : session.gIncidentID;
    if (services::FindListRow(session.gIncidentList, column::IncidentID, std::to_string(incident)) < 0) {
        session.dialogs.message("Incident not found.", session.title(": Error"));
        cancel = true;
        return;
    }
    dbgAccounts.Columns("AcctID").setValue(core::NextNumber(session.connection(), "AccountingCodes", "AccountingID"));
    dbgAccounts.Columns("IncidentID").setValue(incident);
}

void frmAccounts::beforeUpdate(bool& cancel) {
    std::string text;
    if (dbgAccounts.Columns("Accounting Code").Text().empty())
        text += "Accounting Code is required.\r\n";
    // A new row belongs to its incident by key; the name shows when the list is read anew.
    const bool isNew = dbgAccounts.row() == forms::TDBGrid::newRow;
    if (!isNew && dbgAccounts.Columns("Incident Name").Text().empty())
        text += "Incident Name is required.\r\n";
    if (!text.empty()) {
        session.dialogs.message(text + "Add required data...item not saved", session.title(":Data Missing"));
        cancel = true;
        dbgAccounts.CancelUpdate();
    }
}

void frmAccounts::afterGridWrite() {
    const Account written = currentAccount();
    if (written.id < 1)
        return;
    ado::Recordset defaults;
    defaults.Open(defaultCode(written.incident), session.connection());
    if (written.isDefault) {
        for (; !defaults.EOF_(); defaults.MoveNext()) {
            if (ado::toLong(defaults.value("AccountingID")) == written.id)
                continue;
            defaults.setValue("IncidentDefault", false);
            defaults.Update();
        }
    } else if (defaults.EOF_()) {
        session.dialogs.message("No default Accounting Code set...Setting current Accounting Code as default for this "
                                "Incident.",
                                "No Default Accounting Code");
        session.connection().Execute("Update AccountingCodes set IncidentDefault = 1 Where AccountingID = " +
                                     Sql::of(written.id));
    }
    core::LoadList(session, true, session.gAccountList, 1);
    refreshRows(written.id);
}

void frmAccounts::tbDelete() {
    core::guarded(session, [this] { deleteAccount(); });
}

void frmAccounts::deleteAccount() {
    const Account account = currentAccount();
    if (account.id < 1) {
        session.dialogs.message("Cannot find a valid Account Code.", session.title(": Delete Error"));
        return;
    }
    ado::Recordset found;
    found.Open("select * from AccountingCodes where AccountingID = " + Sql::of(account.id), session.connection());
    if (found.EOF_()) {
        session.dialogs.message("Could not find selected Account Code.  Try again.", "Account Code Not Found");
        return;
    }
    if (const std::string inUse = tablesInUse(account.id); !inUse.empty()) {
        session.dialogs.message("Selected Accounting Code in use in... \r\n" + inUse,
                                session.title(": Cannot Delete Accounting Code"), Buttons::OK, Icon::Critical);
        return;
    }
    if (account.isDefault && !passDefaultOn(account))
        return;
    session.connection().Execute("delete from AccountingCodes where AccountingID = " + Sql::of(account.id));
    core::LoadList(session, true, session.gAccountList, 1);
    fRebindIncident();
}

std::string frmAccounts::tablesInUse(std::int32_t account) {
    struct Use {
        ado::Words statement;
        const char* name;
    };
    static constexpr Use uses[] = {
        {"Select PersonID from PersonsPost where AccountingID = ", "PersonsPost "},
        {"Select PersonID from PersonsDebit where AccountingID = ", "PersonsDebit "},
        {"Select PersonID from Persons where AccountingID = ", "Persons "},
        {"Select ResourceID from Equipment where AccountingID = ", "Equpment "},
        {"Select ResourceID from ContractorAdjustments where AccountingID = ", "ContractorAdjustments "},
        {"Select ResourceID from ContractorPost where AccountingID = ", "ContractorPost "},
        {"Select ResourceID from Resources where AccountingID = ", "Resources "}};
    std::string names;
    for (const Use& use : uses) {
        ado::Recordset rows;
        rows.Open(use.statement + Sql::of(account), session.connection());
        if (!rows.EOF_())
            names += use.name;
    }
    return names;
}

bool frmAccounts::passDefaultOn(const Account& account) {
    ado::Recordset others;
    others.Open(otherCodes(account.incident, account.id), session.connection());
    if (others.EOF_()) {
        session.dialogs.message("The selected Account Code is the only Account Code for that incident!\r\nYou cannot "
                                "delete it.  Try to edit it or delete the incident.",
                                session.title(": Warning"));
        return false;
    }
    const std::string question = fmt::format(
        "The selected Account Code is the default for that incident.\r\nIf you continue, the new default Account Code "
        "will be...\t{}\t{}\r\n\r\nDo you want to delete the selected Account Code and make the above Account Code "
        "the new default?\r\nNote:  You can change the default after deleting this Account Code.",
        ado::toText(others.value("AccountingCode")), ado::toText(others.value("AgencyCode")));
    if (session.dialogs.message(question, session.title(":Delete Account Code?"), Buttons::YesNo, Icon::Question) !=
        Answer::Yes)
        return false;
    others.setValue("IncidentDefault", true);
    others.Update();
    return true;
}

core::Screen::DumpLines frmAccounts::dumpLines() const {
    return {{"IncidentID", std::to_string(incidentKey_)}, {"AccountingID", std::to_string(accountKey_)}};
}

} // namespace zel::incident
