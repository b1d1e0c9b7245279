#include "core/test_program.h"

namespace zel::core {

using testing::Contains;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::Not;

class ShutDownTest : public ProgramTest {
protected:
    ShutDownTest() {
        for (const char* name : {"frmPersonnel", "frmIncidents", "frmPost", "frmContracts", "frmCrews", "frmCrewRoster",
                                 "frmDeductions", "frmPersonnelFilter", "frmEquipSearch", "frmResources"})
            program.addScreen(name);
        program.addIncident(7, "BEAR CREEK", "OR-ABC-000123");
        program.addIncident(9, "ELK RIDGE", "OR-ABC-000124");
    }
    void start(const std::string& commandLine = "") {
        program.start(commandLine);
        program.takeCalls();
    }
    std::vector<std::string> unloaded() {
        std::vector<std::string> names;
        for (const std::string& call : program.calls) {
            if (call.starts_with("unload "))
                names.push_back(call.substr(7));
        }
        return names;
    }
};
ZEL_ON_BOTH_ENGINES(ShutDownTest);

TEST_P(ShutDownTest, ScreensGoInTheirOrderAndTheShellLast) {
    start();
    program.run([this] {
        for (const char* name :
             {"frmEquipSearch", "frmResources", "frmIncidents", "frmPost", "frmRefs", "frmContracts"})
            program.forms.load(name)->Show();
        CloseApp(session);
    });
    EXPECT_THAT(unloaded(), ElementsAre("frmContracts", "frmPost", "frmPersonnel", "frmIncidents", "frmEquipSearch",
                                        "frmAbout", "frmRefs", "frmMain", "frmResources"));
    EXPECT_TRUE(session.Ended());
    EXPECT_TRUE(session.Unloading);
    EXPECT_TRUE(program.forms.forms().empty());
    EXPECT_EQ(session.gConnection->State(), ado::stateClosed);
}

TEST_P(ShutDownTest, TheSettingsOfAServerAreWrittenWhole) {
    start();
    program.run([this] { CloseApp(session); });
    EXPECT_EQ(program.ini(), "[ZEL]\nServer=HOST01\nCatalog=Korvan\nIncident=7\nVersion=5.01.00\n"
                             "DBSPath=\\\\HOST01\\Data\\Korvan.xxx\nLast User=\n");
}

TEST_P(ShutDownTest, TheSettingsOfADesktopAreWrittenWhole) {
    start("False");
    program.user.pick(program.shell().dbcIncident(0), "ELK RIDGE");
    program.user.click(program.shell().menu("mnuExit"));
    EXPECT_EQ(program.ini(), "[ZEL]\nDBSPath=" + (program.folder / "database/Korvan.mdb") +
                                 "\nIncident=9\nVersion=5.01.00\nLast User=\n");
    EXPECT_TRUE(session.Ended());
}

TEST_P(ShutDownTest, ClosingTheShellEndsTheProgramOnce) {
    start();
    int ended = 0;
    session.frontEnd.ended = [&ended] { ++ended; };
    program.user.close(program.shell());
    EXPECT_EQ(ended, 1);
    EXPECT_EQ(std::count(program.calls.begin(), program.calls.end(), "CloseDatabase"), 1);
    EXPECT_EQ(program.forms.loaded("frmMain"), nullptr);
}

TEST_P(ShutDownTest, AScreenThatFailsAsItGoesDoesNotStopTheOthers) {
    start();
    program.forms.loaded("frmPersonnel")->UnloadEvent = [](bool&) {
        throw ado::Error(ado::ErrorKind::Engine, 1, "no luck");
    };
    program.run([this] { CloseApp(session); });
    EXPECT_TRUE(session.Ended());
    EXPECT_THAT(program.calls, Contains("CloseDatabase"));
    EXPECT_THAT(program.ini(), testing::HasSubstr("Version=5.01.00"));
    EXPECT_TRUE(program.dialogs.take().empty());
}

TEST_P(ShutDownTest, ScreensThatComeUpWhileOthersGoAreUnloadedToo) {
    start();
    const auto brings = [this](const char* leaving, const char* coming) {
        program.forms.load(leaving)->UnloadEvent = [this, coming](bool&) { program.forms.load(coming); };
    };
    program.run([&] {
        // Each comes up when its place in the order is past.
        program.forms.add("frmPost", [&] {
            auto screen = std::make_unique<StubScreen>(session, "frmPost", program.calls);
            screen->UnloadEvent = [&](bool&) { brings("frmContracts", "frmCrews"); };
            return screen;
        });
        brings("frmPersonnel", "frmPost");
        CloseApp(session);
    });
    EXPECT_TRUE(program.forms.forms().empty());
}

TEST_P(ShutDownTest, AfterACancelledPickNoSettingsAreWritten) {
    start();
    session.gPickCancelled = true;
    program.run([this] { CloseApp(session); });
    EXPECT_THAT(program.ini(), Not(testing::HasSubstr("Version")));
    EXPECT_THAT(program.calls, Contains("CloseDatabase"));
}

TEST_P(ShutDownTest, ForARestartTheShellStays) {
    start();
    program.run([this] { CloseForRestart(session); });
    EXPECT_THAT(unloaded(), ElementsAre("frmPersonnel", "frmAbout"));
    EXPECT_NE(program.forms.loaded("frmMain"), nullptr);
    EXPECT_FALSE(session.Ended());
    EXPECT_TRUE(session.Unloading);
}

TEST_P(ShutDownTest, SecurityComesBackWithTheSameIncident) {
    start();
    program.user.pick(program.shell().dbcIncident(0), "ELK RIDGE");
    program.takeCalls();
    program.user.click(program.shell().menu("mnuSecurity"));
    const std::vector<std::string> head{"unload frmPersonnel", "unload frmAbout",
                                        "CloseDatabase",       "ShowServerSecurity HOST01",
                                        "load frmAbout",       "OpenServer ZEL 'HOST01' 'Korvan'",
                                        "load frmPersonnel",   "frmPersonnel.tbFormOpen"};
    EXPECT_THAT(program.calls, testing::Each(testing::Not("unload frmMain")));
    for (const std::string& call : head)
        EXPECT_THAT(program.calls, Contains(call));
    EXPECT_EQ(session.gIncidentID, 9);
    EXPECT_EQ(program.shell().dbcIncident(0).Text(), "ELK RIDGE");
    EXPECT_EQ(program.shell().dbcIncident(1).Text(), "OR-ABC-000124");
    EXPECT_FALSE(session.Unloading);
    EXPECT_EQ(session.gConnection->State(), ado::stateOpen);
}

TEST_P(ShutDownTest, TheDesktopDialectHasItsOwnSecurityDialog) {
    start("False");
    program.user.click(program.shell().menu("mnuSecurity"));
    EXPECT_THAT(program.calls, Contains("ShowSecurity"));
    EXPECT_THAT(program.calls, Contains("OpenDesktop Korvan.mdb ZEL"));
    EXPECT_EQ(session.gIncidentID, 7);
}

TEST_P(ShutDownTest, AnotherDatabaseIsOpenedFromTheMenu) {
    start();
    program.suite.chosenServer = "HOST02";
    program.suite.chosenCatalog = "Second";
    program.user.click(program.shell().menu("mnuDataPath"));
    EXPECT_THAT(program.calls, Contains("OpenServer ZEL '' ''"));
    EXPECT_FALSE(session.gFirstOpen);
    EXPECT_EQ(session.gServerName, "HOST02");
    EXPECT_EQ(program.shell().lblStatus.Caption(), "Server: HOST02 Database: Second");
    EXPECT_EQ(session.gDBPath, "\\\\HOST02\\Data\\Second.xxx");
    EXPECT_EQ(session.gIncidentID, 7);
    EXPECT_EQ(program.shell().dbcIncident(0).Text(), "BEAR CREEK");
    EXPECT_EQ(program.shell().ActiveForm()->Name(), "frmPersonnel");
    EXPECT_FALSE(session.Unloading);
    EXPECT_THAT(program.ini(), testing::HasSubstr("Server=HOST02\nCatalog=Second\n"));
}

TEST_P(ShutDownTest, LeavingTheChoiceGoesBackToTheOldDatabase) {
    start();
    program.suite.chosenServer.clear();
    program.suite.chosenCatalog.clear();
    program.suite.refuseChoice = true;
    program.user.click(program.shell().menu("mnuDataPath"));
    EXPECT_THAT(program.calls, Contains("OpenServer ZEL '' ''"));
    EXPECT_THAT(program.calls, Contains("OpenServer ZEL 'HOST01' 'Korvan'"));
    EXPECT_EQ(session.gServerName, "HOST01");
    EXPECT_FALSE(session.Ended());
    EXPECT_EQ(session.gConnection->State(), ado::stateOpen);
}

TEST_P(ShutDownTest, ADatabaseFileChosenFromTheMenuGivesItsPath) {
    start("False");
    program.suite.chosenServer = DatabaseLocator::fileServer;
    program.suite.chosenCatalog = "/data/other.mdb";
    program.user.click(program.shell().menu("mnuDataPath"));
    EXPECT_EQ(session.gDBPath, "/data/other.mdb");
    program.run([this] { CloseApp(session); });
    EXPECT_THAT(program.ini(), testing::HasSubstr("DBSPath=/data/other.mdb\n"));
}

TEST_P(ShutDownTest, AnOldDatabaseChosenFromTheMenuIsToldAndLeft) {
    start();
    program.execute("update Version set Version = '4.01.00' where Module = 'Database'");
    program.dialogs.answer("Cancel");
    program.user.click(program.shell().menu("mnuDataPath"));
    EXPECT_EQ(program.box().title, "Incorrect Database Version");
    EXPECT_EQ(program.shell().ActiveForm(), nullptr);
    EXPECT_FALSE(session.Ended());
}

} // namespace zel::core
