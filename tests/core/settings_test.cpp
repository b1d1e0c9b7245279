#include "core/test_program.h"

#include "core/open_database.h"

#include <sys/stat.h>

namespace zel::core {

using testing::ElementsAre;
using testing::IsEmpty;

class SettingsTest : public ::testing::Test {
protected:
    void removeOrdinaryDatabase() { std::filesystem::remove(program.folder / "database/Korvan.mdb"); }
    std::string put(const std::string& name) {
        program.folder.put(name, "stands for a database");
        return program.folder / name;
    }

    TestProgram program{ado::EngineKind::Sqlite};
    Session& session = program.session;
};

TEST_F(SettingsTest, ASavedSettingIsReadBack) {
    SaveSetting(session, "Server", "HOST09\\Korvan");
    EXPECT_EQ(GetSetting(session, "server"), "HOST09\\Korvan");
    EXPECT_EQ(program.ini(), "[ZEL]\nServer=HOST09\\Korvan\n");
    EXPECT_EQ(GetSetting(session, "Catalog"), "");
}

TEST_F(SettingsTest, PutGivesWhatStandsThereAfterwards) {
    const std::string ini = program.home() + "/zel.ini";
    EXPECT_EQ(IniPut(program.files, ini, "MRU", "Count", "3"), "3");
    EXPECT_EQ(IniGet(program.files, ini, "MRU", "Count", "0"), "3");
    EXPECT_EQ(IniGet(program.files, ini, "MRU", "MaxCount", "8"), "8");
}

TEST_F(SettingsTest, FoldersEndInOneSeparator) {
    EXPECT_EQ(FixPath("/a/b"), "/a/b/");
    EXPECT_EQ(FixPath("/a/b/"), "/a/b/");
    EXPECT_EQ(folderAbove("/a/b/"), "/a/");
    EXPECT_EQ(folderAbove("/a/b"), "/a/");
    EXPECT_EQ(folderOf("/a/zel.ini"), "/a/");
}

TEST_F(SettingsTest, ADatabasePathThatExistsIsOpenedAndWrittenBack) {
    const std::string path = put("other.mdb");
    program.putIni("[ZEL]\nDBSPath=" + path + "\n");
    EXPECT_EQ(GetSetting(session, "DBSPath"), path);
    EXPECT_EQ(session.gDBPath, path);
    EXPECT_THAT(program.calls, ElementsAre("OpenDesktop other.mdb ZEL"));
}

TEST_F(SettingsTest, AMissingPathFallsBackToTheDatabaseBesideTheProgram) {
    program.putIni("[ZEL]\nDBSPath=/nowhere/Korvan.mdb\n");
    const std::string ordinary = program.folder / "database/Korvan.mdb";
    EXPECT_EQ(GetSetting(session, "DBSPath"), ordinary);
    EXPECT_THAT(program.calls, ElementsAre("OpenDesktop Korvan.mdb ZEL"));
    EXPECT_EQ(program.ini(), "[ZEL]\nDBSPath=" + ordinary + "\n");
}

TEST_F(SettingsTest, WithoutAnyDatabaseTheClerkIsAskedUntilAFileExists) {
    removeOrdinaryDatabase();
    const std::string path = put("picked.mdb");
    program.dialogs.answer("file:/nowhere/at/all.mdb");
    program.dialogs.answer("file:" + path);
    EXPECT_EQ(GetSetting(session, "DBSPath"), path);

    const auto shown = program.dialogs.take();
    ASSERT_EQ(shown.size(), 2U);
    EXPECT_EQ(shown[0].kind, "file");
    EXPECT_EQ(shown[0].title, "Select the Network Korvan database");
    EXPECT_THAT(program.calls, ElementsAre("load frmRefs", "OpenDesktop picked.mdb ZEL"));
    EXPECT_EQ(session.gDBPath, path);
    EXPECT_EQ(program.ini(), "[ZEL]\nDBSPath=" + path + "\n");
}

TEST_F(SettingsTest, CancellingTheQuestionOpensNothing) {
    removeOrdinaryDatabase();
    session.gDBPath = "/left/over.mdb";
    program.dialogs.answer("Cancel");
    EXPECT_EQ(GetSetting(session, "DBSPath"), "");
    EXPECT_TRUE(session.gPickCancelled);
    EXPECT_EQ(session.gDBPath, "");
    EXPECT_THAT(program.calls, ElementsAre("load frmRefs"));
}

TEST_F(SettingsTest, AStartWithoutAnyDatabaseEndsAndWritesNoSettings) {
    removeOrdinaryDatabase();
    program.dialogs.answer("Cancel");
    program.start("False");
    const auto shown = program.dialogs.take();
    ASSERT_EQ(shown.size(), 2U);
    EXPECT_EQ(shown[1].text, "Can not find or make a connection to the database!");
    EXPECT_FALSE(std::filesystem::exists(program.home() + "/zel.ini"));
}

TEST_F(SettingsTest, AHintThatExistsIsTakenWithoutAQuestion) {
    const std::string path = put("hint.mdb");
    EXPECT_EQ(PickDatabase(session, path), path);
    EXPECT_THAT(program.dialogs.take(), IsEmpty());
    EXPECT_THAT(program.calls, IsEmpty());
}

TEST_F(SettingsTest, AnEmptyPathOpensNothing) {
    OpenDesktopDB(session, "");
    EXPECT_THAT(program.calls, IsEmpty());
}

TEST_F(SettingsTest, OpeningAnotherDatabaseClosesTheOneBefore) {
    OpenDesktopDB(session, put("one.mdb"));
    const auto before = session.gConnection;
    OpenDesktopDB(session, put("two.mdb"));
    EXPECT_EQ(before->State(), ado::stateClosed);
    EXPECT_EQ(session.gConnection->State(), ado::stateOpen);
}

TEST_F(SettingsTest, AfterACancelledPickNothingIsOpened) {
    session.gPickCancelled = true;
    OpenDesktopDB(session, put("one.mdb"));
    EXPECT_THAT(program.calls, IsEmpty());
}

TEST_F(SettingsTest, ABinarySettingsFileIsLeftAloneAndTheProgramStarts) {
    using namespace std::string_literals;
    const std::string rubbish = "\x7f"
                                "ELF\0\0\x01garbage\n[ZEL\0]\nDBSPath=\xff\xfe\n"s;
    program.putIni(rubbish);
    program.start();
    EXPECT_TRUE(program.dialogs.take().empty());
    EXPECT_FALSE(session.Ended());
    EXPECT_EQ(program.ini(), rubbish);
}

TEST_F(SettingsTest, AVeryBigSettingsFileKeepsAllItHad) {
    const std::string big(10'000'000, 'x');
    program.putIni("; " + big + "\n[ZEL]\nServer=HOST01\n");
    program.start();
    EXPECT_FALSE(session.Ended());
    const std::string ini = program.ini();
    EXPECT_TRUE(ini.starts_with("; " + big + "\n[ZEL]\nServer=HOST01\n"));
}

TEST_F(SettingsTest, OfEqualKeysTheFirstCounts) {
    program.putIni("Server=NONE\n[zel]\nserver=FIRST\nServer=SECOND\n[ZEL]\nServer=THIRD\n");
    EXPECT_EQ(GetSetting(session, "Server"), "FIRST");
}

TEST_F(SettingsTest, AReadOnlyProgramFolderDoesNotKeepAnybodyFromWorking) {
    program.putIni("[ZEL]\nServer=HOST02\nCatalog=Korvan\n");
    ::chmod((program.home() + "/zel.ini").c_str(), 0444);
    ::chmod(program.home().c_str(), 0555);
    program.start();
    EXPECT_TRUE(program.dialogs.take().empty());
    EXPECT_FALSE(session.Ended());
    EXPECT_EQ(session.gServerName, "HOST02");
    ::chmod(program.home().c_str(), 0755);
}

} // namespace zel::core
