#include "ado/convert.h"
#include "forms/list_box.h"
#include "forms/tdb_grid.h"
#include "forms/tdb_list.h"
#include "runner/command_error.h"
#include "runner/commands.h"
#include "runner/context.h"

#include <fmt/format.h>

namespace zel::runner::grid_commands {

namespace {

forms::TDBGrid& gridOf(Context& context, const std::string& name) {
    return context.controlAs<forms::TDBGrid>(name, "a grid");
}

std::int64_t rowCount(const forms::Control& control) {
    if (const auto* grid = dynamic_cast<const forms::TDBGrid*>(&control))
        return grid->rowCount();
    if (const auto* list = dynamic_cast<const forms::RowList*>(&control))
        return list->rowCount();
    if (const auto* box = dynamic_cast<const forms::ListBox*>(&control))
        return box->ListCount();
    throw CommandError(fmt::format("{} is a {}, neither a grid nor a list", control.fullName(), control.typeName()));
}

/// A row from 1 in a script is a row from 0 below.
std::int64_t rowNumber(const forms::Control& control, const std::string& word) {
    const auto rows = rowCount(control);
    const auto name = control.fullName();
    const auto what =
        rows == 0 ? fmt::format("a row of {}, which has none", name) : fmt::format("a row of {} (1 to {})", name, rows);
    return wholeNumber(word, what, 1, static_cast<int>(rows)) - 1;
}

std::int64_t gridRow(const forms::TDBGrid& grid, const std::string& word) {
    return ado::equalIgnoringCase(word, "new") ? forms::TDBGrid::newRow : rowNumber(grid, word);
}

} // namespace

void row(Context& context, const Words& arguments, Json&) {
    auto& grid = gridOf(context, arguments[0]);
    require(context.user.row(grid, gridRow(grid, arguments[1])));
}

void cell(Context& context, const Words& arguments, Json&) {
    auto& grid = gridOf(context, arguments[0]);
    require(context.user.editCell(grid, gridRow(grid, arguments[1]), arguments[2], arguments[3]));
}

void commit(Context& context, const Words& arguments, Json&) {
    require(context.user.commitRow(gridOf(context, arguments[0])));
}

void head(Context& context, const Words& arguments, Json&) {
    require(context.user.headClick(context.control(arguments[0]), arguments[1]));
}

void select(Context& context, const Words& arguments, Json&) {
    auto& control = context.control(arguments[0]);
    const bool one = arguments.size() == 2;
    if (one && ado::equalIgnoringCase(arguments[1], "all")) {
        require(context.user.selectAllRows(control));
        return;
    }
    std::vector<std::int64_t> rows;
    if (!one || !ado::equalIgnoringCase(arguments[1], "none")) {
        for (std::size_t i = 1; i < arguments.size(); ++i)
            rows.push_back(rowNumber(control, arguments[i]));
    }
    require(context.user.selectRows(control, rows));
}

void popup(Context& context, const Words& arguments, Json&) {
    require(context.user.popup(context.control(arguments[0]), arguments[1]));
}

} // namespace zel::runner::grid_commands
