#pragma once

#include "ado/catalog.h"

#include <string>
#include <string_view>
#include <vector>

namespace zel::korvandb {

struct Column {
    std::string name;
    ado::ColumnType type = ado::ColumnType::Unknown;
    /// Of a text: what the screens and their masks need. The engines keep longer texts too.
    int width = 0;
    bool primary = false;
    bool required = false;
    /// A number as text; empty for none.
    std::string defaultValue;

    /// An integer key, given out by usp_getNextNumber.
    [[nodiscard]] bool isKey() const noexcept { return primary && type == ado::ColumnType::Integer; }
};

struct Index {
    std::vector<std::string> columns;
    bool unique = false;
    /// Keeps all other columns as well.
    bool wide = false;
};

/// A column that holds a key of another table, or NULL, or a number below 1. The engines do not enforce it.
struct Reference {
    std::string column;
    std::string table;
};

struct Table {
    std::string name;
    std::vector<Column> columns;
    std::vector<Index> indexes;
    std::vector<Reference> references;

    /// Null when there is none. Case does not matter.
    [[nodiscard]] const Column* column(std::string_view columnName) const;
    /// The primary column, null for a table without one.
    [[nodiscard]] const Column* primary() const;
};

/// The query is neutral: {...} around text expressions, blanks(N).
struct View {
    std::string name;
    std::string query;
};

/// The tables and views of the shared database in neutral types.
struct Schema {
    std::vector<Table> tables;
    std::vector<View> views;

    [[nodiscard]] const Table* table(std::string_view name) const;
    [[nodiscard]] const View* view(std::string_view name) const;
};

/// Throws std::invalid_argument that names the line. The grammar stands at the head of database/schema.txt.
[[nodiscard]] Schema parseSchema(std::string_view text);

/// The schema this program was built with.
[[nodiscard]] const Schema& theSchema();

} // namespace zel::korvandb
