#pragma once

#include "ado/engine.h"
#include "ado/postgres/catalog_reader.h"
#include "ado/postgres/link.h"

#include <memory>

namespace zel::ado::postgres {

/// One database of a server, open through the client library.
class PostgresEngine final : public Engine {
public:
    PostgresEngine(const PostgresTarget& target, const PostgresOptions& options);
    ~PostgresEngine() override;
    PostgresEngine(const PostgresEngine&) = delete;
    PostgresEngine& operator=(const PostgresEngine&) = delete;

    [[nodiscard]] EngineKind kind() const noexcept override { return EngineKind::Postgres; }
    [[nodiscard]] std::string connectionText() const override { return link_->description(); }
    [[nodiscard]] const Catalog& catalog() override { return tables().catalog; }
    void refreshCatalog() override { tablesAreRead_ = false; }
    [[nodiscard]] std::shared_ptr<PreparedStatement> prepare(const std::string& engineText, bool writes) override;
    void begin() override { link_->begin(); }
    void commit() override { link_->commit(); }
    void rollback() noexcept override { link_->rollback(); }
    [[nodiscard]] std::int32_t nextNumber(std::string_view table, std::string_view field) override;
    void onWait(std::function<void()> idle) override { link_->onWait(std::move(idle)); }

private:
    [[nodiscard]] const ServerTables& tables();

    std::shared_ptr<Link> link_;
    /// Read anew in their place: translated statements go on looking at the catalog.
    ServerTables tables_;
    bool tablesAreRead_ = false;
    std::shared_ptr<PreparedStatement> moveNumber_;
};

} // namespace zel::ado::postgres
