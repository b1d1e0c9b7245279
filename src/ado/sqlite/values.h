#pragma once

#include "ado/catalog.h"
#include "ado/sql/computed_kinds.h"
#include "ado/value.h"

#include <string_view>

struct sqlite3_stmt;

namespace zel::ado {
class RowStore;
}

namespace zel::ado::sqlite {

/// The neutral type behind a declared column type ("MONEYTEXT"); Unknown for an empty one.
[[nodiscard]] ColumnType columnTypeOf(std::string_view declared) noexcept;

/// Gives the engine's code. Texts are not copied: the value must live until the run is over.
[[nodiscard]] int bindValue(sqlite3_stmt* statement, int index, const Value& value);

/// How the cells of one result column are read.
struct CellReader {
    ColumnType type = ColumnType::Unknown;
    /// Of a column without a declared type: what its texts may be besides text.
    sql::ComputedKind computed = sql::anyKind;
};

/// Appends one cell of the row that the statement stands on.
void addCell(sqlite3_stmt* statement, int column, CellReader reader, RowStore& rows);

} // namespace zel::ado::sqlite
