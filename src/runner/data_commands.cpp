#include "ado/connection.h"
#include "ado/recordset.h"
#include "core/session.h"
#include "runner/command_error.h"
#include "runner/commands.h"
#include "runner/context.h"
#include "runner/procedures.h"
#include "runner/spelling.h"

#include <fmt/format.h>

#include <algorithm>

namespace zel::runner::data_commands {

namespace {

/// Names of the fields; empty for one whose name an earlier field has: the first is meant.
std::vector<std::string> fieldNames(const ado::Recordset& records) {
    std::vector<std::string> names;
    for (std::size_t field = 0; field < records.fieldCount(); ++field) {
        auto name = spelledName(records.fieldInfo(field).name, records.Source().text());
        names.push_back(std::ranges::find(names, name) == names.end() ? std::move(name) : std::string());
    }
    return names;
}

Json rowsOf(const ado::Recordset& records) {
    Json rows(Json::Array{});
    const auto names = fieldNames(records);
    for (std::int64_t position = 1; position <= records.RecordCount(); ++position) {
        Json row(Json::Object{});
        for (std::size_t field = 0; field < names.size(); ++field) {
            if (!names[field].empty())
                row.set(names[field], records.valueAt(position, field));
        }
        rows.append(std::move(row));
    }
    return rows;
}

ado::Recordset open(Context& context, const std::string& statement) {
    ado::Recordset records;
    records.Open(ado::Sql::words(statement), context.program.session().connection(), ado::CursorType::Static,
                 ado::LockType::ReadOnly);
    return records;
}

} // namespace

void sql(Context& context, const Words& arguments, Json& answer) {
    auto& connection = context.program.session().connection();
    const auto prepared = connection.prepare(ado::Sql::words(arguments[0]));
    if (!prepared.statement->columns().empty())
        answer.set("rows", rowsOf(open(context, arguments[0])));
    else
        answer.set("count", connection.Execute(arguments[0]));
}

void expectRows(Context& context, const Words& arguments, Json&) {
    const int wanted = wholeNumber(arguments[0], "a number of rows", 0);
    const auto rows = open(context, arguments[1]).RecordCount();
    if (rows != wanted)
        throw CommandError(fmt::format("the statement gives {} rows, not {}", rows, wanted));
}

void statements(Context& context, const Words& arguments, Json&) {
    context.showStatements = onOrOff(arguments[0]);
}

void call(Context& context, const Words& arguments, Json& answer) {
    if (arguments.empty()) {
        Json list(Json::Array{});
        for (const auto& procedure : procedures())
            list.append(
                fmt::format("{}{}{}", procedure.name, procedure.arguments.empty() ? "" : " ", procedure.arguments));
        answer.set("result", std::move(list));
        return;
    }
    const auto& procedure = findProcedure(arguments[0]);
    const auto given = arguments.size() - 1;
    if (given < procedure.least || given > procedure.most)
        throw CommandError(fmt::format("{} takes {}", procedure.name,
                                       procedure.arguments.empty() ? "no arguments" : procedure.arguments));
    Call made(context.program.session(), {arguments.begin() + 1, arguments.end()});
    procedure.run(made);
    answer.set("result", std::move(made.result));
    answer.set("byref", std::move(made.byref));
}

} // namespace zel::runner::data_commands
