#pragma once

#include "kivo/DefaultSeparators.h"
#include "kivox/CharTables.h"

// The readers the fixed-layout informats are made of. Each reads from a cursor that it moves forward
// over what it consumed and never reads at or past `end`; none of them needs the field to end where it
// stops, unless its comment says so. They return false on text they cannot take; what they leave in
// their result then is not to be used.
namespace kivo {

// Three letters naming a month, in any case ("JAN" ... "DEC"; full names are not read): month 1..12.
// It takes three characters whether they name a month or not; with fewer than three left it takes
// none and fails.
bool readMonthAbbrev(const char*& cursor, const char* end, int& month) noexcept;

// A run of decimal digits, no sign, into a signed 32-bit value. Fails when nothing is left or the
// first character is no digit (value is then -1 when that character is a letter, and unchanged
// otherwise), and when the run passes 2147483647. Inline, with the position in a local: the date and
// time informats read two or three numbers per field, and this is most of their work.
inline bool readUnsignedInt(const char*& cursor, const char* end, int& value) noexcept;

// Digits after a ".", as a fraction below 1. False when no digit follows.
bool readFraction(const char*& cursor, const char* end, double& fraction) noexcept;

// The rest of a number whose first digit the caller has already taken into value: further digits,
// then optionally "." and at least one fraction digit. A "." with no digit after it fails; so does
// a number without a fraction when fractionRequired is set. Inline, with the position and the value
// in locals, for the seconds of every time field.
inline bool readDigitsWithFraction(const char*& cursor, const char* end, double& value,
                                   bool fractionRequired) noexcept;

// Three numbers as they stand in the text, in that order.
struct ThreeNumbers {
    int first;
    int second;
    int third;
};

// How a run of digits splits into three numbers.
using DigitRunSplit = ThreeNumbers (*)(int n);

// Three numbers separated by one separator character used twice, or one run of digits over the whole
// field, split by split; the field must end after them. Out of line: readFixedThreeNumbers takes
// nearly every field, and stays short without this loop beside it.
bool readThreeNumbers(const char*& cursor, const char* end, DigitRunSplit split, ThreeNumbers& numbers) noexcept;

// The shapes nearly every numeric date has, read at their fixed places over the whole field: two-digit
// numbers beside a year of two or four digits at YEAR_AT (0 first, 2 last), and one separator character
// used twice (15/01/2000, 01-15-99, 2000.01.15). Where it accepts, readThreeNumbers gives the same
// numbers; it leaves every other text to that reading.
template <int YEAR_AT>
inline bool readFixedThreeNumbers(const char* cursor, const char* end, ThreeNumbers& numbers) noexcept;

// hh, one separator character, mm, ":", ss, an optional fraction, then blanks and tabs up to the end:
// two digits each, hours to 23, minutes and seconds to 59, the seconds with their fraction no longer
// than nine characters. Seconds since midnight; true only when the cursor reaches the end.
bool readClockTime(const char*& cursor, const char* end, double& seconds) noexcept;

// yyyy-mm-dd or yy-mm-dd, two digits for month and day: the day serial. A 29 February needs the year
// as written to be a leap year; the year is then widened by the host's two-digit-year rule and the
// date must be one the host can hold.
bool readIsoDate(const char*& cursor, const char* end, double& daySerial) noexcept;

// A day, a month abbreviation and a year, as in 15JAN2000 or 15-jan-00: anything but letters and
// digits may stand before the day and before the year, anything but letters before the month. The
// numbers as written; the year is not widened.
bool readDayMonthAbbrevYear(const char*& cursor, const char* end, int& day, int& month, int& year) noexcept;

// Hours, a separator character, minutes, optionally the same separator and seconds with a fraction,
// then an optional AM or PM marker ("A", "P", "AM", "PM", any case). Neither hours nor minutes is
// range-checked. The marker moves 12:xx AM back to the first hour of the day and any time before
// noon marked PM into the afternoon. Inline, so that the common hh:mm:ss is read in the caller.
inline bool readTimeAmPm(const char*& cursor, const char* end, double& seconds) noexcept;

// readTimeAmPm on any text, without the fixed-shape shortcut.
bool readAnyTimeAmPm(const char*& cursor, const char* end, double& seconds) noexcept;

// Character classes and skips the readers and the informats share.
namespace text {

inline unsigned char byteAt(const char* p) noexcept { return static_cast<unsigned char>(*p); }

inline bool isDigit(const char* p) noexcept { return (sbcs::detail::ctypeTable_[byteAt(p)] & sbcs::CTYPE_DIGIT) != 0; }
inline bool isLetter(const char* p) noexcept { return (sbcs::detail::ctypeTable_[byteAt(p)] & sbcs::CTYPE_ALPHA) != 0; }
inline bool isLetterOrDigit(const char* p) noexcept {
    return (sbcs::detail::ctypeTable_[byteAt(p)] & sbcs::CTYPE_ALNUM) != 0;
}
inline int digitValue(const char* p) noexcept { return CharRepresentation::ASCII_ALPHANUMERIC_TABLE[byteAt(p)]; }
inline bool isSeparator(const char* p) noexcept { return DefaultSeparators::isSeparator(byteAt(p)); }
inline char upper(char c) noexcept { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

// count characters at p, all of them ASCII digits "0".."9", as a number; false when any is not one.
// The fixed-shape fast paths read their numbers with it, without a loop over the field: the host's
// character tables class these ten as digits with their usual values, so where it accepts, the
// general readers would have read the same number.
inline bool asciiDigits(const char* p, int count, int& value) noexcept {
    unsigned number = 0;
    bool allDigits = true;
    for (int i = 0; i < count; ++i) {
        const unsigned digit = byteAt(p + i) - unsigned{'0'};
        allDigits &= digit < 10;
        number = number * 10 + digit;
    }
    value = static_cast<int>(number);
    return allDigits;
}

// True when the cursor stands on c, which it then steps past.
inline bool take(const char*& cursor, const char* end, char c) noexcept {
    if (cursor < end && *cursor == c) {
        ++cursor;
        return true;
    }
    return false;
}

// A separator character from the shared set, stepped past and returned through separator.
inline bool takeSeparator(const char*& cursor, const char* end, char& separator) noexcept {
    if (cursor < end && isSeparator(cursor)) {
        separator = *cursor++;
        return true;
    }
    return false;
}

inline void skipBlanksAndTabs(const char*& cursor, const char* end) noexcept {
    while (cursor < end && (*cursor == ' ' || *cursor == '\t')) {
        ++cursor;
    }
}
inline void skipNonAlnum(const char*& cursor, const char* end) noexcept {
    while (cursor < end && !isLetterOrDigit(cursor)) {
        ++cursor;
    }
}
inline void skipNonLetters(const char*& cursor, const char* end) noexcept {
    while (cursor < end && !isLetter(cursor)) {
        ++cursor;
    }
}

}  // namespace text

inline bool readDigitsWithFraction(const char*& cursor, const char* end, double& value,
                                   bool fractionRequired) noexcept {
    const char* p = cursor;
    double v = value;
    for (; p < end && text::isDigit(p); ++p) {
        v = v * 10 + text::digitValue(p);
    }
    bool accepted = !fractionRequired;
    if (text::take(p, end, '.')) {
        double fraction = 0;
        accepted = readFraction(p, end, fraction);
        if (accepted) {
            v += fraction;
        }
    }
    cursor = p;
    value = v;
    return accepted;
}

// h:mm:ss or hh:mm:ss, one separator character used twice: the shapes nearly every time field has (the
// TIME format itself writes them), read at their fixed places. They give exactly what readAnyTimeAmPm
// gives, except with a blank as the separator, which that reading skips as trailing space and then
// rejects; such text is left to it.
inline bool readFixedClock(const char*& cursor, const char* end, double& seconds) noexcept {
    const long length = end - cursor;
    if (length != 7 && length != 8) {
        return false;
    }
    // Whether the hour has two digits, as 0 or 1 rather than a branch: the two lengths come mixed, as
    // the hours below 10 and from 10 on do.
    const int twoHourDigits = static_cast<int>(length) - 7;
    int first = 0;
    int hourUnits = 0;
    int minutes = 0;
    int wholeSeconds = 0;
    const bool firstIsDigit = text::asciiDigits(cursor, 1, first);
    const bool unitsAreDigits = text::asciiDigits(end - 7, 1, hourUnits);
    const bool minutesAreDigits = text::asciiDigits(end - 5, 2, minutes);
    const bool secondsAreDigits = text::asciiDigits(end - 2, 2, wholeSeconds);
    const int hourTens = first * twoHourDigits;
    const bool digits = (firstIsDigit | (twoHourDigits == 0)) & unitsAreDigits & minutesAreDigits & secondsAreDigits;
    const char separator = end[-6];
    if (!digits || !text::isSeparator(end - 6) || end[-3] != separator || separator == ' ') {
        return false;
    }
    seconds = (hourTens * 10 + hourUnits) * 3600 + minutes * 60 + wholeSeconds;
    cursor = end;
    return true;
}

namespace detail {

template <int YEAR_AT, int YEAR_DIGITS>
inline bool readFixedThreeNumbers(const char* cursor, ThreeNumbers& numbers) noexcept {
    constexpr int FIRST_DIGITS = YEAR_AT == 0 ? YEAR_DIGITS : 2;
    constexpr int THIRD_DIGITS = YEAR_AT == 2 ? YEAR_DIGITS : 2;
    const char* second = cursor + FIRST_DIGITS + 1;
    const char* third = second + 3;
    const bool firstAreDigits = text::asciiDigits(cursor, FIRST_DIGITS, numbers.first);
    const bool secondAreDigits = text::asciiDigits(second, 2, numbers.second);
    const bool thirdAreDigits = text::asciiDigits(third, THIRD_DIGITS, numbers.third);
    return (firstAreDigits & secondAreDigits & thirdAreDigits) && text::isSeparator(second - 1) &&
           third[-1] == second[-1];
}

}  // namespace detail

template <int YEAR_AT>
inline bool readFixedThreeNumbers(const char* cursor, const char* end, ThreeNumbers& numbers) noexcept {
    switch (end - cursor) {
        case 8:
            return detail::readFixedThreeNumbers<YEAR_AT, 2>(cursor, numbers);
        case 10:
            return detail::readFixedThreeNumbers<YEAR_AT, 4>(cursor, numbers);
        default:
            return false;
    }
}

inline bool readTimeAmPm(const char*& cursor, const char* end, double& seconds) noexcept {
    return readFixedClock(cursor, end, seconds) || readAnyTimeAmPm(cursor, end, seconds);
}

inline bool readUnsignedInt(const char*& cursor, const char* end, int& value) noexcept {
    // 2147483647 = 214748364 × 10 + 7: past this a further digit no longer fits in a signed 32-bit value.
    constexpr int TENTH_OF_INT_MAX = 214748364;
    constexpr int LAST_DIGIT_OF_INT_MAX = 7;
    static_assert(TENTH_OF_INT_MAX * 10 + LAST_DIGIT_OF_INT_MAX == 2147483647);
    const char* p = cursor;
    if (p == end || !text::isDigit(p)) {
        if (p < end && text::isLetter(p)) {
            value = -1;
        }
        return false;
    }
    int v = 0;
    for (; p < end && text::isDigit(p); ++p) {
        const int digit = text::digitValue(p);
        if (v > TENTH_OF_INT_MAX || (v == TENTH_OF_INT_MAX && digit > LAST_DIGIT_OF_INT_MAX)) {
            cursor = p;
            return false;
        }
        v = v * 10 + digit;
    }
    cursor = p;
    value = v;
    return true;
}

}  // namespace kivo
