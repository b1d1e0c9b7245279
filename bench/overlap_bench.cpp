#include "bench_data.h"
#include "bench_program.h"
#include "pairs.h"

#include "ado/sql/translator.h"
#include "posting/overlap_check.h"

#include <cstdlib>

namespace zel::bench {
namespace {

using ado::DateTime;

/// A check against the row of a day, and one that finds nothing, for each of these many persons.
constexpr int personsEach = 100;

struct Question {
    std::int32_t person;
    DateTime start, stop;
};

std::vector<Question> questions(int persons) {
    std::vector<Question> made;
    for (int i = 0; i < personsEach; ++i) {
        const std::int32_t person = 1 + (i * 7919) % persons;
        made.push_back({person, DateTime::fromTime(9, 0), DateTime::fromTime(10, 0)});
        made.push_back({person, DateTime::fromTime(3, 0), DateTime::fromTime(3, 15)});
    }
    return made;
}

struct RawQuestion {
    std::size_t statement;
    RawParameters parameters;
};

/// The statements of the checks on the table with the plain index, as a program has them that knows them beforehand.
std::vector<RawQuestion> rawQuestions(Rivals& rivals, core::Session& session, DateTime day,
                                      const std::vector<Question>& asked) {
    const std::string table = "PersonsPost ";
    std::vector<RawQuestion> made;
    for (const Question& question : asked)
        for (const ado::Sql& statement :
             posting::personOverlapStatements(session, day, question.person, 0, question.start, question.stop)) {
            const auto prepared = rivals.connection().prepare(statement);
            std::string text = prepared.translation->engineText;
            text.replace(text.find(table), table.size() - 1, plainTable);
            made.push_back({rivals.kept().keep(text), RawParameters(prepared.parameters)});
        }
    return made;
}

void checkOverlaps(benchmark::State& state, Rivals& rivals, int persons) {
    const DateTime day = DateTime::fromDate(2005, 7, 10);
    BenchProgram program(rivals.open());
    core::Session& session = program.session();
    const std::vector<Question> asked = questions(persons);
    const std::vector<RawQuestion> raw = rawQuestions(rivals, session, day, asked);
    std::size_t found = 0;
    long read = 0;
    runPairs(
        state,
        [&] {
            found = 0;
            for (const Question& question : asked)
                found +=
                    posting::CheckPersonOverlap(session, day, question.person, 0, question.start, question.stop).empty()
                        ? 0
                        : 1;
        },
        [&] {
            read = rivals.kept().rowsRead();
            for (const RawQuestion& question : raw)
                rivals.kept().run(question.statement, question.parameters, KeptStatements::Cells::Read);
            read = rivals.kept().rowsRead() - read;
        });
    if (found == 0 || read == 0 || found == asked.size())
        std::abort();
    state.counters["rows_found"] = static_cast<double>(read);
}

void addSqlite(const std::string& name, Content content, int persons) {
    addPairs(name, [content, persons](benchmark::State& state) {
        checkOverlaps(state, *sqliteRivals(databaseFile(content), plainIndexFile(content)), persons);
    });
}

const bool added = [] {
    addSqlite("200_overlap_checks_of_10000/sqlite/limit_1", Content::FewPostings, 50);
    addSqlite("200_overlap_checks_of_1000000/sqlite/limit_1", Content::ManyPostings, 5'000);
    addSqlite("200_overlap_checks_of_10000000/sqlite/limit_1", Content::MostPostings, 50'000);
    addPairs("200_overlap_checks_of_10000/postgres/limit_1",
             [](benchmark::State& state) { checkOverlaps(state, *postgresRivals(Content::FewPostings), 50); });
    addPairs("200_overlap_checks_of_1000000/postgres/limit_1",
             [](benchmark::State& state) { checkOverlaps(state, *postgresRivals(Content::ManyPostings), 5'000); });
    return true;
}();

} // namespace
} // namespace zel::bench
