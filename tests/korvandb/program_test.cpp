#include "korvandb/program_run.h"
#include "korvandb/rows.h"
#include "support/database_test.h"
#include "support/run_folder.h"

#include <gmock/gmock.h>

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>

namespace zel::korvandb {
namespace {

namespace fs = std::filesystem;

using testing::HasSubstr;
using zel::test::korvanDb;
using zel::test::ProgramRun;

std::string bytesOf(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// Works in a folder of its own.
class Program : public testing::Test {
protected:
    Program() { fs::create_directory(folder_); }
    ~Program() override { fs::remove_all(folder_); }

    [[nodiscard]] fs::path file(const std::string& name) const { return folder_ / name; }
    fs::path write(const std::string& name, const std::string& bytes) const {
        std::ofstream(file(name), std::ios::binary) << bytes;
        return file(name);
    }
    [[nodiscard]] std::size_t filesLeft() const {
        return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder_), fs::directory_iterator()));
    }

private:
    fs::path folder_ = zel::test::runFolder() / ("program_" + std::to_string(::getpid()));
};

TEST_F(Program, Create_makes_a_sound_database_without_incidents) {
    const ProgramRun made = korvanDb("create " + file("a.mdb").string());
    EXPECT_EQ(made.status, 0) << made.output;
    EXPECT_EQ(made.output, "Made " + file("a.mdb").string() + ".\n");
    EXPECT_EQ(filesLeft(), 1U);

    const ProgramRun checked = korvanDb("check " + file("a.mdb").string());
    EXPECT_EQ(checked.status, 0);
    EXPECT_EQ(checked.output, file("a.mdb").string() + " is sound.\n");
}

TEST_F(Program, Demo_and_info_tell_what_is_in_it) {
    const ProgramRun made = korvanDb("demo " + file("a.mdb").string());
    EXPECT_EQ(made.output, "Made " + file("a.mdb").string() + " with 137 persons and 1540 postings.\n");

    const ProgramRun info = korvanDb("info " + file("a.mdb").string());
    EXPECT_EQ(info.status, 0);
    EXPECT_THAT(info.output, HasSubstr("Database   Data Source=" + file("a.mdb").string() + "\n"));
    EXPECT_THAT(info.output, HasSubstr("Version    Database 5.01.00, ZEL 5.01.00\n"));
    EXPECT_THAT(info.output, HasSubstr("Incidents  2\n"));
    EXPECT_THAT(info.output, HasSubstr("MT-PHC-000417  PINE HOLLOW COMPLEX: 53 resources, 100 persons\n"));
    EXPECT_THAT(info.output, HasSubstr("Persons                      137        138\n"));
}

TEST_F(Program, An_existing_database_is_replaced_with_force_alone) {
    ASSERT_EQ(korvanDb("demo " + file("a.mdb").string()).status, 0);
    const std::string before = bytesOf(file("a.mdb"));
    for (const char* command : {"create ", "demo "}) {
        const ProgramRun refused = korvanDb(command + file("a.mdb").string());
        EXPECT_EQ(refused.status, 3);
        EXPECT_THAT(refused.output, HasSubstr("exists already; --force replaces it"));
    }
    EXPECT_EQ(bytesOf(file("a.mdb")), before);

    EXPECT_EQ(korvanDb("create --force " + file("a.mdb").string()).status, 0);
    EXPECT_THAT(korvanDb("info " + file("a.mdb").string()).output, HasSubstr("Incidents  0\n"));
    EXPECT_EQ(filesLeft(), 1U);
}

/// Each command refuses the file, says why, and leaves every byte of it.
void expectRefused(const fs::path& file, const std::string& why) {
    const std::string before = bytesOf(file);
    for (const char* command : {"check ", "info ", "demo --force ", "create --force "}) {
        const ProgramRun refused = korvanDb(command + file.string());
        EXPECT_EQ(refused.status, 3) << command;
        EXPECT_THAT(refused.output, HasSubstr(why)) << command;
    }
    EXPECT_EQ(bytesOf(file), before);
}

TEST_F(Program, What_is_no_database_of_the_suite_stays_as_it_was) {
    expectRefused(write("letter.mdb", "Dear colleague, " + std::string(500, 'x')), "it is not a database");
    expectRefused(write("empty.mdb", ""), "it is not a database");
    expectRefused(write("jet.mdb", std::string("\x00\x01\x00\x00Standard Jet DB\x00", 20) + std::string(4096, '\x01')),
                  "it is a Jet database");

    ASSERT_EQ(korvanDb("create " + file("a.mdb").string()).status, 0);
    std::string foreign = bytesOf(file("a.mdb"));
    foreign.replace(68, 4, 4, '\0'); // the application id
    expectRefused(write("foreign.mdb", foreign), "it is the database of another program");
}

TEST_F(Program, A_missing_file_or_folder_is_said) {
    EXPECT_EQ(korvanDb("check " + file("none.mdb").string()).status, 3);
    EXPECT_THAT(korvanDb("info " + file("none.mdb").string()).output, HasSubstr("there is no such file"));
    const ProgramRun noFolder = korvanDb("create " + file("none/a.mdb").string());
    EXPECT_EQ(noFolder.status, 3);
    EXPECT_FALSE(noFolder.output.empty());
    EXPECT_EQ(filesLeft(), 0U);
}

