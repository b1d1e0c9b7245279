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

#include <utility>

namespace zel::ado::sqlite {

SqliteEngine::SqliteEngine(std::filesystem::path file, const SqliteOptions& options)
    : file_(std::move(file)),
      link_(std::make_shared<Link>(file_, options.readOnly ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE,
                                   options.patience)) {
    configure();
    run(options.durable ? "PRAGMA synchronous = FULL" : "PRAGMA synchronous = OFF");
    requireOurTables();
    if (sqlite3_db_readonly(link_->database(), "main") == 0)
        chooseJournal();
}

SqliteEngine::SqliteEngine(std::filesystem::path file, NewFile /*unused*/)
    : file_(std::move(file)),
      link_(std::make_shared<Link>(file_, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, std::chrono::milliseconds(0))) {
    configure();
    run("PRAGMA synchronous = OFF");
    run("PRAGMA journal_mode = MEMORY");
    run(fmt::format("PRAGMA application_id = {}", sqliteApplicationId));
}

SqliteEngine::~SqliteEngine() {
    link_->close();
}

void SqliteEngine::configure() {
    sqlite3* database = link_->database();
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
    if (libraryMayUseWal(sqlite3_libversion_number())) {
        run("PRAGMA journal_mode = WAL");
        return;
    }
    // The journal is ended by wiping its head, which is waited for. Unlinking it is not: it may come undone when the
    // power fails, and a commit that was reported with it.
    run("PRAGMA journal_mode = PERSIST");
    run("PRAGMA journal_size_limit = 1048576");
}

std::string SqliteEngine::connectionText() const {
    return "Data Source=" + file_.string();
}

const Catalog& SqliteEngine::catalog() {
    if (catalogIsRead_)
        return catalog_;
    catalogIsRead_ = true; // its own query asks for it too, and is given what there is
    try {
        catalog_ = readCatalog(*this);
    } catch (...) {
        catalogIsRead_ = false;
        throw;
    }
    return catalog_;
}

std::shared_ptr<PreparedStatement> SqliteEngine::prepare(const std::string& engineText, bool /*writes*/) {
    return std::make_shared<SqliteStatement>(
        link_, [this]() -> const Catalog& { return catalog(); }, engineText);
}

void SqliteEngine::run(const std::string& engineText) {
    prepare(engineText, true)->execute({});
}

// The write lock is taken at once: two clerks who both read first and then want to write would block each other.
void SqliteEngine::begin() {
    run("BEGIN IMMEDIATE");
}

void SqliteEngine::commit() {
    run("COMMIT");
}

void SqliteEngine::rollback() noexcept {
    if (sqlite3_get_autocommit(link_->database()) == 0)
        sqlite3_exec(link_->database(), "ROLLBACK", nullptr, nullptr, nullptr);
}

std::int32_t SqliteEngine::nextNumber(std::string_view table, std::string_view field) {
    const KeyColumn key = keyColumn(catalog(), table, field);
    if (!moveNumber_)
        moveNumber_ = prepare(moveNumberText("?1"), true);
    // The first key of a table: one statement, so no other clerk can come between its reading and its writing.
    return takeNumber(*moveNumber_, key, [&] { return prepare(firstNumberText(key, "?1", "max"), true); });
}

} // namespace zel::ado::sqlite
