// What a clerk does with the rows of lists and grids.
#include "forms/combo_box.h"
#include "forms/form.h"
#include "forms/form_registry.h"
#include "forms/list_box.h"
#include "forms/list_view.h"
#include "forms/tdb_combo.h"
#include "forms/tdb_grid.h"
#include "forms/tdb_list.h"
#include "forms/user.h"

#include <algorithm>

namespace zel::forms {

namespace {

std::string rowName(std::int64_t row) {
    return row == TDBGrid::newRow ? "the new row" : "row " + std::to_string(row + 1);
}

/// The row that reads so, else the first that begins so: texts of some lists carry a key behind many blanks.
std::int64_t rowShowing(const RowList& list, std::string_view text, std::string_view column) {
    const auto exact = list.findText(text, column);
    return exact >= 0 ? exact : list.findPrefix(text, column);
}

std::int64_t findIn(const Control& list, std::string_view text, std::string_view column) {
    if (const auto* rows = dynamic_cast<const RowList*>(&list))
        return rowShowing(*rows, text, column);
    if (const auto* combo = dynamic_cast<const ComboBox*>(&list))
        return findItem(combo->items(), text);
    if (const auto* box = dynamic_cast<const ListBox*>(&list))
        return findItem(box->items(), text);
    const auto* view = dynamic_cast<const ListView*>(&list);
    for (std::size_t i = 0; view != nullptr && i < view->ListItems().size(); ++i) {
        if (view->ListItems()[i].text == text)
            return static_cast<std::int64_t>(i);
    }
    return -1;
}

std::int64_t rowsOf(const Control& list) {
    if (const auto* rows = dynamic_cast<const RowList*>(&list))
        return rows->rowCount();
    if (const auto* grid = dynamic_cast<const TDBGrid*>(&list))
        return grid->rowCount();
    if (const auto* combo = dynamic_cast<const ComboBox*>(&list))
        return combo->ListCount();
    if (const auto* box = dynamic_cast<const ListBox*>(&list))
        return box->ListCount();
    const auto* view = dynamic_cast<const ListView*>(&list);
    return view == nullptr ? 0 : static_cast<std::int64_t>(view->ListItems().size());
}

} // namespace

Outcome User::pick(Control& list, std::string_view text, std::string_view column) {
    const auto* rows = dynamic_cast<const RowList*>(&list);
    return pickIn(
        list, [&] { return findIn(list, text, column); },
        (rows != nullptr && rows->rowCount() == 0 ? list.fullName() + " is empty: no row shows \""
                                                  : "no row of " + list.fullName() + " shows \"") +
            std::string(text) + "\"");
}

Outcome User::pickRow(Control& list, std::int64_t row) {
    return pickIn(
        list, [&] { return row < rowsOf(list) ? row : -1; }, list.fullName() + " has no " + rowName(row));
}

Outcome User::pickIn(Control& list, const std::function<std::int64_t()>& find, const std::string& missing) {
    const FormRegistry::Action action(forms_);
    if (auto refused = enter(list); !refused)
        return refused;
    auto* combo = dynamic_cast<TDBCombo*>(&list);
    auto* plain = dynamic_cast<ComboBox*>(&list);
    if (combo != nullptr || plain != nullptr) {
        if (auto refused = open(list, true); !refused)
            return refused;
    }
    const auto row = find();
    if (row >= 0) {
        if (combo != nullptr)
            combo->pick(row);
        else if (plain != nullptr)
            plain->setListIndex(static_cast<int>(row));
        else if (auto* box = dynamic_cast<ListBox*>(&list))
            box->setListIndex(static_cast<int>(row));
        else if (auto* view = dynamic_cast<ListView*>(&list))
            view->setSelectedItem(static_cast<int>(row));
        else if (auto* rows = dynamic_cast<TDBList*>(&list)) {
            rows->setSelectedItem(row);
            Control::raise(rows->Click);
        }
    }
    if (combo != nullptr)
        combo->setOpen(false);
    if (plain != nullptr)
        plain->setOpen(false);
    return row < 0 ? Outcome{missing} : Outcome{};
}

Outcome User::readyGrid(Control& target) {
    if (dynamic_cast<TDBGrid*>(&target) == nullptr)
        return {target.fullName() + " is not a grid"};
    return enter(target);
}

Outcome User::row(Control& target, std::int64_t row) {
    const FormRegistry::Action action(forms_);
    if (auto refused = readyGrid(target); !refused)
        return refused;
    auto& grid = static_cast<TDBGrid&>(target);
    if (row == TDBGrid::newRow && !grid.AllowAddNew)
        return {target.fullName() + " takes no new rows"};
    if (row != TDBGrid::newRow && (row < 0 || row >= grid.rowCount()))
        return {target.fullName() + " has no " + rowName(row)};
    if (!grid.setRow(row))
        return {rowName(grid.row()) + " of " + target.fullName() + " cannot be left"};
    return {};
}

Outcome User::beginCell(Control& target, std::int64_t row, int column) {
    const FormRegistry::Action action(forms_);
    if (auto refused = readyGrid(target); !refused)
        return refused;
    auto& grid = static_cast<TDBGrid&>(target);
    if (column < 0 || column >= grid.columnCount())
        return {target.fullName() + " has no column " + std::to_string(column)};
    if (auto refused = this->row(target, row); !refused)
        return refused;
    if (auto locked = grid.whyLocked(row, column); !locked.empty())
        return {std::move(locked)};
    if (!grid.beginEdit(column))
        return {"column " + grid.Columns(column).Caption() + " of " + target.fullName() + " refuses to be edited"};
    return {};
}

Outcome User::endCell(Control& target, std::string_view text) {
    const FormRegistry::Action action(forms_);
    if (auto* grid = dynamic_cast<TDBGrid*>(&target))
        grid->endEdit(std::string(text));
    return {};
}

Outcome User::cancelCell(Control& target) {
    const FormRegistry::Action action(forms_);
    if (auto* grid = dynamic_cast<TDBGrid*>(&target))
        grid->cancelEdit();
    return {};
}

Outcome User::editCell(Control& target, std::int64_t row, std::string_view column, std::string_view text) {
    const FormRegistry::Action action(forms_);
    if (auto refused = readyGrid(target); !refused)
        return refused;
    auto& grid = static_cast<TDBGrid&>(target);
    const int index = grid.columnIndex(column);
    if (index < 0)
        return {target.fullName() + " has no column " + std::string(column)};
    if (!grid.Columns(index).Visible())
        return {"column " + std::string(column) + " of " + target.fullName() + " is hidden"};
    if (auto refused = beginCell(target, row, index); !refused)
        return refused;
    return endCell(target, text);
}

Outcome User::commitRow(Control& target) {
    const FormRegistry::Action action(forms_);
    if (auto refused = readyGrid(target); !refused)
        return refused;
    (void)static_cast<TDBGrid&>(target).Update();
    return {};
}

Outcome User::deleteRow(Control& target) {
    const FormRegistry::Action action(forms_);
    if (auto refused = readyGrid(target); !refused)
        return refused;
    auto& grid = static_cast<TDBGrid&>(target);
    if (!grid.AllowDelete)
        return {target.fullName() + " lets no row be deleted"};
    if (grid.row() == TDBGrid::noRow)
        return {target.fullName() + " has no current row"};
    (void)grid.Delete();
    return {};
}

Outcome User::headClick(Control& target, std::string_view column) {
    const FormRegistry::Action action(forms_);
    if (auto refused = enter(target); !refused)
        return refused;
    auto* grid = dynamic_cast<TDBGrid*>(&target);
    auto* list = dynamic_cast<RowList*>(&target);
    int index = -1;
    if (grid != nullptr)
        index = grid->columnIndex(column);
    else if (list != nullptr)
        index = list->columnIndex(column);
    if (index < 0)
        return {target.fullName() + " has no column " + std::string(column)};
    Control::raise(grid != nullptr ? grid->HeadClick : list->HeadClick, index);
    return {};
}

Outcome User::selectRows(Control& target, const std::vector<std::int64_t>& rows) {
    const FormRegistry::Action action(forms_);
    if (auto refused = enter(target); !refused)
        return refused;
    for (auto row : rows) {
        if (row < 0 || row >= rowsOf(target))
            return {target.fullName() + " has no " + rowName(row)};
    }
    std::vector<Bookmark> marks;
    if (auto* grid = dynamic_cast<TDBGrid*>(&target)) {
        for (auto row : rows)
            marks.push_back(grid->source()->bookmarkAt(row));
        if (!rows.empty() && !grid->setRow(rows.back()))
            return {rowName(grid->row()) + " of " + target.fullName() + " cannot be left"};
        grid->SelBookmarks.assign(marks);
        Control::raise(grid->SelChange);
        return {};
    }
    if (auto* list = dynamic_cast<TDBList*>(&target); list != nullptr && list->MultiSelect()) {
        for (auto row : rows)
            marks.push_back(list->source()->bookmarkAt(row));
        list->SelBookmarks.assign(marks);
        if (!rows.empty())
            list->setSelectedItem(rows.back());
        Control::raise(list->SelChange);
        Control::raise(list->Click);
        return {};
    }
    if (auto* box = dynamic_cast<ListBox*>(&target); box != nullptr && box->MultiSelect()) {
        for (int i = 0; i < box->ListCount(); ++i) {
            const bool wanted = std::find(rows.begin(), rows.end(), i) != rows.end();
            if (wanted != box->Selected(i))
                box->setSelected(i, wanted);
        }
        return {};
    }
    return {target.fullName() + " has no multiple selection"};
}

Outcome User::selectAllRows(Control& target) {
    std::vector<std::int64_t> rows(static_cast<std::size_t>(rowsOf(target)));
    for (std::size_t i = 0; i < rows.size(); ++i)
        rows[i] = static_cast<std::int64_t>(i);
    return selectRows(target, rows);
}

} // namespace zel::forms
