#include "ado/rows/row_set.h"

#include "ado/convert.h"
#include "ado/error.h"
#include "ado/rows/columns.h"
#include "ado/rows/narrowing.h"
#include "ado/sql/outline.h"
#include "ado/sql/translator.h"

#include <fmt/format.h>

#include <algorithm>
#include <numeric>

namespace zel::ado {

namespace {

/// No table has a column of that name, so the added one is never taken for one of the statement's.
constexpr std::string_view addedKeyName = "zel_key";

/// The keys of all tables in a row, packed; empty when there are none.
std::string identity(const std::vector<BaseTable>& tables, const RowStore& rows, std::size_t row) {
    std::string keys;
    for (const BaseTable& table : tables) {
        if (!table.keyColumn)
            continue;
        const Value key = rows.at(row, *table.keyColumn);
        if (key.type() == Value::Type::Integer) {
            const auto number = key.as<std::int64_t>();
            keys.append(reinterpret_cast<const char*>(&number), sizeof number);
        } else {
            keys.append(toText(key)).push_back('\n');
        }
    }
    return keys;
}

/// Without the blanks and the ";" that may end it.
std::string_view openEnded(const std::string& engineText, const sql::Outline& parts) {
    return std::string_view(engineText).substr(0, parts.end);
}

} // namespace

RowSet::RowSet(Connection& connection, const Sql& source, bool writable) : connection_(connection) {
    const Connection::Prepared prepared = connection.prepare(source);
    engineText_ = prepared.translation->engineText;
    parameters_ = prepared.parameters;
    columns_ = prepared.statement->columns();
    if (columns_.empty())
        throw Error(ErrorKind::Statement, errors::errorsInCommand, "The statement gives no rows.", source.text());
    visible_ = columns_.size();
    if (connection.engine().kind() == EngineKind::Postgres)
        spellNames(columns_, *prepared.translation, connection.engine().catalog());
    readTables();
    if (writable && tables_.size() == 1 && !tables_.front().keyColumn && !tables_.front().key.empty())
        addKey();
    store_ = std::make_unique<RowStore>(columns_.size());
}

void RowSet::readTables() {
    const Catalog& catalog = connection_.engine().catalog();
    for (std::size_t column = 0; column < columns_.size(); ++column) {
        const ResultColumn& origin = columns_[column];
        auto& table = tableOf_.emplace_back();
        if (origin.baseTable.empty())
            continue;
        const auto known = std::ranges::find(tables_, origin.baseTable, &BaseTable::name);
        table = static_cast<std::size_t>(known - tables_.begin());
        if (known == tables_.end()) {
            const CatalogTable* described = catalog.table(origin.baseTable);
            tables_.push_back({origin.baseTable, described == nullptr ? std::string() : described->key, std::nullopt});
        }
        BaseTable& base = tables_[*table];
        if (!base.keyColumn && !base.key.empty() && equalIgnoringCase(base.key, origin.baseColumn))
            base.keyColumn = column;
    }
}

void RowSet::addKey() {
    const sql::Outline parts = sql::outline(engineText_);
    BaseTable& table = tables_.front();
    if (!parts.isSingleSource() || parts.distinct || !equalIgnoringCase(parts.sources.front().table, table.name))
        return;
    const Sql key = Sql::words(fmt::format("{} AS {}", quotedName(table.key), addedKeyName));
    engineText_ = sql::withColumns(Sql::words(engineText_), parts, key).text();
    columns_.push_back(connection_.prepareNative(engineText_, false)->columns().back());
    tableOf_.emplace_back(0);
    table.keyColumn = visible_;
}

bool RowSet::isNullSide(RowId row, std::size_t table) const {
    const auto& key = tables_[table].keyColumn;
    return key && store_->typeAt(row, *key) == Value::Type::Null;
}

RowSet::Fetched RowSet::fetch(const Criteria& filter) {
    const EngineKind engine = connection_.engine().kind();
    auto narrowing = narrowingCondition(filter, columns(), engine, parameters_.size() + 1);
    if (!narrowing)
        return {run(*connection_.prepareNative(engineText_, false), parameters_), false};
    const std::string text =
        fmt::format("SELECT * FROM ({}) AS {} WHERE {}", openEnded(engineText_, sql::outline(engineText_)),
                    rowsOfSource, narrowing->text);
    std::vector<Value> parameters = parameters_;
    std::ranges::move(narrowing->parameters, std::back_inserter(parameters));
    return {run(*connection_.prepareNative(text, false), parameters), true};
}

std::vector<RowId> RowSet::run(PreparedStatement& statement, std::span<const Value> parameters) {
    if (store_->rows() != 0) {
        RowStore fresh(columns_.size());
        statement.query(parameters, fresh);
        return merge(fresh);
    }
    statement.query(parameters, *store_);
    std::vector<RowId> order(store_->rows());
    std::iota(order.begin(), order.end(), RowId{0});
    return order;
}

std::vector<RowId> RowSet::merge(const RowStore& fresh) {
    const auto held = static_cast<RowId>(store_->rows());
    for (; indexed_ < held; ++indexed_)
        if (std::string keys = identity(tables_, *store_, indexed_); !keys.empty())
            byIdentity_.insert_or_assign(std::move(keys), indexed_);
    std::vector<bool> taken(held);
    std::vector<RowId> order;
    order.reserve(fresh.rows());
    for (std::size_t row = 0; row < fresh.rows(); ++row) {
        const auto known = byIdentity_.find(identity(tables_, fresh, row));
        const bool isHeld = known != byIdentity_.end() && !isRemoved(known->second) && !taken[known->second];
        const RowId number = isHeld ? known->second : static_cast<RowId>(store_->rows());
        for (std::size_t column = 0; column < columns_.size(); ++column)
            if (isHeld)
                store_->set(number, column, fresh.at(row, column));
            else
                store_->add(fresh.at(row, column));
        if (isHeld)
            taken[number] = true;
        order.push_back(number);
    }
    return order;
}

RowId RowSet::addRow() {
    const auto row = static_cast<RowId>(store_->rows());
    for (std::size_t column = 0; column < columns_.size(); ++column)
        store_->addNull();
    added_.push_back(row);
    return row;
}

void RowSet::remove(RowId row) {
    if (removed_.size() <= row)
        removed_.resize(store_->rows());
    removed_[row] = true;
    ++removals_;
}

} // namespace zel::ado
