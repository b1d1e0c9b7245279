#include "korvandb/ddl.h"

#include "ado/convert.h"
#include "ado/sql/select_list.h"

#include <algorithm>
#include <charconv>

namespace zel::korvandb {

namespace {

std::string columnLine(const Column& column, const DdlWords& words) {
    std::string line = words.bare(column.name) + " " + words.columnType(column);
    if (column.required || (column.primary && !column.isKey()))
        line += " NOT NULL";
    if (!column.defaultValue.empty())
        line += " DEFAULT " + column.defaultValue;
    if (column.primary)
        line += " PRIMARY KEY";
    return line;
}

/// Puts the engine's words for {...} and blanks(N) into a query.
std::string expand(std::string_view query, const DdlWords& words) {
    constexpr std::string_view blanks = "blanks(";
    std::string expanded;
    while (!query.empty()) {
        if (query.front() == '{') {
            const std::size_t end = query.find('}');
            expanded += words.text(expand(query.substr(1, end - 1), words));
            query.remove_prefix(end + 1);
        } else if (query.starts_with(blanks)) {
            const std::size_t end = query.find(')');
            std::size_t count = 0;
            std::from_chars(query.data() + blanks.size(), query.data() + end, count);
            expanded += "'" + std::string(count, ' ') + "'";
            query.remove_prefix(end + 1);
        } else {
            expanded += query.front();
            query.remove_prefix(1);
        }
    }
    return expanded;
}

std::string listed(const std::vector<std::string>& columns, const DdlWords& words) {
    std::string list;
    for (const std::string& column : columns)
        list += (list.empty() ? "" : ", ") + words.bare(column);
    return list;
}

bool holds(const std::vector<std::string>& names, std::string_view name) {
    for (const std::string& candidate : names)
        if (ado::equalIgnoringCase(candidate, name))
            return true;
    return false;
}

/// What a wide index keeps besides its own columns. SQLite has the key in every index anyway.
std::vector<std::string> otherColumns(const Table& table, const Index& index, const DdlWords& words) {
    std::vector<std::string> others;
    for (const Column& column : table.columns)
        if (!holds(index.columns, column.name) && (words.hasIncludedColumns() || !column.isKey()))
            others.push_back(column.name);
    return others;
}

} // namespace

std::unique_ptr<DdlWords> ddlWords(ado::EngineKind engine) {
    return engine == ado::EngineKind::Sqlite ? sqliteWords() : postgresWords();
}

std::string indexName(const Table& table, const Index& index) {
    std::string name = "ix_" + table.name;
    for (const std::string& column : index.columns)
        name += "_" + column;
    return name;
}

std::string createTable(const Table& table, const DdlWords& words) {
    std::string statement = "CREATE TABLE " + words.object(table.name) + " (";
    std::string_view separator = "\n    ";
    for (const Column& column : table.columns) {
        statement += separator;
        statement += columnLine(column, words);
        separator = ",\n    ";
    }
    return statement + ")";
}

std::string createIndex(const Table& table, const Index& index, const DdlWords& words) {
    const std::string head = index.unique ? "CREATE UNIQUE INDEX " : "CREATE INDEX ";
    std::string statement = head + words.bare(indexName(table, index)) + " ON " + words.object(table.name) + " (" +
                            listed(index.columns, words);
    if (index.wide)
        statement +=
            (words.hasIncludedColumns() ? ") INCLUDE (" : ", ") + listed(otherColumns(table, index, words), words);
    return statement + ")";
}

std::string dropIndex(const Table& table, const Index& index, const DdlWords& words) {
    return "DROP INDEX " + words.indexObject(indexName(table, index));
}

std::string createView(const View& view, const DdlWords& words) {
    return "CREATE VIEW " + words.object(view.name) + " AS\n" + expand(view.query, words);
}

std::string spellingOf(const Table& table, const DdlWords& words) {
    std::vector<std::string> columns;
    for (const Column& column : table.columns)
        columns.push_back(column.name);
    return words.spelling("TABLE", table.name, columns);
}

std::string spellingOf(const View& view, const DdlWords& words) {
    return words.spelling("VIEW", view.name, ado::sql::columnNames(expand(view.query, words)));
}

std::vector<std::string> ddl(const Schema& schema, ado::EngineKind engine) {
    const std::unique_ptr<DdlWords> words = ddlWords(engine);
    std::vector<std::string> statements = words->before();
    for (const Table& table : schema.tables) {
        statements.push_back(createTable(table, *words));
        for (const Index& index : table.indexes)
            statements.push_back(createIndex(table, index, *words));
    }
    for (const View& view : schema.views)
        statements.push_back(createView(view, *words));
    const auto spell = [&](const auto& tableOrView) {
        if (std::string statement = spellingOf(tableOrView, *words); !statement.empty())
            statements.push_back(std::move(statement));
    };
    std::ranges::for_each(schema.tables, spell);
    std::ranges::for_each(schema.views, spell);
    for (std::string& statement : words->after())
        statements.push_back(std::move(statement));
    return statements;
}

} // namespace zel::korvandb
