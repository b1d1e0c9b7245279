#pragma once

#include "ado/engine.h"

#include <string>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

namespace zel::ado::sqlite {

class SqliteEngine;

/// A statement of one file. It must not outlive its engine.
class SqliteStatement final : public PreparedStatement {
public:
    SqliteStatement(SqliteEngine& engine, sqlite3* database, const std::string& text);
    ~SqliteStatement() override;
    SqliteStatement(const SqliteStatement&) = delete;
    SqliteStatement& operator=(const SqliteStatement&) = delete;

    [[nodiscard]] const std::vector<ResultColumn>& columns() override;
    std::int64_t execute(std::span<const Value> parameters) override;
    void query(std::span<const Value> parameters, RowStore& rows) override;

private:
    class Run;
    [[nodiscard]] bool step();
    void readColumns();

    SqliteEngine& engine_;
    sqlite3* database_;
    sqlite3_stmt* statement_ = nullptr;
    std::vector<ResultColumn> columns_;
    /// The engine prepares again by itself when a table changed; the columns are then read anew.
    int columnsOfPreparation_ = -1;
};

} // namespace zel::ado::sqlite
