#include "forms/tdb_combo.h"

#include "ado/error.h"
#include "forms/screen_test.h"
#include "forms/text_box.h"

#include <chrono>

namespace zel::forms {

namespace {

class TDBComboTest : public ScreenTest {
protected:
    TDBComboTest() {
        persons.setColumnNames({"LnFn", "PersonID", "PStatus"});
        persons.addRow({"DOE, JANE", 11, "C"});
        persons.addRow({"DOE, JOHN", 12, "D"});
        persons.addRow({"ROE, RICHARD", 13, "C"});
        combo.addColumn("LnFn").setWidth(2700);
        combo.addColumn("PersonID").setVisible(false);
        combo.addColumn("Status", "PStatus");
        combo.setListField("LnFn");
        combo.setBoundColumn("PersonID");
        combo.bind(persons);
        combo.Change = note("Change");
        combo.ItemChange = note("ItemChange");
        combo.Click = note("Click");
        combo.Open = note("Open");
        combo.Close = note("Close");
        form.Show();
    }

    ValueArray persons{3};
    Form form{desk.forms, "frmPost"};
    TDBCombo combo{form, "dbcPersonnel"};
    TextBox next{form, "txtNext"};
};

using Events = std::vector<std::string>;

} // namespace

TEST_F(TDBComboTest, PickingARowOpensTheListTakesItAndCloses) {
    EXPECT_TRUE(done(desk.user.pick(combo, "DOE, JOHN")));
    EXPECT_EQ(combo.Text(), "DOE, JOHN");
    EXPECT_EQ(combo.BoundText(), "12");
    EXPECT_EQ(combo.SelectedItem(), 1);
    EXPECT_EQ(combo.Columns("Status").value(), Value("D"));
    EXPECT_EQ(combo.Columns("PStatus").Text(), "D");
    EXPECT_EQ(combo.Columns(1).value(), Value(12));
    EXPECT_EQ(takeEvents(), (Events{"Open", "Change", "ItemChange", "Close", "Click"}));
}

TEST_F(TDBComboTest, PickLooksInTheNamedColumn) {
    EXPECT_TRUE(done(desk.user.pick(combo, "13", "PersonID")));
    EXPECT_EQ(combo.Text(), "ROE, RICHARD");
    EXPECT_EQ(desk.user.pick(combo, "99", "PersonID").refusal, "no row of dbcPersonnel shows \"99\"");
    EXPECT_EQ(combo.Text(), "ROE, RICHARD");
    EXPECT_FALSE(combo.isOpen());
}

TEST_F(TDBComboTest, TypingCompletesAndMarksWhatWasNotTyped) {
    EXPECT_TRUE(done(desk.user.type(combo, "r")));
    EXPECT_EQ(combo.Text(), "rOE, RICHARD");
    EXPECT_EQ(combo.SelText(), "OE, RICHARD");
    EXPECT_EQ(takeEvents(), (Events{"Change", "Change"}));
    EXPECT_TRUE(done(desk.user.tab(form)));
    EXPECT_EQ(combo.Text(), "ROE, RICHARD");
    EXPECT_EQ(combo.BoundText(), "13");
    EXPECT_EQ(takeEvents(), (Events{"Change", "ItemChange"}));
}

TEST_F(TDBComboTest, TypingOnNarrowsTheCompletion) {
    EXPECT_TRUE(done(desk.user.type(combo, "DOE, JO")));
    EXPECT_EQ(combo.Text(), "DOE, JOHN");
    EXPECT_TRUE(done(desk.user.keys(combo, "{Backspace}")));
    EXPECT_EQ(combo.Text(), "DOE, JO");
}

TEST_F(TDBComboTest, RowIsChosenBeforeTheFieldIsValidated) {
    combo.Validate = [this](bool&) { events.push_back("Validate " + combo.BoundText()); };
    EXPECT_TRUE(done(desk.user.type(combo, "DOE, JOHN")));
    takeEvents();
    EXPECT_TRUE(done(desk.user.tab(form)));
    EXPECT_EQ(takeEvents(), (Events{"ItemChange", "Validate 12"}));
}

TEST_F(TDBComboTest, EnterChoosesWithoutLeaving) {
    EXPECT_TRUE(done(desk.user.type(combo, "DOE, JA")));
    EXPECT_TRUE(done(desk.user.keys(combo, "{Enter}")));
    EXPECT_EQ(combo.BoundText(), "11");
    EXPECT_TRUE(combo.hasFocus());
}

TEST_F(TDBComboTest, TextThatNoRowShowsChoosesNone) {
    combo.setBoundText("11");
    takeEvents();
    EXPECT_TRUE(done(desk.user.type(combo, "SMITH")));
    EXPECT_TRUE(done(desk.user.tab(form)));
    EXPECT_EQ(combo.Text(), "SMITH");
    EXPECT_EQ(combo.SelectedItem(), -1);
    EXPECT_EQ(combo.BoundText(), "");
    EXPECT_TRUE(combo.Columns("PersonID").value().isNull());
    EXPECT_EQ(takeEvents().back(), "ItemChange");
}

TEST_F(TDBComboTest, WithoutCompletionTheTypedTextStands) {
    combo.setAutoCompletion(false);
    EXPECT_TRUE(done(desk.user.type(combo, "ro")));
    EXPECT_EQ(combo.Text(), "ro");
}

TEST_F(TDBComboTest, ArrowsWalkThroughTheRowsAndTell) {
    EXPECT_TRUE(done(desk.user.keys(combo, "{Down}{Down}{Up}{Up}")));
    EXPECT_EQ(combo.Text(), "DOE, JANE");
    EXPECT_EQ(takeEvents(), (Events{"Change", "ItemChange", "Change", "ItemChange", "Change", "ItemChange"}));
}

TEST_F(TDBComboTest, BoundTextChoosesAndTellsOnce) {
    combo.setBoundText("13");
    combo.setBoundText("13");
    EXPECT_EQ(combo.Text(), "ROE, RICHARD");
    EXPECT_EQ(takeEvents(), (Events{"Change", "ItemChange"}));
    combo.setBoundText("99");
    EXPECT_EQ(combo.Text(), "");
    EXPECT_EQ(combo.SelectedItem(), -1);
}

TEST_F(TDBComboTest, TextByProgramChoosesItsRowSilently) {
    combo.setText("doe, john");
    EXPECT_EQ(combo.BoundText(), "12");
    EXPECT_EQ(takeEvents(), (Events{"Change"}));
    combo.setText("");
    EXPECT_EQ(combo.SelectedItem(), -1);
}

TEST_F(TDBComboTest, BookmarkOfAListIsRowPlusOne) {
    combo.setBookmark(3);
    EXPECT_EQ(combo.SelectedItem(), 2);
    EXPECT_EQ(combo.bookmark(), 3);
    combo.setBookmark(0);
    EXPECT_EQ(combo.bookmark(), 0);
}

TEST_F(TDBComboTest, RebindingKeepsTheRowOnlyIfItStillHoldsTheSame) {
    combo.setBoundText("12");
    combo.ReBind();
    EXPECT_EQ(combo.BoundText(), "12");
    persons.deleteRow(0);
    combo.ReBind();
    EXPECT_EQ(combo.BoundText(), "") << "another person stands in the row now";
    EXPECT_EQ(combo.Text(), "DOE, JOHN");
}

TEST_F(TDBComboTest, ColumnsAreFoundByCaptionFieldOrSourceName) {
    EXPECT_EQ(combo.columnCount(), 3);
    EXPECT_EQ(&combo.Columns("pstatus"), &combo.Columns("Status"));
    EXPECT_THROW((void)combo.Columns("Nothing"), ado::Error);
    EXPECT_THROW((void)combo.Columns(3), ado::Error);
    combo.removeColumns();
    EXPECT_EQ(combo.columnCount(), 3) << "without columns of its own a list shows those of its source";
    EXPECT_EQ(combo.Columns(1).Caption(), "PersonID");
}

TEST_F(TDBComboTest, FieldWithoutAColumnGetsAHiddenOne) {
    combo.removeColumns();
    combo.addColumn("LnFn");
    combo.setBoundText("12");
    EXPECT_EQ(combo.Columns("PStatus").value(), Value("D"));
    EXPECT_FALSE(combo.Columns("PStatus").Visible());
}

TEST_F(TDBComboTest, TranslatedColumnShowsDescriptions) {
    ListColumn& status = combo.Columns("Status");
    status.ValueItems.Translate = true;
    status.ValueItems.Add("D", "Demobed");
    combo.setBoundText("12");
    EXPECT_EQ(status.Text(), "Demobed");
    EXPECT_EQ(status.value(), Value("D"));
    EXPECT_EQ(status.cellText(0), "C");
    EXPECT_EQ(combo.findText("demobed", "Status"), 1);
}

TEST_F(TDBComboTest, LockedComboCannotBePulledDown) {
    combo.setLocked(true);
    EXPECT_EQ(desk.user.pick(combo, "DOE, JOHN").refusal, "dbcPersonnel is locked");
    EXPECT_TRUE(done(desk.user.keys(combo, "{Down}x")));
    EXPECT_EQ(combo.Text(), "");
}

TEST_F(TDBComboTest, ListWithoutColumnNamesIsTakenColumnByColumn) {
    ValueArray plain;
    plain.addRow({"08:00", 1});
    plain.addRow({"08:15", 2});
    TDBCombo times{form, "cboTime", 0};
    times.addColumn("time");
    times.addColumn("number");
    times.bind(plain);
    EXPECT_TRUE(done(desk.user.pick(times, "08:15")));
    EXPECT_EQ(times.Columns("number").value(), Value(2));
}

TEST_F(TDBComboTest, UnboundComboIsATextBoxWithAnEmptyList) {
    TDBCombo empty{form, "dbcEmpty"};
    EXPECT_TRUE(done(desk.user.type(empty, "abc")));
    EXPECT_TRUE(done(desk.user.keys(empty, "{Down}{Enter}")));
    EXPECT_EQ(empty.Text(), "abc");
    EXPECT_EQ(empty.BoundText(), "");
    EXPECT_EQ(desk.user.pick(empty, "x").refusal, "dbcEmpty is empty: no row shows \"x\"");
}

TEST_F(TDBComboTest, CompletionAmongFiftyThousandRowsTakesLessThanAFrame) {
    ValueArray many(1);
    for (int i = 0; i < 50'000; ++i)
        many.addRow({"PERSON NUMBER " + std::to_string(100'000 + i)});
    combo.removeColumns();
    combo.setListField("");
    combo.bind(many);
    using Clock = std::chrono::steady_clock;
    auto best = Clock::duration::max();
    for (int attempt = 0; attempt < 5; ++attempt) {
        const auto begin = Clock::now();
        EXPECT_EQ(combo.findPrefix("person number 149999"), 49'999);
        best = std::min(best, Clock::now() - begin);
    }
    // Without optimisation and under sanitizers everything takes many times as long.
#if defined(__OPTIMIZE__) && !defined(__SANITIZE_ADDRESS__)
    EXPECT_LT(best, std::chrono::milliseconds(16));
#else
    EXPECT_LT(best, std::chrono::milliseconds(400));
#endif
}

} // namespace zel::forms
