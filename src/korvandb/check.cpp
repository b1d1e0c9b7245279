#include "korvandb/check.h"

#include "ado/convert.h"
#include "ado/error.h"
#include "ado/sqlite/create.h"
#include "korvandb/ddl.h"
#include "korvandb/rows.h"
#include "korvandb/value_rules.h"

#include <fmt/format.h>

#include <set>

namespace zel::korvandb {

namespace {

class Checker {
public:
    Checker(ado::Engine& engine, const Progress& progress)
        : engine_(engine), progress_(progress), words_(ddlWords(engine.kind())) {}

    std::vector<std::string> check() {
        const auto steps = static_cast<std::int64_t>(theSchema().tables.size()) + 2;
        progress_("checks", 0, steps);
        guarded("The database", [&] { checkEngine(); });
        progress_("checks", 1, steps);
        findTables();
        for (std::size_t i = 0; i < tables_.size(); ++i) {
            guarded(tables_[i]->name, [&] { checkTable(*tables_[i]); });
            progress_("checks", static_cast<std::int64_t>(i) + 2, steps);
        }
        checkViews();
        guarded("NextNumbers", [&] { checkKeyNumbers(); });
        guarded("AccountingCodes", [&] { checkDefaults(); });
        guarded("Version", [&] { checkVersion(); });
        progress_("checks", steps, steps);
        return std::move(faults_);
    }

private:
    /// What a damaged file does not give is a fault too, and the rest can still be looked at.
    template <typename Step>
    void guarded(const std::string& what, Step step) {
        try {
            step();
        } catch (const ado::Error& failure) {
            if (failure.kind() == ado::ErrorKind::Lost)
                throw;
            fault(fmt::format("{}: {}", what, failure.what()));
        }
    }

    void checkEngine() {
        if (engine_.kind() == ado::EngineKind::Sqlite) {
            for (const std::string& complaint : ado::checkIntegrity(engine_))
                fault(complaint);
            return;
        }
        const Rows database(engine_, "SELECT pg_encoding_to_char(encoding)::text, datcollate::text "
                                     "FROM pg_catalog.pg_database WHERE datname = current_database()");
        if (database.text(0, 0) != "UTF8" || database.text(0, 1) != "C")
            fault(fmt::format("The database has encoding {} and collation {} where UTF8 and C are needed.",
                              database.text(0, 0), database.text(0, 1)));
        const Rows broken(engine_, "SELECT indexrelid::regclass::text FROM pg_catalog.pg_index WHERE NOT indisvalid");
        for (std::size_t row = 0; row < broken.size(); ++row)
            fault(fmt::format("The index {} is not valid.", broken.text(row, 0)));
    }

    /// Only tables that are whole can be asked.
    void findTables() {
        const std::set<std::string> indexes = presentIndexes();
        for (const Table& table : theSchema().tables) {
            const ado::CatalogTable* present = engine_.catalog().table(table.name);
            if (present == nullptr) {
                fault(fmt::format("The table {} is missing.", table.name));
                continue;
            }
            bool whole = true;
            for (const Column& column : table.columns)
                if (present->column(column.name) == nullptr) {
                    fault(fmt::format("The column {}.{} is missing.", table.name, column.name));
                    whole = false;
                }
            if (whole)
                tables_.push_back(&table);
            for (const Index& index : table.indexes)
                if (!indexes.contains(ado::lowerCase(indexName(table, index))))
                    fault(fmt::format("The index {} is missing.", indexName(table, index)));
        }
    }

    [[nodiscard]] std::set<std::string> presentIndexes() const {
        const Rows rows(engine_, engine_.kind() == ado::EngineKind::Sqlite
                                     ? "SELECT lower(name) FROM sqlite_schema WHERE type = 'index'"
                                     : "SELECT indexname::text FROM pg_catalog.pg_indexes WHERE schemaname = 'dbo'");
        std::set<std::string> names;
        for (std::size_t row = 0; row < rows.size(); ++row)
            names.insert(rows.text(row, 0));
        return names;
    }

    void checkTable(const Table& table) {
        checkValues(table);
        for (const Reference& reference : table.references)
            if (const Table* parent = whole(reference.table))
                checkOrphans(table, reference, *parent);
    }

