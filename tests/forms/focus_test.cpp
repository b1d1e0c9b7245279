#include "forms/buttons.h"
#include "forms/control_array.h"
#include "forms/mask_ed_box.h"
#include "forms/screen_test.h"
#include "forms/tab_order.h"
#include "forms/text_box.h"
#include "forms/vs_index_tab.h"

namespace zel::forms {

namespace {

class FocusTest : public ScreenTest {
protected:
    FocusTest() {
        for (TextBox* box : {&first, &second})
            noteAll(*box);
        cmdSave.Click = note("cmdSave.Click");
        form.Show();
        takeEvents();
    }

    void noteAll(TextBox& box) {
        const std::string name = box.Name();
        box.GotFocus = note(name + ".GotFocus");
        box.KeyPress = [this, name](int& key) { events.push_back(name + ".KeyPress " + std::to_string(key)); };
        box.Change = note(name + ".Change");
        box.Validate = [this, name](bool& keep) {
            events.push_back(name + ".Validate");
            keep = keepFocus;
        };
        box.LostFocus = note(name + ".LostFocus");
    }

    bool keepFocus = false;
    Form form{desk.forms, "frmFocus"};
    TextBox first{form, "first"};
    TextBox second{form, "second"};
    CommandButton cmdSave{form, "cmdSave", "&Save"};
};

using Events = std::vector<std::string>;

} // namespace

TEST_F(FocusTest, ShowingAFormGivesTheFirstStopTheFocus) {
    EXPECT_EQ(form.ActiveControl(), &first);
}

TEST_F(FocusTest, EventsOfAnEntryComeInThePlatformsOrder) {
    EXPECT_TRUE(done(desk.user.type(second, "ab")));
    EXPECT_TRUE(done(desk.user.tab(form)));
    EXPECT_EQ(takeEvents(),
              (Events{"first.Validate", "first.LostFocus", "second.GotFocus", "second.KeyPress 97", "second.Change",
                      "second.KeyPress 98", "second.Change", "second.Validate", "second.LostFocus"}));
    EXPECT_EQ(form.ActiveControl(), &cmdSave);
}

TEST_F(FocusTest, ValidateThatKeepsTheFocusStopsTheMoveAndTheClick) {
    keepFocus = true;
    EXPECT_EQ(desk.user.click(cmdSave).refusal, "first keeps the focus");
    EXPECT_EQ(takeEvents(), (Events{"first.Validate"}));
    EXPECT_EQ(form.ActiveControl(), &first);
}

TEST_F(FocusTest, ButtonThatDoesNotCauseValidationIsAlwaysReached) {
    keepFocus = true;
    cmdSave.setCausesValidation(false);
    EXPECT_TRUE(done(desk.user.click(cmdSave)));
    EXPECT_EQ(takeEvents(), (Events{"first.LostFocus", "cmdSave.Click"}));
}

TEST_F(FocusTest, LeavingAControlValidatesItWithoutANextOne) {
    EXPECT_TRUE(done(desk.user.leave(first)));
    EXPECT_EQ(takeEvents(), (Events{"first.Validate", "first.LostFocus"}));
    EXPECT_EQ(form.ActiveControl(), nullptr);
    EXPECT_EQ(desk.user.leave(first).refusal, "first does not have the focus");
}

TEST_F(FocusTest, KeyPressCanSwallowAndChangeAKey) {
    first.KeyPress = [](int& key) { key = key == 'x' ? 0 : key - 32; };
    EXPECT_TRUE(done(desk.user.type(first, "axb")));
    EXPECT_EQ(first.Text(), "AB");
}

TEST_F(FocusTest, FormSeesTheKeyFirstAndMaySwallowIt) {
    form.KeyPress = [this](int& key) {
        events.push_back("form.KeyPress " + std::to_string(key));
        key = key == '+' ? 0 : key;
    };
    EXPECT_TRUE(done(desk.user.keys(first, "+1")));
    EXPECT_EQ(takeEvents(), (Events{"form.KeyPress 43", "form.KeyPress 49", "first.KeyPress 49", "first.Change"}));
    EXPECT_EQ(first.Text(), "1");
}

TEST_F(FocusTest, EnterTurnedIntoTabMovesOn) {
    first.KeyPress = [](int& key) { key = key == keys::enter ? keys::tab : key; };
    EXPECT_TRUE(done(desk.user.keys(first, "7{Enter}8")));
    EXPECT_EQ(first.Text(), "7");
    EXPECT_EQ(second.Text(), "8");
}

TEST_F(FocusTest, EnterPressesTheDefaultButtonAndEscapeTheCancelButton) {
    CommandButton cmdCancel{form, "cmdCancel", "Cancel"};
    cmdCancel.Click = note("cmdCancel.Click");
    cmdCancel.setCancel(true);
    cmdSave.setDefault(true);
    EXPECT_TRUE(done(desk.user.keys(first, "{Enter}")));
    EXPECT_TRUE(done(desk.user.keys(first, "{Escape}")));
    EXPECT_THAT(takeEvents(), testing::IsSupersetOf({"cmdSave.Click", "cmdCancel.Click"}));
}

TEST_F(FocusTest, TabOrderFollowsTabIndexAndSkipsWhatCannotBeReached) {
    second.setTabIndex(0);
    first.setTabIndex(1);
    EXPECT_EQ(form.tabStop(&second), &first);
    EXPECT_EQ(form.tabStop(&first), &cmdSave);
    EXPECT_EQ(form.tabStop(&cmdSave), &second);
    EXPECT_EQ(form.tabStop(&second, true), &cmdSave);
    first.setEnabled(false);
    EXPECT_EQ(form.tabStop(&second), &cmdSave);
    cmdSave.setTabStop(false);
    EXPECT_EQ(form.tabStop(&second), nullptr);
}

TEST_F(FocusTest, ATabOrderMayDifferFromTheOrderOfTheDump) {
    TextBox third{form, "third"};
    setTabOrder({&first, &third, &second});
    EXPECT_EQ(form.tabStop(&first), &third);
    EXPECT_EQ(form.tabStop(&third), &cmdSave) << "it has the place of the second one, before the button";
    EXPECT_EQ(form.tabStop(&cmdSave), &second);
    EXPECT_EQ(form.controls().back(), &third);
}

TEST_F(FocusTest, TabMarksWhatStandsInTheFieldSoThatTypingReplacesIt) {
    second.setText("OLD");
    EXPECT_TRUE(done(desk.user.keys(first, "{Tab}N")));
    EXPECT_EQ(second.Text(), "N");
}

TEST_F(FocusTest, FirstEntryIsTheFirstBoxThatCanBeTypedInto) {
    setTabOrder({&cmdSave, &first, &second});
    first.setLocked(true);
    form.moveFocus(&cmdSave);
    focusFirstEntry(form);
    EXPECT_EQ(form.ActiveControl(), &second);
}

TEST_F(FocusTest, FirstEntryLeavesTheFocusInTheBoxWhereItIs) {
    form.moveFocus(&second);
    focusFirstEntry(form);
    EXPECT_EQ(form.ActiveControl(), &second);
}

TEST_F(FocusTest, FirstEntryOfAPageIsOneThatStandsOnIt) {
    vsIndexTab tabs{form, "tabs", "One|Two"};
    TextBox onOne{tabs.onPage(0), "onOne"};
    TextBox onTwo{tabs.onPage(1), "onTwo"};
    focusFirstEntry(form, &tabs);
    EXPECT_EQ(form.ActiveControl(), &onOne);
    tabs.setCurrTab(1);
    focusFirstEntry(form, &tabs);
    EXPECT_EQ(form.ActiveControl(), &onTwo);
}

TEST_F(FocusTest, SetFocusOutOfLostFocusBringsTheFocusBack) {
    first.LostFocus = [this] { first.SetFocus(); };
    desk.user.moveFocus(second);
    EXPECT_EQ(form.ActiveControl(), &first);
}

TEST_F(FocusTest, TwoFieldsThatFightForTheFocusComeToAnEnd) {
    first.LostFocus = [this] { first.SetFocus(); };
    second.LostFocus = [this] { second.SetFocus(); };
    desk.user.moveFocus(second);
    EXPECT_NE(form.ActiveControl(), nullptr);
}

TEST_F(FocusTest, DisablingTheFocusedControlTakesItsFocusWithoutValidation) {
    first.setEnabled(false);
    EXPECT_EQ(form.ActiveControl(), nullptr);
    EXPECT_EQ(takeEvents(), (Events{"first.LostFocus"}));
}

TEST_F(FocusTest, SetFocusOnAHiddenControlDoesNothing) {
    second.setVisible(false);
    second.SetFocus();
    EXPECT_EQ(form.ActiveControl(), &first);
}

TEST_F(FocusTest, FailureInAHandlerLeavesTheFocusMovable) {
    first.Validate = [](bool&) { throw std::runtime_error("database gone"); };
    EXPECT_THROW(desk.user.moveFocus(second), std::runtime_error);
    first.Validate = nullptr;
    EXPECT_TRUE(done(desk.user.moveFocus(second)));
    EXPECT_EQ(form.ActiveControl(), &second);
}

} // namespace zel::forms
