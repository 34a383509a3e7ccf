#include "formats/datetime_formats/DateFormatLayouts.h"
#include "formats/datetime_formats/TimeFieldWriting.h"
#include "kivo/Formats.h"
#include "kivo/format/datetime/DateWriters.h"
#include "kivo/format/datetime/TimeWriters.h"
#include "formats/datetime_formats/DatetimeFormatsFailures.h"

// DATEAMPM: the DATE layout, a colon and a twelve-hour time with AM or PM, as in
// 17MAR2021:01:45:30 PM. The width chooses one of six levels of detail; level 1 is the exception that
// shows the 24-hour hour alone, with no AM or PM.
namespace kivo::format::datetime {

namespace {

using timefield::Clock;

constexpr int SHORT_DATE = 7;
constexpr int LONG_DATE = 9;
// Four-digit date, ":hh:mm:ss" and " PM".
constexpr int LONG_DATE_FULL_TIME = 21;
// Two-digit date, ":hh:mm:ss." and " PM".
constexpr int SHORT_DATE_TIME_WITH_POINT = 20;

enum Level {
    DATE_ONLY = 0,
    HOUR24 = 1,        // ":hh", 24-hour, no AM or PM
    HOUR = 2,          // ":hh AM"
    MINUTES = 3,       // ":hh:mm AM"
    SECONDS = 4,       // ":hh:mm:ss AM"
    DECIMALS = 5,      // ":hh:mm:ss.fff AM"
};

struct Layout {
    int level;
    int dateWidth;
    int blanks;
    int decimalsShown;
};

// Two-digit date: each three widths add a level, taking 0, 1 and 2 leading blanks in turn.
Layout shortDateInTurn(int width) noexcept { return {(width + 2) / 3 - 3, SHORT_DATE, (width + 2) % 3, 0}; }

Layout chooseLayout(int width, int decimals) noexcept {
    if (width == LONG_DATE) {
        return {DATE_ONLY, LONG_DATE, 0, 0};
    }
    if (decimals == 0) {
        if (width > LONG_DATE_FULL_TIME) {
            return {SECONDS, LONG_DATE, width - LONG_DATE_FULL_TIME, 0};
        }
        return shortDateInTurn(width);
    }
    if (width > decimals + LONG_DATE_FULL_TIME) {
        return {DECIMALS, LONG_DATE, width - decimals - LONG_DATE_FULL_TIME - 1, decimals};
    }
    if (width < SHORT_DATE_TIME_WITH_POINT) {
        return shortDateInTurn(width);
    }
    if (width == decimals + LONG_DATE_FULL_TIME) {
        return {DECIMALS, SHORT_DATE, 1, decimals};
    }
    // At width 20 no decimal fits and the seconds end in a bare point.
    return {DECIMALS, SHORT_DATE, 0, width - SHORT_DATE_TIME_WITH_POINT};
}

// The detail of the time that a level rounds for; the levels that stop at the hour round like those
// that stop at the minutes.
timefield::Detail roundingDetail(int level) noexcept {
    switch (level) {
        case HOUR24:
        case HOUR:
        case MINUTES:
            return timefield::Detail::MINUTES;
        case SECONDS:
            return timefield::Detail::SECONDS;
        case DECIMALS:
            return timefield::Detail::DECIMALS;
        default:
            fail(failure::DATEAMPM_ROUNDING);
    }
}

void writeTime(char*& out, const Clock& clock, const Layout& layout) noexcept {
    *out++ = ':';
    if (layout.level == HOUR24) {
        field::twoDigits(out, clock.hours);
        return;
    }
    field::twoDigits(out, timefield::twelveHour(clock.hours));
    switch (layout.level) {
        case HOUR:
            break;
        case MINUTES:
        case SECONDS:
        case DECIMALS:
            *out++ = ':';
            field::twoDigits(out, clock.minutes);
            break;
        default:
            fail(failure::DATEAMPM_WRITING);
    }
    if (layout.level == SECONDS) {
        *out++ = ':';
        field::twoDigits(out, static_cast<int>(clock.seconds));
    } else if (layout.level == DECIMALS) {
        *out++ = ':';
        timefield::writeReal(out, clock.seconds, 2, layout.decimalsShown);
    }
    // An hour of 24 after a carry is 12 AM.
    timefield::meridiem(out, clock.hours >= 12 && clock.hours <= 23);
}

void writeDateAmPm(const Datetime& datetime, char*& out, int width, int decimals) noexcept {
    const Layout layout = chooseLayout(width, decimals);
    Date date = datetime.date();
    double seconds = datetime.timeOfDay().totalSeconds();
    if (!timefield::carryIntoNextDay(date, seconds, timefield::twelveHourDayEnd(decimals))) {
        field::stars(out, width);
        return;
    }
    field::blanks(out, layout.blanks);
    writeShortOrLongDate(date, out, layout.dateWidth == LONG_DATE);
    if (layout.level == DATE_ONLY) {
        return;
    }
    Clock clock = Clock::of(seconds);
    timefield::roundTwelveHourClock(clock, roundingDetail(layout.level), decimals, layout.decimalsShown);
    writeTime(out, clock, layout);
}

}  // namespace

}  // namespace kivo::format::datetime

extern "C" int dateampmFormat(char* field, int width, int decimals, double value) {
    return kivo::format::datetime::entry::withDatetime(
        field, width, kivo::format::datetime::entry::decimalsUse(kivo::limits::DATEAMPM.decimals, decimals), value,
                                                      kivo::format::datetime::writeDateAmPm);
}
