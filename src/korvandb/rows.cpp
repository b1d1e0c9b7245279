#include "korvandb/rows.h"

#include "ado/convert.h"

namespace zel::korvandb {

Rows::Rows(ado::Engine& engine, const std::string& statement) : Rows(*engine.prepare(statement, false)) {}

Rows::Rows(ado::PreparedStatement& statement) : store_(statement.columns().size()) {
    statement.query({}, store_);
}

std::string Rows::text(std::size_t row, std::size_t column) const {
    return ado::toText(store_.at(row, column));
}

std::int64_t Rows::number(std::size_t row, std::size_t column) const {
    const ado::Value value = store_.at(row, column);
    return value.isNull() ? 0 : static_cast<std::int64_t>(ado::toDouble(value));
}

} // namespace zel::korvandb
