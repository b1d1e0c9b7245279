#include "support/test_database.h"

#include "ado/postgres/create.h"
#include "ado/postgres/open.h"
#include "ado/sqlite/create.h"
#include "ado/sqlite/open.h"
#include "korvandb/create.h"
#include "support/keeper.h"
#include "support/run_folder.h"

#include <fmt/format.h>

#include <unistd.h>

namespace zel::test {

namespace {

namespace fs = std::filesystem;

constexpr const char* templateName = "zel_template";

fs::path templateFile() {
    const fs::path file = runFolder() / "template.mdb";
    onceInRun("template.mdb", [&] { ado::createSqliteFile(file, korvandb::createTables); });
    return file;
}

ado::PostgresTarget onRunServer(std::string catalog) {
    static const std::string server = runningServer(runFolder()).string();
    return {server, std::move(catalog), serverUser, {}};
}

/// The connection from which databases are made and dropped, one for a test program.
ado::Engine& serverConnection() {
    static const std::unique_ptr<ado::Engine> engine = [] {
        onceInRun(templateName, [] { ado::createPostgresDatabase(onRunServer(templateName), korvandb::createTables); });
        return ado::openPostgres(onRunServer("postgres"));
    }();
    return *engine;
}

void runOnServer(const std::string& text) {
    serverConnection().prepare(text, true)->execute({});
}

std::string nextName() {
    static int last = 0;
    return fmt::format("test_{}_{}", ::getpid(), ++last);
}

} // namespace

TestDatabase::TestDatabase(ado::EngineKind kind) : kind_(kind), name_(nextName()) {
    if (kind_ == ado::EngineKind::Sqlite)
        fs::copy_file(templateFile(), file());
    else
        runOnServer(fmt::format("CREATE DATABASE {} TEMPLATE {} STRATEGY FILE_COPY", name_, templateName));
}

TestDatabase::~TestDatabase() {
    connection_.Close();
    if (kind_ == ado::EngineKind::Sqlite) {
        std::error_code ignored;
        fs::remove(file(), ignored);
        fs::remove(file().string() + "-journal", ignored);
        return;
    }
    try {
        runOnServer(fmt::format("DROP DATABASE {} WITH (FORCE)", name_));
    } catch (const std::exception& failure) {
        fmt::print(stderr, "{}: {}\n", name_, failure.what());
    }
}

std::unique_ptr<ado::Engine> TestDatabase::open(std::chrono::milliseconds patience) const {
    if (kind_ == ado::EngineKind::Sqlite)
        return ado::openSqlite(file(), {.durable = false, .patience = patience});
    return ado::openPostgres(onRunServer(name_), {.patience = patience});
}

ado::Connection& TestDatabase::connection() {
    if (connection_.State() == ado::stateClosed)
        connection_.Open(open());
    return connection_;
}

std::string TestDatabase::target() const {
    return kind_ == ado::EngineKind::Sqlite ? file().string() : server() + "/" + name_;
}

fs::path TestDatabase::file() const {
    return kind_ == ado::EngineKind::Sqlite ? runFolder() / (name_ + ".mdb") : fs::path();
}

std::string TestDatabase::server() const {
    return kind_ == ado::EngineKind::Sqlite ? std::string() : onRunServer(name_).server;
}

std::string TestDatabase::catalog() const {
    return kind_ == ado::EngineKind::Sqlite ? std::string() : name_;
}

} // namespace zel::test
