#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace zel::ado {

/// The neutral types of the one schema; each engine maps its own types to them.
enum class ColumnType { Unknown, Flag, Integer, Double, Currency, Text, DateTime };

struct CatalogColumn {
    std::string name;
    ColumnType type = ColumnType::Unknown;
    /// As the schema spells the name, where the engine folds it and the database remembers; else empty.
    std::string spelling = {};
};

/// A table or view as the open database describes it.
struct CatalogTable {
    std::string name;
    std::vector<CatalogColumn> columns;
    /// The one key column of a table; empty for views and tables without one.
    std::string key;
    /// The defining query of a view, empty for a table.
    std::string definition;

    [[nodiscard]] bool isView() const noexcept { return !definition.empty(); }
    /// Null when there is no such column. Case does not matter.
    [[nodiscard]] const CatalogColumn* column(std::string_view columnName) const;
};

/// What the translator and the record sets know of the tables: read from the engine when a database is opened,
/// so that it never disagrees with the tables that are there.
class Catalog {
public:
    void add(CatalogTable table);
    /// Null when there is no such table. Case does not matter, nor a leading "dbo.".
    [[nodiscard]] const CatalogTable* table(std::string_view name) const;
    [[nodiscard]] std::vector<std::string> tableNames() const;

private:
    std::map<std::string, CatalogTable, std::less<>> tables_; // by lower-case name
};

} // namespace zel::ado
