#include "ado/recordset.h"
#include "ado/sql/translator.h"
#include "bench_data.h"
#include "pairs.h"

#include <fmt/format.h>

#include <stdexcept>

namespace zel::bench {
namespace {

using ado::Recordset;
using ado::Sql;

/// The rows behind the list of persons, sorted as it shows them.
constexpr const char* personList =
    "SELECT Persons.PersonID, Persons.LastName, Persons.FirstName, Persons.SSN, Persons.RequestNumber, "
    "Persons.AgencyCode, Persons.PStatus, Persons.FedCode, Persons.KindCode, Persons.Class, Persons.Rate, "
    "Persons.InitEmployYN, Resources.ResourceID, Resources.Name, Resources.IncidentID, Resources.Status, "
    "Resources.Collection, Resources.CheckinDate, AccountingCodes.AccountingCode FROM (Persons INNER JOIN Resources ON "
    "Persons.ResourceID = Resources.ResourceID) LEFT JOIN AccountingCodes ON Persons.AccountingID = "
    "AccountingCodes.AccountingID ORDER BY Persons.LastName, Persons.FirstName";

void require(bool holds, const char* what) {
    if (!holds)
        throw std::runtime_error(what);
}

void readPersonList(benchmark::State& state, Rivals& rivals) {
    const std::string engineText = rivals.connection().prepare(Sql::words(personList)).translation->engineText;
    std::int64_t cells = 0;
    long rawCells = 0;
    runPairs(
        state,
        [&] {
            Recordset rows;
            rows.Open(Sql::words(personList), rivals.connection());
            cells = rows.RecordCount() * static_cast<std::int64_t>(rows.fieldCount());
        },
        [&] {
            raw_rows* rows = rivals.read(engineText, nullptr, 0);
            rawCells = raw_cell_count(rows);
            raw_free(rows);
        });
    require(cells == rawCells && cells > 900'000, "both read the same list");
    state.counters["rows"] = static_cast<double>(cells) / 19;
}

/// The postings of fifty persons, one after the other, as the grid of the posting screen asks for them.
void readOnePersonsPosts(benchmark::State& state, Rivals& rivals) {
    const bool sqlite = rivals.connection().engine().kind() == ado::EngineKind::Sqlite;
    const std::string rawText = fmt::format("select * from {} where PersonID = {}", plainTable, sqlite ? "?1" : "$1") +
                                " and FinalCol = 0 order by ActivityDT, StartTime, StopTime";
    constexpr int persons = 50, stride = 97;
    std::int64_t cells = 0;
    long rawCells = 0;
    runPairs(
        state,
        [&] {
            cells = 0;
            Recordset posts;
            posts.Open("Select * from PersonsPost", rivals.connection());
            posts.setSort("ActivityDT, StartTime, StopTime");
            for (int person = 1; person <= persons; ++person) {
                posts.setFilter("PersonID=" + Sql::of(person * stride) + " and FinalCol = 0");
                cells += posts.RecordCount() * static_cast<std::int64_t>(posts.fieldCount());
            }
        },
        [&] {
            rawCells = 0;
            for (int person = 1; person <= persons; ++person) {
                const int key = person * stride;
                raw_rows* rows = rivals.read(rawText, &key, 1);
                rawCells += raw_cell_count(rows);
                raw_free(rows);
            }
        });
    require(cells == rawCells && cells > 0, "both read the same postings");
    state.counters["rows_each"] = static_cast<double>(cells) / 18 / persons;
}

const bool added = [] {
    addPairs("person_list_50000/sqlite/limit_0.9", [](benchmark::State& state) {
        const auto file = databaseFile(Content::ManyPersons);
        readPersonList(state, *sqliteRivals(file, file));
    });
    addPairs("person_list_50000/postgres",
             [](benchmark::State& state) { readPersonList(state, *postgresRivals(Content::ManyPersons)); });
    addPairs("one_person_of_1000000/sqlite/limit_0.5", [](benchmark::State& state) {
        readOnePersonsPosts(state,
                            *sqliteRivals(databaseFile(Content::ManyPostings), plainIndexFile(Content::ManyPostings)));
    });
    addPairs("one_person_of_1000000/postgres/limit_0.5",
             [](benchmark::State& state) { readOnePersonsPosts(state, *postgresRivals(Content::ManyPostings)); });
    return true;
}();

} // namespace
} // namespace zel::bench
