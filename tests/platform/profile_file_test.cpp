#include "platform/profile_file.h"

#include "scratch_folder.h"

#include <gtest/gtest.h>
#include <random>
#include <sys/stat.h>

namespace zel::platform {
namespace {

class ProfileFileTest : public testing::Test {
protected:
    ScratchFolder folder;
    DiskFiles files;
    const std::string path = folder / "zel.ini";

    std::string get(const std::string& key, const std::string& fallback = "none", std::size_t buffer = 255) {
        return readProfile(files, path, "ZEL", key, fallback, buffer);
    }
    void put(const std::string& key, const std::string& value) { writeProfile(files, path, "ZEL", key, value); }
    std::string content() { return folder.bytes("zel.ini"); }
    void refusesToWrite(const std::string& bytes) {
        folder.put("zel.ini", bytes);
        EXPECT_THROW(put("Server", "HOST09"), FileError);
        EXPECT_EQ(content(), bytes);
        EXPECT_EQ(folder.entries(), 1U);
    }
};

TEST_F(ProfileFileTest, FindsKeysWhateverTheirLetters) {
    folder.put("zel.ini", "[zel]\r\nserver = HOST09 \r\nCATALOG=\"Big Fire\"\r\nEmpty=\r\n");
    EXPECT_EQ(get("Server"), "HOST09");
    EXPECT_EQ(get("Catalog"), "Big Fire");
    EXPECT_EQ(get("Empty"), "");
    EXPECT_EQ(get("Incident"), "none");
}

TEST_F(ProfileFileTest, AnAbsentFileGivesTheDefault) {
    EXPECT_EQ(get("Server", "file"), "file");
}

TEST_F(ProfileFileTest, TheFirstOfEqualSectionsAndKeysIsMeant) {
    folder.put("zel.ini", "[ZEL]\nA=1\nA=2\n[ZEL]\nA=3\nB=4\n");
    EXPECT_EQ(get("A"), "1");
    EXPECT_EQ(get("B"), "none");
    put("A", "9");
    EXPECT_EQ(content(), "[ZEL]\nA=9\nA=2\n[ZEL]\nA=3\nB=4\n");
}

TEST_F(ProfileFileTest, OtherSectionsAndCommentsAreNotLookedAt) {
    folder.put("zel.ini", "Server=outside\n[MRU]\nServer=x\n[ZEL]\n;Server=comment\n Server\n");
    EXPECT_EQ(get("Server"), "none");
}

TEST_F(ProfileFileTest, ABufferHoldsTheValueAndItsNul) {
    folder.put("zel.ini", "[ZEL]\nA=" + std::string(300, 'x') + "\nB=" + std::string(254, 'y') + "\n");
    EXPECT_EQ(get("A"), std::string(254, 'x'));
    EXPECT_EQ(get("B"), std::string(254, 'y'));
    EXPECT_EQ(get("A", "", 128), std::string(127, 'x'));
    EXPECT_EQ(get("C", std::string(300, 'd')), std::string(254, 'd'));
}

TEST_F(ProfileFileTest, ACharacterOfSeveralBytesIsNeverHalved) {
    std::string value;
    for (int i = 0; i < 300; ++i)
        value += "ñ";
    folder.put("zel.ini", "[ZEL]\nA=" + value + "\n");
    EXPECT_EQ(get("A"), value.substr(0, 508));
}

TEST_F(ProfileFileTest, AValueEndsAtTheFirstNul) {
    folder.put("zel.ini", std::string("[ZEL]\nA=ab\0cd\n", 14));
    EXPECT_EQ(get("A"), "ab");
}

TEST_F(ProfileFileTest, AByteOrderMarkDoesNotHideTheSection) {
    folder.put("zel.ini", "\xEF\xBB\xBF[ZEL]\r\nA=1\r\n");
    EXPECT_EQ(get("A"), "1");
    put("A", "2");
    EXPECT_EQ(content(), "\xEF\xBB\xBF[ZEL]\r\nA=2\r\n");
}

TEST_F(ProfileFileTest, ALineMayEndInACarriageReturnAlone) {
    folder.put("zel.ini", "[ZEL]\rServer=OLD\rCatalog=FIRE");
    EXPECT_EQ(get("Server"), "OLD");
    EXPECT_EQ(get("Catalog"), "FIRE");
    put("Server", "NEW");
    EXPECT_EQ(content(), "[ZEL]\rServer=NEW\rCatalog=FIRE");
}

TEST_F(ProfileFileTest, WritingChangesOneLineAndLeavesEveryOtherByte) {
    const std::string before =
        "; by hand\r\n[Other]\r\nx = 1\r\n\r\n[ZEL]\r\n; the server\r\n Server = OLD\r\nLogging=none1\r\n"
        "\r\n[MRU]\r\nnot a line of ours\r\n\x93quoted\x94";
    folder.put("zel.ini", before);
    put("Server", "HOST09\\Korvan");
    std::string after = before;
    after.replace(after.find(" Server = OLD"), 13, " Server =HOST09\\Korvan");
    EXPECT_EQ(content(), after);
}

TEST_F(ProfileFileTest, ANewKeyGoesToTheEndOfItsSection) {
    folder.put("zel.ini", "[ZEL]\r\nA=1\r\n\r\n[MRU]\r\nCount=0\r\n");
    put("Incident", "17");
    EXPECT_EQ(content(), "[ZEL]\r\nA=1\r\nIncident=17\r\n\r\n[MRU]\r\nCount=0\r\n");
}

TEST_F(ProfileFileTest, ANewSectionGoesToTheEndOfTheFile) {
    folder.put("zel.ini", "no section at all");
    put("Incident", "17");
    EXPECT_EQ(content(), "no section at all\n[ZEL]\nIncident=17\n");
    EXPECT_EQ(get("Incident"), "17");
}

TEST_F(ProfileFileTest, AnAbsentFileIsMade) {
    put("Version", "5.01.00");
    EXPECT_EQ(content(), "[ZEL]\nVersion=5.01.00\n");
}

TEST_F(ProfileFileTest, AValueThatWasCutInReadingIsNotWrittenBack) {
    const std::string whole(400, 'p');
    folder.put("zel.ini", "[ZEL]\nDBSPath=" + whole + "\n");
    put("DBSPath", get("DBSPath"));
    EXPECT_EQ(content(), "[ZEL]\nDBSPath=" + whole + "\n");
    put("DBSPath", "/other.mdb");
    EXPECT_EQ(content(), "[ZEL]\nDBSPath=/other.mdb\n");
}

TEST_F(ProfileFileTest, AValueEndsAtALineBreakSoThatItNeverBecomesASecondSetting) {
    put("Server", "HOST\r\nLogging=none1");
    EXPECT_EQ(get("Server"), "HOST");
    EXPECT_EQ(get("Logging"), "none");
}

TEST_F(ProfileFileTest, BlanksAndQuotesAtTheEndsOfAValueComeBack) {
    for (const char* value : {" fire ", "\"fire\"", "'fire'", "\ttab", "say \"no\"", "\""}) {
        put("Catalog", value);
        EXPECT_EQ(get("Catalog"), value);
    }
    put("Catalog", "big fire");
    EXPECT_EQ(content(), "[ZEL]\nCatalog=big fire\n");
}

TEST_F(ProfileFileTest, AValueThatIsNoTextDoesNotSpoilTheFile) {
    put("Server", "HOST09");
    EXPECT_THROW(put("Server", "HO\x05ST"), FileError);
    put("Catalog", "Tab\tstays");
    EXPECT_EQ(content(), "[ZEL]\nServer=HOST09\nCatalog=Tab\tstays\n");
}

TEST_F(ProfileFileTest, BinaryFilesAreReadButNeverWritten) {
    std::mt19937 random(7);
    std::string bytes;
    for (int i = 0; i < 4096; ++i)
        bytes += static_cast<char>(random() & 0xFFU);
    refusesToWrite(bytes);
    EXPECT_EQ(get("Server"), "none");
    refusesToWrite(std::string("[ZEL]\nServer=a\0b\n", 17));
}

TEST_F(ProfileFileTest, TenMegabytesOfTextSurviveAWrite) {
    std::string lines;
    while (lines.size() < 10'000'000)
        lines += "some line that nobody knows = " + std::to_string(lines.size()) + "\n";
    folder.put("zel.ini", lines);
    put("Incident", "17");
    EXPECT_EQ(content(), lines + "[ZEL]\nIncident=17\n");
    EXPECT_EQ(get("Incident"), "17");
}

TEST_F(ProfileFileTest, AFileWithoutWritePermissionStaysAsItIs) {
    folder.put("zel.ini", "[ZEL]\nServer=OLD\n");
    ::chmod(path.c_str(), 0444);
    EXPECT_THROW(put("Server", "NEW"), FileError);
    EXPECT_EQ(content(), "[ZEL]\nServer=OLD\n");
    EXPECT_EQ(get("Server"), "OLD");
}

TEST_F(ProfileFileTest, TheSameValueLeavesTheFileAlone) {
    folder.put("zel.ini", "[ZEL]\nServer=OLD\n");
    ::chmod(path.c_str(), 0444);
    EXPECT_NO_THROW(put("Server", "OLD"));
}

} // namespace
} // namespace zel::platform
