#include "korvandb/program_run.h"

#include "support/test_database.h"

#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>

namespace zel::test {

ProgramRun korvanDb(const std::string& arguments, const std::string& before) {
    ::setenv("PGUSER", serverUser, 1);
    const std::string command = before + " " KORVAN_DB " " + arguments + " 2>&1";
    std::FILE* pipe = ::popen(command.c_str(), "r");
    if (pipe == nullptr)
        throw std::runtime_error("no pipe to " + command);
    ProgramRun run;
    std::array<char, 4096> part{};
    for (std::size_t length; (length = std::fread(part.data(), 1, part.size(), pipe)) > 0;)
        run.output.append(part.data(), length);
    const int status = ::pclose(pipe);
    run.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return run;
}

} // namespace zel::test
