#include "forms/buttons.h"

#include "forms/control_array.h"
#include "forms/screen_test.h"
#include "forms/vs_index_tab.h"

namespace zel::forms {

namespace {

class ButtonsTest : public ScreenTest {
protected:
    ButtonsTest() { form.Show(); }
    Form form{desk.forms, "frmButtons"};
};

using Events = std::vector<std::string>;

} // namespace

TEST_F(ButtonsTest, CheckBoxClicksWhenItsValueChangesAlsoByProgram) {
    CheckBox box{form, "chkLastDay"};
    box.Click = note("Click");
    box.setValue(CheckBox::checked);
    box.setValue(CheckBox::checked);
    EXPECT_TRUE(done(desk.user.check(box, true)));
    EXPECT_TRUE(done(desk.user.click(box)));
    EXPECT_FALSE(box.isChecked());
    EXPECT_EQ(takeEvents(), (Events{"Click", "Click"}));
}

TEST_F(ButtonsTest, SpaceTurnsACheckBox) {
    CheckBox box{form, "chkLastDay"};
    EXPECT_TRUE(done(desk.user.keys(box, " ")));
    EXPECT_EQ(box.value(), CheckBox::checked);
}

TEST_F(ButtonsTest, OptionsOfOneContainerExcludeEachOtherAndOnlyTheNewOneClicks) {
    Frame frame{form, "fraType"};
    ControlArray<OptionButton> optType{frame, "optType", 3};
    OptionButton outside{form, "optDaily"};
    optType.on(&OptionButton::Click, [this](int index) { events.push_back("optType " + std::to_string(index)); });
    outside.Click = note("optDaily");
    outside.setValue(true);
    optType(0).setValue(true);
    EXPECT_TRUE(done(desk.user.click(optType(2))));
    EXPECT_FALSE(optType(0).value());
    EXPECT_TRUE(optType(2).value());
    EXPECT_TRUE(outside.value());
    EXPECT_EQ(takeEvents(), (Events{"optDaily", "optType 0", "optType 2"}));
}

TEST_F(ButtonsTest, OptionsOnDifferentPagesDoNotExcludeEachOther) {
    vsIndexTab tabs{form, "tabs", "A|B"};
    OptionButton a{tabs.onPage(0), "a"};
    OptionButton b{tabs.onPage(1), "b"};
    a.setValue(true);
    b.setValue(true);
    EXPECT_TRUE(a.value());
}

TEST_F(ButtonsTest, ArrayHandsTheIndexToOneHandlerAndHasHoles) {
    ControlArray<CommandButton> cmdSave{form, "cmdSave", {0, 2}};
    cmdSave.on(&CommandButton::Click, [this](int index) { events.push_back(std::to_string(index)); });
    EXPECT_TRUE(done(desk.user.click(cmdSave(2))));
    EXPECT_EQ(takeEvents(), Events{"2"});
    EXPECT_EQ(cmdSave(2).fullName(), "cmdSave(2)");
    EXPECT_FALSE(cmdSave.has(1));
    EXPECT_THROW((void)cmdSave(1), std::out_of_range);
    EXPECT_EQ(cmdSave.Count(), 2);
    EXPECT_EQ(cmdSave.UBound(), 2);
    EXPECT_EQ(form.find("CMDSAVE(2)"), &cmdSave(2));
    EXPECT_EQ(form.find("cmdSave(1)"), nullptr);
}

TEST_F(ButtonsTest, EnterAndSpacePressAButton) {
    CommandButton button{form, "cmdOk", "OK"};
    button.Click = note("Click");
    EXPECT_TRUE(done(desk.user.keys(button, "{Enter} ")));
    EXPECT_EQ(takeEvents(), (Events{"Click", "Click"}));
}

TEST_F(ButtonsTest, PressByProgramDoesNothingOnADisabledButton) {
    CommandButton button{form, "cmdOk", "OK"};
    button.Click = note("Click");
    button.setEnabled(false);
    button.press();
    EXPECT_TRUE(takeEvents().empty());
}

TEST_F(ButtonsTest, LabelsCanBeClickedAndTakeNoFocus) {
    CommandButton button{form, "cmdOk", "OK"};
    Label label{form, "lblMergeNotify", 1};
    label.Click = note("Click");
    button.SetFocus();
    EXPECT_TRUE(done(desk.user.click(label)));
    EXPECT_EQ(form.ActiveControl(), &button);
    EXPECT_EQ(takeEvents(), Events{"Click"});
}

} // namespace zel::forms
