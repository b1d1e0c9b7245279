#pragma once

#include "ado/engine.h"
#include "korvandb/schema.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace zel::korvandb {

/// How one engine words what the schema says in neutral types.
class DdlWords {
public:
    virtual ~DdlWords() = default;

    /// What comes before the tables.
    [[nodiscard]] virtual std::vector<std::string> before() const = 0;
    /// What needs the tables to be there.
    [[nodiscard]] virtual std::vector<std::string> after() const = 0;
    [[nodiscard]] virtual std::string columnType(const Column& column) const = 0;
    /// A table, view or index by its full name.
    [[nodiscard]] virtual std::string object(std::string_view name) const = 0;
    /// A column, or an index where only its bare name may stand.
    [[nodiscard]] virtual std::string bare(std::string_view name) const = 0;
    /// An index is named with its schema, or in the schema of its table.
    [[nodiscard]] virtual std::string indexObject(std::string_view name) const = 0;
    /// Whether an index can keep columns that it is not sorted by; else a wide index is sorted by all of them.
    [[nodiscard]] virtual bool hasIncludedColumns() const = 0;
    /// A statement that keeps how the names of a table's or view's columns are spelled; empty where the engine does.
    [[nodiscard]] virtual std::string spelling(std::string_view kind, std::string_view name,
                                               const std::vector<std::string>& columns) const = 0;
    /// An expression whose text is to compare without regard to case.
    [[nodiscard]] virtual std::string text(std::string_view expression) const = 0;
};

[[nodiscard]] std::unique_ptr<DdlWords> sqliteWords();
[[nodiscard]] std::unique_ptr<DdlWords> postgresWords();
[[nodiscard]] std::unique_ptr<DdlWords> ddlWords(ado::EngineKind engine);

/// The statements that make the tables, indexes and views of an empty database, in order.
[[nodiscard]] std::vector<std::string> ddl(const Schema& schema, ado::EngineKind engine);
[[nodiscard]] std::string indexName(const Table& table, const Index& index);
[[nodiscard]] std::string createTable(const Table& table, const DdlWords& words);
[[nodiscard]] std::string createIndex(const Table& table, const Index& index, const DdlWords& words);
[[nodiscard]] std::string dropIndex(const Table& table, const Index& index, const DdlWords& words);
[[nodiscard]] std::string createView(const View& view, const DdlWords& words);
/// See DdlWords::spelling.
[[nodiscard]] std::string spellingOf(const Table& table, const DdlWords& words);
[[nodiscard]] std::string spellingOf(const View& view, const DdlWords& words);

} // namespace zel::korvandb
