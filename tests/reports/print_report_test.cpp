#include "reports/print_report.h"

#include "support/test_session.h"

#include <gmock/gmock.h>

namespace zel::reports {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using testing::SizeIs;

class PrintReportTest : public test::SessionTest {
protected:
    PrintReportTest() : engine(session()) {
        session().gIncidentID = 7;
        session().gServerDialect = !onSqlite();
        session().gServerName = "FIRE1";
        session().gCatalogName = "Korvan";
    }
    void put(const std::string& folder, const std::string& name) {
        program().files.makeFolder((program().folder / folder).string());
        program().files.write((program().folder / folder / name).string(), "layout");
    }
    void print(int number, const std::string& option = {}, bool flag = false) {
        const Viewer viewer = [this](modRpt& report, const std::string& title, bool) {
            viewed.push_back(title);
            EXPECT_EQ(report.rsRpt->State(), ado::stateOpen);
        };
        PrintReport(session(), engine, viewer, number, option, flag);
    }
    std::vector<std::string> started() {
        std::vector<std::string> arguments;
        for (const auto& start : program().processes.started)
            arguments.insert(arguments.end(), start.arguments.begin(), start.arguments.end());
        return arguments;
    }
    modRpt engine;
    std::vector<std::string> viewed;
};
ZEL_ON_BOTH_ENGINES(PrintReportTest);

TEST_P(PrintReportTest, WithoutTheReportingProgramEveryReportIsRefused) {
    for (const int number : {2, 6, 11}) {
        print(number);
        const auto shown = boxes();
        ASSERT_THAT(shown, SizeIs(1));
        EXPECT_EQ(shown[0].title, "ZEL: Tablon");
        EXPECT_EQ(shown[0].text, "Korvan Reporting module not found.\r\nPlease install Tablon!");
        EXPECT_EQ(shown[0].icon, "critical");
    }
    EXPECT_THAT(viewed, IsEmpty());
    EXPECT_THAT(started(), IsEmpty());
}

TEST_P(PrintReportTest, TheReportingProgramGetsOneArgument) {
    put("reports", "Tablon.exe");
    session().gDBPath = "/data/Korvan.mdb";
    print(6, " P12 ");
    print(15);
    session().gManageAll = true;
    print(7, "R5", true);
    const std::string dialect = onSqlite() ? "False" : "True";
    EXPECT_THAT(started(), ElementsAre("7,6,P12,FIRE1/Korvan,clerk,secret," + dialect + ",False,False",
                                       "7,15,0,FIRE1/Korvan,clerk,secret," + dialect + ",False,False",
                                       "7,7,R5,FIRE1/Korvan,clerk,secret," + dialect + ",True,True"));
    EXPECT_EQ(program().processes.started[0].program, (program().folder / "reports" / "Tablon.exe").string());
    EXPECT_THAT(program().processes.started[0].environment,
                ElementsAre(Pair("ZEL_HOME", program().folder.string()), Pair("ZEL_DATABASE", "/data/Korvan.mdb")));
    EXPECT_THAT(boxes(), IsEmpty());
}

TEST_P(PrintReportTest, CommissaryChargesAreShownByTheProgramItself) {
    put("reports", "tablon.exe");
    put("Reports", "CommissaryCharges.rpt");
    print(2);
    EXPECT_THAT(viewed, ElementsAre("Commissary Charges By Date"));
    EXPECT_THAT(started(), IsEmpty());
}

TEST_P(PrintReportTest, EquipmentManagementIsShownOnAServerOnly) {
    put("reports", "Tablon.exe");
    put("Reports", "EquipMgmt.rpt");
    print(11);
    if (onSqlite())
        EXPECT_THAT(viewed, IsEmpty());
    else
        EXPECT_THAT(viewed, ElementsAre("Equipment Management"));
    EXPECT_THAT(started(), IsEmpty());
    EXPECT_THAT(boxes(), IsEmpty());
}

TEST_P(PrintReportTest, TheShellPrintsThroughItsSlotsAndTheRosterIsShownWithoutTheReportingProgram) {
    connectReports(session(), [this](modRpt&, const std::string& title, bool) { viewed.push_back(title); });
    put("Reports", "CrewRoster.rpt");
    session().extensions.printCrewRoster();
    const auto shown = boxes();
    ASSERT_THAT(shown, SizeIs(1));
    EXPECT_EQ(shown[0].text, "No Crew Selected");
    session().gCurrentResourceID = 3;
    session().extensions.printCrewRoster();
    EXPECT_THAT(viewed, ElementsAre("Crew Roster"));
    session().extensions.PrintReport(6, "R3");
    EXPECT_THAT(boxes(), SizeIs(1)); // there is no reporting program
}

} // namespace
} // namespace zel::reports
