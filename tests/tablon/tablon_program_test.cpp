#include "tablon_fixture.h"

#include <array>
#include <cstdio>
#include <fstream>

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
    std::pair<int, std::string> run(const std::string& words, const std::string& environment = {}) {
        return outputOf("env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM ZEL_HOME='" + (folder / "zel").string() +
                        "' ZEL_PRINT_DIR='" + (folder / "out").string() + "' ZEL_DATABASE='" +
                        (onSqlite() ? database().file().string() : "") + "' " + environment + " " ZEL_TABLON " '" +
                        words + "'");
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
    EXPECT_THAT(run(argument("P11")), testing::Pair(0, ""));
    EXPECT_THAT(run(argument("P11")), testing::Pair(0, ""));
    EXPECT_THAT(run(argument("0")), testing::Pair(0, ""));
    EXPECT_THAT(files(), ElementsAre("OF-288 P11 (2).pdf", "OF-288 P11.pdf", "OF-288 all.pdf"));
    EXPECT_THAT(textOf("OF-288 P11.pdf"), HasSubstr("SMITH, PAT"));
}

TEST_P(TablonProgramTest, TellsInALineWhereThereAreNoWindows) {
    EXPECT_THAT(run(argument("P99")), testing::Pair(4, "Tablon: Report: Person 99 has no posted hours to print.\n"));
    EXPECT_THAT(run(argument("P11", 9)),
                testing::Pair(3, "Tablon: Report: Report 9 is not part of this build of the reporting program.\n"));
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

TEST_P(TablonProgramTest, TheSettingsNameTheDatabaseWhenNobodyElseDoes) {
    if (!onSqlite())
        GTEST_SKIP() << "a server is named in the argument";
    std::ofstream(folder / "zel" / "zel.ini") << "[ZEL]\r\nDBSPath=" << database().file().string() << "\r\n";
    EXPECT_EQ(run(argument("P11"), "ZEL_DATABASE=").first, 0);
    EXPECT_THAT(files(), ElementsAre("OF-288 P11.pdf"));
}

} // namespace
} // namespace zel::tablon
