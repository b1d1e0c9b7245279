// Cells of a grid, edited with keys.
#include "desktop/grid_fixture.h"
#include "desktop/grid_footer.h"

#include <QComboBox>
#include <QHeaderView>
#include <QInputDialog>

namespace zel::test {

using P = PeopleForm;
class GridEditing : public PeopleTest {};

TEST_F(GridEditing, AnAcceptedCellShowsItsNewValue) {
    ASSERT_TRUE(typeInto(0, P::Class, QStringLiteral("AD-3")));
    EXPECT_EQ(shown(0, P::Class), "AD-3");
    EXPECT_EQ(form.dbgPeople.cellText(0, P::Class), "AD-3");
    EXPECT_TRUE(table->hasFocus());
}

TEST_F(GridEditing, ARefusedCellShowsItsOldValueAgain) {
    ASSERT_TRUE(typeInto(1, P::Class, QStringLiteral("BAD")));
    EXPECT_EQ(shown(1, P::Class), "AD-1");
    EXPECT_EQ(form.dbgPeople.cellText(1, P::Class), "AD-1");
    EXPECT_TRUE(table->hasFocus());
}

TEST_F(GridEditing, EscapeLeavesTheCellAsItWas) {
    goTo(0, P::Class);
    press(Qt::Key_F2);
    keyIn(QStringLiteral("AD-3"));
    press(Qt::Key_Escape);
    EXPECT_EQ(shown(0, P::Class), "AD-1");
    EXPECT_FALSE(form.dbgPeople.DataChanged());
    EXPECT_TRUE(table->hasFocus());
}

TEST_F(GridEditing, ALetterOpensTheCellAndReplacesItsText) {
    goTo(0, P::Class);
    keyIn(QStringLiteral("X9"));
    press(Qt::Key_Return);
    EXPECT_EQ(shown(0, P::Class), "X9");
}

TEST_F(GridEditing, TabTakesTheTextAndOpensTheNextCell) {
    goTo(0, P::Class);
    press(Qt::Key_F2);
    keyIn(QStringLiteral("AD-3"));
    press(Qt::Key_Tab);
    EXPECT_EQ(form.dbgPeople.cellText(0, P::Class), "AD-3");
    EXPECT_EQ(table->currentIndex().column(), P::Kind);
    EXPECT_TRUE(form.dbgPeople.editing());
}

TEST_F(GridEditing, LeavingTheRowWritesIt) {
    ASSERT_TRUE(typeInto(0, P::Class, QStringLiteral("AD-3")));
    EXPECT_TRUE(form.dbgPeople.DataChanged());
    press(Qt::Key_Down);
    EXPECT_FALSE(form.dbgPeople.DataChanged());
    EXPECT_EQ(form.people(0, P::Class), ado::Value("AD-3"));
}

TEST_F(GridEditing, ALockedColumnAndALockedRowDoNotOpen) {
    EXPECT_FALSE(typeInto(0, P::Name, QStringLiteral("X")));
    EXPECT_FALSE(typeInto(2, P::Class, QStringLiteral("X")));
    EXPECT_EQ(shown(2, P::Class), "AD-1");
}

TEST_F(GridEditing, ALockedRowIsDarkRedOnGreyAndHasALockInItsHead) {
    const QModelIndex cell = table->model()->index(2, P::Name);
    EXPECT_EQ(cell.data(Qt::BackgroundRole).value<QColor>().name(), QStringLiteral("#e0e0e0"));
    EXPECT_EQ(cell.data(Qt::ForegroundRole).value<QColor>().name(), QStringLiteral("#b00000"));
    EXPECT_FALSE(table->model()->headerData(2, Qt::Vertical, Qt::DecorationRole).value<QIcon>().isNull());
    EXPECT_TRUE(table->model()->headerData(0, Qt::Vertical, Qt::DecorationRole).isNull());
}

TEST_F(GridEditing, AMaskedCellTakesDigitsAroundItsLiterals) {
    ASSERT_TRUE(typeInto(0, P::Day, QStringLiteral("0704x2005")));
    EXPECT_EQ(shown(0, P::Day), "07/04/2005");
}

TEST_F(GridEditing, ACellIsNoWiderThanItsField) {
    ASSERT_TRUE(typeInto(0, P::Class, QStringLiteral("ABCDEFGH")));
    EXPECT_EQ(shown(0, P::Class), "ABCDEF");
}

TEST_F(GridEditing, AListInACellCompletesAndShowsItsColumns) {
    goTo(0, P::Kind);
    press(Qt::Key_F2);
    auto* entries = table->viewport()->findChild<QComboBox*>();
    ASSERT_NE(entries, nullptr);
    EXPECT_EQ(entries->view()->model()->columnCount(), 2);
    keyIn(QStringLiteral("f"));
    EXPECT_EQ(entries->currentText().toUpper(), QStringLiteral("FALB"));
    press(Qt::Key_Return);
    EXPECT_EQ(shown(0, P::Kind), "FALB");
}

TEST_F(GridEditing, WhatIsNotInTheListOfACellIsNotTaken) {
    ASSERT_TRUE(typeInto(0, P::Kind, QStringLiteral("XXXX")));
    EXPECT_EQ(shown(0, P::Kind), "ENGB");
    EXPECT_FALSE(form.dbgPeople.DataChanged());
}

TEST_F(GridEditing, AListOfCodesLetsOthersThroughToTheScreensCheck) {
    ASSERT_TRUE(typeInto(0, P::Special, QStringLiteral("gu")));
    EXPECT_EQ(shown(0, P::Special), "GUAR");
    ASSERT_TRUE(typeInto(0, P::Special, QStringLiteral("BAD")));
    EXPECT_EQ(shown(0, P::Special), "GUAR");
}

TEST_F(GridEditing, ABoxDuringTheCheckOfACellIsAnsweredAndTheCellTaken) {
    std::string asked;
    form.dbgPeople.BeforeColUpdate = [&](int, const ado::Value&, bool&) {
        asked = session().dialogs.input({"Enter the rate.", "ZEL", ""});
        form.dbgPeople.Columns(P::Special).setText(asked);
    };
    whenBoxOpens([this](QWidget&) {
        keyIn(QStringLiteral("18.20"));
        press(Qt::Key_Return);
    });
    ASSERT_TRUE(typeInto(0, P::Class, QStringLiteral("AD-5")));
    QCoreApplication::processEvents();
    EXPECT_EQ(asked, "18.20");
    EXPECT_EQ(shown(0, P::Class), "AD-5");
    EXPECT_EQ(shown(0, P::Special), "18.20");
}

TEST_F(GridEditing, WhatIsTypedStaysWhileOtherRowsAreDrawnAnew) {
    goTo(0, P::Class);
    press(Qt::Key_F2);
    keyIn(QStringLiteral("AD-"));
    form.dbgPeople.notify(forms::Property::Items);
    form.people.addRow({"NEW", 99, "AD-2", "CREW", "", ""});
    form.dbgPeople.notify(forms::Property::Items);
    EXPECT_EQ(table->model()->rowCount(), P::count + 1);
    keyIn(QStringLiteral("4"));
    press(Qt::Key_Return);
    EXPECT_EQ(shown(0, P::Class), "AD-4");
}

TEST_F(GridEditing, AGridThatIsBoundAnewClosesItsCell) {
    goTo(0, P::Class);
    press(Qt::Key_F2);
    keyIn(QStringLiteral("AD-4"));
    form.dbgPeople.ReBind();
    QCoreApplication::processEvents();
    EXPECT_FALSE(form.dbgPeople.editing());
    EXPECT_TRUE(table->hasFocus());
    EXPECT_EQ(shown(0, P::Class), "AD-1");
}

TEST_F(GridEditing, ANewRowIsTypedIntoTheLastLine) {
    form.dbgPeople.AllowAddNew = true;
    form.dbgPeople.ReBind();
    EXPECT_EQ(table->model()->headerData(P::count, Qt::Vertical, Qt::DisplayRole).toString(), QStringLiteral("*"));
    ASSERT_TRUE(typeInto(P::count, P::Class, QStringLiteral("AD-2")));
    press(Qt::Key_Up);
    QCoreApplication::processEvents();
    EXPECT_EQ(form.people.rows(), P::count + 1);
    EXPECT_EQ(form.people(P::count, P::Class), ado::Value("AD-2"));
    EXPECT_EQ(table->model()->rowCount(), P::count + 2);
}

TEST_F(GridEditing, FootersStandUnderTheirColumnsWhileThereAreAny) {
    const auto line = [this] {
        return dynamic_cast<desktop::GridFooter*>(root->findChild<QWidget*>(QStringLiteral("decoFooter")));
    };
    EXPECT_EQ(line(), nullptr);
    form.dbgPeople.Columns(P::Class).setFooterText("112.50");
    desktop::GridFooter* footer = line();
    ASSERT_NE(footer, nullptr);
    QCoreApplication::processEvents();
    EXPECT_TRUE(footer->isVisible());
    EXPECT_EQ(footer->text(P::Class), QStringLiteral("112.50"));
    EXPECT_EQ(footer->cell(P::Class).x(),
              table->verticalHeader()->width() + table->frameWidth() + table->columnViewportPosition(P::Class));
    EXPECT_EQ(footer->y(), table->y() + table->height());
    form.dbgPeople.Columns(P::Class).setFooterText("");
    EXPECT_FALSE(footer->isVisible());
}

} // namespace zel::test
