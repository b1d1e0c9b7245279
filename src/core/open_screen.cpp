#include "ado/convert.h"
#include "core/failure.h"
#include "core/frmAbout.h"
#include "core/frmMain.h"
#include "core/frmRefs.h"
#include "core/start_up.h"
#include "forms/hourglass.h"
#include "forms/tab_order.h"

#include <fmt/format.h>

#include <array>

namespace zel::core {

struct frmMain::Range {
    std::string_view first, last;
    const char* screen;
    int button;      // of optMenu, noButton for a screen without one
    bool tbFormOpen; // a screen without it reads its data in its load event
    enum class Tab { None, OnlyFirst, Given, Zero, Equipment } tab;
};

namespace {

constexpr int noButton = -1;
constexpr int equipmentTab = 2; // of frmContracts: contractor, agreement, resource

bool inRange(std::string_view name, std::string_view first, std::string_view last) {
    const std::string text = ado::lowerCase(name);
    return text >= ado::lowerCase(first) && text <= ado::lowerCase(last);
}

} // namespace

const std::vector<frmMain::Range>& frmMain::ranges() {
    using Tab = Range::Tab;
    static const std::vector<Range> all{
        {"Acco", "Accz", "frmAccounts", noButton, false, Tab::None},
        {"Inc", "Incz", "frmIncidents", noButton, true, Tab::OnlyFirst},
        {"Per", "Perz", "frmPersonnel", 0, true, Tab::OnlyFirst},
        {"Ros", "Rosz", "frmCrewRoster", 1, false, Tab::None},
        {"Cre", "Crez", "frmCrews", noButton, true, Tab::Given},
        {"Eq", "Eqz", "frmContracts", 2, false, Tab::Equipment},
        {"Con", "Conz", "frmContracts", 2, false, Tab::Zero},
        {"Post", "Postz", "frmPost", 4, true, Tab::Given},
        {"Help", "Help", "frmAbout", noButton, false, Tab::None},
        {"About", "About", "frmAbout", noButton, false, Tab::None},
        {"Print", "Printz", "frmRefs", noButton, false, Tab::None},
        {"Ded", "Dedz", "frmDeductions", 3, true, Tab::Given},
        {"Deb", "Debz", "frmDeductions", 3, true, Tab::Given},
        {"Fil", "Filz", "frmPersonnelFilter", 5, true, Tab::None},
        {"Sea", "Seaz", "frmEquipSearch", 6, true, Tab::None},
        {"Res", "Rez", "frmResources", noButton, true, Tab::None},
        {"AdminOffice", "AdminOffice", "frmAdminOffice", noButton, false, Tab::None},
    };
    return all;
}

forms::Form* frmMain::ActiveForm() const {
    Form* active = session.forms.ActiveForm();
    if (active != nullptr && dynamic_cast<DialogWindow*>(active) == nullptr)
        return active;
    // A window of the program is in front of the screens: the screen under it is meant.
    Form* last = nullptr;
    for (Form* form : session.forms.forms()) {
        if (form != this && form->Visible() && dynamic_cast<DialogWindow*>(form) == nullptr)
            last = form;
    }
    return last;
}

void frmMain::HideScreens() {
    const forms::Hourglass hourglass(session.forms);
    while (Form* active = ActiveForm()) {
        active->Unload();
        if (ActiveForm() == active)
            break; // it would not be left
    }
    optMenu.each([](forms::OptionButton& button) { button.setValue(false); });
}

void frmMain::OpenScreen(std::string_view name, bool bHideAll, int tab) {
    if (bHideAll)
        HideScreens();
    const forms::Hourglass hourglass(session.forms);
    for (const Range& range : ranges()) {
        if (inRange(name, range.first, range.last)) {
            open(range, tab);
            return;
        }
    }
}

void frmMain::open(const Range& range, int tab) {
    if (std::string_view(range.screen) == "frmRefs") {
        session.forms.load("frmRefs");
        if (session.extensions.printSetup)
            session.extensions.printSetup();
        else
            log("Printing is not part of this program.");
        return;
    }
    Form* screen = session.forms.load(range.screen);
    if (screen == nullptr) {
        log(std::string("Screen ") + range.screen + " is not part of this program.");
        return;
    }
    if (auto* about = dynamic_cast<frmAbout*>(screen)) {
        about->showAbout();
        return;
    }
    if (range.button != noButton) {
        openingScreen_ = true;
        optMenu(range.button).setValue(true);
        openingScreen_ = false;
    }
    screen->Show();
    if (range.tbFormOpen)
        screen->tbFormOpen();
    if (auto* paged = dynamic_cast<Screen*>(screen)) {
        if (range.tab == Range::Tab::Given || (range.tab == Range::Tab::OnlyFirst && tab == 1))
            paged->showTab(tab);
        else if (range.tab == Range::Tab::Zero || range.tab == Range::Tab::Equipment)
            paged->showTab(range.tab == Range::Tab::Equipment ? equipmentTab : 0);
    }
    forms::focusFirstEntry(*screen);
}

void frmMain::optMenu_Click(int index) {
    static constexpr std::array screens{"Personnel", "Roster", "Contracts",  "Debits",
                                        "Post Time", "Filter", "SearchEquip"};
    if (openingScreen_)
        return;
    try {
        SetWorking(session, true);
        OpenScreen(screens.at(static_cast<std::size_t>(index)), true, 0);
        SetWorking(session, false);
    } catch (const std::exception&) {
        const Failure failure = currentFailure();
        session.dialogs.message(fmt::format("Error: Please report: {}\r\n{}-{}{}", index, failure.number,
                                            failure.description, optMenu.Name()),
                                session.title(": Error"));
        SetWorking(session, false);
    }
}

} // namespace zel::core
