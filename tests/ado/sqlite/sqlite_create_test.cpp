#include "../engines/engine_fixture.h"

#include "ado/sqlite/create.h"
#include "ado/sqlite/open.h"
#include "korvandb/create.h"
#include "support/processes.h"
#include "support/run_folder.h"

#include <fmt/format.h>

#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

namespace zel::ado {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::IsEmpty;

class SqliteCreateTest : public testing::Test {
protected:
    SqliteCreateTest() { fs::create_directory(folder_); }
    ~SqliteCreateTest() override { fs::remove_all(folder_); }

    [[nodiscard]] fs::path file() const { return folder_ / "korvan.mdb"; }
    [[nodiscard]] fs::path copy() const { return folder_ / "copy.mdb"; }
    /// Without the wiped journals that stay beside files that were written.
    [[nodiscard]] std::ptrdiff_t files() const {
        return std::count_if(fs::directory_iterator(folder_), fs::directory_iterator(),
                             [](const fs::path& entry) { return entry.extension() != ".mdb-journal"; });
    }
    static void fail(Engine& engine) {
        korvandb::createTables(engine);
        run(engine, "CREATE NONSENSE");
    }

private:
    fs::path folder_ = test::runFolder() / fmt::format("create_{}", ::getpid());
};

TEST_F(SqliteCreateTest, ANewFileIsOursAndOpens) {
    createSqliteFile(file(), korvandb::createTables);
    EXPECT_NE(one(*openSqlite(file()), "SELECT count(*) FROM L_State"), Value(0));
    EXPECT_EQ(files(), 1);
}

TEST_F(SqliteCreateTest, AnExistingFileStays) {
    std::ofstream(file()) << "someone's letter";
    const Error error = errorFrom([&] { createSqliteFile(file(), korvandb::createTables); });
    EXPECT_THAT(error.description(), HasSubstr("exists already"));
    EXPECT_EQ(fs::file_size(file()), 16U);
    EXPECT_EQ(files(), 1);
}

TEST_F(SqliteCreateTest, AFailureLeavesNothingBehind) {
    EXPECT_THROW(createSqliteFile(file(), fail), Error);
    EXPECT_EQ(files(), 0);
}

TEST_F(SqliteCreateTest, AFailureLeavesTheOldFileAsItWas) {
    createSqliteFile(file(), korvandb::createTables);
    run(*openSqlite(file()), "INSERT INTO Incidents (IncidentID) VALUES (7)");
    EXPECT_THROW(createSqliteFile(file(), fail, true), Error);
    EXPECT_EQ(one(*openSqlite(file()), "SELECT IncidentID FROM Incidents"), Value(7));
    EXPECT_EQ(files(), 1);
}

TEST_F(SqliteCreateTest, TheJournalOfAnOldFileIsNotPlayedIntoTheNew) {
    createSqliteFile(file(), [](Engine& engine) {
        korvandb::createTables(engine);
        run(engine, "UPDATE L_State SET Description = 'OLD'");
    });
    test::inProcesses(1, [&](int /*process*/, const test::Report& /*report*/) {
        const auto engine = openSqlite(file());
        one(*engine, "PRAGMA cache_size = 1");
        engine->begin();
        run(*engine, "UPDATE L_State SET Description = 'NEVER COMMITTED'");
        for (int i = 1; i <= 200; ++i)
            run(*engine, "INSERT INTO Resources (ResourceID, Remarks) VALUES (?, ?)", {i, std::string(2000, 'x')});
        ::_exit(0); // as a crash would, with the journal left beside the file
    });
    ASSERT_TRUE(fs::exists(file().string() + "-journal"));
    createSqliteFile(file(), korvandb::createTables, true);
    const auto engine = openSqlite(file());
    EXPECT_EQ(one(*engine, "SELECT count(*) FROM L_State WHERE Description = 'OLD'"), Value(0));
    EXPECT_THAT(checkIntegrity(*engine), IsEmpty());
    EXPECT_EQ(files(), 1);
}

TEST_F(SqliteCreateTest, AMissingFolderIsAClearError) {
    const Error error = errorFrom([&] { createSqliteFile(file().parent_path() / "none" / "a.mdb", fail); });
    EXPECT_EQ(error.kind(), ErrorKind::Open);
}

TEST_F(SqliteCreateTest, ABackupHoldsWhatWasCommitted) {
    createSqliteFile(file(), korvandb::createTables);
    const auto engine = openSqlite(file());
    run(*engine, "INSERT INTO Incidents (IncidentID) VALUES (7)");
    std::ofstream(copy()) << "an older copy";
    backupInto(file(), copy());
    EXPECT_EQ(one(*openSqlite(copy()), "SELECT IncidentID FROM Incidents"), Value(7));
    EXPECT_EQ(files(), 2);
}

TEST_F(SqliteCreateTest, ABackupThatFailsLeavesTheOlderCopy) {
    std::ofstream(file()) << "no database";
    std::ofstream(copy()) << "an older copy";
    EXPECT_THROW(backupInto(file(), copy()), Error);
    EXPECT_EQ(fs::file_size(copy()), 13U);
    EXPECT_EQ(files(), 2);
}

TEST_F(SqliteCreateTest, BackupsOfABusyFileAreWhole) {
    createSqliteFile(file(), korvandb::createTables);
    test::inProcesses(2, [&](int process, const test::Report& /*report*/) {
        if (process == 0) {
            // Each transaction writes a pair, so an odd number is half of one.
            const auto engine = openSqlite(file(), {.durable = false});
            for (int i = 0; i < 400; i += 2) {
                engine->begin();
                run(*engine, "INSERT INTO Resources (ResourceID, Remarks) VALUES (?, ?)", {i, std::string(3000, 'x')});
                run(*engine, "INSERT INTO Resources (ResourceID) VALUES (?)", {i + 1});
                engine->commit();
            }
            return;
        }
        for (int i = 0; i < 10; ++i) {
            backupInto(file(), copy());
            const auto copied = openSqlite(copy());
            if (!checkIntegrity(*copied).empty() ||
                one(*copied, "SELECT count(*) FROM Resources").as<std::int64_t>() % 2 != 0)
                throw Error(ErrorKind::Engine, 0, "a copy is not whole");
        }
    });
    EXPECT_THAT(checkIntegrity(*openSqlite(file())), IsEmpty());
}

} // namespace
} // namespace zel::ado
