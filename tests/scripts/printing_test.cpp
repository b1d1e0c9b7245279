#include "scripts/program_run.h"
#include "support/database_test.h"

#include <gmock/gmock.h>

namespace zel::test {
namespace {

using testing::HasSubstr;
using testing::Not;

/// What zel-run prints with --out, and what it makes of a reporting program that does not.
class PrintingTest : public testing::TestWithParam<ado::EngineKind> {
protected:
    [[nodiscard]] std::string printPersonThree() {
        return program.run("start False\nopen \"Post Time\"\npick dbcPersonnel 3 PID\npress frmPost.cmdPrint286\n");
    }
    ProgramRun program{GetParam()};
};
ZEL_ON_BOTH_ENGINES(PrintingTest);

TEST_P(PrintingTest, TheTimeReportShowsTheRows) {
    program.installReports();
    const std::string answers =
        program.run("start False\n"
                    "sql \"insert into PersonsPost (PersonsPostID, PersonID, ActivityDT, StartTime, StopTime, Hours, "
                    "AccountingID, KindCode, Class, Rate) select 99999, 3, '8/1/2005', '1899-12-30 18:00', "
                    "'1899-12-30 00:00', 6, AccountingID, 'XKIND', 'AD-Q', 17.5 from PersonsPost where PersonsPostID = "
                    "(select min(PersonsPostID) from PersonsPost where PersonID = 3)\"\n"
                    "open \"Post Time\"\npick dbcPersonnel 3 PID\npress frmPost.cmdPrint286\n");
    ASSERT_THAT(answers, HasSubstr("\"printed\":[\"{home}/OF-288 P3.pdf\"]"));
    const std::string text = program.printed("OF-288 P3.pdf");
    for (const char* part : {"08/01/05", "18:00", "24:00", "XKIND", "AD-Q", "$17.50", "$105.00"})
        EXPECT_THAT(text, HasSubstr(part));
}

TEST_P(PrintingTest, TheViewersReportIsPrintedToo) {
    program.installReports();
    const std::string answers = program.run("start False\nmenu mnuRepCommChg\n");
    EXPECT_THAT(answers, HasSubstr("\"printed\":[\"{home}/Commissary Charges By Date.pdf\"]"));
    EXPECT_THAT(program.printed("Commissary Charges By Date.pdf"), HasSubstr("COLD CREEK"));
}

TEST_P(PrintingTest, AReportingProgramThatCrashesFailsTheCommandAndNothingElse) {
    program.installReportsScript("kill -SEGV $$");
    const std::string answers = program.run("start False\nanswer No\nmenu mnuRepCommAuth\n");
    EXPECT_THAT(answers, HasSubstr("\"ok\":false,\"error\":\"the reporting program ended with status 139\""));
    EXPECT_EQ(program.status(), 1);
    EXPECT_THAT(program.run("start False\nget dbcIncident(0)\nquit\n"), HasSubstr("COLD CREEK"));
}

TEST_P(PrintingTest, AReportingProgramThatCannotBeStartedIsToldInABox) {
    program.installReportsScript("#");
    program.forbidReports();
    const std::string answers = printPersonThree();
    EXPECT_THAT(answers, HasSubstr("Error: 75 Desc: {home}/zel/reports/Tablon.exe cannot be started."));
    EXPECT_EQ(program.status(), 0);
}

TEST_P(PrintingTest, WhatTheReportingProgramTellsIsABoxOfTheCommand) {
    program.installReportsScript("echo 'No paper.' >&2; exit 1");
    const std::string answers = printPersonThree();
    EXPECT_THAT(answers, HasSubstr("\"title\":\"Tablon\",\"text\":\"No paper.\""));
    EXPECT_THAT(answers, HasSubstr("the reporting program ended with status 1"));
}

TEST_P(PrintingTest, AConnectionWithoutAPasswordGivesNone) {
    program.installReportsScript("echo \"$1\"");
    const std::string answers = printPersonThree();
    const std::string database = GetParam() == ado::EngineKind::Sqlite ? "/,,,False" : "{database}/{catalog},,,True";
    EXPECT_THAT(answers, HasSubstr("\"printed\":[\"2,6,P3," + database + ",False,False\"]"));
}

} // namespace
} // namespace zel::test
