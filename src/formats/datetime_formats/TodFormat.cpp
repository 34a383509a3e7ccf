#include "formats/datetime_formats/TimeFieldWriting.h"
#include "kivo/Formats.h"
#include "kivo/format/datetime/TimeWriters.h"

// TOD: the time of day of a datetime on a 24-hour clock, with the hour padded to two digits where the
// width allows. The hour does not wrap: the last half second of a day rounds to 24:00:00.
namespace kivo::format::datetime {

namespace {

using timefield::Clock;

// Hours, two colons, minutes, seconds and a point.
constexpr int FULL_CLOCK_EXTRA = 7;

struct HourShape {
    int digits;    // 1 or 2
    int decimals;  // decimals of the second that fit
};

HourShape shapeFor(int hours, int width, int decimals) noexcept {
    const int digits = hours > 9 ? 2 : 1;
    const int used = digits + FULL_CLOCK_EXTRA < width ? digits + FULL_CLOCK_EXTRA : width;
    return {digits, width - used < decimals ? width - used : decimals};
}

enum class HourStyle { PLAIN, PADDED, BLANK_THEN_PADDED };

// How the hour is written and how many blanks stand before it, for the characters left after a plain
// hour.
HourStyle hourStyle(int rest, int shown, int& blanks) noexcept {
    blanks = 0;
    switch (rest) {
        case 0:
        case 3:
        case 6:
            return HourStyle::PLAIN;
        case 1:
        case 4:
        case 7:
            return HourStyle::PADDED;
        case 2:
        case 5:
            return HourStyle::BLANK_THEN_PADDED;
        default:
            break;
    }
    if (shown == 0) {
        blanks = rest - 7;
        return HourStyle::PADDED;
    }
    if (shown + 7 >= rest) {
        return HourStyle::PLAIN;
    }
    blanks = rest - shown - 8;
    return HourStyle::PADDED;
}

void writeTimeOfDay(const Datetime& datetime, char*& out, int width, int decimals) noexcept {
    Clock clock = Clock::of(datetime.timeOfDay().totalSeconds());
    HourShape shape = shapeFor(clock.hours, width, decimals);
    clock.seconds = (clock.seconds + timefield::halfUnit(shape.decimals)) * timefield::ROUNDING_NUDGE;
    if (clock.seconds >= 60.0) {
        clock.carrySeconds();
    }
    if (clock.minutes > 59) {
        clock.carryMinutes();
        shape = shapeFor(clock.hours, width, decimals);
    }

    int rest = width - shape.digits;
    int blanks = 0;
    const HourStyle style = hourStyle(rest, shape.decimals, blanks);
    field::blanks(out, style == HourStyle::BLANK_THEN_PADDED ? 1 : blanks);
    if (style == HourStyle::PLAIN) {
        timefield::lowDigits(out, static_cast<std::uint64_t>(clock.hours), shape.digits);
    } else if (shape.digits == 1) {
        // The leading zero takes one of the places after the hour.
        field::twoDigits(out, clock.hours);
        --rest;
    } else {
        *out++ = ' ';
        field::twoDigits(out, clock.hours);
    }
    if (rest > 2) {
        *out++ = ':';
        field::twoDigits(out, clock.minutes);
    }
    if (rest > 5) {
        *out++ = ':';
        if (shape.decimals == 0) {
            field::twoDigits(out, static_cast<int>(clock.seconds));
        } else {
            timefield::writeReal(out, clock.seconds, 2, shape.decimals);
        }
    }
}

}  // namespace

}  // namespace kivo::format::datetime

extern "C" int todFormat(char* field, int width, int decimals, double value) {
    return kivo::format::datetime::entry::withDatetime(
        field, width, kivo::format::datetime::entry::decimalsUse(kivo::limits::TOD.decimals, decimals), value,
                                                      kivo::format::datetime::writeTimeOfDay);
}
