#include "posting/modMath.h"

#include <string>

namespace zel::posting {

namespace {

/// Minute of the day, seconds dropped.
int minuteOf(ado::DateTime time) {
    const ado::DateParts parts = time.parts();
    return parts.hour * 60 + parts.minute;
}

} // namespace

float CalcHours(ado::DateTime Start, ado::DateTime Stop) {
    if (Start == oneMinutePastMidnight && Stop == endOfDay)
        return 24.0F;
    const ado::DateTime from = Start == oneMinutePastMidnight ? ado::DateTime() : Start;
    int minutes = minuteOf(Stop) - minuteOf(from);
    // The rule looks at the text, so it moves -479 to -478 too.
    if (std::to_string(minutes).back() == '9' || minutes == -1)
        ++minutes;
    const auto counted = static_cast<float>(minutes);
    return counted >= 0.0F ? counted / 60.0F : 24.0F - counted / -60.0F;
}

ado::Currency CalcAmount(float Hours, ado::Currency Rate, float Threshold, float Multiplier) {
    const float paid =
        Threshold == 0.0F ? Hours : CalcRegularHours(Hours, Threshold) + CalcExtraHours(Hours, Threshold) * Multiplier;
    return ado::Currency::fromDouble(Rate.toDouble() * static_cast<double>(paid));
}

float CalcRegularHours(float Hours, float Threshold) {
    return Threshold == 0.0F || Hours <= Threshold ? Hours : Threshold;
}

float CalcExtraHours(float Hours, float Threshold) {
    return Threshold == 0.0F || Hours <= Threshold ? 0.0F : Hours - Threshold;
}

} // namespace zel::posting
