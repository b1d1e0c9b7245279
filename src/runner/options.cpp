#include "runner/options.h"

#include "runner/command_error.h"

#include <array>
#include <string_view>
#include <utility>

namespace zel::runner {

namespace {

constexpr std::array<std::pair<std::string_view, std::string Options::*>, 4> withValue{{
    {"--home", &Options::home},
    {"--db", &Options::database},
    {"--now", &Options::now},
    {"--out", &Options::out},
}};

} // namespace

Options parseOptions(const std::vector<std::string>& arguments) {
    Options options;
    bool onlyScript = false;
    const auto takeOption = [&](std::size_t& i) {
        const std::string& word = arguments[i];
        const auto equals = word.find('=');
        const auto name = word.substr(0, equals);
        for (const auto& [option, member] : withValue) {
            if (name != option)
                continue;
            if (equals == std::string::npos && i + 1 == arguments.size())
                throw CommandError(name + " needs a value");
            options.*member = equals == std::string::npos ? arguments[++i] : word.substr(equals + 1);
            if ((options.*member).empty())
                throw CommandError(name + " needs a value");
            return;
        }
        if (word == "--keep-going")
            options.keepGoing = true;
        else if (word == "--help" || word == "-h")
            options.help = true;
        else
            throw CommandError("unknown option " + word);
    };
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& word = arguments[i];
        if (!onlyScript && word == "--") {
            onlyScript = true;
        } else if (!onlyScript && word.size() > 1 && word.front() == '-') {
            takeOption(i);
        } else {
            if (!options.script.empty())
                throw CommandError("one script at a time: " + word);
            options.script = word;
        }
    }
    if (options.script == "-")
        options.script.clear();
    return options;
}

std::string usage() {
    return "usage: zel-run [--home DIR] [--db FILE] [--now TIME] [--out DIR] [--keep-going] [SCRIPT]\n"
           "Runs the program without a window, driven by the commands of SCRIPT or of standard input,\n"
           "one a line, and answers each with one line of JSON.\n"
           "\n"
           "  --home DIR     the program folder (else ZEL_HOME, else the folder of zel-run)\n"
           "  --db FILE      the database, written into zel.ini first\n"
           "  --now TIME     stops the clock at TIME, as 2005-07-04T08:00:00\n"
           "  --out DIR      takes printed reports as PDF files\n"
           "  --keep-going   goes on after a command that failed\n"
           "\n"
           "`help` lists the commands. Ends with status 0, 1 when a command failed, 2 when it was started wrongly.\n";
}

} // namespace zel::runner
