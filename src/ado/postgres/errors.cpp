#include "ado/postgres/errors.h"

#include "ado/convert.h"

#include <libpq-fe.h>

#include <array>
#include <string_view>

namespace zel::ado::postgres {

namespace {

struct Rule {
    std::string_view state; // the whole SQLSTATE, or its class of two
    ErrorKind kind;
    std::int32_t number;
    std::string_view words; // in front of the server's own
};

constexpr std::string_view inUse = "The database is in use by another user. Nothing was done; please try again.";
constexpr std::string_view noFit = "A value does not fit its column: ";

/// The first that fits counts.
constexpr std::array<Rule, 18> rules{{
    {"23514", ErrorKind::Conversion, errors::errorsOccurred, noFit},
    {"23", ErrorKind::Constraint, errors::failed, "The row was refused, because it would duplicate or lack a value: "},
    {"22", ErrorKind::Conversion, errors::errorsOccurred, noFit},
    {"25006", ErrorKind::ReadOnly, errors::failed, "The database is read-only. Nothing was written: "},
    {"42501", ErrorKind::ReadOnly, errors::failed, "The database user may not do this: "},
    {"42P01", ErrorKind::Statement, errors::noSuchTable, ""},
    {"42", ErrorKind::Statement, errors::errorsInCommand, ""},
    {"0A", ErrorKind::Statement, errors::errorsInCommand, ""},
    {"08P01", ErrorKind::Statement, errors::errorsInCommand, ""},
    {"53100", ErrorKind::Engine, errors::failed, "The disk is full. Nothing was written: "},
    {"55P03", ErrorKind::Busy, errors::failed, inUse},
    {"55006", ErrorKind::Busy, errors::failed, inUse},
    {"40P01", ErrorKind::Busy, errors::failed, inUse},
    {"40001", ErrorKind::Busy, errors::failed, inUse},
    {"57014", ErrorKind::Busy, errors::failed,
     "The server took too long, so the statement was given up. Nothing was done: "},
    {"28", ErrorKind::Open, errors::loginFailed, "Login failed: "},
    {"25", ErrorKind::State, errors::failed, "The database failed: "},
    {"", ErrorKind::Engine, errors::failed, "The database failed: "},
}};

std::string field(const PGresult* result, int code) {
    const char* text = PQresultErrorField(result, code);
    return text == nullptr ? std::string() : std::string(text);
}

/// The first line of what the client library says.
std::string firstLine(std::string_view message) {
    return std::string(trim(message.substr(0, message.find('\n'))));
}

} // namespace

std::string sqlState(const pg_result* result) {
    return field(result, PG_DIAG_SQLSTATE);
}

bool meansLost(const pg_result* result) {
    const std::string state = sqlState(result);
    return state == "57P01" || state == "57P02" || state == "57P03" || state == "57P05" || state == "25P03" ||
           (state.starts_with("08") && state != "08P01");
}

Error errorOf(const pg_result* result, const std::string& statement) {
    const std::string state = sqlState(result);
    std::string detail = field(result, PG_DIAG_MESSAGE_PRIMARY);
    if (detail.empty())
        detail = firstLine(PQresultErrorMessage(result));
    for (const Rule& rule : rules)
        if (state.starts_with(rule.state))
            return {rule.kind, rule.number, rule.words == inUse ? std::string(inUse) : std::string(rule.words) + detail,
                    statement};
    return {ErrorKind::Engine, errors::failed, detail, statement};
}

Error openErrorOf(const pg_conn* connection) {
    const std::string detail = firstLine(PQerrorMessage(connection));
    const bool refused = PQconnectionNeedsPassword(connection) != 0 ||
                         detail.find("authentication failed") != std::string::npos ||
                         detail.find("no pg_hba.conf entry") != std::string::npos;
    return {ErrorKind::Open, refused ? errors::loginFailed : errors::failed,
            "The database server could not be reached or refused: " + detail};
}

Error lostError(bool writing, const std::string& detail, const std::string& statement) {
    const std::string why = detail.empty() ? std::string() : " (" + firstLine(detail) + ")";
    if (writing)
        return {ErrorKind::UnknownOutcome, errors::failed,
                "The connection to the database server was lost while a change was being written. It is not known "
                "whether the change was made: please look before it is entered again." +
                    why,
                statement};
    return {ErrorKind::Lost, errors::failed,
            "The connection to the database server was lost. Nothing was changed; the next command connects again." +
                why,
            statement};
}

} // namespace zel::ado::postgres
