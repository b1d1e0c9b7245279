#include "korvandb/progress_line.h"

#include <fmt/format.h>

#include <unistd.h>

#include <csignal>

namespace zel::korvandb {

namespace {

volatile std::sig_atomic_t stopAsked = 0;

void askToStop(int /*signal*/) {
    stopAsked = 1;
}

std::string withCommas(std::int64_t number) {
    std::string digits = std::to_string(number);
    for (std::size_t at = digits.size(); at > 3; at -= 3)
        digits.insert(at - 3, ",");
    return digits;
}

} // namespace

ProgressLine::ProgressLine() : terminal_(::isatty(STDERR_FILENO) != 0), last_(std::chrono::steady_clock::now()) {
    struct sigaction action = {};
    action.sa_handler = askToStop;
    action.sa_flags = SA_RESETHAND; // a second Ctrl-C does not wait for anything
    ::sigaction(SIGINT, &action, nullptr);
    ::sigaction(SIGTERM, &action, nullptr);
}

ProgressLine::~ProgressLine() {
    if (terminal_ && shown_ > 0)
        fmt::print(stderr, "\r{:{}}\r", "", shown_);
}

Progress ProgressLine::progress() {
    return [this](std::string_view work, std::int64_t done, std::int64_t total) { show(work, done, total); };
}

void ProgressLine::show(std::string_view work, std::int64_t done, std::int64_t total) {
    using namespace std::chrono_literals;
    if (stopAsked != 0)
        throw Interrupted();
    const auto now = std::chrono::steady_clock::now();
    if (now - last_ < (terminal_ ? 200ms : 5000ms))
        return;
    last_ = now;
    std::string text = fmt::format("{}: {}", work, withCommas(done));
    if (total > 0)
        text += " of " + withCommas(total);
    if (terminal_)
        fmt::print(stderr, "\r{:<{}}", text, shown_);
    else
        fmt::print(stderr, "{}\n", text);
    shown_ = text.size();
}

} // namespace zel::korvandb
