#pragma once

// numpy's datetime64 and timedelta64 counts and the host's serials, both ways, in integer arithmetic:
// a count of any unit from years to attoseconds becomes the double nearest its exact serial, over the
// host's whole calendar and beyond, with no detour through nanoseconds (whose int64 ends in 1677 and
// 2262).
#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>
#include <string_view>

#include "kivoconvert/ValueKinds.h"

namespace kivopy {

// numpy's NaT, the lowest int64.
inline constexpr std::int64_t NOT_A_TIME = std::numeric_limits<std::int64_t>::min();

// What one count of a numpy unit is worth: calendar months (Y is 12, M is 1), or seconds as the
// fraction secondsNum / secondsDen (W is 604800 / 1, ms is 1 / 1000), times the unit's multiplier
// ("datetime64[10s]").
struct CountUnit {
    std::int64_t months = 0;
    std::int64_t secondsNum = 0;
    std::int64_t secondsDen = 1;
};

// False for a unit code numpy does not have, or a multiplier below 1.
bool countUnit(std::string_view code, std::int64_t multiplier, CountUnit& unit);

// Counts since 1970-01-01 (a datetime64 when `read` is DAY or DATETIME) or of a duration (a timedelta64,
// `read` TIME) as the values a format of the kind the step leads to takes: the day the instant falls on
// (a day serial, counted from 1960), the seconds serial of the instant (a day's midnight), or seconds.
// Each is the double nearest the exact value: 1600-01-01T00:00:00 is -11676096000 seconds, 200000 days
// 17280000000 seconds. NaT gives the host's ordinary missing value. The step is never REFUSED.
void serialsOfCounts(std::span<const std::int64_t> counts, const CountUnit& unit, kivoconvert::ValueKind read,
                     kivoconvert::KindStep step, std::span<double> serials);

// Serials of an informat's kind as counts of the numpy unit asked for: days since 1970 for perSecond
// 0 (datetime64[D]), else units of 1 / perSecond seconds (10^6 for [us], 10^9 for [ns]) since 1970,
// or of a duration for a time. A fraction of the unit rounds half up; a missing value or NaN gives NaT,
// and so does a value the int64 count cannot hold. Returns the index of the first such value that was
// not missing, or serials.size() when there is none.
std::size_t countsOfSerials(std::span<const double> serials, kivoconvert::ValueKind kind, std::int64_t perSecond,
                            std::span<std::int64_t> counts);

// The double nearest numerator / denominator (denominator > 0), rounded once, ties to even.
double nearestQuotient(__int128 numerator, __int128 denominator);

}  // namespace kivopy
