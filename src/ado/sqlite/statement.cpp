#include "ado/sqlite/statement.h"

#include "ado/error.h"
#include "ado/row_store.h"
#include "ado/sqlite/errors.h"
#include "ado/sqlite/link.h"
#include "ado/sqlite/values.h"

#include <sqlite3.h>

#include <algorithm>
#include <utility>

namespace zel::ado::sqlite {

namespace {

std::string textOrEmpty(const char* text) {
    return text == nullptr ? std::string() : std::string(text);
}

bool isBlank(std::string_view text) {
    return std::ranges::all_of(text,
                               [](char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == ';'; });
}

std::vector<CellReader> readersOf(std::span<const ResultColumn> columns, std::string_view text,
                                  const SqliteStatement::Tables& tables) {
    std::vector<CellReader> readers;
    for (const ResultColumn& column : columns)
        readers.push_back({.type = column.type});
    if (std::ranges::find(columns, ColumnType::Unknown, &ResultColumn::type) == columns.end())
        return readers;
    const std::vector<sql::ComputedKind> kinds = sql::computedKinds(text, tables());
    if (kinds.size() == readers.size())
        for (std::size_t i = 0; i < kinds.size(); ++i)
            readers[i].computed = kinds[i];
    return readers;
}

void refuse(const std::string& why, const std::string& text) {
    throw Error(ErrorKind::Statement, errors::errorsInCommand, why, text);
}

} // namespace

SqliteStatement::SqliteStatement(std::shared_ptr<Link> link, Tables tables, const std::string& text)
    : link_(std::move(link)), tables_(std::move(tables)) {
    link_->requireUsable();
    if (text.find('\0') != std::string::npos)
        refuse("A statement cannot hold the character NUL.", text);
    const char* tail = nullptr;
    const int code = sqlite3_prepare_v3(link_->database(), text.data(), static_cast<int>(text.size()),
                                        SQLITE_PREPARE_PERSISTENT, &statement_, &tail);
    if (code != SQLITE_OK)
        throw errorOf(link_->database(), sqlite3_extended_errcode(link_->database()), text);
    const bool second = !isBlank({tail, static_cast<std::size_t>(text.data() + text.size() - tail)});
    if (statement_ != nullptr && !second)
        return;
    sqlite3_finalize(statement_);
    refuse(second ? "Only one statement can be run at a time." : "The statement is empty.", text);
}

SqliteStatement::~SqliteStatement() {
    sqlite3_finalize(statement_);
}

/// Binds for one run, and leaves the statement reset and without the caller's texts however the run ends.
class SqliteStatement::Run {
public:
    Run(SqliteStatement& owner, std::span<const Value> parameters) : statement_(owner.statement_) {
        owner.link_->requireUsable();
        if (static_cast<std::size_t>(sqlite3_bind_parameter_count(statement_)) != parameters.size())
            throw Error(ErrorKind::Statement, errors::errorsInCommand,
                        "The statement does not have as many parameters as values.", sqlite3_sql(statement_));
        int index = 0;
        for (const Value& parameter : parameters) {
            const int code = bindValue(statement_, ++index, parameter);
            if (code != SQLITE_OK)
                throw errorOf(owner.link_->database(), code, sqlite3_sql(statement_));
        }
    }
    ~Run() {
        sqlite3_reset(statement_);
        sqlite3_clear_bindings(statement_);
    }
    Run(const Run&) = delete;
    Run& operator=(const Run&) = delete;

private:
    sqlite3_stmt* statement_;
};

bool SqliteStatement::step() {
    const int code = sqlite3_step(statement_);
    if (code == SQLITE_ROW)
        return true;
    if (code != SQLITE_DONE)
        throw errorOf(link_->database(), sqlite3_extended_errcode(link_->database()), sqlite3_sql(statement_));
    return false;
}

void SqliteStatement::readColumns() {
    link_->requireUsable();
    columns_.clear();
    const int count = sqlite3_column_count(statement_);
    for (int i = 0; i < count; ++i) {
        ResultColumn column;
        column.name = textOrEmpty(sqlite3_column_name(statement_, i));
        column.type = columnTypeOf(textOrEmpty(sqlite3_column_decltype(statement_, i)));
        column.baseTable = textOrEmpty(sqlite3_column_table_name(statement_, i));
        column.baseColumn = textOrEmpty(sqlite3_column_origin_name(statement_, i));
        columns_.push_back(std::move(column));
    }
    readers_ = readersOf(columns_, sqlite3_sql(statement_), tables_);
}

const std::vector<ResultColumn>& SqliteStatement::columns() {
    const int preparation = sqlite3_stmt_status(statement_, SQLITE_STMTSTATUS_REPREPARE, 0);
    if (preparation != columnsOfPreparation_) {
        readColumns();
        columnsOfPreparation_ = preparation;
    }
    return columns_;
}

std::int64_t SqliteStatement::execute(std::span<const Value> parameters) {
    const Run run(*this, parameters);
    const sqlite3_int64 before = sqlite3_total_changes64(link_->database());
    while (step()) {
    }
    return sqlite3_total_changes64(link_->database()) == before ? 0 : sqlite3_changes64(link_->database());
}

void SqliteStatement::query(std::span<const Value> parameters, RowStore& rows) {
    const Run run(*this, parameters);
    if (!step())
        return;
    const std::vector<ResultColumn>& described = columns();
    if (described.size() != rows.columns())
        throw Error(ErrorKind::State, errors::errorsInCommand, "The table has changed; please refresh.",
                    sqlite3_sql(statement_));
    const int count = static_cast<int>(described.size());
    do {
        for (int i = 0; i < count; ++i)
            addCell(statement_, i, readers_[static_cast<std::size_t>(i)], rows);
    } while (step());
}

} // namespace zel::ado::sqlite
