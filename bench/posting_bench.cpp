#include "bench_data.h"
#include "bench_program.h"
#include "pairs.h"

#include "ado/convert.h"
#include "ado/format.h"
#include "support/recording_engine.h"

#include <cstdlib>
#include <numeric>

namespace zel::bench {
namespace {

using ado::DateTime;
using ado::Value;
using test::EngineLog;

constexpr int postsEach = 10;

/// Days that no posting of the data lies on, one after the other.
class FreeDays {
public:
    DateTime next() { return DateTime::fromDate(2010, 1, 1).addDays(++used_); }

private:
    int used_ = 0;
};

/// A clerk at the posting screen on a person whose time may be taken.
class Clerk {
public:
    explicit Clerk(Rivals& rivals) {
        auto engine = std::make_unique<test::RecordingEngine>(rivals.open());
        log_ = engine->log();
        program_ = std::make_unique<BenchProgram>(std::move(engine));
        program_->openPosting();
        for (std::int64_t row = 0; !mayBePosted(); ++row)
            program_->choosePerson(row);
    }
    void post(DateTime day) {
        program_->post(ado::format(day, "mm/dd/yyyy"), "0800", "1600");
        program_->requireNoBox();
    }
    [[nodiscard]] EngineLog& log() noexcept { return *log_; }

private:
    [[nodiscard]] bool mayBePosted() {
        forms::TDBCombo& list = program_->post().dbcPersonnel;
        const Value account = list.Columns("AcctID").value();
        return ado::toText(list.Columns("PStatus").value()) == "C" &&
               ado::toText(list.Columns("FedCode").value()) == "FED" && !account.isEmpty() && ado::toLong(account) > 0;
    }

    std::shared_ptr<EngineLog> log_;
    std::unique_ptr<BenchProgram> program_;
};

/// The statements of one posting as the program sent them, to be sent raw with the key and the day of another.
class RawPosting {
public:
    RawPosting(Clerk& clerk, DateTime day, KeptStatements& raw) : raw_(raw), day_(day) {
        clerk.log().recording = true;
        clerk.post(day);
        clerk.log().recording = false;
        runs_ = std::move(clerk.log().runs);
        key_ = clerk.log().lastNumber;
        for (const EngineLog::Run& run : runs_)
            places_.push_back(raw.keep(run.text));
    }
    void post(DateTime day) const {
        long long key = 0;
        for (std::size_t i = 0; i < runs_.size(); ++i) {
            const long long number =
                raw_.run(places_[i], RawParameters(parameters(runs_[i], key, day)), KeptStatements::Cells::Read);
            if (key == 0)
                key = number;
        }
    }
    [[nodiscard]] std::size_t statements() const noexcept { return runs_.size(); }

private:
    [[nodiscard]] std::vector<Value> parameters(const EngineLog::Run& run, long long key, DateTime day) const {
        std::vector<Value> made = run.parameters;
        for (Value& parameter : made)
            if (parameter == Value(key_))
                parameter = Value(static_cast<std::int64_t>(key));
            else if (parameter == Value(day_))
                parameter = Value(day);
        return made;
    }

    KeptStatements& raw_;
    DateTime day_;
    std::int64_t key_ = 0;
    std::vector<std::size_t> places_;
    std::vector<EngineLog::Run> runs_;
};

int preparations(const EngineLog& log) {
    return std::accumulate(log.prepared.begin(), log.prepared.end(), 0,
                           [](int sum, const auto& text) { return sum + text.second; });
}

/// Ticket after ticket of one person: keyed in, checked, written, and the person's rows shown again.
void postTickets(benchmark::State& state, Rivals& rivals) {
    const auto forget = [&] { rivals.connection().Execute("delete from PersonsPost where ActivityDT > '1/1/2010'"); };
    const auto count = [&] {
        ado::Recordset rows;
        rows.Open("select count(*) from PersonsPost where ActivityDT > '1/1/2010'", rivals.connection());
        return ado::toLong(rows.value(0));
    };
    forget();
    FreeDays days;
    Clerk clerk(rivals);
    clerk.post(days.next());
    const RawPosting rawPosting(clerk, days.next(), rivals.kept());
    const int prepared = preparations(clerk.log());
    runPairs(
        state,
        [&] {
            for (int ticket = 0; ticket < postsEach; ++ticket)
                clerk.post(days.next());
        },
        [&] {
            for (int ticket = 0; ticket < postsEach; ++ticket)
                rawPosting.post(days.next());
        });
    if (count() != 2 + 2 * (pairCount + 1) * postsEach)
        std::abort();
    state.counters["statements_each"] = static_cast<double>(rawPosting.statements());
    state.counters["prepared_again"] = preparations(clerk.log()) - prepared;
    forget();
}

const bool added = [] {
    const auto sqlite = [](benchmark::State& state, bool durable) {
        const auto file = databaseFile(Content::ManyPostings);
        postTickets(state, *sqliteRivals(file, file, durable));
    };
    addPairs("post_10_tickets/sqlite/limit_1.15", [=](benchmark::State& state) { sqlite(state, true); });
    addPairs("post_10_tickets/sqlite_not_waiting_for_the_disk", [=](benchmark::State& state) { sqlite(state, false); });
    addPairs("post_10_tickets/postgres/limit_1.15",
             [](benchmark::State& state) { postTickets(state, *postgresRivals(Content::ManyPostings)); });
    return true;
}();

} // namespace
} // namespace zel::bench
