#include "ado/postgres/catalog_reader.h"

#include "ado/convert.h"
#include "ado/engine.h"
#include "ado/postgres/values.h"
#include "ado/row_store.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace zel::ado::postgres {

namespace {

/// Key columns are counted, since only a table with a single one can have its rows named by it.
constexpr const char* query = R"(
SELECT c.oid::bigint, c.relname::text, c.relkind = 'v',
       CASE WHEN c.relkind = 'v' THEN pg_get_viewdef(c.oid) END,
       a.attnum::integer, a.attname::text, a.atttypid::bigint, a.atttypmod,
       coalesce(a.attnum = i.indkey[0] AND i.indnkeyatts = 1, false),
       pg_catalog.obj_description(c.oid, 'pg_class')
FROM pg_catalog.pg_class c
INNER JOIN pg_catalog.pg_namespace n ON n.oid = c.relnamespace
INNER JOIN pg_catalog.pg_attribute a ON a.attrelid = c.oid AND a.attnum > 0 AND NOT a.attisdropped
LEFT JOIN pg_catalog.pg_index i ON i.indrelid = c.oid AND i.indisprimary
WHERE c.relkind IN ('r', 'p', 'v') AND n.nspname IN ('dbo', 'public') AND pg_catalog.pg_table_is_visible(c.oid)
ORDER BY c.oid, a.attnum)";

std::string definitionOf(std::string_view text) {
    text = trim(text);
    if (text.ends_with(';'))
        text.remove_suffix(1);
    return std::string(trim(text));
}

bool isLetterOfName(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_';
}

/// Tables are made with a comment that lists their columns as the schema spells them. A column that it does not name,
/// or a table without one, keeps the server's lower case.
void spellColumns(CatalogTable& table, std::string_view comment) {
    while (!comment.empty()) {
        const auto end = static_cast<std::size_t>(std::ranges::find_if_not(comment, isLetterOfName) - comment.begin());
        const std::string_view word = comment.substr(0, end);
        for (CatalogColumn& column : table.columns)
            if (equalIgnoringCase(column.name, word))
                column.spelling = word;
        comment.remove_prefix(std::min(end + 1, comment.size()));
    }
}

struct Row {
    const RowStore& rows;
    std::size_t row;

    [[nodiscard]] std::int64_t number(std::size_t column) const { return rows.at(row, column).as<std::int64_t>(); }
    [[nodiscard]] std::string text(std::size_t column) const { return std::string(rows.textAt(row, column)); }
    [[nodiscard]] bool flag(std::size_t column) const { return rows.at(row, column) == Value(true); }
};

CatalogTable tableOf(const Row& row) {
    CatalogTable table;
    table.name = row.text(1);
    if (row.flag(2))
        table.definition = definitionOf(row.text(3));
    return table;
}

} // namespace

ServerTables readTables(Engine& engine) {
    const auto statement = engine.prepare(query, false);
    RowStore rows(10);
    statement->query({}, rows);

    ServerTables tables;
    CatalogTable table;
    const auto finish = [&](std::size_t lastRow) {
        if (rows.typeAt(lastRow, 9) == Value::Type::Text)
            spellColumns(table, rows.textAt(lastRow, 9));
        tables.catalog.add(std::exchange(table, {}));
    };
    for (std::size_t i = 0; i < rows.rows(); ++i) {
        const Row row{rows, i};
        if (i == 0 || row.number(0) != rows.at(i - 1, 0).as<std::int64_t>()) {
            if (i != 0)
                finish(i - 1);
            table = tableOf(row);
        }
        const CellReader reader =
            cellReaderOf(static_cast<unsigned>(row.number(6)), static_cast<int>(row.number(7)), false);
        table.columns.push_back({row.text(5), reader.type, {}});
        if (row.flag(8))
            table.key = row.text(5);
        ServerTables::Numbered& numbered = tables.byNumber[static_cast<unsigned>(row.number(0))];
        numbered.name = table.name;
        numbered.isView = table.isView();
        numbered.columns[static_cast<int>(row.number(4))] = {row.text(5), {}};
    }
    if (rows.rows() != 0)
        finish(rows.rows() - 1);
    for (auto& [number, numbered] : tables.byNumber)
        for (auto& [place, column] : numbered.columns)
            column.spelling = tables.catalog.table(numbered.name)->column(column.name)->spelling;
    return tables;
}

} // namespace zel::ado::postgres
