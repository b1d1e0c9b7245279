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

/// NAME.zel with what it answers in NAME.expected and, where it is there, the settings it leaves in NAME.ini; each as
/// NAME.ENGINE.... where the engines differ. The scripts whose names begin with "print-" find the reporting program.
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
    if (std::get<0>(GetParam()).starts_with("print-"))
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
}

INSTANTIATE_TEST_SUITE_P(Scripts, Script,
                         testing::Combine(testing::ValuesIn(scriptNames()),
                                          testing::Values(ado::EngineKind::Sqlite, ado::EngineKind::Postgres)),
                         caseName);

} // namespace
} // namespace zel::test
