#include "core/test_program.h"

#include "ado/convert.h"

namespace zel::core {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

/// A started program with two incidents and stand-ins for all screens.
class ShellTest : public ProgramTest {
protected:
    ShellTest() {
        program.addIncident(7, "BEAR CREEK", "OR-ABC-000123");
        program.addIncident(9, "ELK RIDGE", "OR-ABC-000124");
        program.addAccount(31, 7, "P6AB12");
        for (const char* name : {"frmPersonnel", "frmIncidents", "frmPost", "frmContracts"})
            program.addScreen(name);
        program.start(GetParam() == ado::EngineKind::Sqlite ? "False" : "");
        program.takeCalls();
        program.statements.clear();
    }
    frmMain& shell() { return program.shell(); }
    void pick(int box, const std::string& text) {
        EXPECT_EQ(program.user.pick(shell().dbcIncident(box), text).refusal, "");
    }
};
ZEL_ON_BOTH_ENGINES(ShellTest);

TEST_P(ShellTest, ChoosingAnIncidentByNameShowsItsNumber) {
    pick(0, "ELK RIDGE");
    EXPECT_EQ(session.gIncidentID, 9);
    EXPECT_EQ(session.gIncidentIndex, 1);
    EXPECT_EQ(session.gAccountingID, -1);
    EXPECT_EQ(shell().dbcIncident(1).Text(), "OR-ABC-000124");
    EXPECT_EQ(shell().dbcIncident(0).Text(), "ELK RIDGE");
    EXPECT_THAT(program.ini(), testing::HasSubstr("Incident=9\n"));
}

TEST_P(ShellTest, ChoosingAnIncidentByNumberShowsItsName) {
    pick(1, "OR-ABC-000124");
    EXPECT_EQ(session.gIncidentID, 9);
    EXPECT_EQ(shell().dbcIncident(0).Text(), "ELK RIDGE");
    pick(1, "OR-ABC-000123");
    EXPECT_EQ(session.gIncidentID, 7);
    EXPECT_EQ(session.gAccountingID, 31);
    EXPECT_EQ(session.gAccountList.rows(), 1);
    EXPECT_EQ(shell().dbcIncident(0).Text(), "BEAR CREEK");
}

TEST_P(ShellTest, AScreenLearnsOfTheNewIncidentThroughTbFormOpen) {
    pick(0, "ELK RIDGE");
    EXPECT_THAT(program.calls, ElementsAre("frmPersonnel.tbFormOpen"));
    EXPECT_FALSE(session.gRefreshing);
    EXPECT_FALSE(program.forms.Hourglass());
}

TEST_P(ShellTest, TheIncidentScreenHearsOfItFirst) {
    program.run([this] { shell().OpenScreen("Incidents", true, 0); });
    program.takeCalls();
    pick(0, "ELK RIDGE");
    EXPECT_THAT(program.calls, ElementsAre("frmIncidents.tbFormOpen", "frmIncidents.tbFormOpen"));
}

TEST_P(ShellTest, WhileWorkingAChangeOfIncidentDoesNothing) {
    session.Working = true;
    pick(0, "ELK RIDGE");
    EXPECT_EQ(session.gIncidentID, 7);
    EXPECT_THAT(program.calls, IsEmpty());
}

TEST_P(ShellTest, ATextThatIsNoIncidentComesBackToTheSavedOne) {
    EXPECT_EQ(program.user.type(shell().dbcIncident(0), "NOWHERE").refusal, "");
    program.user.leave(shell().dbcIncident(0));
    EXPECT_EQ(session.gIncidentID, 7);
    EXPECT_EQ(shell().dbcIncident(0).Text(), "BEAR CREEK");
}

TEST_P(ShellTest, RefreshSeesANewIncident) {
    program.addIncident(5, "ASH HILL", "OR-ABC-000122");
    EXPECT_EQ(program.user.click(shell().menu("mnuFileRefresh")).refusal, "");
    EXPECT_EQ(session.gIncidentList.rows(), 3);
    EXPECT_EQ(session.gIncidentID, 7);
    EXPECT_EQ(session.gIncidentIndex, 1);
    EXPECT_EQ(shell().dbcIncident(0).Text(), "BEAR CREEK");
}

TEST_P(ShellTest, RefreshWithoutIncidentsOpensTheIncidentScreen) {
    program.execute("delete from Incidents");
    program.user.click(shell().menu("mnuFileRefresh"));
    EXPECT_EQ(session.gIncidentID, -1);
    EXPECT_EQ(shell().dbcIncident(0).Text(), "");
    EXPECT_EQ(shell().dbcIncident(1).Text(), "");
    EXPECT_THAT(program.calls, Contains("load frmIncidents"));
}

TEST_P(ShellTest, ManageAllHidesTheSelectorAndTellsWhatItMeans) {
    program.user.check(shell().chkManageAll, true);
    EXPECT_TRUE(session.gManageAll);
    const auto box = program.box();
    EXPECT_EQ(box.text,
              "Managing All Incidents as One...\r\n\r\nWhen adding a new resource you MUST select an incident "
              "and account code for the resource.");
    EXPECT_EQ(box.title, "Warning");
    EXPECT_EQ(box.icon, "exclamation");
    EXPECT_THAT(program.calls, ElementsAre("frmPersonnel.tbFormOpen"));
    program.user.click(shell().menu("mnuFileRefresh"));
    for (const forms::Control* control :
         {static_cast<forms::Control*>(&shell().dbcIncident(0)), static_cast<forms::Control*>(&shell().dbcIncident(1)),
          static_cast<forms::Control*>(&shell().lblIncidentName),
          static_cast<forms::Control*>(&shell().lblIncidentNumber)})
        EXPECT_FALSE(control->Visible()) << control->fullName();
}

TEST_P(ShellTest, ManageAllOffBringsTheSelectorBack) {
    program.user.check(shell().chkManageAll, true);
    program.dialogs.take();
    program.user.check(shell().chkManageAll, false);
    EXPECT_FALSE(session.gManageAll);
    EXPECT_TRUE(shell().dbcIncident(0).Visible());
    EXPECT_TRUE(shell().lblIncidentNumber.Visible());
    EXPECT_TRUE(program.dialogs.take().empty());
}

TEST_P(ShellTest, TheToolbarSendsItsCommandsToTheScreenInFront) {
    program.user.toolbar(shell().tbMenu, "Save");
    program.user.toolbar(shell().tbMenu, "Delete");
    EXPECT_THAT(program.takeCalls(), ElementsAre("frmPersonnel.tbSave", "frmPersonnel.tbDelete"));
    program.forms.setHourglass(true);
    program.user.toolbar(shell().tbMenu, "Refresh");
    EXPECT_THAT(program.takeCalls(), ElementsAre("frmPersonnel.tbFormOpen"));
    EXPECT_FALSE(program.forms.Hourglass());
    program.run([this] { shell().tbMenu.press("New"); });
    EXPECT_THAT(program.calls, IsEmpty());
}

TEST_P(ShellTest, ExitAsksFirst) {
    program.dialogs.answer("No");
    program.user.toolbar(shell().tbMenu, "Exit");
    const auto box = program.box();
    EXPECT_EQ(box.text, "Do you wish to exit ZEL?");
    EXPECT_EQ(box.buttons, "YesNo");
    EXPECT_FALSE(session.Ended());
    program.dialogs.answer("Yes");
    program.user.toolbar(shell().tbMenu, "Exit");
    EXPECT_TRUE(session.Ended());
}

TEST_P(ShellTest, AFailureOfOneScreenIsShownAndTheRefreshGoesOn) {
    struct Failing : Screen {
        using Screen::Screen;
        void tbFormOpen() override { throw ado::Error(ado::ErrorKind::Engine, 4711, "no luck"); }
    };
    program.forms.add("frmResources", [this] { return std::make_unique<Failing>(session, "frmResources"); });
    program.run([this] { program.forms.load("frmResources")->Show(); });
    program.user.click(shell().menu("mnuFileRefresh"));
    const auto box = program.box();
    EXPECT_EQ(box.text, "Error: 4711 Desc: no luck");
    EXPECT_EQ(box.title, "ZEL: Error");
    EXPECT_FALSE(session.gRefreshing);
}

TEST_P(ShellTest, ARefreshThatFailsIsToldAndIsOver) {
    program.execute("alter table Incidents rename to Elsewhere");
    program.user.click(shell().menu("mnuFileRefresh"));
    EXPECT_THAT(program.box().text, testing::StartsWith("Error: "));
    EXPECT_FALSE(session.gRefreshing);
    program.execute("alter table Elsewhere rename to Incidents");
    program.user.click(shell().menu("mnuFileRefresh"));
    EXPECT_TRUE(program.dialogs.take().empty());
    EXPECT_EQ(session.gIncidentID, 7);
}

class ServerShellTest : public ShellTest {};
INSTANTIATE_TEST_SUITE_P(Server, ServerShellTest, ::testing::Values(ado::EngineKind::Postgres), test::engineName);

TEST_P(ServerShellTest, ADroppedConnectionIsFoundAgain) {
    program.database.open()
        ->prepare("SELECT pg_terminate_backend(pid) FROM pg_stat_activity WHERE datname = current_database() AND pid "
                  "<> pg_backend_pid()",
                  false)
        ->execute({});
    for (int attempt = 0; attempt < 2; ++attempt)
        program.user.click(shell().menu("mnuFileRefresh"));
    EXPECT_LE(program.dialogs.take().size(), 1U); // the first attempt may tell of it
    EXPECT_EQ(session.gIncidentID, 7);
    EXPECT_FALSE(session.gRefreshing);
}

TEST_P(ShellTest, TwoIncidentsOfOneNameAreToldApart) {
    program.addIncident(10, "ELK RIDGE", "OR-ABC-000125");
    program.user.click(shell().menu("mnuFileRefresh"));
    pick(1, "OR-ABC-000125");
    EXPECT_EQ(session.gIncidentID, 10);
    EXPECT_EQ(shell().dbcIncident(1).Text(), "OR-ABC-000125");
    EXPECT_EQ(shell().dbcIncident(0).SelectedItem(), session.gIncidentIndex);
}

} // namespace zel::core
