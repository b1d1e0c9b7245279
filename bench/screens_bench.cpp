#include "bench_data.h"
#include "bench_program.h"
#include "pairs.h"

#include "core/frmMain.h"

#include <cstdlib>
#include <fstream>

namespace zel::bench {
namespace {

/// Persons chosen one after the other.
constexpr int personsEach = 50, stride = 97;

/// Key of the person in a row of the list.
int keyOf(BenchProgram& program, std::int64_t row) {
    program.choosePerson(row);
    return std::stoi(program.post().dbcPersonnel.BoundText());
}

std::int64_t allTexts(forms::TDBGrid& grid) {
    std::int64_t letters = 0;
    for (std::int64_t row = 0; row < grid.rowCount(); ++row)
        for (int column = 0; column < grid.columnCount(); ++column)
            letters += static_cast<std::int64_t>(grid.cellText(row, column).size());
    return letters;
}

/// What a clerk waits for between choosing a name and seeing its postings: rules, rows, sort, the grid at its last row.
void choosePersons(benchmark::State& state, Rivals& rivals, bool withTexts) {
    const bool sqlite = rivals.connection().engine().kind() == ado::EngineKind::Sqlite;
    const std::size_t statement =
        rivals.kept().keep(std::string("select * from ") + plainTable + " where PersonID = " + (sqlite ? "?1" : "$1") +
                           " and FinalCol = 0 order by ActivityDT, StartTime, StopTime");
    BenchProgram program(rivals.open());
    program.openPosting();
    std::vector<RawParameters> keys;
    for (int i = 0; i < personsEach; ++i)
        keys.emplace_back(std::vector<ado::Value>{keyOf(program, i * stride % program.post().dbcPersonnel.rowCount())});
    std::int64_t rows = 0, rawRows = 0;
    forms::TDBGrid& grid = program.post().dbgPersonnelPost;
    runPairs(
        state,
        [&] {
            rows = 0;
            for (int i = 0; i < personsEach; ++i) {
                program.choosePerson(i * stride % program.post().dbcPersonnel.rowCount());
                rows += grid.rowCount();
                if (withTexts && allTexts(grid) == 0)
                    std::abort();
            }
        },
        [&] {
            rawRows = -rivals.kept().rowsRead();
            for (const RawParameters& key : keys)
                rivals.kept().run(statement, key, KeptStatements::Cells::Copied);
            rawRows += rivals.kept().rowsRead();
        });
    program.requireNoBox();
    if (rows != rawRows || rows == 0)
        std::abort();
    state.counters["rows_each"] = static_cast<double>(rows) / personsEach;
}

double megabytes() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.starts_with("VmHWM:"))
            return std::stod(line.substr(6)) / 1024;
    return 0;
}

/// What a clerk waits for at a site of 50,000 persons with 1,000,000 postings, each step timed by itself.
void useScreens(benchmark::State& state, Rivals& rivals) {
    BenchProgram program(rivals.open());
    forms::User& user = program.user();
    posting::frmPost* post = nullptr;
    std::int64_t row = 0;
    const auto manageAll = [&](bool on) {
        const forms::FormRegistry::Action action(program.session().forms);
        if (program.session().gManageAll != on)
            require(user.check(program.shell().chkManageAll, on));
        program.forgetBoxes();
    };
    Steps steps;
    for (auto iteration : state) {
        (void)iteration;
        steps.time("open", [&] {
            program.openPosting();
            (void)program.post().dbcPersonnel.rowCount(); // a window shows how long the list is
        });
        post = &program.post();
        steps.time("choose", [&] { program.choosePerson(row += stride); });
        steps.time("F5", [&] {
            const forms::FormRegistry::Action action(program.session().forms);
            program.shell().mnuFileRefresh_Click();
        });
        steps.time("crews", [&] { require(user.selectTab(post->tabPosting, 1)); });
        steps.time("equipment", [&] { require(user.selectTab(post->tabPosting, 2)); });
        steps.time("persons", [&] { require(user.selectTab(post->tabPosting, 0)); });
        steps.time("manage_all", [&] { manageAll(true); });
        steps.time("choose_of_all", [&] { program.choosePerson(row += stride); });
        steps.time("manage_one", [&] { manageAll(false); });
        program.requireNoBox();
        require(user.close(*post));
    }
    steps.report(state);
    state.counters["MB"] = megabytes();
}

void addChoices(const std::string& name, bool withTexts) {
    addPairs("one_person_chosen_of_1000000" + name + "/sqlite", [withTexts](benchmark::State& state) {
        choosePersons(state, *sqliteRivals(databaseFile(Content::ManyPostings), plainIndexFile(Content::ManyPostings)),
                      withTexts);
    });
    addPairs("one_person_chosen_of_1000000" + name + "/postgres", [withTexts](benchmark::State& state) {
        choosePersons(state, *postgresRivals(Content::ManyPostings), withTexts);
    });
}

const bool added = [] {
    addChoices("", false);
    addChoices("_every_cell_as_text", true);
    addSteps("screens_of_50000_persons/sqlite", [](benchmark::State& state) {
        const auto file = databaseFile(Content::ManyOfBoth);
        useScreens(state, *sqliteRivals(file, file));
    });
    addSteps("screens_of_50000_persons/postgres",
             [](benchmark::State& state) { useScreens(state, *postgresRivals(Content::ManyOfBoth)); });
    return true;
}();

} // namespace
} // namespace zel::bench
