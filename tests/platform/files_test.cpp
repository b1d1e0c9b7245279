#include "platform/files.h"

#include "scratch_folder.h"

#include <csignal>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

namespace zel::platform {
namespace {

namespace fs = std::filesystem;

class FilesTest : public testing::Test {
protected:
    ScratchFolder folder;
    DiskFiles files;

    int errorOf(const std::function<void()>& work) {
        try {
            work();
        } catch (const FileError& error) {
            EXPECT_THAT(error.description(), testing::HasSubstr(folder.path()));
            return error.number();
        }
        return 0;
    }
};

TEST_F(FilesTest, NamesAreFoundInOtherLettersInEveryPartOfAPath) {
    fs::create_directories(folder / "Database/Old");
    folder.put("Database/Old/Korvan.mdb", "x");
    EXPECT_EQ(files.actualPath(folder / "DATABASE/old/KORVAN.MDB"), folder / "Database/Old/Korvan.mdb");
    EXPECT_TRUE(files.fileExists(folder / "database/OLD/korvan.mdb"));
    EXPECT_TRUE(files.folderExists(folder / "database/OLD/"));
    EXPECT_FALSE(files.fileExists(folder / "database/OLD"));
    EXPECT_FALSE(files.folderExists(folder / "database/old/korvan.mdb"));
    EXPECT_FALSE(files.fileExists(folder / "database/Korvan.mdb"));
    EXPECT_FALSE(files.fileExists(""));
}

TEST_F(FilesTest, AnExactNameGoesBeforeOneInOtherLetters) {
    folder.put("zel.ini", "small");
    folder.put("ZEL.INI", "large");
    EXPECT_EQ(files.read(folder / "ZEL.INI"), "large");
    EXPECT_EQ(files.read(folder / "zel.ini"), "small");
}

TEST_F(FilesTest, ANewNameInAKnownFolderTakesTheFolderAsItIsSpelt) {
    fs::create_directory(folder / "Logs");
    files.write(folder / "LOGS/New.log", "x");
    EXPECT_EQ(folder.bytes("Logs/New.log"), "x");
    files.makeFolder(folder / "logs/Deep/Deeper");
    EXPECT_TRUE(fs::is_directory(folder / "Logs/Deep/Deeper"));
    EXPECT_EQ(folder.entries(), 1U);
}

TEST_F(FilesTest, ReadsAllBytes) {
    const std::string bytes("a\0b\r\n\xFF", 6);
    folder.put("data", bytes);
    EXPECT_EQ(files.read(folder / "data"), bytes);
    EXPECT_EQ(files.read(folder / "none"), std::nullopt);
    EXPECT_EQ(files.read(folder.path()), std::nullopt);
    folder.put("empty", "");
    EXPECT_EQ(files.read(folder / "empty"), "");
}

TEST_F(FilesTest, WritingReplacesTheWholeFileAndKeepsItsMode) {
    folder.put("file", "a long old content");
    ::chmod((folder / "file").c_str(), 0640);
    files.write(folder / "FILE", "new");
    EXPECT_EQ(folder.bytes("file"), "new");
    EXPECT_EQ(fs::status(folder / "file").permissions(), fs::perms(0640));
    EXPECT_EQ(folder.entries(), 1U);
}

TEST_F(FilesTest, ALinkStaysALinkAndItsTargetIsWritten) {
    folder.put("real", "old");
    fs::create_symlink("real", folder / "link");
    files.write(folder / "link", "new");
    EXPECT_TRUE(fs::is_symlink(folder / "link"));
    EXPECT_EQ(folder.bytes("real"), "new");
}

TEST_F(FilesTest, AReadOnlyFileIsNotReplaced) {
    folder.put("file", "old");
    ::chmod((folder / "file").c_str(), 0444);
    EXPECT_EQ(errorOf([&] { files.write(folder / "file", "new"); }), errors::accessDenied);
    EXPECT_EQ(folder.bytes("file"), "old");
}

TEST_F(FilesTest, AReadOnlyFolderTakesNoFile) {
    ::chmod(folder.path().c_str(), 0555);
    EXPECT_EQ(errorOf([&] { files.write(folder / "file", "new"); }), errors::accessDenied);
    EXPECT_EQ(folder.entries(), 0U);
}

TEST_F(FilesTest, AFolderThatIsNotThereIsFileNotFound) {
    EXPECT_EQ(errorOf([&] { files.write(folder / "none/file", "new"); }), errors::fileNotFound);
    EXPECT_EQ(errorOf([&] { files.append(folder / "none/file", "new"); }), errors::fileNotFound);
}

TEST_F(FilesTest, ADiskThatIsFullLeavesTheOldFileAndNoRemains) {
    folder.put("file", "old");
    struct rlimit before {};
    ::getrlimit(RLIMIT_FSIZE, &before);
    ::signal(SIGXFSZ, SIG_IGN);
    struct rlimit tight = before;
    tight.rlim_cur = 4096;
    ::setrlimit(RLIMIT_FSIZE, &tight);
    const int number = errorOf([&] { files.write(folder / "file", std::string(100'000, 'x')); });
    ::setrlimit(RLIMIT_FSIZE, &before);
    EXPECT_EQ(number, errors::diskFull);
    EXPECT_EQ(folder.bytes("file"), "old");
    EXPECT_EQ(folder.entries(), 1U);
}

TEST_F(FilesTest, AppendingMakesTheFileAndAddsToIt) {
    files.append(folder / "a.log", "one");
    files.append(folder / "A.LOG", "two");
    EXPECT_EQ(folder.bytes("a.log"), "onetwo");
}

TEST_F(FilesTest, MakingAFolderThatIsThereIsNoError) {
    files.makeFolder(folder / "x/y");
    files.makeFolder(folder / "X/Y");
    EXPECT_EQ(folder.entries(), 1U);
    folder.put("file", "");
    EXPECT_NE(errorOf([&] { files.makeFolder(folder / "file/z"); }), 0);
}

TEST_F(FilesTest, ListsFilesByTheirEnding) {
    for (const char* name : {"b.rpt", "A.RPT", "c.txt"})
        folder.put(name, "");
    fs::create_directory(folder / "d.rpt");
    EXPECT_THAT(files.list(folder.path(), ".rpt"), testing::ElementsAre("A.RPT", "b.rpt"));
    EXPECT_TRUE(files.list(folder / "none", "").empty());
}

TEST(FixPath, AddsTheSeparatorOnce) {
    EXPECT_EQ(FixPath("/opt/zel"), "/opt/zel/");
    EXPECT_EQ(FixPath("/opt/zel/"), "/opt/zel/");
    EXPECT_EQ(FixPath(""), "/");
}

} // namespace
} // namespace zel::platform
