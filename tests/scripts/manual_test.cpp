#include "scripts/program_run.h"
#include "support/database_test.h"

#include <gmock/gmock.h>

#include <fstream>
#include <sstream>
#include <vector>

namespace zel::test {
namespace {

namespace fs = std::filesystem;

struct Example {
    std::string script, answers;
};

/// The scripts of a manual (blocks marked zel), each with the answers shown behind it (a block marked json).
std::vector<Example> examples(const fs::path& manual) {
    std::vector<Example> found;
    std::istringstream in(readFile(manual));
    std::string* open = nullptr;
    for (std::string line; std::getline(in, line);) {
        if (line == "```zel")
            open = &found.emplace_back().script;
        else if (line == "```json" && !found.empty())
            open = &found.back().answers;
        else if (line.starts_with("```"))
            open = nullptr;
        else if (open != nullptr)
            *open += line + "\n";
    }
    return found;
}

TEST(Manual, Every_example_answers_as_shown) {
    const auto all = examples(fs::path(ZEL_DOCS) / "automation.md");
    ASSERT_GE(all.size(), 5U);
    std::ofstream kept("automation.actual", std::ios::binary);
    for (const auto& example : all) {
        ProgramRun program(ado::EngineKind::Sqlite);
        const auto answers = program.run(example.script);
        kept << answers << "\n";
        EXPECT_EQ(answers, example.answers) << example.script;
    }
}

TEST(Manual, Names_every_command) {
    const std::string manual = readFile(fs::path(ZEL_DOCS) / "automation.md");
    const std::string help = ProgramRun(ado::EngineKind::Sqlite).run("help");
    const std::string mark = R"({"command":")";
    int commands = 0;
    for (auto at = help.find(mark); at != std::string::npos; at = help.find(mark, at + 1), ++commands) {
        const auto begin = at + mark.size();
        const auto name = help.substr(begin, help.find('"', begin) - begin);
        EXPECT_THAT(manual,
                    testing::AnyOf(testing::HasSubstr("| `" + name + "`"), testing::HasSubstr("| `" + name + " "),
                                   testing::HasSubstr("`" + name + " A...`")));
    }
    EXPECT_GT(commands, 30);
}

} // namespace
} // namespace zel::test
