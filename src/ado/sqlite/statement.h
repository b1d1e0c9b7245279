#pragma once

#include "ado/engine.h"

#include <memory>
#include <string>
#include <vector>

struct sqlite3_stmt;

namespace zel::ado::sqlite {

class Link;

/// A statement of one file.
class SqliteStatement final : public PreparedStatement {
public:
    SqliteStatement(std::shared_ptr<Link> link, const std::string& text);
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

    std::shared_ptr<Link> link_;
    sqlite3_stmt* statement_ = nullptr;
    std::vector<ResultColumn> columns_;
    /// The engine prepares again by itself when a table changed; the columns are then read anew.
    int columnsOfPreparation_ = -1;
};

} // namespace zel::ado::sqlite
