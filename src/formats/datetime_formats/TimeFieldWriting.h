#pragma once

#include <bit>
#include <cmath>
#include <cstdint>

#include "formats/FieldWriting.h"
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

// Where internal failures of these formats are reported from.
inline constexpr const char* FAIL_SOURCE = "src/formats/datetime_formats/DatetimeFormats";

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

// The entry steps of the time and datetime formats: the missing value, then a field of "*" for a value
// that is no datetime the host can represent. `write(datetime, out)` lays out the rest.
template <class Write>
inline int withDatetime(char* field, int width, int missingDecimals, double value, Write write) noexcept {
    if (writeMissing(value, field, width, missingDecimals)) {
        return 0;
    }
    const Datetime datetime(value);
    if (!datetime.isValid()) {
        field::stars(field, width);
        return 0;
    }
    char* out = field;
    write(datetime, out);
    return 0;
}

}  // namespace kivo::format::datetime::timefield
