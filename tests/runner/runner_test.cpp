#include "runner/runner.h"

#include "runner/fake_program.h"

#include <gmock/gmock.h>

#include <sstream>

namespace zel::runner {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class RunnerTest : public testing::Test {
protected:
    /// Runs a script on the test screen and gives the lines it answers, without that of `start`.
    std::vector<std::string> run(const std::string& script, bool keepGoing = false) {
        std::istringstream in("start\n" + script);
        std::ostringstream out;
        Runner runner(program, out, keepGoing);
        status = runner.run(in);
        std::vector<std::string> lines;
        std::istringstream answers(out.str());
        for (std::string line; std::getline(answers, line);)
            lines.push_back(line);
        lines.erase(lines.begin());
        return lines;
    }
    /// The single answer of a single command.
    std::string answer(const std::string& command) {
        const auto lines = run(command);
        return lines.size() == 1 ? lines.front() : "not one answer";
    }

    FakeProgram program;
    int status = -1;
};

TEST_F(RunnerTest, Each_command_answers_with_one_line) {
    EXPECT_THAT(
        run("# a comment\n\n  press mnuExit\nget txtName\n"),
        ElementsAre(R"({"line":4,"cmd":"press","ok":true,"boxes":[{"kind":"message","title":"ZEL","text":"Exit",)"
                    R"("icon":"none","buttons":"OK","default":"OK","answer":"OK","unanswered":true}]})",
                    R"({"line":5,"cmd":"get","ok":true,"value":"","boxes":[]})"));
    EXPECT_EQ(status, 0);
}

TEST_F(RunnerTest, Start_passes_the_command_line_on) {
    run("start False,x");
    EXPECT_EQ(program.startedWith, "False,x");
}

TEST_F(RunnerTest, Without_a_window_a_picture_is_nothing_and_the_script_goes_on) {
    EXPECT_THAT(run("picture day\npicture-box question"),
                ElementsAre(R"({"line":2,"cmd":"picture","ok":true,"picture":null,"boxes":[]})",
                            R"({"line":3,"cmd":"picture-box","ok":true,"boxes":[]})"));
}

TEST_F(RunnerTest, A_picture_stays_in_its_folder) {
    for (const char* name : {"../day", "a/b", ".hidden", "''"})
        EXPECT_THAT(answer(std::string("picture ") + name), HasSubstr("is no name for a picture")) << name;
}

TEST_F(RunnerTest, A_failed_command_ends_the_script_with_status_1) {
    EXPECT_THAT(
        run("press cmdSave(7)\nget txtName"),
        ElementsAre(R"j({"line":2,"cmd":"press","ok":false,"error":"frmTest has no control cmdSave(7)","boxes":[]})j"));
    EXPECT_EQ(status, 1);
}

TEST_F(RunnerTest, Keep_going_goes_on_and_still_ends_with_status_1) {
    EXPECT_EQ(run("press cmdSave(7)\nget txtName", true).size(), 2U);
    EXPECT_EQ(status, 1);
}

TEST_F(RunnerTest, Lines_that_are_no_command_are_refused_by_name) {
    EXPECT_THAT(answer("fly"), HasSubstr(R"("ok":false,"error":"there is no command fly; `help` lists them")"));
    EXPECT_THAT(answer("press"), HasSubstr(R"("error":"press takes CONTROL")"));
    EXPECT_THAT(answer("press a b"), HasSubstr(R"("error":"press takes CONTROL")"));
    EXPECT_THAT(answer("quit now"), HasSubstr(R"("error":"quit takes no arguments")"));
    EXPECT_THAT(answer("press 'open"),
                HasSubstr(R"({"line":2,"cmd":"","ok":false,"error":"a quote (') without its end")"));
}

TEST_F(RunnerTest, What_a_clerk_could_not_do_is_refused) {
    EXPECT_THAT(answer("type txtHidden x"), HasSubstr(R"("ok":false,"error":"txtHidden)"));
    program.screen().cmdSave(0).setEnabled(false);
    EXPECT_THAT(answer("press cmdSave(0)"), HasSubstr(R"("ok":false,"error":"cmdSave(0))"));
    EXPECT_THAT(answer("press frmPost.cmdSave(0)"), HasSubstr(R"("error":"frmPost is not open")"));
    EXPECT_THAT(answer("row dbgPeople 3"), HasSubstr(R"j("error":"3 is not a row of dbgPeople (1 to 2)")j"));
    EXPECT_THAT(answer("row txtName 1"), HasSubstr(R"("error":"txtName is a TextBox, not a grid")"));
    EXPECT_THAT(answer("tab tabMain 2"), HasSubstr(R"j("error":"2 is not a page of tabMain (0 to 1)")j"));
    EXPECT_THAT(answer("check chkAll maybe"), HasSubstr(R"("error":"maybe is neither on nor off")"));
    EXPECT_THAT(answer("get txtName Weight"), HasSubstr(R"("error":"txtName has no property Weight")"));
    EXPECT_THAT(answer("show txtName"), HasSubstr(R"("error":"txtName is a TextBox, which has no rows")"));
}

TEST_F(RunnerTest, Typing_leaves_the_control_behind) {
    EXPECT_THAT(
        run("type txtName DOE\nleave txtName\nexpect txtName DOE.\nkey txtName {End}{Backspace}X\nget txtName").back(),
        HasSubstr(R"("value":"DOEX")"));
}

TEST_F(RunnerTest, An_answer_is_taken_by_the_next_box) {
    EXPECT_THAT(
        run("answer Yes\npress cmdSave(0)\nget frmTest Caption"),
        ElementsAre(R"({"line":2,"cmd":"answer","ok":true,"boxes":[]})",
                    R"({"line":3,"cmd":"press","ok":true,"boxes":[{"kind":"message","title":"ZEL: WARNING",)"
                    R"("text":"Save .?\r\nNow?","icon":"question","buttons":"YesNo","default":"No","answer":"Yes"}]})",
                    R"({"line":4,"cmd":"get","ok":true,"value":"saved","boxes":[]})"));
}

TEST_F(RunnerTest, A_box_without_an_answer_takes_its_default_and_says_so) {
    EXPECT_THAT(run("press cmdSave(0)").back(), HasSubstr(R"("default":"No","answer":"No","unanswered":true)"));
    EXPECT_EQ(program.screen().Caption(), "not saved");
}

TEST_F(RunnerTest, An_answer_that_does_not_suit_the_box_fails_the_command) {
    EXPECT_THAT(run("answer Cancel\npress cmdSave(0)").back(),
                HasSubstr(R"("cmd":"press","ok":false,"error":"the answer)"));
    EXPECT_EQ(program.screen().Caption(), "not saved");
}

TEST_F(RunnerTest, A_modal_form_is_answered_by_commands) {
    const auto lines =
        run("answer \"form:type txtOffice 'NORTH; OFFICE'; get txtOffice; press cmdOK\"\npress cmdSave(1)");
    EXPECT_EQ(program.office, "NORTH; OFFICE");
    EXPECT_THAT(lines.back(), HasSubstr(R"("kind":"form","title":"Office")"));
    EXPECT_THAT(lines.back(),
                HasSubstr(R"("commands":[{"cmd":"type","ok":true},)"
                          R"({"cmd":"get","ok":true,"value":"NORTH; OFFICE"},{"cmd":"press","ok":true}])"));
}

TEST_F(RunnerTest, A_failure_on_a_modal_form_fails_the_command_that_opened_it) {
    const auto lines = run("answer 'form:press cmdNothing'\npress cmdSave(1)");
    EXPECT_THAT(lines.back(), HasSubstr(R"("cmd":"press","ok":false,)"
                                        R"("error":"on frmAsk: press: frmAsk has no control cmdNothing")"));
}

TEST_F(RunnerTest, A_slip_in_a_form_answer_is_told_on_its_own_line) {
    EXPECT_THAT(answer("answer 'form:fly away'"),
                HasSubstr(R"("cmd":"answer","ok":false,"error":"there is no command fly)"));
    EXPECT_THAT(answer("answer ''"), HasSubstr(R"("error":"an empty answer)"));
}

TEST_F(RunnerTest, Boxes_of_the_last_action_can_be_expected) {
    run("press cmdSave(0)\nget txtName\nexpect-box 'Save .? Now?'\nexpect-box WARNING");
    EXPECT_EQ(status, 0);
    EXPECT_THAT(run("press cmdSave(0)\nexpect-box Saved").back(),
                HasSubstr(R"("ok":false,"error":"no box of the last action holds 'Saved'")"));
    EXPECT_THAT(run("press cmdSave(0)\ncheck chkAll on\nexpect-box Save").back(),
                HasSubstr(R"("ok":false,"error":"the last action showed no box")"));
}

TEST_F(RunnerTest, Expect_fails_with_what_is_there) {
    run("get frmTest Visible\nexpect tmrMinute true");
    EXPECT_EQ(status, 0);
    EXPECT_THAT(run("type txtName DOE\nexpect txtName ROE").back(),
                HasSubstr(R"("ok":false,"error":"txtName shows 'DOE', not 'ROE'","value":"DOE")"));
}

TEST_F(RunnerTest, Menus_toolbar_tabs_and_lists) {
    EXPECT_THAT(run("menu mnuExit").back(), HasSubstr(R"("text":"Exit")"));
    EXPECT_THAT(run("toolbar Save").back(), HasSubstr(R"("text":"Toolbar Save")"));
    EXPECT_THAT(run("tab tabMain 1\nget tabMain").back(), HasSubstr(R"("value":1)"));
    EXPECT_THAT(run("tab tabMain add\nget tabMain").back(), HasSubstr(R"("value":0)"));
    EXPECT_THAT(run("pick cboKind DOZER\nget cboKind").back(), HasSubstr(R"("value":"DOZER")"));
    EXPECT_THAT(run("pick dbcPeople BAKER Name\nget dbcPeople").back(), HasSubstr(R"("value":"BAKER")"));
    EXPECT_THAT(answer("show cboKind"),
                HasSubstr(R"("rows":[{"Text":"ENGINE","ItemData":7},{"Text":"DOZER","ItemData":8}])"));
}

TEST_F(RunnerTest, Rows_of_a_grid_stand_under_caption_or_field) {
    EXPECT_THAT(answer("show dbgPeople"),
                HasSubstr(R"("rows":[{"Person":"ADAMS","Rate":18.2},{"Person":"BAKER","Rate":null}])"));
}

TEST_F(RunnerTest, Grids_are_edited_cell_by_cell) {
    run("row dbgPeople 2\ncell dbgPeople 2 Person COOK\ncommit dbgPeople");
    EXPECT_EQ(status, 0);
    EXPECT_EQ(program.screen().people(1, 0), ado::Value("COOK"));
    EXPECT_THAT(answer("cell dbgPeople 2 Shoe 12"), HasSubstr(R"("error":"dbgPeople has no column Shoe")"));
}

TEST_F(RunnerTest, A_popup_entry_is_found_by_caption_or_name) {
    run("row dbgPeople 1\npopup dbgPeople 'delete record'");
    EXPECT_EQ(program.screen().people.rows(), 1);
    EXPECT_THAT(answer("popup dbgPeople mnuExit"), HasSubstr(R"("error":"mnuPopup has no entry mnuExit")"));
}

TEST_F(RunnerTest, Rows_are_marked_and_unmarked) {
    run("select lstNames 1 3");
    EXPECT_TRUE(program.screen().lstNames.Selected(0));
    EXPECT_FALSE(program.screen().lstNames.Selected(1));
    EXPECT_TRUE(program.screen().lstNames.Selected(2));
    run("select lstNames none");
    EXPECT_EQ(program.screen().lstNames.SelCount(), 0);
    run("select dbgPeople all");
    EXPECT_EQ(program.screen().dbgPeople.SelBookmarks.Count(), 2);
    EXPECT_THAT(answer("select lstNames 4"), HasSubstr(R"j("error":"4 is not a row of lstNames (1 to 3)")j"));
}

TEST_F(RunnerTest, A_form_lists_its_controls) {
    const auto line = answer("form");
    EXPECT_THAT(line, HasSubstr(R"("name":"frmTest","caption":"Test","visible":true,"controls":[)"));
    EXPECT_THAT(
        line,
        HasSubstr(R"j({"name":"cmdSave(0)","type":"CommandButton","value":"&Save","visible":true,"enabled":true})j"));
    EXPECT_THAT(line, HasSubstr(R"({"name":"txtHidden","type":"TextBox","value":"","visible":false,)"));
}

TEST_F(RunnerTest, Statements_give_rows_by_column) {
    program.openDatabase();
    EXPECT_THAT(answer("sql 'select * from People order by PersonID'"),
                HasSubstr(R"("rows":[{"PersonID":1,"Name":"ADAMS","Paid":true,"Born":"1/2/1970","Rate":18.2},)"
                          R"({"PersonID":2,"Name":null,"Paid":false,"Born":"1:30:00 PM","Rate":null}])"));
    EXPECT_THAT(answer(R"(sql "update People set Name = 'COOK' where PersonID = 2")"),
                HasSubstr(R"("ok":true,"count":1)"));
    EXPECT_THAT(answer("sql 'select * from Nowhere'"), HasSubstr(R"("ok":false,"error":"Error: )"));
    run("expect-rows 2 'select * from People'");
    EXPECT_EQ(status, 0);
    EXPECT_THAT(answer("expect-rows 1 'select * from People'"),
                HasSubstr(R"("error":"the statement gives 2 rows, not 1")"));
}

TEST_F(RunnerTest, Columns_are_spelled_as_in_the_schema_and_the_first_of_a_name_is_meant) {
    program.openDatabase();
    EXPECT_THAT(answer("sql 'select 1 as persONid, 2 as MyOwn, 3 as lnfn, 4 as PersonID'"),
                HasSubstr(R"("rows":[{"PersonID":1,"MyOwn":2,"LnFn":3}])"));
}

TEST_F(RunnerTest, Statements_are_reported_once_they_are_asked_for) {
    program.openDatabase();
    const auto lines = run("expect-rows 2 'select * from People'\nstatements on\nexpect-rows 2 'select * from People'\n"
                           "statements off\nexpect-rows 2 'select * from People'");
    EXPECT_THAT(lines[0], testing::Not(HasSubstr("sql")));
    EXPECT_THAT(lines[2], HasSubstr(R"("sql":["select * from People"])"));
    EXPECT_THAT(lines[4], testing::Not(HasSubstr("sql")));
}

TEST_F(RunnerTest, Without_a_connection_a_statement_fails_with_the_provider_error) {
    EXPECT_THAT(answer("sql 'select 1'"), HasSubstr(R"("error":"Error: 3704 Desc: )"));
}

TEST_F(RunnerTest, Time_stands_still_until_it_is_told_to_pass) {
    run("tick 59999");
    EXPECT_EQ(program.screen().ticks, 0);
    run("tick 1");
    EXPECT_EQ(program.screen().ticks, 1);
    run("tick 180000");
    EXPECT_EQ(program.screen().ticks, 4);
    run("now 2005-07-09T13:30:00");
    EXPECT_EQ(program.clock().Now(), ado::DateTime::fromDate(2005, 7, 9).addDays(13.5 / 24));
    EXPECT_THAT(answer("now yesterday"), HasSubstr(R"("error":"yesterday is no time, as 2005-07-04T08:00:00")"));
}

TEST_F(RunnerTest, Globals_have_their_own_names_and_types) {
    program.session().gIncidentID = 12;
    EXPECT_THAT(answer("globals gincidentid"), HasSubstr(R"("value":12)"));
    EXPECT_THAT(answer("globals gServerDialect"), HasSubstr(R"("value":true)"));
    EXPECT_THAT(answer("globals gLastSaved"), HasSubstr(R"("value":null)"));
    EXPECT_THAT(answer("globals"), HasSubstr(R"("gIncidentID":12,"gIncidentIndex":-1,)"));
    EXPECT_THAT(answer("globals gNothing"), HasSubstr(R"("error":"there is no global gNothing")"));
}

TEST_F(RunnerTest, Procedures_are_called_by_name) {
    EXPECT_THAT(answer("call CalcHours 08:00 20:00"), HasSubstr(R"("result":12,"byref":{})"));
    EXPECT_THAT(answer("call calchours 20:00 24:00"), HasSubstr(R"("result":4,)"));
    EXPECT_THAT(answer("call CalcAmount 12 18.20 0 1"), HasSubstr(R"("result":218.4,)"));
    EXPECT_THAT(answer("call CalcHours 8"), HasSubstr(R"("error":"CalcHours takes start stop")"));
    EXPECT_THAT(answer("call CalcHours noon 20:00"), HasSubstr(R"("error":"'noon' is no date or time")"));
    EXPECT_THAT(answer("call Fly"), HasSubstr(R"("error":"there is no procedure Fly; `call` alone lists them")"));
    EXPECT_THAT(answer("call"), HasSubstr(R"("CalcHours start stop")"));
}

TEST_F(RunnerTest, A_report_is_asked_for_with_numbers_where_numbers_belong) {
    EXPECT_THAT(answer("call GetSQLRS six"), HasSubstr("'six' is no number"));
    EXPECT_THAT(answer("call GetSQLRS 5 1 R Null Null much"), HasSubstr("'much' is no number"));
    EXPECT_THAT(answer("call GetSQLRS 7 Null Null Null Null Null Null Null 9 maybe"), HasSubstr("'maybe' is no flag"));
}

TEST_F(RunnerTest, Open_names_a_screen_and_its_tab) {
    run("open Post 2");
    EXPECT_EQ(program.opened, "Post 2");
    run("open Personnel");
    EXPECT_EQ(program.opened, "Personnel 0");
}

TEST_F(RunnerTest, Quit_leaves_the_program_and_the_script) {
    EXPECT_EQ(run("quit\nfly").size(), 1U);
    EXPECT_TRUE(program.quitted);
    EXPECT_EQ(status, 0);
}

TEST_F(RunnerTest, Quit_tells_of_answers_that_no_box_took) {
    EXPECT_THAT(run("answer OK No\npress mnuExit\nquit").back(),
                HasSubstr(R"("cmd":"quit","ok":true,"answersLeft":1,)"));
    program.dialogs().forgetAnswers();
    EXPECT_THAT(run("quit").back(), testing::Not(HasSubstr("answersLeft")));
}

TEST_F(RunnerTest, Help_lists_every_command) {
    const auto line = answer("help");
    for (const auto& command : commands())
        EXPECT_THAT(line, HasSubstr("{\"command\":\"" + std::string(command.name) + "\""));
}

TEST_F(RunnerTest, A_question_that_comes_back_for_ever_ends_the_script) {
    struct Stuck {};
    program.dialogs().stuck = [](const std::string&) { throw Stuck(); };
    program.screen().cmdSave(0).Click = [this] {
        while (true)
            program.dialogs().input({.prompt = "Limit your comment.", .title = "ZEL", .defaultText = "much too long"});
    };
    EXPECT_THROW(run("press cmdSave(0)"), Stuck);
    EXPECT_EQ(program.dialogs().shown().back().text, "Limit your comment.");
}

} // namespace
} // namespace zel::runner
