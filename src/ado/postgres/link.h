#pragma once

#include "ado/postgres/open.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

struct pg_conn;
struct pg_result;

namespace zel::ado::postgres {

struct ResultDeleter {
    void operator()(pg_result* result) const noexcept;
};
using Result = std::unique_ptr<pg_result, ResultDeleter>;

/// One connection to the server, shared by an engine and its statements. Waits with the window alive, notices when the
/// connection is lost, and connects again at the next command; it never repeats what was sent.
class Link {
public:
    Link(const PostgresTarget& target, const PostgresOptions& options);
    ~Link();
    Link(const Link&) = delete;
    Link& operator=(const Link&) = delete;

    /// Statements that are still held fail from now on.
    void close() noexcept;
    [[nodiscard]] std::string description() const;
    void onWait(std::function<void()> idle) { idle_ = std::move(idle); }

    /// Connects again when the connection is gone. What was prepared is known by the number of the session it was
    /// prepared in.
    [[nodiscard]] std::uint64_t readySession();
    /// One request and its answer; `send` hands the request to the client library and gives its result.
    [[nodiscard]] Result roundTrip(const std::function<int(pg_conn*)>& send, bool writes, const std::string& statement);
    /// The name of a statement that nobody runs any more; the server forgets it with one of the next requests.
    void forget(std::string name, std::uint64_t session) noexcept;

    void begin();
    void commit();
    void rollback() noexcept;

private:
    struct ConnectionCloser {
        void operator()(pg_conn* connection) const noexcept;
    };
    void reconnect();
    void requireUsable() const;
    [[nodiscard]] bool lostMeanwhile();
    void forgetQueued();
    [[nodiscard]] Result answer(bool writes, const std::string& statement);
    void awaitAnswer(bool writes, const std::string& statement);
    void letWindowLive();
    [[noreturn]] void giveUp(bool writes, const std::string& detail, const std::string& statement);
    void command(const char* text, bool writes);

    std::unique_ptr<pg_conn, ConnectionCloser> connection_;
    std::function<void()> idle_;
    std::chrono::milliseconds answerLimit_;
    std::uint64_t session_ = 1;
    std::vector<std::string> forgotten_;
    bool waiting_ = false;
    bool broken_ = false;
    bool inTransaction_ = false;
    /// The connection was lost inside a transaction: nothing of it may run on as if it stood alone.
    bool transactionLost_ = false;
};

} // namespace zel::ado::postgres
