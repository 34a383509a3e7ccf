#include "formats/datetime_formats/DateLayout.h"
#include "formats/datetime_formats/TimeFieldWriting.h"
#include "kivo/Formats.h"
#include "kivo/format/datetime/TimeWriters.h"
#include "kivox/Names.h"

// MONDYTM: month abbreviation, day, year and a twelve-hour time, as in MAR 17 2021 01:45:30 PM. The
// date is taken before the day-end rounding, so the last instant of a day prints as 12:00 AM of that
// same date.
namespace kivo::format::datetime {

namespace {

using timefield::Clock;

// "MAR 7 2021 " (one-digit day) and "hh:mm", " PM".
constexpr int DATE_AND_MINUTES = 19;
// The same with ":ss".
constexpr int DATE_AND_SECONDS = 22;

using timefield::Detail;

struct Layout {
    Detail detail;
    int blanks;
    int decimalsShown;
};

Layout chooseLayout(int width, int dayExtraDigit, int decimals) noexcept {
    const int room = width - dayExtraDigit;
    if (room - DATE_AND_MINUTES < 3) {
        return {Detail::MINUTES, room - DATE_AND_MINUTES, 0};
    }
    if (decimals != 0 && room - DATE_AND_SECONDS > 1) {
        const int fit = room - DATE_AND_SECONDS - 1;
        const int shown = decimals < fit ? decimals : fit;
        return {Detail::DECIMALS, fit - shown, shown};
    }
    return {Detail::SECONDS, room - DATE_AND_SECONDS, 0};
}

// "MAR 17 2021 ", the day without a leading zero; a year past 9999 never gets here.
constexpr layout::Row<layout::WordDate> DATE = layout::row<"M e Y ", layout::WordDate>;
// DATE_AND_MINUTES counts a one-digit day and "hh:mm PM" after the date.
static_assert(DATE.longestLength == DATE_AND_MINUTES - 8 + 1);

void writeDate(char*& out, const Date::YMD& ymd) noexcept {
    out = DATE.write(out, {ymd.year, ymd.month, ymd.day, 0}, DATE.longestLength);
}

void writeTime(char*& out, const Clock& clock, const Layout& layout) noexcept {
    field::twoDigits(out, timefield::twelveHour(clock.hours));
    *out++ = ':';
    field::twoDigits(out, clock.minutes);
    if (layout.detail == Detail::SECONDS) {
        *out++ = ':';
        field::twoDigits(out, static_cast<int>(clock.seconds));
    } else if (layout.detail == Detail::DECIMALS) {
        *out++ = ':';
        timefield::writeReal(out, clock.seconds, 2, layout.decimalsShown);
    }
    timefield::meridiem(out, clock.hours >= 12 && clock.hours <= 23);
}

void writeMondytm(const Datetime& datetime, char*& out, int width, int decimals) noexcept {
    const Date::YMD ymd = datetime.date().yearMonthDay();
    if (ymd.year > field::LARGEST_FOUR_DIGIT_YEAR) {
        field::stars(out, width);
        return;
    }
    const Layout layout = chooseLayout(width, ymd.day > 9 ? 1 : 0, decimals);
    double seconds = datetime.timeOfDay().totalSeconds();
    if (seconds >= timefield::twelveHourDayEnd(decimals)) {
        // Midnight of the next day, but the date already taken stays as it is.
        seconds = 0.0;
    }
    field::blanks(out, layout.blanks);
    writeDate(out, ymd);
    Clock clock = Clock::of(seconds);
    timefield::roundTwelveHourClock(clock, layout.detail, decimals,
                                    layout.decimalsShown);
    writeTime(out, clock, layout);
}

}  // namespace

}  // namespace kivo::format::datetime

extern "C" int mondytmFormat(char* field, int width, int decimals, double value) {
    return kivo::format::datetime::entry::withDatetime(
        field, width, kivo::format::datetime::entry::decimalsUse(kivo::limits::MONDYTM.decimals, decimals), value,
                                                      kivo::format::datetime::writeMondytm);
}
