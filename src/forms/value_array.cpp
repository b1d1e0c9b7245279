#include "forms/value_array.h"

#include "ado/convert.h"
#include "ado/error.h"

#include <algorithm>

namespace zel::forms {

ValueArray ValueArray::fromRecordset(ado::Recordset& records) {
    const auto columns = static_cast<int>(records.fieldCount());
    ValueArray array(columns);
    for (int column = 0; column < columns; ++column)
        array.names_.push_back(records.fieldInfo(column).name);
    const auto rows = records.RecordCount();
    array.cells_.reserve(static_cast<std::size_t>(rows) * columns);
    for (std::int64_t position = 1; position <= rows; ++position) {
        for (int column = 0; column < columns; ++column)
            array.cells_.push_back(records.valueAt(position, column));
    }
    return array;
}

std::size_t ValueArray::at(int row, int column) const {
    if (row < 0 || column < 0 || row >= rows() || column >= columns_)
        throw ado::Error(ado::ErrorKind::Conversion, 9, "Subscript out of range");
    return static_cast<std::size_t>(row) * columns_ + column;
}

const Value& ValueArray::operator()(int row, int column) const {
    return cells_[at(row, column)];
}

const Value& ValueArray::operator()(int row, std::string_view column) const {
    return cells_[at(row, columnIndex(column))];
}

void ValueArray::set(int row, int column, Value value) {
    cells_[at(row, column)] = std::move(value);
}

void ValueArray::addRow(std::vector<Value> row) {
    insertRow(rows(), std::move(row));
}

void ValueArray::insertRow(int before, std::vector<Value> row) {
    if (columns_ == 0)
        columns_ = static_cast<int>(row.size());
    row.resize(columns_);
    const auto place = std::clamp(before, 0, rows());
    cells_.insert(cells_.begin() + static_cast<std::ptrdiff_t>(place) * columns_, std::make_move_iterator(row.begin()),
                  std::make_move_iterator(row.end()));
}

void ValueArray::deleteRow(int row) {
    const auto first = cells_.begin() + static_cast<std::ptrdiff_t>(at(row, 0));
    cells_.erase(first, first + columns_);
}

void ValueArray::redim(int newRows, int newColumns) {
    std::vector<Value> cells(static_cast<std::size_t>(newRows) * newColumns);
    for (int row = 0; row < std::min(newRows, rows()); ++row) {
        for (int column = 0; column < std::min(newColumns, columns_); ++column)
            cells[static_cast<std::size_t>(row) * newColumns + column] = std::move(cells_[at(row, column)]);
    }
    cells_ = std::move(cells);
    columns_ = newColumns;
}

int ValueArray::columnIndex(std::string_view name) const noexcept {
    for (std::size_t i = 0; i < names_.size(); ++i) {
        if (ado::equalIgnoringCase(names_[i], name))
            return static_cast<int>(i);
    }
    return none;
}

} // namespace zel::forms
