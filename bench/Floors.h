#pragma once

// Hand-written floors: the fastest correct code we can write for one layout, with no generality, making
// the same calls into the host that the library must make. The benchmarks run them beside the library's
// formats on the same values, so that a run shows how far each format is from the hardware.
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>

#include "kivo/Formats.h"
#include "kivo/Informats.h"
#include "kivo/format/Missing.h"
#include "kivox/Calendar.h"
#include "kivox/Missing.h"
#include "kivox/Names.h"

namespace floors {

inline constexpr char PAIRS[] =
    "00010203040506070809101112131415161718192021222324252627282930313233343536373839"
    "40414243444546474849505152535455565758596061626364656667686970717273747576777879"
    "8081828384858687888990919293949596979899";

// Two units in the last place above 1, applied after the half second is added, as the formats do.
inline constexpr double NUDGE = std::bit_cast<double>(std::uint64_t{0x3FF0000000000002});
inline constexpr double DAY_END = 86400.0 - 0x1p-31;

inline void pair(char* out, unsigned value) noexcept { std::memcpy(out, PAIRS + 2 * value, 2); }

// " 0" ... " 9" "10" ... "99": an hour in two positions with no branch on its digits.
struct PairTable {
    char pairs[200];
};
inline constexpr PairTable BLANK_LED_PAIRS = [] {
    PairTable table{};
    for (int i = 0; i < 200; ++i) {
        table.pairs[i] = i < 20 && i % 2 == 0 ? ' ' : PAIRS[i];
    }
    return table;
}();

// "17MAR2021" at out.
inline void date9(char* out, const kivo::Date& date) noexcept {
    const kivo::Date::YMD ymd = date.yearMonthDay();
    pair(out, static_cast<unsigned>(ymd.day));
    std::memcpy(out + 2, kivo::Month::upperShortName(ymd.month), 3);
    if (ymd.year > 9999) {
        std::memcpy(out + 5, "****", 4);
    } else {
        pair(out + 5, static_cast<unsigned>(ymd.year) / 100);
        pair(out + 7, static_cast<unsigned>(ymd.year) % 100);
    }
}

// A time of day below 86400 split into whole hours, minutes and the seconds with their fraction.
struct Clock {
    unsigned hours;
    unsigned minutes;
    double seconds;
};

inline Clock split(double seconds) noexcept {
    const auto whole = static_cast<unsigned>(seconds);
    return {whole / 3600, whole / 60 % 60, static_cast<double>(whole % 60) + (seconds - whole)};
}

inline void carry(Clock& clock) noexcept {
    clock.seconds = 0.0;
    if (++clock.minutes == 60) {
        clock.minutes = 0;
        ++clock.hours;
    }
}

// "mm:ss" after the hours.
inline void minutesSeconds(char* out, const Clock& clock) noexcept {
    out[0] = ':';
    pair(out + 1, clock.minutes);
    out[3] = ':';
    pair(out + 4, static_cast<unsigned>(clock.seconds));
}

// True when value is a missing value, written in its notation by the library's writer.
inline bool writtenAsMissing(char* field, int width, double value) noexcept {
    return !std::isfinite(value) && kivo::format::writeMissing(value, field, width, 0);
}

// True when the calendar value is outside the calendar, the field then filled with stars.
template <class CalendarValue>
inline bool starredWhenInvalid(char* field, int width, const CalendarValue& calendarValue) noexcept {
    if (calendarValue.isValid()) {
        return false;
    }
    std::memset(field, '*', static_cast<std::size_t>(width));
    return true;
}

// DATE9.
inline void date9Field(char* field, double value) noexcept {
    if (writtenAsMissing(field, 9, value)) {
        return;
    }
    const kivo::Date date(value);
    if (starredWhenInvalid(field, 9, date)) {
        return;
    }
    date9(field, date);
}

// TIME8. of a time within one day, and nothing more: the two host calls of the time formats' prologue
// (the datetime and whether it is valid) and the missing check, the half-second rounding, then hours,
// minutes and seconds by integer division, laid out without a branch. Other durations, and the rare
// seconds that carry into the next minute, go to the library's format.
inline void time8Field(char* field, double value) noexcept {
    if (writtenAsMissing(field, 8, value)) {
        return;
    }
    if (!kivo::Datetime(value).isValid() || !(value >= 0.0 && value < 86400.0)) [[unlikely]] {
        timeFormat(field, 8, 0, value);
        return;
    }
    const auto whole = static_cast<unsigned>(value);
    const unsigned wholeMinutes = whole / 60;
    const double s = (static_cast<double>(whole - wholeMinutes * 60) + (value - whole)) * NUDGE;
    if (s + 0.50000001 >= 60.0) [[unlikely]] {
        timeFormat(field, 8, 0, value);
        return;
    }
    const unsigned hours = wholeMinutes / 60;
    std::memcpy(field, BLANK_LED_PAIRS.pairs + 2 * hours, 2);
    field[2] = ':';
    pair(field + 3, wholeMinutes - hours * 60);
    field[5] = ':';
    pair(field + 6, static_cast<unsigned>(s + 0.5));
}

// DATETIME19.: " 17MAR2021:13:45:30".
inline void datetime19Field(char* field, double value) noexcept {
    if (writtenAsMissing(field, 19, value)) {
        return;
    }
    const kivo::Datetime datetime(value);
    if (starredWhenInvalid(field, 19, datetime)) {
        return;
    }
    kivo::Date date = datetime.date();
    double seconds = datetime.timeOfDay().totalSeconds();
    if (seconds >= DAY_END) {
        date += kivo::DateDuration(1);
        seconds = 0.0;
        if (!date.isValid()) {
            std::memset(field, '*', 19);
            return;
        }
    }
    Clock clock = split(seconds);
    const double s = (clock.seconds + 0.5) * NUDGE;
    if (s >= 60.0) {
        carry(clock);
    } else if (s >= 59.99999999 && clock.minutes == 59 && clock.hours == 23) {
        clock = {24, 0, 0.0};
    } else {
        clock.seconds = s;
    }
    field[0] = ' ';
    date9(field + 1, date);
    field[10] = ':';
    pair(field + 11, clock.hours);
    minutesSeconds(field + 13, clock);
}

// The informat floors read the one layout their benchmark gives them and hand any other text to the
// library. Like the library they narrow the field, ask for a missing-value notation, and build the
// value through the host.
inline bool narrowedField(const char*& begin, const char*& end, double* result) noexcept {
    kivo::findNumericStartAndEnd(begin, end);
    double value = 0;
    if (kivo::findNumericMissing(begin, end, value)) {
        *result = value;
        return false;
    }
    return true;
}

inline unsigned digitPair(const char* p) noexcept {
    return static_cast<unsigned>(p[0] - '0') * 10 + static_cast<unsigned>(p[1] - '0');
}
inline bool digitsAt(const char* p, std::size_t count) noexcept {
    for (std::size_t i = 0; i < count; ++i) {
        if (static_cast<unsigned>(p[i] - '0') > 9) {
            return false;
        }
    }
    return true;
}

// DDMMYY10. informat of "dd/mm/yyyy".
inline int ddmmyy10Informat(const char* text, int width, int, int, double* result) noexcept {
    const char* begin = text;
    const char* end = text + width;
    if (!narrowedField(begin, end, result)) {
        return 1;
    }
    if (end - begin != 10 || begin[2] != '/' || begin[5] != '/' || !digitsAt(begin, 2) || !digitsAt(begin + 3, 2) ||
        !digitsAt(begin + 6, 4)) {
        return ddmmyyInformat(text, width, 0, 0, result);
    }
    const int year = static_cast<int>(digitPair(begin + 6) * 100 + digitPair(begin + 8));
    const kivo::Date date(kivo::lum_date::expand2DigitYear(year), static_cast<int>(digitPair(begin + 3)),
                          static_cast<int>(digitPair(begin)));
    if (!date.isValid()) {
        return 0;
    }
    *result = static_cast<double>(date);
    return 1;
}

// TIME8. informat of "h:mm:ss" and "hh:mm:ss".
inline int time8Informat(const char* text, int width, int, int, double* result) noexcept {
    const char* begin = text;
    const char* end = text + width;
    if (!narrowedField(begin, end, result)) {
        return 1;
    }
    const long length = end - begin;
    if ((length != 7 && length != 8) || end[-6] != ':' || end[-3] != ':' || !digitsAt(begin, 1) ||
        !digitsAt(end - 7, 1) || !digitsAt(end - 5, 2) || !digitsAt(end - 2, 2)) {
        return timeInformat(text, width, 0, 0, result);
    }
    const unsigned hours = length == 8 ? digitPair(begin) : static_cast<unsigned>(begin[0] - '0');
    *result = hours * 3600 + digitPair(end - 5) * 60 + digitPair(end - 2);
    return 1;
}

// True when the floor writes the library's field for every value: a floor that cuts a corner the
// library cannot is no floor.
template <class Values>
bool agrees(KivoFormatFunction format, KivoFormatFunction floor, int width, const Values& values) noexcept {
    for (const double value : values) {
        char expected[32];
        char actual[32];
        format(expected, width, 0, value);
        floor(actual, width, 0, value);
        if (std::memcmp(expected, actual, static_cast<std::size_t>(width)) != 0) {
            return false;
        }
    }
    return true;
}

// True when the floor reads every field to the library's result.
template <class Fields>
bool readsAlike(KivoInformatFunction informat, KivoInformatFunction floor, const Fields& fields) noexcept {
    for (const auto& field : fields) {
        const int width = static_cast<int>(field.size());
        double expected = -1;
        double actual = -1;
        if (informat(field.data(), width, width, 0, &expected) != floor(field.data(), width, width, 0, &actual) ||
            std::bit_cast<std::uint64_t>(expected) != std::bit_cast<std::uint64_t>(actual)) {
            return false;
        }
    }
    return true;
}

}  // namespace floors
