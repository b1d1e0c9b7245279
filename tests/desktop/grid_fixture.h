#pragma once

#include "desktop/desktop_test.h"
#include "desktop/list_combo.h"
#include "forms/tdb_combo.h"
#include "forms/tdb_drop_down.h"
#include "forms/tdb_grid.h"
#include "forms/tdb_list.h"

#include <QLineEdit>
#include <QTableView>
#include <QVBoxLayout>

namespace zel::test {

/// A grid over a list in memory whose third row is locked and whose classes take no "BAD"; a list of the same people in
/// which several can be marked; and a combo over a long list.
class PeopleForm final : public forms::Form {
public:
    static constexpr int longList = 50000, count = 40;
    enum Column { Name, Key, Class, Kind, Day, Special };

    explicit PeopleForm(forms::FormRegistry& forms) : Form(forms, "frmPeople") {
        fillLists();
        makeColumns();
        dbgPeople.BeforeColUpdate = [this](int column, const ado::Value&, bool& cancel) {
            cancel = dbgPeople.Columns(column).Text() == "BAD";
        };
        dbgPeople.FetchRowStyle = [](ado::Bookmark row, forms::RowStyle& style) {
            if (row == 3)
                style = {forms::colors::lightGrey, forms::colors::red, true};
        };
        dbgPeople.bind(people);
        dblPeople.addColumn("Name", "Name");
        dblPeople.bind(people);
        dblPeople.setMultiSelect(true);
        dbcMany.bind(many);
    }

    forms::ValueArray people{6}, kinds{2}, many{1};
    forms::TDBGrid dbgPeople{*this, "dbgPeople"};
    forms::TDBList dblPeople{*this, "dblPeople"};
    forms::TDBCombo dbcMany{*this, "dbcMany"};
    forms::TDBDropDown ddcKinds{*this, "ddcKinds"};

private:
    void fillLists() {
        people.setColumnNames({"Name", "Key", "Class", "Kind", "Day", "Special"});
        people.addRow({"ADAMS", 1, "AD-1", "ENGB", "07/01/2005", ""});
        people.addRow({"BAKER", 2, "AD-1", "ENGB", "07/01/2005", "HP"});
        for (int row = 3; row <= count; ++row)
            people.addRow({"PERSON " + std::to_string(row), row, "AD-1", "ENGB", "07/01/2005", ""});
        kinds.setColumnNames({"Kind", "Description"});
        kinds.addRow({"CREW", "Crew member"});
        kinds.addRow({"ENGB", "Engine boss"});
        kinds.addRow({"FALB", "Feller"});
        for (int row = 0; row < longList; ++row)
            many.addRow({"NAME " + std::to_string(100000 + row)});
        many.setColumnNames({"Name"});
    }
    void makeColumns() {
        dbgPeople.addColumn("Name", "Name").setLocked(true);
        dbgPeople.addColumn("Key", "Key").setVisible(false);
        dbgPeople.addColumn("Class", "Class").setDataWidth(6);
        ddcKinds.bind(kinds);
        dbgPeople.addColumn("Kind", "Kind").setDropDown(&ddcKinds);
        dbgPeople.addColumn("Day", "Day").setEditMask("99/99/9999");
        forms::GridColumn& special = dbgPeople.addColumn("Special", "Special");
        for (const char* code : {"", "GUAR", "HP"})
            special.ValueItems.Add(code, code);
        special.ValueItems.presentation = forms::ValueItems::Presentation::ComboBox;
    }
};

/// The form with widgets that a clerk's keys go into. Nothing of it touches the database.
class PeopleTest : public DesktopTest {
protected:
    PeopleTest() : form(session().forms), root(new QWidget) {
        auto* column = new QVBoxLayout(root);
        table = addFace<QTableView>(*column, "dbgPeople");
        list = addFace<QTableView>(*column, "dblPeople");
        combo = addFace<desktop::ListCombo>(*column, "dbcMany");
        root->resize(700, 500);
        form.Show();
        view = std::make_unique<desktop::FormView>(form, root, program().desk());
        root->show();
        QCoreApplication::processEvents();
        QApplication::setActiveWindow(root);
        table->setFocus();
    }
    ~PeopleTest() override { view->detach(); }

    void goTo(int row, int column) {
        table->setFocus();
        table->selectionModel()->setCurrentIndex(table->model()->index(row, column),
                                                 QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    }
    /// Types into the cell and leaves it with Enter; false when it did not open.
    bool typeInto(int row, int column, const QString& text) {
        goTo(row, column);
        press(Qt::Key_F2);
        if (QApplication::focusWidget() == table)
            return false;
        keyIn(text);
        press(Qt::Key_Return);
        return true;
    }
    [[nodiscard]] std::string shown(int row, int column) const {
        return table->model()->index(row, column).data().toString().toStdString();
    }
    /// The rows that look marked, from 1.
    [[nodiscard]] static std::vector<int> marked(const QTableView& rows) {
        std::vector<int> numbers;
        for (const QModelIndex& index : rows.selectionModel()->selectedRows(0))
            numbers.push_back(index.row() + 1);
        std::sort(numbers.begin(), numbers.end());
        return numbers;
    }
    /// The rows that the screen knows as marked, in the order of marking.
    [[nodiscard]] std::vector<int> marks(const forms::BookmarkSet& set) const {
        std::vector<int> numbers;
        for (int i = 0; i < set.Count(); ++i)
            numbers.push_back(static_cast<int>(set(i)));
        return numbers;
    }

    PeopleForm form;
    QWidget* root;
    QTableView *table = nullptr, *list = nullptr;
    desktop::ListCombo* combo = nullptr;
    std::unique_ptr<desktop::FormView> view;

private:
    template <typename Face>
    Face* addFace(QVBoxLayout& column, const char* name) {
        auto* face = new Face(root);
        face->setObjectName(QString::fromLatin1(name));
        column.addWidget(face);
        return face;
    }
};

} // namespace zel::test
