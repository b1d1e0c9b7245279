#include "ado/postgres/statement.h"

#include "ado/error.h"
#include "ado/postgres/catalog_reader.h"
#include "ado/postgres/errors.h"
#include "ado/row_store.h"

#include <libpq-fe.h>

#include <atomic>
#include <charconv>
#include <utility>

namespace zel::ado::postgres {

namespace {

std::string nextName() {
    static std::atomic<std::uint64_t> last{0};
    return "zel_" + std::to_string(++last);
}

bool isAnswer(const PGresult* result) {
    const ExecStatusType status = PQresultStatus(result);
    return status == PGRES_COMMAND_OK || status == PGRES_TUPLES_OK;
}

/// The server dropped what was prepared, or a table changed under it. It says so before anything is done, so preparing
/// again repeats nothing.
bool mustPrepareAgain(const PGresult* result) {
    const std::string state = sqlState(result);
    return state == "26000" || (state == "0A000" && PQresultErrorField(result, PG_DIAG_SOURCE_FUNCTION) ==
                                                        std::string_view("RevalidateCachedQuery"));
}

std::int64_t rowsWritten(PGresult* result) {
    const std::string_view count = PQcmdTuples(result);
    std::int64_t rows = 0;
    std::from_chars(count.data(), count.data() + count.size(), rows);
    return PQresultStatus(result) == PGRES_COMMAND_OK || PQntuples(result) == 0 ? rows : 0;
}

} // namespace

PostgresStatement::PostgresStatement(std::shared_ptr<Link> link, Tables tables, std::string text, bool writes)
    : link_(std::move(link)), tables_(std::move(tables)), text_(std::move(text)), writes_(writes), name_(nextName()) {
    if (text_.find('\0') != std::string::npos)
        throw Error(ErrorKind::Statement, errors::errorsInCommand, "A statement cannot hold the character NUL.", text_);
}

PostgresStatement::~PostgresStatement() {
    if (isPrepared())
        link_->forget(name_, preparedIn_);
}

void PostgresStatement::prepareNow() {
    const std::uint64_t session = link_->readySession();
    if (preparedIn_ == session)
        return;
    const Result result = link_->roundTrip(
        [&](PGconn* c) { return PQsendPrepare(c, name_.c_str(), text_.c_str(), 0, nullptr); }, false, text_);
    if (!isAnswer(result.get()))
        throw errorOf(result.get(), text_);
    preparedIn_ = session;
}

const std::vector<ResultColumn>& PostgresStatement::columns() {
    if (described_)
        return columns_;
    prepareNow();
    const Result result =
        link_->roundTrip([&](PGconn* c) { return PQsendDescribePrepared(c, name_.c_str()); }, false, text_);
    if (!isAnswer(result.get()))
        throw errorOf(result.get(), text_);
    readColumns(result.get());
    return columns_;
}

void PostgresStatement::readColumns(const pg_result* result) {
    const int count = PQnfields(result);
    std::vector<ResultColumn> columns(static_cast<std::size_t>(count));
    std::vector<CellReader> readers(columns.size());
    for (int i = 0; i < count; ++i) {
        ResultColumn& column = columns[static_cast<std::size_t>(i)];
        const Oid table = PQftable(result, i);
        CellReader& reader = readers[static_cast<std::size_t>(i)];
        reader = cellReaderOf(PQftype(result, i), PQfmod(result, i), table == InvalidOid);
        column.name = PQfname(result, i);
        column.type = reader.freeNumber ? ColumnType::Unknown : reader.type;
        // Tables of the server's own have the numbers below 16384; asking for ours to describe them would not end.
        if (table < 16'384)
            continue;
        const auto& known = tables_().byNumber;
        const auto found = known.find(table);
        if (found == known.end() || found->second.isView)
            continue;
        const auto name = found->second.columns.find(PQftablecol(result, i));
        if (name == found->second.columns.end())
            continue;
        column.baseTable = found->second.name;
        column.baseColumn = name->second.name;
        if (column.name == column.baseColumn && !name->second.spelling.empty())
            column.name = name->second.spelling;
    }
    columns_ = std::move(columns);
    readers_ = std::move(readers);
    described_ = true;
}

Result PostgresStatement::sendOnce(const ParameterTexts& parameters) {
    return link_->roundTrip(
        [&](PGconn* c) {
            return PQsendQueryParams(c, text_.c_str(), parameters.count(), nullptr, parameters.data(), nullptr, nullptr,
                                     0);
        },
        writes_, text_);
}

Result PostgresStatement::sendPrepared(const ParameterTexts& parameters) {
    return link_->roundTrip(
        [&](PGconn* c) {
            return PQsendQueryPrepared(c, name_.c_str(), parameters.count(), parameters.data(), nullptr, nullptr, 0);
        },
        writes_, text_);
}

Result PostgresStatement::run(std::span<const Value> parameters) {
    const ParameterTexts texts(parameters);
    Result result;
    if (!isPrepared() && !std::exchange(ranOnce_, true)) {
        result = sendOnce(texts);
    } else {
        prepareNow();
        result = sendPrepared(texts);
        if (mustPrepareAgain(result.get())) {
            link_->forget(std::exchange(name_, nextName()), std::exchange(preparedIn_, 0));
            described_ = false;
            prepareNow();
            result = sendPrepared(texts);
        }
    }
    if (!isAnswer(result.get()))
        throw errorOf(result.get(), text_);
    return result;
}

std::int64_t PostgresStatement::execute(std::span<const Value> parameters) {
    return rowsWritten(run(parameters).get());
}

void PostgresStatement::query(std::span<const Value> parameters, RowStore& rows) {
    const Result result = run(parameters);
    if (!described_)
        readColumns(result.get());
    const int count = PQnfields(result.get());
    if (static_cast<std::size_t>(count) != rows.columns())
        throw Error(ErrorKind::State, errors::errorsInCommand, "The table has changed; please refresh.", text_);
    const int last = PQntuples(result.get());
    rows.reserveRows(rows.rows() + static_cast<std::size_t>(last));
    for (int row = 0; row < last; ++row) {
        for (int i = 0; i < count; ++i) {
            if (PQgetisnull(result.get(), row, i) != 0)
                rows.addNull();
            else
                addCell({PQgetvalue(result.get(), row, i), static_cast<std::size_t>(PQgetlength(result.get(), row, i))},
                        readers_[static_cast<std::size_t>(i)], rows);
        }
    }
}

} // namespace zel::ado::postgres
