#include "posting/modMath.h"
#include "posting/overlap_check.h"
#include "support/test_session.h"

#include <fmt/format.h>

#include <random>
#include <set>
#include <vector>

namespace zel::posting {
namespace {

constexpr int minutesPerDay = 1440;
const ado::DateTime day = ado::DateTime::fromDate(2005, 7, 4);

/// A stretch of minutes from the start of the first day on.
struct Minutes {
    int begin, end;
    [[nodiscard]] bool shares(const Minutes& other) const { return begin < other.end && other.begin < end; }
};

/// Times as minutes of a day; a stop of 0 is the end of the day.
struct Times {
    int start, stop;
    [[nodiscard]] bool toMidnight() const { return stop == 0; }
    [[nodiscard]] bool overMidnight() const { return stop != 0 && stop <= start; }
};

struct Row {
    int key, dayOffset;
    Times times;
    [[nodiscard]] Minutes minutes() const {
        const int from = dayOffset * minutesPerDay;
        return {from + times.start, from + (times.toMidnight() ? minutesPerDay : times.stop)};
    }
};

std::vector<Minutes> minutesOf(const Times& period) {
    if (period.overMidnight())
        return {{period.start, minutesPerDay}, {minutesPerDay + 1, minutesPerDay + period.stop}};
    return {{period.start, period.toMidnight() ? minutesPerDay : period.stop}};
}

/// A period inside a day does not see a row that began before it and runs to the end of that day: such a stop is 0.
bool inBlindSpot(const Times& period, const Row& row) {
    return !period.overMidnight() && !period.toMidnight() && row.dayOffset == 0 && row.times.toMidnight() &&
           row.times.start < period.start;
}

/// On the day after midnight a row to the end of that day counts, since its stop of 0 lies before any stop.
bool isFalseHit(const Times& period, const Row& row) {
    return period.overMidnight() && row.dayOffset == 1 && row.times.toMidnight();
}

std::set<int> expectedClashes(const Times& period, const std::vector<Row>& rows) {
    std::set<int> keys;
    for (const Row& row : rows) {
        bool clash = false;
        for (const Minutes& part : minutesOf(period))
            clash = clash || part.shares(row.minutes());
        if ((clash && !inBlindSpot(period, row)) || isFalseHit(period, row))
            keys.insert(row.key);
    }
    return keys;
}

class OverlapModelTest : public test::SessionTest {
protected:
    Times randomRowTimes() {
        const int start = quarter(0, 94);
        const int stop = quarter(start / 15 + 1, 96) % minutesPerDay;
        return {start == 0 ? 1 : start, stop};
    }
    Times randomPeriod() {
        const int start = quarter(1, 95);
        int stop = quarter(0, 95);
        if (stop == start)
            stop = (stop + 15) % minutesPerDay;
        return {start, stop};
    }
    int quarter(int first, int last) { return std::uniform_int_distribution<>(first, last)(random_) * 15; }

    void insert(const Row& row, int person) {
        const auto text = [](int minute) { return fmt::format("1899-12-30 {:02}:{:02}:00", minute / 60, minute % 60); };
        execute(fmt::format("Insert into PersonsPost (PersonsPostID,PersonID,ActivityDT,StartTime,StopTime) Values "
                            "({},{},'7/{}/2005','{}','{}')",
                            row.key, person, 4 + row.dayOffset, text(row.times.start), text(row.times.stop)));
    }
    std::set<int> foundClashes(const Times& period, int person) {
        const auto time = [](int minute) { return ado::DateTime::fromTime(minute / 60, minute % 60); };
        (void)CheckPersonOverlap(session(), day, person, 0, time(period.start), time(period.stop));
        std::set<int> keys;
        std::string list = session().vYNMSa;
        for (char& character : list)
            character = character == ',' ? ' ' : character;
        std::istringstream words(list);
        for (int key = 0; words >> key;)
            keys.insert(key);
        return keys;
    }

private:
    std::mt19937 random_{20050704}; // every run sees the same days
};
ZEL_ON_BOTH_ENGINES(OverlapModelTest);

TEST_P(OverlapModelTest, AgreesWithCountingMinutesButForTheTwoKnownDifferences) {
    int key = 0;
    for (int person = 1; person <= 120; ++person) {
        std::vector<Row> rows;
        for (int count = 0; count < 4; ++count) {
            rows.push_back({++key, count % 2, randomRowTimes()});
            insert(rows.back(), person);
        }
        for (int attempt = 0; attempt < 6; ++attempt) {
            const Times period = randomPeriod();
            ASSERT_EQ(foundClashes(period, person), expectedClashes(period, rows))
                << "person " << person << ", from minute " << period.start << " to " << period.stop;
        }
    }
}

} // namespace
} // namespace zel::posting
