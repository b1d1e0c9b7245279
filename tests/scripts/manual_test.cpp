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

/// Whether the manual shows it at the head of a code, alone or with arguments.
bool names(const std::string& manual, const std::string& what) {
    return manual.find("`" + what + "`") != std::string::npos || manual.find("`" + what + " ") != std::string::npos;
}

TEST(Manual, Names_every_command) {
    const std::string manual = readFile(fs::path(ZEL_DOCS) / "automation.md");
    const std::string help = ProgramRun(ado::EngineKind::Sqlite).run("help");
    const std::string mark = R"({"command":")";
    int commands = 0;
    for (auto at = help.find(mark); at != std::string::npos; at = help.find(mark, at + 1), ++commands) {
        const auto begin = at + mark.size();
        const auto name = help.substr(begin, help.find('"', begin) - begin);
        EXPECT_TRUE(names(manual, name)) << name;
    }
    EXPECT_GT(commands, 30);
}

TEST(Manual, Names_every_procedure_with_its_arguments) {
    std::string manual = readFile(fs::path(ZEL_DOCS) / "automation.md");
    std::erase(manual, '\\'); // before a bar in a table
    std::string list = ProgramRun(ado::EngineKind::Sqlite).run("call");
    list = list.substr(list.find('[') + 1);
    int procedures = 0;
    for (std::size_t at = list.find('"'); list[at] == '"'; at += list[at] == ',' ? 1 : 0, ++procedures) {
        const auto end = list.find('"', at + 1);
        const auto procedure = list.substr(at + 1, end - at - 1);
        EXPECT_NE(manual.find("`" + procedure + "`"), std::string::npos) << procedure;
        at = end + 1;
    }
    EXPECT_GT(procedures, 50);
}

} // namespace
} // namespace zel::test
