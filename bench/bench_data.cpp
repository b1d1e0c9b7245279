#include "bench_data.h"

#include "ado/row_store.h"
#include "ado/sqlite/create.h"
#include "ado/sqlite/open.h"
#include "korvandb/create.h"
#include "korvandb/demo.h"
#include "support/test_database.h"

#include <fmt/format.h>

#include <cstdio>
#include <cstdlib>

namespace zel::bench {

namespace {

namespace fs = std::filesystem;

korvandb::DemoSize sizeOf(Content content) {
    if (content == Content::ManyPersons)
        return {.persons = 50'000, .days = 1};
    return {.persons = 5'000, .days = 200};
}

const fs::path& dataFolder() {
    static const fs::path folder = [] {
        const char* given = std::getenv("ZEL_BENCH_DATA");
        fs::path chosen = given == nullptr ? fs::current_path() / "bench_data" : fs::path(given);
        fs::create_directories(chosen);
        return chosen;
    }();
    return folder;
}

void fill(ado::Engine& engine, Content content) {
    fmt::print(stderr, "Making the data; this takes a minute the first time.\n");
    korvandb::fillDemo(engine, sizeOf(content), [](std::string_view, std::int64_t, std::int64_t) {});
}

class SqliteRivals final : public Rivals {
public:
    SqliteRivals(const fs::path& file, const fs::path& rawFile, bool durable) : raw_(raw_sqlite_open(rawFile.c_str())) {
        connection_.Open(ado::openSqlite(file, {.durable = durable}));
    }
    ~SqliteRivals() override { raw_sqlite_close(raw_); }
    raw_rows* read(const std::string& engineText, const int* keys, int keyCount) override {
        return raw_sqlite_read(raw_, engineText.c_str(), keys, keyCount);
    }
    void insertPosts(const std::string& engineText, int firstKey, int count) override {
        raw_sqlite_insert_posts(raw_, engineText.c_str(), firstKey, count);
    }

private:
    sqlite3* raw_;
};

class PostgresRivals final : public Rivals {
public:
    explicit PostgresRivals(Content content) : database_(ado::EngineKind::Postgres) {
        connection_.Open(database_.open());
        fill(connection_.engine(), content);
        connection_.Execute("analyze");
        raw_ = raw_postgres_open(fmt::format("host={} dbname={} user={} options='-c search_path=dbo,public -c "
                                             "synchronous_commit=off'",
                                             database_.server(), database_.catalog(), test::serverUser)
                                     .c_str());
    }
    ~PostgresRivals() override {
        raw_postgres_close(raw_);
        connection_.Close();
    }
    raw_rows* read(const std::string& engineText, const int* keys, int keyCount) override {
        return raw_postgres_read(raw_, engineText.c_str(), keys, keyCount);
    }
    void insertPosts(const std::string& engineText, int firstKey, int count) override {
        raw_postgres_insert_posts(raw_, engineText.c_str(), firstKey, count);
    }

private:
    test::TestDatabase database_;
    pg_conn* raw_ = nullptr;
};

} // namespace

fs::path databaseFile(Content content) {
    const fs::path file = dataFolder() / (content == Content::ManyPersons ? "persons.mdb" : "postings.mdb");
    if (!fs::exists(file))
        ado::createSqliteFile(file, [&](ado::Engine& engine) {
            korvandb::createTables(engine);
            fill(engine, content);
        });
    return file;
}

fs::path plainIndexFile() {
    const fs::path file = dataFolder() / "postings_plain_index.mdb";
    if (fs::exists(file))
        return file;
    ado::backupInto(databaseFile(Content::ManyPostings), file);
    ado::Connection connection(ado::openSqlite(file));
    ado::RowStore names(1);
    connection.engine()
        .prepare("select name from sqlite_master where type = 'index' and tbl_name = 'PersonsPost' and sql is not null",
                 false)
        ->query({}, names);
    for (std::size_t row = 0; row < names.rows(); ++row)
        connection.engine().prepare(fmt::format("DROP INDEX \"{}\"", names.textAt(row, 0)), true)->execute({});
    connection.engine().prepare("CREATE INDEX PlainPost ON PersonsPost (PersonID, ActivityDT)", true)->execute({});
    return file;
}

std::unique_ptr<Rivals> sqliteRivals(const fs::path& file, const fs::path& rawFile, bool durable) {
    return std::make_unique<SqliteRivals>(file, rawFile, durable);
}

std::unique_ptr<Rivals> postgresRivals(Content content) {
    return std::make_unique<PostgresRivals>(content);
}

} // namespace zel::bench
