#include "tablon_fixture.h"

#include <array>
#include <cstdio>
#include <fstream>
#include <sstream>

#include <sys/wait.h>

namespace zel::tablon {
namespace {

namespace fs = std::filesystem;

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// What a command prints, and its exit status.
std::pair<int, std::string> outputOf(const std::string& command) {
    std::string text;
    FILE* pipe = ::popen(("timeout 60 " + command + " 2>&1").c_str(), "r");
    std::array<char, 4096> part{};
    for (std::size_t read = 0; pipe != nullptr && (read = std::fread(part.data(), 1, part.size(), pipe)) > 0;)
        text.append(part.data(), read);
    const int ended = pipe == nullptr ? -1 : ::pclose(pipe);
    return {WIFEXITED(ended) ? WEXITSTATUS(ended) : -1, text};
}

/// The program itself, as it is started.
class TablonProgramTest : public TablonFixture {
protected:
    TablonProgramTest() { post(101, 11, 4, "08:00", "16:00", 8); }
    /// The words of a test need no quotes but these.
    [[nodiscard]] std::string commandOf(const std::string& words, const std::string& environment = {}) {
        return "env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM ZEL_HOME='" + (folder / "zel").string() +
               "' ZEL_PRINT_DIR='" + (folder / "out").string() + "' ZEL_DATABASE='" +
               (onSqlite() ? database().file().string() : "") + "' " + environment + " " ZEL_TABLON " '" + words + "'";
    }
    std::pair<int, std::string> run(const std::string& words, const std::string& environment = {}) {
        return outputOf(commandOf(words, environment));
    }
    [[nodiscard]] std::vector<std::string> files() const {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(folder / "out"))
            names.push_back(entry.path().filename().string());
        std::ranges::sort(names);
        return names;
    }
    [[nodiscard]] std::string textOf(const std::string& file) const {
        return outputOf("pdftotext -layout '" + (folder / "out" / file).string() + "' -").second;
    }
};
ZEL_ON_BOTH_ENGINES(TablonProgramTest);

TEST_P(TablonProgramTest, WritesTheFormIntoTheFolderAndOverwritesNothing) {
    const std::string folderName = (folder / "out").string();
    EXPECT_THAT(run(argument("P11")), testing::Pair(0, folderName + "/OF-288 P11.pdf\n"));
    EXPECT_THAT(run(argument("P11")), testing::Pair(0, folderName + "/OF-288 P11 (2).pdf\n"));
    EXPECT_THAT(run(argument("0")), testing::Pair(0, folderName + "/OF-288 all.pdf\n"));
    EXPECT_THAT(files(), ElementsAre("OF-288 P11 (2).pdf", "OF-288 P11.pdf", "OF-288 all.pdf"));
    EXPECT_THAT(textOf("OF-288 P11.pdf"), HasSubstr("SMITH, PAT"));
}

/// Words of a text, parted by one blank, so that the places on the page do not matter.
std::string words(const std::string& text) {
    std::istringstream in(text);
    std::string all;
    for (std::string word; in >> word;)
        all += word + " ";
    return all;
}

TEST_P(TablonProgramTest, TheFormShowsWhoWorkedWhereAndWhatIsPaid) {
    execute(
        "update Persons set SSN='123456789', MailAddr1='12 HILL ROAD', City='SISTERS', State='OR', ZipCode='97759', "
        "PointOfHire='REDMOND, OR', InitEmployYN=1, Remarks='HOME BY BUS' where PersonID=11");
    execute("insert into PersonsDebit (PersonsDebitID,PersonID,Amt) values (1,11,12.5)");
    execute("insert into PersonsDebit (PersonsDebitID,PersonID,Amt) values (2,11,30)");
    execute("insert into PersonsDebit (PersonsDebitID,PersonID,Amt) values (3,12,99)");
    post(102, 11, 5, "18:00", "00:00", 6, "1,'CRWB','AD-C',21.16");
    post(103, 11, 6, "00:01", "06:00", 6, "1,'CRWB','AD-C',21.16");
    post(104, 11, 7, "08:00", "12:15", 4.25, "2,'FFT2','AD-B',18.20");
    ASSERT_EQ(run(argument("P11", 6, "True")).first, 0);
    const std::string text = words(textOf("OF-288 P11.pdf"));
    for (const char* part : {"SMITH, PAT 123-45-6789 AD YES 1 of 1",
                             "12 HILL ROAD",
                             "REDMOND, OR",
                             "SISTERS, OR 97759",
                             "BEAR CREEK",
                             "OR-ABC-000123",
                             "SISTERS, OR",
                             "C-7",
                             "FFT2",
                             "HOME BY BUS",
                             "ORIGINAL",
                             "Account P6ABC1",
                             "Account P6XYZ2",
                             "Kind FFT2 15. Kind CRWB 15. Kind FFT2",
                             "Class AD-B 16. Class AD-C 16. Class AD-B",
                             "Rate $18.20 17. Rate $21.16 17. Rate $18.20",
                             "07/04/05 08:00 16:00 8.00 07/05/05 18:00 24:00 6.00 07/07/05 08:00 12:15 4.25",
                             "07/06/05 00:01 06:00 6.00",
                             "19. Hours 8.00 19. Hours 12.00 19. Hours 4.25",
                             "20. Amount $145.60 20. Amount $253.92 20. Amount $77.35",
                             "24.25 $476.87 24.25 $476.87 $42.50 $434.37"})
        EXPECT_THAT(text, HasSubstr(part));
    EXPECT_THAT(text, testing::Not(HasSubstr("DRAFT")));
}

TEST_P(TablonProgramTest, NothingIsCutOffAtSixtyRowsAndMore) {
    for (int i = 0; i < 149; ++i)
        post(200 + i, 11, 5 + i / 6, "0" + std::to_string(i % 6 + 1) + ":00", "0" + std::to_string(i % 6 + 1) + ":45",
             0.75);
    ASSERT_EQ(run(argument("P11")).first, 0);
    const std::string text = textOf("OF-288 P11.pdf");
    std::size_t stops = 0;
    for (std::size_t at = text.find(":45 "); at != std::string::npos; at = text.find(":45 ", at + 1))
        ++stops;
    EXPECT_EQ(stops, 149U);
    const std::string flat = words(text);
    EXPECT_THAT(flat, HasSubstr("1 of 2"));
    EXPECT_THAT(flat, HasSubstr("continued continued continued continued"));
    EXPECT_THAT(flat, HasSubstr("2 of 2"));
    EXPECT_THAT(flat, HasSubstr("119.75 $2,179.45")); // 8 + 149 * 0.75 hours
}

TEST_P(TablonProgramTest, AnAddressThatIsNotThereLeavesNoComma) {
    ASSERT_EQ(run(argument("P11")).first, 0);
    EXPECT_THAT(words(textOf("OF-288 P11.pdf")), HasSubstr("8. Return Travel NO 9. Incident Name"));
}

TEST_P(TablonProgramTest, LongNamesAreWhole) {
    execute("update Persons set LastName='ABCDEFGHIJKLMNOPQRSTUVWXYZABCD', FirstName='ABCDEFGHIJKLMNOPQRST', "
            "PointOfHire='THE OLD RANGER STATION BEHIND THE SECOND BRIDGE ON THE ROAD TO THE UPPER LAKES' where "
            "PersonID=11");
    execute(
        "update AccountingCodes set AccountingCode='0123456789012345678901234567890123456789012345678901234567891234'"
        " where AccountingID=1");
    ASSERT_EQ(run(argument("P11")).first, 0);
    const std::string text = words(textOf("OF-288 P11.pdf"));
    EXPECT_THAT(text, HasSubstr("ABCDEFGHIJKLMNOPQRSTUVWXYZABCD, ABCDEFGHIJKLMNOPQRST"));
    EXPECT_THAT(text, HasSubstr("0123456789012345678901234567890123456789012345678901234567891234"));
    for (const char* word : {"RANGER", "SECOND", "UPPER", "LAKES"})
        EXPECT_THAT(text, HasSubstr(word));
}

TEST_P(TablonProgramTest, TwoThatPrintTheSamePeopleAtOnceBothPrint) {
    for (int i = 0; i < 300; ++i)
        post(200 + i, 11 + i % 3, 5 + i / 30, "08:00", "16:00", 8, i % 2 == 0 ? "1,'FFT2','AD-B',18.20" : "2,'','',0");
    const std::string one = commandOf(argument("0"));
    EXPECT_EQ(outputOf("sh -c \"" + one + " & " + one + "; wait\"").first, 0);
    EXPECT_THAT(files(), ElementsAre("OF-288 all (2).pdf", "OF-288 all.pdf"));
    EXPECT_EQ(words(textOf("OF-288 all.pdf")), words(textOf("OF-288 all (2).pdf")));
    EXPECT_THAT(
        rows("select PersonID, Column288, count(*), max(RptOrder) from PersonsPost group by PersonID, Column288 "
             "order by PersonID, Column288"),
        ElementsAre("11|1|51|51", "11|2|50|50", "12|1|50|50", "12|2|50|50", "13|1|50|50", "13|2|50|50"));
}

TEST_P(TablonProgramTest, ALongPrintTellsHowFarItIs) {
    execute("delete from PersonsPost");
    for (int i = 0; i < 1200; ++i) // one account after the other makes a column each, four of them a sheet
        post(300 + i, 11, 1 + i % 28, "08:00", "16:00", 8, "1,'K" + std::to_string(i) + "','',18.20");
    const std::string file = (folder / "out" / "OF-288 P11").string();
    const std::string onTerminal = "script -qec \"" + commandOf(argument("P11")) + "\" /dev/null";
    EXPECT_EQ(outputOf(onTerminal).second, "Tablon: page 100 of 300\r\nTablon: page 200 of 300\r\n"
                                           "Tablon: page 300 of 300\r\n" +
                                               file + ".pdf\r\n");
    EXPECT_EQ(run(argument("P11")).second, file + " (2).pdf\n");
}

TEST_P(TablonProgramTest, LettersThatTheFontDoesNotHaveAndLineEndsAreNoTrouble) {
    execute("update Persons set LastName='GARC\u00cdA', FirstName='\u5c71\nJO' where PersonID=11");
    ASSERT_EQ(run(argument("P11")).first, 0);
    const std::string text = words(textOf("OF-288 P11.pdf"));
    EXPECT_THAT(text, HasSubstr("GARC\u00cdA, "));
    EXPECT_THAT(text, HasSubstr("JO"));
}

TEST_P(TablonProgramTest, TheCommissaryAuthorizationHasASheetForEachPerson) {
    execute("update Persons set SSN='123456789', City='SISTERS', State='OR' where PersonID=11");
    ASSERT_EQ(run(argument("R5", 9)).first, 0);
    ASSERT_THAT(files(), ElementsAre("Commissary Authorization R5.pdf"));
    const std::string text = words(textOf("Commissary Authorization R5.pdf"));
    for (const char* part : {"COMMISSARY AUTHORIZATION Request C-7", "SMITH, PAT 123-45-6789 AD NO", "SISTERS, OR",
                             "O'BRIEN, LEE", "RIDGE CREW", "Page 1 of 1"})
        EXPECT_THAT(text, HasSubstr(part));
    EXPECT_LT(text.find("O'BRIEN, LEE"), text.find("SMITH, PAT"));
    EXPECT_THAT(text, testing::Not(HasSubstr("MILLER")));
}

TEST_P(TablonProgramTest, TellsInALineWhereThereAreNoWindows) {
    EXPECT_THAT(run(argument("P99")), testing::Pair(4, "Tablon: Report: Person 99 has no posted hours to print.\n"));
    EXPECT_THAT(run(argument("P11", 10)),
                testing::Pair(3, "Tablon: Report: Report 10 is not part of this build of the reporting program.\n"));
    EXPECT_THAT(run("1,6"), testing::Pair(2, "Tablon: Report: The argument has 2 values instead of 9.\n"));
    EXPECT_THAT(run(argument("P11"), "ZEL_PRINT_DIR=/nowhere/out").first, 1);
    EXPECT_THAT(run(argument("P11"), "ZEL_HOME=/nowhere/zel").second, HasSubstr("OF288.rpt cannot be read"));
    EXPECT_THAT(files(), IsEmpty());
}

TEST_P(TablonProgramTest, WithoutAFolderTheFormIsAFileOfThisUserAlone) {
    const fs::path own = folder / "tmp";
    fs::create_directories(own);
    const auto [status, said] = run(argument("P11"), "ZEL_PRINT_DIR= TMPDIR='" + own.string() + "'");
    EXPECT_EQ(status, 0);
    const fs::path file = said.substr(0, said.find('\n'));
    EXPECT_EQ(file.filename(), "OF-288 P11.pdf");
    EXPECT_EQ(file.parent_path().parent_path(), own);
    EXPECT_EQ(fs::status(file.parent_path()).permissions(), fs::perms::owner_all);
}

TEST_P(TablonProgramTest, ADisplayThatDoesNotAnswerDoesNotEndIt) {
    const auto [status, said] =
        run(argument("P11"), "ZEL_PRINT_DIR= DISPLAY=:4711 TMPDIR='" + (folder / "out").string() + "'");
    EXPECT_EQ(status, 0) << said;
    EXPECT_THAT(said, HasSubstr("OF-288 P11.pdf"));
}

TEST_P(TablonProgramTest, TheSettingsNameTheFileWhenNobodyElseDoesAndAServerNeedsNone) {
    const std::string file = onSqlite() ? database().file().string() : "/nowhere/Korvan.mdb";
    std::ofstream(folder / "zel" / "zel.ini") << "[ZEL]\r\nDBSPath=" << file << "\r\n";
    EXPECT_EQ(run(argument("P11"), "ZEL_DATABASE=").first, 0);
    EXPECT_THAT(files(), ElementsAre("OF-288 P11.pdf"));
}

} // namespace
} // namespace zel::tablon
