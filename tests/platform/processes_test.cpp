#include "platform/processes.h"

#include "scratch_folder.h"

#include <chrono>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <thread>

namespace zel::platform {
namespace {

TEST(SystemProcesses, AStartedProgramGetsItsOneArgumentWhole) {
    const ScratchFolder folder;
    folder.put("tablon", "#!/bin/sh\nprintf '%s|%s' \"$#\" \"$1\" > \"" + (folder / "part") + "\"\nmv \"" +
                             (folder / "part") + "\" \"" + (folder / "seen") + "\"\n");
    ::chmod((folder / "tablon").c_str(), 0755);
    SystemProcesses processes;
    ASSERT_TRUE(processes.start(folder / "tablon", {"OF288,5,'a b',$HOME; rm *"}, {}));
    for (int i = 0; i < 500 && folder.bytes("seen").empty(); ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    EXPECT_EQ(folder.bytes("seen"), "1|OF288,5,'a b',$HOME; rm *");
}

TEST(SystemProcesses, AStartedProgramFindsTheValuesInItsEnvironment) {
    const ScratchFolder folder;
    folder.put("tablon", "#!/bin/sh\nprintf '%s|%s|%s' \"$ZEL_TEST_NEW\" \"$ZEL_TEST_OLD\" \"$PATH\" > \"" +
                             (folder / "part") + "\"\nmv \"" + (folder / "part") + "\" \"" + (folder / "seen") +
                             "\"\n");
    ::chmod((folder / "tablon").c_str(), 0755);
    ::setenv("ZEL_TEST_OLD", "old", 1);
    SystemProcesses processes;
    ASSERT_TRUE(processes.start(folder / "tablon", {}, {{"ZEL_TEST_NEW", "a b=c"}, {"ZEL_TEST_OLD", "new"}}));
    for (int i = 0; i < 500 && folder.bytes("seen").empty(); ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    EXPECT_EQ(folder.bytes("seen"), std::string("a b=c|new|") + ::getenv("PATH"));
    EXPECT_STREQ(::getenv("ZEL_TEST_OLD"), "old");
}

TEST(SystemProcesses, AProgramThatIsNotThereIsToldAtOnce) {
    const ScratchFolder folder;
    SystemProcesses processes;
    EXPECT_FALSE(processes.start(folder / "none", {"x"}, {}));
    folder.put("text", "no program");
    EXPECT_FALSE(processes.start(folder / "text", {"x"}, {}));
}

/// Runs a shell script as a program.
std::optional<Ended> runScript(const ScratchFolder& folder, const std::string& script,
                               const Environment& environment = {}) {
    folder.put("script", "#!/bin/sh\n" + script + "\n");
    ::chmod((folder / "script").c_str(), 0755);
    return SystemProcesses::run(folder / "script", {"a b"}, environment);
}

TEST(SystemProcesses, AProgramThatIsWaitedForTellsHowItEndedAndWhatItWrote) {
    const ScratchFolder folder;
    const auto ended = runScript(folder, "echo \"$1 $ZEL_TEST_NEW\"; echo no >&2; exit 4", {{"ZEL_TEST_NEW", "new"}});
    ASSERT_TRUE(ended);
    EXPECT_EQ(ended->status, 4);
    EXPECT_EQ(ended->output, "a b new\n");
    EXPECT_EQ(ended->errors, "no\n");
}

TEST(SystemProcesses, AProgramThatASignalEndsHasItsNumberInTheStatus) {
    const ScratchFolder folder;
    EXPECT_EQ(runScript(folder, "kill -KILL $$")->status, 128 + 9);
    EXPECT_FALSE(SystemProcesses::run(folder / "none", {}, {}));
}

} // namespace
} // namespace zel::platform
