// What the automation runner reads: lines become words, words become commands on a screen, answers become JSON.

#include "runner/command_error.h"
#include "runner/fake_program.h"
#include "runner/runner.h"
#include "runner/words.h"

#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>

namespace {

using namespace zel::runner;

void require(bool holds) {
    if (!holds)
        std::abort();
}

void wordsComeBackWhenQuoted(const std::string& line) {
    try {
        const auto words = splitWords(line);
        std::string again;
        for (const auto& word : words)
            again += quoteWord(word) + " ";
        require(splitWords(again) == words);
        for (const auto& command : splitCommands(line))
            require(!command.empty());
    } catch (const CommandError&) { // an open quote
    }
}

/// One line for each answer, without a byte that JSON does not allow.
void everyAnswerIsALine(const std::string& script) {
    FakeProgram program;
    program.dialogs().stuck = [](const std::string&) { std::abort(); };
    program.openScreen("frmTest", 0);
    program.start("");
    std::istringstream in(script);
    std::ostringstream out;
    Runner runner(program, out, true);
    const int status = runner.run(in);
    require(status == 0 || status == 1);
    for (const char c : out.str())
        require(c == '\n' || static_cast<unsigned char>(c) >= 0x20);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    wordsComeBackWhenQuoted(text);
    everyAnswerIsALine(text);
    return 0;
}
