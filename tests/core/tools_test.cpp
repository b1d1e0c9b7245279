#include "core/test_program.h"
#include "core/tools.h"

#include "ado/convert.h"

namespace zel::core {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;

class ToolsTest : public ProgramTest {
protected:
    ToolsTest() {
        program.addScreen("frmIncidents");
        program.addIncident(7, "BEAR CREEK", "OR-ABC-000123");
        program.addIncident(9, "ELK RIDGE", "OR-ABC-000124");
        program.execute("insert into Resources (ResourceID, IncidentID, Name) values (1, 7, 'DOE')");
        program.execute("insert into Resources (ResourceID, IncidentID, Name) values (2, 9, 'ROE')");
        program.execute("insert into Persons (PersonID, ResourceID, LastName) values (11, 1, 'DOE')");
        program.execute("insert into PersonsPost (PersonsPostID, PersonID) values (101, 11)");
        program.execute("insert into PersonsDebit (PersonsDebitID, PersonID) values (201, 11)");
        program.start();
        program.takeCalls();
        program.statements.clear();
    }
    void choose(const char* menu) { EXPECT_EQ(program.user.click(program.shell().menu(menu)).refusal, ""); }
    std::int64_t rows(const std::string& table) {
        ado::Recordset records;
        records.Open(ado::Sql::words("select count(*) as HowMany from " + table), program.database.connection());
        return ado::toLong(records.value("HowMany"));
    }
};
ZEL_ON_BOTH_ENGINES(ToolsTest);

TEST_P(ToolsTest, EraseAsksThreeTimesAndEmptiesTheTables) {
    std::vector<std::string> states;
    session.frontEnd.DoEvents = [&] { states.push_back(program.shell().lblStatus.Caption()); };
    for (int question = 0; question < 3; ++question)
        program.dialogs.answer("Yes");
    choose("mnuToolsDelDB");

    const auto shown = program.dialogs.take();
    ASSERT_EQ(shown.size(), 3U);
    EXPECT_EQ(shown[0].text,
              "All Incident, Personnel, Crew, Contract and Debit data\r\nand all Posting information will "
              "be completely erased.\r\n\r\nThis action *Cannot* be undone.\r\n\r\nAre you sure you want "
              "to continue?     (1)");
    EXPECT_THAT(shown[2].text, testing::EndsWith("Are you sure you want to continue?     (3)"));
    EXPECT_EQ(shown[0].title, "ZEL: WARNING!");
    EXPECT_EQ(shown[0].icon, "critical");
    EXPECT_EQ(shown[0].buttons, "YesNo");
    EXPECT_EQ(shown[0].defaultAnswer, "No");
    EXPECT_THAT(program.statements,
                testing::IsSupersetOf({"DELETE * FROM Incidents;", "DELETE * FROM ContractorDebit;",
                                       "DELETE * FROM EquipmentUOM;", "DELETE * FROM ReportRecords;"}));
    EXPECT_EQ(program.statements.size(), 13U); // and the list of incidents
    EXPECT_THAT(states, ElementsAre("Removing Incident Records.", "Removing Contractor Records.",
                                    "Removing Contractor Debit Records.", "Removing Agreement Records.",
                                    "Removing Equipment Records.", "Removing Equipment Post Records.",
                                    "Removing Equipment UOM Records.", "Removing Personnel Debit Records.",
                                    "Removing Personnel Post Records.", "Removing Personnel Records.",
                                    "Removing Resource Records.", "Removing Resource Records."));
    EXPECT_EQ(program.shell().lblStatus.Caption(), "Reloading database.");
    for (const char* table : {"Incidents", "Resources", "Persons", "PersonsPost", "PersonsDebit"})
        EXPECT_EQ(rows(table), 0) << table;
    EXPECT_EQ(session.gIncidentID, -1);
}

TEST_P(ToolsTest, AnyNoLeavesTheDataAlone) {
    for (int yes = 0; yes < 3; ++yes) {
        for (int question = 0; question < yes; ++question)
            program.dialogs.answer("Yes");
        program.dialogs.answer("No");
        choose("mnuToolsDelDB");
        EXPECT_EQ(program.dialogs.take().size(), static_cast<std::size_t>(yes + 1));
    }
    EXPECT_TRUE(program.statements.empty());
    EXPECT_EQ(rows("Incidents"), 2);
}

TEST_P(ToolsTest, TheBackupLiesBesideTheDatabaseUnderTheTime) {
    session.gDBPath = "/data/Korvan.mdb";
    choose("mnuToolsBackup");
    EXPECT_THAT(program.calls, ElementsAre("copyDatabase /data/Korvan.mdb /data/2005-07-04.13.30.00.mdb"));
    EXPECT_TRUE(program.dialogs.take().empty());
}

TEST_P(ToolsTest, ABackupThatFailsTellsNobody) {
    program.suite.copyFails = true;
    choose("mnuToolsBackup");
    EXPECT_TRUE(program.dialogs.take().empty());
}

TEST_P(ToolsTest, AfterADeletedIncidentTheIncidentScreenOpens) {
    program.suite.deletesIncident = true;
    program.execute("delete from Incidents where IncidentID = 7");
    choose("mnuToolsDelInc");
    EXPECT_THAT(program.calls, Contains("DeleteIncident 7"));
    EXPECT_EQ(program.shell().ActiveForm()->Name(), "frmIncidents");
    EXPECT_EQ(session.gIncidentID, 9);
    EXPECT_FALSE(program.forms.Hourglass());
}

TEST_P(ToolsTest, WithNoIncidentLeftThereIsNone) {
    program.suite.deletesIncident = true;
    program.execute("delete from Incidents");
    choose("mnuToolsDelInc");
    EXPECT_EQ(session.gIncidentID, -1);
    EXPECT_EQ(session.gIncidentIndex, -1);
    EXPECT_EQ(program.shell().ActiveForm()->Name(), "frmIncidents");
}

TEST_P(ToolsTest, AnIncidentThatWasNotDeletedStays) {
    choose("mnuToolsDelInc");
    EXPECT_THAT(program.calls, ElementsAre("DeleteIncident 7"));
    EXPECT_EQ(session.gIncidentID, 7);
}

TEST_P(ToolsTest, TheCascadeRemovesOneIncidentInItsOrder) {
    EXPECT_TRUE(DeleteIncident(session, 7));
    const std::string resources = "(select resourceid from resources where incidentid = 7)";
    EXPECT_THAT(
        program.statements,
        ElementsAre(
            "delete from personsdebit where personid in (select personid from persons where resourceid in " +
                resources + ")",
            "delete from personspost where personid in (select personid from persons where resourceid in " + resources +
                ")",
            "delete from persons where resourceid in " + resources,
            "delete from equipmentpost where equipmentid in (select equipmentid from equipment where resourceid in " +
                resources + ")",
            "delete from contractordebit where equipmentid in (select equipmentid from equipment where resourceid in " +
                resources + ")",
            "delete from equipmentuom where equipmentid in (select equipmentid from equipment where resourceid in " +
                resources + ")",
            "delete from equipment where resourceid in " + resources,
            "delete from agreement where contractorid in " + resources, "delete * from contractor where incidentid = 7",
            "delete from quals where resourceid in " + resources, "delete from daily where resourceid in " + resources,
            "delete from airday where resourceid in " + resources,
            "delete from ics204_resources where ics204_id in (select ics204_id from ics204 where incidentid = 7)",
            "delete from ics204 where incidentid = 7",
            "delete from projection where projectiongroupid in (select projectiongroupid from projectiongroup where "
            "incidentid = 7)",
            "delete from projectiongroup where incidentid = 7", "delete from acres where incidentid = 7",
            "delete from division where incidentid = 7", "delete * from resources where incidentid = 7",
            "delete * from incidents where incidentid = 7"));
    EXPECT_EQ(rows("Incidents"), 1);
    EXPECT_EQ(rows("Resources"), 1);
    EXPECT_EQ(rows("PersonsPost"), 0);
    EXPECT_FALSE(program.forms.Hourglass());
}

TEST_P(ToolsTest, AFailureInTheCascadeIsShownAndLeavesWhatWasRemovedRemoved) {
    program.execute("drop table quals");
    EXPECT_FALSE(DeleteIncident(session, 7));
    EXPECT_THAT(program.box().text, testing::StartsWith("Num: "));
    EXPECT_EQ(rows("PersonsPost"), 0);
    EXPECT_EQ(rows("Incidents"), 2);
}

TEST_P(ToolsTest, TheStatusOfAllScreensIsWrittenIntoTheFolderAsked) {
    program.run([this] { program.shell().OpenScreen("Incidents", true, 0); });
    session.vYNMSa = ",12,13";
    program.dialogs.answer("text:debug1");
    choose("mnuLogCurrStatus");
    const auto box = program.box();
    EXPECT_EQ(box.text, "What subdirectory would you like to store the debugging records in?");
    EXPECT_EQ(box.title, "ZEL: Debug Log(s) Path");
    EXPECT_EQ(box.defaultAnswer, "zel");
    EXPECT_EQ(session.gLogFolder, program.home() + "/debug1/");

    const std::string dump = program.folder.bytes("zel/debug1/frmMain.dump.log");
    EXPECT_THAT(dump, testing::StartsWith(
                          "Me.Caption = ZEL - Zelmark Hour Ledger\r\nMe.Tag = \r\nActiveForm = frmIncidents\r\nPreLoad "
                          "= False\r\nLoading = False\r\nWorking = False\r\nReloading = False\r\nUnloading = False\r\n"
                          "Validating = False\r\nTimeChanged(0) = False\r\nTimeChanged(1) = False\r\nmvarUserID = \r\n"
                          "vYNMS = 0\r\nvYNMSc = False\r\nvYNMSa = ,12,13\r\nKillT = False\r\nErrMsg = \r\nUpdFlag = "
                          "0\r\nUpdIndex = \r\nlMergeID = 0\r\nApp.PrevInstance = False\r\n"
                          "======================================\r\n"));
    EXPECT_THAT(dump, HasSubstr("dbcIncident(0)"));
    EXPECT_THAT(program.folder.bytes("zel/debug1/frmIncidents.dump.log"), testing::StartsWith("Me.Caption = \r\n"));
}

TEST_P(ToolsTest, ACancelledDumpWritesNothing) {
    program.dialogs.answer("Cancel");
    choose("mnuLogCurrStatus");
    EXPECT_FALSE(std::filesystem::exists(program.home() + "/frmMain.dump.log"));
}

} // namespace zel::core
