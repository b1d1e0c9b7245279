#include "ado/key_numbers.h"

#include "ado/error.h"
#include "ado/row_store.h"

#include <fmt/format.h>

#include <array>
#include <limits>
#include <optional>

namespace zel::ado {

namespace {

std::optional<std::int64_t> runForNumber(PreparedStatement& statement, const std::string& table) {
    RowStore rows(1);
    statement.query(std::array<Value, 1>{Value(table)}, rows);
    if (rows.rows() == 0)
        return std::nullopt;
    return rows.at(0, 0).as<std::int64_t>();
}

} // namespace

KeyColumn keyColumn(const Catalog& catalog, std::string_view table, std::string_view field) {
    const CatalogTable* found = catalog.table(table);
    if (found == nullptr || found->isView())
        throw Error(ErrorKind::Statement, errors::noSuchTable, fmt::format("There is no table '{}' to number.", table));
    const CatalogColumn* named = found->column(field.empty() ? std::string_view(found->key) : field);
    if (named == nullptr)
        throw Error(ErrorKind::Statement, errors::errorsInCommand,
                    field.empty() ? fmt::format("The table '{}' has no key to number.", table)
                                  : fmt::format("The table '{}' has no column '{}' to number.", table, field));
    return {found->name, named->name};
}

std::string moveNumberText(std::string_view parameter) {
    return fmt::format("UPDATE NextNumbers SET NextNumber = NextNumber + 1 WHERE TableName = {} "
                       "RETURNING NextNumber - 1",
                       parameter);
}

std::string firstNumberText(const KeyColumn& key, std::string_view parameter, std::string_view greatest) {
    return fmt::format("INSERT INTO NextNumbers (TableName, NextNumber) "
                       "SELECT {0}, {1}(coalesce(max({2}), 0), 0) + 2 FROM {3} WHERE true "
                       "ON CONFLICT (TableName) DO UPDATE SET NextNumber = NextNumbers.NextNumber + 1 "
                       "RETURNING NextNumber - 1",
                       parameter, greatest, key.column, key.table);
}

std::int32_t takeNumber(PreparedStatement& move, const KeyColumn& key,
                        const std::function<std::shared_ptr<PreparedStatement>()>& prepareFirst) {
    auto number = runForNumber(move, key.table);
    if (!number)
        number = runForNumber(*prepareFirst(), key.table);
    if (!number || *number < 1 || *number > std::numeric_limits<std::int32_t>::max())
        throw Error(ErrorKind::Engine, errors::failed, fmt::format("The keys of '{}' are used up.", key.table));
    return static_cast<std::int32_t>(*number);
}

} // namespace zel::ado
