#pragma once

#include <optional>
#include <string>
#include <vector>

namespace zel::runner {

/// The command line of zel-run.
struct Options {
    /// The program folder; empty: ZEL_HOME, else the folder of the executable.
    std::string home;
    /// Written into the settings as the database's path before anything runs.
    std::string database;
    /// The time at which the clock stands; empty: the machine's clock runs.
    std::string now;
    /// Folder that takes printed reports.
    std::string out;
    /// Empty: standard input.
    std::string script;
    bool keepGoing = false;
    bool help = false;
};

/// Throws CommandError for an unknown option, a missing value, a second script.
[[nodiscard]] Options parseOptions(const std::vector<std::string>& arguments);

[[nodiscard]] std::string usage();

} // namespace zel::runner
