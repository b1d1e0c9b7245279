#pragma once

#include "ado/date_time.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace zel::core {
class Session;
}
namespace zel::forms {
class FormRegistry;
} // namespace zel::forms

namespace zel::runner {

class RunnerDialogs;

/// The program as the runner drives it.
class Program {
public:
    virtual ~Program() = default;
    [[nodiscard]] virtual core::Session& session() = 0;
    [[nodiscard]] virtual forms::FormRegistry& forms() = 0;
    [[nodiscard]] virtual RunnerDialogs& dialogs() = 0;

    /// Runs Main with the text as the command line.
    virtual void start(const std::string& commandLine) = 0;
    virtual void openScreen(const std::string& name, int tab) = 0;
    /// CloseApp.
    virtual void quit() = 0;

    /// Keeps what is on the display under the name and gives the file; without a window there is nothing to keep, and
    /// no file.
    [[nodiscard]] virtual std::string picture(const std::string& name);
    /// Keeps the next box the same way when it opens.
    virtual void pictureOfNextBox(const std::string& name);

    /// Stops the clock at a time.
    virtual void setNow(ado::DateTime now) = 0;
    /// Lets time pass; timers fire in their order.
    virtual void tick(std::int64_t milliseconds) = 0;
    /// A new command of the script: what was counted of the last one is forgotten.
    virtual void beginCommand() = 0;
    /// The files of what was printed since the last call.
    [[nodiscard]] virtual std::vector<std::string> takePrinted() { return {}; }
    /// Sees each statement as composed, on every connection that is opened from now on and on the present one.
    virtual void observeStatements(std::function<void(const std::string&)> observer) = 0;
};

} // namespace zel::runner
