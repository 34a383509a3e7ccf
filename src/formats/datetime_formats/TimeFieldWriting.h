#pragma once

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>

#include "formats/FieldWriting.h"
#include "formats/ScaledRounding.h"
#include "formats/datetime_formats/FormatEntry.h"
#include "kivo/format/Missing.h"
#include "kivox/Calendar.h"
#include "kivo/format/datetime/TimeWriters.h"
#include "kivox/Numbers.h"

// What the time and datetime formats share: their rounding constants, the digit writer for counts of any
// length, the split of seconds into clock components and the entry steps.
namespace kivo::format::datetime::timefield {

// Two units in the last place above 1. A rounded component is multiplied by it before it is truncated,
// so that a value stored a hair below its decimal form (0.29 is 0.28999...) still prints as written.
inline constexpr double ROUNDING_NUDGE = std::bit_cast<double>(std::uint64_t{0x3FF0000000000002});
static_assert(ROUNDING_NUDGE == 1.0 + 2 * 0x1p-52);

// 0.5000001: the half unit TIME adds when it shows fewer decimals than it was asked for. The hair above
// a half lets a second stored just below a digit's rounding point, as one computed in floating point
// often is, round as the decimal written would.
inline constexpr double WIDE_HALF = std::bit_cast<double>(std::uint64_t{0x3FE0000035AFE535});
static_assert(WIDE_HALF == 0.5000001);

// TIME carries its seconds into the minutes when they reach 60 less half a unit less this margin: a
// second within 1e-8 of the carry, as a time worked out in floating point can land, shows the next
// minute rather than 59 and a run of nines.
inline constexpr double TIME_CARRY_MARGIN = 1e-8;

// The twelve-hour layouts that stop at the minutes (or the hour) still round the seconds they do not
// show, by half a second and a hair: a time computed to just below x:59.5 moves on to the next minute as
// the one written x:59.5 does.
inline constexpr double UNSEEN_SECONDS_HALF = 0.50000001;

// The last instant that still belongs to a day: SECONDS_PER_DAY - 2^-31. A time of day at or past it
// is shown as midnight of the next day.
inline constexpr double DAY_END_LIMIT = 86400.0 - 0x1p-31;
static_assert(DAY_END_LIMIT < 86400.0 && DAY_END_LIMIT + 0x1p-31 == 86400.0);

// The powers of ten up to 10^22 are exact doubles, so quotients by them computed here, once, are the
// very doubles a division by pow10 gives at run time. Beyond them the host's pow10 decides.
inline constexpr int EXACT_POWERS_OF_TEN = rounding::EXACT_POWERS + 1;

template <class Quotient>
constexpr auto tableOverPowersOfTen(Quotient quotient) noexcept {
    struct Table {
        double values[EXACT_POWERS_OF_TEN];
    } table{};
    for (int decimals = 0; decimals < EXACT_POWERS_OF_TEN; ++decimals) {
        table.values[decimals] = quotient(rounding::NEAREST_POWERS_OF_TEN.values[rounding::EXACT_POWERS + decimals]);
    }
    return table;
}

inline constexpr auto HALF_UNITS = tableOverPowersOfTen([](double power) { return 0.5 / power; });
inline constexpr auto WIDE_HALF_UNITS = tableOverPowersOfTen([](double power) { return WIDE_HALF / power; });
static_assert(HALF_UNITS.values[0] == 0.5 && HALF_UNITS.values[3] == 0.5 / 1000 && WIDE_HALF_UNITS.values[0] == WIDE_HALF);

// Half a unit of the decimals-th digit after the point.
inline double halfUnit(int decimals) noexcept {
    if (decimals >= 0 && decimals < EXACT_POWERS_OF_TEN) {
        return HALF_UNITS.values[decimals];
    }
    return 0.5 / pow10(decimals);
}

// WIDE_HALF in units of the decimals-th digit after the point.
inline double wideHalfUnit(int decimals) noexcept {
    if (decimals >= 0 && decimals < EXACT_POWERS_OF_TEN) {
        return WIDE_HALF_UNITS.values[decimals];
    }
    return WIDE_HALF / pow10(decimals);
}

// The lowest count digits of value, with leading zeros, two at a time from the right.
inline void lowDigits(char*& out, std::uint64_t value, int count) noexcept {
    if (count <= 0) {
        return;
    }
    int i = count;
    for (; i > 2; i -= 2) {
        std::memcpy(out + i - 2, field::DIGIT_PAIRS + 2 * (value % 100), 2);
        value /= 100;
    }
    if (i == 2) {
        std::memcpy(out, field::DIGIT_PAIRS + 2 * (value % 100), 2);
    } else {
        out[0] = field::DIGITS[value % 10];
    }
    out += count;
}

// writeRealNumber through a copy of the position: the caller's own position never has its address
// taken, so it can stay in a register for the rest of the field.
inline void writeReal(char*& out, double x, int intWidth, int decimals) noexcept {
    char* position = out;
    writeRealNumber(position, x, intWidth, decimals);
    out = position;
}

// Whole hours, minutes and the seconds with their fraction of a non-negative count of seconds.
struct Clock {
    // 2^32 seconds (136 years): whole seconds split in 32-bit integers. Longer durations divide.
    static constexpr double INTEGER_SPLIT_LIMIT = 0x1p32;

    int hours;
    int minutes;
    double seconds;

    // The split is defined by the two divisions of byDivision. Away from the last half second of a
    // minute neither quotient can round up to the next whole number, and every difference is exact, so
    // whole seconds split in integers give the same three numbers without the divisions' latency.
    static Clock of(double totalSeconds) noexcept {
        if (totalSeconds < INTEGER_SPLIT_LIMIT) [[likely]] {
            const auto whole = static_cast<std::uint32_t>(totalSeconds);
            const double fraction = totalSeconds - static_cast<double>(whole);
            const std::uint32_t wholeMinutes = whole / 60;
            const std::uint32_t secondOfMinute = whole - wholeMinutes * 60;
            if (secondOfMinute != 59 || fraction < 0.5) [[likely]] {
                const std::uint32_t hours = wholeMinutes / 60;
                return {static_cast<int>(hours), static_cast<int>(wholeMinutes - hours * 60),
                        static_cast<double>(secondOfMinute) + fraction};
            }
        }
        return byDivision(totalSeconds);
    }

    static Clock byDivision(double totalSeconds) noexcept {
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
    if (seconds < dayEnd) [[likely]] {
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
        s += UNSEEN_SECONDS_HALF;
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
