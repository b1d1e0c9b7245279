#pragma once

#include "ado/connection.h"
#include "ado/engine.h"
#include "support/content.h"
#include "support/postgres_slot.h"

#include <chrono>
#include <filesystem>
#include <memory>
#include <string>

namespace zel::test {

/// A database of one test on either engine: the program's tables, views and lookups. It is gone with this object.
class TestDatabase {
public:
    explicit TestDatabase(ado::EngineKind kind, Content content = Content::WithoutIncidents);
    ~TestDatabase();
    TestDatabase(const TestDatabase&) = delete;
    TestDatabase& operator=(const TestDatabase&) = delete;

    [[nodiscard]] ado::EngineKind kind() const noexcept { return kind_; }
    /// One more clerk's connection to it. Commits are not waited for on the disk.
    [[nodiscard]] std::unique_ptr<ado::Engine>
    open(std::chrono::milliseconds patience = std::chrono::milliseconds(5'000)) const;
    /// The connection of the test itself, opened when first asked for.
    [[nodiscard]] ado::Connection& connection();
    /// As the database tool names it: a file, or server/catalog.
    [[nodiscard]] std::string target() const;
    /// The file on SQLite, empty on PostgreSQL.
    [[nodiscard]] std::filesystem::path file() const;
    /// Server and catalog on PostgreSQL, empty on SQLite.
    [[nodiscard]] std::string server() const;
    [[nodiscard]] std::string catalog() const;

private:
    ado::EngineKind kind_;
    std::filesystem::path file_;
    std::unique_ptr<PostgresSlot> slot_;
    ado::Connection connection_;
};

/// The user that owns the databases of the run's server.
inline constexpr const char* serverUser = "zel";

} // namespace zel::test
