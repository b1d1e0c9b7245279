// What a clerk cannot do is refused with a reason and changes nothing.
#include "forms/buttons.h"
#include "forms/combo_box.h"
#include "forms/menu.h"
#include "forms/screen_test.h"
#include "forms/text_box.h"
#include "forms/toolbar.h"
#include "forms/vs_index_tab.h"

namespace zel::forms {

namespace {

class RefusalsTest : public ScreenTest {
protected:
    RefusalsTest() {
        cmdSave.Click = note("Click");
        form.Show();
    }

    Form form{desk.forms, "frmPost"};
    vsIndexTab tabPosting{form, "tabPosting", "Personnel|Crews"};
    Frame frame{form, "fraEntry"};
    TextBox box{frame, "txtRemarks"};
    CommandButton cmdSave{tabPosting.onPage(1), "cmdSave", 1};
};

} // namespace

TEST_F(RefusalsTest, HiddenDisabledAndLockedControlsSayWhichTheyAre) {
    box.setLocked(true);
    EXPECT_EQ(desk.user.type(box, "x").refusal, "txtRemarks is locked");
    box.setEnabled(false);
    EXPECT_EQ(desk.user.type(box, "x").refusal, "txtRemarks is disabled");
    box.setVisible(false);
    EXPECT_EQ(desk.user.type(box, "x").refusal, "txtRemarks is hidden");
    EXPECT_EQ(box.Text(), "");
}

TEST_F(RefusalsTest, ControlsShareTheStateOfTheirFrame) {
    frame.setEnabled(false);
    EXPECT_TRUE(box.Enabled());
    EXPECT_FALSE(box.usable());
    EXPECT_EQ(desk.user.type(box, "x").refusal, "txtRemarks is disabled");
    frame.setEnabled(true);
    frame.setVisible(false);
    EXPECT_EQ(desk.user.type(box, "x").refusal, "txtRemarks is hidden");
}

TEST_F(RefusalsTest, ControlOnAPageBehindIsHidden) {
    EXPECT_EQ(desk.user.click(cmdSave).refusal, "cmdSave(1) is hidden");
    EXPECT_TRUE(done(desk.user.selectTab(tabPosting, 1)));
    EXPECT_TRUE(done(desk.user.click(cmdSave)));
    EXPECT_EQ(takeEvents(), std::vector<std::string>{"Click"});
}

TEST_F(RefusalsTest, DisabledPageCannotBeChosen) {
    tabPosting.setTabEnabled(1, false);
    EXPECT_EQ(desk.user.selectTab(tabPosting, 1).refusal, "page 1 of tabPosting is disabled");
    EXPECT_EQ(desk.user.selectTab(tabPosting, 2).refusal, "tabPosting has no page 2");
    EXPECT_EQ(tabPosting.CurrTab(), 0);
}

TEST_F(RefusalsTest, FormThatIsNotShownTakesNoAction) {
    form.Hide();
    EXPECT_EQ(desk.user.type(box, "x").refusal, "frmPost is not shown");
}

TEST_F(RefusalsTest, OtherFormsWaitForAModalOne) {
    Form modal{desk.forms, "frmConfirm"};
    Outcome outcome;
    modal.LoadEvent = [&] { outcome = desk.user.type(box, "x"); };
    modal.ShowModal();
    EXPECT_EQ(outcome.refusal, "frmConfirm has to be closed first");
    EXPECT_TRUE(done(desk.user.type(box, "x")));
}

TEST_F(RefusalsTest, WrongKindOfControlIsNamed) {
    EXPECT_EQ(desk.user.type(frame, "x").refusal, "fraEntry cannot be typed into");
    EXPECT_EQ(desk.user.check(box, true).refusal, "txtRemarks is not a check box");
    EXPECT_EQ(desk.user.row(box, 0).refusal, "txtRemarks is not a grid");
    EXPECT_EQ(desk.user.selectTab(box, 0).refusal, "txtRemarks has no pages");
    EXPECT_EQ(desk.user.open(box, true).refusal, "txtRemarks has no list to pull down");
}

TEST_F(RefusalsTest, UnknownKeyNameIsRefusedBeforeAnyKeyIsSent) {
    EXPECT_EQ(desk.user.keys(box, "a{Entr}").refusal, "there is no key {Entr}");
    EXPECT_EQ(box.Text(), "");
    EXPECT_TRUE(done(desk.user.keys(box, "a{{}b}")));
    EXPECT_EQ(box.Text(), "a{b}");
}

TEST_F(RefusalsTest, ToolbarKnowsItsButtons) {
    Toolbar tbMenu{form, "tbMenu"};
    tbMenu.addButton("Save", "Save");
    tbMenu.ButtonClick = [this](const std::string& key) { events.push_back(key); };
    EXPECT_TRUE(done(desk.user.toolbar(tbMenu, "save")));
    EXPECT_EQ(desk.user.toolbar(tbMenu, "New").refusal, "tbMenu has no button New");
    tbMenu.setButtonEnabled("Save", false);
    EXPECT_EQ(desk.user.toolbar(tbMenu, "Save").refusal, "button Save of tbMenu is disabled");
    EXPECT_EQ(takeEvents(), std::vector<std::string>{"Save"});
}

TEST_F(RefusalsTest, MenuEntryIsAsAvailableAsItsParents) {
    Menu file{form, "mnuFile", "&File"};
    Menu exit{file, "mnuExit", "E&xit"};
    exit.Click = note("exit");
    EXPECT_TRUE(done(desk.user.click(exit)));
    file.setEnabled(false);
    EXPECT_EQ(desk.user.click(exit).refusal, "mnuExit is disabled");
    EXPECT_EQ(takeEvents(), std::vector<std::string>{"exit"});
}

TEST_F(RefusalsTest, PopupEntryIsFoundInTheMenuThatTheScreenShows) {
    Menu popup{form, "mnuPopup", "Popup"};
    Menu save{popup, "mnuPopupSave", "&Save Record"};
    popup.setVisible(false);
    save.Click = note("saved");
    EXPECT_EQ(desk.user.popup(box, "mnuPopupSave").refusal, "txtRemarks has no pop-up menu");
    box.RightClick = [&] { desk.forms.PopupMenu(popup); };
    EXPECT_TRUE(done(desk.user.popup(box, "mnuPopupSave")));
    EXPECT_TRUE(done(desk.user.popup(box, "Save Record")));
    EXPECT_EQ(desk.user.popup(box, "mnuPopupFind").refusal, "mnuPopup has no entry mnuPopupFind");
    save.setEnabled(false);
    EXPECT_EQ(desk.user.popup(box, "mnuPopupSave").refusal, "mnuPopupSave is disabled");
    EXPECT_EQ(takeEvents(), (std::vector<std::string>{"saved", "saved"}));
}

TEST_F(RefusalsTest, PickNamesTheTextThatNoRowShows) {
    ComboBox combo{form, "cbPost", 0};
    EXPECT_EQ(desk.user.pick(combo, "HP").refusal, "no row of cbPost(0) shows \"HP\"");
}

} // namespace zel::forms
