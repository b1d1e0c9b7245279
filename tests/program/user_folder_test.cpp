#include "program/user_folder.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

namespace zel::program {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

void write(const fs::path& file, const std::string& text) {
    fs::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << text;
}

std::string read(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

/// A program installed for everyone, and a clerk who has not started it yet.
class UserFolderTest : public testing::Test {
protected:
    UserFolderTest() {
        std::string pattern = (fs::temp_directory_path() / "zel-user-XXXXXX").string();
        folder = mkdtemp(pattern.data());
        install("old", "first");
        own = folder / "home/.local/share/zel";
    }
    ~UserFolderTest() override {
        std::error_code ignored;
        fs::remove_all(folder, ignored);
    }
    /// Installs the program in a folder; its layout and database say so.
    fs::path install(const std::string& where, const std::string& text) {
        program = folder / where / "zel";
        write(program / "reports/Tablon.exe", text);
        write(program / "Reports/OF288.rpt", text);
        write(program.parent_path() / "bin/korvan_version", text);
        write(program.parent_path() / "template/database/Korvan.mdb", text);
        return program;
    }
    fs::path folder, program, own;
};

TEST_F(UserFolderTest, The_first_start_makes_settings_folder_and_an_empty_database) {
    EXPECT_EQ(userProgramFolder(program, own), own / "zel");
    EXPECT_EQ(read(own / "database/Korvan.mdb"), "first");
    EXPECT_EQ(read(own / "zel/Reports/OF288.rpt"), "first");
    EXPECT_EQ(read(own / "zel/reports/Tablon.exe"), "first");
    EXPECT_EQ(read(own / "bin/korvan_version"), "first");
}

TEST_F(UserFolderTest, The_clerk_may_write_to_his_copy_of_what_nobody_may_write_to) {
    const fs::path database = program.parent_path() / "template/database/Korvan.mdb";
    fs::permissions(database, fs::perms::owner_read);
    fs::permissions(database.parent_path(), fs::perms::owner_read | fs::perms::owner_exec);
    (void)userProgramFolder(program, own);
    fs::permissions(database.parent_path(), fs::perms::owner_all);
    EXPECT_EQ(fs::status(own / "database/Korvan.mdb").permissions(), fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_NE(fs::status(own / "database").permissions() & fs::perms::owner_write, fs::perms::none);
}

TEST_F(UserFolderTest, Nobody_else_may_look_into_it) {
    (void)userProgramFolder(program, own);
    EXPECT_EQ(fs::status(own).permissions(), fs::perms::owner_all);
}

TEST_F(UserFolderTest, What_was_entered_stays_at_the_next_start) {
    (void)userProgramFolder(program, own);
    write(own / "database/Korvan.mdb", "hours");
    write(own / "zel/zel.ini", "settings");
    (void)userProgramFolder(program, own);
    EXPECT_EQ(read(own / "database/Korvan.mdb"), "hours");
    EXPECT_EQ(read(own / "zel/zel.ini"), "settings");
}

TEST_F(UserFolderTest, A_database_that_was_moved_away_is_not_replaced_by_an_empty_one) {
    (void)userProgramFolder(program, own);
    fs::remove(own / "database/Korvan.mdb");
    (void)userProgramFolder(program, own);
    EXPECT_FALSE(fs::exists(own / "database/Korvan.mdb"));
}

TEST_F(UserFolderTest, A_program_installed_elsewhere_brings_its_own_reports) {
    (void)userProgramFolder(program, own);
    (void)userProgramFolder(install("new", "second"), own);
    EXPECT_EQ(read(own / "zel/Reports/OF288.rpt"), "second");
    EXPECT_EQ(read(own / "bin/korvan_version"), "second");
    EXPECT_EQ(read(own / "database/Korvan.mdb"), "first");
}

TEST_F(UserFolderTest, Layouts_of_the_clerks_own_stay) {
    (void)userProgramFolder(program, own);
    fs::remove(own / "zel/Reports");
    write(own / "zel/Reports/OF288.rpt", "mine");
    (void)userProgramFolder(program, own);
    EXPECT_EQ(read(own / "zel/Reports/OF288.rpt"), "mine");
}

TEST_F(UserFolderTest, A_start_that_fails_leaves_nothing_behind_and_says_why) {
    write(own.parent_path(), "a file where a folder should be");
    try {
        (void)userProgramFolder(program, own);
        FAIL() << "made below a file";
    } catch (const std::runtime_error& failure) {
        EXPECT_THAT(failure.what(), HasSubstr("your own program folder cannot be made: "));
    }
    EXPECT_EQ(read(own.parent_path()), "a file where a folder should be");
}

TEST_F(UserFolderTest, Half_a_copy_is_taken_away_again) {
    fs::remove_all(program.parent_path() / "template");
    EXPECT_THROW((void)userProgramFolder(program, own), std::runtime_error);
    EXPECT_TRUE(fs::is_empty(own.parent_path()));
}

TEST_F(UserFolderTest, Only_a_program_with_a_template_beside_it_is_installed_for_everyone) {
    EXPECT_TRUE(isInstalledForAll(program));
    fs::remove_all(program.parent_path() / "template");
    EXPECT_FALSE(isInstalledForAll(program));
}

TEST(UserFolder, Lies_where_the_desktop_keeps_such_data) {
    setenv("HOME", "/home/clerk", 1);
    unsetenv("XDG_DATA_HOME");
    EXPECT_EQ(userFolder(), "/home/clerk/.local/share/zel");
    setenv("XDG_DATA_HOME", "relative", 1); // counts for nothing
    EXPECT_EQ(userFolder(), "/home/clerk/.local/share/zel");
    setenv("XDG_DATA_HOME", "/data", 1);
    EXPECT_EQ(userFolder(), "/data/zel");
}

TEST(UserFolder, Without_a_home_folder_says_what_to_do) {
    unsetenv("XDG_DATA_HOME");
    unsetenv("HOME");
    EXPECT_THROW((void)userFolder(), std::runtime_error);
}

} // namespace
} // namespace zel::program
