#include "ado/connection.h"
#include "korvandb/check.h"
#include "korvandb/rows.h"
#include "korvandb/target.h"
#include "support/database_test.h"

#include <gmock/gmock.h>

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <set>
#include <stdexcept>
#include <vector>

/// Many clerks at once and clerks whose machine dies. Runs small with every test run; ZEL_STRESS=long makes it the size
/// of a busy day.
namespace zel::korvandb {
namespace {

using testing::IsEmpty;

bool isLong() {
    const char* size = std::getenv("ZEL_STRESS");
    return size != nullptr && std::string_view(size) == "long";
}

/// A process that hands keys to the test, one by one.
class Clerk {
public:
    /// `work` runs in a process of its own, and gives each key by calling what it is handed.
    template <typename Work>
    explicit Clerk(Work work) {
        std::array<int, 2> ends{};
        if (::pipe(ends.data()) != 0)
            throw std::runtime_error("no pipe");
        process_ = ::fork();
        if (process_ == 0) {
            ::close(ends[0]);
            ::_exit(run(work, ends[1]));
        }
        ::close(ends[1]);
        keys_ = ends[0];
    }
    ~Clerk() { ::close(keys_); }
    Clerk(const Clerk&) = delete;
    Clerk& operator=(const Clerk&) = delete;

    /// 0 when there will be no more.
    [[nodiscard]] std::int32_t nextKey() const {
        std::int32_t key = 0;
        return ::read(keys_, &key, sizeof key) == sizeof key ? key : 0;
    }
    void kill() const { ::kill(process_, SIGKILL); }
    [[nodiscard]] bool endedWell() const {
        int status = 0;
        ::waitpid(process_, &status, 0);
        return WIFEXITED(status) && WEXITSTATUS(status) == 0;
    }

private:
    template <typename Work>
    static int run(Work work, int pipe) noexcept {
        try {
            work([pipe](std::int32_t key) { return ::write(pipe, &key, sizeof key) == sizeof key; });
            return 0;
        } catch (const std::exception& failure) {
            static_cast<void>(std::fprintf(stderr, "clerk: %s\n", failure.what()));
            return 1;
        }
    }

    pid_t process_ = 0;
    int keys_ = -1;
};

class Stress : public zel::test::DatabaseTest {
protected:
    void SetUp() override { ::setenv("PGUSER", zel::test::serverUser, 1); }
    ado::Engine& engine() { return connection().engine(); }
    void run(std::string_view statement) { connection().Execute(statement); }
    std::set<std::int64_t> storedKeys() {
        const Rows rows(engine(), "SELECT PersonsPostID FROM PersonsPost");
        std::set<std::int64_t> keys;
        for (std::size_t row = 0; row < rows.size(); ++row)
            keys.insert(rows.number(row, 0));
        return keys;
    }
};
ZEL_ON_BOTH_ENGINES(Stress);

TEST_P(Stress, Eight_clerks_who_take_keys_at_once_get_each_key_once_and_lose_none) {
    const int clerks = 8, each = isLong() ? 2'000 : 25;
    run("INSERT INTO Persons (PersonID) VALUES (500)");
    std::vector<std::unique_ptr<Clerk>> office;
    office.reserve(clerks);
    for (int i = 0; i < clerks; ++i)
        office.push_back(std::make_unique<Clerk>([&, target = database().target()](auto give) {
            const auto clerk = Target(target).open();
            for (int taken = 0; taken < each; ++taken)
                give(clerk->nextNumber("Persons", ""));
        }));
    std::set<std::int32_t> keys;
    for (const auto& clerk : office) {
        for (std::int32_t key; (key = clerk->nextKey()) != 0;)
            EXPECT_TRUE(keys.insert(key).second) << key << " was given twice";
        EXPECT_TRUE(clerk->endedWell());
    }
    ASSERT_EQ(keys.size(), static_cast<std::size_t>(clerks) * each);
    EXPECT_EQ(*keys.begin(), 501);
    EXPECT_EQ(*keys.rbegin(), 500 + clerks * each);
    EXPECT_EQ(engine().nextNumber("Persons", ""), 501 + clerks * each);
}

/// Posts without end, and gives each key once its posting is committed.
template <typename Give>
void postWithoutEnd(const std::string& target, Give give) {
    ado::Connection connection(Target(target).open());
    for (std::int32_t key = 0; key == 0 || give(key);) {
        key = connection.engine().nextNumber("PersonsPost", "");
        connection.Execute(std::string_view(
            "Insert into PersonsPost "
            "(PersonsPostID,PersonID,PremiumCode,Class,Rate,ActivityDT,StartTime,StopTime,Hours,"
            "Amt,KindCode,AccountingID)Values (" +
            std::to_string(key) +
            ",1,' ','AD-3',17.12,'2005-07-01 00:00:00','1899-12-30 08:00:00','1899-12-30 16:00:00',8,0,'TIME',1)"));
    }
}

TEST_P(Stress, A_killed_clerk_loses_no_posting_that_was_committed_and_harms_nothing) {
    run("INSERT INTO Incidents (IncidentID) VALUES (1)");
    run("INSERT INTO AccountingCodes (AccountingID, IncidentID, AccountingCode, IncidentDefault) VALUES (1, 1, 'P4', "
        "1)");
    run("INSERT INTO Resources (ResourceID, IncidentID) VALUES (1, 1)");
    run("INSERT INTO Persons (PersonID, ResourceID) VALUES (1, 1)");
    std::set<std::int64_t> committed;
    const int times = isLong() ? 50 : 4;
    for (int time = 0; time < times; ++time) {
        const Clerk clerk([target = database().target()](auto give) { postWithoutEnd(target, give); });
        committed.insert(clerk.nextKey());
        ::usleep(static_cast<useconds_t>(1'000 + time * 7'919 % 60'000));
        clerk.kill();
        for (std::int32_t key; (key = clerk.nextKey()) != 0;)
            committed.insert(key);
        EXPECT_FALSE(clerk.endedWell());

        const std::set<std::int64_t> stored = storedKeys();
        EXPECT_TRUE(std::includes(stored.begin(), stored.end(), committed.begin(), committed.end()));
        EXPECT_LE(stored.size(), committed.size() + static_cast<std::size_t>(time) + 1);
        EXPECT_THAT(checkDatabase(engine(), [](std::string_view, std::int64_t, std::int64_t) {}), IsEmpty());
    }
    EXPECT_FALSE(committed.contains(0));
    std::printf("%zu postings committed, %d clerks killed\n", committed.size(), times);
}

} // namespace
} // namespace zel::korvandb
