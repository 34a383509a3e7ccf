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
// noon marked PM into the afternoon.
bool readTimeAmPm(const char*& cursor, const char* end, double& seconds) noexcept;

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

inline bool readUnsignedInt(const char*& cursor, const char* end, int& value) noexcept {
    // 2147483647 = 214748364 × 10 + 7: past this a further digit no longer fits in a signed 32-bit value.
    constexpr int TENTH_OF_INT_MAX = 214748364;
    constexpr int LAST_DIGIT_OF_INT_MAX = 7;
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
