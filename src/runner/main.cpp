#include "runner/command_error.h"
#include "runner/options.h"
#include "runner/runner.h"
#include "runner/running_program.h"

#include <fstream>
#include <iostream>

namespace {

using namespace zel::runner;

constexpr int startedWrongly = 2;

int run(const Options& options) {
    std::ifstream file;
    if (!options.script.empty()) {
        file.open(options.script, std::ios::binary);
        if (!file)
            throw CommandError("cannot read " + options.script);
    }
    RunningProgram program(options);
    Runner runner(program, std::cout, options.keepGoing);
    program.dialogs().stuck = [&](const std::string& why) {
        // The program hangs in the middle of a handler: there is no way back through it.
        runner.writeStuck(why);
        std::_Exit(1);
    };
    return runner.run(options.script.empty() ? std::cin : file);
}

} // namespace

int main(int count, char** words) {
    try {
        const Options options = parseOptions({words + 1, words + count});
        if (options.help) {
            std::cout << usage();
            return 0;
        }
        return run(options);
    } catch (const CommandError& failure) {
        std::cerr << "zel-run: " << failure.what() << "\n\n" << usage();
    } catch (const std::exception& failure) {
        std::cerr << "zel-run: " << failure.what() << '\n';
    }
    return startedWrongly;
}
