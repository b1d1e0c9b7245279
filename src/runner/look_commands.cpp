#include "ado/convert.h"
#include "forms/combo_box.h"
#include "forms/form.h"
#include "forms/form_registry.h"
#include "forms/list_box.h"
#include "forms/list_view.h"
#include "forms/row_list.h"
#include "forms/tdb_grid.h"
#include "runner/command_error.h"
#include "runner/commands.h"
#include "runner/context.h"
#include "runner/globals.h"
#include "runner/runner_dialogs.h"

#include <fmt/format.h>

#include <algorithm>

namespace zel::runner::look_commands {

namespace {

std::optional<ado::Value> formProperty(const forms::Form& form, std::string_view property) {
    if (ado::equalIgnoringCase(property, "Caption"))
        return form.Caption();
    if (ado::equalIgnoringCase(property, "Tag"))
        return form.Tag();
    if (ado::equalIgnoringCase(property, "Visible"))
        return form.Visible();
    if (ado::equalIgnoringCase(property, "Enabled"))
        return form.Enabled();
    if (ado::equalIgnoringCase(property, "ActiveControl"))
        return form.ActiveControl() == nullptr ? std::string() : form.ActiveControl()->fullName();
    return std::nullopt;
}

ado::Value propertyOf(Context& context, const std::string& name, std::string property) {
    const auto* form = context.program.forms().loaded(name);
    std::optional<ado::Value> value;
    if (form != nullptr) {
        value = formProperty(*form, property.empty() ? property = "Caption" : property);
    } else {
        const auto& control = context.control(name);
        value = control.property(property.empty() ? property = control.defaultProperty() : property);
    }
    if (!value)
        throw CommandError(fmt::format("{} has no property {}", name, property));
    return *value;
}

/// The names under which the cells of a row stand: each column's caption, or its field where the caption is empty or
/// stands for an earlier column already.
template <typename Columns>
std::vector<std::string> cellNames(Columns& columns) {
    std::vector<std::string> names;
    for (int i = 0; i < columns.columnCount(); ++i) {
        const auto& column = columns.Columns(i);
        const bool usable = !column.Caption().empty() && std::ranges::find(names, column.Caption()) == names.end();
        names.push_back(usable ? column.Caption() : column.DataField());
    }
    return names;
}

Json gridRows(forms::TDBGrid& grid) {
    Json rows(Json::Array{});
    const auto names = cellNames(grid);
    for (std::int64_t row = 0; row < grid.rowCount(); ++row) {
        Json cells(Json::Object{});
        for (int column = 0; column < grid.columnCount(); ++column)
            cells.set(names[column], grid.cellValue(row, column));
        rows.append(std::move(cells));
    }
    return rows;
}

Json listRows(forms::RowList& list) {
    Json rows(Json::Array{});
    const auto names = cellNames(list);
    for (std::int64_t row = 0; row < list.rowCount(); ++row) {
        Json cells(Json::Object{});
        for (int column = 0; column < list.columnCount(); ++column) {
            const auto& field = list.Columns(column).DataField();
            cells.set(names[column], list.fieldValue(row, field.empty() ? list.Columns(column).Caption() : field));
        }
        rows.append(std::move(cells));
    }
    return rows;
}

Json itemRows(const std::vector<forms::ListItem>& items) {
    Json rows(Json::Array{});
    for (const auto& item : items) {
        Json row;
        row.set("Text", item.text);
        row.set("ItemData", std::int64_t{item.data});
        rows.append(std::move(row));
    }
    return rows;
}

Json viewRows(const forms::ListView& view) {
    Json rows(Json::Array{});
    const auto& headers = view.ColumnHeaders();
    for (const auto& item : view.ListItems()) {
        Json row(Json::Object{});
        for (std::size_t column = 0; column < headers.size(); ++column) {
            const bool there = column == 0 || column <= item.subItems.size();
            row.set(headers[column], !there ? "" : column == 0 ? item.text : item.subItems[column - 1]);
        }
        rows.append(std::move(row));
    }
    return rows;
}

Json controlLine(const forms::Control& control) {
    Json line;
    line.set("name", control.fullName());
    line.set("type", control.typeName());
    const auto value = control.property(control.defaultProperty());
    line.set("value", value ? Json(*value) : Json());
    line.set("visible", control.shown());
    line.set("enabled", control.usable());
    return line;
}

/// The name of a file in the folder of the pictures, and of no other folder.
const std::string& pictureName(const std::string& name) {
    if (name.empty() || name.front() == '.' || name.find('/') != std::string::npos)
        throw CommandError(fmt::format("{} is no name for a picture", name.empty() ? "an empty word" : name));
    return name;
}

/// A box text on one line, so that a fragment may reach over its line ends.
std::string onOneLine(std::string_view text) {
    std::string line;
    for (const char c : text) {
        const bool gap = c == '\r' || c == '\n' || c == '\t' || c == ' ';
        if (!gap)
            line += c;
        else if (!line.ends_with(' '))
            line += ' ';
    }
    return line;
}

} // namespace

void get(Context& context, const Words& arguments, Json& answer) {
    answer.set("value", propertyOf(context, arguments[0], arguments.size() > 1 ? arguments[1] : ""));
}

void show(Context& context, const Words& arguments, Json& answer) {
    auto& control = context.control(arguments[0]);
    if (auto* grid = dynamic_cast<forms::TDBGrid*>(&control))
        answer.set("rows", gridRows(*grid));
    else if (auto* list = dynamic_cast<forms::RowList*>(&control))
        answer.set("rows", listRows(*list));
    else if (const auto* box = dynamic_cast<forms::ListBox*>(&control))
        answer.set("rows", itemRows(box->items()));
    else if (const auto* combo = dynamic_cast<forms::ComboBox*>(&control))
        answer.set("rows", itemRows(combo->items()));
    else if (const auto* view = dynamic_cast<forms::ListView*>(&control))
        answer.set("rows", viewRows(*view));
    else
        throw CommandError(fmt::format("{} is a {}, which has no rows", arguments[0], control.typeName()));
}

void form(Context& context, const Words& arguments, Json& answer) {
    const auto& screen = arguments.empty() ? context.front() : context.form(arguments[0]);
    answer.set("name", screen.Name());
    answer.set("caption", screen.Caption());
    answer.set("visible", screen.Visible());
    Json controls(Json::Array{});
    for (const auto* control : screen.controls())
        controls.append(controlLine(*control));
    answer.set("controls", std::move(controls));
}

void globals(Context& context, const Words& arguments, Json& answer) {
    answer.set("value", arguments.empty() ? allGlobals(context.program.session())
                                          : globalValue(context.program.session(), arguments[0]));
}

void expect(Context& context, const Words& arguments, Json& answer) {
    const auto value = propertyOf(context, arguments[0], "");
    const bool flag = value.type() == ado::Value::Type::Boolean; // true and True are the same
    if (ado::toText(value) == arguments[1] || (flag && ado::equalIgnoringCase(ado::toText(value), arguments[1])))
        return;
    answer.set("value", value);
    throw CommandError(fmt::format("{} shows '{}', not '{}'", arguments[0], ado::toText(value), arguments[1]));
}

void expectBox(Context& context, const Words& arguments, Json&) {
    const auto wanted = onOneLine(arguments[0]);
    // Inside form: the boxes of the same line are the last ones.
    const auto boxes = context.lastBoxes.empty() ? context.program.dialogs().shown() : context.lastBoxes;
    const auto holds = [&](const forms::ShownBox& box) {
        return onOneLine(box.text).find(wanted) != std::string::npos ||
               onOneLine(box.title).find(wanted) != std::string::npos;
    };
    if (std::ranges::any_of(boxes, holds))
        return;
    if (boxes.empty())
        throw CommandError("the last action showed no box");
    throw CommandError(fmt::format("no box of the last action holds '{}'", arguments[0]));
}

void picture(Context& context, const Words& arguments, Json& answer) {
    const auto file = context.program.picture(pictureName(arguments[0]));
    answer.set("picture", file.empty() ? Json() : Json(file));
}

void pictureBox(Context& context, const Words& arguments, Json&) {
    context.program.pictureOfNextBox(pictureName(arguments[0]));
}

} // namespace zel::runner::look_commands
