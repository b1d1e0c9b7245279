#include "personnel/frmPersonnel.h"

#include "ado/convert.h"
#include "core/failure.h"
#include "core/session.h"
#include "core/suite.h"
#include "forms/dialogs.h"

namespace zel::personnel {

namespace {

constexpr const char* moneyFormat = "$#,##0.00;($#,##0.00)";
constexpr const char* zipMask = "99999-9999";
constexpr const char* phoneMask = "(999) 999-9999";
constexpr int detailAddress = 0, detailPay = 1;

} // namespace

frmPersonnel::frmPersonnel(core::Session& state) : Screen(state, "frmPersonnel") {
    setCaption("Personnel Info / Edit");
    for (const Side& side : sides) {
        makeOrder(side);
        tabPersDetail.add(tabAE.onPage(side.page), side.page).setCaption("Address|Pay Information");
        makeAddress(side);
        makePay(side);
    }
    makeButtons();
    for (const Side& side : sides)
        connect(side);

    dbcPersonnel.setBoundColumn("PersonID");
    dbcPersonnel.setListField("LnFn");
    dbcPersonnel.bind(adoCPersonnel);
    for (const auto& [caption, field] : {std::pair{"Name", "LnFn"},
                                         {"Req. #", "RequestNumber"},
                                         {"SSN", "fSSN"},
                                         {"Kind", "KindCode"},
                                         {"Status", "PStatus"},
                                         {"Agency", "AgencyCode"}})
        dbcPersonnel.addColumn(caption, field);
    dbcPersonnel.ItemChange = handler([this] { fRebindCurrentPerson(); });
    tabAE.Click = handler([this] { enterPage(sides.at(static_cast<std::size_t>(tabAE.CurrTab()))); });
    // The next screen finds the person; what cannot be written any more does not hold this one.
    UnloadEvent = [this](bool&) { core::skipFailures([this] { tbFormClose(); }); };
}

void frmPersonnel::addLabel(forms::Place place, const Side& side, const char* caption) {
    constexpr int labelsOfAPage = 30;
    const int first = side.page * labelsOfAPage;
    int index = first;
    while (lblPersonnel.has(index))
        ++index;
    lblPersonnel.add(place, index).setCaption(caption);
}

forms::MaskEdBox& frmPersonnel::addBox(const forms::ControlArray<forms::MaskEdBox>& boxes, int index, int maxLength,
                                       const char* mask) {
    forms::MaskEdBox& box = boxes(index);
    box.setMaxLength(maxLength);
    box.setMask(mask);
    box.LostFocus = handler([&box] {
        if (box.Mask().empty())
            box.setText(ado::upperCase(box.Text()));
    });
    return box;
}

void frmPersonnel::makeOrder(const Side& side) {
    const forms::Place place = tabAE.onPage(side.page);
    addLabel(place, side, "* Request Number");
    mskCrew.add(place, side.page).setMaxLength(20);
    lblIncidentMulti.add(place, side.page).setCaption("* Incident");
    dbcIncidentMulti.add(place, side.page).setLocked(side.page == editSide.page);
    addLabel(place, side, "* Account Code");
    dbcAcct.add(place, side.page);
    addLabel(place, side, "* First Name");
    mskPersonnel.add(place, side.firstName);
    addBox(mskPersonnel, side.firstName, 20);
    addLabel(place, side, "* Last Name");
    mskPersonnel.add(place, side.lastName);
    addBox(mskPersonnel, side.lastName, 30);
    addLabel(place, side, "SSN");
    mskPersonnel.add(place, side.ssn);
    addBox(mskPersonnel, side.ssn, 0, "###-##-####");
    addLabel(place, side, "* Kind / Position");
    dbcKind.add(place, side.kind);
    addLabel(place, side, "* Status");
    dbcStatus.add(place, side.status);
    addLabel(place, side, "Agency");
    dbcAgency.add(place, side.page);
    addLabel(place, side, "* AD/Fed/Other");
    for (const char* type : {"AD", "FED", "OTHER"})
        cboAD.add(place, side.page).AddItem(type);
    chkContract.add(place, side.page).setCaption("Contracted Resource");
    chkContract(side.page).setEnabled(false);
    lblContract.add(place, side.page).setCaption("Only Available if OTHER is Selected Above");
    lblOtherRate.add(place, side.page).setCaption("Rate");
    mskOtherRate.add(place, side.page);
    addBox(mskOtherRate, side.page, 0).setFormat(moneyFormat);
    addLabel(place, side, "Remarks");
    mskRemarks.add(place, side.page);
    addBox(mskRemarks, side.page, 60);
}

void frmPersonnel::makeAddress(const Side& side) {
    struct Box {
        int Side::*index;
        const char* caption;
        int maxLength;
        const char* mask = "";
    };
    static constexpr Box boxes[] = {
        {&Side::addr1, "Address 1", 30}, {&Side::addr2, "Address 2", 30},       {&Side::city, "City", 20},
        {&Side::zip, "Zip", 0, zipMask}, {&Side::phone, "Phone", 0, phoneMask}, {&Side::fax, "Fax", 0, phoneMask}};
    const forms::Place place = tabPersDetail(side.page).onPage(detailAddress);
    for (const Box& box : boxes) {
        if (box.index == &Side::zip) {
            addLabel(place, side, "ST");
            dbcState.add(place, side.state);
        }
        addLabel(place, side, box.caption);
        mskPersAddress.add(place, side.*box.index);
        addBox(mskPersAddress, side.*box.index, box.maxLength, box.mask);
    }
}

void frmPersonnel::makePay(const Side& side) {
    const forms::Place place = tabPersDetail(side.page).onPage(detailPay);
    ckPayInfo.add(place, side.initialEmployment).setCaption("Initial Employment");
    ckPayInfo.add(place, side.returnTravel).setCaption("Return Travel");
    addLabel(place, side, "Point Of Hire");
    mskPayInfo.add(place, side.pointOfHire);
    addBox(mskPayInfo, side.pointOfHire, 0);
    addLabel(place, side, "Area");
    dbcAreas.add(place, side.page);
    addLabel(place, side, "Class");
    dbcClass.add(place, side.page);
    addLabel(place, side, "Current Rate");
    mskPayInfo.add(place, side.currentRate);
    addBox(mskPayInfo, side.currentRate, 0).setFormat(moneyFormat);
}

void frmPersonnel::makeButtons() {
    for (const Side& side : sides)
        cmdSave.add(tabAE.onPage(side.page), side.save).setCaption("&Save");
    cmdClear.add(tabAE.onPage(addSide.page), 1).setCaption("&Clear");
    cmdClear(1).Click = handler([this] { fClearPersonnelAdd(); });
    lblMergeNotify.add(tabAE.onPage(editSide.page), 1).setCaption("About merged resources");
    lblMergeNotify(1).Click = handler([this] { showMergeNotice(); });
}

void frmPersonnel::connect(const Side& side) {
    cmdSave(side.save).Click = handler([this, &side] { save(side); });
    mskCrew(side.page).KeyPress = [this, &side](int& keyAscii) { requestNumberKeyPress(side, keyAscii); };
    mskCrew(side.page).LostFocus = handler([this, &side] { leaveRequestNumber(side); });
    cboAD(side.page).KeyPress = [this, &side](int& keyAscii) { employmentKey(side, keyAscii); };
    cboAD(side.page).Click = handler([this, &side] { fAD(cboAD(side.page)); });
    cboAD(side.page).LostFocus = handler([this, &side] { leaveEmployment(side); });
    dbcIncidentMulti(side.page).ItemChange = handler([this, &side] { takeIncident(side); });
    dbcAcct(side.page).ItemChange = handler([this, &side] { takeAccount(side); });
    // The rate hangs on both: a class keeps its name from area to area.
    dbcAreas(side.page).ItemChange = handler([this, &side] { fFixRates(side.page); });
    dbcClass(side.page).ItemChange = handler([this, &side] { fFixRates(side.page); });
    fAD(cboAD(side.page));
    mskPayInfo(side.currentRate).setEnabled(false);
}

void frmPersonnel::tbFormClose() {
    if (!hasPerson())
        return;
    ado::Recordset& person = chosenPerson();
    if (person.EditMode() != ado::EditModeEnum::None)
        person.Update();
    session.gCurrentPersonID = ado::toLong(person.value("PersonID"));
    session.gCurrentResourceID = ado::toLong(person.value("ResourceID"));
}

void frmPersonnel::tbSave() {
    cmdSave(sides.at(static_cast<std::size_t>(tabAE.CurrTab())).save).press();
}

void frmPersonnel::tbDelete() {
    if (tabAE.CurrTab() == addSide.page) {
        core::guarded(session, [this] { fClearPersonnelAdd(); });
        return;
    }
    core::guarded(session, [this] {
        lblMergeNotify(1).setVisible(false);
        if (!hasPerson())
            return;
        const ado::Recordset& person = chosenPerson();
        const std::string resource = ado::toText(person.value("RResourceID"));
        const std::string key = ado::toText(person.value("PersonID"));
        if (!session.suite.makeResourceDeleter()->DeleteResources(session, resource, key, ","))
            return;
        session.gCurrentPersonID = -1;
        dbcPersonnel.setText("");
        fClearPersonUpdate();
        fRebindIncident();
    });
}

void frmPersonnel::showMergeNotice() {
    session.dialogs.message("Resources Merged:\r\n"
                            "This person has been Merged with another Incident Resource.\r\n"
                            "All shared attributes of the parent resource have been assumed by this person.\r\n"
                            "If the merge was performed in error you can *not* Undo,\r\n"
                            "instead you must delete this record and recreate it\r\n"
                            "along with any dependencies (posts and/or debits).\r\n"
                            "For more information on Resource Merging please select\r\n"
                            "'Settings' from the 'File' menu.",
                            session.title(": Resources Merged"));
}

core::Screen::DumpLines frmPersonnel::dumpLines() const {
    return {{"gCurrentPersonID", std::to_string(session.gCurrentPersonID)},
            {"gAccountingID", std::to_string(session.gAccountingID)},
            {"ResourceID", std::to_string(resourceKey_)}};
}

} // namespace zel::personnel
