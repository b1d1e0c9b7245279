#pragma once

#include "platform/processes.h"

#include <functional>
#include <string>
#include <vector>

namespace zel::core {
class Session;
}
namespace zel::forms {
class Dialogs;
}

namespace zel::runner {

/// Takes what the program prints as files of a folder. With a folder the reporting program is waited for, so that the
/// next command finds the file; without one it is started as from the window.
class Printing final : public platform::Processes {
public:
    explicit Printing(forms::Dialogs& dialogs) : dialogs_(dialogs) {}

    void printInto(std::string folder) { folder_ = std::move(folder); }
    /// The viewer's reports go into the folder as well.
    void connect(core::Session& session);
    /// Told of a reporting program that did not print.
    std::function<void(const std::string& why)> failed;
    /// The files made since the last call.
    [[nodiscard]] std::vector<std::string> take() { return std::exchange(files_, {}); }

    [[nodiscard]] bool start(const std::string& program, const std::vector<std::string>& arguments,
                             const platform::Environment& environment) override;

private:
    forms::Dialogs& dialogs_;
    std::string folder_;
    std::vector<std::string> files_;
};

} // namespace zel::runner
