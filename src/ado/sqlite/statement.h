#pragma once

#include "ado/engine.h"
#include "ado/sqlite/values.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

struct sqlite3_stmt;

namespace zel::ado::sqlite {

class Link;

/// A statement of one file.
class SqliteStatement final : public PreparedStatement {
public:
    using Tables = std::function<const Catalog&()>;
    SqliteStatement(std::shared_ptr<Link> link, Tables tables, const std::string& text);
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
    Tables tables_;
    sqlite3_stmt* statement_ = nullptr;
    std::vector<ResultColumn> columns_;
    std::vector<CellReader> readers_;
    /// The engine prepares again by itself when a table changed; the columns are then read anew.
    int columnsOfPreparation_ = -1;
};

} // namespace zel::ado::sqlite
