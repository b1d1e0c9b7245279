#pragma once

#include <optional>
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

/// How a program ended and what it wrote. Of one that a signal ended the status is 128 and the signal's number.
struct Ended {
    int status = 0;
    std::string output, errors;
};

/// The machine's processes.
class SystemProcesses final : public Processes {
public:
    [[nodiscard]] bool start(const std::string& program, const std::vector<std::string>& arguments,
                             const Environment& environment) override;
    /// Starts a program and waits for its end. Nothing when it cannot be started.
    [[nodiscard]] static std::optional<Ended> run(const std::string& program, const std::vector<std::string>& arguments,
                                                  const Environment& environment);
};

} // namespace zel::platform
