#include "incident/frmAdminOffice.h"

#include "ado/convert.h"
#include "core/data_controls.h"
#include "core/failure.h"
#include "core/modData.h"
#include "core/session.h"
#include "core/suite.h"
#include "incident/entry_frame.h"
#include "services/masked_value.h"

namespace zel::incident {

using ado::Sql;

namespace {

constexpr ado::Words offices =
    "Select AdminOffice.AdminOfficeID, AdminOffice.Name, AdminOffice.Addr1, AdminOffice.Addr2, AdminOffice.City, "
    "AdminOffice.State, AdminOffice.zip from AdminOffice order by AdminOffice.Name";

} // namespace

frmAdminOffice::frmAdminOffice(core::Session& state) : Screen(state, "frmAdminOffice") {
    setCaption("Manage Administrative Offices For Payment");
    mskOffice.add(fraAE, 4);
    static constexpr const char* captions[] = {"* Office Name", "* Address 1", "Address 2", "* City", "* ST", "* Zip"};
    lblOffice.each([](forms::Label& label) { label.setCaption(captions[label.Index()]); });
    makeGrid();
    cmdAE(0).setCaption("&Add");
    cmdAE(1).setCaption("&Edit");
    fraAE.setVisible(false);
    LoadEvent = always([this] { tbFormOpen(); });
    cmdAE.on(&forms::CommandButton::Click, [this](int index) { handler([this, index] { openEntry(index); })(); });
    cmdSave.Click = handler([this] { save(); });
    cmdClose.Click = handler([this] { closeEntry(*this, fraAE); });
}

void frmAdminOffice::makeGrid() {
    struct Column {
        const char* caption;
        const char* field;
        int width; // twips: a name of thirty letters, a street, a town
    };
    static constexpr Column columns[] = {{"Office Name", "Name", 3600}, {"Address 1", "Addr1", 3200},
                                         {"Address 2", "Addr2", 3200},  {"City", "City", 2600},
                                         {"State", "State", 800},       {"Zip", "zip", 1500}};
    for (const Column& column : columns)
        dbgOffice.addColumn(column.caption, column.field).setWidth(column.width);
    dbgOffice.addColumn("AdminOfficeID", "AdminOfficeID").setVisible(false);
    dbgOffice.AllowUpdate = false;
    dbgOffice.bind(adoCAdminOffice);
}

void frmAdminOffice::tbFormOpen() {
    opening([this] {
        adoCAdminOffice.setRecordSource(offices);
        core::RebindDataControls(*this, session.connection(), session.suite.locator().Password(), session.gRefreshing);
        fields_.prepare(session);
        fRebindIncident();
    });
}

void frmAdminOffice::fRebindIncident() {
    adoCAdminOffice.setRecordSource(offices);
    adoCAdminOffice.Refresh();
    dbgOffice.ReBind();
}

std::int32_t frmAdminOffice::currentOffice() {
    const ado::Value id = dbgOffice.Columns("AdminOfficeID").value();
    return id.isEmpty() ? -1 : ado::toLong(id);
}

void frmAdminOffice::openEntry(int index) {
    const bool add = index == 0;
    if (!add && currentOffice() < 1)
        return;
    lblAE.setCaption(add ? "  Add Office Information" : "  Edit Office Information");
    fields_.clear();
    officeKey_ = add ? -1 : currentOffice();
    if (!add) {
        mskOffice.each([this](forms::MaskEdBox& box) {
            static constexpr const char* columns[] = {"Office Name", "Address 1", "Address 2", "City", "Zip"};
            services::SetMaskedValue(session, box, dbgOffice.Columns(columns[box.Index()]).value());
        });
        dbcState.setText(ado::toText(dbgOffice.Columns("State").value()));
    }
    fraAE.setVisible(true);
    mskOffice(0).SetFocus();
}

void frmAdminOffice::save() {
    if (lblAE.Caption().find("Add") != std::string::npos)
        officeKey_ = fields_.insert(session.connection());
    else
        fields_.update(session.connection(), officeKey_);
    refreshRows(officeKey_);
    fields_.clear();
    mskOffice(0).SetFocus();
}

void frmAdminOffice::refreshRows(std::int32_t office) {
    fRebindIncident();
    ado::Recordset& records = adoCAdminOffice.Recordset();
    if (office > 0 && core::FindRow(records, "AdminOfficeID", office))
        dbgOffice.setBookmark(records.bookmark());
}

void frmAdminOffice::tbDelete() {
    core::guarded(session, [this] { deleteOffice(); });
}

void frmAdminOffice::deleteOffice() {
    const Sql id = Sql::of(currentOffice());
    ado::Recordset found;
    found.Open("select * from AdminOffice where AdminOfficeID = " + id, session.connection());
    if (found.EOF_()) {
        session.dialogs.message("Could not find selected Admin Office.  Try again.", "Admin Office Not Found");
        return;
    }
    ado::Recordset agreements;
    agreements.Open("Select AdminOfficeID from Agreement where AdminOfficeID = " + id, session.connection());
    if (!agreements.EOF_()) {
        session.dialogs.message("Selected Admin Office is assigned to agreements.",
                                session.title(": Cannot Delete Admin Office"));
        return;
    }
    session.connection().Execute("delete from AdminOffice where AdminOfficeID = " + id);
    fRebindIncident();
}

core::Screen::DumpLines frmAdminOffice::dumpLines() const {
    return {{"AdminOfficeID", std::to_string(officeKey_)}};
}

} // namespace zel::incident
