#include "scripts/program_run.h"
#include "support/database_test.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <fstream>
#include <sstream>
#include <vector>

namespace zel::test {
namespace {

namespace fs = std::filesystem;

std::vector<std::string> lines(const std::string& text) {
    std::vector<std::string> list;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);)
        list.push_back(line);
    return list;
}

std::vector<std::string> scriptNames() {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(ZEL_SCRIPTS)) {
        if (entry.path().extension() == ".zel")
            names.push_back(entry.path().stem().string());
    }
    std::ranges::sort(names);
    return names;
}

using Case = std::tuple<std::string, ado::EngineKind>;

std::string caseName(const testing::TestParamInfo<Case>& info) {
    std::string name = std::get<0>(info.param);
    std::ranges::replace(name, '-', '_');
    return name + "_" + testing::PrintToString(std::get<1>(info.param));
}

/// The lines of what was printed, without those that are empty and with one blank where the page has a gap.
std::string withoutGaps(const std::string& page) {
    std::string text;
    for (const std::string& line : lines(page)) {
        std::istringstream words(line);
        std::string joined;
        for (std::string word; words >> word;)
            joined += (joined.empty() ? "" : " ") + word;
        text += joined.empty() ? "" : joined + "\n";
    }
    return text;
}

/// The files that the answers tell of, as text.
std::string printedText(const ProgramRun& program, const std::string& answers) {
    static const std::string mark = R"("printed":["{home}/)";
    std::string text;
    for (auto at = answers.find(mark); at != std::string::npos; at = answers.find(mark, at + 1)) {
        const auto begin = at + mark.size();
        text += withoutGaps(program.printed(answers.substr(begin, answers.find('"', begin) - begin)));
    }
    return text;
}

/// NAME.zel with what it answers in NAME.expected and, where they are there, the settings it leaves in NAME.ini and the
/// text of what it prints in NAME.printed; each as NAME.ENGINE.... where the engines differ. The scripts whose names
/// begin with "print-" find the reporting program too.
class Script : public testing::TestWithParam<Case> {
protected:
    /// What came out, in the folder that the test runs in, to be looked at and put in place when it is right.
    static void keep(const std::string& text, const std::string& ending) {
        const auto& [name, engine] = GetParam();
        std::ofstream(name + "." + testing::PrintToString(engine) + ending, std::ios::binary) << text;
    }
    /// The engine's own file where there is one, else the one for both.
    [[nodiscard]] static fs::path file(const std::string& ending) {
        const auto& [name, engine] = GetParam();
        const fs::path own = fs::path(ZEL_SCRIPTS) / (name + "." + testing::PrintToString(engine) + ending);
        return fs::exists(own) ? own : fs::path(ZEL_SCRIPTS) / (name + ending);
    }
};

TEST_P(Script, answers_as_expected) {
    ProgramRun program(std::get<1>(GetParam()));
    const auto printed = file(".printed");
    if (std::get<0>(GetParam()).starts_with("print-") || fs::exists(printed))
        program.installReports();
    const auto answers = program.run(readFile(file(".zel")));
    keep(answers, ".actual");
    EXPECT_THAT(lines(answers), testing::ElementsAreArray(lines(readFile(file(".expected")))));
    EXPECT_EQ(program.status(), 0);
    const auto settings = file(".ini");
    if (fs::exists(settings)) {
        keep(program.settings(), ".actual.ini");
        EXPECT_EQ(program.settings(), readFile(settings));
    }
    if (fs::exists(printed)) {
        const auto text = printedText(program, answers);
        keep(text, ".actual.printed");
        EXPECT_EQ(text, readFile(printed));
    }
}

INSTANTIATE_TEST_SUITE_P(Scripts, Script,
                         testing::Combine(testing::ValuesIn(scriptNames()),
                                          testing::Values(ado::EngineKind::Sqlite, ado::EngineKind::Postgres)),
                         caseName);

} // namespace
} // namespace zel::test
