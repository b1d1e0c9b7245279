#pragma once

#include "ado/rows/row_set.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace zel::ado {

/// A walk over rows: which of them are seen, in what order, and where one stands. Rows are fetched when the first is
/// needed. A removed row stays the place one stands on until the next move.
class Cursor {
public:
    explicit Cursor(std::shared_ptr<RowSet> rows) : rows_(std::move(rows)) {}

    /// Before the rows are there, or when fewer than all are, a new filter changes what is fetched.
    void setFilter(Criteria filter);
    void setSort(std::vector<SortKey> keys);
    /// Over the rows held now, from the first.
    [[nodiscard]] Cursor clone();

    [[nodiscard]] std::size_t count();
    [[nodiscard]] bool atBegin();
    [[nodiscard]] bool atEnd();
    /// Counted from 0; the place a removed row had. Nothing before the first and behind the last.
    [[nodiscard]] std::optional<std::size_t> place();
    /// Nothing when there is no row here.
    [[nodiscard]] std::optional<RowId> current();
    [[nodiscard]] RowId rowAt(std::size_t place);

    void moveToPlace(std::size_t place);
    void moveToBegin();
    void moveToEnd();
    /// Throws Error 3021 when one stood at that end already.
    void moveBy(std::int64_t rows);
    /// False when the row is not seen.
    [[nodiscard]] bool moveToRow(RowId row);
    /// Begins at `from`, which may lie outside; no hit stands behind the last row, or before the first.
    void find(const Criteria& criteria, std::int64_t from, bool backward);
    /// Stands on a row just written, without fetching the others.
    void standOnAdded(RowId row);

private:
    /// Fetches, arranges, and takes in what was added and removed meanwhile.
    void settle();
    void fetch();
    void arrange();
    void takeInChanges();
    [[nodiscard]] std::vector<RowId> allRows() const;

    std::shared_ptr<RowSet> rows_;
    Criteria filter_;
    std::vector<SortKey> sort_;
    /// In the statement's order, what the filter is applied to; null until fetched.
    std::shared_ptr<const std::vector<RowId>> base_;
    bool narrowed_ = false;
    bool arranged_ = false;
    /// The rows seen.
    std::vector<RowId> order_;
    /// -1 before the first row, the count of rows behind the last.
    std::int64_t place_ = 0;
    /// The row one stood on was removed; `place_` is that of the row behind it.
    bool gone_ = false;
    /// Stood on before anything was fetched.
    std::optional<RowId> loose_;
    std::size_t addedSeen_ = 0, removalsSeen_ = 0;
};

} // namespace zel::ado
