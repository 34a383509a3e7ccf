#include "formats/datetime_formats/DateFormatLayouts.h"
#include "formats/datetime_formats/TimeFieldWriting.h"
#include "kivo/Formats.h"
#include "kivo/format/datetime/DateWriters.h"
#include "kivo/format/datetime/TimeWriters.h"

// DATETIME: the DATE layout, a colon and the 24-hour time, as in 17MAR2021:13:45:30.25. The width picks
// the two- or four-digit year and how much of the time is shown.
namespace kivo::format::datetime {

namespace {

using timefield::Clock;

// DATE at width 7 (two-digit year) and 9 (four-digit year).
constexpr int SHORT_DATE = 7;
constexpr int LONG_DATE = 9;
// Four-digit date, ":hh:mm:ss".
constexpr int LONG_DATE_AND_CLOCK = 18;
// Two-digit date, ":hh:mm:ss".
constexpr int SHORT_DATE_AND_CLOCK = 16;
static_assert(LONG_DATE_AND_CLOCK - SHORT_DATE_AND_CLOCK == LONG_DATE - SHORT_DATE);
// ":hh:mm:ss." after the date.
constexpr int CLOCK_WITH_POINT = 10;
// Seconds from here on, rounded, are shown as 24:00:00 at the last minute of the day.
constexpr double LAST_SECOND_SHOWN_AS_DAY_END = 59.99999999;

struct DateChoice {
    int dateWidth;
    int blanks;
};

// Widths 10 to 18 take 0, 1 and 2 leading blanks in turn as the time grows by hours, minutes, seconds.
DateChoice shortDateInTurn(int width) noexcept { return {SHORT_DATE, (width + 2) % 3}; }

DateChoice chooseDate(int width, int decimals) noexcept {
    if (decimals == 0) {
        if (width > LONG_DATE_AND_CLOCK) {
            return {LONG_DATE, width - LONG_DATE_AND_CLOCK};
        }
        return width == LONG_DATE ? DateChoice{LONG_DATE, 0} : shortDateInTurn(width);
    }
    if (width > decimals + LONG_DATE_AND_CLOCK) {
        return {LONG_DATE, width - decimals - LONG_DATE_AND_CLOCK - 1};
    }
    if (width != LONG_DATE && width >= SHORT_DATE_AND_CLOCK) {
        return {SHORT_DATE, width == decimals + LONG_DATE_AND_CLOCK ? 1 : 0};
    }
    return width == LONG_DATE ? DateChoice{LONG_DATE, 0} : shortDateInTurn(width);
}

// Rounds the seconds for the decimals that fit (fit, negative when not even the point does); when the
// width cuts the decimals asked for, the rounding is done one digit below the last one shown and the
// shown digits are truncated.
void roundSeconds(Clock& clock, int fit, int decimals) noexcept {
    const double half = fit >= 0 ? timefield::halfUnit(decimals <= fit ? decimals : fit + 1) : 0.5;
    const double s = (clock.seconds + half) * timefield::ROUNDING_NUDGE;
    if (s >= 60.0) [[unlikely]] {
        clock.carrySeconds();
        clock.carryMinutes();
    } else if (s >= LAST_SECOND_SHOWN_AS_DAY_END && clock.minutes == 59 && clock.hours == 23) [[unlikely]] {
        clock = {24, 0, 0.0};
    } else {
        clock.seconds = s;
    }
}

// Blanks, the four-digit date and whole seconds: DATETIME19. and wider with no decimals, the layout
// most fields have, laid out without the choices the other widths need.
void writeDatetimeToTheSecond(const Datetime& datetime, char*& out, int width) noexcept {
    Date date = datetime.date();
    // The calendar day is asked for first: it is the longer chain, and the clock's arithmetic can
    // run beside it. A time at the very end of the day moves to the next one and asks again.
    Date::YMD ymd = date.yearMonthDay();
    double seconds = datetime.timeOfDay().totalSeconds();
    if (seconds >= timefield::DAY_END_LIMIT) [[unlikely]] {
        if (!timefield::carryIntoNextDay(date, seconds, timefield::DAY_END_LIMIT)) {
            field::stars(out, width);
            return;
        }
        ymd = date.yearMonthDay();
    }
    Clock clock = Clock::of(seconds);
    roundSeconds(clock, -1, 0);
    field::blanks(out, width - LONG_DATE_AND_CLOCK);
    DATE_LAYOUTS.write(LONG_DATE, out, layout::numericDate(ymd));
    *out++ = ':';
    field::twoDigits(out, clock.hours);
    *out++ = ':';
    field::twoDigits(out, clock.minutes);
    *out++ = ':';
    field::twoDigits(out, static_cast<int>(clock.seconds));
}

void writeDatetime(const Datetime& datetime, char*& out, int width, int decimals) noexcept {
    if (decimals == 0 && width > LONG_DATE_AND_CLOCK) {
        writeDatetimeToTheSecond(datetime, out, width);
        return;
    }
    const DateChoice choice = chooseDate(width, decimals);
    Date date = datetime.date();
    double seconds = datetime.timeOfDay().totalSeconds();
    if (!timefield::carryIntoNextDay(date, seconds, timefield::DAY_END_LIMIT)) {
        field::stars(out, width);
        return;
    }
    // The clock is worked out before the date is written so that its arithmetic overlaps the host's
    // calendar calls rather than waiting for them.
    const int rest = width - choice.blanks - choice.dateWidth;
    const int fit = rest - CLOCK_WITH_POINT;
    Clock clock = Clock::of(seconds);
    roundSeconds(clock, fit, decimals);

    field::blanks(out, choice.blanks);
    writeShortOrLongDate(date, out, choice.dateWidth == LONG_DATE);
    if (rest <= 0) {
        return;
    }
    *out++ = ':';
    field::twoDigits(out, clock.hours);
    if (rest > 5) {
        *out++ = ':';
        field::twoDigits(out, clock.minutes);
    }
    if (rest > 8) {
        *out++ = ':';
        if (rest == 9) {
            field::twoDigits(out, static_cast<int>(clock.seconds));
        } else {
            timefield::writeReal(out, clock.seconds, 2, fit);
        }
    }
}

}  // namespace

}  // namespace kivo::format::datetime

extern "C" int datetimeFormat(char* field, int width, int decimals, double value) {
    return kivo::format::datetime::entry::withDatetime(
        field, width, kivo::format::datetime::entry::decimalsUse(kivo::limits::DATETIME.decimals, decimals), value,
                                                      kivo::format::datetime::writeDatetime);
}
