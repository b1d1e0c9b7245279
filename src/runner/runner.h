#pragma once

#include "runner/commands.h"
#include "runner/context.h"

#include <iosfwd>
#include <string>

namespace zel::runner {

/// Reads commands, one a line, carries each out and answers with one line of JSON, flushed at once.
class Runner {
public:
    Runner(Program& program, std::ostream& out, bool keepGoing);

    /// Reads to the end, to `quit`, or to the first command that fails unless it is to keep going. The exit status: 0,
    /// or 1 when a command failed.
    int run(std::istream& in);
    /// The answer for a command that will never end, as a line.
    void writeStuck(const std::string& why);

private:
    /// False when the command failed.
    bool runLine(const std::string& text);
    /// Why it failed, empty when it was done.
    std::string carryOut(const Words& words, Json& results);
    void runFormCommands(forms::Form& form, const std::string& commands);
    /// The boxes that the line brought, kept for expect-box.
    Json takeBoxes();
    /// The files of what the line printed.
    Json::Array takePrinted();
    void write(const Json& answer);

    Context context_;
    std::ostream& out_;
    bool keepGoing_;
    int line_ = 0;
    // Of the line that runs:
    std::string command_;
    Json::Array statements_, formCommands_;
    std::string complaint_;
};

} // namespace zel::runner
