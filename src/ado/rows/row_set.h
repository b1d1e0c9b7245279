#pragma once

#include "ado/connection.h"
#include "ado/row_store.h"
#include "ado/rows/criteria.h"
#include "ado/rows/row_order.h"

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

namespace zel::ado {

/// A table that columns of a result come from.
struct BaseTable {
    std::string name;
    /// Empty for a table without one.
    std::string key;
    /// The column that holds the key, among all columns of the rows.
    std::optional<std::size_t> keyColumn;
};

/// The rows of one statement as far as they were fetched, shared by a record set and its clones. A row keeps its number
/// for as long as any of them is open.
class RowSet {
public:
    /// Prepares the statement, so that a wrong one fails here; fetches nothing. `writable` adds the key of the one
    /// table that the statement reads when its columns lack it.
    RowSet(Connection& connection, const Sql& source, bool writable);

    [[nodiscard]] Connection& connection() const noexcept { return connection_; }
    /// As the statement names them.
    [[nodiscard]] std::span<const ResultColumn> columns() const noexcept { return {columns_.data(), visible_}; }
    /// With the key that was added.
    [[nodiscard]] std::span<const ResultColumn> allColumns() const noexcept { return columns_; }
    [[nodiscard]] const std::vector<BaseTable>& tables() const noexcept { return tables_; }
    /// Nothing for a worked-out column.
    [[nodiscard]] std::optional<std::size_t> tableOf(std::size_t column) const noexcept { return tableOf_[column]; }
    /// Whether an outer join found no row of that table.
    [[nodiscard]] bool isNullSide(RowId row, std::size_t table) const;

    struct Fetched {
        /// In the statement's order.
        std::vector<RowId> order;
        /// Rows that do not meet the filter were left in the database.
        bool narrowed = false;
    };
    /// Runs the statement. A row that is held already, by its keys, keeps its number and gets what was read now.
    [[nodiscard]] Fetched fetch(const Criteria& filter);

    [[nodiscard]] const RowStore& store() const noexcept { return *store_; }
    void setCell(RowId row, std::size_t column, const Value& value) { store_->set(row, column, value); }
    /// Every cell Null.
    RowId addRow();
    void remove(RowId row);
    [[nodiscard]] bool isRemoved(RowId row) const noexcept { return row < removed_.size() && removed_[row]; }
    [[nodiscard]] std::size_t removals() const noexcept { return removals_; }
    /// Rows written by this record set or a clone, in the order of writing.
    [[nodiscard]] const std::vector<RowId>& added() const noexcept { return added_; }

private:
    void readTables();
    void addKey();
    [[nodiscard]] std::vector<RowId> run(PreparedStatement& statement, std::span<const Value> parameters);
    /// Takes in rows of a later run; gives their numbers, those of rows held before among them.
    [[nodiscard]] std::vector<RowId> merge(const RowStore& fresh);

    Connection& connection_;
    /// The prepared statement is the connection's: it goes when that is closed, though rows are still held.
    std::string engineText_;
    std::vector<Value> parameters_;
    std::vector<ResultColumn> columns_;
    std::size_t visible_ = 0;
    std::vector<BaseTable> tables_;
    std::vector<std::optional<std::size_t>> tableOf_;
    std::unique_ptr<RowStore> store_;
    /// The first `indexed_` rows by their identity; made when rows are fetched a second time.
    std::unordered_map<std::string, RowId> byIdentity_;
    RowId indexed_ = 0;
    std::vector<RowId> added_;
    std::vector<bool> removed_;
    std::size_t removals_ = 0;
};

} // namespace zel::ado
