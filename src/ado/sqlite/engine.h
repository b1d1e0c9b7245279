#pragma once

#include "ado/engine.h"
#include "ado/sqlite/open.h"

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>

struct sqlite3;

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
    void refreshCatalog() override { catalog_.reset(); }
    [[nodiscard]] std::shared_ptr<PreparedStatement> prepare(const std::string& engineText, bool writes) override;
    void begin() override;
    void commit() override;
    void rollback() noexcept override;
    [[nodiscard]] std::int32_t nextNumber(std::string_view table, std::string_view field) override;
    void onWait(std::function<void()> idle) override { idle_ = std::move(idle); }

    /// One statement without parameters, rows thrown away.
    void run(const std::string& engineText);
    /// Throws Error (Busy) while a statement waits for another user: the window lives, but the database is taken.
    void refuseWhileWaiting() const;

private:
    struct DatabaseCloser {
        void operator()(sqlite3* database) const noexcept;
    };
    static int whenBusy(void* engine, int attempt);
    [[nodiscard]] bool waitOnce(int attempt);
    void open(int access);
    void configure();
    void requireOurTables();
    void chooseJournal();

    std::filesystem::path file_;
    std::unique_ptr<sqlite3, DatabaseCloser> database_;
    std::optional<Catalog> catalog_;
    std::function<void()> idle_;
    std::chrono::milliseconds patience_;
    std::chrono::steady_clock::time_point waitingSince_;
    bool waiting_ = false;
    std::shared_ptr<PreparedStatement> moveNumber_;
};

/// Write-ahead logging is safe with several connections from this release of the library on.
[[nodiscard]] constexpr bool libraryMayUseWal(int libraryVersion) noexcept {
    return libraryVersion >= 3'051'003;
}

} // namespace zel::ado::sqlite
