#include "forms/tdb_grid.h"

#include "ado/convert.h"
#include "ado/error.h"
#include "forms/screen_test.h"
#include "forms/tdb_drop_down.h"
#include "forms/text_box.h"
#include "forms/user.h"

namespace zel::forms {

namespace {

/// A grid over rate lines in memory, all of whose events are noted.
class TDBGridTest : public ScreenTest {
protected:
    TDBGridTest() {
        lines.setColumnNames({"Primary", "RateType", "Rate", "UOMID"});
        lines.addRow({-1, "DAILY", ado::Currency::fromDecimal("100"), 1});
        lines.addRow({0, "HOURLY", ado::Currency::fromDecimal("12.5"), 2});
        grid.addColumn("* Rate Type", "Primary");
        grid.addColumn("* UOM", "RateType");
        grid.addColumn("* Rate", "Rate").setNumberFormat("$#,##0.00;($#,##0.00)");
        grid.addColumn("UOMID", "UOMID").setVisible(false);
        grid.addUnboundColumn("Dependencies");
        grid.AllowAddNew = grid.AllowDelete = true;
        grid.bind(lines);
        noteEvents();
        form.Show();
    }

    void noteEvents() {
        const auto column = [this](std::string event) {
            return [this, event](int index) { events.push_back(event + " " + std::to_string(index)); };
        };
        const auto refusable = [this](std::string event, bool& answer) {
            return [this, event, &answer](bool& cancel) {
                events.push_back(event);
                cancel = answer;
            };
        };
        grid.BeforeColEdit = [this](int index, bool& cancel) {
            events.push_back("BeforeColEdit " + std::to_string(index));
            cancel = refuseEdit;
        };
        grid.BeforeColUpdate = [this](int index, const Value& old, bool& cancel) {
            events.push_back("BeforeColUpdate " + std::to_string(index) + " " + ado::toText(old) + ">" +
                             grid.Columns(index).Text());
            cancel = refuseCell;
        };
        grid.AfterColUpdate = column("AfterColUpdate");
        grid.AfterColEdit = column("AfterColEdit");
        grid.Change = note("Change");
        grid.BeforeInsert = refusable("BeforeInsert", refuseInsert);
        grid.BeforeUpdate = refusable("BeforeUpdate", refuseRow);
        grid.BeforeDelete = refusable("BeforeDelete", refuseDelete);
        grid.AfterInsert = note("AfterInsert");
        grid.AfterUpdate = note("AfterUpdate");
        grid.AfterDelete = note("AfterDelete");
    }

