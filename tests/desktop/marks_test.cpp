// Rows that a clerk goes to, marks, copies and sorts in grids and lists.
#include "desktop/grid_fixture.h"

#include <QClipboard>
#include <QHeaderView>
#include <QMenu>
#include <QScrollBar>

namespace zel::test {

using P = PeopleForm;
using Rows = std::vector<int>;
class Marks : public PeopleTest {};

TEST_F(Marks, GoingToARowMarksNone) {
    goTo(0, P::Class);
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    EXPECT_EQ(form.dbgPeople.row(), 2);
    EXPECT_EQ(form.dbgPeople.SelBookmarks.Count(), 0);
    EXPECT_EQ(marked(*table), Rows{3});
}

TEST_F(Marks, ShiftAndArrowsMarkDownwardsUpwardsAndBack) {
    goTo(5, P::Class);
    press(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(marks(form.dbgPeople.SelBookmarks), (Rows{6, 7}));
    press(Qt::Key_Up, Qt::ShiftModifier);
    press(Qt::Key_Up, Qt::ShiftModifier);
    press(Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_EQ(marked(*table), (Rows{4, 5, 6}));
    EXPECT_EQ(marks(form.dbgPeople.SelBookmarks), (Rows{5, 6, 4}));
    EXPECT_EQ(form.dbgPeople.row(), 3);
}

TEST_F(Marks, ControlAndSpaceMarkRowsApart) {
    goTo(1, P::Class);
    press(Qt::Key_Space, Qt::ControlModifier);
    EXPECT_EQ(marks(form.dbgPeople.SelBookmarks), Rows{2});
    press(Qt::Key_Down, Qt::ControlModifier);
    press(Qt::Key_Down, Qt::ControlModifier);
    press(Qt::Key_Space, Qt::ControlModifier);
    EXPECT_EQ(marks(form.dbgPeople.SelBookmarks), (Rows{2, 4}));
    EXPECT_EQ(marked(*table), (Rows{2, 4}));
    press(Qt::Key_Space, Qt::ControlModifier);
    EXPECT_EQ(marks(form.dbgPeople.SelBookmarks), Rows{2});
}

TEST_F(Marks, AClickLeftOfARowMarksItAndAClickIntoACellDoesNot) {
    auto* heads = table->verticalHeader();
    QTest::mouseClick(heads->viewport(), Qt::LeftButton, {}, QPoint(4, heads->sectionViewportPosition(1) + 4));
    EXPECT_EQ(marks(form.dbgPeople.SelBookmarks), Rows{2});
    const QRect cell = table->visualRect(table->model()->index(3, P::Name));
    QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, cell.center());
    EXPECT_EQ(form.dbgPeople.SelBookmarks.Count(), 0);
    EXPECT_EQ(form.dbgPeople.row(), 3);
    EXPECT_EQ(marked(*table), Rows{4});
}

TEST_F(Marks, ClicksWithControlMarkRowsApartAndWithShiftARange) {
    const auto click = [this](int row, Qt::KeyboardModifiers modifiers) {
        const QRect cell = table->visualRect(table->model()->index(row, P::Name));
        QTest::mouseClick(table->viewport(), Qt::LeftButton, modifiers, cell.center());
    };
    click(1, Qt::ControlModifier);
    EXPECT_EQ(marks(form.dbgPeople.SelBookmarks), Rows{2});
    click(3, Qt::ControlModifier);
    EXPECT_EQ(marks(form.dbgPeople.SelBookmarks), (Rows{2, 4}));
    click(1, Qt::NoModifier);
    click(4, Qt::ShiftModifier);
    EXPECT_EQ(marks(form.dbgPeople.SelBookmarks), (Rows{2, 3, 4, 5}));
    EXPECT_EQ(marked(*table), (Rows{2, 3, 4, 5}));
}

TEST_F(Marks, ControlAMarksAllRows) {
    goTo(3, P::Class);
    press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(form.dbgPeople.SelBookmarks.Count(), P::count);
    EXPECT_EQ(form.dbgPeople.row(), 3);
}

TEST_F(Marks, MarkedRowsAreCopiedWithWhatTheyShowAndOneCellWithoutMarks) {
    goTo(0, P::Class);
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("AD-1"));
    press(Qt::Key_Down, Qt::ShiftModifier);
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(),
              QStringLiteral("ADAMS\tAD-1\tENGB\t07/01/2005\t\nBAKER\tAD-1\tENGB\t07/01/2005\tHP"));
}