TEST_F(Program, A_read_only_database_is_looked_at_but_not_replaced) {
    ASSERT_EQ(korvanDb("create " + file("a.mdb").string()).status, 0);
    fs::permissions(file("a.mdb"), fs::perms::owner_read);
    const std::string before = bytesOf(file("a.mdb"));
    EXPECT_EQ(korvanDb("check " + file("a.mdb").string()).status, 0);
    EXPECT_EQ(korvanDb("info " + file("a.mdb").string()).status, 0);
    const ProgramRun refused = korvanDb("demo --force " + file("a.mdb").string());
    EXPECT_EQ(refused.status, 3);
    EXPECT_THAT(refused.output, HasSubstr("is read-only and is not replaced"));
    EXPECT_EQ(bytesOf(file("a.mdb")), before);
}

TEST_F(Program, A_disk_that_fills_up_leaves_the_old_database_and_nothing_half_made) {
    const std::string fullDisk = "trap '' XFSZ; ulimit -f 200; exec";
    const ProgramRun refused = korvanDb("create " + file("new.mdb").string(), fullDisk);
    EXPECT_EQ(refused.status, 3);
    EXPECT_THAT(refused.output, HasSubstr("korvan-db: "));
    EXPECT_EQ(filesLeft(), 0U);

    ASSERT_EQ(korvanDb("create " + file("a.mdb").string()).status, 0);
    const std::string before = bytesOf(file("a.mdb"));
    EXPECT_EQ(korvanDb("demo --force " + file("a.mdb").string(), fullDisk).status, 3);
    EXPECT_EQ(bytesOf(file("a.mdb")), before);
    EXPECT_EQ(filesLeft(), 1U);
}

TEST_F(Program, Work_that_is_interrupted_leaves_nothing_half_made) {
    const ProgramRun stopped = korvanDb("demo --persons 500000 " + file("a.mdb").string(),
                                        "exec timeout --foreground --preserve-status --signal=INT 1");
    EXPECT_EQ(stopped.status, 3);
    EXPECT_THAT(stopped.output, HasSubstr("stopped; nothing was changed"));
    EXPECT_EQ(filesLeft(), 0U);
}

TEST_F(Program, Check_prints_a_line_for_each_fault_of_a_damaged_file) {
    ASSERT_EQ(korvanDb("demo " + file("a.mdb").string()).status, 0);
    std::string bytes = bytesOf(file("a.mdb"));
    bytes.replace(bytes.size() / 2, 600, 600, 'Z');
    write("a.mdb", bytes);
    const ProgramRun checked = korvanDb("check " + file("a.mdb").string());
    EXPECT_EQ(checked.status, 1) << checked.output;
    EXPECT_THAT(checked.output, testing::Not(HasSubstr("is sound")));
}

TEST_F(Program, A_wrong_command_line_has_a_status_of_its_own) {
    EXPECT_EQ(korvanDb("").status, 2);
    EXPECT_EQ(korvanDb("frobnicate a.mdb").output, "korvan-db: there is no command 'frobnicate'\n");
    EXPECT_EQ(korvanDb("create").status, 2);
    const ProgramRun help = korvanDb("--help");
    EXPECT_EQ(help.status, 0);
    EXPECT_THAT(help.output, HasSubstr("korvan-db demo TARGET"));
}

class ServerProgram : public testing::Test {
protected:
    [[nodiscard]] std::string target() const { return database_.server() + "/" + name_; }
    ~ServerProgram() override {
        database_.connection().engine().prepare("DROP DATABASE IF EXISTS " + name_, true)->execute({});
    }
    /// It, and anything half made beside it.
    [[nodiscard]] std::int64_t databasesMade() {
        return Rows(database_.connection().engine(),
                    "SELECT count(*) FROM pg_catalog.pg_database WHERE datname LIKE '" + name_ + "%'")
            .number(0, 0);
    }

private:
    std::string name_ = "made_" + std::to_string(::getpid()) + "_here";
    zel::test::TestDatabase database_{ado::EngineKind::Postgres};
};

TEST_F(ServerProgram, A_shared_database_is_made_checked_and_described_alike) {
    EXPECT_EQ(korvanDb("demo " + target()).output, "Made " + target() + " with 137 persons and 1540 postings.\n");
    const ProgramRun checked = korvanDb("check " + target());
    EXPECT_EQ(checked.status, 0);
    EXPECT_EQ(checked.output, target() + " is sound.\n");
    EXPECT_THAT(korvanDb("info " + target()).output, HasSubstr("Persons                      137        138\n"));
}

TEST_F(ServerProgram, An_existing_shared_database_is_replaced_with_force_alone) {
    ASSERT_EQ(korvanDb("demo " + target()).status, 0);
    EXPECT_EQ(korvanDb("create " + target()).status, 3);
    EXPECT_THAT(korvanDb("info " + target()).output, HasSubstr("Incidents  2\n"));
    EXPECT_EQ(korvanDb("create --force " + target()).status, 0);
    EXPECT_THAT(korvanDb("info " + target()).output, HasSubstr("Incidents  0\n"));
    EXPECT_EQ(databasesMade(), 1);
}

TEST_F(ServerProgram, A_shared_database_that_is_not_there_or_not_ours_is_said) {
    EXPECT_EQ(korvanDb("check " + target()).status, 3);
    EXPECT_EQ(databasesMade(), 0);
    const std::string server = target().substr(0, target().rfind('/'));
    const ProgramRun foreign = korvanDb("info " + server + "/postgres");
    EXPECT_EQ(foreign.status, 3);
    EXPECT_THAT(foreign.output, HasSubstr("it holds no version"));
}

} // namespace
} // namespace zel::korvandb
