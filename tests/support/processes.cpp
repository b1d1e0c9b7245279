#include "support/processes.h"

#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <stdexcept>

namespace zel::test {

namespace {

[[noreturn]] void runChild(int process, int pipe, const std::function<void(int, const Report&)>& work) {
    int status = 0;
    try {
        work(process, [pipe](int number) {
            if (::write(pipe, &number, sizeof number) != static_cast<ssize_t>(sizeof number))
                throw std::runtime_error("cannot report");
        });
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "process %d: %s\n", process, failure.what());
        status = 1;
    }
    // Nothing of the test that it was copied from may end twice.
    ::_exit(status);
}

} // namespace

std::vector<int> inProcesses(int count, const std::function<void(int process, const Report& report)>& work) {
    std::array<int, 2> pipe{};
    if (::pipe(pipe.data()) != 0)
        throw std::runtime_error("no pipe");
    std::vector<pid_t> children;
    for (int process = 0; process < count; ++process) {
        const pid_t child = ::fork();
        if (child == 0)
            runChild(process, pipe[1], work);
        children.push_back(child);
    }
    ::close(pipe[1]);
    std::vector<int> numbers;
    for (int number = 0; ::read(pipe[0], &number, sizeof number) == static_cast<ssize_t>(sizeof number);)
        numbers.push_back(number);
    ::close(pipe[0]);
    for (const pid_t child : children) {
        int status = 0;
        ::waitpid(child, &status, 0);
        EXPECT_EQ(status, 0) << "a process failed";
    }
    return numbers;
}

} // namespace zel::test
