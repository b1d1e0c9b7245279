#include "statement_catalogue.h"

#include "ado/convert.h"
#include "ado/error.h"
#include "ado/recordset.h"
#include "ado/sql/outline.h"
#include "support/database_test.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <map>

namespace zel::test {
namespace {

using ado::EngineKind;

/// What a statement gave: rows as texts, or the number written, or the failure.
struct Outcome {
    std::int64_t rows = 0;
    std::vector<std::string> cells; // a line for each row
    std::vector<std::string> names;
    std::vector<std::string> origins; // for each column its name, type, base table and base column
    std::optional<ado::Error> failure;
};

/// Computed columns without a name are called differently by the engines.
std::string origin(const ado::ResultColumn& column) {
    if (column.baseTable.empty())
        return "computed";
    return ado::lowerCase(column.name + " " + column.baseTable + "." + column.baseColumn) + " " +
           std::to_string(static_cast<int>(column.type));
}

Outcome readRows(ado::Connection& connection, const std::string& statement) {
    ado::Recordset rows;
    rows.Open(ado::Sql::words(statement), connection);
    Outcome outcome;
    outcome.rows = rows.RecordCount();
    for (std::int64_t row = 1; row <= outcome.rows; ++row) {
        std::string line;
        for (std::size_t field = 0; field < rows.fieldCount(); ++field) {
            const ado::Value value = rows.valueAt(row, field);
            line += (value.isNull() ? "Null" : ado::toText(value)) + "|";
        }
        outcome.cells.push_back(line);
    }
    for (std::size_t field = 0; field < rows.fieldCount(); ++field) {
        outcome.names.push_back(rows.fieldInfo(field).name);
        outcome.origins.push_back(origin(rows.fieldInfo(field)));
    }
    return outcome;
}

/// Runs one statement; what it wrote is taken back, so that every entry meets the same rows.
Outcome run(ado::Connection& connection, const std::string& statement) {
    const bool select = ado::sql::outline(statement).kind == ado::sql::StatementKind::Select;
    connection.engine().begin();
    Outcome outcome;
    try {
        if (select)
            outcome = readRows(connection, statement);
        else
            outcome.rows = connection.Execute(statement);
    } catch (const ado::Error& error) {
        outcome.failure = error;
    }
    connection.engine().rollback();
    return outcome;
}

std::map<std::string, Outcome> runAll(EngineKind engine, const Catalogue& catalogue) {
    TestDatabase database(engine);
    ado::Connection& connection = database.connection();
    for (const std::string& statement : catalogue.given)
        connection.Execute(statement);
    std::map<std::string, Outcome> outcomes;
    for (const CatalogueEntry& entry : catalogue.entries)
        for (const std::string& form : entry.forms())
            outcomes.emplace(form, run(connection, form));
    return outcomes;
}

/// As given where the statement asks for an order that tells all rows apart, else sorted.
std::vector<std::string> comparable(const CatalogueEntry& entry, const std::string& statement,
                                    std::vector<std::string> cells) {
    if (entry.ties || ado::lowerCase(statement).find("order by ") == std::string::npos)
        std::ranges::sort(cells);
    return cells;
}

class StatementCatalogue : public testing::TestWithParam<EngineKind> {};

TEST_P(StatementCatalogue, EveryStatementRunsInEveryFormAndGivesItsRows) {
    const Catalogue catalogue = readCatalogue();
    const auto outcomes = runAll(GetParam(), catalogue);
    for (const CatalogueEntry& entry : catalogue.entries)
        for (const std::string& form : entry.forms()) {
            const Outcome& outcome = outcomes.at(form);
            if (!entry.fails.empty())
                continue;
            EXPECT_FALSE(outcome.failure) << entry.name << ": " << outcome.failure->description() << "\n" << form;
            EXPECT_EQ(outcome.rows, entry.rows) << entry.name << "\n" << form;
        }
}

TEST_P(StatementCatalogue, WhatCannotRunFailsAsAClearErrorOfTheStatement) {
    const Catalogue catalogue = readCatalogue();
    const auto outcomes = runAll(GetParam(), catalogue);
    int failing = 0;
    for (const CatalogueEntry& entry : catalogue.entries) {
        if (entry.fails.empty())
            continue;
        const Outcome& outcome = outcomes.at(entry.both);
        ASSERT_TRUE(outcome.failure) << entry.name;
        EXPECT_EQ(outcome.failure->kind(), ado::ErrorKind::Statement) << entry.name;
        EXPECT_THAT(outcome.failure->number(), testing::AnyOf(ado::errors::errorsInCommand, ado::errors::noSuchTable))
            << entry.name;
        EXPECT_THAT(outcome.failure->description(), testing::Not(testing::IsEmpty())) << entry.name;
        EXPECT_EQ(outcome.failure->statement(), entry.both) << entry.name;
        ++failing;
    }
    EXPECT_GT(failing, 0);
}

TEST_P(StatementCatalogue, AStarInAPatternFindsOnTheDesktopOnly) {
    const Catalogue catalogue = readCatalogue();
    TestDatabase database(GetParam());
    for (const std::string& statement : catalogue.given)
        database.connection().Execute(statement);
    const auto found = [&](const std::string& condition) {
        return run(database.connection(), "select * from qrySelectPersonnel where (" + condition + ")").rows;
    };
    EXPECT_EQ(found("SSN like '123*'"), GetParam() == EngineKind::Sqlite ? 2 : 0);
    EXPECT_EQ(found("SSN like '123%' OR SSN like '123*'"), 2);
}

ZEL_ON_BOTH_ENGINES(StatementCatalogue);

TEST(StatementCatalogueOfBothEngines, BothGiveTheSameRowsInTheSameOrder) {
    const Catalogue catalogue = readCatalogue();
    const auto sqlite = runAll(EngineKind::Sqlite, catalogue);
    const auto postgres = runAll(EngineKind::Postgres, catalogue);
    for (const CatalogueEntry& entry : catalogue.entries)
        for (const std::string& form : entry.forms())
            EXPECT_EQ(comparable(entry, form, sqlite.at(form).cells), comparable(entry, form, postgres.at(form).cells))
                << entry.name << "\n"
                << form;
}

TEST(StatementCatalogueOfBothEngines, BothTraceColumnsToTheSameTables) {
    const Catalogue catalogue = readCatalogue();
    const auto sqlite = runAll(EngineKind::Sqlite, catalogue);
    const auto postgres = runAll(EngineKind::Postgres, catalogue);
    for (const CatalogueEntry& entry : catalogue.entries)
        for (const std::string& form : entry.forms())
            EXPECT_EQ(sqlite.at(form).origins, postgres.at(form).origins) << entry.name << "\n" << form;
    const int text = static_cast<int>(ado::ColumnType::Text);
    EXPECT_THAT(postgres.at("SELECT * FROM qrySelectPersonnel").origins,
                testing::Contains("prequestnumber persons.requestnumber " + std::to_string(text)));
}

/// Only an expression without an alias has no name of its own.
TEST(StatementCatalogueOfBothEngines, BothSpellTheNamesOfColumnsAlike) {
    const Catalogue catalogue = readCatalogue();
    const auto sqlite = runAll(EngineKind::Sqlite, catalogue);
    const auto postgres = runAll(EngineKind::Postgres, catalogue);
    int compared = 0;
    for (const CatalogueEntry& entry : catalogue.entries)
        for (const std::string& form : entry.forms()) {
            const auto& names = sqlite.at(form).names;
            const auto& others = postgres.at(form).names;
            ASSERT_EQ(names.size(), others.size()) << form;
            for (std::size_t column = 0; column < names.size(); ++column)
                if (ado::equalIgnoringCase(names[column], others[column])) {
                    EXPECT_EQ(names[column], others[column]) << form;
                    ++compared;
                }
        }
    EXPECT_GT(compared, 1000);
}

TEST(StatementCatalogueOfBothEngines, BothDialectsSayTheSame) {
    const Catalogue catalogue = readCatalogue();
    const auto sqlite = runAll(EngineKind::Sqlite, catalogue);
    const auto postgres = runAll(EngineKind::Postgres, catalogue);
    int compared = 0;
    for (const CatalogueEntry& entry : catalogue.entries) {
        if (entry.desktop.empty() || entry.server.empty() || !entry.differs.empty())
            continue;
        EXPECT_EQ(comparable(entry, entry.desktop, sqlite.at(entry.desktop).cells),
                  comparable(entry, entry.server, postgres.at(entry.server).cells))
            << entry.name;
        ++compared;
    }
    EXPECT_GT(compared, 30);
}

TEST(StatementCatalogueOfBothEngines, DialectsThatShowMoneyDifferentlyDoSo) {
    const Catalogue catalogue = readCatalogue();
    const auto sqlite = runAll(EngineKind::Sqlite, catalogue);
    const auto entry = std::ranges::find(catalogue.entries, "primary rate lines", &CatalogueEntry::name);
    ASSERT_NE(entry, catalogue.entries.end());
    EXPECT_THAT(sqlite.at(entry->server).cells.front(), testing::StartsWith("DAILY  |  $1250.50  |  $100.00|DAILY|"));
    EXPECT_THAT(sqlite.at(entry->desktop).cells.front(), testing::StartsWith("DAILY  |  1,250.50  |  100.00|DAILY|"));
}

} // namespace
} // namespace zel::test
