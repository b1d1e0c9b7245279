#pragma once

#include "ado/rows/row_set.h"

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace zel::ado {

/// What was assigned, by column; nothing where nothing was.
using PendingRow = std::vector<std::optional<Value>>;

/// Writes rows of a result back to the tables that its columns come from: several tables all or none, each row named by
/// its key and by the old values of what changes. Throws Error 0x80040E38 when such a row is not there any more.
class RowWriter {
public:
    explicit RowWriter(RowSet& rows) : rows_(rows) {}

    /// One row in every table that got a value. What the database filled in by itself is read back.
    RowId insert(const PendingRow& pending);
    /// Does nothing when all is as it was.
    void update(RowId row, const PendingRow& pending);
    /// From the first table whose key is among the columns.
    void remove(RowId row);

private:
    struct Write;
    void run(std::span<Write> writes);
    void runOne(Write& write);
    /// The columns of a table that were given a value, each base column once.
    [[nodiscard]] std::vector<std::size_t> assignedColumns(std::size_t table, const PendingRow& pending) const;
    [[nodiscard]] Write insertInto(std::size_t table, const PendingRow& pending) const;
    [[nodiscard]] Write updateOf(std::size_t table, RowId row, std::span<const std::size_t> changed,
                                 const PendingRow& pending) const;
    [[nodiscard]] Value keyOf(std::size_t table, RowId row) const;
    [[nodiscard]] std::string addParameter(Write& write, const Value& value) const;
    [[nodiscard]] std::string isOldValue(Write& write, RowId row, std::size_t column) const;
    [[nodiscard]] std::vector<std::size_t> columnsOf(std::size_t table) const;
    [[nodiscard]] std::string baseName(std::size_t column) const;
    [[nodiscard]] std::vector<std::string> baseNames(std::span<const std::size_t> columns) const;
    void readBack(const Write& insert, RowId row);
    void keep(RowId row, const PendingRow& pending);

    RowSet& rows_;
};

} // namespace zel::ado
