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
    switch (content) {
    case Content::ManyPersons:
        return {.persons = 50'000, .days = 1};
    case Content::FewPostings:
        return {.persons = 50, .days = 200};
    case Content::ManyOfBoth:
        return {.persons = 50'000, .days = 20};
    case Content::MostPostings:
        return {.persons = 50'000, .days = 200};
    case Content::ManyPostings:
        break;
    }
    return {.persons = 5'000, .days = 200};
}

std::string nameOf(Content content) {
    switch (content) {
    case Content::ManyPersons:
        return "persons";
    case Content::FewPostings:
        return "postings_few";
    case Content::ManyOfBoth:
        return "postings_of_50000";
    case Content::MostPostings:
        return "postings_most";
    case Content::ManyPostings:
        break;
    }
    return "postings";
}

void run(ado::Engine& engine, const std::string& text) {
    engine.prepare(text, true)->execute({});
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
    SqliteRivals(const fs::path& file, const fs::path& rawFile, bool durable)
        : file_(file), durable_(durable), raw_(raw_sqlite_open(rawFile.c_str(), durable ? 1 : 0)) {
        connection_.Open(open());
        kept_ = std::make_unique<KeptStatements>(raw_);
    }
    ~SqliteRivals() override {
        kept_.reset();
        raw_sqlite_close(raw_);
    }
    std::unique_ptr<ado::Engine> open() override { return ado::openSqlite(file_, {.durable = durable_}); }
    KeptStatements& kept() override { return *kept_; }
    raw_rows* read(const std::string& engineText, const int* keys, int keyCount) override {
        return raw_sqlite_read(raw_, engineText.c_str(), keys, keyCount);
    }
    void insertPosts(const std::string& engineText, int firstKey, int count) override {
        raw_sqlite_insert_posts(raw_, engineText.c_str(), firstKey, count);
    }

private:
    fs::path file_;
    bool durable_;
    sqlite3* raw_;
    std::unique_ptr<KeptStatements> kept_;
};

class PostgresRivals final : public Rivals {
public:
    explicit PostgresRivals(Content content) : database_(ado::EngineKind::Postgres) {
        connection_.Open(database_.open());
        fill(connection_.engine(), content);
        ado::Engine& engine = connection_.engine();
        run(engine, fmt::format("CREATE TABLE dbo.{} AS TABLE dbo.PersonsPost", plainTable));
        run(engine, fmt::format("CREATE INDEX ON dbo.{} (PersonID, ActivityDT)", plainTable));
        run(engine, "VACUUM ANALYZE");
        raw_ = raw_postgres_open(fmt::format("host={} dbname={} user={} options='-c search_path=dbo,public -c "
                                             "synchronous_commit=off'",
                                             database_.server(), database_.catalog(), test::serverUser)
                                     .c_str());
        kept_ = std::make_unique<KeptStatements>(raw_);
    }
    ~PostgresRivals() override {
        kept_.reset();
        raw_postgres_close(raw_);
        run(connection_.engine(), fmt::format("DROP TABLE dbo.{}", plainTable));
        connection_.Close();
    }
    std::unique_ptr<ado::Engine> open() override { return database_.open(); }
    KeptStatements& kept() override { return *kept_; }
    raw_rows* read(const std::string& engineText, const int* keys, int keyCount) override {
        return raw_postgres_read(raw_, engineText.c_str(), keys, keyCount);
    }
    void insertPosts(const std::string& engineText, int firstKey, int count) override {
        raw_postgres_insert_posts(raw_, engineText.c_str(), firstKey, count);
    }

private:
    test::TestDatabase database_;
    pg_conn* raw_ = nullptr;
    std::unique_ptr<KeptStatements> kept_;
};

} // namespace

fs::path databaseFile(Content content) {
    const fs::path file = dataFolder() / (nameOf(content) + ".mdb");
    if (!fs::exists(file))
        ado::createSqliteFile(file, [&](ado::Engine& engine) {
            korvandb::createTables(engine);
            fill(engine, content);
        });
    return file;
}

fs::path plainIndexFile(Content content) {
    const fs::path file = dataFolder() / (nameOf(content) + "_plain_index.mdb");
    if (fs::exists(file))
        return file;
    ado::backupInto(databaseFile(content), file);
    ado::Connection connection(ado::openSqlite(file));
    ado::RowStore names(1);
    connection.engine()
        .prepare("select name from sqlite_master where type = 'index' and tbl_name = 'PersonsPost' and sql is not null",
                 false)
        ->query({}, names);
    for (std::size_t row = 0; row < names.rows(); ++row)
        run(connection.engine(), fmt::format("DROP INDEX \"{}\"", names.textAt(row, 0)));
    run(connection.engine(), fmt::format("ALTER TABLE PersonsPost RENAME TO {}", plainTable));
    run(connection.engine(), fmt::format("CREATE INDEX PlainIndex ON {} (PersonID, ActivityDT)", plainTable));
    return file;
}

std::unique_ptr<Rivals> sqliteRivals(const fs::path& file, const fs::path& rawFile, bool durable) {
    return std::make_unique<SqliteRivals>(file, rawFile, durable);
}

std::unique_ptr<Rivals> postgresRivals(Content content) {
    return std::make_unique<PostgresRivals>(content);
}

} // namespace zel::bench
