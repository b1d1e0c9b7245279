#include "desktop/desktop_test.h"
#include "desktop/list_combo.h"
#include "forms/form_registry.h"
#include "forms/tdb_combo.h"
#include "forms/tdb_grid.h"

#include <QElapsedTimer>
#include <QLineEdit>
#include <QTableView>

namespace zel::test {

namespace {

/// A grid over a list in memory whose second column takes no "BAD", and a combo over a long list.
class Rows final : public forms::Form {
public:
    explicit Rows(forms::FormRegistry& forms) : Form(forms, "frmRows") {
        for (const char* name : {"ADAMS", "BAKER", "CLARK"})
            people.addRow({name, "AD-1"});
        people.setColumnNames({"Name", "Class"});
        dbgPeople.addColumn("Name", "Name").setLocked(true);
        dbgPeople.addColumn("Class", "Class");
        dbgPeople.bind(people);
        dbgPeople.BeforeColUpdate = [this](int column, const ado::Value&, bool& cancel) {
            cancel = dbgPeople.Columns(column).Text() == "BAD";
        };
        dbgPeople.FetchRowStyle = [](ado::Bookmark row, forms::RowStyle& style) {
            if (row == 3)
                style = {forms::colors::lightGrey, forms::colors::red, true};
        };
        for (int row = 0; row < longList; ++row)
            many.addRow({"NAME " + std::to_string(100000 + row)});
        many.setColumnNames({"Name"});
        dbcMany.bind(many);
    }
    static constexpr int longList = 50000;
    forms::ValueArray people{2}, many{1};
    forms::TDBGrid dbgPeople{*this, "dbgPeople"};
    forms::TDBCombo dbcMany{*this, "dbcMany"};
};

class GridEditing : public DesktopTest {
protected:
    GridEditing() : form(session().forms), root(new QWidget) {
        table = new QTableView(root);
        table->setObjectName(QStringLiteral("dbgPeople"));
        combo = new desktop::ListCombo(root);
        combo->setObjectName(QStringLiteral("dbcMany"));
        root->resize(600, 400);
        table->resize(500, 300);
        form.Show();
        view = std::make_unique<desktop::FormView>(form, root, program().desk());
        root->show();
        QApplication::setActiveWindow(root);
        table->setFocus();
    }
    ~GridEditing() override { view->detach(); }

    /// Types into the cell and leaves it with Enter; false when it did not open.
    bool typeInto(int row, int column, const QString& text) {
        const QModelIndex cell = table->model()->index(row, column);
        table->setCurrentIndex(cell);
        QTest::keyClick(table->viewport()->parentWidget(), Qt::Key_F2);
        auto* editor = table->viewport()->findChild<QLineEdit*>();
        if (editor == nullptr)
            return false;
        editor->selectAll();
        QTest::keyClicks(editor, text);
        QTest::keyClick(editor, Qt::Key_Return);
        QCoreApplication::processEvents();
        return true;
    }
    [[nodiscard]] std::string shown(int row, int column) const {
        return table->model()->index(row, column).data().toString().toStdString();
    }

    Rows form;
    QWidget* root;
    QTableView* table = nullptr;
    desktop::ListCombo* combo = nullptr;
    std::unique_ptr<desktop::FormView> view;
};

} // namespace

ZEL_ON_BOTH_ENGINES(GridEditing);

TEST_P(GridEditing, AnAcceptedCellShowsItsNewValue) {
    ASSERT_TRUE(typeInto(0, 1, QStringLiteral("AD-3")));
    EXPECT_EQ(shown(0, 1), "AD-3");
    EXPECT_EQ(form.dbgPeople.cellText(0, 1), "AD-3");
}

TEST_P(GridEditing, ARefusedCellShowsItsOldValueAgain) {
    ASSERT_TRUE(typeInto(1, 1, QStringLiteral("BAD")));
    EXPECT_EQ(shown(1, 1), "AD-1");
    EXPECT_EQ(form.dbgPeople.cellText(1, 1), "AD-1");
}

TEST_P(GridEditing, ALockedColumnAndALockedRowDoNotOpen) {
    EXPECT_FALSE(typeInto(0, 0, QStringLiteral("X")));
    EXPECT_FALSE(typeInto(2, 1, QStringLiteral("X")));
    EXPECT_EQ(shown(2, 1), "AD-1");
}

TEST_P(GridEditing, ALockedRowIsDarkRedOnGreyAndHasALockInItsHead) {
    const QModelIndex cell = table->model()->index(2, 0);
    EXPECT_EQ(cell.data(Qt::BackgroundRole).value<QColor>().name(), QStringLiteral("#e0e0e0"));
    EXPECT_EQ(cell.data(Qt::ForegroundRole).value<QColor>().name(), QStringLiteral("#b00000"));
    EXPECT_FALSE(table->model()->headerData(2, Qt::Vertical, Qt::DecorationRole).value<QIcon>().isNull());
    EXPECT_TRUE(table->model()->headerData(0, Qt::Vertical, Qt::DecorationRole).isNull());
}

TEST_P(GridEditing, AListOfFiftyThousandRowsOpensAndAnswersAtOnce) {
    QElapsedTimer spent;
    spent.start();
    combo->showPopup();
    EXPECT_TRUE(form.dbcMany.isOpen());
    QTest::keyClicks(combo->lineEdit(), QStringLiteral("name 14999"));
    EXPECT_EQ(combo->lineEdit()->text(), QStringLiteral("name 149990"));
    // Ten keys and an opening; generous, since machines are shared.
    EXPECT_LT(spent.elapsed(), 1000);
}

} // namespace zel::test
