#include "../engines/engine_fixture.h"

#include "ado/postgres/open.h"
#include "support/postgres_server.h"
#include "support/run_folder.h"

#include <fmt/format.h>

#include <unistd.h>

#include <chrono>
#include <optional>

namespace zel::ado {
namespace {

using namespace std::chrono_literals;
using testing::HasSubstr;

constexpr const char* slowWrite = "UPDATE NextNumbers SET NextNumber = NextNumber + 1 WHERE pg_sleep(30) IS NOT NULL";

/// The server ends the engine's session, as an administrator or a broken line does.
class LostSessionTest : public testing::Test {
protected:
    void SetUp() override {
        run(*engine_, "INSERT INTO NextNumbers (TableName, NextNumber) VALUES ('Spare', 1)");
        session_ = one(*engine_, "SELECT pg_backend_pid()");
    }
    [[nodiscard]] Engine& engine() { return *engine_; }
    /// Ends the session while its next statement runs.
    void endMeanwhile() {
        engine_->onWait([this] {
            if (session_)
                one(*other_, "SELECT pg_terminate_backend(?)", {*std::exchange(session_, {})});
        });
    }
    /// Ends the session between two statements, and waits until it is gone.
    void endNow() { one(*other_, "SELECT pg_terminate_backend(?, 5000)", {*std::exchange(session_, {})}); }
    [[nodiscard]] Value spareNumber() {
        return one(*other_, "SELECT NextNumber FROM NextNumbers WHERE TableName = 'Spare'");
    }

private:
    test::TestDatabase database_{EngineKind::Postgres};
    std::unique_ptr<Engine> engine_ = database_.open(), other_ = database_.open();
    std::optional<Value> session_;
};

TEST_F(LostSessionTest, DuringAWriteTheOutcomeIsUnknown) {
    endMeanwhile();
    const Error error = errorFrom([&] { run(engine(), slowWrite); });
    EXPECT_EQ(error.kind(), ErrorKind::UnknownOutcome);
    EXPECT_THAT(error.description(), HasSubstr("not known whether the change was made"));
    EXPECT_EQ(error.statement(), slowWrite);
    EXPECT_EQ(spareNumber(), Value(1)) << "nothing may be repeated";
}

TEST_F(LostSessionTest, DuringAReadNothingHappened) {
    endMeanwhile();
    const Error error = errorFrom([&] {
        RowStore rows(1);
        engine().prepare("SELECT pg_sleep(30)", false)->query({}, rows);
    });
    EXPECT_EQ(error.kind(), ErrorKind::Lost);
}

TEST_F(LostSessionTest, TheNextCommandConnectsAgain) {
    endMeanwhile();
    EXPECT_EQ(errorFrom([&] { run(engine(), slowWrite); }).kind(), ErrorKind::UnknownOutcome);
    EXPECT_EQ(run(engine(), "UPDATE NextNumbers SET NextNumber = 5 WHERE TableName = 'Spare'"), 1);
    EXPECT_EQ(spareNumber(), Value(5));
}

TEST_F(LostSessionTest, BetweenStatementsNobodyNotices) {
    endNow();
    EXPECT_EQ(run(engine(), "UPDATE NextNumbers SET NextNumber = 7 WHERE TableName = 'Spare'"), 1);
    EXPECT_EQ(spareNumber(), Value(7));
}

TEST_F(LostSessionTest, PreparedStatementsArePreparedAgain) {
    const auto write = engine().prepare("UPDATE NextNumbers SET NextNumber = NextNumber + 1", true);
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(write->execute({}), 1);
    endNow();
    EXPECT_EQ(write->execute({}), 1);
    EXPECT_EQ(spareNumber(), Value(5));
}

TEST_F(LostSessionTest, PreparedStatementsThatTheServerForgotArePreparedAgain) {
    const auto write = engine().prepare("UPDATE NextNumbers SET NextNumber = NextNumber + 1", true);
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(write->execute({}), 1);
    run(engine(), "DEALLOCATE ALL");
    EXPECT_EQ(write->execute({}), 1);
    EXPECT_EQ(spareNumber(), Value(5));
}

TEST_F(LostSessionTest, ATransactionDoesNotGoOnAsSingleStatements) {
    engine().begin();
    run(engine(), "UPDATE NextNumbers SET NextNumber = 8");
    endNow();
    const auto write = [&] { run(engine(), "UPDATE NextNumbers SET NextNumber = NextNumber + 1"); };
    EXPECT_EQ(errorFrom(write).kind(), ErrorKind::Lost);
    EXPECT_EQ(errorFrom(write).kind(), ErrorKind::Lost);
    EXPECT_EQ(errorFrom([&] { engine().commit(); }).kind(), ErrorKind::Lost);
    EXPECT_EQ(spareNumber(), Value(1));
    engine().rollback();
    EXPECT_NO_THROW(write());
    EXPECT_EQ(spareNumber(), Value(2));
}

TEST_F(LostSessionTest, AWriteInsideATransactionIsNotInDoubt) {
    engine().begin();
    endMeanwhile();
    EXPECT_EQ(errorFrom([&] { run(engine(), slowWrite); }).kind(), ErrorKind::Lost);
    engine().rollback();
    EXPECT_EQ(run(engine(), "UPDATE NextNumbers SET NextNumber = 3"), 1);
}

/// A server of the test's own, which may be stopped.
class StoppedServerTest : public testing::Test {
protected:
    [[nodiscard]] std::unique_ptr<Engine> open(const PostgresOptions& options = {}) {
        return openPostgres({server_.socketFolder().string(), "postgres", test::serverUser, {}}, options);
    }
    [[nodiscard]] test::PostgresServer& server() noexcept { return server_; }

private:
    test::PostgresServer server_{test::runFolder() / fmt::format("own_server_{}", ::getpid())};
};

TEST_F(StoppedServerTest, KilledDuringAWriteItLeavesTheOutcomeUnknown) {
    const auto engine = open();
    run(*engine, "SET synchronous_commit = on");
    run(*engine, "CREATE TABLE Spare (A integer)");
    run(*engine, "INSERT INTO Spare VALUES (1)");
    bool running = true;
    engine->onWait([&] {
        if (std::exchange(running, false))
            server().kill();
    });
    const Error error = errorFrom([&] { run(*engine, "UPDATE Spare SET A = 2 WHERE pg_sleep(30) IS NOT NULL"); });
    EXPECT_EQ(error.kind(), ErrorKind::UnknownOutcome);
    const Error down = errorFrom([&] { run(*engine, "UPDATE Spare SET A = 3"); });
    EXPECT_EQ(down.kind(), ErrorKind::Open) << "nothing was sent";
    server().start();
    EXPECT_EQ(one(*engine, "SELECT A FROM Spare"), Value(1));
    EXPECT_EQ(run(*engine, "UPDATE Spare SET A = 3"), 1);
}

TEST_F(StoppedServerTest, AServerThatAnswersNothingIsGivenUp) {
    const auto engine = open({.statementLimit = 300ms, .connectLimit = 2s});
    run(*engine, "CREATE TABLE Spare (A integer)");
    bool suspended = false;
    engine->onWait([&] {
        if (!std::exchange(suspended, true))
            server().suspend(true);
    });
    const auto since = std::chrono::steady_clock::now();
    EXPECT_EQ(errorFrom([&] { run(*engine, "INSERT INTO Spare SELECT 1 WHERE pg_sleep(30) IS NOT NULL"); }).kind(),
              ErrorKind::UnknownOutcome);
    EXPECT_LT(std::chrono::steady_clock::now() - since, 5s);
    server().suspend(false);
    EXPECT_EQ(run(*engine, "INSERT INTO Spare VALUES (2)"), 1);
}

} // namespace
} // namespace zel::ado
