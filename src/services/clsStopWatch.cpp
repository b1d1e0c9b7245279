#include "services/clsStopWatch.h"

#include "core/session.h"
#include "forms/dialogs.h"
#include "platform/clock.h"

namespace zel::services {

void clsStopWatch::StartTimer() {
    started_ = session_.clock.milliseconds();
}

std::int64_t clsStopWatch::StopTimer() {
    const std::int64_t taken = session_.clock.milliseconds() - started_;
    if (ScreenEnabled || DetailsEnabled)
        session_.dialogs.message(std::to_string(taken) + " milliseconds", "Time Results");
    return taken;
}

} // namespace zel::services
