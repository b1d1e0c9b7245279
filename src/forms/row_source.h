#pragma once

#include "ado/recordset.h"
#include "forms/value_array.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace zel::forms {

class Adodc;
using ado::Bookmark;

/// Rows that a list or grid shows, asked for one by one: nothing is copied, however many there are.
class RowSource {
public:
    virtual ~RowSource() = default;
    [[nodiscard]] virtual std::int64_t rowCount() const = 0;
    [[nodiscard]] virtual int columnCount() const = 0;
    [[nodiscard]] virtual std::string columnName(int column) const = 0;
    /// -1 for a name that is none.
    [[nodiscard]] virtual int columnIndex(std::string_view name) const = 0;
    /// Rows count from 0.
    [[nodiscard]] virtual Value cell(std::int64_t row, int column) const = 0;
    [[nodiscard]] virtual Bookmark bookmarkAt(std::int64_t row) const = 0;
    /// -1 for a bookmark whose row is gone.
    [[nodiscard]] virtual std::int64_t rowOf(Bookmark bookmark) const = 0;
    /// The row that the source itself stands on, -1 for none.
    [[nodiscard]] virtual std::int64_t currentRow() const = 0;
    virtual void moveTo(std::int64_t row) = 0;
    /// Another number once bookmarks taken before name other rows, because the source was opened anew.
    [[nodiscard]] virtual int generation() const { return 0; }
    /// The record set behind the rows, nullptr for a list in memory or while none is open.
    [[nodiscard]] virtual ado::Recordset* records() const { return nullptr; }
    /// The list behind the rows, nullptr for a record set.
    [[nodiscard]] virtual ValueArray* array() const { return nullptr; }
};

/// The bookmark of row r of a list in memory is r + 1, since 0 is no row. The list must outlive the source.
[[nodiscard]] std::unique_ptr<RowSource> arraySource(ValueArray& array);
[[nodiscard]] std::unique_ptr<RowSource> recordsetSource(ado::Recordset& records);
/// Follows the data control to whatever record set it opens.
[[nodiscard]] std::unique_ptr<RowSource> adodcSource(Adodc& control);

} // namespace zel::forms
