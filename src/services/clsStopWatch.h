#pragma once

#include <cstdint>

namespace zel::core {
class Session;
}

namespace zel::services {

/// Measures how long a screen takes to open, when the clerk asked for it in the Tools menu.
class clsStopWatch {
public:
    explicit clsStopWatch(core::Session& session) : session_(session) {}

    void StartTimer();
    /// Milliseconds since StartTimer; shows them when one of the two modes is on.
    std::int64_t StopTimer();

    bool ScreenEnabled = false;
    bool DetailsEnabled = false;

private:
    core::Session& session_;
    std::int64_t started_ = 0;
};

} // namespace zel::services
