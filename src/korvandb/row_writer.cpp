#include "korvandb/row_writer.h"

#include <cassert>
#include <iterator>
#include <sstream>
#include <utility>

namespace zel::korvandb {

namespace {

/// A statement with far more of them is no faster, and both engines take this many.
constexpr std::size_t mostParameters = 6000;

std::vector<std::string> wordsOf(const std::string& text) {
    std::istringstream stream(text);
    return {std::istream_iterator<std::string>(stream), {}};
}

} // namespace

RowWriter::RowWriter(ado::Engine& engine, std::string table, const std::string& columns)
    : engine_(engine), words_(ddlWords(engine.kind())), table_(std::move(table)), columns_(wordsOf(columns)),
      rowsInStatement_(mostParameters / columns_.size()) {
    waiting_.reserve(mostParameters);
}

void RowWriter::add(std::initializer_list<ado::Value> cells) {
    assert(cells.size() == columns_.size());
    waiting_.insert(waiting_.end(), cells);
    ++rows_;
    if (waiting_.size() < rowsInStatement_ * columns_.size())
        return;
    if (!statement_)
        statement_ = engine_.prepare(statementFor(rowsInStatement_), true);
    write(*statement_);
}

void RowWriter::finish() {
    if (!waiting_.empty())
        write(*engine_.prepare(statementFor(waiting_.size() / columns_.size()), true));
}

std::string RowWriter::statementFor(std::size_t rows) const {
    std::string statement = "INSERT INTO " + words_->object(table_);
    for (std::size_t i = 0; i < columns_.size(); ++i)
        statement += (i == 0 ? " (" : ", ") + words_->bare(columns_[i]);
    statement += ") VALUES";
    const char mark = engine_.kind() == ado::EngineKind::Sqlite ? '?' : '$';
    std::size_t parameter = 0;
    for (std::size_t row = 0; row < rows; ++row) {
        statement += row == 0 ? " (" : ", (";
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            statement += i == 0 ? "" : ", ";
            statement += mark;
            statement += std::to_string(++parameter);
        }
        statement += ")";
    }
    return statement;
}

void RowWriter::write(ado::PreparedStatement& statement) {
    statement.execute(waiting_);
    waiting_.clear();
}

} // namespace zel::korvandb
