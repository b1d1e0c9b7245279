#include "ado/convert.h"
#include "korvandb/ddl.h"
#include "korvandb/postgres_functions.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

namespace zel::korvandb {

namespace {

using ado::ColumnType;

/// For whoever looks in with another program: without it texts would compare with regard to case there.
constexpr const char* searchPath = R"(
DO $$ BEGIN EXECUTE format('ALTER DATABASE %I SET search_path TO dbo, public', current_database()); END $$)";

class PostgresWords final : public DdlWords {
public:
    [[nodiscard]] std::vector<std::string> before() const override {
        return {"CREATE SCHEMA dbo", "CREATE EXTENSION citext WITH SCHEMA dbo", "SET LOCAL search_path TO dbo",
                searchPath};
    }

    [[nodiscard]] std::vector<std::string> after() const override { return postgresFunctions(); }

    [[nodiscard]] std::string columnType(const Column& column) const override {
        switch (column.type) {
        case ColumnType::Integer:
            return "integer";
        case ColumnType::Flag:
            return "smallint";
        case ColumnType::Double:
            return "double precision";
        case ColumnType::Currency:
            return "numeric(19,4)";
        case ColumnType::DateTime:
            return "timestamp";
        default:
            return "citext";
        }
    }

    [[nodiscard]] std::string object(std::string_view name) const override { return "dbo." + bare(name); }
    /// Lower case is what an unquoted name means; the quotes are for "primary" and the like.
    [[nodiscard]] std::string bare(std::string_view name) const override {
        return fmt::format("\"{}\"", ado::lowerCase(name));
    }
    [[nodiscard]] std::string indexObject(std::string_view name) const override { return object(name); }
    [[nodiscard]] bool hasIncludedColumns() const override { return true; }
    [[nodiscard]] std::string spelling(std::string_view kind, std::string_view name,
                                       const std::vector<std::string>& columns) const override {
        return fmt::format("COMMENT ON {} {} IS '{}: {}'", kind, object(name), name, fmt::join(columns, ", "));
    }
    [[nodiscard]] std::string text(std::string_view expression) const override {
        return fmt::format("({})::citext", expression);
    }
};

} // namespace

std::unique_ptr<DdlWords> postgresWords() {
    return std::make_unique<PostgresWords>();
}

} // namespace zel::korvandb
