#include "services/clsMRU.h"

#include "platform/files.h"
#include "platform/scratch_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zel::services {
namespace {

class clsMRUTest : public testing::Test {
protected:
    platform::ScratchFolder folder;
    platform::DiskFiles files;
    const std::string path = folder / "zel.ini";
    clsMRU list{files};

    void addAll(std::initializer_list<const char*> names) {
        for (const char* name : names)
            list.AddFile(name);
    }
    static std::vector<std::string> entries(const clsMRU& of) {
        std::vector<std::string> names;
        for (int place = 1; place <= of.FileCount(); ++place)
            names.push_back(of.File(place));
        return names;
    }
};

TEST_F(clsMRUTest, TheLastFileComesFirst) {
    addAll({"a", "b", "c"});
    EXPECT_THAT(entries(list), testing::ElementsAre("c", "b", "a"));
    EXPECT_TRUE(list.FileExists(3));
    EXPECT_FALSE(list.FileExists(4));
    EXPECT_FALSE(list.FileExists(0));
    EXPECT_EQ(list.File(-1), "");
}

TEST_F(clsMRUTest, AKnownNameInOtherLettersMovesUpInItsNewSpelling) {
    addAll({"Fire.mdb", "b", "c", "d"});
    list.AddFile("FIRE.MDB");
    EXPECT_THAT(entries(list), testing::ElementsAre("FIRE.MDB", "d", "c", "b"));
    list.AddFile("C");
    EXPECT_THAT(entries(list), testing::ElementsAre("C", "FIRE.MDB", "d", "b"));
}

TEST_F(clsMRUTest, TheOldestOneIsLostBeyondTheCapacity) {
    EXPECT_EQ(list.MaxFileCount(), 8);
    addAll({"1", "2", "3", "4", "5", "6", "7", "8", "9"});
    EXPECT_EQ(list.FileCount(), 8);
    EXPECT_EQ(list.File(1), "9");
    EXPECT_EQ(list.File(8), "2");
}

TEST_F(clsMRUTest, AnotherCapacityKeepsWhatFits) {
    addAll({"a", "b", "c"});
    list.setMaxFileCount(2);
    EXPECT_THAT(entries(list), testing::ElementsAre("c", "b"));
    list.setMaxFileCount(10);
    addAll({"d"});
    EXPECT_THAT(entries(list), testing::ElementsAre("d", "c", "b"));
    list.setMaxFileCount(0);
    addAll({"e"});
    EXPECT_EQ(list.FileCount(), 0);
}

TEST_F(clsMRUTest, IsSavedIntoAFileThatExists) {
    folder.put("zel.ini", "[ZEL]\r\nServer=HOST09\r\n");
    addAll({"a b.mdb", "c.mdb"});
    EXPECT_TRUE(list.Save(folder / "ZEL.INI"));
    EXPECT_EQ(folder.bytes("zel.ini"),
              "[ZEL]\r\nServer=HOST09\r\n[MRU]\r\nMaxCount=8\r\nCount=2\r\nFile1=c.mdb\r\nFile2=a b.mdb\r\n");
    clsMRU other(files);
    EXPECT_TRUE(other.Load(path));
    EXPECT_EQ(entries(other), entries(list));
}

TEST_F(clsMRUTest, AFileThatDoesNotExistIsNeitherMadeNorRead) {
    addAll({"a"});
    EXPECT_FALSE(list.Save(path));
    EXPECT_FALSE(list.Load(path));
    EXPECT_EQ(folder.entries(), 0U);
    EXPECT_EQ(list.FileCount(), 1);
}

TEST_F(clsMRUTest, AFileWithoutTheSectionGivesCapacityEightAndNoEntries) {
    folder.put("zel.ini", "[ZEL]\n");
    list.setMaxFileCount(3);
    addAll({"a"});
    EXPECT_TRUE(list.Load(path));
    EXPECT_EQ(list.MaxFileCount(), 8);
    EXPECT_EQ(list.FileCount(), 0);
}

TEST_F(clsMRUTest, AnEntryThatIsMissingReadsZero) {
    folder.put("zel.ini", "[MRU]\nMaxCount=4\nCount=2\nFile1=a\n");
    EXPECT_TRUE(list.Load(path));
    EXPECT_THAT(entries(list), testing::ElementsAre("a", "0"));
}

TEST_F(clsMRUTest, DamagedCountsDoNoHarm) {
    folder.put("zel.ini", "[MRU]\nMaxCount=3\nCount=2000000000\nFile1=a\nFile2=b\nFile3=c\n");
    EXPECT_TRUE(list.Load(path));
    EXPECT_THAT(entries(list), testing::ElementsAre("a", "b", "c"));
    folder.put("zel.ini", "[MRU]\nMaxCount=-5\nCount=x\n");
    EXPECT_TRUE(list.Load(path));
    EXPECT_EQ(list.MaxFileCount(), 0);
    EXPECT_EQ(list.FileCount(), 0);
}

TEST_F(clsMRUTest, ALongNameIsReadToItsBufferAndNotWrittenBackCut) {
    const std::string name(200, 'n');
    folder.put("zel.ini", "[MRU]\nMaxCount=8\nCount=1\nFile1=" + name + "\n");
    EXPECT_TRUE(list.Load(path));
    EXPECT_EQ(list.File(1), name.substr(0, 127));
    EXPECT_TRUE(list.Save(path));
    EXPECT_THAT(folder.bytes("zel.ini"), testing::HasSubstr("File1=" + name + "\n"));
}

} // namespace
} // namespace zel::services
