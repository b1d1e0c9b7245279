#pragma once

#include "ado/engine.h"
#include "ado/sqlite/link.h"
#include "ado/sqlite/open.h"

#include <filesystem>
#include <string>

namespace zel::ado::sqlite {

/// Marks the constructor that makes a file.
struct NewFile {};
inline constexpr NewFile newFile;

/// One database file, open through the engine's C interface.
class SqliteEngine final : public Engine {
public:
    /// The header of the file has been looked at (see openSqlite).
    SqliteEngine(std::filesystem::path file, const SqliteOptions& options);
    /// Makes the file, to be filled in one go: fast, and not safe against a crash before it is closed.
    SqliteEngine(std::filesystem::path file, NewFile);
    ~SqliteEngine() override;
    SqliteEngine(const SqliteEngine&) = delete;
    SqliteEngine& operator=(const SqliteEngine&) = delete;

    [[nodiscard]] EngineKind kind() const noexcept override { return EngineKind::Sqlite; }
    [[nodiscard]] std::string connectionText() const override;
    [[nodiscard]] const Catalog& catalog() override;
    void refreshCatalog() override { catalogIsRead_ = false; }
    [[nodiscard]] std::shared_ptr<PreparedStatement> prepare(const std::string& engineText, bool writes) override;
    void begin() override;
    void commit() override;
    void rollback() noexcept override;
    [[nodiscard]] std::int32_t nextNumber(std::string_view table, std::string_view field) override;
    void onWait(std::function<void()> idle) override { link_->onWait(std::move(idle)); }

    /// One statement without parameters, rows thrown away.
    void run(const std::string& engineText);

private:
    void configure();
    void requireOurTables();
    void chooseJournal();

    std::filesystem::path file_;
    std::shared_ptr<Link> link_;
    /// Read anew in its place: translated statements go on looking at it.
    Catalog catalog_;
    bool catalogIsRead_ = false;
    std::shared_ptr<PreparedStatement> moveNumber_;
};

/// Write-ahead logging is safe with several connections from this release of the library on.
[[nodiscard]] constexpr bool libraryMayUseWal(int libraryVersion) noexcept {
    return libraryVersion >= 3'051'003;
}

} // namespace zel::ado::sqlite
