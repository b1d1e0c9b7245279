#pragma once

#include "ado/value.h"

#include <cstdint>
#include <deque>
#include <memory>
#include <string_view>
#include <vector>

namespace zel::ado {

/// The rows of a result, held in few large blocks: a cell is sixteen bytes and texts lie one behind the other, so that
/// 50,000 joined rows cost a handful of allocations.
class RowStore {
public:
    explicit RowStore(std::size_t columns) : columns_(columns) {}
    RowStore(const RowStore&) = delete;
    RowStore& operator=(const RowStore&) = delete;

    [[nodiscard]] std::size_t columns() const noexcept { return columns_; }
    [[nodiscard]] std::size_t rows() const noexcept { return columns_ == 0 ? 0 : cells_.size() / columns_; }
    void reserveRows(std::size_t rows) { cells_.reserve(rows * columns_); }

    /// Append the cells of a row from left to right.
    void addNull();
    void addFlag(bool flag);
    void addInteger(std::int64_t number);
    void addDouble(double number);
    void addCurrency(Currency money);
    void addDateTime(DateTime moment);
    void addText(std::string_view text);
    void add(const Value& value);

    [[nodiscard]] Value at(std::size_t row, std::size_t column) const;
    [[nodiscard]] Value::Type typeAt(std::size_t row, std::size_t column) const noexcept;
    /// For a text cell; stays valid as long as the store, until the cell is set.
    [[nodiscard]] std::string_view textAt(std::size_t row, std::size_t column) const noexcept;
    void set(std::size_t row, std::size_t column, const Value& value);

private:
    struct Cell {
        union {
            std::int64_t integer;
            double number;
            const char* text;
        };
        std::uint32_t length;
        Value::Type type;
    };
    [[nodiscard]] const Cell& cell(std::size_t row, std::size_t column) const noexcept {
        return cells_[row * columns_ + column];
    }
    [[nodiscard]] Cell makeCell(const Value& value);
    [[nodiscard]] const char* keep(std::string_view text);

    std::size_t columns_;
    std::vector<Cell> cells_;
    std::vector<std::unique_ptr<char[]>> blocks_;
    std::size_t blockUsed_ = 0, blockSize_ = 0;
};

} // namespace zel::ado
