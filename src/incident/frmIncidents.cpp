#include "incident/frmIncidents.h"

#include "ado/convert.h"
#include "ado/error.h"
#include "ado/format.h"
#include "core/failure.h"
#include "core/frmMain.h"
#include "core/lists.h"
#include "core/modData.h"
#include "core/session.h"
#include "forms/form_registry.h"
#include "forms/tab_order.h"
#include "services/control_groups.h"
#include "services/list_columns.h"
#include "services/list_rows.h"
#include "services/masked_value.h"
#include "services/text_rules.h"

#include <fmt/format.h>

#include <array>
#include <vector>

namespace zel::incident {

using ado::Sql;
using ado::Value;
namespace column = core::incident_column;

namespace {

constexpr const char* numberMask = ">aa-aaa-aaaaaa";
constexpr const char* dateMask = "99/99/9999";
constexpr const char* zipMask = "99999-9999";

/// A box of both pages: its numbers, what it is called, the column it keeps, and where the list of incidents has it.
struct Field {
    std::array<int, 2> index; // add page, edit page
    const char* caption;
    const char* column;
    int listColumn;
    int width;
    const char* mask = "";
};

constexpr std::array<Field, 11> fields{{
    {{0, 10}, "* Incident Name", "IncidentName", column::IncidentName, 50},
    {{1, 11}, "* Incident Number", "IncidentNumber", column::IncidentNumber, 0, numberMask},
    {{2, 12}, "* Accounting Code", "AccountingCode", column::AccountingCode, 64},
    {{3, 13}, "Location", "IncidentLocation", column::IncidentLocation, 15},
    {{20, 21}, "Start Date", "StartDate", column::StartDate, 0, dateMask},
    {{4, 14}, "End Date", "EndDate", column::EndDate, 0, dateMask},
    {{5, 15}, "* Name", "AdminName", column::AdminName, 30},
    {{6, 16}, "* Address 1", "AdminAddr1", column::AdminAddr1, 30},
    {{7, 17}, "Address 2", "AdminAddr2", column::AdminAddr2, 30},
    {{8, 18}, "* City", "AdminCity", column::AdminCity, 30},
    {{9, 19}, "* Zip", "AdminZip", column::AdminZip, 0, zipMask},
}};

/// The numbers of the boxes by name, add page and edit page.
constexpr std::array<int, 2> codeBox{2, 12}, locationBox{3, 13}, startBox{20, 21}, endBox{4, 14}, zipBox{9, 19};
constexpr std::array<int, 2> incidentState{0, 2}, adminState{1, 3};

constexpr const char* adminInfo =
    "Administrative Office for Payment is connected with each agreement.  You can add the address information on the "
    "'Contracts' screen when you add or edit an agreement.  You can also add or edit addresses from the menu bar under "
    "'Incident Data' then 'Admin Office for Payment.'";

/// The incident with its default account. An account known to the shell narrows the edit to the default one.
Sql currentIncident(const core::Session& session) {
    const bool hasAccount = session.gAccountingID != -1;
    return (hasAccount
                ? Sql("Select Incidents.IncidentID as IncidentID, IncidentNumber, IncidentName, IncidentLocation, "
                      "StartDate, EndDate, ParentIncident, IncidentState, AdminName, AdminAddr1, AdminAddr2, "
                      "AdminCity, AdminState, AdminZip, AccountingID, AccountingCode, AccountingCodes.IncidentID as "
                      "aIncidentID FROM Incidents LEFT JOIN AccountingCodes ON Incidents.IncidentID = "
                      "AccountingCodes.IncidentID WHERE Incidents.IncidentID = ")
                : Sql("Select Incidents.IncidentID as IncidentID, IncidentNumber, IncidentName, IncidentLocation, "
                      "StartDate, EndDate, ParentIncident, IncidentState, AdminName, AdminAddr1, AdminAddr2, "
                      "AdminCity, AdminState, AdminZip, AccountingID, AccountingCode, AccountingCodes.IncidentID as "
                      "aIncidentID, IncidentDefault FROM Incidents LEFT JOIN AccountingCodes ON Incidents.IncidentID = "
                      "AccountingCodes.IncidentID WHERE Incidents.IncidentID = ")) +
           Sql::of(session.gIncidentID) + (hasAccount ? Sql(" and IncidentDefault = 1") : Sql());
}

constexpr ado::Words newIncident =
    "Select Incidents.IncidentID as IncidentID, IncidentNumber, IncidentName, IncidentLocation, StartDate, EndDate, "
    "ParentIncident, IncidentState, AdminName, AdminAddr1, AdminAddr2, AdminCity, AdminState, AdminZip, AccountingID, "
    "AccountingCode, AccountingCodes.IncidentID as aIncidentID, IncidentDefault FROM Incidents INNER JOIN "
    "AccountingCodes ON Incidents.IncidentID = AccountingCodes.IncidentID";

} // namespace

frmIncidents::frmIncidents(core::Session& state) : Screen(state, "frmIncidents") {
    setCaption("Incident Add/Edit");
    makePage(0);
    makePage(1);
    cmdDelete.Click = handler([this] {
        session.dialogs.message("Incidents must be deleted by using 'Tools'>'Delete Incident'.", session.app.Title);
    });
    cmdSave.on(&forms::CommandButton::Click, [this](int page) { handler([this, page] { save(page); })(); });
    cmdClear.on(&forms::CommandButton::Click, [this](int page) { handler([this, page] { clear(page); })(); });
}

void frmIncidents::makePage(int page) {
    const forms::Place place = tabAE.onPage(page);
    for (const Field& field : fields) {
        const int index = field.index.at(static_cast<std::size_t>(page));
        lblIncident.add(place, index).setCaption(field.caption);
        forms::MaskEdBox& box = mskIncident.add(place, index);
        box.setMask(field.mask);
        box.setMaxLength(field.width);
        if (std::string_view(field.mask) == dateMask)
            box.setFormat("mm/dd/yyyy");
        box.LostFocus = handler([&box] { box.setText(ado::upperCase(box.Text())); });
    }
    for (const int index :
         {incidentState.at(static_cast<std::size_t>(page)), adminState.at(static_cast<std::size_t>(page))})
        dbcState.add(place, index);
    lblNote.add(place, page)
        .setCaption("Note:  If additional account codes are needed, they can be added under Manage Incident Accounts.");
    lblAdminInfo.add(place, page);
    cmdSave.add(place, page).setCaption("&Save");
    cmdClear.add(place, page).setCaption("&Clear");
    orderTabs(page);
}

/// The states stand behind the location and the city.
void frmIncidents::orderTabs(int page) {
    const auto side = static_cast<std::size_t>(page);
    std::vector<forms::Control*> order;
    for (const Field& field : fields) {
        const int index = field.index.at(side);
        if (index == zipBox.at(side))
            order.push_back(&dbcState(adminState.at(side)));
        order.push_back(&mskIncident(index));
        if (index == locationBox.at(side))
            order.push_back(&dbcState(incidentState.at(side)));
    }
    order.insert(order.end(), {&cmdSave(page), &cmdClear(page)});
    if (page == 1)
        order.push_back(&cmdDelete);
    forms::setTabOrder(order);
}

void frmIncidents::tbFormOpen() {
    opening([this] {
        tbRefresh();
        fRebindIncident();
    });
}

void frmIncidents::tbRefresh() {
    dbcState.each([this](forms::TDBCombo& box) { services::SetListColumns(box, session.gStateList, 4, false); });
    lblAdminInfo.each([](forms::Label& label) { label.setCaption(adminInfo); });
}

void frmIncidents::tbDelete() {
    session.dialogs.message("To Delete an Incident you must use \"Tools\">\"Delete Incident\".", session.app.Title);
}

void frmIncidents::clear(int page) {
    const auto side = static_cast<std::size_t>(page);
    for (const Field& field : fields)
        services::ClearMaskedBox(mskIncident(field.index.at(side)));
    for (const int index : {incidentState.at(side), adminState.at(side)}) {
        dbcState(index).setBoundText("");
        dbcState(index).setText("");
    }
}

frmIncidents::Finding frmIncidents::duplicateTest(int index) {
    forms::MaskEdBox& box = mskIncident(index);
    box.setText(ado::upperCase(box.Text()));
    // The account code of the edit page lies beyond the test: an incident may be saved without one.
    if (index > 11)
        return Finding::Fine;
    const bool name = index == 0 || index == 10;
    const Sql condition = session.gServerDialect
                              ? (name ? Sql("IncidentName='") : Sql("IncidentNumber='")) + Sql::of(box.Text()) + "'"
                              : (name ? Sql("IncidentName=\"") : Sql("IncidentNumber=\"")) + Sql::of(box.Text()) + "\"";
    // The edited incident has the value itself; that one other has it too goes through.
    const std::int64_t allowed = index < 10 ? 0 : 1;
    if (core::CountRows(session.connection(), "Incidents", condition) > allowed)
        return Finding::Duplicate;
    return box.ClipText().empty() ? Finding::Missing : Finding::Fine;
}

std::string frmIncidents::findings(int page) {
    struct Tested {
        int index;
        const char* duplicate;
        const char* missing;
    };
    constexpr Tested name{0, "Duplicate entry in Incident Name.", "Incident Name is required."};
    constexpr Tested number{1, "Duplicate entry in Incident Number.", "Incident Number is required."};
    constexpr Tested code{2, "Duplicate entry in Incident Accounting Code.", "Accounting Code is required."};
    const std::vector<Tested> tested =
        page == 0 ? std::vector<Tested>{name, number} : std::vector<Tested>{name, number, code};
    std::string text;
    for (const Tested& test : tested) {
        const Finding finding = duplicateTest(test.index + (page == 0 ? 0 : 10));
        if (finding != Finding::Fine)
            text.append(finding == Finding::Duplicate ? test.duplicate : test.missing).append("\r\n");
    }
    return text;
}

void frmIncidents::save(int page) {
    const std::string text = findings(page);
    if (!text.empty()) {
        session.dialogs.message(text + "\r\nPlease check your values and save again.",
                                session.title(": Missing or Duplicate Information"), forms::Buttons::OK,
                                forms::Icon::Information);
        return;
    }
    try {
        if (page == 0)
            addIncident();
        else
            editIncident();
    } catch (const ado::Error& failure) {
        session.dialogs.message(
            failure.kind() == ado::ErrorKind::Constraint
                ? "Duplicate ID...Have computer tech check ID columns"
                : fmt::format("Err Number: {}\r\nErr Desc: {}", failure.number(), failure.description()),
            "Error Saving");
        return;
    }
    endSave();
}

void frmIncidents::addIncident() {
    ado::Recordset records;
    records.Open(newIncident, session.connection());
    records.AddNew();
    const std::int32_t incident = core::NextNumber(session.connection(), "Incidents");
    const std::int32_t account = core::NextNumber(session.connection(), "AccountingCodes");
    records.setValue("IncidentID", incident);
    records.setValue("IncidentName", mskIncident(0).Text());
    records.setValue("IncidentNumber", mskIncident(1).Text());
    records.setValue("aIncidentID", incident);
    records.setValue("AccountingID", account);
    records.setValue("AccountingCode", mskIncident(codeBox[0]).Text());
    records.setValue("IncidentDefault", session.gServerDialect ? 1 : -1);
    writeFields(records, 0);
    records.Update();
    session.gIncidentID = incident;
    if (const Value start = records.value("StartDate"); !start.isNull())
        session.gIncidentStart = ado::toText(start);
    savedIncident_ = incident;
    core::LoadList(session, true, session.gAccountList, 1);
    clear(0);
}

void frmIncidents::editIncident() {
    ado::Recordset records;
    records.Open(currentIncident(session), session.connection());
    savedIncident_ = ado::toLong(records.value("IncidentID"));
    if (session.gAccountingID == -1) {
        // An incident that came from another module without a code gets its first one.
        fAddAccountingCode(savedIncident_, mskIncident(codeBox[1]).Text());
        records.Requery();
    }
    records.setValue("IncidentName", mskIncident(10).Text());
    records.setValue("IncidentNumber", mskIncident(11).Text());
    if (!records.value("AccountingID").isNull())
        records.setValue("AccountingCode", mskIncident(codeBox[1]).Text());
    writeFields(records, 1);
    records.Update();
    core::LoadList(session, true, session.gAccountList, 1);
}

void frmIncidents::writeFields(ado::Recordset& records, int page) {
    const auto side = static_cast<std::size_t>(page);
    const auto text = [&](const std::array<int, 2>& index) { return mskIncident(index.at(side)).Text(); };
    const auto date = [&](const std::array<int, 2>& index) { return services::FormatMaskValue(text(index)); };
    records.setValue("IncidentLocation", text(locationBox));
    records.setValue("IncidentState", services::SelectedValue(dbcState(incidentState.at(side))));
    if (page == 0) {
        records.setValue("StartDate", date(startBox));
        records.setValue("EndDate", date(endBox));
    } else {
        records.setValue("EndDate", date(endBox));
        records.setValue("StartDate", date(startBox));
    }
    for (const Field& field : fields) {
        if (!std::string_view(field.column).starts_with("Admin"))
            continue;
        if (std::string_view(field.column) == "AdminZip")
            records.setValue("AdminState", services::SelectedValue(dbcState(adminState.at(side))));
        records.setValue(field.column, text(field.index));
    }
}

void frmIncidents::endSave() {
    core::LoadList(session, false, session.gIncidentList, 5);
    core::SelectIncident(session, savedIncident_);
    auto* shell = dynamic_cast<core::frmMain*>(session.forms.shell());
    if (shell != nullptr) {
        // The boxes keep what they show, so that this screen finds an incident selected; they were never bound when
        // the program started without one.
        if (shell->dbcIncident(0).isBound())
            shell->dbcIncident.each([](forms::TDBCombo& box) { services::RebindList(box); });
        else
            shell->bindIncidents();
    }
    fRebindIncident();
    if (shell != nullptr)
        shell->showIncident();
    mskIncident(fields.front().index.at(static_cast<std::size_t>(tabAE.CurrTab()))).SetFocus();
}

void frmIncidents::fAddAccountingCode(std::int32_t IncidentID, const std::string& AccountingCode) {
    if (AccountingCode.empty() || IncidentID < 0)
        return;
    const std::int32_t key = core::NextNumber(session.connection(), "AccountingCodes", "AccountingID");
    session.connection().Execute(
        "Insert Into AccountingCodes(AccountingID, IncidentID, AccountingCode, IncidentDefault) values (" +
        Sql::of(key) + ", " + Sql::of(IncidentID) + ", '" + Sql::of(AccountingCode) + "', 1)");
}

void frmIncidents::fRebindCurrentIncident() {
    clear(1);
    auto* shell = dynamic_cast<core::frmMain*>(session.forms.shell());
    if (shell != nullptr && (shell->dbcIncident(0).Text().empty() || shell->dbcIncident(1).Text().empty())) {
        shell->dbcIncident.each([](forms::TDBCombo& box) { box.setText(""); });
        tabAE.setCurrTab(0);
        return;
    }
    const int row =
        services::FindListRow(session.gIncidentList, column::IncidentID, std::to_string(session.gIncidentID));
    if (row < 0)
        return;
    for (const Field& field : fields) {
        Value value = session.gIncidentList(row, field.listColumn);
        if (std::string_view(field.mask) == dateMask)
            value = ado::format(value, "mm/dd/yyyy");
        services::SetMaskedValue(session, mskIncident(field.index[1]), value);
    }
    dbcState(incidentState[1]).setBoundText(services::listText(session.gIncidentList, row, column::IncidentState));
    dbcState(adminState[1]).setBoundText(services::listText(session.gIncidentList, row, column::AdminState));
    tabAE.setCurrTab(1);
}

core::Screen::DumpLines frmIncidents::dumpLines() const {
    return {{"gIncidentID", std::to_string(session.gIncidentID)}, {"IncidentID", std::to_string(savedIncident_)}};
}

} // namespace zel::incident
