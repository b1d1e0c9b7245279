#pragma once

#include <string>

namespace zel::test {

struct ProgramRun {
    int status = -1;
    std::string output; ///< both of what it prints and what it complains of
};

/// Runs korvan-db with arguments as a shell reads them. `before` comes ahead of the program: "ulimit -f 100; exec".
[[nodiscard]] ProgramRun korvanDb(const std::string& arguments, const std::string& before = "exec");

} // namespace zel::test
