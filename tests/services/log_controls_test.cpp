#include "services/log_controls.h"

#include "services_test.h"

#include "forms/adodc.h"
#include "forms/buttons.h"
#include "forms/combo_box.h"
#include "forms/common_dialog.h"
#include "forms/label.h"
#include "forms/list_box.h"
#include "forms/list_view.h"
#include "forms/mask_ed_box.h"
#include "forms/menu.h"
#include "forms/progress_bar.h"
#include "forms/tdb_combo.h"
#include "forms/tdb_drop_down.h"
#include "forms/tdb_grid.h"
#include "forms/tdb_list.h"
#include "forms/text_box.h"
#include "forms/timer.h"
#include "forms/toolbar.h"
#include "forms/vs_index_tab.h"

namespace zel::services {
namespace {

class LogControlsTest : public ServicesTest {
protected:
    forms::Form form{program.forms, "frmTest"};
};

TEST_F(LogControlsTest, CaptionsOfButtonsAndLabels) {
    forms::CommandButton button(form, "cmdSave", 0);
    button.setCaption("&Save");
    forms::Label label(form, "lblStatus");
    label.setCaption("Ready");
    EXPECT_EQ(controlLine(button), "cmdSave(0)\tCommandButton\tCaption=&Save");
    EXPECT_EQ(controlLine(label), "lblStatus\tLabel\tCaption=Ready");
}

TEST_F(LogControlsTest, ValuesOfChecksAndOptions) {
    forms::CheckBox check(form, "chkLastDay");
    check.setValue(forms::CheckBox::checked);
    forms::OptionButton option(form, "optDaily");
    option.setCaption("Daily");
    option.setValue(true);
    EXPECT_EQ(controlLine(check), "chkLastDay\tCheckBox\tvalue=1");
    EXPECT_EQ(controlLine(option), "optDaily\tOptionButton\tCaption=Daily\tvalue=True");
}

TEST_F(LogControlsTest, TextsOfBoxes) {
    forms::TextBox text(form, "txtUser");
    text.setText("JO");
    forms::MaskEdBox mask(form, "mskPost", 1);
    mask.setMask("99:99");
    mask.setText("13:30");
    EXPECT_EQ(controlLine(text), "txtUser\tTextBox\tText=JO");
    EXPECT_EQ(controlLine(mask), "mskPost(1)\tMaskEdBox\tMask=99:99\tText=13:30\tFormattedText=13:30");
}

TEST_F(LogControlsTest, PlacesInLists) {
    forms::ComboBox combo(form, "cboTime");
    combo.AddItem("08:00");
    combo.AddItem("08:15");
    combo.setListIndex(1);
    forms::ListBox list(form, "lstNames");
    EXPECT_EQ(controlLine(combo), "cboTime\tComboBox\tText=08:15\tListIndex=1");
    EXPECT_THAT(controlLine(list), testing::StartsWith("lstNames\tListBox\tListIndex=-1\tColumns="));
}

TEST_F(LogControlsTest, TimersBarsTabsAndDialogs) {
    forms::Timer timer(form, "tmrMinute");
    timer.setEnabled(false);
    forms::ProgressBar bar(form, "prgBar");
    forms::vsIndexTab tab(form, "tabPosting", "Personnel|Crew");
    tab.setCurrTab(1);
    forms::CommonDialog dialog(form, "dlgFile");
    dialog.FileName = "Korvan.mdb";
    EXPECT_EQ(controlLine(timer), "tmrMinute\tTimer\tEnabled=False");
    EXPECT_EQ(controlLine(bar), "prgBar\tProgressBar\tvalue=0");
    EXPECT_EQ(controlLine(tab), "tabPosting\tvsIndexTab\tCurrTab=1\tTabCaption=Crew");
    EXPECT_EQ(controlLine(dialog), "dlgFile\tCommonDialog\tFilename=Korvan.mdb");
}

TEST_F(LogControlsTest, TypesWithoutARuleShowTheirValueAndBounds) {
    forms::TDBCombo combo(form, "dbcPersonnel");
    forms::TDBList list(form, "dblCrewMembers");
    forms::ListView view(form, "lvwFound");
    forms::Adodc data(form, "AdoPost");
    for (const forms::Control* control : std::initializer_list<forms::Control*>{&combo, &list, &view, &data})
        EXPECT_THAT(controlLine(*control),
                    testing::MatchesRegex(control->fullName() + "\t" + std::string(control->typeName()) +
                                          "\tvalue=.*\t->\tLowerBound=\tUpperBound="));
}

TEST_F(LogControlsTest, AFormWithOneOfEachControlHasOneLineForEach) {
    forms::Menu menu(form, "mnuFile", "&File");
    forms::Toolbar bar(form, "tbrMain");
    bar.addButton("Save", "Save");
    forms::TDBGrid grid(form, "dbgPost");
    forms::TDBDropDown down(form, "tdbKinds");
    forms::TextBox text(form, "txtLast");
    const std::string dump = LogControls(form);
    EXPECT_EQ(std::count(dump.begin(), dump.end(), '\n'), static_cast<std::ptrdiff_t>(form.controls().size()));
    EXPECT_THAT(dump, testing::HasSubstr("mnuFile\tMenu\tCaption=&File\r\n"));
    EXPECT_THAT(dump, testing::HasSubstr("tbrMain\tToolbar\tButtons="));
    EXPECT_THAT(dump, testing::HasSubstr("dbgPost\tTDBGrid\tText="));
    EXPECT_THAT(dump, testing::HasSubstr("tdbKinds\tTDBDropDown\tText="));
    EXPECT_THAT(dump, testing::EndsWith("txtLast\tTextBox\tText=\r\n"));
}

/// A control array seen as one control.
class ArrayOfObjects : public forms::Control {
public:
    using Control::Control;
    [[nodiscard]] std::string_view typeName() const noexcept override { return "Object()"; }
};

TEST_F(LogControlsTest, AnArrayIsOneLine) {
    const ArrayOfObjects array(form, "cmdSave");
    EXPECT_EQ(controlLine(array), "cmdSave:\tArray Of Objects");
}

} // namespace
} // namespace zel::services
