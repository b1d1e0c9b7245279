#include "services/list_columns.h"

#include "forms/form.h"
#include "forms/mask_ed_box.h"
#include "forms/tdb_combo.h"
#include "forms/tdb_list.h"
#include "services/list_rows.h"
#include "services/services_test.h"

namespace zel::services {

using forms::ValueArray;

struct ColumnsCase {
    int number;
    bool bForIncident;
    const char* columns; // caption, visible, width
};

class ListScreen : public forms::Form {
public:
    using forms::Form::Form;
    forms::TDBCombo combo{*this, "dbcAcct"};
    forms::MaskEdBox box{*this, "mskBox"};
};

class ListColumnsTest : public ServicesTest, public ::testing::WithParamInterface<ColumnsCase> {
protected:
    static ValueArray accounts() {
        ValueArray list;
        list.setColumnNames({"AccountingCode", "AccountingID", "IncidentID", "AgencyCode", "IncidentDefault"});
        list.addRow({"P6AB12", 31, 7, "BLM", true});
        list.addRow({"P6AB13", 32, 7, "USFS", false});
        list.addRow({"X1", 33, 7, "BLM", false});
        return list;
    }
    std::string columns() {
        std::string text;
        for (int column = 0; column < screen.combo.columnCount(); ++column) {
            const forms::ListColumn& shown = screen.combo.Columns(column);
            text += shown.Caption() + (shown.Visible() ? " yes " : " no ") + std::to_string(shown.Width()) + "; ";
        }
        return text;
    }

