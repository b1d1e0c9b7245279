#pragma once

#include "ado/engine.h"
#include "korvandb/ddl.h"

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

namespace zel::korvandb {

/// Writes many rows of one table, hundreds with each statement. The caller holds the transaction, and calls finish().
class RowWriter {
public:
    /// `columns` are names parted by blanks, as the cells of add() follow each other.
    RowWriter(ado::Engine& engine, std::string table, const std::string& columns);

    void add(std::initializer_list<ado::Value> cells);
    /// Writes what has been gathered.
    void finish();
    [[nodiscard]] std::int64_t rows() const noexcept { return rows_; }

private:
    [[nodiscard]] std::string statementFor(std::size_t rows) const;
    void write(ado::PreparedStatement& statement);

    ado::Engine& engine_;
    std::unique_ptr<DdlWords> words_;
    std::string table_;
    std::vector<std::string> columns_;
    std::size_t rowsInStatement_;
    std::shared_ptr<ado::PreparedStatement> statement_;
    std::vector<ado::Value> waiting_;
    std::int64_t rows_ = 0;
};

} // namespace zel::korvandb
