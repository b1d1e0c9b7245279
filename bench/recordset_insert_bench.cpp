#include "ado/recordset.h"
#include "bench_data.h"
#include "pairs.h"

namespace zel::bench {
namespace {

using ado::DateTime;
using ado::Recordset;

constexpr int postsEach = 50;

/// One posting of a person as the midnight split writes it: each row its own commit.
void addPosts(ado::Connection& connection, int firstKey) {
    Recordset posts;
    posts.Open("PersonsPost", connection, ado::CursorType::Keyset);
    for (int key = firstKey; key < firstKey + postsEach; ++key) {
        posts.AddNew();
        posts.setValue("PersonsPostID", key);
        posts.setValue("PersonID", 7);
        posts.setValue("ActivityDT", DateTime::fromDate(2006, 7, 4));
        posts.setValue("StartTime", DateTime::fromTime(8, 0));
        posts.setValue("StopTime", "12:00:00 AM");
        posts.setValue("KindCode", "FFT2");
        posts.setValue("Class", "AD-3");
        posts.setValue("Hours", 8.0F);
        posts.setValue("Rate", "018.2");
        posts.setValue("AccountingID", 1);
        posts.Update();
    }
    posts.Close();
}

void insertPosts(benchmark::State& state, Rivals& rivals) {
    const bool sqlite = rivals.connection().engine().kind() == ado::EngineKind::Sqlite;
    const std::string rawText =
        std::string("insert into PersonsPost (PersonsPostID, PersonID, ActivityDT, StartTime, StopTime, KindCode, "
                    "Class, Hours, Rate, AccountingID) values (") +
        (sqlite ? "?1" : "$1") +
        ", 7, '2006-07-04 00:00:00', '1899-12-30 08:00:00', '1899-12-30 00:00:00', 'FFT2', 'AD-3', 8, '18.2000', 1)";
    ado::Connection& connection = rivals.connection();
    const auto forget = [&] { connection.Execute("delete from PersonsPost where PersonsPostID >= 100000000"); };
    forget();
    int nextKey = 100'000'000;
    runPairs(
        state, [&] { addPosts(connection, nextKey += postsEach); },
        [&] { rivals.insertPosts(rawText, nextKey += postsEach, postsEach); });
    forget();
}

const bool added = [] {
    addPairs("insert_50_posts_one_commit_each/sqlite", [](benchmark::State& state) {
        const auto file = databaseFile(Content::ManyPostings);
        insertPosts(state, *sqliteRivals(file, file));
    });
    addPairs("insert_50_posts_one_commit_each/postgres",
             [](benchmark::State& state) { insertPosts(state, *postgresRivals(Content::ManyPersons)); });
    return true;
}();

} // namespace
} // namespace zel::bench
