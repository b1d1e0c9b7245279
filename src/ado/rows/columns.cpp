#include "ado/rows/columns.h"

#include "ado/convert.h"
#include "ado/error.h"
#include "ado/sql/translator.h"

#include <fmt/format.h>

namespace zel::ado {

namespace {

std::optional<std::size_t> findNamed(std::span<const ResultColumn> columns, std::string_view name,
                                     std::string_view table) {
    for (std::size_t index = 0; index < columns.size(); ++index)
        if (equalIgnoringCase(columns[index].name, name) &&
            (table.empty() || equalIgnoringCase(columns[index].baseTable, table)))
            return index;
    return std::nullopt;
}

std::vector<const CatalogTable*> viewsOf(const sql::Translation& statement, const Catalog& catalog) {
    std::vector<const CatalogTable*> views;
    for (const std::string& source : statement.sources)
        if (const CatalogTable* table = catalog.table(source); table != nullptr && table->isView())
            views.push_back(table);
    return views;
}

/// Null where nobody knows.
const std::string* spellingOf(const ResultColumn& column, const sql::Translation& statement,
                              std::span<const CatalogTable* const> views) {
    for (const std::string& alias : statement.aliases)
        if (equalIgnoringCase(alias, column.name))
            return &alias;
    if (equalIgnoringCase(column.name, column.baseColumn))
        return nullptr;
    for (const CatalogTable* view : views)
        if (const CatalogColumn* known = view->column(column.name); known != nullptr && !known->spelling.empty())
            return &known->spelling;
    return nullptr;
}

} // namespace

void spellNames(std::span<ResultColumn> columns, const sql::Translation& statement, const Catalog& catalog) {
    const std::vector<const CatalogTable*> views = viewsOf(statement, catalog);
    if (views.empty() && statement.aliases.empty())
        return;
    for (ResultColumn& column : columns)
        if (const std::string* spelling = spellingOf(column, statement, views))
            column.name = *spelling;
}

std::optional<std::size_t> findColumn(std::span<const ResultColumn> columns, std::string_view name) {
    if (const auto whole = findNamed(columns, name, {}))
        return whole;
    const std::size_t dot = name.rfind('.');
    if (dot == std::string_view::npos)
        return std::nullopt;
    const std::string_view bare = name.substr(dot + 1);
    if (const auto ofTable = findNamed(columns, bare, name.substr(0, dot)))
        return ofTable;
    return findNamed(columns, bare, {});
}

std::size_t columnIndex(std::span<const ResultColumn> columns, std::string_view name) {
    if (const auto index = findColumn(columns, name))
        return *index;
    throw Error(ErrorKind::State, errors::itemNotFound,
                fmt::format("Item cannot be found in the collection corresponding to the requested name: {}.", name));
}

std::string quotedName(std::string_view name) {
    std::string quoted = "\"";
    for (const char letter : name) {
        if (letter == '"')
            quoted += '"';
        quoted += letter;
    }
    return quoted += '"';
}

std::string placeholder(EngineKind engine, std::size_t number) {
    return fmt::format("{}{}", engine == EngineKind::Sqlite ? '?' : '$', number);
}

} // namespace zel::ado
