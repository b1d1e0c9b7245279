#include "ado/postgres/link.h"

#include "ado/error.h"
#include "ado/postgres/errors.h"

#include <libpq-fe.h>

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <poll.h>
#include <utility>

namespace zel::ado::postgres {

namespace {

using namespace std::chrono_literals;

struct Host {
    std::string name, port;
};

/// "host", "host:port", "[::1]:5432", "/socket/folder:5433". A bare IPv6 address has several colons and no port.
Host hostOf(std::string_view server) {
    const std::size_t colon = server.rfind(':');
    if (server.starts_with('[')) {
        const std::size_t end = server.find(']');
        const bool port = end != std::string_view::npos && colon == end + 1;
        return {std::string(server.substr(1, end - 1)), port ? std::string(server.substr(colon + 1)) : std::string()};
    }
    if (colon == std::string_view::npos || (!server.starts_with('/') && server.find(':') != colon))
        return {std::string(server), {}};
    const std::string_view port = server.substr(colon + 1);
    const bool digits = !port.empty() && std::ranges::all_of(port, [](char c) { return c >= '0' && c <= '9'; });
    return digits ? Host{std::string(server.substr(0, colon)), std::string(port)} : Host{std::string(server), {}};
}

std::string sessionSettings(const PostgresOptions& options) {
    return fmt::format("-c DateStyle=ISO,MDY -c search_path=dbo,public -c standard_conforming_strings=on "
                       "-c lock_timeout={} -c statement_timeout={} -c client_min_messages=error "
                       "-c extra_float_digits=1 -c bytea_output=hex -c TimeZone=UTC",
                       options.patience.count(), options.statementLimit.count());
}

struct Parameters {
    void add(const char* keyword, const std::string& value) {
        if (value.empty())
            return;
        keywords.push_back(keyword);
        values.push_back(value);
    }
    std::vector<const char*> keywords;
    std::vector<std::string> values;
};

pg_conn* connect(const PostgresTarget& target, const PostgresOptions& options) {
    const Host host = hostOf(target.server);
    Parameters parameters;
    parameters.add("host", host.name);
    parameters.add("port", host.port);
    parameters.add("dbname", target.catalog);
    parameters.add("user", target.user);
    parameters.add("password", target.password);
    parameters.add("client_encoding", "UTF8");
    parameters.add("application_name", "ZEL");
    parameters.add("connect_timeout", std::to_string(options.connectLimit.count()));
    parameters.add("keepalives_idle", "20");
    parameters.add("keepalives_interval", "5");
    parameters.add("keepalives_count", "4");
    parameters.add("tcp_user_timeout", "40000");
    parameters.add("options", sessionSettings(options));
    std::vector<const char*> values;
    for (const std::string& value : parameters.values)
        values.push_back(value.c_str());
    parameters.keywords.push_back(nullptr);
    values.push_back(nullptr);
    return PQconnectdbParams(parameters.keywords.data(), values.data(), 0);
}

/// Notices are for nobody, but for the one with which the server ends the session.
void takeNotice(void* ended, const PGresult* notice) {
    const char* severity = PQresultErrorField(notice, PG_DIAG_SEVERITY_NONLOCALIZED);
    if (severity != nullptr && std::string_view(severity) == "FATAL")
        *static_cast<bool*>(ended) = true;
}

} // namespace

void ResultDeleter::operator()(pg_result* result) const noexcept {
    PQclear(result);
}

void Link::ConnectionCloser::operator()(pg_conn* connection) const noexcept {
    PQfinish(connection);
}

Link::Link(const PostgresTarget& target, const PostgresOptions& options)
    : connection_(connect(target, options)),
      answerLimit_(options.statementLimit + std::min<std::chrono::milliseconds>(options.statementLimit, 5s)) {
    if (PQstatus(connection_.get()) != CONNECTION_OK)
        throw openErrorOf(connection_.get());
    PQsetNoticeReceiver(connection_.get(), takeNotice, &broken_);
}

Link::~Link() = default;

void Link::close() noexcept {
    connection_.reset();
}

std::string Link::description() const {
    const char* port = PQport(connection_.get());
    return fmt::format("Data Source={}{}{};Initial Catalog={};User ID={}", PQhost(connection_.get()),
                       *port == '\0' ? "" : ":", port, PQdb(connection_.get()), PQuser(connection_.get()));
}

void Link::requireUsable() const {
    if (!connection_)
        throw Error(ErrorKind::State, errors::objectClosed, "Operation is not allowed when the object is closed.");
    if (waiting_)
        throw Error(ErrorKind::Busy, errors::failed,
                    "The database is in use by another user; a statement is still waiting for it.");
    if (transactionLost_)
        throw lostError(false, "the transaction is gone", {});
}

/// Whether the server has closed the connection since the last answer. Nothing has been sent yet, so connecting again
/// is safe.
bool Link::lostMeanwhile() {
    if (broken_ || PQstatus(connection_.get()) != CONNECTION_OK)
        return true;
    // What came unasked is a farewell, followed by the end of the line, or a message to all.
    pollfd readable{PQsocket(connection_.get()), POLLIN, 0};
    while (poll(&readable, 1, 0) > 0) {
        if (PQconsumeInput(connection_.get()) == 0)
            return true;
        while (PGnotify* notice = PQnotifies(connection_.get()))
            PQfreemem(notice);
        if (broken_)
            return true;
    }
    return PQstatus(connection_.get()) != CONNECTION_OK;
}

void Link::reconnect() {
    forgotten_.clear();
    ++session_;
    PQreset(connection_.get());
    broken_ = PQstatus(connection_.get()) != CONNECTION_OK;
    if (broken_)
        throw openErrorOf(connection_.get());
}

std::uint64_t Link::readySession() {
    requireUsable();
    if (!lostMeanwhile())
        return session_;
    if (inTransaction_) {
        broken_ = transactionLost_ = true;
        throw lostError(false, "the transaction is gone", {});
    }
    reconnect();
    return session_;
}

Result Link::roundTrip(const std::function<int(pg_conn*)>& send, bool writes, const std::string& statement) {
    static_cast<void>(readySession());
    forgetQueued();
    // Inside a transaction nothing stands before its end, so a loss is never in doubt.
    const bool inDoubt = writes && !inTransaction_;
    if (send(connection_.get()) == 0)
        giveUp(inDoubt, PQerrorMessage(connection_.get()), statement);
    return answer(inDoubt, statement);
}

Result Link::answer(bool writes, const std::string& statement) {
    Result last;
    for (;;) {
        awaitAnswer(writes, statement);
        Result next(PQgetResult(connection_.get()));
        if (!next)
            break;
        const ExecStatusType status = PQresultStatus(next.get());
        if (status == PGRES_COPY_IN || status == PGRES_COPY_OUT || status == PGRES_COPY_BOTH) {
            broken_ = true;
            transactionLost_ = inTransaction_;
            throw Error(ErrorKind::Statement, errors::errorsInCommand, "COPY cannot be run here.", statement);
        }
        last = std::move(next);
    }
    if (!last || PQstatus(connection_.get()) != CONNECTION_OK || meansLost(last.get()))
        giveUp(writes, last ? PQresultErrorMessage(last.get()) : PQerrorMessage(connection_.get()), statement);
    return last;
}

void Link::awaitAnswer(bool writes, const std::string& statement) {
    const auto since = std::chrono::steady_clock::now();
    while (PQisBusy(connection_.get()) != 0) {
        pollfd readable{PQsocket(connection_.get()), POLLIN, 0};
        if (poll(&readable, 1, 50) > 0) {
            if (PQconsumeInput(connection_.get()) == 0)
                giveUp(writes, PQerrorMessage(connection_.get()), statement);
            continue;
        }
        letWindowLive();
        if (answerLimit_ > 0ms && std::chrono::steady_clock::now() - since > answerLimit_)
            giveUp(writes, "the server does not answer", statement);
    }
}

void Link::letWindowLive() {
    if (!idle_)
        return;
    waiting_ = true;
    try {
        idle_();
    } catch (...) {
        waiting_ = false;
        broken_ = true; // the answer of the statement would be taken for the next one's
        throw;
    }
    waiting_ = false;
}

void Link::giveUp(bool writes, const std::string& detail, const std::string& statement) {
    broken_ = true;
    transactionLost_ = inTransaction_;
    throw lostError(writes, detail, statement);
}

void Link::forget(std::string name, std::uint64_t session) noexcept {
    if (connection_ && session == session_)
        forgotten_.push_back(std::move(name));
}

void Link::forgetQueued() {
    if (forgotten_.size() < 16 || PQtransactionStatus(connection_.get()) == PQTRANS_INERROR)
        return;
    for (const std::string& name : std::exchange(forgotten_, {})) {
        const std::string text = "DEALLOCATE " + name;
        if (PQsendQuery(connection_.get(), text.c_str()) == 0)
            giveUp(false, PQerrorMessage(connection_.get()), {});
        static_cast<void>(answer(false, text));
    }
}

void Link::command(const char* text, bool writes) {
    const Result result = roundTrip([text](pg_conn* c) { return PQsendQuery(c, text); }, writes, text);
    if (PQresultStatus(result.get()) != PGRES_COMMAND_OK)
        throw errorOf(result.get(), text);
}

void Link::begin() {
    command("BEGIN", false);
    inTransaction_ = true;
}

void Link::commit() {
    requireUsable();
    const bool failed = PQtransactionStatus(connection_.get()) == PQTRANS_INERROR;
    if (lostMeanwhile()) {
        transactionLost_ = true;
        throw lostError(false, "the transaction is gone", "COMMIT");
    }
    // From here on the outcome hangs on the server's answer.
    inTransaction_ = false;
    command(failed ? "ROLLBACK" : "COMMIT", !failed);
    if (failed)
        throw Error(ErrorKind::Statement, errors::failed,
                    "A statement of the transaction failed; nothing was written.");
}

void Link::rollback() noexcept {
    const bool lost = std::exchange(transactionLost_, false);
    const bool running = std::exchange(inTransaction_, false);
    if (!connection_ || lost || !running)
        return;
    try {
        command("ROLLBACK", false);
    } catch (const Error&) {
        broken_ = true; // the server ends the transaction with the connection
    }
}

} // namespace zel::ado::postgres
