#include "ado/convert.h"
#include "ado/error.h"
#include "core/failure.h"
#include "core/modData.h"
#include "core/session.h"
#include "forms/dialogs.h"
#include "forms/utf8.h"
#include "personnel/frmPersonnel.h"
#include "platform/clock.h"

#include <fmt/format.h>

/// How a person is written: a new pair of rows, or both rows of the pair through the list's view.
namespace zel::personnel {

using ado::Recordset;
using ado::Sql;
using ado::Value;

namespace {

/// A value that its column cannot hold is left out; the rest of the record is saved.
void put(Recordset& records, std::string_view column, const Value& value) {
    try {
        records.setValue(column, value);
    } catch (const ado::Error& failure) {
        if (failure.number() != ado::errors::errorsOccurred)
            throw;
    }
}

/// As shown, with its separators; empty while nothing was typed.
std::string maskedText(const forms::MaskEdBox& box) {
    return box.ClipText().empty() ? std::string() : box.Text();
}

/// "LAST,FIRST" as orders carry it, cut to the width they are printed in.
std::string orderName(const std::string& lastName, const std::string& firstName) {
    constexpr int printedWidth = 53;
    const std::string name = std::string(ado::trim(lastName)) + "," + std::string(ado::trim(firstName));
    return std::string(forms::utf8::middle(name, 0, printedWidth));
}

} // namespace

void frmPersonnel::save(const Side& side) {
    if (saving_)
        return;
    saving_ = true;
    try {
        enterPage(side);
        if (mayBeSaved(side)) {
            if (side.page == addSide.page)
                add();
            else if (hasPerson())
                edit();
        }
    } catch (const std::exception&) {
        const core::Failure failure = core::currentFailure();
        // What was typed stays on the page and is put again by the next save; left pending, the row would be written
        // when the clerk goes to another person.
        if (adoCPersonnel.isOpen())
            core::skipFailures([this] { adoCPersonnel.Recordset().CancelUpdate(); });
        if (failure.number != ado::errors::rowNotLocated)
            session.dialogs.message(fmt::format("Error: {} {}", failure.number, failure.description),
                                    session.title(":Error Saving"));
    }
    resourceKey_ = 0;
    saving_ = false;
}

void frmPersonnel::add() {
    addOrder();
    try {
        addPerson();
    } catch (const std::exception&) {
        // An order without its person would count in every list and could be found by none.
        core::skipFailures([this] { fDeleteOldResource(resourceKey_); });
        throw;
    }
    if (mskOtherRate(addSide.page).Visible())
        mskOtherRate(addSide.page).setText("");
    fRebindIncident();
    session.gLastSaved = session.clock.Now();
    fClearPersonnelAdd();
    mskCrew(addSide.page).SetFocus();
}

void frmPersonnel::addOrder() {
    const Side& side = addSide;
    Recordset resources;
    resources.Open("Resources", session.connection());
    resources.AddNew();
    put(resources, "IncidentID", session.gIncidentID);
    if (resourceKey_ < 1)
        resourceKey_ = core::NextNumber(session.connection(), "Resources");
    put(resources, "ResourceID", resourceKey_);
    put(resources, "RequestNumber", mskCrew(side.page).Text());
    const Value persons = resources.value("NumberPersonnel");
    put(resources, "NumberPersonnel", (persons.isEmpty() ? 0 : ado::toLong(persons)) + 1);
    put(resources, "AgencyCode", dbcAgency(side.page).Text());
    put(resources, "Name", orderName(mskPersonnel(side.lastName).Text(), mskPersonnel(side.firstName).Text()));
    put(resources, "KindCode", ado::upperCase(dbcKind(side.kind).Text()));
    put(resources, "Status", statusCode(side));
    put(resources, "AccountingID", session.gAccountingID);
    put(resources, "ContractedResource", isContracted(side));
    resources.Update();
}

void frmPersonnel::addPerson() {
    const Side& side = addSide;
    const std::string number = mskCrew(side.page).Text();
    Recordset persons;
    persons.Open("Persons", session.connection());
    persons.AddNew();
    put(persons, "PersonID", core::NextNumber(session.connection(), "Persons"));
    put(persons, "ResourceID", resourceKey_);
    if (number.starts_with('O'))
        put(persons, "OverheadID", resourceKey_);
    put(persons, "FirstName", mskPersonnel(side.firstName).Text());
    put(persons, "AccountingID", session.gAccountingID);
    put(persons, "LastName", mskPersonnel(side.lastName).Text());
    put(persons, "SSN", ssnDigits(side));
    put(persons, "PStatus", statusCode(side));
    put(persons, "AgencyCode", dbcAgency(side.page).Text());
    put(persons, "KindCode", ado::upperCase(dbcKind(side.kind).Text()));
    put(persons, "FedCode", cboAD(side.page).Text());
    put(persons, "Remarks", mskRemarks(side.page).Text());
    writeAddedPay(persons);
    writeAddress(persons, side);
    put(persons, "RequestNumber", number);
    persons.Update();
}

void frmPersonnel::writeAddedPay(Recordset& persons) {
    const Side& side = addSide;
    if (cboAD(side.page).Text() == "AD") {
        const std::string rate = mskPayInfo(side.currentRate).Text();
        const bool rated = !ado::trim(rate).empty();
        put(persons, "InitEmployYN", ckPayInfo(side.initialEmployment).isChecked());
        put(persons, "ReturnTravelYN", ckPayInfo(side.returnTravel).isChecked());
        put(persons, "PointOfHire", mskPayInfo(side.pointOfHire).Text());
        put(persons, "Area", rated ? dbcAreas(side.page).Text() : std::string());
        put(persons, "Class", rated ? dbcClass(side.page).Text() : std::string());
        put(persons, "Rate", rated ? Value(rate) : Value(0));
        return;
    }
    writeNoPay(persons);
    put(persons, "PointOfHire", "");
    put(persons, "Rate", hasOtherRate(side) ? Value(mskOtherRate(side.page).Text()) : Value(0));
}

void frmPersonnel::writeNoPay(Recordset& records) const {
    put(records, "InitEmployYN", false);
    put(records, "ReturnTravelYN", false);
    put(records, "Area", "");
    put(records, "Class", "");
}

void frmPersonnel::edit() {
    const Side& side = editSide;
    Recordset& person = chosenPerson();
    const std::string number = mskCrew(side.page).Text();
    const std::string lastName = mskPersonnel(side.lastName).Text();
    const std::string firstName = mskPersonnel(side.firstName).Text();
    const std::string agency = dbcAgency(side.page).Text();
    const Value collection = person.value("Collection");
    // The row of a crew or of equipment is named for itself, not for one of its people.
    if ((!number.starts_with('C') && !number.starts_with('E')) || collection.isEmpty() || !ado::toBoolean(collection)) {
        put(person, "Name", lastName + ", " + firstName);
        put(person, "RAgencyCode", agency);
    }
    put(person, "FirstName", firstName);
    put(person, "AccountingID", session.gAccountingID);
    put(person, "LastName", lastName);
    put(person, "RequestNumber", number);
    put(person, "PRequestNumber", number);
    put(person, "SSN", ssnDigits(side));
    put(person, "AgencyCode", agency);
    if (number.starts_with('O'))
        put(person, "OverheadID", person.value("RResourceID"));
    put(person, "Remarks", mskRemarks(side.page).Text());
    put(person, "FedCode", cboAD(side.page).Text());
    writeAddress(person, side);
    // A status that is not offered is shown as it stands, and stays.
    if (const Value status = statusCode(side); !status.isEmpty()) {
        put(person, "Status", status);
        put(person, "PStatus", status);
    }
    put(person, "KindCode", ado::upperCase(dbcKind(side.kind).Text()));
    put(person, "RKindCode", ado::upperCase(dbcKind(side.kind).Text()));
    writeEditedPay(person);
    put(person, "ContractedResource", isContracted(side));
    person.Update();
    fRebindIncident();
    session.dialogs.message("Data Saved", session.title(" Message"));
    dbcPersonnel.SetFocus();
}

void frmPersonnel::writeEditedPay(Recordset& person) {
    const Side& side = editSide;
    if (cboAD(side.page).Text() == "AD") {
        put(person, "Area", dbcAreas(side.page).Text());
        put(person, "Class", dbcClass(side.page).Text());
        put(person, "Rate", mskPayInfo(side.currentRate).Text());
        put(person, "PointOfHire", ado::upperCase(mskPayInfo(side.pointOfHire).Text()));
        put(person, "InitEmployYN", ckPayInfo(side.initialEmployment).isChecked());
        put(person, "ReturnTravelYN", ckPayInfo(side.returnTravel).isChecked());
        return;
    }
    writeNoPay(person);
    if (hasOtherRate(side)) {
        put(person, "PointOfHire", "");
        put(person, "Rate", mskOtherRate(side.page).Text());
        return;
    }
    put(person, "Rate", 0);
    // Nobody without a rate keeps postings that have one.
    session.connection().Execute("Update PersonsPost set class = '', rate = 0 where personid = " +
                                 Sql::of(person.value("PersonID")));
}

void frmPersonnel::writeAddress(Recordset& records, const Side& side) {
    for (const PlainField& field : addressBeforeState)
        put(records, field.column, mskPersAddress(side.*field.index).Text());
    put(records, "State", dbcState(side.state).Text());
    for (const PlainField& field : addressBehindState)
        put(records, field.column, maskedText(mskPersAddress(side.*field.index)));
}

std::string frmPersonnel::ssnDigits(const Side& side) const {
    return mskPersonnel(side.ssn).ClipText();
}

Value frmPersonnel::statusCode(const Side& side) {
    forms::TDBCombo& box = dbcStatus(side.status);
    return box.SelectedItem() < 0 ? Value() : box.Columns("Code").value();
}

bool frmPersonnel::fDeleteOldResource(std::int32_t ResourceID) {
    return core::DeleteByKey(session.connection(), "Resources", "ResourceID", ResourceID, {"Persons", "Equipment"});
}

} // namespace zel::personnel