    /// Every rule in one pass over the table: a column for the number of rows that break it, one for the first of them.
    void checkValues(const Table& table) {
        std::string statement;
        std::vector<std::pair<std::string, std::string>> rules; // column and complaint
        for (const Column& column : table.columns) {
            ValueRule rule = valueRule(column, words_->bare(column.name), engine_.kind());
            if (column.isKey())
                rule = {words_->bare(column.name) + " < 1", "no key, being below 1"};
            if (rule.condition.empty())
                continue;
            statement += statement.empty() ? "SELECT " : ", ";
            statement += fmt::format("count(CASE WHEN {0} THEN 1 END), min(CASE WHEN {0} THEN {1} END)", rule.condition,
                                     keyOf(table));
            rules.emplace_back(column.name, rule.complaint);
        }
        if (rules.empty())
            return;
        const Rows found(engine_, statement + " FROM " + words_->object(table.name));
        for (std::size_t i = 0; i < rules.size(); ++i)
            if (const std::int64_t count = found.number(0, 2 * i); count > 0)
                fault(fmt::format("{}.{}: {} {}{}.", table.name, rules[i].first, rowsAre(count), rules[i].second,
                                  named(table, found.text(0, 2 * i + 1))));
    }

    void checkOrphans(const Table& table, const Reference& reference, const Table& parent) {
        const std::string column = words_->object(table.name) + "." + words_->bare(reference.column);
        const Rows found(
            engine_,
            fmt::format("SELECT count(*), min({}) FROM {} WHERE {} > 0 AND NOT EXISTS (SELECT 1 FROM {} parent "
                        "WHERE parent.{} = {})",
                        keyOf(table), words_->object(table.name), column, words_->object(parent.name),
                        words_->bare(parent.primary()->name), column));
        if (const std::int64_t count = found.number(0, 0); count > 0)
            fault(fmt::format("{}.{}: {} of no row of {}{}.", table.name, reference.column, rowsAre(count), parent.name,
                              named(table, found.text(0, 1))));
    }

    void checkViews() {
        for (const View& view : theSchema().views)
            if (const ado::CatalogTable* present = engine_.catalog().table(view.name);
                present == nullptr || !present->isView())
                fault(fmt::format("The view {} is missing.", view.name));
    }

    void checkKeyNumbers() {
        if (whole("NextNumbers") == nullptr)
            return;
        const Rows numbers(engine_, "SELECT TableName, NextNumber FROM NextNumbers ORDER BY TableName");
        for (std::size_t row = 0; row < numbers.size(); ++row) {
            const Table* table = whole(numbers.text(row, 0));
            if (table == nullptr || table->primary() == nullptr || !table->primary()->isKey()) {
                fault(fmt::format("NextNumbers: '{}' is no table with keys.", numbers.text(row, 0)));
                continue;
            }
            const std::string key = words_->bare(table->primary()->name);
            const std::int64_t highest =
                Rows(engine_, fmt::format("SELECT max({}) FROM {}", key, words_->object(table->name))).number(0, 0);
            if (numbers.number(row, 1) <= highest)
                fault(fmt::format("NextNumbers: the next key of {} would be {}, but {} is in use.", table->name,
                                  numbers.number(row, 1), highest));
        }
    }

    /// An incident with codes stands in the lists through its default code: with none it is missing from them, with two
    /// it stands there twice.
    void checkDefaults() {
        if (whole("AccountingCodes") == nullptr)
            return;
        const Rows found(engine_,
                         "SELECT IncidentID, sum(CASE WHEN IncidentDefault = 1 THEN 1 ELSE 0 END) FROM "
                         "AccountingCodes GROUP BY IncidentID "
                         "HAVING sum(CASE WHEN IncidentDefault = 1 THEN 1 ELSE 0 END) <> 1 ORDER BY IncidentID");
        for (std::size_t row = 0; row < found.size(); ++row)
            fault(fmt::format("AccountingCodes: incident {} has {} default codes.", found.text(row, 0),
                              found.number(row, 1) == 0 ? "no" : found.text(row, 1)));
    }

    void checkVersion() {
        if (whole("Version") != nullptr &&
            Rows(engine_, "SELECT Version FROM Version WHERE Module = 'Database'").empty())
            fault("Version: there is no row for the module Database.");
    }

    [[nodiscard]] const Table* whole(std::string_view name) const {
        for (const Table* table : tables_)
            if (ado::equalIgnoringCase(table->name, name))
                return table;
        return nullptr;
    }

    [[nodiscard]] std::string keyOf(const Table& table) const {
        const Column* primary = table.primary();
        return primary == nullptr ? "NULL" : words_->bare(primary->name);
    }

    [[nodiscard]] static std::string rowsAre(std::int64_t count) {
        return count == 1 ? "1 row is" : fmt::format("{} rows are", count);
    }

    [[nodiscard]] static std::string named(const Table& table, const std::string& first) {
        return first.empty() ? first : fmt::format(", the first with {} {}", table.primary()->name, first);
    }

    void fault(std::string text) { faults_.push_back(std::move(text)); }

    ado::Engine& engine_;
    const Progress& progress_;
    std::unique_ptr<DdlWords> words_;
    std::vector<const Table*> tables_;
    std::vector<std::string> faults_;
};

} // namespace

std::vector<std::string> checkDatabase(ado::Engine& engine, const Progress& progress) {
    return Checker(engine, progress).check();
}

} // namespace zel::korvandb
