#pragma once

#include "korvandb/progress.h"

#include <chrono>
#include <string>

namespace zel::korvandb {

/// Shows long work on standard error: one line that is written over on a terminal, a line every few seconds elsewhere.
/// Ends the work (Interrupted) when the user has asked the program to stop.
class ProgressLine {
public:
    ProgressLine();
    ~ProgressLine();
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;

    [[nodiscard]] Progress progress();

private:
    void show(std::string_view work, std::int64_t done, std::int64_t total);

    bool terminal_;
    std::size_t shown_ = 0;
    std::chrono::steady_clock::time_point last_;
};

/// The user pressed Ctrl-C or the machine goes down.
struct Interrupted {};

} // namespace zel::korvandb
