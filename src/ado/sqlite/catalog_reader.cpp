#include "ado/sqlite/catalog_reader.h"

#include "ado/convert.h"
#include "ado/engine.h"
#include "ado/row_store.h"
#include "ado/sqlite/values.h"

#include <utility>

namespace zel::ado::sqlite {

namespace {

/// What stands behind "CREATE VIEW name AS".
std::string definingQuery(std::string_view createStatement) {
    const std::string lower = lowerCase(createStatement);
    for (std::size_t at = lower.find("as"); at != std::string::npos; at = lower.find("as", at + 2)) {
        constexpr std::string_view before = " \t\r\n)]\"", behind = " \t\r\n(";
        if (at > 0 && at + 2 < lower.size() && before.find(lower[at - 1]) != std::string_view::npos &&
            behind.find(lower[at + 2]) != std::string_view::npos)
            return std::string(createStatement.substr(lower.find_first_not_of(" \t\r\n", at + 2)));
    }
    return {};
}

} // namespace

Catalog readCatalog(Engine& engine) {
    const auto statement = engine.prepare("SELECT m.name, m.type, m.sql, p.name, p.type, p.pk FROM sqlite_schema m, "
                                          "pragma_table_info(m.name) p WHERE m.type IN ('table', 'view') "
                                          "AND m.name NOT LIKE 'sqlite_%' ORDER BY m.name, p.cid",
                                          false);
    RowStore rows(6);
    statement->query({}, rows);

    Catalog catalog;
    CatalogTable table;
    int keyColumns = 0;
    const auto finish = [&] {
        if (keyColumns != 1)
            table.key.clear();
        if (!table.name.empty())
            catalog.add(std::exchange(table, {}));
        keyColumns = 0;
    };
    for (std::size_t row = 0; row < rows.rows(); ++row) {
        if (rows.textAt(row, 0) != table.name) {
            finish();
            table.name = rows.textAt(row, 0);
            if (rows.textAt(row, 1) == "view")
                table.definition = definingQuery(rows.textAt(row, 2));
        }
        table.columns.push_back({std::string(rows.textAt(row, 3)), columnTypeOf(rows.textAt(row, 4))});
        if (rows.at(row, 5) != Value(0)) {
            table.key = rows.textAt(row, 3);
            ++keyColumns;
        }
    }
    finish();
    return catalog;
}

} // namespace zel::ado::sqlite
