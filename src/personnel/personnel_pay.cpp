#include "ado/convert.h"
#include "core/failure.h"
#include "core/modData.h"
#include "core/session.h"
#include "forms/dialogs.h"
#include "forms/user.h"
#include "personnel/frmPersonnel.h"

#include <fmt/format.h>

/// What the employment type of a person brings with it: the pay page, the rate of OTHER, the contract box.
namespace zel::personnel {

using ado::Sql;

namespace {

constexpr int payPage = 1;
/// The class whose rate no table holds.
constexpr const char* handRated = "AD-5";

const char* employmentOf(int letter) {
    switch (letter) {
    case 'a':
    case 'A':
        return "AD";
    case 'f':
    case 'F':
        return "FED";
    case 'o':
    case 'O':
        return "OTHER";
    default:
        return "";
    }
}

/// Whether the key goes on with the word that its first letter put there: who types "fed" means FED.
bool isNextLetter(const forms::ComboBox& box, int key) {
    const std::string text = box.Text();
    const auto at = static_cast<std::size_t>(box.SelStart());
    return key > 0 && key < 128 && at < text.size() &&
           ado::upperCase(std::string(1, static_cast<char>(key)))[0] == text[at];
}

void markRest(forms::ComboBox& box, int from) {
    const int length = static_cast<int>(box.Text().size());
    box.setSelStart(from);
    box.setSelLength(length > from ? length - from : 0);
}

} // namespace

void frmPersonnel::employmentKey(const Side& side, int& keyAscii) {
    if (session.Working || saving_)
        return;
    forms::ComboBox& box = cboAD(side.page);
    if (keyAscii == forms::keys::enter || keyAscii == forms::keys::tab)
        return;
    if (isNextLetter(box, keyAscii))
        markRest(box, box.SelStart() + 1);
    else {
        box.setText(employmentOf(keyAscii));
        markRest(box, 1);
    }
    keyAscii = 0;
    fAD(box);
}

void frmPersonnel::fAD(forms::ComboBox& box) {
    try {
        const int page = box.Index();
        const bool other = box.Text() == "OTHER" && chkContract.has(page);
        tabPersDetail(page).setTabEnabled(payPage, box.Text() == "AD");
        lblOtherRate(page).setVisible(other);
        mskOtherRate(page).setVisible(other);
        if (other)
            chkContract(page).setEnabled(true);
    } catch (const std::exception&) {
        const core::Failure failure = core::currentFailure();
        session.dialogs.message(fmt::format("fAD Error: {} {}", failure.number, failure.description),
                                session.app.Title);
    }
}

void frmPersonnel::leaveEmployment(const Side& side) {
    if (cboAD(side.page).Text() == "OTHER")
        return;
    chkContract(side.page).setValue(forms::CheckBox::unchecked);
    chkContract(side.page).setEnabled(false);
}

void frmPersonnel::fFixRates(int Index) {
    const Side& side = sides.at(static_cast<std::size_t>(Index));
    const std::string area = dbcAreas(Index).Text();
    const std::string classText = dbcClass(Index).Text();
    const Sql ClassRatesCode = Sql::of(area.substr(0, 1) + (classText.size() > 3 ? classText.substr(3) : ""));
    const ado::Value rate =
        core::FieldLookup(session.connection(), "Rate", "L_ClassRates", "ClassRatesCode='" + ClassRatesCode + "'");
    forms::MaskEdBox& currentRate = mskPayInfo(side.currentRate);
    if (!rate.isEmpty())
        currentRate.setText(ado::toText(rate));
    currentRate.setEnabled(classText == handRated);
}

void frmPersonnel::showPay(const ado::Recordset& person) {
    const Side& side = editSide;
    const auto text = [&](const char* column) { return ado::toText(person.value(column)); };
    const auto ticked = [&](const char* column) {
        const ado::Value flag = person.value(column);
        return !flag.isEmpty() && ado::toBoolean(flag) ? forms::CheckBox::checked : forms::CheckBox::unchecked;
    };
    cboAD(side.page).setText(text("FedCode"));
    if (text("FedCode") == "AD") {
        ckPayInfo(side.initialEmployment).setValue(ticked("InitEmployYN"));
        ckPayInfo(side.returnTravel).setValue(ticked("ReturnTravelYN"));
        mskPayInfo(side.pointOfHire).setText(text("PointOfHire"));
        dbcAreas(side.page).setText(text("Area"));
        dbcClass(side.page).setText(text("Class"));
        mskPayInfo(side.currentRate).setText(text("Rate"));
        mskPayInfo(side.currentRate).setEnabled(text("Class") == handRated);
    } else if (text("FedCode") == "OTHER") {
        mskOtherRate(side.page).setText(text("Rate"));
    }
    fAD(cboAD(side.page));
    chkContract(side.page).setValue(ticked("ContractedResource"));
    chkContract(side.page).setEnabled(text("FedCode") == "OTHER");
}

bool frmPersonnel::isContracted(const Side& side) const {
    return ado::upperCase(cboAD(side.page).Text()) == "OTHER" && chkContract(side.page).isChecked();
}

bool frmPersonnel::hasOtherRate(const Side& side) const {
    return cboAD(side.page).Text() == "OTHER" && !ado::trim(mskOtherRate(side.page).Text()).empty();
}

} // namespace zel::personnel