    ListScreen screen{program.forms, "frmTest"};
    ValueArray list = accounts();
};

INSTANTIATE_TEST_SUITE_P(
    Numbers, ListColumnsTest,
    ::testing::Values(
        ColumnsCase{1, true, "AcctCode yes 1200; AcctID no 200; IncID no 200; Agency yes 800; Default yes 1440; "},
        ColumnsCase{1, false,
                    "Incident yes 1800; AcctCode yes 1200; AcctID no 200; IncID no 200; Agency yes 800; Default yes "
                    "1440; "},
        ColumnsCase{2, true, "Kind yes 600; Description yes 2700; Req. Cat. yes 200; "}, ColumnsCase{3, true, ""},
        ColumnsCase{4, true, "Code yes 520; Description yes 1349; "},
        ColumnsCase{5, true, "IncidentID no 200; IncidentNumber yes 1349; IncidentName yes 2000; "},
        ColumnsCase{6, true, "Description yes 1349; Postable no 500; Code no 100; "},
        ColumnsCase{7, true, "Agency yes 750; Agency Description yes 2700; "}, ColumnsCase{8, true, "Area yes 520; "},
        ColumnsCase{9, true, "Class yes 520; "}, ColumnsCase{10, true, "UnitOfMeasure yes 900; "},
        ColumnsCase{11, true, "AcctCode yes 1200; AcctID no 200; IncID no 200; Agency yes 800; Default yes 1440; "},
        ColumnsCase{0, true, ""}, ColumnsCase{12, true, ""}));

TEST_P(ListColumnsTest, EachListHasItsColumns) {
    SetListColumns(screen.combo, list, 4, true);
    SetListColumns(screen.combo, list, GetParam().number, GetParam().bForIncident);
    EXPECT_EQ(columns(), GetParam().columns);
    EXPECT_EQ(screen.combo.DropDownWidth(), GetParam().number == 5 ? 5200 : 0);
}

class ListBindingTest : public ListColumnsTest {};
INSTANTIATE_TEST_SUITE_P(One, ListBindingTest, ::testing::Values(ColumnsCase{1, true, ""}));

TEST_P(ListBindingTest, AChosenRowGivesItsHiddenColumns) {
    SetListColumns(screen.combo, list, 1, true);
    EXPECT_EQ(screen.combo.SelectedItem(), -1);
    screen.combo.setText("p6ab13");
    EXPECT_EQ(screen.combo.Columns("AcctID").value(), forms::Value(32));
    EXPECT_EQ(screen.combo.Columns("Agency").Text(), "USFS");
    EXPECT_EQ(SelectedValue(screen.combo), "P6AB13");
}

TEST_P(ListBindingTest, RebindingKeepsTheSelectionThatIsStillThere) {
    SetListColumns(screen.combo, list, 1, true);
    screen.combo.setText("P6AB13");
    list.deleteRow(0);
    RebindKeepSelection(screen.combo);
    EXPECT_EQ(screen.combo.Text(), "P6AB13");
    EXPECT_EQ(screen.combo.SelectedItem(), 0);
}

TEST_P(ListBindingTest, RebindingEmptiesTheTextOfARowThatIsGone) {
    SetListColumns(screen.combo, list, 1, true);
    screen.combo.setText("P6AB13");
    list.deleteRow(1);
    RebindKeepSelection(screen.combo);
    EXPECT_EQ(screen.combo.Text(), "");
    EXPECT_EQ(SelectedValue(screen.combo), "");
}

TEST_P(ListBindingTest, RebindingWithoutASelectionEmptiesTheText) {
    SetListColumns(screen.combo, list, 1, true);
    screen.combo.setText("no such account");
    RebindKeepSelection(screen.combo);
    EXPECT_EQ(screen.combo.Text(), "");
}

TEST_P(ListBindingTest, ALoadedListIsShownAfterRebindList) {
    SetListColumns(screen.combo, list, 1, true);
    list.addRow({"Z9", 34, 7, "BLM", false});
    RebindList(screen.combo);
    EXPECT_EQ(screen.combo.rowCount(), 4);
}

TEST_P(ListBindingTest, TypeAheadPutsTheFirstMatchInAndMarksTheRest) {
    SetListColumns(screen.combo, list, 1, true);
    int key = 'p';
    AutoCompleteCombo(screen.combo, key, list, 0);
    EXPECT_EQ(key, 0);
    EXPECT_EQ(screen.combo.Text(), "P6AB12");
    EXPECT_EQ(screen.combo.SelStart(), 1);
    EXPECT_EQ(screen.combo.SelLength(), 5);
    EXPECT_TRUE(screen.combo.isOpen());
}

TEST_P(ListBindingTest, AKeyWithoutAMatchIsTakenBack) {
    SetListColumns(screen.combo, list, 1, true);
    int key = 'x';
    AutoCompleteCombo(screen.combo, key, list, 0);
    key = 'z';
    AutoCompleteCombo(screen.combo, key, list, 0);
    EXPECT_EQ(key, 0);
    EXPECT_EQ(screen.combo.Text(), "X1");
    EXPECT_EQ(screen.combo.SelStart(), 1);
}

TEST_P(ListBindingTest, KeysBelowTheDigitsPass) {
    SetListColumns(screen.combo, list, 1, true);
    for (int pass : {8, 9, 13, 32, 45, 47}) {
        int key = pass;
        AutoCompleteCombo(screen.combo, key, list, 0);
        EXPECT_EQ(key, pass);
        EXPECT_EQ(screen.combo.Text(), "");
    }
}

TEST_P(ListBindingTest, OnlySmallLettersBecomeCapitals) {
    for (const auto& [typed, wanted] : {std::pair{'a', 'A'}, {'z', 'Z'}, {'A', 'A'}, {'{', '{'}, {'5', '5'}}) {
        int key = typed;
        UpperKey(key);
        EXPECT_EQ(key, wanted);
    }
}

TEST_P(ListBindingTest, ABoxIsMarkedWholeAndLockedInTheLookOfADisabledOne) {
    screen.box.setText("hello");
    SelectAllText(screen.box);
    EXPECT_EQ(screen.box.SelText(), "hello");
    SetReadOnlyStyle(screen.box, true);
    EXPECT_TRUE(screen.box.Locked());
    EXPECT_EQ(screen.box.BackColor(), 0xC0C0C0);
    SetReadOnlyStyle(screen.box, false);
    EXPECT_FALSE(screen.box.Locked());
    EXPECT_EQ(screen.box.BackColor(), forms::colors::automatic);
}

TEST(ListRowsTest, ARowIsFoundByItsTextInAnyLetters) {
    ValueArray list;
    list.addRow({"OR", 1, forms::Value()});
    list.addRow({"id", 2, "x"});
    list.addRow({"ID", 3, "y"});
    EXPECT_EQ(FindListRow(list, 0, "ID"), 1);
    EXPECT_EQ(FindListRow(list, 1, "3"), 2);
    EXPECT_EQ(FindListRow(list, 0, "id", 2, "Y"), 2);
    EXPECT_EQ(FindListRow(list, 0, "id", 2, "z"), -1);
    EXPECT_EQ(FindListRow(list, 0, "WA"), -1);
    EXPECT_EQ(FindListRow(list, 9, "OR"), -1);
    EXPECT_EQ(FindListRow(ValueArray(), 0, ""), -1);
    EXPECT_EQ(listText(list, 1, 0), "id");
    EXPECT_EQ(listText(list, 7, 0), "");
}

} // namespace zel::services
