#pragma once

#include "ado/recordset.h"
#include "ado/value.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace zel::forms {

using ado::Value;

/// A two-dimensional list in memory, as the session's lists 1 to 15 are: rows and columns from 0, and a name for each
/// column where there is one.
class ValueArray {
public:
    static constexpr int none = -1;

    ValueArray() = default;
    explicit ValueArray(int columns) : columns_(columns) {}
    /// All rows of an open record set under its field names, from where it stands on the first row.
    static ValueArray fromRecordset(ado::Recordset& records);

    [[nodiscard]] int rows() const noexcept { return columns_ == 0 ? 0 : static_cast<int>(cells_.size()) / columns_; }
    [[nodiscard]] int columns() const noexcept { return columns_; }
    /// Throws ado::Error 9 outside the list.
    [[nodiscard]] const Value& operator()(int row, int column) const;
    [[nodiscard]] const Value& operator()(int row, std::string_view column) const;
    void set(int row, int column, Value value);

    /// Missing cells of a short row are Null. A row for an array without columns gives it its columns.
    void addRow(std::vector<Value> row);
    void insertRow(int before, std::vector<Value> row);
    void deleteRow(int row);
    /// Keeps what is inside the new size.
    void redim(int rows, int columns);
    void clear() noexcept { cells_.clear(); }

    void setColumnNames(std::vector<std::string> names) { names_ = std::move(names); }
    [[nodiscard]] const std::vector<std::string>& columnNames() const noexcept { return names_; }
    /// By name, letters ignored, or none.
    [[nodiscard]] int columnIndex(std::string_view name) const noexcept;

private:
    [[nodiscard]] std::size_t at(int row, int column) const;

    int columns_ = 0;
    std::vector<Value> cells_; // row by row
    std::vector<std::string> names_;
};

} // namespace zel::forms
