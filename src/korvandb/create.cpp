#include "korvandb/create.h"

#include "ado/convert.h"
#include "korvandb/ddl.h"
#include "korvandb/text_blocks.h"
#include "korvandb/texts.h"

#include <fmt/format.h>

namespace zel::korvandb {

namespace {

std::string literal(const TextBlock::Cell& cell, const Column& column) {
    if (!cell)
        return "NULL";
    if (column.type == ado::ColumnType::Currency)
        return "'" + ado::Currency::fromDecimal(*cell).toFixedText() + "'";
    if (column.type != ado::ColumnType::Text)
        return *cell;
    std::string quoted = "'";
    for (const char letter : *cell)
        quoted += letter == '\'' ? std::string("''") : std::string(1, letter);
    return quoted + "'";
}

std::string insertRows(const TextBlock& block, const Table& table, const DdlWords& words) {
    std::string statement = "INSERT INTO " + words.object(table.name);
    std::vector<const Column*> columns;
    for (const std::string& name : block.columns) {
        columns.push_back(table.column(name));
        statement += (columns.size() == 1 ? " (" : ", ") + words.bare(name);
    }
    statement += ") VALUES";
    std::string_view rowSeparator = " (";
    for (const std::vector<TextBlock::Cell>& row : block.rows) {
        statement += rowSeparator;
        for (std::size_t i = 0; i < row.size(); ++i)
            statement += (i == 0 ? "" : ", ") + literal(row[i], *columns[i]);
        statement += ")";
        rowSeparator = ",\n    (";
    }
    return statement;
}

} // namespace

std::vector<std::string> creationStatements(ado::EngineKind engine) {
    const Schema& schema = theSchema();
    std::vector<std::string> statements = ddl(schema, engine);
    const std::unique_ptr<DdlWords> words = ddlWords(engine);
    for (const TextBlock& block : parseBlocks(texts::lookups))
        statements.push_back(insertRows(block, *schema.table(block.name), *words));
    return statements;
}

void createTables(ado::Engine& engine) {
    engine.begin();
    try {
        for (const std::string& statement : creationStatements(engine.kind()))
            engine.prepare(statement, true)->execute({});
        engine.commit();
    } catch (...) {
        engine.rollback();
        throw;
    }
    engine.refreshCatalog();
}

} // namespace zel::korvandb
