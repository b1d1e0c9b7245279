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

} // namespace
} // namespace zel::platform
