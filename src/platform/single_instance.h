#pragma once

#include <string>

namespace zel::platform {

/// One program per program folder: the first holds the folder until it ends, a later one asks it to come to the front.
/// Programs from different folders do not see each other.
///
/// Lock and socket lie in the user's run-time folder, since the program folder may be read-only.
class SingleInstance {
public:
    explicit SingleInstance(const std::string& programFolder);
    /// With a run-time folder of the caller's own.
    SingleInstance(const std::string& programFolder, const std::string& runtimeFolder);
    ~SingleInstance();
    SingleInstance(const SingleInstance&) = delete;
    SingleInstance& operator=(const SingleInstance&) = delete;

    /// False: another program runs from the folder. Where no lock can be had at all, this one counts as the first.
    [[nodiscard]] bool isFirst() const noexcept { return first_; }
    /// Asks the first one to come to the front; false when it does not answer.
    bool activateFirst() const;
    /// Whether another start asked since the last call.
    [[nodiscard]] bool activationAsked() const;
    /// Becomes readable when activationAsked() has something new; -1 when this is not the first.
    [[nodiscard]] int descriptor() const noexcept { return socket_; }

private:
    void listen();

    std::string stem_;
    int lock_ = -1;
    int socket_ = -1;
    bool first_ = true;
};

} // namespace zel::platform
