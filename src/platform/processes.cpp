#include "platform/processes.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace zel::platform {

namespace {

// The child of the child runs the program, so that nobody has to wait for it; a failed exec tells through the pipe,
// which closes by itself when the program begins.
[[noreturn]] void runDetached(const char* program, char* const* arguments, int report) {
    ::setsid();
    if (::fork() != 0)
        ::_exit(0);
    ::execv(program, arguments);
    const int reason = errno;
    [[maybe_unused]] const ssize_t told = ::write(report, &reason, sizeof reason);
    ::_exit(127);
}

} // namespace

bool SystemProcesses::start(const std::string& program, const std::vector<std::string>& arguments) {
    std::vector<char*> texts{const_cast<char*>(program.c_str())};
    for (const std::string& argument : arguments)
        texts.push_back(const_cast<char*>(argument.c_str()));
    texts.push_back(nullptr);

    int report[2];
    if (::pipe2(report, O_CLOEXEC) != 0)
        return false;
    const pid_t child = ::fork();
    if (child == 0)
        runDetached(program.c_str(), texts.data(), report[1]);
    ::close(report[1]);
    int reason = 0;
    const bool failed = child < 0 || ::read(report[0], &reason, sizeof reason) > 0;
    ::close(report[0]);
    if (child > 0)
        ::waitpid(child, nullptr, 0);
    return !failed;
}

} // namespace zel::platform
