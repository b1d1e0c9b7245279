#include "korvandb/arguments.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <vector>

namespace zel::korvandb {
namespace {

using Command = Arguments::Command;

Arguments parsed(const std::vector<std::string_view>& words) {
    return parseArguments(words);
}

std::string refusal(const std::vector<std::string_view>& words) {
    try {
        (void)parseArguments(words);
    } catch (const std::invalid_argument& failure) {
        return failure.what();
    }
    return "understood";
}

TEST(Arguments, A_demo_has_the_usual_size_unless_it_is_told_another) {
    const Arguments usual = parsed({"demo", "a.mdb"});
    EXPECT_EQ(usual.command, Command::Demo);
    EXPECT_EQ(usual.target, "a.mdb");
    EXPECT_EQ(usual.size.persons, 60);
    EXPECT_EQ(usual.size.days, 14);
    EXPECT_FALSE(usual.force);

    const Arguments big = parsed({"demo", "--persons", "50000", "host/korvan", "--days", "20", "--force"});
    EXPECT_EQ(big.target, "host/korvan");
    EXPECT_EQ(big.size.persons, 50'000);
    EXPECT_EQ(big.size.days, 20);
    EXPECT_TRUE(big.force);
}

TEST(Arguments, Help_is_given_wherever_it_is_asked_for) {
    EXPECT_EQ(parsed({"--help"}).command, Command::Help);
    EXPECT_EQ(parsed({"-h"}).command, Command::Help);
    EXPECT_EQ(parsed({"demo", "--help"}).command, Command::Help);
    EXPECT_EQ(parsed({"--version"}).command, Command::Version);
}

TEST(Arguments, What_is_wrong_is_said) {
    EXPECT_EQ(refusal({}), "what shall be done? See 'korvan-db --help'");
    EXPECT_EQ(refusal({"wipe", "a.mdb"}), "there is no command 'wipe'");
    EXPECT_EQ(refusal({"create"}), "which database? Name a file, or server/catalog");
    EXPECT_EQ(refusal({"create", "a.mdb", "b.mdb"}), "one database at a time: 'b.mdb' is one too many");
    EXPECT_EQ(refusal({"check", "a.mdb", "--force"}), "there is no option '--force' here");
    EXPECT_EQ(refusal({"create", "a.mdb", "--persons", "5"}), "there is no option '--persons' here");
    EXPECT_EQ(refusal({"demo", "a.mdb", "--persons"}), "--persons takes a number");
    EXPECT_EQ(refusal({"demo", "a.mdb", "--persons", "0"}), "--persons takes a number from 1 to 1000000, not '0'");
    EXPECT_EQ(refusal({"demo", "a.mdb", "--days", "12x"}), "--days takes a number from 1 to 1000, not '12x'");
}

TEST(Arguments, The_help_names_every_command_and_option) {
    for (const char* word : {"create TARGET", "demo TARGET", "check TARGET", "info TARGET", "--force", "--persons N",
                             "--days D", "EXIT STATUS", "PGUSER"})
        EXPECT_NE(helpText().find(word), std::string_view::npos) << word;
}

} // namespace
} // namespace zel::korvandb
