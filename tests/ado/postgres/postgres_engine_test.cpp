#include "../engines/engine_fixture.h"

#include "ado/postgres/create.h"
#include "ado/postgres/open.h"
#include "ado/postgres/values.h"
#include "support/postgres_slot.h"

#include <fmt/format.h>

#include <unistd.h>

#include <chrono>

namespace zel::ado {
namespace {

using namespace std::chrono_literals;
using testing::HasSubstr;
using testing::Not;

class PostgresEngineTest : public testing::Test {
protected:
    [[nodiscard]] test::TestDatabase& database() noexcept { return database_; }
    [[nodiscard]] Engine& engine() { return *engine_; }
    [[nodiscard]] std::unique_ptr<Engine> openAs(const std::string& user, const std::string& password) {
        return openPostgres({database_.server(), database_.catalog(), user, password});
    }
    [[nodiscard]] Error whyNot(const PostgresTarget& target) {
        return errorFrom([&] { static_cast<void>(openPostgres(target, {.connectLimit = 3s})); });
    }
    /// The user whose logins need a password. Users belong to the server, so other tests may have made it already.
    void makeClerk() {
        run(engine(), "DO $$ BEGIN CREATE ROLE clerk LOGIN PASSWORD 'open sesame'; "
                      "EXCEPTION WHEN duplicate_object OR unique_violation THEN NULL; END $$");
    }

private:
    test::TestDatabase database_{EngineKind::Postgres};
    std::unique_ptr<Engine> engine_ = database_.open();
};

TEST_F(PostgresEngineTest, TheSessionSpeaksUsDatesAndUtf8) {
    EXPECT_EQ(one(engine(), "SHOW DateStyle"), Value("ISO, MDY"));
    EXPECT_EQ(one(engine(), "SHOW client_encoding"), Value("UTF8"));
    EXPECT_EQ(one(engine(), "SHOW search_path"), Value("dbo,public"));
}

TEST_F(PostgresEngineTest, TheRightPasswordOpensAndIsNeverShown) {
    makeClerk();
    const auto clerk = openAs("clerk", "open sesame");
    EXPECT_THAT(clerk->connectionText(), HasSubstr("User ID=clerk"));
    EXPECT_THAT(clerk->connectionText(), Not(HasSubstr("sesame")));
}

TEST_F(PostgresEngineTest, AWrongPasswordIsALoginThatFailed) {
    makeClerk();
    const Error error = errorFrom([&] { static_cast<void>(openAs("clerk", "close sesame")); });
    EXPECT_EQ(error.kind(), ErrorKind::Open);
    EXPECT_EQ(error.number(), errors::loginFailed);
    EXPECT_THAT(error.description(), Not(HasSubstr("sesame")));
}

TEST_F(PostgresEngineTest, AUserWithoutRightsMayNotWrite) {
    makeClerk();
    run(engine(), "GRANT USAGE ON SCHEMA dbo TO clerk");
    run(engine(), "GRANT SELECT ON Version TO clerk");
    const auto clerk = openAs("clerk", "open sesame");
    EXPECT_EQ(errorFrom([&] { run(*clerk, "DELETE FROM Version"); }).kind(), ErrorKind::ReadOnly);
}

TEST_F(PostgresEngineTest, AReadOnlyDatabaseSaysSo) {
    run(engine(), "SET default_transaction_read_only = on");
    const Error error = errorFrom([&] { run(engine(), "DELETE FROM Version"); });
    EXPECT_EQ(error.kind(), ErrorKind::ReadOnly);
    EXPECT_THAT(error.description(), HasSubstr("read-only"));
}

TEST_F(PostgresEngineTest, ASocketFolderTakesAPort) {
    const PostgresTarget target{database().server() + ":5432", database().catalog(), test::serverUser, {}};
    EXPECT_EQ(one(*openPostgres(target), "SELECT 1"), Value(1));
    EXPECT_EQ(whyNot({database().server() + ":5499", database().catalog(), test::serverUser, {}}).kind(),
              ErrorKind::Open);
}

TEST_F(PostgresEngineTest, WhatIsNotThereCannotBeOpened) {
    EXPECT_THAT(whyNot({database().server(), "no such catalog", test::serverUser, {}}).description(),
                HasSubstr("no such catalog"));
    EXPECT_EQ(whyNot({"127.0.0.1:1", "korvan", test::serverUser, {}}).kind(), ErrorKind::Open);
    EXPECT_EQ(whyNot({"[::1]:1", "korvan", test::serverUser, {}}).kind(), ErrorKind::Open);
    EXPECT_EQ(whyNot({"/no/such/folder", "korvan", test::serverUser, {}}).kind(), ErrorKind::Open);
}

TEST_F(PostgresEngineTest, ValuesThatDoNotFitTheirColumnAreRefused) {
    for (const Value& value : {Value("abc"), Value(3'000'000'000), Value(1.5)}) {
        const Error error = errorFrom([&] { run(engine(), "INSERT INTO Incidents (IncidentID) VALUES (?)", {value}); });
        EXPECT_EQ(error.kind(), ErrorKind::Conversion);
        EXPECT_EQ(error.number(), errors::errorsOccurred);
    }
    EXPECT_EQ(
        errorFrom([&] { run(engine(), "INSERT INTO Resources (ResourceID, Name) VALUES (1, ?)", {"\xFF"}); }).kind(),
        ErrorKind::Conversion);
}

TEST_F(PostgresEngineTest, AStatementThatTakesTooLongIsGivenUp) {
    const auto hasty =
        openPostgres({database().server(), database().catalog(), test::serverUser, {}}, {.statementLimit = 200ms});
    EXPECT_THAT(errorFrom([&] { run(*hasty, "SELECT pg_sleep(30)"); }).description(), HasSubstr("too long"));
    EXPECT_EQ(one(*hasty, "SELECT 1"), Value(1));
}

TEST_F(PostgresEngineTest, CopyIsRefusedAndTheConnectionGoesOn) {
    EXPECT_EQ(errorFrom([&] { run(engine(), "COPY Version FROM STDIN"); }).kind(), ErrorKind::Statement);
    EXPECT_EQ(errorFrom([&] { run(engine(), "COPY Version TO STDOUT"); }).kind(), ErrorKind::Statement);
    EXPECT_EQ(one(engine(), "SELECT 1"), Value(1));
}

TEST_F(PostgresEngineTest, ManyStatementsComeAndGo) {
    for (int i = 0; i < 60; ++i) {
        const auto select = engine().prepare(fmt::format("SELECT {}", i), false);
        ASSERT_EQ(select->columns().size(), 1U);
    }
    EXPECT_LT(one(engine(), "SELECT count(*) FROM pg_prepared_statements").as<std::int64_t>(), 30);
}

TEST_F(PostgresEngineTest, OddNumbersKeepTheirKind) {
    EXPECT_THAT(firstRow(engine(), "SELECT 7::bigint, avg(n), true, 1.25::numeric, 12::numeric, 'NaN'::numeric::text "
                                   "FROM (VALUES (1), (2), (2)) AS t(n)"),
                testing::ElementsAre(Value(7), Value(1.6666666666666667), Value(true),
                                     Value(Currency::fromDecimal("1.25")), Value(12), Value("NaN")));
}

TEST(StoredTextTest, NulTravelsAsAPairAndBack) {
    const std::string nul(1, '\0'), last = "\xF4\x8F\xBF\xBF";
    EXPECT_EQ(postgres::storedText("a" + nul + "b"), "a" + last + "0b");
    EXPECT_EQ(postgres::storedText(last), last + "1");
    EXPECT_EQ(postgres::textFromStored(last + "0" + last + "1x"), nul + last + "x");
    EXPECT_FALSE(postgres::needsEncoding("plain \xF0\x9F\x94\xA5"));
}

class CreateDatabaseTest : public testing::Test {
protected:
    void TearDown() override { run(*server_, fmt::format("DROP DATABASE IF EXISTS {} WITH (FORCE)", target_.catalog)); }
    [[nodiscard]] const PostgresTarget& target() const noexcept { return target_; }
    [[nodiscard]] Value databases() {
        return one(*server_, fmt::format("SELECT count(*) FROM pg_database WHERE datname LIKE '{}%'", target_.catalog));
    }
    static void fill(Engine& engine) { run(engine, "CREATE TABLE First (A integer)"); }
    static void fail(Engine& engine) {
        fill(engine);
        run(engine, "CREATE NONSENSE");
    }

private:
    PostgresTarget target_{test::PostgresSlot::server(), fmt::format("made_{}", ::getpid()), test::serverUser, {}};
    std::unique_ptr<Engine> server_ = openPostgres({target_.server, "postgres", target_.user, {}});
};

TEST_F(CreateDatabaseTest, AnExistingDatabaseStays) {
    createPostgresDatabase(target(), fill);
    const Error error = errorFrom([&] { createPostgresDatabase(target(), fill); });
    EXPECT_EQ(error.kind(), ErrorKind::Open);
    EXPECT_THAT(error.description(), HasSubstr("exists already"));
    EXPECT_EQ(databases(), Value(1));
}

TEST_F(CreateDatabaseTest, AFailureLeavesNothingBehind) {
    EXPECT_THROW(createPostgresDatabase(target(), fail), Error);
    EXPECT_EQ(databases(), Value(0));
}

TEST_F(CreateDatabaseTest, AFailureLeavesTheOldDatabaseAsItWas) {
    createPostgresDatabase(target(), fill);
    EXPECT_THROW(createPostgresDatabase(target(), fail, true), Error);
    EXPECT_EQ(databases(), Value(1));
    EXPECT_NO_THROW(run(*openPostgres(target()), "SELECT A FROM First"));
}

TEST_F(CreateDatabaseTest, ReplacingMakesANewOne) {
    createPostgresDatabase(target(), fill);
    createPostgresDatabase(
        target(), [](Engine& engine) { run(engine, "CREATE TABLE Second (A integer)"); }, true);
    EXPECT_EQ(databases(), Value(1));
    EXPECT_EQ(errorFrom([&] { run(*openPostgres(target()), "SELECT A FROM First"); }).number(), errors::noSuchTable);
}

TEST_F(CreateDatabaseTest, ADatabaseThatOthersHaveOpenIsNotReplaced) {
    createPostgresDatabase(target(), fill);
    const auto clerk = openPostgres(target());
    EXPECT_EQ(errorFrom([&] { createPostgresDatabase(target(), fill, true); }).kind(), ErrorKind::Busy);
    EXPECT_NO_THROW(run(*clerk, "SELECT A FROM First"));
    EXPECT_EQ(databases(), Value(1));
}

TEST_F(CreateDatabaseTest, TextSortsByItsBytes) {
    createPostgresDatabase(target(), fill);
    EXPECT_EQ(one(*openPostgres(target()), "SELECT datcollate || ' ' || pg_encoding_to_char(encoding) FROM pg_database "
                                           "WHERE datname = current_database()"),
              Value("C UTF8"));
}

} // namespace
} // namespace zel::ado
