#include "forms/combo_box.h"

#include "ado/error.h"
#include "forms/list_box.h"
#include "forms/screen_test.h"

namespace zel::forms {

namespace {

class ComboBoxTest : public ScreenTest {
protected:
    ComboBoxTest() {
        for (const char* code : {"GUAR", "COP", "HP"})
            combo.AddItem(code, combo.ListCount() + 10);
        combo.Click = note("Click");
        combo.Change = note("Change");
        form.Show();
    }
    Form form{desk.forms, "frmPost"};
    ComboBox combo{form, "cbPost", 0};
};

using Events = std::vector<std::string>;

} // namespace

TEST_F(ComboBoxTest, ChoosingAnEntryByProgramOrClerkClicksWithoutChange) {
    combo.setListIndex(1);
    EXPECT_EQ(combo.Text(), "COP");
    EXPECT_TRUE(done(desk.user.pick(combo, "hp")));
    EXPECT_EQ(combo.ListIndex(), 2);
    EXPECT_EQ(combo.ItemData(combo.ListIndex()), 12);
    EXPECT_EQ(takeEvents(), (Events{"Click", "Click"}));
}

TEST_F(ComboBoxTest, TypedTextChangesAndLeavesTheListUnlessItIsAnEntry) {
    EXPECT_TRUE(done(desk.user.type(combo, "xy")));
    EXPECT_EQ(combo.ListIndex(), -1);
    EXPECT_EQ(takeEvents(), (Events{"Change", "Change"}));
    combo.setText("cop");
    EXPECT_EQ(combo.ListIndex(), 1);
    EXPECT_EQ(combo.Text(), "cop");
    EXPECT_EQ(takeEvents(), (Events{"Change"}));
}

TEST_F(ComboBoxTest, MinusOneEmptiesAndOutOfRangeIsRefused) {
    combo.setListIndex(0);
    combo.setListIndex(-1);
    EXPECT_EQ(combo.Text(), "");
    EXPECT_THROW(combo.setListIndex(3), ado::Error);
}

TEST_F(ComboBoxTest, ClearingIsSilent) {
    combo.setListIndex(0);
    takeEvents();
    combo.Clear();
    EXPECT_EQ(combo.Text(), "");
    EXPECT_EQ(combo.ListCount(), 0);
    EXPECT_TRUE(takeEvents().empty());
}

TEST_F(ComboBoxTest, PullDownTellsOnceAndArrowsWalk) {
    combo.DropDown = note("DropDown");
    EXPECT_TRUE(done(desk.user.keys(combo, "{F4}{Down}{Down}{Down}{Up}{Enter}")));
    EXPECT_EQ(combo.Text(), "COP");
    EXPECT_FALSE(combo.isOpen());
    EXPECT_EQ(takeEvents(), (Events{"DropDown", "Click", "Click", "Click", "Click"}));
}

TEST_F(ComboBoxTest, ListOnlyComboWalksByFirstLetterAndRefusesOtherTexts) {
    combo.setStyle(ComboBox::Style::DropDownList);
    combo.AddItem("CROSS");
    EXPECT_TRUE(done(desk.user.keys(combo, "cc")));
    EXPECT_EQ(combo.Text(), "CROSS");
    EXPECT_TRUE(done(desk.user.keys(combo, "c{Backspace}")));
    EXPECT_EQ(combo.Text(), "COP");
    EXPECT_THROW(combo.setText("nothing"), ado::Error);
}

TEST_F(ComboBoxTest, RemovingAnEntryKeepsTheChosenOne) {
    combo.setListIndex(2);
    combo.RemoveItem(0);
    EXPECT_EQ(combo.ListIndex(), 1);
    EXPECT_EQ(combo.List(1), "HP");
    EXPECT_EQ(combo.List(7), "");
}

TEST_F(ComboBoxTest, ListBoxClicksAndCountsItsSelection) {
    ListBox list{form, "lstEmpType"};
    for (const char* type : {"AD", "FED", "OTHER"})
        list.AddItem(type);
    list.Click = note("Click");
    EXPECT_TRUE(done(desk.user.pick(list, "FED")));
    EXPECT_EQ(list.Text(), "FED");
    EXPECT_EQ(list.SelCount(), 1);
    EXPECT_EQ(desk.user.selectRows(list, {0}).refusal, "lstEmpType has no multiple selection");
    list.setMultiSelect(true);
    EXPECT_TRUE(done(desk.user.selectRows(list, {0, 2})));
    EXPECT_TRUE(list.Selected(0));
    EXPECT_FALSE(list.Selected(1));
    EXPECT_EQ(list.SelCount(), 2);
    EXPECT_TRUE(done(desk.user.keys(list, "o")));
    EXPECT_EQ(list.ListIndex(), 2);
    EXPECT_EQ(list.property("Columns"), Value(0));
}

} // namespace zel::forms
