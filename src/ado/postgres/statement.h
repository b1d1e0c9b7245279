#pragma once

#include "ado/engine.h"
#include "ado/postgres/link.h"
#include "ado/postgres/values.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace zel::ado::postgres {

struct ServerTables;

/// A statement that the server keeps prepared from its second run on, or from when its columns are asked for: a
/// statement run once is not worth a second trip to the server.
class PostgresStatement final : public PreparedStatement {
public:
    using Tables = std::function<const ServerTables&()>;
    PostgresStatement(std::shared_ptr<Link> link, Tables tables, std::string text, bool writes);
    ~PostgresStatement() override;
    PostgresStatement(const PostgresStatement&) = delete;
    PostgresStatement& operator=(const PostgresStatement&) = delete;

    [[nodiscard]] const std::vector<ResultColumn>& columns() override;
    std::int64_t execute(std::span<const Value> parameters) override;
    void query(std::span<const Value> parameters, RowStore& rows) override;

private:
    [[nodiscard]] Result run(std::span<const Value> parameters);
    [[nodiscard]] Result sendOnce(const ParameterTexts& parameters);
    [[nodiscard]] Result sendPrepared(const ParameterTexts& parameters);
    void prepareNow();
    [[nodiscard]] bool isPrepared() const noexcept { return preparedIn_ != 0; }
    void readColumns(const pg_result* result);

    std::shared_ptr<Link> link_;
    Tables tables_;
    std::string text_;
    bool writes_;
    std::string name_;
    std::uint64_t preparedIn_ = 0; // the session, 0 for none
    bool ranOnce_ = false;
    bool described_ = false;
    std::vector<ResultColumn> columns_;
    std::vector<CellReader> readers_;
};

} // namespace zel::ado::postgres
