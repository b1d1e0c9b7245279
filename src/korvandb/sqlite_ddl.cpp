#include "korvandb/create.h"
#include "korvandb/ddl.h"

#include <fmt/format.h>

namespace zel::korvandb {

namespace {

using ado::ColumnType;

class SqliteWords final : public DdlWords {
public:
    [[nodiscard]] std::vector<std::string> before() const override {
        return {fmt::format("PRAGMA user_version = {}", schemaVersion)};
    }

    [[nodiscard]] std::vector<std::string> after() const override { return {}; }

    /// The names tell the column's type to the data layer; their endings tell the engine how to keep the value.
    [[nodiscard]] std::string columnType(const Column& column) const override {
        switch (column.type) {
        case ColumnType::Integer:
            return "INTEGER";
        case ColumnType::Flag:
            return "FLAGINT";
        case ColumnType::Double:
            return "REAL";
        case ColumnType::Currency:
            return "MONEYTEXT COLLATE ZMONEY";
        case ColumnType::DateTime:
            return "DATETEXT";
        default:
            return "CITEXT COLLATE NOCASE";
        }
    }

    [[nodiscard]] std::string object(std::string_view name) const override { return bare(name); }
    [[nodiscard]] std::string bare(std::string_view name) const override { return fmt::format("[{}]", name); }
    [[nodiscard]] std::string indexObject(std::string_view name) const override { return bare(name); }
    [[nodiscard]] bool hasIncludedColumns() const override { return false; }
    [[nodiscard]] std::string spelling(std::string_view /*kind*/, std::string_view /*name*/,
                                       const std::vector<std::string>& /*columns*/) const override {
        return {};
    }
    [[nodiscard]] std::string text(std::string_view expression) const override {
        return fmt::format("({}) COLLATE NOCASE", expression);
    }
};

} // namespace

std::unique_ptr<DdlWords> sqliteWords() {
    return std::make_unique<SqliteWords>();
}

} // namespace zel::korvandb
