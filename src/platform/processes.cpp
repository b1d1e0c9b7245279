#include "platform/processes.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <string_view>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace zel::platform {

namespace {

/// The words and the environment of a program, as execve wants them.
class Call {
public:
    Call(const std::string& program, const std::vector<std::string>& arguments, const Environment& environment)
        : words_{program}, lines_(environmentWith(environment)) {
        words_.insert(words_.end(), arguments.begin(), arguments.end());
        wordPointers_ = pointersTo(words_);
        linePointers_ = pointersTo(lines_);
    }
    Call(const Call&) = delete;
    Call& operator=(const Call&) = delete;

    /// Returns only when it fails.
    void execute() const { ::execve(words_.front().c_str(), wordPointers_.data(), linePointers_.data()); }

private:
    static std::vector<char*> pointersTo(const std::vector<std::string>& texts) {
        std::vector<char*> pointers;
        for (const std::string& text : texts)
            pointers.push_back(const_cast<char*>(text.c_str()));
        pointers.push_back(nullptr);
        return pointers;
    }
    static std::vector<std::string> environmentWith(const Environment& values);

    std::vector<std::string> words_, lines_;
    std::vector<char*> wordPointers_, linePointers_;
};

/// The environment of this program with these values in it, one "NAME=value" each.
std::vector<std::string> Call::environmentWith(const Environment& values) {
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

/// In the child: a failed exec tells through the pipe, which closes by itself when the program begins.
[[noreturn]] void become(const Call& call, int report) {
    call.execute();
    const int reason = errno;
    [[maybe_unused]] const ssize_t told = ::write(report, &reason, sizeof reason);
    ::_exit(127);
}

/// The child of the child runs the program, so that nobody has to wait for it.
[[noreturn]] void runDetached(const Call& call, int report) {
    ::setsid();
    if (::fork() != 0)
        ::_exit(0);
    become(call, report);
}

/// Forks; the child does the work, which ends in become(). The child's id, or nothing when the program did not begin.
template <typename Work>
std::optional<pid_t> begin(const Work& work) {
    int report[2];
    if (::pipe2(report, O_CLOEXEC) != 0)
        return std::nullopt;
    const pid_t child = ::fork();
    if (child == 0)
        work(report[1]);
    ::close(report[1]);
    int reason = 0;
    const bool failed = child < 0 || ::read(report[0], &reason, sizeof reason) > 0;
    ::close(report[0]);
    if (child > 0 && failed)
        ::waitpid(child, nullptr, 0);
    return failed ? std::nullopt : std::optional(child);
}

/// A file without a name that takes what a program writes.
class Catcher {
public:
    Catcher() : file_(std::tmpfile()) {}
    ~Catcher() {
        if (file_ != nullptr)
            std::fclose(file_);
    }
    Catcher(const Catcher&) = delete;
    Catcher& operator=(const Catcher&) = delete;

    [[nodiscard]] bool isOpen() const noexcept { return file_ != nullptr; }
    void standAt(int descriptor) const { ::dup2(::fileno(file_), descriptor); }
    [[nodiscard]] std::string text() const {
        std::rewind(file_);
        std::string all;
        std::array<char, 4096> part{};
        for (std::size_t read = 0; (read = std::fread(part.data(), 1, part.size(), file_)) > 0;)
            all.append(part.data(), read);
        return all;
    }

private:
    std::FILE* file_;
};

} // namespace

bool SystemProcesses::start(const std::string& program, const std::vector<std::string>& arguments,
                            const Environment& environment) {
    const Call call(program, arguments, environment);
    const auto child = begin([&call](int report) { runDetached(call, report); });
    if (child)
        ::waitpid(*child, nullptr, 0);
    return child.has_value();
}

std::optional<Ended> SystemProcesses::run(const std::string& program, const std::vector<std::string>& arguments,
                                          const Environment& environment) {
    const Call call(program, arguments, environment);
    const Catcher output, errors;
    if (!output.isOpen() || !errors.isOpen())
        return std::nullopt;
    const auto child = begin([&](int report) {
        output.standAt(STDOUT_FILENO);
        errors.standAt(STDERR_FILENO);
        become(call, report);
    });
    if (!child)
        return std::nullopt;
    int ended = 0;
    while (::waitpid(*child, &ended, 0) < 0 && errno == EINTR)
        continue;
    constexpr int ofSignals = 128;
    return Ended{WIFEXITED(ended) ? WEXITSTATUS(ended) : ofSignals + WTERMSIG(ended), output.text(), errors.text()};
}

} // namespace zel::platform
