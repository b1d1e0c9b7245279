#include "support/postgres_slot.h"

#include "ado/error.h"
#include "ado/postgres/create.h"
#include "ado/postgres/open.h"
#include "ado/row_store.h"
#include "support/keeper.h"
#include "support/run_folder.h"
#include "support/test_database.h"

#include <fmt/format.h>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <stdexcept>

namespace zel::test {

namespace {

namespace fs = std::filesystem;

std::string templateOf(Content content) {
    return content == Content::Demo ? "zel_demo_template" : "zel_template";
}

/// What a slot needs to become new again: the rows that a new database has, and a note when its tables were changed.
constexpr const char* bookkeeping[] = {
    "CREATE SCHEMA zel_test",
    "CREATE TABLE zel_test.kept (name text, filled boolean)",
    "CREATE TABLE zel_test.changed (once boolean)",
    R"(DO $$
DECLARE name text; filled boolean;
BEGIN
    FOR name IN SELECT tablename FROM pg_tables WHERE schemaname = 'dbo' LOOP
        EXECUTE format('SELECT EXISTS (SELECT 1 FROM dbo.%I)', name) INTO filled;
        INSERT INTO zel_test.kept VALUES (name, filled);
        IF filled THEN
            EXECUTE format('CREATE TABLE zel_test.%1$I AS TABLE dbo.%1$I', name);
        END IF;
    END LOOP;
END $$)",
    R"(CREATE FUNCTION zel_test.renew() RETURNS boolean LANGUAGE plpgsql AS $$
DECLARE kept record; used boolean;
BEGIN
    IF EXISTS (SELECT 1 FROM zel_test.changed) THEN
        RETURN false;
    END IF;
    FOR kept IN SELECT * FROM zel_test.kept LOOP
        IF kept.filled THEN
            EXECUTE format('SELECT (SELECT string_agg(t::text, '','') FROM dbo.%1$I t) IS DISTINCT FROM '
                           '(SELECT string_agg(t::text, '','') FROM zel_test.%1$I t)', kept.name) INTO used;
        ELSE
            EXECUTE format('SELECT EXISTS (SELECT 1 FROM dbo.%I)', kept.name) INTO used;
        END IF;
        IF used THEN
            EXECUTE format('TRUNCATE dbo.%I', kept.name);
            IF kept.filled THEN
                EXECUTE format('INSERT INTO dbo.%1$I TABLE zel_test.%1$I', kept.name);
            END IF;
        END IF;
    END LOOP;
    RETURN true;
END $$)",
    R"(CREATE FUNCTION zel_test.note() RETURNS event_trigger LANGUAGE plpgsql AS
    $$ BEGIN INSERT INTO zel_test.changed VALUES (true); END $$)",
    "CREATE EVENT TRIGGER zel_test_note ON ddl_command_start EXECUTE FUNCTION zel_test.note()"};

ado::PostgresTarget onServer(std::string catalog) {
    return {PostgresSlot::server(), std::move(catalog), serverUser, {}};
}

void run(ado::Engine& engine, const std::string& text) {
    engine.prepare(text, true)->execute({});
}

void makeTemplate(Content content) {
    ado::createPostgresDatabase(onServer(templateOf(content)), [content](ado::Engine& engine) {
        filling(content)(engine);
        for (const char* statement : bookkeeping)
            run(engine, statement);
    });
}

void makeAnew(const std::string& catalog, Content content) {
    const auto server = ado::openPostgres(onServer("postgres"));
    run(*server, fmt::format("DROP DATABASE IF EXISTS {} WITH (FORCE)", catalog));
    run(*server, fmt::format("CREATE DATABASE {} TEMPLATE {} STRATEGY FILE_COPY", catalog, templateOf(content)));
}

/// False when the database cannot be made new from inside.
bool renew(const std::string& catalog) {
    try {
        const auto engine = ado::openPostgres(onServer(catalog));
        ado::RowStore rows(1);
        engine->prepare("SELECT zel_test.renew()", true)->query({}, rows);
        return rows.at(0, 0) == ado::Value(true);
    } catch (const ado::Error&) {
        return false;
    }
}

/// The lock goes with the process, however it ends. -1 when another test has the slot.
int lockSlot(const std::string& catalog) {
    const int lock = ::open((runFolder() / (catalog + ".lock")).c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (lock < 0)
        throw std::runtime_error("cannot lock " + catalog);
    if (::flock(lock, LOCK_EX | LOCK_NB) == 0)
        return lock;
    ::close(lock);
    return -1;
}

} // namespace

const std::string& PostgresSlot::server() {
    static const std::string folder = runningServer(runFolder()).string();
    return folder;
}

PostgresSlot::PostgresSlot(Content content) {
    onceInRun(templateOf(content), [content] { makeTemplate(content); });
    for (int number = 0; lock_ < 0; ++number) {
        catalog_ = fmt::format("{}_{}", content == Content::Demo ? "demo_slot" : "slot", number);
        lock_ = lockSlot(catalog_);
    }
    const fs::path made = runFolder() / (catalog_ + ".made");
    if (fs::exists(made) && renew(catalog_))
        return;
    makeAnew(catalog_, content);
    std::ofstream(made).flush();
}

PostgresSlot::~PostgresSlot() {
    ::close(lock_);
}

} // namespace zel::test
