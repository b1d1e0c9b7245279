#include "ado/sqlite/engine.h"

#include "ado/error.h"
#include "ado/key_numbers.h"
#include "ado/row_store.h"
#include "ado/sqlite/catalog_reader.h"
#include "ado/sqlite/errors.h"
#include "ado/sqlite/functions.h"
#include "ado/sqlite/statement.h"

#include <sqlite3.h>

#include <fmt/format.h>

#include <thread>
#include <utility>

namespace zel::ado::sqlite {

void SqliteEngine::DatabaseCloser::operator()(sqlite3* database) const noexcept {
    sqlite3_close_v2(database);
}

SqliteEngine::SqliteEngine(std::filesystem::path file, const SqliteOptions& options)
    : file_(std::move(file)), patience_(options.patience) {
    open(options.readOnly ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE);
    configure();
    run(options.durable ? "PRAGMA synchronous = FULL" : "PRAGMA synchronous = OFF");
    requireOurTables();
    if (sqlite3_db_readonly(database_.get(), "main") == 0)
        chooseJournal();
}

SqliteEngine::SqliteEngine(std::filesystem::path file, NewFile /*unused*/) : file_(std::move(file)), patience_(0) {
    open(SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
    configure();
    run("PRAGMA synchronous = OFF");
    run("PRAGMA journal_mode = MEMORY");
    run(fmt::format("PRAGMA application_id = {}", sqliteApplicationId));
}

SqliteEngine::~SqliteEngine() = default;

void SqliteEngine::open(int access) {
    sqlite3* database = nullptr;
    const int code =
        sqlite3_open_v2(file_.c_str(), &database, access | SQLITE_OPEN_EXRESCODE | SQLITE_OPEN_NOMUTEX, nullptr);
    database_.reset(database);
    if (code != SQLITE_OK)
        throw errorOf(database, code, {});
}

void SqliteEngine::configure() {
    sqlite3* database = database_.get();
    sqlite3_busy_handler(database, &SqliteEngine::whenBusy, this);
    // Double-quoted text that is no column must fail: read as a literal it would quietly compare with the wrong thing.
    sqlite3_db_config(database, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    sqlite3_db_config(database, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
    sqlite3_db_config(database, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    registerFunctions(database);
    run("PRAGMA foreign_keys = OFF");
    run("PRAGMA cache_size = -32768");
}

void SqliteEngine::requireOurTables() {
    RowStore rows(1);
    prepare("SELECT name FROM sqlite_schema WHERE type = 'table' AND name = 'Version' COLLATE NOCASE", false)
        ->query({}, rows);
    if (rows.rows() == 0)
        throw Error(ErrorKind::Open, errors::failed,
                    fmt::format("The database '{}' cannot be opened: it holds no version.", file_.string()));
}

void SqliteEngine::chooseJournal() {
    run(libraryMayUseWal(sqlite3_libversion_number()) ? "PRAGMA journal_mode = WAL" : "PRAGMA journal_mode = DELETE");
}

std::string SqliteEngine::connectionText() const {
    return "Data Source=" + file_.string();
}

int SqliteEngine::whenBusy(void* engine, int attempt) {
    return static_cast<SqliteEngine*>(engine)->waitOnce(attempt) ? 1 : 0;
}

bool SqliteEngine::waitOnce(int attempt) {
    using namespace std::chrono_literals;
    const auto now = std::chrono::steady_clock::now();
    if (attempt == 0)
        waitingSince_ = now;
    if (now - waitingSince_ >= patience_)
        return false;
    // Most waits are over in a few milliseconds: the first rounds are short and do not trouble the window.
    if (attempt >= 5 && idle_) {
        waiting_ = true;
        idle_();
        waiting_ = false;
    }
    std::this_thread::sleep_for(attempt < 5 ? 1ms : 10ms);
    return true;
}

void SqliteEngine::refuseWhileWaiting() const {
    if (waiting_)
        throw Error(ErrorKind::Busy, errors::failed,
                    "The database is in use by another user; a statement is still waiting for it.");
}

const Catalog& SqliteEngine::catalog() {
    if (!catalog_)
        catalog_ = readCatalog(*this);
    return *catalog_;
}

std::shared_ptr<PreparedStatement> SqliteEngine::prepare(const std::string& engineText, bool /*writes*/) {
    return std::make_shared<SqliteStatement>(*this, database_.get(), engineText);
}

void SqliteEngine::run(const std::string& engineText) {
    SqliteStatement(*this, database_.get(), engineText).execute({});
}

// The write lock is taken at once: two clerks who both read first and then want to write would block each other.
void SqliteEngine::begin() {
    run("BEGIN IMMEDIATE");
}

void SqliteEngine::commit() {
    run("COMMIT");
}

void SqliteEngine::rollback() noexcept {
    if (sqlite3_get_autocommit(database_.get()) == 0)
        sqlite3_exec(database_.get(), "ROLLBACK", nullptr, nullptr, nullptr);
}

std::int32_t SqliteEngine::nextNumber(std::string_view table, std::string_view field) {
    const KeyColumn key = keyColumn(catalog(), table, field);
    if (!moveNumber_)
        moveNumber_ = prepare(moveNumberText("?1"), true);
    // The first key of a table: one statement, so no other clerk can come between its reading and its writing.
    return takeNumber(*moveNumber_, key, [&] { return prepare(firstNumberText(key, "?1", "max"), true); });
}

} // namespace zel::ado::sqlite
