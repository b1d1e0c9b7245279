#pragma once

#include <string>
#include <vector>

namespace zel::platform {

/// Other programs.
class Processes {
public:
    virtual ~Processes() = default;
    /// Starts a program and goes on at once. False when it cannot be started.
    [[nodiscard]] virtual bool start(const std::string& program, const std::vector<std::string>& arguments) = 0;
};

/// The machine's processes.
class SystemProcesses final : public Processes {
public:
    [[nodiscard]] bool start(const std::string& program, const std::vector<std::string>& arguments) override;
};

} // namespace zel::platform
