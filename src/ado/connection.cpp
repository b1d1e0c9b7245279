#include "ado/connection.h"

#include "ado/convert.h"
#include "ado/error.h"
#include "ado/sql/translator.h"
#include "ado/sql/value_break_out.h"

#include <fmt/format.h>

#include <list>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace zel::ado {

namespace {

/// Statements of this many shapes are kept; the screens together have fewer that repeat.
constexpr std::size_t keptStatements = 256;

/// Failures name the statement as it was composed, not as the engine got it.
template <typename Action>
auto namingStatement(const Sql& statement, Action&& action) {
    try {
        return action();
    } catch (const Error& failure) {
        throw Error(failure.kind(), failure.number(), failure.description(), statement.text());
    }
}

} // namespace

struct Connection::Cache {
    struct Entry {
        std::string engineText;
        std::shared_ptr<PreparedStatement> statement;
    };
    std::list<Entry> entries; // the one used last in front
    std::unordered_map<std::string_view, std::list<Entry>::iterator> byText;
    sql::Translator translator;

    explicit Cache(Engine& engine) : translator(engine.kind(), engine.catalog()) {}

    std::shared_ptr<PreparedStatement> get(Engine& engine, const std::string& engineText, bool writes) {
        if (const auto found = byText.find(engineText); found != byText.end()) {
            entries.splice(entries.begin(), entries, found->second);
            return entries.front().statement;
        }
        auto statement = engine.prepare(engineText, writes);
        entries.push_front({engineText, std::move(statement)});
        byText.emplace(entries.front().engineText, entries.begin());
        if (entries.size() > keptStatements) {
            byText.erase(entries.back().engineText);
            entries.pop_back();
        }
        return entries.front().statement;
    }
};

Connection::Connection() = default;

Connection::Connection(std::unique_ptr<Engine> engine) {
    Open(std::move(engine));
}

Connection::~Connection() {
    Close();
}

void Connection::Open(std::unique_ptr<Engine> engine) {
    if (engine_)
        throw Error(ErrorKind::State, errors::objectOpen, "Operation is not allowed when the object is open.");
    engine_ = std::move(engine);
}

void Connection::Close() {
    cache_.reset();
    engine_.reset();
}

std::string Connection::ConnectionString() const {
    return engine_ ? engine_->connectionText() : std::string();
}

Engine& Connection::engine() const {
    if (!engine_)
        throw Error(ErrorKind::State, errors::objectClosed, "Operation is not allowed when the object is closed.");
    return *engine_;
}

void Connection::onWait(std::function<void()> idle) {
    engine().onWait(std::move(idle));
}

std::int64_t Connection::Execute(const Sql& statement) {
    const Prepared prepared = prepare(statement);
    const std::int64_t rows =
        namingStatement(statement, [&] { return prepared.statement->execute(prepared.parameters); });
    // It may have made or changed tables: what was read of them and translated by it is no longer sure.
    if (prepared.translation->kind == sql::StatementKind::Other) {
        cache_.reset();
        engine().refreshCatalog();
    }
    return rows;
}

std::int32_t Connection::nextNumber(std::string_view table, std::string_view field) {
    Engine& open = engine();
    if (observer_)
        observer_(fmt::format("usp_getNextNumber '{}', '{}'", table, field));
    return open.nextNumber(table, field);
}

Connection::Prepared Connection::prepare(const Sql& statement) {
    Engine& open = engine();
    if (observer_)
        observer_(statement.text());
    thread_local sql::Tokens tokens; // for its room
    const sql::LexFault fault = sql::lex(statement.text(), tokens);
    if (valueBreaksOut(statement, tokens, fault))
        throw Error(
            ErrorKind::Statement, errors::errorsInCommand,
            "Syntax error in the statement: a value ends its own text early, as a quotation mark in a name does.",
            statement.text());
    if (!cache_)
        cache_ = std::make_unique<Cache>(open);
    return namingStatement(statement, [&]() -> Prepared {
        sql::Translated translated = cache_->translator.translate(tokens, fault);
        const bool writes = translated.shape->kind != sql::StatementKind::Select;
        auto prepared = cache_->get(open, translated.shape->engineText, writes);
        if (!writes)
            (void)prepared->columns(); // a server looks at the text only when it is asked for them
        return {std::move(prepared), translated.shape, std::move(translated.parameters)};
    });
}

std::shared_ptr<PreparedStatement> Connection::prepareNative(const std::string& engineText, bool writes) {
    Engine& open = engine();
    if (!cache_)
        cache_ = std::make_unique<Cache>(open);
    return cache_->get(open, engineText, writes);
}

} // namespace zel::ado
