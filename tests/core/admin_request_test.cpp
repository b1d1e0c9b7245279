#include "core/frmRefs.h"
#include "core/test_program.h"
#include "forms/text_box.h"

namespace zel::core {

using testing::IsEmpty;

class AdminRequestTest : public ::testing::Test {
protected:
    AdminRequestTest() {
        program.addIncident(7, "BEAR CREEK", "OR-ABC-000123");
        program.start("False");
        program.dialogs.take();
    }
    void request(const std::string& text) { program.folder.put("zel/Korvan.xdb", text); }
    void load() {
        program.run([this] { program.forms.load("frmRefs"); });
    }
    void pass(std::int64_t milliseconds) { platform::runFor(program.timers, program.clock, milliseconds); }
    std::size_t boxes() { return program.dialogs.take().size(); }

    TestProgram program{ado::EngineKind::Sqlite};
    Session& session = program.session;
};

TEST_F(AdminRequestTest, BeforeTheHiddenFormIsUsedNothingChecks) {
    request("OutNow");
    pass(300'000);
    EXPECT_FALSE(session.Ended());
}

TEST_F(AdminRequestTest, OutNowClosesTheProgramWithinAMinuteWithoutAQuestion) {
    load();
    request("OutNow\r\n");
    pass(59'999);
    EXPECT_FALSE(session.Ended());
    pass(1);
    EXPECT_TRUE(session.Ended());
    EXPECT_EQ(boxes(), 0U);
    EXPECT_FALSE(session.IsOnTimer);
}

TEST_F(AdminRequestTest, AnyOtherTextAsksAndYesLeaves) {
    load();
    request("Backup at noon.\nPlease leave.\n");
    program.dialogs.answer("Yes");
    pass(60'000);
    const auto box = program.box();
    EXPECT_EQ(box.text, "A request has been made to perform administrative functions.\r\n\r\nBackup at noon.\r\nPlease "
                        "leave.\r\nWould you like to exit the application now?");
    EXPECT_EQ(box.title, "ZEL: Administrative Request");
    EXPECT_EQ(box.icon, "critical");
    EXPECT_EQ(box.buttons, "YesNo");
    EXPECT_EQ(box.defaultAnswer, "No");
    EXPECT_TRUE(session.Ended());
}

TEST_F(AdminRequestTest, AfterNoTheQuestionComesBackEvery15SecondsUntilTheFileIsGone) {
    load();
    request("Backup at noon.");
    pass(60'000);
    EXPECT_EQ(boxes(), 1U);
    pass(14'999);
    EXPECT_EQ(boxes(), 0U);
    pass(1);
    EXPECT_EQ(boxes(), 1U);
    pass(15'000);
    EXPECT_EQ(boxes(), 1U);
    std::filesystem::remove(program.home() + "/Korvan.xdb");
    pass(300'000);
    EXPECT_EQ(boxes(), 0U);
    EXPECT_FALSE(session.Ended());
}

TEST_F(AdminRequestTest, OutNowWithMoreTextAsks) {
    load();
    request("OutNow\nplease\n");
    pass(60'000);
    EXPECT_EQ(boxes(), 1U);
    EXPECT_FALSE(session.Ended());
}

TEST_F(AdminRequestTest, KillTSuspendsTheMinuteCheck) {
    load();
    request("OutNow");
    session.KillT = true;
    pass(180'000);
    EXPECT_FALSE(session.Ended());
    session.KillT = false;
    pass(60'000);
    EXPECT_TRUE(session.Ended());
}

TEST_F(AdminRequestTest, WithoutAConnectionNothingIsChecked) {
    load();
    request("OutNow");
    session.gConnection = nullptr;
    pass(60'000);
    EXPECT_FALSE(session.Ended());
}

TEST_F(AdminRequestTest, TheFlagIsUpForTheLengthOfATick) {
    load();
    bool onTimer = false;
    request("Backup at noon.");
    program.dialogs.answer("Yes");
    session.frontEnd.DoEvents = [this, &onTimer] { onTimer = onTimer || session.IsOnTimer; };
    pass(60'000);
    EXPECT_TRUE(onTimer);
    EXPECT_FALSE(session.IsOnTimer);
}

TEST_F(AdminRequestTest, ThePresentTimeGoesIntoTheBoxesThatWereNotEdited) {
    load();
    struct Times : Screen {
        using Screen::Screen;
        forms::ControlArray<forms::TextBox> cboTime{*this, "cboTime", 4};
    } screen(session, "frmTimes");
    screen.cboTime.on(&forms::TextBox::Change,
                      [this](int index) { session.TimeChanged[static_cast<std::size_t>(index % 2)] = true; });
    screen.cboTime(1).setText("20:00");
    program.clock.set(ado::DateTime(38'537.0 + 23.0 / 24 + 55.0 / 1440));
    auto* refs = program.forms.get<frmRefs>("frmRefs");
    refs->ThisTime(screen.cboTime, [](int index) { return index < 2; });
    EXPECT_EQ(screen.cboTime(0).Text(), "00:01");
    EXPECT_EQ(screen.cboTime(1).Text(), "20:00");
    EXPECT_EQ(screen.cboTime(2).Text(), "");
    EXPECT_FALSE(session.TimeChanged[0]);
    EXPECT_TRUE(session.TimeChanged[1]);
}

} // namespace zel::core
