#include "forms/adodc.h"
#include "forms/buttons.h"
#include "forms/combo_box.h"
#include "forms/common_dialog.h"
#include "forms/list_box.h"
#include "forms/list_view.h"
#include "forms/mask_ed_box.h"
#include "forms/menu.h"
#include "forms/progress_bar.h"
#include "forms/screen_test.h"
#include "forms/tdb_combo.h"
#include "forms/tdb_drop_down.h"
#include "forms/tdb_grid.h"
#include "forms/tdb_list.h"
#include "forms/text_box.h"
#include "forms/timer.h"
#include "forms/toolbar.h"
#include "forms/vs_index_tab.h"

namespace zel::forms {

namespace {

class SmallControlsTest : public ScreenTest {
protected:
    SmallControlsTest() { form.Show(); }
    Form form{desk.forms, "frmSmall"};
};

using Events = std::vector<std::string>;

template <typename T>
std::string typeOf(Form& form) {
    return std::string(T(form, "x").typeName());
}

} // namespace

TEST_F(SmallControlsTest, TypeNamesAreThoseOfTheStateDump) {
    const Events names{typeOf<CommandButton>(form), typeOf<CheckBox>(form),
                       typeOf<OptionButton>(form),  typeOf<Label>(form),
                       typeOf<TextBox>(form),       typeOf<MaskEdBox>(form),
                       typeOf<ComboBox>(form),      typeOf<ListBox>(form),
                       typeOf<ListView>(form),      typeOf<TDBCombo>(form),
                       typeOf<TDBList>(form),       typeOf<TDBGrid>(form),
                       typeOf<TDBDropDown>(form),   typeOf<vsIndexTab>(form),
                       typeOf<Toolbar>(form),       typeOf<ProgressBar>(form),
                       typeOf<Timer>(form),         typeOf<Adodc>(form),
                       typeOf<Frame>(form),         typeOf<vsElastic>(form),
                       typeOf<CommonDialog>(form),  std::string(Menu(form, "mnu", "M").typeName())};
    EXPECT_EQ(names, (Events{"CommandButton", "CheckBox",   "OptionButton", "Label",       "TextBox", "MaskEdBox",
                             "ComboBox",      "ListBox",    "ListView",     "TDBCombo",    "TDBList", "TDBGrid",
                             "TDBDropDown",   "vsIndexTab", "Toolbar",      "ProgressBar", "Timer",   "Adodc",
                             "Frame",         "vsElastic",  "CommonDialog", "Menu"}));
}

TEST_F(SmallControlsTest, CommonPropertiesAreReadByName) {
    Label label{form, "lblPost", 3};
    label.setTag("Name");
    label.setToolTipText("tip");
    EXPECT_EQ(label.property("tag"), Value("Name"));
    EXPECT_EQ(label.property("INDEX"), Value(3));
    EXPECT_EQ(label.property("ToolTipText"), Value("tip"));
    EXPECT_EQ(label.property("Visible"), Value(true));
    EXPECT_EQ(label.property("BackColor"), Value(colors::automatic));
}

TEST_F(SmallControlsTest, TabStripSwitchesAndThenClicks) {
    vsIndexTab tabs{form, "tabPosting", "Personnel|Crews|Equipment"};
    tabs.Switch = [this](int before, int after, bool&) {
        events.push_back(std::to_string(before) + ">" + std::to_string(after));
    };
    tabs.Click = note("Click");
    tabs.setCurrTab(2);
    tabs.setCurrTab(2);
    EXPECT_TRUE(done(desk.user.selectTab(tabs, 1)));
    EXPECT_EQ(takeEvents(), (Events{"0>2", "Click", "2>1", "Click"}));
    EXPECT_EQ(tabs.property("TabCaption"), Value("Crews"));
    EXPECT_EQ(tabs.Caption(), "Personnel|Crews|Equipment");
}

TEST_F(SmallControlsTest, SwitchCanKeepThePage) {
    vsIndexTab tabs{form, "tabs", "A|B"};
    tabs.Switch = [](int, int, bool& cancel) { cancel = true; };
    tabs.Click = note("Click");
    tabs.setCurrTab(1);
    EXPECT_EQ(tabs.CurrTab(), 0);
    EXPECT_TRUE(takeEvents().empty());
}

TEST_F(SmallControlsTest, ArrowsSkipPagesThatAreDisabled) {
    vsIndexTab tabs{form, "tabs", "A|B|C"};
    tabs.setTabEnabled(1, false);
    EXPECT_TRUE(done(desk.user.keys(tabs, "{Right}")));
    EXPECT_EQ(tabs.CurrTab(), 2);
    tabs.setTabCaption(3, "D");
    EXPECT_EQ(tabs.NumTabs(), 4);
    EXPECT_EQ(tabs.TabCaption(9), "");
}

TEST_F(SmallControlsTest, ControlsOfAPageBecomeReachableWithIt) {
    vsIndexTab tabs{form, "tabs", "A|B"};
    vsElastic group{tabs.onPage(1), "vseGroup"};
    TextBox box{group, "txtA"};
    EXPECT_FALSE(box.shown());
    tabs.setCurrTab(1);
    EXPECT_TRUE(box.shown());
    tabs.setTabEnabled(1, false);
    EXPECT_FALSE(box.usable());
}

TEST_F(SmallControlsTest, ProgressStaysInItsRange) {
    ProgressBar bar{form, "prgBar"};
    bar.setMax(50);
    bar.setValue(70);
    EXPECT_EQ(bar.value(), 50);
    bar.setValue(-1);
    EXPECT_EQ(bar.property("value"), Value(0));
}

TEST_F(SmallControlsTest, ListViewShowsItemsWithSubItems) {
    ListView view{form, "lvPostResults"};
    view.addColumnHeader("Crew member info");
    view.addColumnHeader("Result", 2000);
    view.addItem("DOE, JOHN", {"Succeeded"});
    view.ItemClick = [this](int item) { events.push_back("item " + std::to_string(item)); };
    EXPECT_TRUE(done(desk.user.pick(view, "DOE, JOHN")));
    EXPECT_EQ(view.selectedItem(), 0);
    EXPECT_EQ(view.ListItems()[0].subItems[0], "Succeeded");
    EXPECT_EQ(view.columnWidth(1), 2000);
    view.Clear();
    EXPECT_EQ(view.selectedItem(), -1);
    EXPECT_EQ(takeEvents(), Events{"item 0"});
}

TEST_F(SmallControlsTest, MenuKnowsItsEntriesChecksAndSeparators) {
    Menu tools{form, "mnuTools", "T&ools"};
    Menu line{tools, "mnuToolsLine", "-"};
    Menu timing{tools, "mnuToolsTimingScreen", "&Screen to Screen"};
    EXPECT_EQ(tools.entries(), (std::vector<Menu*>{&line, &timing}));
    EXPECT_TRUE(line.isSeparator());
    EXPECT_FALSE(timing.isSeparator());
    timing.setChecked(true);
    EXPECT_EQ(timing.property("Checked"), Value(true));
    EXPECT_EQ(timing.property("Caption"), Value("&Screen to Screen"));
    timing.setVisible(false);
    EXPECT_FALSE(timing.available());
}

} // namespace zel::forms
