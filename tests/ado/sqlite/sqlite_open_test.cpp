#include "../engines/engine_fixture.h"

#include "ado/sqlite/engine.h"
#include "ado/sqlite/open.h"
#include "support/processes.h"
#include "support/run_folder.h"

#include <fmt/format.h>

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>

namespace zel::ado {
namespace {

namespace fs = std::filesystem;
using testing::AllOf;
using testing::HasSubstr;

std::string bytesOf(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// A folder of its own for each test, so that a file too many is seen.
class SqliteOpenTest : public testing::Test {
protected:
    SqliteOpenTest() { fs::create_directory(folder_); }
    ~SqliteOpenTest() override { fs::remove_all(folder_); }

    [[nodiscard]] fs::path file() const { return folder_ / "korvan.mdb"; }
    void write(std::string_view bytes) const { std::ofstream(file(), std::ios::binary) << bytes; }
    /// A copy of a whole database of the program.
    void copyDatabase() const { fs::copy_file(test::TestDatabase(EngineKind::Sqlite).file(), file()); }
    [[nodiscard]] std::size_t files() const {
        return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder_), fs::directory_iterator()));
    }
    /// Why the file cannot be opened; it must be the same afterwards, and alone.
    [[nodiscard]] std::string refusal() const {
        const std::string before = bytesOf(file());
        const std::size_t filesBefore = files();
        const Error error = errorFrom([&] { static_cast<void>(openSqlite(file())); });
        EXPECT_EQ(error.kind(), ErrorKind::Open);
        EXPECT_EQ(bytesOf(file()), before);
        EXPECT_EQ(files(), filesBefore);
        return error.description();
    }

private:
    fs::path folder_ = test::runFolder() / fmt::format("open_{}", ::getpid());
};

TEST_F(SqliteOpenTest, AMissingFileIsNotMade) {
    EXPECT_THAT(refusal(), AllOf(HasSubstr("korvan.mdb"), HasSubstr("there is no such file")));
    EXPECT_FALSE(fs::exists(file()));
}

TEST_F(SqliteOpenTest, AFolderIsRefused) {
    const Error error = errorFrom([&] { static_cast<void>(openSqlite(file().parent_path())); });
    EXPECT_THAT(error.description(), HasSubstr("it is a folder"));
}

TEST_F(SqliteOpenTest, AnEmptyFileIsNoDatabase) {
    write("");
    EXPECT_THAT(refusal(), HasSubstr("it is not a database"));
}

TEST_F(SqliteOpenTest, ATextIsNoDatabase) {
    write(std::string(5000, 'x'));
    EXPECT_THAT(refusal(), HasSubstr("it is not a database"));
}

TEST_F(SqliteOpenTest, AHeaderAloneIsNoDatabase) {
    write(std::string_view("SQLite format 3\0", 16));
    EXPECT_THAT(refusal(), HasSubstr("it is not a database"));
}

TEST_F(SqliteOpenTest, AJetFileIsToldApartAndHelpIsOffered) {
    for (const std::string name : {"Standard Jet DB", "Standard ACE DB"}) {
        write(std::string("\0\1\0\0", 4) + name + std::string(4096, '\0'));
        EXPECT_THAT(refusal(), AllOf(HasSubstr("Jet database"), HasSubstr("korvan-db create")));
    }
}

TEST_F(SqliteOpenTest, ADatabaseOfAnotherProgramIsRefused) {
    copyDatabase();
    std::fstream(file(), std::ios::binary | std::ios::in | std::ios::out).seekp(68).write("\0\0\0\7", 4);
    EXPECT_THAT(refusal(), HasSubstr("another program"));
}

TEST_F(SqliteOpenTest, ADatabaseWithoutAVersionIsRefused) {
    copyDatabase();
    run(*openSqlite(file()), "DROP TABLE Version");
    EXPECT_THAT(refusal(), HasSubstr("holds no version"));
}

