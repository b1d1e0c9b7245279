#pragma once

#include <string>
#include <utility>
#include <vector>

namespace zel::platform {

/// Names and values that a started program finds in its environment, beside what this one has.
using Environment = std::vector<std::pair<std::string, std::string>>;

/// Other programs.
class Processes {
public:
    virtual ~Processes() = default;
    /// Starts a program and goes on at once. False when it cannot be started.
    [[nodiscard]] virtual bool start(const std::string& program, const std::vector<std::string>& arguments,
                                     const Environment& environment) = 0;
};

/// The environment of this program with these values in it, one "NAME=value" each.
[[nodiscard]] std::vector<std::string> environmentWith(const Environment& values);

/// The machine's processes.
class SystemProcesses final : public Processes {
public:
    [[nodiscard]] bool start(const std::string& program, const std::vector<std::string>& arguments,
                             const Environment& environment) override;
};

} // namespace zel::platform
