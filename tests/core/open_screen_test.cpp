#include "core/test_program.h"

#include "forms/vs_index_tab.h"
#include "services/clsDebug.h"
#include "services/clsStopWatch.h"

namespace zel::core {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr std::array allScreens{"frmAccounts",  "frmIncidents",       "frmPersonnel",   "frmCrewRoster",
                                "frmCrews",     "frmContracts",       "frmPost",        "frmDeductions",
                                "frmResources", "frmPersonnelFilter", "frmEquipSearch", "frmAdminOffice"};

class OpenScreenTest : public ::testing::Test {
protected:
    OpenScreenTest() {
        for (const char* name : allScreens)
            program.addScreen(name);
        program.addIncident(7, "BEAR CREEK", "OR-ABC-000123");
        program.start("False");
        program.run([this] { program.shell().OpenScreen("Settings", true, 0); });
        program.takeCalls();
    }
    frmMain& shell() { return program.shell(); }
    int pressedButton() {
        int pressed = -1;
        shell().optMenu.each([&pressed](const forms::OptionButton& button) {
            if (button.value())
                pressed = button.Index();
        });
        return pressed;
    }

    TestProgram program{ado::EngineKind::Sqlite};
    Session& session = program.session;
};

struct NameCase {
    const char* name;
    const char* screen; // null when nothing opens
    bool tbFormOpen;
    int button;
};

class ScreenNameTest : public OpenScreenTest, public ::testing::WithParamInterface<NameCase> {};
INSTANTIATE_TEST_SUITE_P(
    Names, ScreenNameTest,
    ::testing::Values(NameCase{"Accounts", "frmAccounts", false, -1}, NameCase{"Acco", "frmAccounts", false, -1},
                      NameCase{"Incidents", "frmIncidents", true, -1}, NameCase{"Persons", "frmPersonnel", true, 0},
                      NameCase{"Personnel", "frmPersonnel", true, 0}, NameCase{"Roster", "frmCrewRoster", false, 1},
                      NameCase{"Crews", "frmCrews", true, -1}, NameCase{"Equipment", "frmContracts", false, 2},
                      NameCase{"Contractor", "frmContracts", false, 2}, NameCase{"Contracts", "frmContracts", false, 2},
                      NameCase{"Post Time", "frmPost", true, 4}, NameCase{"Post", "frmPost", true, 4},
                      NameCase{"Deductions", "frmDeductions", true, 3}, NameCase{"Debits", "frmDeductions", true, 3},
                      NameCase{"Filter", "frmPersonnelFilter", true, 5},
                      NameCase{"SearchEquip", "frmEquipSearch", true, 6},
                      NameCase{"Resources", "frmResources", true, -1},
                      NameCase{"AdminOffice", "frmAdminOffice", false, -1},
                      NameCase{"personnel", "frmPersonnel", true, 0}, NameCase{"Settings", nullptr, false, -1},
                      NameCase{"AdminOffices", nullptr, false, -1}, NameCase{"Per~", nullptr, false, -1},
                      NameCase{"", nullptr, false, -1}));

TEST_P(ScreenNameTest, TheFirstRangeThatHoldsTheNameWins) {
    const NameCase& wanted = GetParam();
    program.run([&] { shell().OpenScreen(wanted.name, true, 0); });
    std::vector<std::string> calls;
    if (wanted.screen != nullptr)
        calls.push_back(std::string("load ") + wanted.screen);
    if (wanted.tbFormOpen)
        calls.push_back(std::string(wanted.screen) + ".tbFormOpen");
    EXPECT_EQ(program.calls, calls);
    EXPECT_EQ(pressedButton(), wanted.button);
    EXPECT_FALSE(program.forms.Hourglass());
}

struct EntryCase {
    const char* menu;
    const char* caption;
    const char* screen;
};

class MenuEntryTest : public OpenScreenTest, public ::testing::WithParamInterface<EntryCase> {};
INSTANTIATE_TEST_SUITE_P(Entries, MenuEntryTest,
                         ::testing::Values(EntryCase{"mnuIncidentAE", "Incident &Add/Edit", "frmIncidents"},
                                           EntryCase{"mnuIncidentAccounts", "Incident Accounts", "frmAccounts"},
                                           EntryCase{"mnuIncidentOfficePay", "Admin Office for Payment",
                                                     "frmAdminOffice"},
                                           EntryCase{"mnuPersInfo", "Personnel &Info / Edit", "frmPersonnel"},
                                           EntryCase{"mnuPersDeduct", "Personnel &Deduct", "frmDeductions"},
                                           EntryCase{"mnuPersPost", "Personnel &Post", "frmPost"},
                                           EntryCase{"mnuCrewRoster", "Crew/Operator &Roster", "frmCrewRoster"},
                                           EntryCase{"mnuCrewEdit", "Crew/Operator Add/&Edit", "frmCrews"},
                                           EntryCase{"mnuCrewPost", "&Crew/Operator Post", "frmPost"},
                                           EntryCase{"mnuConInfo", "&Contractor/Equipment Info", "frmContracts"},
                                           EntryCase{"mnuConDeduct", "Contractor &Debits", "frmDeductions"},
                                           EntryCase{"mnuConEqPost", "&Equipment Post", "frmPost"},
                                           EntryCase{"mnuResSearch", "Find Resource", "frmResources"},
                                           EntryCase{"mnuPostPers", "&Personnel", "frmPost"},
                                           EntryCase{"mnuPostCrews", "&Crews/Operators", "frmPost"},
                                           EntryCase{"mnuPostEq", "&Equipment", "frmPost"},
                                           EntryCase{"mnuDedPers", "&Personnel", "frmDeductions"},
                                           EntryCase{"mnuDedCon", "&Contractor", "frmDeductions"}));

TEST_P(MenuEntryTest, TheEntryClosesTheScreenInFrontAndOpensItsOwn) {
    program.run([this] { shell().OpenScreen("Filter", true, 0); });
    program.takeCalls();
    EXPECT_EQ(shell().menu(GetParam().menu).Caption(), GetParam().caption);
    EXPECT_EQ(program.user.click(shell().menu(GetParam().menu)).refusal, "");
    ASSERT_GE(program.calls.size(), 2U);
    EXPECT_EQ(program.calls[0], "unload frmPersonnelFilter");
    EXPECT_EQ(program.calls[1], std::string("load ") + GetParam().screen);
    EXPECT_EQ(shell().ActiveForm()->Name(), GetParam().screen);
}

struct ReportCase {
    const char* menu;
    int number;
};

class ReportEntryTest : public OpenScreenTest, public ::testing::WithParamInterface<ReportCase> {};
INSTANTIATE_TEST_SUITE_P(Entries, ReportEntryTest,
                         ::testing::Values(ReportCase{"mnuConInvoice", 7}, ReportCase{"mnuRepContHrs", 1},
                                           ReportCase{"mnuRepExcessHours", 5}, ReportCase{"mnuRepEquipMgmt", 11},
                                           ReportCase{"mnuRepCrewRoster", 12}, ReportCase{"mnuRepCommAuth", 9},
                                           ReportCase{"mnuRepCommChg", 2}, ReportCase{"mnuPersonnelTimeRpt", 15},
                                           ReportCase{"mnuContDebets", 10}, ReportCase{"mnuRepSumCon", 4},
                                           ReportCase{"mnuRepSumHours", 3}));

TEST_P(ReportEntryTest, TheEntryAsksForItsReport) {
    int printed = 0;
    session.extensions.PrintReport = [&printed](int number, const std::string&) { printed = number; };
    program.user.click(shell().menu(GetParam().menu));
    EXPECT_EQ(printed, GetParam().number);
}

TEST_F(OpenScreenTest, EveryOtherEntryCanBeChosenToo) {
    for (const char* name :
         {"mnuScanPort", "mnuSettings", "mnuPrintSetup", "mnuFileRefresh", "mnuHelpAbout", "mnuHelpSupport",
          "mnuToolsBackup", "mnuToolsClearHourglass", "mnuToolsTimingScreen", "mnuToolsTimingDetails"})
        EXPECT_EQ(program.user.click(shell().menu(name)).refusal, "") << name;
    EXPECT_THAT(program.dialogs.take(), IsEmpty());
    EXPECT_THAT(program.calls, testing::IsSupersetOf({"ShowSupport", "load frmRefs"}));
    EXPECT_EQ(program.forms.ActiveForm()->Name(), "frmAbout");
}

TEST_F(OpenScreenTest, TheMenusStandInTheirOrder) {
    std::vector<std::string> captions;
    for (forms::Control* control : shell().controls()) {
        const auto* menu = dynamic_cast<forms::Menu*>(control);
        if (menu != nullptr && menu->parent() == nullptr && menu->Visible())
            captions.push_back(menu->Caption());
    }
    EXPECT_THAT(captions, ElementsAre("&File", "&Incident Data", "&Personnel", "&Contracts", "Post &Time", "&Debits",
                                      "&Reports", "T&ools", "&Help"));
    std::vector<std::string> tools;
    for (const forms::Menu* entry : shell().menu("mnuTools").entries())
        tools.push_back(entry->Caption());
    EXPECT_THAT(tools, ElementsAre("&Backup Korvan Database", "&Erase Korvan Database", "&Delete Incident", "&Security",
                                   "Clear &Hourglass", "&Log Current Status", "Activate &Timing Test"));
}

TEST_F(OpenScreenTest, ScreenButtonsOpenTheirScreens) {
    const std::array wanted{"frmPersonnel", "frmCrewRoster",      "frmContracts",  "frmDeductions",
                            "frmPost",      "frmPersonnelFilter", "frmEquipSearch"};
    for (int index = 0; index < 7; ++index) {
        EXPECT_EQ(program.user.click(shell().optMenu(index)).refusal, "");
        EXPECT_EQ(shell().ActiveForm()->Name(), wanted.at(static_cast<std::size_t>(index)));
        EXPECT_EQ(pressedButton(), index);
        EXPECT_FALSE(session.Working);
    }
    EXPECT_EQ(shell().optMenu(3).Caption(), "Commissary/ Debits && Additions");
}

TEST_F(OpenScreenTest, AFailureBehindAScreenButtonIsReportedWithTheButton) {
    struct Failing : Screen {
        using Screen::Screen;
        void tbFormOpen() override { throw ado::Error(ado::ErrorKind::Engine, 4711, "no luck"); }
    };
    program.forms.add("frmPost", [this] { return std::make_unique<Failing>(session, "frmPost"); });
    program.user.click(shell().optMenu(4));
    EXPECT_EQ(program.box().text, "Error: Please report: 4\r\n4711-no luckoptMenu");
    EXPECT_FALSE(session.Working);
}

TEST_F(OpenScreenTest, AScreenThatDoesNotExistIsOnlyLogged) {
    TestProgram bare(ado::EngineKind::Sqlite);
    bare.addIncident(7, "BEAR CREEK", "OR-ABC-000123");
    bare.start("False");
    EXPECT_THAT(bare.dialogs.take(), IsEmpty());
    EXPECT_EQ(bare.shell().ActiveForm(), nullptr);
    EXPECT_THAT(bare.folder.bytes("zel/" + std::filesystem::path(bare.session.gDebug->Logfile()).filename().string()),
                HasSubstr("Screen frmPersonnel is not part of this program."));
}

TEST_F(OpenScreenTest, TheTabIsSetOnTheOuterStrip) {
    struct Tabbed : Screen {
        using Screen::Screen;
        forms::vsIndexTab tabAE{*this, "tabAE", "Add|Edit|Third"};
        forms::vsIndexTab tabInner{*this, "tabInner", "One|Two"};
    };
    for (const char* name : {"frmPersonnel", "frmPost", "frmContracts"})
        program.forms.add(name, [this, name] { return std::make_unique<Tabbed>(session, name); });
    const auto tabOf = [this](const char* name, int tab) {
        program.run([&] { shell().OpenScreen(name, true, tab); });
        const auto* screen = dynamic_cast<Tabbed*>(shell().ActiveForm());
        return screen == nullptr ? -1 : screen->tabAE.CurrTab();
    };
    EXPECT_EQ(tabOf("Personnel", 1), 1);
    EXPECT_EQ(tabOf("Personnel", 2), 0);
    EXPECT_EQ(tabOf("Post", 2), 2);
    EXPECT_EQ(tabOf("Equipment", 0), 2);
    EXPECT_EQ(tabOf("Contractor", 0), 0);
}

TEST_F(OpenScreenTest, PrintLeavesTheScreensOpen) {
    program.run([this] { shell().OpenScreen("Filter", true, 0); });
    bool printer = false;
    session.extensions.printSetup = [&printer] { printer = true; };
    program.user.click(shell().menu("mnuPrintSetup"));
    EXPECT_TRUE(printer);
    EXPECT_EQ(shell().ActiveForm()->Name(), "frmPersonnelFilter");
}

TEST_F(OpenScreenTest, AScreenThatWillNotBeLeftStays) {
    program.run([this] { shell().OpenScreen("Filter", true, 0); });
    shell().ActiveForm()->UnloadEvent = [](bool& cancel) { cancel = true; };
    program.run([this] { shell().OpenScreen("Settings", true, 0); });
    EXPECT_EQ(shell().ActiveForm()->Name(), "frmPersonnelFilter");
    shell().ActiveForm()->UnloadEvent = nullptr;
}

TEST_F(OpenScreenTest, OnlyOneTimingModeIsOn) {
    program.user.click(shell().menu("mnuToolsTimingScreen"));
    EXPECT_TRUE(session.gStopWatch->ScreenEnabled);
    program.user.click(shell().menu("mnuToolsTimingDetails"));
    EXPECT_FALSE(session.gStopWatch->ScreenEnabled);
    EXPECT_TRUE(session.gStopWatch->DetailsEnabled);
    EXPECT_FALSE(shell().menu("mnuToolsTimingScreen").Checked());
    EXPECT_TRUE(shell().menu("mnuToolsTimingDetails").Checked());
    program.user.click(shell().menu("mnuToolsTimingDetails"));
    EXPECT_FALSE(session.gStopWatch->DetailsEnabled);
}

TEST_F(OpenScreenTest, ClearHourglassIsTheWayOut) {
    SetWorking(session, true);
    EXPECT_TRUE(program.forms.Hourglass());
    program.user.click(shell().menu("mnuToolsClearHourglass"));
    EXPECT_FALSE(session.Working);
    EXPECT_FALSE(program.forms.Hourglass());
    SetWorking(session);
    EXPECT_TRUE(session.Working);
    SetReloading(session);
    EXPECT_TRUE(session.Reloading);
    SetReloading(session);
    EXPECT_FALSE(session.Reloading);
}

} // namespace zel::core
