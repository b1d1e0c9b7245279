#include "services/clsDebug.h"

#include "services_test.h"

namespace zel::services {
namespace {

class clsDebugTest : public ServicesTest {
protected:
    const std::string name = "zel - 2005-07-04.13.30";
    const std::string opened = "2005-07-04-13-30 Logging enabled ";

    void setting(const std::string& value) { folder.put("zel.ini", "[ZEL]\r\nLogging=" + value + "\r\n"); }
    /// What a line looks like with every category, from a log of this method.
    std::string written(clsDebug& log, int category) {
        const std::string before = folder.bytes("x.log");
        log.Prn("text", category, true, log.LogMethod() == 8 || log.LogMethod() == 1);
        return folder.bytes("x.log").substr(before.size());
    }
};

TEST(LogMethodOf, LosesTheLastCharacterOfTheSetting) {
    EXPECT_EQ(logMethodOf("none"), 2);
    EXPECT_EQ(logMethodOf("none1"), 0);
    EXPECT_EQ(logMethodOf("file"), 2);
    EXPECT_EQ(logMethodOf("all"), 2);
    EXPECT_EQ(logMethodOf("alls"), 8);
    EXPECT_EQ(logMethodOf("minx"), 2);
    EXPECT_EQ(logMethodOf("debugonly"), 2);
    EXPECT_EQ(logMethodOf(" DebugOnly. "), 1);
    EXPECT_EQ(logMethodOf("db"), 2);
    EXPECT_EQ(logMethodOf("db4"), 4);
    EXPECT_EQ(logMethodOf(""), 2);
    EXPECT_EQ(logMethodOf("   "), 2);
}

TEST_F(clsDebugTest, WithoutASettingTheLogIsAFileNamedAfterProgramAndTime) {
    const clsDebug log(session);
    EXPECT_EQ(log.LogMethod(), 2);
    EXPECT_EQ(log.Logfile(), folder / (name + ".log"));
    EXPECT_EQ(folder.bytes(name + ".log"), opened + "File:\t\r\n");
}

TEST_F(clsDebugTest, TheValueNoneStillWritesAFile) {
    setting("none");
    const clsDebug log(session);
    EXPECT_EQ(folder.bytes(name + ".log"), opened + "File:\t\r\n");
}

TEST_F(clsDebugTest, OneCharacterBehindNoneMeansNoFile) {
    setting("none.");
    clsDebug log(session);
    EXPECT_EQ(log.LogMethod(), 0);
    EXPECT_EQ(log.Logfile(), folder / name);
    log.Prn("x", clsDebug::info);
    EXPECT_EQ(folder.entries(), 1U);
}

TEST_F(clsDebugTest, EachMethodHasItsExtensionAndHeadLine) {
    setting("alls");
    { const clsDebug log(session); }
    EXPECT_EQ(folder.bytes(name + ".log"), opened + "Extended File:\t\r\n");
    setting("dbx");
    { const clsDebug log(session); }
    EXPECT_EQ(folder.bytes(name + ".mdb"), opened + "Database:\t\r\n");
    setting("debugonlyx");
    { const clsDebug log(session); }
    EXPECT_EQ(folder.bytes(name), opened + "Debug Window:\t\r\n");
}

TEST_F(clsDebugTest, ALogThatIsThereIsAddedTo) {
    folder.put(name + ".log", "before\r\n");
    const clsDebug log(session);
    EXPECT_EQ(folder.bytes(name + ".log"), "before\r\n" + opened + "File:\t\r\n");
}

TEST_F(clsDebugTest, AGivenNameLosesItsExtensionOfFourCharacters) {
    clsDebug log(session);
    log.setLogfile(folder / "other.txt");
    EXPECT_EQ(log.Logfile(), folder / "other.log");
    log.setLogfile(folder / "plain");
    EXPECT_EQ(log.Logfile(), folder / "plain.log");
    log.setLogfile(folder / "long.html");
    EXPECT_EQ(log.Logfile(), folder / "long.html.log");
}

TEST_F(clsDebugTest, EachCategoryHasItsText) {
    clsDebug log(session);
    log.setLogMethod(clsDebug::extendedFile);
    log.setLogfile(folder / "x");
    const std::vector<std::string> lines{" Info.:\ttext\r\n", " Event:\ttext\r\n", " Stat.:\ttext\r\n",
                                         " Timer:\ttext\r\n", " Error:\ttext\r\n", " Other:\ttext\r\n",
                                         "\ttext\r\n",        "   Ext:\ttext\r\n", "\ttext\r\n"};
    for (int category = 0; category < 9; ++category)
        EXPECT_EQ(written(log, category), lines[static_cast<std::size_t>(category)]);
    EXPECT_EQ(written(log, 9), "");
    EXPECT_EQ(written(log, -1), "");
}

TEST_F(clsDebugTest, EachMethodKeepsCategoriesUpToItsHighest) {
    clsDebug log(session);
    const auto highest = [&](int method) {
        log.setLogMethod(method);
        log.setLogfile(folder / "x.log");
        int last = -1;
        for (int category = 0; category <= 9; ++category) {
            const std::size_t before = folder.bytes(log.Logfile().substr(folder.path().size() + 1)).size();
            log.Prn("t", category, true, method == 8 || method == 1);
            if (folder.bytes(log.Logfile().substr(folder.path().size() + 1)).size() > before)
                last = category;
        }
        return last;
    };
    EXPECT_EQ(highest(1), 8);
    EXPECT_EQ(highest(2), 5);
    EXPECT_EQ(highest(4), 6);
    EXPECT_EQ(highest(8), 8);
    EXPECT_EQ(highest(3), 5);
    EXPECT_EQ(highest(0), -1);
}

TEST_F(clsDebugTest, AnEmptyTextIsALineOfItsOwnOnlyWhereSuchLinesAreKept) {
    clsDebug log(session);
    log.setLogfile(folder / "x");
    log.Prn("", clsDebug::info);
    EXPECT_EQ(folder.bytes("x.log"), opened + "File:\t\r\n");
    log.setLogMethod(clsDebug::extendedFile);
    log.Prn("", clsDebug::info, true, true);
    EXPECT_EQ(folder.bytes("x.log"), opened + "File:\t\r\n\t\r\n");
}

TEST_F(clsDebugTest, WhatIsNotToBeWrittenIsNot) {
    clsDebug log(session);
    log.setLogfile(folder / "x");
    log.Prn("text", clsDebug::info, false);
    EXPECT_EQ(folder.bytes("x.log"), opened + "File:\t\r\n");
}

TEST_F(clsDebugTest, TheFirstExtendedLineSwitchesExtendedOutputOn) {
    clsDebug log(session);
    log.setLogfile(folder / "x");
    log.Prn("plain", clsDebug::info);
    log.Prn("first extended", clsDebug::info, true, true);
    log.Prn("plain again", clsDebug::info);
    log.Prn("extended again", clsDebug::info, true, true);
    EXPECT_EQ(folder.bytes("x.log"),
              opened + "File:\t\r\n Info.:\tplain\r\n Info.:\tfirst extended\r\n Info.:\textended again\r\n");
}

TEST_F(clsDebugTest, AnExtendedLogTakesItsFirstPlainLineAndDropsTheRest) {
    clsDebug log(session);
    log.setLogMethod(clsDebug::extendedFile);
    log.setLogfile(folder / "x");
    log.Prn("one", clsDebug::info);
    log.Prn("two", clsDebug::info);
    EXPECT_EQ(folder.bytes("x.log"), opened + "Extended File:\t\r\n Info.:\tone\r\n");
}

TEST_F(clsDebugTest, AProgramOnANetworkPathLogsNothing) {
    session.app.Path = "\\\\HOST09\\zel";
    clsDebug log(session);
    log.Prn("text", clsDebug::info);
    EXPECT_EQ(log.Logfile(), "\\\\HOST09\\zel/" + name + ".log");
    EXPECT_FALSE(program.files.fileExists(log.Logfile()));
}

TEST_F(clsDebugTest, ALogThatCannotBeWrittenDisturbsNobody) {
    clsDebug log(session);
    EXPECT_NO_THROW(log.setLogfile(folder / "none/deep/x"));
    EXPECT_NO_THROW(log.Prn("text", clsDebug::info));
    expectNoBox();
}

} // namespace
} // namespace zel::services
