#include "ado/rows/row_writer.h"

#include "ado/convert.h"
#include "ado/error.h"
#include "ado/rows/columns.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <memory>

namespace zel::ado {

/// A statement in the engine's words that must write exactly one row.
struct RowWriter::Write {
    std::size_t table = 0;
    std::string text;
    std::vector<Value> parameters;
    /// What columnsOf(table) hold afterwards, where the statement itself tells.
    std::unique_ptr<RowStore> stored;
};

namespace {

[[noreturn]] void refuseWithoutKey(const BaseTable& table) {
    throw Error(ErrorKind::State, errors::failed,
                fmt::format("Insufficient key column information for updating or refreshing: the rows do not hold the "
                            "key of {}.",
                            table.name));
}

/// Ends in a rollback unless it was committed.
class Transaction {
public:
    explicit Transaction(Engine& engine) : engine_(engine) { engine_.begin(); }
    ~Transaction() {
        if (!committed_)
            engine_.rollback();
    }
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    void commit() {
        engine_.commit();
        committed_ = true;
    }

private:
    Engine& engine_;
    bool committed_ = false;
};

} // namespace

RowId RowWriter::insert(const PendingRow& pending) {
    std::vector<Write> writes;
    for (std::size_t table = 0; table < rows_.tables().size(); ++table)
        if (!assignedColumns(table, pending).empty() || rows_.tables().size() == 1)
            writes.push_back(insertInto(table, pending));
    run(writes);
    const RowId row = rows_.addRow();
    keep(row, pending);
    for (const Write& write : writes)
        readBack(write, row);
    return row;
}

void RowWriter::update(RowId row, const PendingRow& pending) {
    std::vector<Write> writes;
    for (std::size_t table = 0; table < rows_.tables().size(); ++table) {
        std::vector<std::size_t> changed = assignedColumns(table, pending);
        std::erase_if(changed, [&](std::size_t column) { return *pending[column] == rows_.store().at(row, column); });
        if (!changed.empty())
            writes.push_back(updateOf(table, row, changed, pending));
    }
    run(writes);
    keep(row, pending);
}

void RowWriter::remove(RowId row) {
    const auto& tables = rows_.tables();
    const auto keyed = std::ranges::find_if(tables, [](const BaseTable& table) { return table.keyColumn.has_value(); });
    if (keyed == tables.end())
        throw Error(ErrorKind::State, errors::failed, "The row cannot be deleted: the rows hold no key of a table.");
    Write write;
    const std::string key = addParameter(write, keyOf(static_cast<std::size_t>(keyed - tables.begin()), row));
    write.text = fmt::format("DELETE FROM {} WHERE {} = {}", quotedName(keyed->name), quotedName(keyed->key), key);
    run({&write, 1});
    rows_.remove(row);
}

void RowWriter::run(std::span<Write> writes) {
    if (writes.size() == 1)
        return runOne(writes.front());
    if (writes.empty())
        return;
    Transaction transaction(rows_.connection().engine());
    for (Write& write : writes)
        runOne(write);
    transaction.commit();
}

void RowWriter::runOne(Write& write) {
    const std::shared_ptr<PreparedStatement> statement = rows_.connection().prepareNative(write.text, true);
    std::int64_t written = 0;
    if (write.stored) {
        statement->query(write.parameters, *write.stored);
        written = static_cast<std::int64_t>(write.stored->rows());
    } else {
        written = statement->execute(write.parameters);
    }
    if (written != 1)
        throw Error(ErrorKind::Conflict, errors::rowNotLocated,
                    "Row cannot be located for updating. Some values may have been changed since it was last read.");
}

std::vector<std::size_t> RowWriter::assignedColumns(std::size_t table, const PendingRow& pending) const {
    const auto columns = rows_.allColumns();
    std::vector<std::size_t> assigned;
    for (std::size_t column = 0; column < pending.size(); ++column) {
        if (!pending[column] || rows_.tableOf(column) != table)
            continue;
        const bool twice = std::ranges::any_of(
            assigned, [&](std::size_t other) { return columns[other].baseColumn == columns[column].baseColumn; });
        if (!twice)
            assigned.push_back(column);
    }
    return assigned;
}

RowWriter::Write RowWriter::insertInto(std::size_t table, const PendingRow& pending) const {
    Write write;
    write.table = table;
    std::vector<std::string> names, values;
    for (const std::size_t column : assignedColumns(table, pending)) {
        names.push_back(baseName(column));
        values.push_back(addParameter(write, *pending[column]));
    }
    const std::string name = quotedName(rows_.tables()[table].name);
    write.text = names.empty() ? fmt::format("INSERT INTO {} DEFAULT VALUES", name)
                               : fmt::format("INSERT INTO {} ({}) VALUES ({})", name, fmt::join(names, ", "),
                                             fmt::join(values, ", "));
    // A second statement would be a second way to the server. SQLite could return the row too, but not its types.
    if (rows_.connection().engine().kind() == EngineKind::Postgres) {
        const std::vector<std::size_t> columns = columnsOf(table);
        write.text += fmt::format(" RETURNING {}", fmt::join(baseNames(columns), ", "));
        write.stored = std::make_unique<RowStore>(columns.size());
    }
    return write;
}

RowWriter::Write RowWriter::updateOf(std::size_t table, RowId row, std::span<const std::size_t> changed,
                                     const PendingRow& pending) const {
    const BaseTable& base = rows_.tables()[table];
    Write write;
    std::vector<std::string> assignments, conditions;
    for (const std::size_t column : changed)
        assignments.push_back(fmt::format("{} = {}", baseName(column), addParameter(write, *pending[column])));
    conditions.push_back(fmt::format("{} = {}", quotedName(base.key), addParameter(write, keyOf(table, row))));
    for (const std::size_t column : changed)
        conditions.push_back(isOldValue(write, row, column));
    write.text = fmt::format("UPDATE {} SET {} WHERE {}", quotedName(base.name), fmt::join(assignments, ", "),
                             fmt::join(conditions, " AND "));
    return write;
}

/// A table that stands in a statement twice has its key there twice; which of two rows is meant cannot be told then.
Value RowWriter::keyOf(std::size_t table, RowId row) const {
    const BaseTable& base = rows_.tables()[table];
    if (!base.keyColumn)
        refuseWithoutKey(base);
    Value key = rows_.store().at(row, *base.keyColumn);
    const auto columns = rows_.allColumns();
    for (std::size_t column = 0; column < columns.size(); ++column)
        if (rows_.tableOf(column) == table && equalIgnoringCase(columns[column].baseColumn, base.key) &&
            rows_.store().at(row, column) != key)
            throw Error(ErrorKind::State, errors::failed,
                        fmt::format("The row cannot be written: {} stands in the statement twice.", base.name));
    return key;
}

std::string RowWriter::addParameter(Write& write, const Value& value) const {
    write.parameters.push_back(value);
    return placeholder(rows_.connection().engine().kind(), write.parameters.size());
}

/// Null equals Null here, and text is compared to the letter: another clerk who only changed its case has changed it.
std::string RowWriter::isOldValue(Write& write, RowId row, std::size_t column) const {
    const ResultColumn& origin = rows_.allColumns()[column];
    const bool isText = origin.type == ColumnType::Text;
    const std::string name = quotedName(origin.baseColumn);
    const std::string old = addParameter(write, rows_.store().at(row, column));
    if (rows_.connection().engine().kind() == EngineKind::Sqlite)
        return fmt::format("{}{} IS {}", name, isText ? " COLLATE BINARY" : "", old);
    const std::string_view cast = isText ? "::text" : "";
    return fmt::format("{}{} IS NOT DISTINCT FROM {}{}", name, cast, old, cast);
}

std::vector<std::size_t> RowWriter::columnsOf(std::size_t table) const {
    std::vector<std::size_t> columns;
    for (std::size_t column = 0; column < rows_.allColumns().size(); ++column)
        if (rows_.tableOf(column) == table)
            columns.push_back(column);
    return columns;
}

std::string RowWriter::baseName(std::size_t column) const {
    return quotedName(rows_.allColumns()[column].baseColumn);
}

std::vector<std::string> RowWriter::baseNames(std::span<const std::size_t> columns) const {
    std::vector<std::string> names;
    for (const std::size_t column : columns)
        names.push_back(baseName(column));
    return names;
}

void RowWriter::readBack(const Write& insert, RowId row) {
    const std::vector<std::size_t> columns = columnsOf(insert.table);
    const auto show = [&](const RowStore& stored) {
        if (stored.rows() == 1)
            for (std::size_t place = 0; place < columns.size(); ++place)
                rows_.setCell(row, columns[place], stored.at(0, place));
    };
    if (insert.stored)
        return show(*insert.stored);
    const BaseTable& base = rows_.tables()[insert.table];
    if (!base.keyColumn || rows_.isNullSide(row, insert.table))
        return;
    Connection& connection = rows_.connection();
    const std::string text =
        fmt::format("SELECT {} FROM {} WHERE {} = {}", fmt::join(baseNames(columns), ", "), quotedName(base.name),
                    quotedName(base.key), placeholder(connection.engine().kind(), 1));
    const Value key = rows_.store().at(row, *base.keyColumn);
    RowStore stored(columns.size());
    connection.prepareNative(text, false)->query({&key, 1}, stored);
    show(stored);
}

/// Also into the other columns of the result that show the same base column.
void RowWriter::keep(RowId row, const PendingRow& pending) {
    const auto columns = rows_.allColumns();
    for (std::size_t table = 0; table < rows_.tables().size(); ++table)
        for (const std::size_t assigned : assignedColumns(table, pending))
            for (std::size_t column = 0; column < columns.size(); ++column)
                if (rows_.tableOf(column) == table && columns[column].baseColumn == columns[assigned].baseColumn)
                    rows_.setCell(row, column, *pending[assigned]);
}

} // namespace zel::ado
