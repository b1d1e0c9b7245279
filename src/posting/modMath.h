#pragma once

#include "ado/currency.h"
#include "ado/date_time.h"

namespace zel::posting {

/// The start of a second half: a posting that crossed midnight goes on at 00:01, so that no row starts and stops at 0.
inline constexpr ado::DateTime oneMinutePastMidnight{1.0 / 1440.0};
/// A stop of 0 is the end of the day ("24:00"), not its beginning.
inline constexpr ado::DateTime endOfDay{0.0};

/// Hours from Start to Stop, both times of day, in single precision. A second half that starts at 00:01 is paid from
/// 00:00; a stop at or before the start lies on the next day; minutes that end in 9 count up to the next ten, so that
/// 23:59 closes the hour.
[[nodiscard]] float CalcHours(ado::DateTime Start, ado::DateTime Stop);

/// Pay for the hours: those up to the threshold once, those over it times the multiplier. Threshold 0 is none.
[[nodiscard]] ado::Currency CalcAmount(float Hours, ado::Currency Rate, float Threshold, float Multiplier);

[[nodiscard]] float CalcRegularHours(float Hours, float Threshold);
[[nodiscard]] float CalcExtraHours(float Hours, float Threshold);

/// Whether a period from Start to Stop goes on after midnight.
[[nodiscard]] constexpr bool crossesMidnight(ado::DateTime Start, ado::DateTime Stop) {
    return Stop <= Start && Stop != endOfDay;
}

} // namespace zel::posting
