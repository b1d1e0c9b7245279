#include "runner/runner.h"

#include "ado/error.h"
#include "forms/form.h"
#include "forms/form_registry.h"
#include "runner/command_error.h"
#include "runner/runner_dialogs.h"

#include <fmt/format.h>

#include <istream>
#include <ostream>
#include <utility>

namespace zel::runner {

namespace {

void checkCount(const Command& command, std::size_t given) {
    if (given >= command.least && given <= command.most)
        return;
    throw CommandError(command.arguments.empty() ? fmt::format("{} takes no arguments", command.name)
                                                 : fmt::format("{} takes {}", command.name, command.arguments));
}

Json boxLine(const forms::ShownBox& box) {
    Json line;
    line.set("kind", box.kind);
    line.set("title", box.title);
    line.set("text", box.text);
    line.set("icon", box.icon);
    line.set("buttons", box.buttons);
    line.set("default", box.defaultAnswer);
    line.set("answer", box.answer);
    if (!box.answered)
        line.set("unanswered", true);
    return line;
}

Json outcomeLine(const std::string& command, const std::string& error) {
    Json line(Json::Object{});
    line.set("cmd", command);
    line.set("ok", error.empty());
    if (!error.empty())
        line.set("error", error);
    return line;
}

} // namespace

Runner::Runner(Program& program, std::ostream& out, bool keepGoing)
    : context_(program), out_(out), keepGoing_(keepGoing) {
    auto& dialogs = program.dialogs();
    dialogs.runCommands = [this](forms::Form& form, const std::string& commands) { runFormCommands(form, commands); };
    dialogs.complain = [this](const std::string& complaint) {
        if (complaint_.empty())
            complaint_ = complaint;
    };
    program.observeStatements([this](const std::string& statement) {
        if (context_.showStatements)
            statements_.emplace_back(statement);
    });
}

int Runner::run(std::istream& in) {
    bool failed = false;
    std::string text;
    while (!context_.left && std::getline(in, text)) {
        if (++line_ == 1 && text.starts_with("\xEF\xBB\xBF")) // a mark that some editors put in front
            text.erase(0, 3);
        if (runLine(text))
            continue;
        failed = true;
        if (!keepGoing_)
            break;
    }
    return failed ? 1 : 0;
}

bool Runner::runLine(const std::string& text) {
    command_.clear();
    statements_.clear();
    formCommands_.clear();
    complaint_.clear();
    context_.program.beginCommand();

    std::string error;
    Json results(Json::Object{});
    try {
        const auto words = splitWords(text);
        if (words.empty())
            return true;
        command_ = words.front();
        error = carryOut(words, results);
    } catch (const CommandError& failure) {
        error = failure.what();
    }
    if (error.empty())
        error = std::exchange(complaint_, {});

    Json answer;
    answer.set("line", line_);
    answer.merge(outcomeLine(command_, error));
    answer.merge(std::move(results));
    answer.set("boxes", takeBoxes());
    if (Json::Array files = takePrinted(); !files.empty())
        answer.set("printed", std::move(files));
    if (!formCommands_.empty())
        answer.set("commands", std::move(formCommands_));
    if (context_.showStatements)
        answer.set("sql", std::move(statements_));
    write(answer);
    return error.empty();
}

std::string Runner::carryOut(const Words& words, Json& results) {
    // Screens that close meanwhile live until the command has ended.
    const forms::FormRegistry::Action action(context_.program.forms());
    try {
        const auto& command = findCommand(words.front());
        checkCount(command, words.size() - 1);
        if (command.acts)
            context_.lastBoxes.clear();
        command.run(context_, {words.begin() + 1, words.end()}, results);
        return {};
    } catch (const ado::Error& failure) {
        return fmt::format("Error: {} Desc: {}", failure.number(), failure.description());
    } catch (const std::exception& failure) {
        return failure.what();
    }
}

void Runner::runFormCommands(forms::Form& form, const std::string& commands) {
    for (const auto& words : splitCommands(commands)) {
        if (!form.Visible()) {
            complaint_ = fmt::format("{} closed before {}", form.Name(), words.front());
            break;
        }
        Json results(Json::Object{});
        const auto error = carryOut(words, results);
        Json line = outcomeLine(words.front(), error);
        line.merge(std::move(results));
        formCommands_.push_back(std::move(line));
        if (!error.empty()) {
            complaint_ = fmt::format("on {}: {}: {}", form.Name(), words.front(), error);
            break;
        }
    }
}

Json Runner::takeBoxes() {
    Json lines(Json::Array{});
    auto shown = context_.program.dialogs().take();
    for (const auto& box : shown)
        lines.append(boxLine(box));
    if (!shown.empty())
        context_.lastBoxes = std::move(shown);
    return lines;
}

Json::Array Runner::takePrinted() {
    const std::vector<std::string> files = context_.program.takePrinted();
    return {files.begin(), files.end()};
}

void Runner::writeStuck(const std::string& why) {
    Json answer;
    answer.set("line", line_);
    answer.merge(outcomeLine(command_, why));
    write(answer);
}

void Runner::write(const Json& answer) {
    out_ << answer.dump() << '\n' << std::flush;
}

} // namespace zel::runner
