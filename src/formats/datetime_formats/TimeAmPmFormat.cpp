#include "formats/datetime_formats/TimeFieldWriting.h"
#include "kivo/Formats.h"
#include "kivo/format/datetime/TimeWriters.h"

// TIMEAMPM: the time of day on a twelve-hour clock, h:mm:ss AM at full width. The hour has no leading
// zero; a rounding past the last second of the day wraps to 12:00:00 AM (the date is not shown).
namespace kivo::format::datetime {

namespace {

using timefield::Clock;

struct TwelveHourShape {
    int digits;    // of the twelve-hour hour: 2 for 10, 11 and 12
    int decimals;  // decimals of the second that fit
};

TwelveHourShape shapeFor(int hours, int width, int decimals) noexcept {
    const bool two = (hours + 2) % 12 < 3;
    // The full text with a point: hour, two colons, minutes, seconds, point, blank and AM or PM.
    const int full = two ? 12 : 11;
    const int used = full < width ? full : width;
    return {two ? 2 : 1, width - used < decimals ? width - used : decimals};
}

int leadingBlanks(int rest, int shown) noexcept {
    if (rest <= 10) {
        // rest is at least 3 here: the width is at least 5 and the hour at most two digits.
        static constexpr int BY_REST[11] = {0, 0, 0, 0, 1, 2, 0, 1, 2, 0, 1};
        return BY_REST[rest];
    }
    return shown > 0 ? rest - shown - 10 : rest - 9;
}

void writeTwelveHourTime(const Datetime& datetime, char*& out, int width, int decimals) noexcept {
    Clock clock = Clock::of(datetime.timeOfDay().totalSeconds());
    TwelveHourShape shape = shapeFor(clock.hours, width, decimals);
    clock.seconds = (clock.seconds + timefield::halfUnit(shape.decimals)) * timefield::ROUNDING_NUDGE;
    if (clock.seconds >= 60.0) {
        clock.carrySeconds();
    }
    if (clock.minutes > 59) {
        if (clock.hours == 23) {
            // Past the day's last second the clock wraps to 12 AM; the shape of 11 PM stays right.
            clock.hours = 0;
            clock.minutes = 0;
        } else {
            clock.carryMinutes();
            shape = shapeFor(clock.hours, width, decimals);
        }
    }

    const bool afternoon = clock.hours >= 12;
    if (width < 5) {
        field::blanks(out, width - 2);
        field::text(out, afternoon ? "PM" : "AM", 2);
        return;
    }
    const int rest = width - shape.digits;
    field::blanks(out, leadingBlanks(rest, shape.decimals));
    timefield::lowDigits(out, static_cast<std::uint64_t>(timefield::twelveHour(clock.hours)), shape.digits);
    const int afterHour = rest - 3;
    if (afterHour > 2) {
        *out++ = ':';
        field::twoDigits(out, clock.minutes);
    }
    if (afterHour > 5) {
        *out++ = ':';
        if (shape.decimals == 0) {
            field::twoDigits(out, static_cast<int>(clock.seconds));
        } else {
            timefield::writeReal(out, clock.seconds, 2, shape.decimals);
        }
    }
    timefield::meridiem(out, afternoon);
}

}  // namespace

}  // namespace kivo::format::datetime

extern "C" int timeampmFormat(char* field, int width, int decimals, double value) {
    return kivo::format::datetime::entry::withDatetime(
        field, width, kivo::format::datetime::entry::decimalsUse(kivo::limits::TIMEAMPM.decimals, decimals), value,
                                                      kivo::format::datetime::writeTwelveHourTime);
}
