#include "runner/options.h"

#include "runner/command_error.h"

#include <gtest/gtest.h>

namespace zel::runner {
namespace {

TEST(Options, All_of_them) {
    const auto options = parseOptions({"--home", "/zel", "--db=/data/Korvan.mdb", "--now", "2005-07-04T08:00:00",
                                       "--out", "/out", "--keep-going", "day.zel"});
    EXPECT_EQ(options.home, "/zel");
    EXPECT_EQ(options.database, "/data/Korvan.mdb");
    EXPECT_EQ(options.now, "2005-07-04T08:00:00");
    EXPECT_EQ(options.out, "/out");
    EXPECT_TRUE(options.keepGoing);
    EXPECT_EQ(options.script, "day.zel");
}

TEST(Options, Without_a_script_standard_input_is_read) {
    EXPECT_EQ(parseOptions({}).script, "");
    EXPECT_EQ(parseOptions({"-"}).script, "");
    EXPECT_EQ(parseOptions({"--", "--day.zel"}).script, "--day.zel");
}

TEST(Options, What_cannot_be_meant_is_refused) {
    EXPECT_THROW((void)parseOptions({"--nonsense"}), CommandError);
    EXPECT_THROW((void)parseOptions({"--home"}), CommandError);
    EXPECT_THROW((void)parseOptions({"--home="}), CommandError);
    EXPECT_THROW((void)parseOptions({"a.zel", "b.zel"}), CommandError);
}

} // namespace
} // namespace zel::runner