TEST_F(SqliteOpenTest, ADamagedFileSaysSo) {
    copyDatabase();
    const auto size = fs::file_size(file());
    std::fstream(file(), std::ios::binary | std::ios::in | std::ios::out)
        .seekp(4096)
        .write(std::string(size - 4096, '\xAA').c_str(), static_cast<std::streamsize>(size - 4096));
    EXPECT_THAT(errorFrom([&] { one(*openSqlite(file()), "SELECT count(*) FROM Persons"); }).description(),
                HasSubstr("damaged"));
}

TEST_F(SqliteOpenTest, OpeningAndReadingChangesNothing) {
    copyDatabase();
    const std::string before = bytesOf(file());
    EXPECT_NE(one(*openSqlite(file()), "SELECT count(*) FROM L_State"), Value(0));
    EXPECT_EQ(bytesOf(file()), before);
    EXPECT_EQ(files(), 1U);
}

TEST_F(SqliteOpenTest, OpenedReadOnlyItIsReadAndNotWritten) {
    copyDatabase();
    const auto engine = openSqlite(file(), {.readOnly = true});
    EXPECT_NE(one(*engine, "SELECT count(*) FROM L_State"), Value(0));
    const Error error = errorFrom([&] { run(*engine, "DELETE FROM L_State"); });
    EXPECT_EQ(error.kind(), ErrorKind::ReadOnly);
    EXPECT_THAT(error.description(), HasSubstr("read-only"));
}

TEST_F(SqliteOpenTest, AWriteProtectedFileIsReadAndNotWritten) {
    copyDatabase();
    fs::permissions(file(), fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
    const std::vector<int> reported = test::inProcesses(1, [&](int /*process*/, const test::Report& report) {
        // The superuser may write whatever is protected.
        if (::geteuid() == 0 && ::setuid(65534) != 0)
            return;
        const auto engine = openSqlite(file());
        report(one(*engine, "SELECT count(*) FROM L_State") != Value(0) ? 1 : 0);
        report(static_cast<int>(errorFrom([&] { run(*engine, "DELETE FROM L_State"); }).kind()));
    });
    EXPECT_THAT(reported, testing::ElementsAre(1, static_cast<int>(ErrorKind::ReadOnly)));
}

TEST_F(SqliteOpenTest, AFullDiskIsToldAndNothingIsWritten) {
    copyDatabase();
    const auto engine = openSqlite(file());
    const auto pages = one(*engine, "PRAGMA page_count").as<std::int64_t>();
    one(*engine, fmt::format("PRAGMA max_page_count = {}", pages));
    const auto insert = [&] {
        run(*engine, "INSERT INTO Resources (ResourceID, Remarks) VALUES (1, ?)", {std::string(1'000'000, 'x')});
    };
    EXPECT_THAT(errorFrom(insert).description(), HasSubstr("disk is full"));
    EXPECT_EQ(one(*engine, "SELECT count(*) FROM Resources"), Value(0));
    one(*engine, fmt::format("PRAGMA max_page_count = {}", pages + 1000));
    EXPECT_NO_THROW(insert());
    EXPECT_EQ(one(*engine, "PRAGMA integrity_check"), Value("ok"));
}

TEST_F(SqliteOpenTest, CommitsReachTheDisk) {
    copyDatabase();
    constexpr int full = 2;
    EXPECT_EQ(one(*openSqlite(file()), "PRAGMA synchronous"), Value(full));
}

TEST_F(SqliteOpenTest, TheJournalIsOneThatThisLibraryKeepsSafely) {
    copyDatabase();
    one(*openSqlite(file()), "PRAGMA journal_mode = WAL");
    const Value version = one(*openSqlite(file()), "SELECT sqlite_version()");
    const bool old = version.as<std::string>().starts_with("3.4");
    EXPECT_EQ(one(*openSqlite(file()), "PRAGMA journal_mode"), Value(old ? "persist" : "wal"))
        << version.as<std::string>();
    EXPECT_FALSE(sqlite::libraryMayUseWal(3'040'001));
    EXPECT_FALSE(sqlite::libraryMayUseWal(3'051'002));
    EXPECT_TRUE(sqlite::libraryMayUseWal(3'051'003));
}

} // namespace
} // namespace zel::ado
