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

/// Nothing where nobody knows.
std::optional<std::string> spellingOf(const ResultColumn& column, const sql::Translation& statement,
                                      const Catalog& catalog) {
    for (const std::string& alias : statement.aliases)
        if (equalIgnoringCase(alias, column.name))
            return alias;
    const auto ofTable = [&](std::string_view name) -> std::optional<std::string> {
        const CatalogTable* table = catalog.table(name);
        const CatalogColumn* known = table == nullptr ? nullptr : table->column(column.name);
        if (known == nullptr || known->spelling.empty())
            return std::nullopt;
        return known->spelling;
    };
    if (equalIgnoringCase(column.name, column.baseColumn))
        return ofTable(column.baseTable);
    for (const std::string& source : statement.sources)
        if (auto spelling = ofTable(source))
            return spelling;
    return std::nullopt;
}

} // namespace

void spellNames(std::span<ResultColumn> columns, const sql::Translation& statement, const Catalog& catalog) {
    for (ResultColumn& column : columns)
        if (auto spelling = spellingOf(column, statement, catalog))
            column.name = std::move(*spelling);
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
