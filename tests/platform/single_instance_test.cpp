#include "platform/single_instance.h"

#include "scratch_folder.h"

#include <csignal>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace zel::platform {
namespace {

class SingleInstanceTest : public testing::Test {
protected:
    ScratchFolder runtime, program, otherProgram;
};

TEST_F(SingleInstanceTest, TheSecondFromOneFolderKnowsAndCallsTheFirst) {
    const SingleInstance first(program.path(), runtime.path());
    const SingleInstance second(program.path(), runtime.path());
    EXPECT_TRUE(first.isFirst());
    EXPECT_FALSE(second.isFirst());
    EXPECT_FALSE(first.activationAsked());
    EXPECT_TRUE(second.activateFirst());
    EXPECT_TRUE(first.activationAsked());
    EXPECT_FALSE(first.activationAsked());
    EXPECT_GE(first.descriptor(), 0);
    EXPECT_EQ(second.descriptor(), -1);
}

TEST_F(SingleInstanceTest, AnotherSpellingOfTheFolderIsTheSameFolder) {
    const SingleInstance first(program.path(), runtime.path());
    const SingleInstance second(program.path() + "/.", runtime.path());
    EXPECT_FALSE(second.isFirst());
}

TEST_F(SingleInstanceTest, ProgramsFromDifferentFoldersDoNotSeeEachOther) {
    const SingleInstance first(program.path(), runtime.path());
    const SingleInstance other(otherProgram.path(), runtime.path());
    EXPECT_TRUE(other.isFirst());
}

TEST_F(SingleInstanceTest, TheFolderIsFreeAgainWhenTheFirstHasEnded) {
    { const SingleInstance first(program.path(), runtime.path()); }
    const SingleInstance next(program.path(), runtime.path());
    EXPECT_TRUE(next.isFirst());
}

TEST_F(SingleInstanceTest, AKilledProgramLeavesNothingInTheWay) {
    const pid_t child = ::fork();
    if (child == 0) {
        const SingleInstance first(program.path(), runtime.path());
        ::raise(SIGKILL);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    ASSERT_TRUE(WIFSIGNALED(status));
    const SingleInstance next(program.path(), runtime.path());
    EXPECT_TRUE(next.isFirst());
    const SingleInstance second(program.path(), runtime.path());
    EXPECT_TRUE(second.activateFirst());
    EXPECT_TRUE(next.activationAsked());
}

TEST_F(SingleInstanceTest, WithoutARunTimeFolderTheProgramStillStarts) {
    const SingleInstance first(program.path(), runtime / "none");
    EXPECT_TRUE(first.isFirst());
    EXPECT_FALSE(first.activateFirst());
    EXPECT_FALSE(first.activationAsked());
}

} // namespace
} // namespace zel::platform