    bool refuseEdit = false, refuseCell = false, refuseInsert = false, refuseRow = false, refuseDelete = false;
    ValueArray lines{4};
    Form form{desk.forms, "frmContracts"};
    TDBGrid grid{form, "dbgUOM", 1};
    TextBox next{form, "txtNext"};
};

using Events = std::vector<std::string>;

} // namespace

TEST_F(TDBGridTest, CellEditAndRowCommitComeInThePlatformsOrder) {
    EXPECT_TRUE(done(desk.user.editCell(grid, 1, "* UOM", "EACH")));
    EXPECT_EQ(lines(1, "RateType"), Value("HOURLY")) << "the row is not written before it is left";
    EXPECT_TRUE(grid.DataChanged());
    EXPECT_TRUE(done(desk.user.commitRow(grid)));
    EXPECT_EQ(lines(1, "RateType"), Value("EACH"));
    EXPECT_FALSE(grid.DataChanged());
    EXPECT_EQ(takeEvents(), (Events{"BeforeColEdit 1", "Change", "BeforeColUpdate 1 HOURLY>EACH", "AfterColUpdate 1",
                                    "AfterColEdit 1", "BeforeUpdate", "AfterUpdate"}));
}

TEST_F(TDBGridTest, NewRowIsInsertedWithTheFirstCellAndWrittenOnceLeft) {
    grid.BeforeInsert = [this](bool&) {
        events.push_back("BeforeInsert");
        grid.Columns("UOMID").setValue(Value(3));
    };
    EXPECT_TRUE(done(desk.user.editCell(grid, TDBGrid::newRow, "* UOM", "EACH")));
    EXPECT_EQ(lines.rows(), 2);
    EXPECT_TRUE(done(desk.user.row(grid, 0)));
    ASSERT_EQ(lines.rows(), 3);
    EXPECT_EQ(lines(2, "RateType"), Value("EACH"));
    EXPECT_EQ(lines(2, "UOMID"), Value(3));
    EXPECT_EQ(takeEvents(),
              (Events{"BeforeColEdit 1", "BeforeInsert", "Change", "BeforeColUpdate 1 >EACH", "AfterColUpdate 1",
                      "AfterColEdit 1", "BeforeUpdate", "AfterInsert", "AfterUpdate"}));
}

TEST_F(TDBGridTest, RefusedInsertLeavesTheRowsAsTheyWere) {
    refuseInsert = true;
    desk.user.editCell(grid, TDBGrid::newRow, "* UOM", "EACH");
    desk.user.commitRow(grid);
    EXPECT_EQ(lines.rows(), 2);
    EXPECT_EQ(takeEvents(), (Events{"BeforeColEdit 1", "BeforeInsert"}));
}

TEST_F(TDBGridTest, RefusedCellHasItsOldValueBack) {
    refuseCell = true;
    EXPECT_TRUE(done(desk.user.editCell(grid, 1, "* UOM", "WEEKLY")));
    EXPECT_EQ(grid.Columns("* UOM").Text(), "HOURLY");
    EXPECT_EQ(grid.cellText(1, 1), "HOURLY");
    EXPECT_FALSE(grid.DataChanged());
    EXPECT_EQ(takeEvents().back(), "AfterColEdit 1");
}

TEST_F(TDBGridTest, CheckMayChangeTheCellAndItsNeighbours) {
    grid.BeforeColUpdate = [this](int, const Value&, bool&) {
        grid.Columns("* UOM").setText(ado::upperCase(grid.Columns("* UOM").Text()));
        grid.Columns("* Rate").setText("");
    };
    EXPECT_TRUE(done(desk.user.editCell(grid, 1, "* UOM", "daily")));
    EXPECT_TRUE(done(desk.user.commitRow(grid)));
    EXPECT_EQ(lines(1, "RateType"), Value("DAILY"));
    EXPECT_EQ(ado::toText(lines(1, "Rate")), "");
}

TEST_F(TDBGridTest, RefusedRowStaysUnderEditAndCannotBeLeft) {
    refuseRow = true;
    EXPECT_TRUE(done(desk.user.editCell(grid, 1, "* UOM", "EACH")));
    EXPECT_EQ(desk.user.row(grid, 0).refusal, "row 2 of dbgUOM(1) cannot be left");
    EXPECT_EQ(grid.row(), 1);
    EXPECT_EQ(grid.Columns("* UOM").Text(), "EACH");
    EXPECT_EQ(lines(1, "RateType"), Value("HOURLY"));
    EXPECT_TRUE(done(desk.user.keys(grid, "{Escape}")));
    EXPECT_EQ(grid.Columns("* UOM").Text(), "HOURLY");
    EXPECT_TRUE(done(desk.user.row(grid, 0)));
}

TEST_F(TDBGridTest, LeavingTheGridKeepsTheRowUncommitted) {
    EXPECT_TRUE(done(desk.user.editCell(grid, 1, "* UOM", "EACH")));
    EXPECT_TRUE(done(desk.user.moveFocus(next)));
    EXPECT_TRUE(grid.DataChanged());
    EXPECT_TRUE(grid.Update());
    EXPECT_EQ(lines(1, "RateType"), Value("EACH"));
}

TEST_F(TDBGridTest, SameTextIsNoChange) {
    EXPECT_TRUE(done(desk.user.editCell(grid, 1, "* Rate", "$12.50")));
    EXPECT_FALSE(grid.DataChanged());
    EXPECT_EQ(takeEvents(), (Events{"BeforeColEdit 2", "AfterColEdit 2"}));
}

TEST_F(TDBGridTest, EditThatIsRefusedAtTheStartOpensNothing) {
    refuseEdit = true;
    EXPECT_EQ(desk.user.editCell(grid, 1, "* UOM", "EACH").refusal, "column * UOM of dbgUOM(1) refuses to be edited");
    EXPECT_EQ(takeEvents(), (Events{"BeforeColEdit 1"}));
}

TEST_F(TDBGridTest, LockedGridColumnAndRowSayWhatIsLocked) {
    grid.Columns("* UOM").setLocked(true);
    EXPECT_EQ(desk.user.editCell(grid, 0, "* UOM", "X").refusal, "column * UOM of dbgUOM(1) is locked");
    grid.FetchRowStyle = [this](Bookmark row, RowStyle& style) {
        if (lines(static_cast<int>(row) - 1, "UOMID") == Value(2))
            style = {.backColor = colors::lightGrey, .foreColor = colors::red, .locked = true};
    };
    EXPECT_EQ(desk.user.editCell(grid, 1, "* Rate", "1").refusal, "row 2 of dbgUOM(1) is locked");
    EXPECT_TRUE(done(desk.user.editCell(grid, 0, "* Rate", "1")));
    EXPECT_EQ(grid.rowStyle(1).foreColor, colors::red);
    EXPECT_EQ(grid.rowStyle(0).foreColor, colors::automatic);
    grid.AllowUpdate = false;
    EXPECT_EQ(desk.user.editCell(grid, 0, "* Rate", "2").refusal, "dbgUOM(1) is locked");
    grid.AllowAddNew = false;
    EXPECT_EQ(desk.user.editCell(grid, TDBGrid::newRow, "* Rate", "2").refusal, "dbgUOM(1) takes no new rows");
}

TEST_F(TDBGridTest, HiddenAndUnknownColumnsAndRowsAreRefused) {
    EXPECT_EQ(desk.user.editCell(grid, 0, "UOMID", "9").refusal, "column UOMID of dbgUOM(1) is hidden");
    EXPECT_EQ(desk.user.editCell(grid, 0, "Nothing", "9").refusal, "dbgUOM(1) has no column Nothing");
    EXPECT_EQ(desk.user.row(grid, 2).refusal, "dbgUOM(1) has no row 3");
    EXPECT_THROW((void)grid.Columns("Nothing"), ado::Error);
}

TEST_F(TDBGridTest, TranslatedColumnShowsAndTakesDisplayTexts) {
    ValueItems& items = grid.Columns("* Rate Type").ValueItems;
    items.Translate = true;
    items.presentation = ValueItems::Presentation::ComboBox;
    items.Add("-1", "Primary");
    items.Add("0", "Special");
    EXPECT_EQ(grid.cellText(0, 0), "Primary");
    EXPECT_TRUE(done(desk.user.editCell(grid, 0, "* Rate Type", "special")));
    EXPECT_EQ(grid.Columns("* Rate Type").Text(), "Special");
    EXPECT_EQ(ado::toText(grid.Columns("* Rate Type").value()), "0");
}

TEST_F(TDBGridTest, DropDownTranslatesBetweenKeyAndText) {
    ValueArray accounts(2);
    accounts.setColumnNames({"AcctID", "AcctCode"});
    accounts.addRow({2, "P6AB12"});
    accounts.addRow({5, "P6CD34"});
    TDBDropDown list{form, "tdbDDAccts"};
    list.bind(accounts);
    list.setListField("AcctCode");
    list.setDataField("AcctID");
    list.setValueTranslate(true);
    grid.Columns("UOMID").setDropDown(&list);
    EXPECT_EQ(grid.cellText(1, 3), "P6AB12");
    grid.Columns("UOMID").setVisible(true);
    EXPECT_TRUE(done(desk.user.editCell(grid, 1, "UOMID", "p6cd34")));
    EXPECT_EQ(grid.Columns("UOMID").value(), Value(5));
    EXPECT_EQ(grid.Columns("UOMID").Text(), "P6CD34");
    grid.Columns("UOMID").setDropDown(nullptr);
}

TEST_F(TDBGridTest, DropDownStandsOnTheRowOfTheCellBeforeTheCheckRuns) {
    ValueArray kinds(2);
    kinds.setColumnNames({"Description", "KindCode"});
    kinds.addRow({"CREW MEMBER", "CRWB"});
    kinds.addRow({"CREW MEMBER", "SQDB"});
    kinds.addRow({"FALLER", "FALB"});
    TDBDropDown list{form, "ddcKindCode"};
    list.bind(kinds);
    list.setListField("Description");
    list.setDataField("KindCode");
    grid.Columns("* UOM").setDropDown(&list);
    grid.BeforeColUpdate = [&](int, const Value&, bool&) {
        grid.Columns("* UOM").setValue(list.Columns("KindCode").value());
    };
    EXPECT_TRUE(done(desk.user.editCell(grid, 0, "* UOM", "faller")));
    EXPECT_EQ(grid.Columns("* UOM").Text(), "FALB");
    list.setSelectedItem(1);
    EXPECT_TRUE(done(desk.user.editCell(grid, 0, "* UOM", "CREW MEMBER")));
    EXPECT_EQ(grid.Columns("* UOM").Text(), "SQDB") << "the row picked in the list counts, not the first of its text";
    EXPECT_TRUE(done(desk.user.editCell(grid, 0, "* UOM", "UNKNOWN")));
    EXPECT_EQ(list.SelectedItem(), -1);
    EXPECT_EQ(grid.Columns("* UOM").Text(), "");
    grid.Columns("* UOM").setDropDown(nullptr);
}

TEST_F(TDBGridTest, EditMaskPutsItsLiteralsIntoAFullEntryOnly) {
    grid.Columns("* UOM").setEditMask("##:##");
    EXPECT_TRUE(done(desk.user.editCell(grid, 0, "* UOM", "0800")));
    EXPECT_EQ(grid.Columns("* UOM").Text(), "08:00");
    EXPECT_TRUE(done(desk.user.editCell(grid, 0, "* UOM", "08:15")));
    EXPECT_EQ(grid.Columns("* UOM").Text(), "08:15");
    EXPECT_TRUE(done(desk.user.editCell(grid, 0, "* UOM", "815")));
    EXPECT_EQ(grid.Columns("* UOM").Text(), "815");
}

TEST_F(TDBGridTest, EntryIsCutToTheWidthOfItsColumn) {
    grid.Columns("* UOM").setDataWidth(4);
    EXPECT_TRUE(done(desk.user.editCell(grid, 0, "* UOM", "MILEAGE")));
    EXPECT_EQ(grid.Columns("* UOM").Text(), "MILE");
}

TEST_F(TDBGridTest, ColumnsTakenFromTheSourceFollowItWhenItHasOthers) {
    ValueArray found(2);
    found.setColumnNames({"LastName", "PStatus"});
    TDBGrid plain{form, "dbgPersonnel"};
    plain.bind(found);
    plain.Columns("PStatus").setWidth(500);
    plain.ReBind();
    EXPECT_EQ(plain.Columns("PStatus").Width(), 500) << "what the screen set on a column stays through a rebind";
    found = ValueArray(3);
    found.setColumnNames({"Name", "Kind", "Unit"});
    plain.ReBind();
    EXPECT_EQ(plain.columnCount(), 3);
    EXPECT_EQ(plain.Columns(2).Caption(), "Unit");
}

TEST_F(TDBGridTest, NumbersAreShownInTheirFormatAlsoUnderEdit) {
    EXPECT_EQ(grid.cellText(1, 2), "$12.50");
    EXPECT_TRUE(done(desk.user.editCell(grid, 1, "* Rate", "7")));
    EXPECT_EQ(grid.cellText(1, 2), "$7.00");
}

TEST_F(TDBGridTest, UnboundColumnIsAskedForRowByRow) {
    grid.UnboundColumnFetch = [](Bookmark row, int, Value& value) { value = Value(std::to_string(row) + " posts"); };
    EXPECT_EQ(grid.cellText(1, 4), "2 posts");
    EXPECT_EQ(grid.Columns("Dependencies").cellText(0), "1 posts");
}

TEST_F(TDBGridTest, MillionRowsAreNeverCopied) {
    ValueArray many(1);
    many.redim(1'000'000, 1);
    many.set(999'999, 0, "last");
    TDBGrid big{form, "dbgBig"};
    int styles = 0;
    big.FetchRowStyle = [&](Bookmark, RowStyle&) { ++styles; };
    big.bind(many);
    EXPECT_TRUE(big.MoveLast());
    EXPECT_EQ(big.cellText(999'999, 0), "last");
    EXPECT_EQ(styles, 0) << "styles are for rows that are drawn";
}

TEST_F(TDBGridTest, MovesStopAtTheEndsAndTellTheirRow) {
    grid.RowColChange = [this](std::int64_t row, int column) {
        events.push_back(std::to_string(row) + "/" + std::to_string(column));
    };
    EXPECT_TRUE(grid.MoveLast());
    EXPECT_FALSE(grid.MoveNext());
    EXPECT_TRUE(grid.EOF_());
    EXPECT_TRUE(grid.MovePrevious());
    EXPECT_FALSE(grid.MovePrevious());
    EXPECT_TRUE(grid.BOF());
    EXPECT_TRUE(grid.setBookmark(2));
    EXPECT_EQ(grid.bookmark(), 2);
    EXPECT_FALSE(grid.setBookmark(9));
    EXPECT_EQ(takeEvents(), (Events{"0/0", "1/0", "0/0"}));
}

TEST_F(TDBGridTest, KeysMoveThroughCellsAndOntoTheNewRow) {
    EXPECT_TRUE(done(desk.user.keys(grid, "{Down}{Enter}{Right}")));
    EXPECT_EQ(grid.row(), 1);
    EXPECT_EQ(grid.Col(), 2);
    EXPECT_EQ(grid.Text(), "$12.50");
    EXPECT_TRUE(done(desk.user.keys(grid, "{Down}")));
    EXPECT_EQ(grid.row(), TDBGrid::newRow);
    EXPECT_EQ(grid.bookmark(), 0);
    EXPECT_TRUE(done(desk.user.keys(grid, "{Up}")));
    EXPECT_EQ(grid.row(), 1);
}

TEST_F(TDBGridTest, DeletingAsksBeforeAndTellsAfterwards) {
    refuseDelete = true;
    EXPECT_TRUE(done(desk.user.deleteRow(grid)));
    EXPECT_EQ(lines.rows(), 2);
    refuseDelete = false;
    EXPECT_TRUE(done(desk.user.deleteRow(grid)));
    EXPECT_EQ(lines.rows(), 1);
    EXPECT_EQ(grid.Columns("UOMID").value(), Value(2)) << "the grid stands on the row that moved up";
    EXPECT_EQ(takeEvents(), (Events{"BeforeDelete", "BeforeDelete", "AfterDelete"}));
    EXPECT_TRUE(grid.Delete());
    EXPECT_EQ(grid.row(), TDBGrid::noRow);
    EXPECT_FALSE(grid.Delete());
    EXPECT_EQ(desk.user.deleteRow(grid).refusal, "dbgUOM(1) has no current row");
}

TEST_F(TDBGridTest, RowThatTheCheckDeletesIsNotWrittenBack) {
    grid.BeforeColUpdate = [this](int, const Value&, bool&) { grid.Delete(); };
    EXPECT_TRUE(done(desk.user.editCell(grid, 0, "* UOM", "EACH")));
    EXPECT_EQ(lines.rows(), 1);
    EXPECT_EQ(lines(0, "RateType"), Value("HOURLY"));
    EXPECT_FALSE(grid.DataChanged());
}

TEST_F(TDBGridTest, RowThatIsDeletedAfterItsUpdateIsGone) {
    grid.AfterUpdate = [this] { grid.Delete(); };
    EXPECT_TRUE(done(desk.user.editCell(grid, 0, "* UOM", "EACH")));
    EXPECT_TRUE(done(desk.user.commitRow(grid)));
    EXPECT_EQ(lines.rows(), 1);
}

TEST_F(TDBGridTest, SelectedRowsStandInOrderAndTellOnce) {
    grid.SelChange = note("SelChange");
    EXPECT_TRUE(done(desk.user.selectRows(grid, {1, 0})));
    EXPECT_EQ(grid.SelBookmarks.all(), (std::vector<Bookmark>{2, 1}));
    EXPECT_EQ(grid.row(), 0);
    EXPECT_EQ(takeEvents(), (Events{"SelChange"}));
}

TEST_F(TDBGridTest, HeadClickNamesTheColumn) {
    grid.HeadClick = [this](int column) { events.push_back("head " + std::to_string(column)); };
    EXPECT_TRUE(done(desk.user.headClick(grid, "* Rate")));
    EXPECT_EQ(takeEvents(), (Events{"head 2"}));
}

TEST_F(TDBGridTest, FooterAndColumnTraitsTellTheFrontEnd) {
    int told = 0;
    auto watch = grid.observe([&](Property property) { told += property == Property::Columns ? 1 : 0; });
    GridColumn& rate = grid.Columns("* Rate");
    rate.setFooterText("$112.50");
    rate.setWidth(900);
    rate.setEditMask("##:##");
    rate.setVisible(false);
    EXPECT_EQ(told, 4);
    EXPECT_EQ(rate.FooterText(), "$112.50");
}

TEST_F(TDBGridTest, ColumnsOfTheSourceGoWhenTheFirstOneIsAddedWhoeverLooksMeanwhile) {
    auto watch = grid.observe([&](Property) { (void)grid.columnCount(); });
    grid.removeColumns();
    EXPECT_EQ(grid.columnCount(), 4);
    grid.addColumn("UOM", "RateType");
    grid.addColumn("Rate", "Rate");
    EXPECT_EQ(grid.columnCount(), 2);
    EXPECT_EQ(grid.cellText(1, 0), "HOURLY");
}

TEST_F(TDBGridTest, TabPassesHiddenColumnsByAndLeavesBehindTheLastShownOne) {
    TextBox next(form, "txtNext");
    grid.Columns(4).setWidth(1440);
    grid.SetFocus();
    grid.setCol(2);
    EXPECT_TRUE(done(desk.user.key(grid, keys::tab)));
    EXPECT_EQ(grid.Col(), 4);
    EXPECT_TRUE(done(desk.user.key(grid, keys::left)));
    EXPECT_EQ(grid.Col(), 2);
    grid.Columns(4).setVisible(false);
    EXPECT_TRUE(done(desk.user.key(grid, keys::tab)));
    EXPECT_NE(form.ActiveControl(), &grid);
}

TEST_F(TDBGridTest, CancellingACellTakesItBack) {
    EXPECT_TRUE(done(desk.user.beginCell(grid, 1, 1)));
    EXPECT_TRUE(grid.editing());
    EXPECT_TRUE(done(desk.user.cancelCell(grid)));
    EXPECT_TRUE(done(desk.user.endCell(grid, "EACH")));
    EXPECT_FALSE(grid.DataChanged());
    EXPECT_EQ(takeEvents(), (Events{"BeforeColEdit 1"}));
}

TEST_F(TDBGridTest, RebindingLosesEditsAndKeepsColumns) {
    EXPECT_TRUE(done(desk.user.editCell(grid, 1, "* UOM", "EACH")));
    grid.ReBind();
    EXPECT_FALSE(grid.DataChanged());
    EXPECT_EQ(grid.columnCount(), 5);
    EXPECT_EQ(grid.Columns("* UOM").cellText(1), "HOURLY");
}

} // namespace zel::forms
