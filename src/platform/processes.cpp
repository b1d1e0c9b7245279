#include "platform/processes.h"

#include <algorithm>
#include <cerrno>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace zel::platform {

namespace {

// The child of the child runs the program, so that nobody has to wait for it; a failed exec tells through the pipe,
// which closes by itself when the program begins.
[[noreturn]] void runDetached(const char* program, char* const* arguments, char* const* environment, int report) {
    ::setsid();
    if (::fork() != 0)
        ::_exit(0);
    ::execve(program, arguments, environment);
    const int reason = errno;
    [[maybe_unused]] const ssize_t told = ::write(report, &reason, sizeof reason);
    ::_exit(127);
}

/// As execve wants them. The texts have to outlive it.
std::vector<char*> pointersTo(const std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    for (const std::string& text : texts)
        pointers.push_back(const_cast<char*>(text.c_str()));
    pointers.push_back(nullptr);
    return pointers;
}

} // namespace

std::vector<std::string> environmentWith(const Environment& values) {
    std::vector<std::string> lines;
    for (char** line = environ; *line != nullptr; ++line) {
        const std::string_view known(*line);
        const bool replaced = std::ranges::any_of(values, [known](const auto& value) {
            return known.starts_with(value.first) && known.substr(value.first.size()).starts_with('=');
        });
        if (!replaced)
            lines.emplace_back(known);
    }
    for (const auto& [name, value] : values)
        lines.push_back(name + "=" + value);
    return lines;
}

bool SystemProcesses::start(const std::string& program, const std::vector<std::string>& arguments,
                            const Environment& environment) {
    std::vector<std::string> words{program};
    words.insert(words.end(), arguments.begin(), arguments.end());
    const std::vector<std::string> surroundings = environmentWith(environment);
    const std::vector<char*> texts = pointersTo(words), lines = pointersTo(surroundings);

    int report[2];
    if (::pipe2(report, O_CLOEXEC) != 0)
        return false;
    const pid_t child = ::fork();
    if (child == 0)
        runDetached(program.c_str(), texts.data(), lines.data(), report[1]);
    ::close(report[1]);
    int reason = 0;
    const bool failed = child < 0 || ::read(report[0], &reason, sizeof reason) > 0;
    ::close(report[0]);
    if (child > 0)
        ::waitpid(child, nullptr, 0);
    return !failed;
}

} // namespace zel::platform
