#include "ado/convert.h"
#include "core/modData.h"
#include "core/session.h"
#include "forms/dialogs.h"
#include "forms/utf8.h"
#include "personnel/frmPersonnel.h"

#include <string_view>

/// What is looked at before a person is saved, in the order in which the clerk is told.
namespace zel::personnel {

using ado::Sql;
using forms::Answer;
using forms::Buttons;

namespace {

constexpr const char* unknownSsn = "999999999";
constexpr const char* unknownSsnShown = "999-99-9999";

/// The rate as it was typed, not as the box shows it. Throws for a text that is none.
float rateIn(const forms::MaskEdBox& box) {
    const std::string text(ado::trim(box.Text()));
    return text.empty() ? 0.0F : ado::toSingle(text);
}

} // namespace

bool frmPersonnel::mayBeSaved(const Side& side) {
    if (!ssnMayBeUsed(side))
        return false;
    const std::string text = findings(side);
    if (!text.empty()) {
        session.dialogs.message(text, session.title(": Error Adding Individual"));
        return false;
    }
    return ratesAreMeant(side) && contractIsMeant(side);
}

bool frmPersonnel::ssnMayBeUsed(const Side& side) {
    if (mskPersonnel(side.ssn).Text() == unknownSsnShown)
        return true;
    const Sql ssn = Sql::of(ssnDigits(side));
    const Sql condition =
        side.page == addSide.page
            ? "[status]='C' And [SSN]='" + ssn + "'"
            : "[Status]='C' And [SSN]='" + ssn + "' and (Not personid = " + Sql::of(session.gCurrentPersonID) + ")";
    const ado::Value users = core::FieldList(session.connection(), "LnFn", "SELECT * FROM qrySelectPersonnel",
                                             condition, session.gIncidentID, ",\r\n\t");
    if (users.isEmpty())
        return true;
    forms::MessageBox box;
    box.text = "For this Incident, this SSN is actively in use by \r\n\t" + ado::toText(users) +
               "\r\nwould you like to use this SSN anyway?";
    box.title = "Possible duplicate Personnel:";
    box.buttons = Buttons::YesNo;
    box.defaultButton = 2;
    return session.dialogs.message(box) == Answer::Yes;
}

std::string frmPersonnel::findings(const Side& side) {
    std::string text;
    const auto require = [&text](bool given, const char* message) {
        if (!given)
            text.append(message).append("\r\n");
    };
    const auto filled = [](const forms::TextEdit& box) { return !ado::trim(box.Text()).empty(); };
    if (forms::utf8::length(mskCrew(side.page).Text()) >= 2)
        normalise(side);
    else
        require(false, "Please enter a Request Number.  If unknown, enter the request category and zero (example: "
                       "C-0,O-0).");
    const bool knownAccount = side.page == addSide.page || session.gAccountingID >= 1;
    require(!dbcAcct(side.page).Text().empty() && knownAccount, "Account Code is required.");
    require(!mskPersonnel(side.firstName).Text().empty(), "First Name is required.");
    require(!mskPersonnel(side.lastName).Text().empty(), "Last Name is required.");
    if (ssnDigits(side).empty())
        mskPersonnel(side.ssn).setText(unknownSsn);
    require(!dbcKind(side.kind).Text().empty(), "Kind/Position is required.");
    require(!dbcStatus(side.status).Text().empty(), "Crew Status is required.");
    require(!cboAD(side.page).Text().empty(), "AD/Fed/Other is required.");
    if (cboAD(side.page).Text() == "AD") {
        require(filled(dbcAreas(side.page)), "Area is required for AD employees.");
        require(filled(dbcClass(side.page)), "Class is required for AD employees.");
        require(filled(mskPayInfo(side.currentRate)), "Rate is required for AD employees.");
    }
    return text;
}

bool frmPersonnel::ratesAreMeant(const Side& side) {
    forms::MaskEdBox& currentRate = mskPayInfo(side.currentRate);
    forms::MaskEdBox& otherRate = mskOtherRate(side.page);
    float current = rateIn(currentRate);
    float other = rateIn(otherRate);
    const bool currentMeant = business_.ValidRate(current);
    const bool otherMeant = business_.ValidRate(other);
    if (currentMeant && otherMeant)
        return true;
    currentRate.setText("0");
    otherRate.setText("0");
    return false;
}

bool frmPersonnel::contractIsMeant(const Side& side) {
    if (!chkContract(side.page).isChecked())
        return true;
    return session.dialogs.message("Contracted Resource is selected!  You MUST also go to the Contracts screen to "
                                   "input the required information for a Contracted Resource.\r\n\r\nContinue to save "
                                   "as a Contracted Resource?",
                                   "Warning - Contracted Resource", Buttons::YesNo,
                                   forms::Icon::Question) == Answer::Yes;
}

} // namespace zel::personnel
