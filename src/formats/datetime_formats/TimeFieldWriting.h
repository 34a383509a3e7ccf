#pragma once

#include <bit>
#include <cmath>
#include <cstdint>

#include "formats/FieldWriting.h"
#include "formats/datetime_formats/FormatEntry.h"
#include "kivo/format/Missing.h"
#include "kivox/Calendar.h"
#include "kivox/Numbers.h"

// What the time and datetime formats share: their rounding constants, the digit writer for counts of any
// length, the split of seconds into clock components and the entry steps.
namespace kivo::format::datetime::timefield {

// Two units in the last place above 1. A rounded component is multiplied by it before it is truncated,
// so that a value stored a hair below its decimal form (0.29 is 0.28999...) still prints as written.
inline constexpr double ROUNDING_NUDGE = std::bit_cast<double>(std::uint64_t{0x3FF0000000000002});

// 0.5000001: the half unit TIME adds when it shows fewer decimals than it was asked for.
inline constexpr double WIDE_HALF = std::bit_cast<double>(std::uint64_t{0x3FE0000035AFE535});

// The last instant that still belongs to a day: SECONDS_PER_DAY - 2^-31. A time of day at or past it
// is shown as midnight of the next day.
inline constexpr double DAY_END_LIMIT = 86400.0 - 0x1p-31;

// Half a unit of the decimals-th digit after the point.
inline double halfUnit(int decimals) noexcept { return 0.5 / pow10(decimals); }

// The lowest count digits of value, with leading zeros.
inline void lowDigits(char*& out, std::uint64_t value, int count) noexcept {
    for (int i = count - 1; i >= 0; --i) {
        out[i] = field::DIGITS[value % 10];
        value /= 10;
    }
    if (count > 0) {
        out += count;
    }
}

// Whole hours, minutes and the seconds with their fraction of a non-negative count of seconds.
struct Clock {
    int hours;
    int minutes;
    double seconds;

    static Clock of(double totalSeconds) noexcept {
        const int hours = static_cast<int>(totalSeconds / 3600.0);
        const double rest = totalSeconds - hours * 3600.0;
        const int minutes = static_cast<int>(rest / 60.0);
        return {hours, minutes, rest - minutes * 60.0};
    }

    // The seconds reached 60: they become 0 and the minutes go on.
    void carrySeconds() noexcept {
        seconds = 0.0;
        ++minutes;
    }

    // The minutes reached 60: they become 0 and the hours go on.
    void carryMinutes() noexcept {
        if (minutes > 59) {
            minutes = 0;
            ++hours;
        }
    }
};

// The twelve-hour hour: 0 becomes 12, 13 becomes 1, 12 stays 12.
inline int twelveHour(int hours) noexcept { return (hours + 11) % 12 + 1; }

// " AM" or " PM" after a twelve-hour time.
inline void meridiem(char*& out, bool afternoon) noexcept { field::text(out, afternoon ? " PM" : " AM", 3); }

// The last instant of a day that a twelve-hour layout still shows on that day: with no decimals of the
// second the rounding reaches the next day half a second sooner, with one decimal 0.05 s sooner.
inline double twelveHourDayEnd(int decimals) noexcept {
    if (decimals == 0) {
        return DAY_END_LIMIT - 0.5;
    }
    return decimals == 1 ? DAY_END_LIMIT - 0.05 : DAY_END_LIMIT;
}

// A time of day at or past dayEnd becomes midnight of the next day. False when that day lies beyond
// the calendar: the value cannot be shown.
inline bool carryIntoNextDay(Date& date, double& seconds, double dayEnd) noexcept {
    if (seconds < dayEnd) {
        return true;
    }
    date += DateDuration(1);
    seconds = 0.0;
    return date.isValid();
}

// How much of a twelve-hour time a layout shows after the hour.
enum class Detail { MINUTES, SECONDS, DECIMALS };

// Rounds the seconds for the detail shown (a layout that stops at the minutes still rounds them, a
// hair above half a second) and carries into the minutes and hours. With decimals, the half unit is
// that of the decimals asked for when they all show, else of one digit past those shown.
inline void roundTwelveHourClock(Clock& clock, Detail detail, int decimals, int decimalsShown) noexcept {
    double s = clock.seconds;
    if (detail == Detail::MINUTES) {
        s += 0.50000001;
    } else if (detail == Detail::SECONDS) {
        s += 0.5;
    } else {
        s += halfUnit(decimalsShown >= decimals ? decimals : decimalsShown + 1);
    }
    clock.seconds = s * ROUNDING_NUDGE;
    if (clock.seconds >= 60.0) {
        clock.carrySeconds();
    }
    clock.carryMinutes();
}

}  // namespace kivo::format::datetime::timefield
