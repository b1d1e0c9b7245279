#include "runner/running_program.h"

#include "ado/convert.h"
#include "core/frmMain.h"
#include "core/settings.h"
#include "core/start_up.h"
#include "program/program_parts.h"
#include "runner/command_error.h"

#include <fmt/format.h>

#include <filesystem>

namespace zel::runner {

namespace {

/// Turns of the message loop that one command may take: a wait for something that cannot come takes more in no time.
constexpr std::int64_t turnLimit = 10'000'000;

} // namespace

RunningProgram::RunningProgram(const Options& options)
    : suite_(program::makeSuite()), session_(program::describe(program::programFolder(options.home)),
                                             {forms_, dialogs_, clock_, files_, printing_, *suite_}) {
    program::addScreens(session_);
    session_.frontEnd.DoEvents = [this] { doEvents(); };
    if (!options.now.empty()) {
        const auto now = ado::parseIsoText(options.now);
        if (!now)
            throw CommandError(fmt::format("--now {} is no time, as 2005-07-04T08:00:00", options.now));
        clock_.stopAt(*now);
    }
    if (!options.database.empty())
        core::SaveSetting(session_, "DBSPath", std::filesystem::absolute(options.database).string());
    if (options.out.empty())
        return;
    const std::string folder = std::filesystem::absolute(options.out).string();
    files_.makeFolder(folder);
    printing_.printInto(folder);
    printing_.connect(session_);
    printing_.failed = [this](const std::string& why) {
        if (dialogs_.complain)
            dialogs_.complain(why);
    };
}

void RunningProgram::start(const std::string& commandLine) {
    if (session_.Ended())
        throw CommandError("the program has ended; start zel-run again");
    if (forms_.shell() != nullptr)
        throw CommandError("the program runs already");
    instance_ = std::make_unique<platform::SingleInstance>(session_.app.Path);
    session_.app.PrevInstance = !instance_->isFirst();
    session_.frontEnd.activatePrevious = [this] { (void)instance_->activateFirst(); };
    session_.app.Command = commandLine;
    core::Main(session_);
    if (session_.app.PrevInstance)
        throw CommandError("the program runs already from " + session_.app.Path);
    if (session_.Ended())
        throw CommandError("the program ended while it started");
}

void RunningProgram::openScreen(const std::string& name, int tab) {
    auto* shell = dynamic_cast<core::frmMain*>(forms_.loaded("frmMain"));
    if (shell == nullptr)
        throw CommandError("the program does not run; `start` starts it");
    shell->OpenScreen(name, true, tab);
}

void RunningProgram::quit() {
    if (!session_.Ended())
        core::CloseApp(session_);
}

void RunningProgram::observeStatements(std::function<void(const std::string&)> observer) {
    session_.frontEnd.statements = std::move(observer);
}

void RunningProgram::beginCommand() {
    dialogs_.beginCommand();
    turns_ = 0;
}

void RunningProgram::doEvents() {
    if (++turns_ > turnLimit && dialogs_.stuck)
        dialogs_.stuck("the program waits for something that cannot come");
}

} // namespace zel::runner
