#include "core/test_program.h"

#include "ado/convert.h"
#include "core/frmAbout.h"

namespace zel::core {

using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

class StartUpTest : public ProgramTest {
protected:
    void addOneIncident() {
        program.addIncident(7, "BEAR CREEK", "OR-ABC-000123");
        program.addAccount(31, 7, "P6AB12");
        program.addScreen("frmPersonnel");
    }
};
ZEL_ON_BOTH_ENGINES(StartUpTest);

TEST_P(StartUpTest, AServerStartRunsItsStepsInOrder) {
    addOneIncident();
    program.start();

    EXPECT_THAT(program.calls, ElementsAre("load frmAbout", "OpenServer ZEL '' ''", "load frmMain", "load frmPersonnel",
                                           "frmPersonnel.tbFormOpen"));
    EXPECT_TRUE(program.dialogs.take().empty());
    EXPECT_FALSE(session.PreLoad);
    EXPECT_FALSE(session.Loading);
    EXPECT_FALSE(session.Working);
    EXPECT_TRUE(session.gFirstOpen);
    EXPECT_EQ(session.gAppVersion, "5.01.00");
    EXPECT_EQ(session.gDBVersion, "5.01.00");
    EXPECT_EQ(session.gMinDBVersion, "5.00.06");
    EXPECT_EQ(session.gDBPath, "\\\\HOST01\\Data\\Korvan.xxx");
    EXPECT_FALSE(program.forms.loaded("frmAbout")->Visible());
    EXPECT_FALSE(program.forms.Hourglass());
}

TEST_P(StartUpTest, TheListsAreLoadedInTheirOrder) {
    addOneIncident();
    program.start();

    std::vector<std::string> heads;
    for (const std::string& statement : program.statements)
        heads.push_back(statement.substr(0, 30));
    const std::string incidents = "Select Incidents.IncidentID as";
    EXPECT_THAT(heads, ElementsAre("select * from version", "SELECT Code,Description FROM L", incidents,
                                   "SELECT KindCode,KindDesc,Reque", "Select Description, Postable, ",
                                   "Select AgencyCode, AgencyDesc ", "Select distinct area from L_Cl",
                                   "Select distinct class from L_C", "Select EquipDescription from L",
                                   "SELECT L_Status.Code, L_Status", incidents, incidents, incidents,
                                   "SELECT AccountingCode,Accounti", "SELECT * FROM  L_RequestCat"));
}

TEST_P(StartUpTest, TheShellShowsDateAndIncident) {
    addOneIncident();
    program.start();

    frmMain& shell = program.shell();
    EXPECT_TRUE(shell.Visible());
    EXPECT_EQ(shell.lblDate.Caption(), "07/04/2005");
    EXPECT_EQ(shell.dbcIncident(0).Text(), "BEAR CREEK");
    EXPECT_EQ(shell.dbcIncident(1).Text(), "OR-ABC-000123");
    EXPECT_EQ(shell.lblStatus.Caption(), "Server: HOST01 Database: Korvan");
    EXPECT_EQ(session.gIncidentID, 7);
    EXPECT_EQ(session.gIncidentIndex, 0);
    EXPECT_EQ(session.gAccountingID, 31);
    EXPECT_EQ(session.gIncidentStart, "7/1/2005");
    EXPECT_EQ(session.gAccountList.rows(), 1);
    EXPECT_THAT(ado::toText(session.gRequestCats), HasSubstr("O,"));
    EXPECT_EQ(session.gIniPath, program.home() + "/zel.ini");
}

TEST_P(StartUpTest, ADesktopStartOpensTheDatabaseBesideTheProgram) {
    addOneIncident();
    program.start("False,whatever,True");

    EXPECT_FALSE(session.gServerDialect);
    EXPECT_THAT(program.calls, ElementsAre("load frmAbout", "OpenDesktop Korvan.mdb ZEL", "load frmMain",
                                           "load frmPersonnel", "frmPersonnel.tbFormOpen"));
    EXPECT_EQ(session.gDBPath, program.folder / "database/Korvan.mdb");
    EXPECT_EQ(program.ini(), "[ZEL]\nDBSPath=" + session.gDBPath + "\nIncident=7\n");
}

TEST_P(StartUpTest, WithoutIncidentsNoScreenOpensByItself) {
    program.addScreen("frmPersonnel");
    program.addScreen("frmIncidents");
    program.start();

    EXPECT_EQ(session.gIncidentID, -1);
    EXPECT_EQ(session.gIncidentIndex, -1);
    EXPECT_EQ(session.gIncidentStart, "");
    EXPECT_THAT(program.calls, Not(Contains("load frmPersonnel")));
    EXPECT_THAT(program.calls, Contains("load frmIncidents"));
    EXPECT_EQ(program.shell().dbcIncident(0).Text(), "");
}

TEST_P(StartUpTest, AServerThatIsDownEndsTheStart) {
    program.suite.serverAnswers = false;
    program.start();

    const auto box = program.box();
    EXPECT_EQ(box.text, "No database found.");
    EXPECT_EQ(box.title, "ZEL: Cannot Open Application");
    EXPECT_EQ(box.icon, "critical");
    EXPECT_EQ(box.buttons, "OK");
    EXPECT_TRUE(session.Ended());
    EXPECT_EQ(program.forms.loaded("frmAbout"), nullptr);
}

TEST_P(StartUpTest, AServerConnectionThatStaysClosedClosesTheProgram) {
    program.suite.opens = false;
    program.start();

    const auto box = program.box();
    EXPECT_EQ(box.text, "Could not open the Korvan database...Closing ZEL!");
    EXPECT_EQ(box.title, "ZEL: No Connection");
    EXPECT_EQ(box.icon, "critical");
    EXPECT_TRUE(session.Ended());
}

TEST_P(StartUpTest, ADesktopDatabaseThatDoesNotOpenEndsTheStart) {
    program.suite.opens = false;
    program.start("False");

    const auto box = program.box();
    EXPECT_EQ(box.text, "Can not find or make a connection to the database!");
    EXPECT_EQ(box.title, "ZEL: No Path to DB");
    EXPECT_EQ(box.icon, "critical");
    EXPECT_TRUE(session.PreLoad);
    EXPECT_TRUE(session.Ended());
}

TEST_P(StartUpTest, ACommandLineThatIsNoTruthValueEndsTheStart) {
    program.start("perhaps");
    EXPECT_EQ(program.box().text, "No database found.");
    EXPECT_TRUE(session.Ended());
}

TEST_P(StartUpTest, ADatabaseWithoutAVersionRowEndsTheStart) {
    program.execute("delete from Version where Module = 'Database'");
    program.start();
    EXPECT_EQ(program.box().text, "No database found.");
    EXPECT_TRUE(session.Ended());
    EXPECT_EQ(program.forms.loaded("frmMain"), nullptr);
}

TEST_P(StartUpTest, AnOldDatabaseIsToldAndCancelEnds) {
    program.execute("update Version set Version = '4.03.01' where Module = 'Database'");
    program.dialogs.answer("Cancel");
    program.start();

    const auto box = program.box();
    EXPECT_EQ(box.title, "Incorrect Database Version");
    EXPECT_EQ(box.buttons, "OKCancel");
    EXPECT_EQ(box.text,
              "You are trying to connect to a prior year database (Version 4.03.01).\r\n"
              "This version of ZEL requires a 2005 database (version 5.01.00 or greater).\r\n\r\nOptions:\r\n\r\n"
              "1)  If you're using a 2004 database (version 4.xx) you must upgrade it using the RMU (Rollup Merge "
              "Utility) utility.\r\nSelect the Cancel button below.\r\n\r\n"
              "2)  If you're trying to open a 2005 datatbase, select the OK button below and let Korvan check for "
              "existing servers/databases.\r\nOnce this is done, the Server and Database Selection window will "
              "appear.\r\nSelect or type the server name with \\Korvan at the end (ex. HOST09\\Korvan), then select "
              "or type the database name and select the OK button.");
    EXPECT_TRUE(session.Ended());
}

TEST_P(StartUpTest, AfterOkTheClerkMayChooseAnotherDatabase) {
    program.execute("update Version set Version = '4.03.01' where Module = 'Database'");
    program.dialogs.answer("OK");
    program.dialogs.answer("Cancel");
    program.putIni("[ZEL]\nServer=OLD\nCatalog=Last\n");
    program.start();

    EXPECT_THAT(program.calls, testing::IsSupersetOf({"OpenServer ZEL 'OLD' 'Last'", "OpenServer ZEL '' ''"}));
    EXPECT_EQ(program.dialogs.take().size(), 2U); // the other one is as old
    EXPECT_TRUE(session.Ended());
}

TEST_P(StartUpTest, ASecondInstanceBringsTheFirstToTheFrontAndEndsAtOnce) {
    int activated = 0;
    session.app.PrevInstance = true;
    session.frontEnd.activatePrevious = [&activated] { ++activated; };
    program.start();

    EXPECT_EQ(activated, 1);
    EXPECT_TRUE(session.Ended());
    EXPECT_TRUE(program.calls.empty());
    EXPECT_TRUE(program.dialogs.take().empty());
}

TEST_P(StartUpTest, TheLoadingScreenShowsTheVersions) {
    addOneIncident();
    program.folder.put("bin", "");
    std::filesystem::remove(program.folder / "bin");
    std::filesystem::create_directories(program.folder / "bin");
    program.folder.put("bin/Korvan_Version", "2005.07 build 12\n");
    program.start();

    EXPECT_EQ(session.gBuildVersion, "2005.07 build 12");
    auto* about = program.forms.get<frmAbout>("frmAbout");
    EXPECT_EQ(about->lblVersion(3).Caption(), "5.01.00");
    EXPECT_EQ(about->lblVersion(4).Caption(), "5.01.00");
    EXPECT_EQ(about->prgBar.value(), 100);
    EXPECT_FALSE(about->lblLoading.Visible());
    EXPECT_EQ(about->lblLoading.Caption(), "Loading ZEL...Please Wait");
}

TEST_P(StartUpTest, WithoutABuildFileTheBuildIsUnknown) {
    addOneIncident();
    program.start();
    EXPECT_EQ(session.gBuildVersion, "Unknown");
}

struct DialectCase {
    const char* commandLine;
    bool server;
};

class CommandLineTest : public ::testing::TestWithParam<DialectCase> {};
INSTANTIATE_TEST_SUITE_P(Texts, CommandLineTest,
                         ::testing::Values(DialectCase{"", true}, DialectCase{"True", true}, DialectCase{"-1", true},
                                           DialectCase{"7,False", true}, DialectCase{"False", false},
                                           DialectCase{"0", false}, DialectCase{"false,True", false}));
TEST_P(CommandLineTest, OnlyTheFirstPartChoosesTheDialect) {
    TestProgram program(ado::EngineKind::Sqlite);
    program.start(GetParam().commandLine);
    EXPECT_EQ(program.session.gServerDialect, GetParam().server);
}

} // namespace zel::core
