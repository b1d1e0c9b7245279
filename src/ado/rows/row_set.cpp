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
#include <unordered_map>

namespace zel::ado {

namespace {

/// No table has a column of that name, so the added one is never taken for one of the statement's.
constexpr std::string_view addedKeyName = "zel_key";

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
    columns_ = connection_.prepareNative(engineText_, false)->columns();
    tableOf_.emplace_back(0);
    table.keyColumn = visible_;
}

bool RowSet::isNullSide(RowId row, std::size_t table) const {
    const auto& key = tables_[table].keyColumn;
    return key && store_->typeAt(row, *key) == Value::Type::Null;
}

RowSet::Fetched RowSet::fetch(const Criteria& filter) {
    const auto firstNew = static_cast<RowId>(store_->rows());
    const EngineKind engine = connection_.engine().kind();
    if (auto narrowing = narrowingCondition(filter, columns(), engine, parameters_.size() + 1)) {
        const std::string text =
            fmt::format("SELECT * FROM ({}) AS {} WHERE {}", openEnded(engineText_, sql::outline(engineText_)),
                        rowsOfSource, narrowing->text);
        std::vector<Value> parameters = parameters_;
        std::ranges::move(narrowing->parameters, std::back_inserter(parameters));
        connection_.prepareNative(text, false)->query(parameters, *store_);
        return {recognise(firstNew), true};
    }
    connection_.prepareNative(engineText_, false)->query(parameters_, *store_);
    return {recognise(firstNew), false};
}

std::vector<RowId> RowSet::recognise(RowId firstNew) {
    std::vector<RowId> order(store_->rows() - firstNew);
    std::iota(order.begin(), order.end(), firstNew);
    if (firstNew == 0)
        return order;
    std::unordered_map<std::string, RowId> held;
    for (RowId row = 0; row < firstNew; ++row)
        if (std::string keys = identity(row); !keys.empty() && !isRemoved(row))
            held.emplace(std::move(keys), row);
    for (RowId& row : order) {
        const auto known = held.find(identity(row));
        if (known == held.end())
            continue;
        for (std::size_t column = 0; column < columns_.size(); ++column)
            store_->set(known->second, column, store_->at(row, column));
        row = known->second;
        held.erase(known);
    }
    return order;
}

std::string RowSet::identity(RowId row) const {
    std::string keys;
    for (const BaseTable& table : tables_)
        if (table.keyColumn)
            keys += toText(store_->at(row, *table.keyColumn)) + '\n';
    return keys;
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