TEST_F(Marks, PlaceAndMarksStayAsRowsComeAndGo) {
    goTo(20, P::Class);
    press(Qt::Key_Down, Qt::ShiftModifier);
    ASSERT_EQ(marks(form.dbgPeople.SelBookmarks), (Rows{21, 22}));
    ASSERT_EQ(marked(*table), (Rows{21, 22}));
    const int place = table->verticalScrollBar()->value();
    ASSERT_GT(place, 0);
    form.people.addRow({"NEW", 99, "AD-2", "CREW", "", ""});
    form.dbgPeople.notify(forms::Property::Items);
    EXPECT_EQ(table->model()->rowCount(), P::count + 1);
    form.people.deleteRow(P::count);
    form.dbgPeople.notify(forms::Property::Items);
    EXPECT_EQ(table->model()->rowCount(), P::count);
    EXPECT_EQ(table->verticalScrollBar()->value(), place);
    EXPECT_EQ(marked(*table), (Rows{21, 22}));
    EXPECT_EQ(table->currentIndex().row(), 21);
}

TEST_F(Marks, AWidthThatTheClerkDraggedStays) {
    table->setColumnWidth(P::Class, 222);
    form.dbgPeople.ReBind();
    EXPECT_EQ(table->columnWidth(P::Class), 222);
    form.dbgPeople.Columns(P::Class).setWidth(2000);
    EXPECT_NE(table->columnWidth(P::Class), 222);
}

TEST_F(Marks, AMillionRowsScrollAndNoneIsCopied) {
    forms::ValueArray million(1);
    million.setColumnNames({"Name"});
    for (int row = 0; row < 1'000'000; ++row)
        million.addRow({row});
    forms::TDBGrid& grid = form.dbgPeople;
    grid.FetchRowStyle = nullptr;
    int asked = 0;
    grid.removeColumns();
    grid.addUnboundColumn("Number");
    grid.UnboundColumnFetch = [&asked](forms::Bookmark, int, ado::Value& value) {
        ++asked;
        value = ado::Value("x");
    };
    grid.bind(million);
    QCoreApplication::processEvents();
    goTo(0, 0);
    press(Qt::Key_End, Qt::ControlModifier);
    (void)table->grab();
    EXPECT_EQ(grid.row(), 999'999);
    EXPECT_GT(asked, 0);
    EXPECT_LT(asked, 2000);
    grid.unbind();
}

TEST_F(Marks, APressOnAHeadAndF9TellTheColumn) {
    std::vector<int> columns;
    form.dbgPeople.HeadClick = [&columns](int column) { columns.push_back(column); };
    form.dbgPeople.ReBind();
    auto* heads = table->horizontalHeader();
    QTest::mouseClick(heads->viewport(), Qt::LeftButton, {},
                      QPoint(heads->sectionViewportPosition(P::Class) + 5, heads->height() / 2));
    goTo(0, P::Day);
    press(Qt::Key_F9);
    EXPECT_EQ(columns, (std::vector<int>{P::Class, P::Day}));
}

TEST_F(Marks, SeveralRowsOfAListAreMarkedWithKeys) {
    list->setFocus();
    list->setCurrentIndex(list->model()->index(0, 0));
    EXPECT_EQ(marks(form.dblPeople.SelBookmarks), Rows{1});
    press(Qt::Key_Down, Qt::ShiftModifier);
    press(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(marks(form.dblPeople.SelBookmarks), (Rows{1, 2, 3}));
    press(Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_EQ(marked(*list), (Rows{1, 2}));
    press(Qt::Key_Down, Qt::ControlModifier);
    press(Qt::Key_Down, Qt::ControlModifier);
    press(Qt::Key_Space, Qt::ControlModifier);
    EXPECT_EQ(marks(form.dblPeople.SelBookmarks), (Rows{1, 2, 4}));
    EXPECT_EQ(marked(*list), (Rows{1, 2, 4}));
    press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(form.dblPeople.SelBookmarks.Count(), P::count);
}

TEST_F(Marks, AListOfFiftyThousandRowsCompletesWhatIsTyped) {
    combo->setFocus();
    press(Qt::Key_Down, Qt::AltModifier);
    EXPECT_TRUE(form.dbcMany.isOpen());
    keyIn(QStringLiteral("name 14999"));
    EXPECT_EQ(combo->lineEdit()->text(), QStringLiteral("name 149990"));
    EXPECT_EQ(combo->lineEdit()->selectedText(), QStringLiteral("0"));
    press(Qt::Key_Return);
    EXPECT_FALSE(form.dbcMany.isOpen());
    EXPECT_EQ(form.dbcMany.BoundText(), "NAME 149990");
    EXPECT_EQ(form.dbcMany.SelectedItem(), 49990);
}

} // namespace zel::test
