#include "ado/postgres/engine.h"

#include "ado/key_numbers.h"
#include "ado/postgres/statement.h"

namespace zel::ado::postgres {

PostgresEngine::PostgresEngine(const PostgresTarget& target, const PostgresOptions& options)
    : link_(std::make_shared<Link>(target, options)) {}

PostgresEngine::~PostgresEngine() {
    moveNumber_.reset();
    link_->close();
}

const ServerTables& PostgresEngine::tables() {
    if (!tablesAreRead_)
        tables_ = readTables(*this);
    tablesAreRead_ = true;
    return tables_;
}

std::shared_ptr<PreparedStatement> PostgresEngine::prepare(const std::string& engineText, bool writes) {
    return std::make_shared<PostgresStatement>(
        link_, [this]() -> const ServerTables& { return tables(); }, engineText, writes);
}

std::int32_t PostgresEngine::nextNumber(std::string_view table, std::string_view field) {
    const KeyColumn key = keyColumn(catalog(), table, field);
    if (!moveNumber_)
        moveNumber_ = prepare(moveNumberText("$1"), true);
    // The first key of a table: when two clerks ask at once, the second waits for the first and moves its row.
    return takeNumber(*moveNumber_, key, [&] { return prepare(firstNumberText(key, "$1", "greatest"), true); });
}

} // namespace zel::ado::postgres
