#include "ado/recordset.h"
#include "bench_data.h"
#include "pairs.h"
#include "qt_table_model.h"

namespace zel::bench {
namespace {

using ado::Recordset;
using ado::Sql;

constexpr int person = 97, editsEach = 20;

void editOneCell(benchmark::State& state, bool durable) {
    const auto file = databaseFile(Content::ManyPostings);
    const auto rivals = sqliteRivals(file, file, durable);
    QtPostings model(file, person, durable);
    int edit = 0;
    Recordset posts;
    posts.Open("Select * from PersonsPost", rivals->connection());
    posts.setFilter("PersonID=" + Sql::of(person) + " and FinalCol = 0");
    posts.setSort("ActivityDT");
    runPairs(
        state,
        [&] {
            for (int row = 1; row <= editsEach; ++row) {
                posts.setAbsolutePosition(row);
                posts.setValue("Remarks", "A" + std::to_string(++edit));
                posts.Update();
            }
        },
        [&] {
            for (int row = 0; row < editsEach; ++row)
                model.editRemarks(100 + row, "B" + std::to_string(++edit));
        });
    state.counters["rows"] = model.rows();
}

const bool added = [] {
    addPairs("one_cell_saved_against_table_model/sqlite/limit_0.35",
             [](benchmark::State& state) { editOneCell(state, true); });
    addPairs("one_cell_saved_against_table_model/sqlite_not_waiting_for_the_disk",
             [](benchmark::State& state) { editOneCell(state, false); });
    return true;
}();

} // namespace
} // namespace zel::bench
