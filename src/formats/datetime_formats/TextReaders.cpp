#include "formats/datetime_formats/TextReaders.h"

#include "kivox/Calendar.h"

namespace kivo {

using text::digitValue;
using text::isDigit;

namespace {

constexpr char MONTH_ABBREVIATIONS[12][4] = {"JAN", "FEB", "MAR", "APR", "MAY", "JUN",
                                             "JUL", "AUG", "SEP", "OCT", "NOV", "DEC"};

// Fraction digits beyond these no longer change a double; dropping them keeps the digits and their
// power of ten exact, so that the quotient is the double nearest the written fraction.
constexpr int KEPT_FRACTION_DIGITS = 15;

// "ss" and up to six fraction digits: "59.999999".
constexpr long LONGEST_CLOCK_SECONDS = 9;

// Exactly two digits at the cursor, as 0..99.
bool readTwoDigits(const char*& cursor, const char* end, int& value) noexcept {
    if (end - cursor < 2 || !isDigit(cursor) || !isDigit(cursor + 1)) {
        return false;
    }
    value = digitValue(cursor) * 10 + digitValue(cursor + 1);
    cursor += 2;
    return true;
}

}  // namespace

bool readFraction(const char*& cursor, const char* end, double& fraction) noexcept {
    double digits = 0;
    double scale = 1;
    int count = 0;
    for (; cursor < end && isDigit(cursor); ++cursor, ++count) {
        if (count < KEPT_FRACTION_DIGITS) {
            digits = digits * 10 + digitValue(cursor);
            scale *= 10;
        }
    }
    fraction = digits / scale;
    return count > 0;
}

bool readMonthAbbrev(const char*& cursor, const char* end, int& month) noexcept {
    if (end - cursor < 3) {
        return false;
    }
    const char letters[3] = {text::upper(cursor[0]), text::upper(cursor[1]), text::upper(cursor[2])};
    cursor += 3;
    for (int m = 0; m < 12; ++m) {
        const char* name = MONTH_ABBREVIATIONS[m];
        if (letters[0] == name[0] && letters[1] == name[1] && letters[2] == name[2]) {
            month = m + 1;
            return true;
        }
    }
    return false;
}

bool readThreeNumbers(const char*& cursor, const char* end, DigitRunSplit split, ThreeNumbers& numbers) noexcept {
    if (!readUnsignedInt(cursor, end, numbers.first)) {
        return false;
    }
    if (cursor == end) {
        numbers = split(numbers.first);
        return true;
    }
    char separator = 0;
    return text::takeSeparator(cursor, end, separator) && readUnsignedInt(cursor, end, numbers.second) &&
           text::take(cursor, end, separator) && readUnsignedInt(cursor, end, numbers.third) && cursor == end;
}

bool readDayMonthAbbrevYear(const char*& cursor, const char* end, int& day, int& month, int& year) noexcept {
    text::skipNonAlnum(cursor, end);
    if (!readUnsignedInt(cursor, end, day)) {
        return false;
    }
    text::skipNonLetters(cursor, end);
    if (!readMonthAbbrev(cursor, end, month)) {
        return false;
    }
    text::skipNonAlnum(cursor, end);
    return readUnsignedInt(cursor, end, year);
}

bool readClockTime(const char*& cursor, const char* end, double& seconds) noexcept {
    int hours = 0;
    int minutes = 0;
    int wholeSeconds = 0;
    char separator = 0;
    if (!readTwoDigits(cursor, end, hours) || hours > 23 || !text::takeSeparator(cursor, end, separator) ||
        !readTwoDigits(cursor, end, minutes) || minutes > 59 || !text::take(cursor, end, ':')) {
        return false;
    }
    const char* secondsStart = cursor;
    if (!readTwoDigits(cursor, end, wholeSeconds) || wholeSeconds > 59) {
        return false;
    }
    double fraction = 0;
    if (text::take(cursor, end, '.') && !readFraction(cursor, end, fraction)) {
        return false;
    }
    if (cursor - secondsStart > LONGEST_CLOCK_SECONDS) {
        return false;
    }
    text::skipBlanksAndTabs(cursor, end);
    seconds = hours * 3600.0 + minutes * 60.0 + wholeSeconds + fraction;
    return cursor == end;
}

bool readIsoDate(const char*& cursor, const char* end, double& daySerial) noexcept {
    const char* yearStart = cursor;
    int year = 0;
    int month = 0;
    int day = 0;
    if (!readUnsignedInt(cursor, end, year)) {
        return false;
    }
    const long yearDigits = cursor - yearStart;
    if ((yearDigits != 2 && yearDigits != 4) || !text::take(cursor, end, '-') || !readTwoDigits(cursor, end, month) ||
        month > 12 || !text::take(cursor, end, '-') || !readTwoDigits(cursor, end, day) || day > 31) {
        return false;
    }
    if (month == 2 && day > (Year::isLeapYear(year) ? 29 : 28)) {
        return false;
    }
    const Date date(lum_date::expand2DigitYear(year), month, day);
    if (!date.isValid()) {
        return false;
    }
    daySerial = static_cast<double>(date);
    return true;
}

namespace {

constexpr double NOON = 43200;
constexpr double ONE_PM = 46800;

// The marker after a time: "A" or "P", optionally followed by "M". AM takes the twelfth hour back to
// the start of the day; PM moves a morning time into the afternoon.
bool applyAmPm(const char*& cursor, const char* end, double& seconds) noexcept {
    if (cursor == end) {
        return false;
    }
    switch (text::upper(*cursor)) {
        case 'A':
            if (seconds >= NOON && seconds < ONE_PM) {
                seconds -= NOON;
            }
            break;
        case 'P':
            if (seconds < NOON) {
                seconds += NOON;
            }
            break;
        default:
            return false;
    }
    ++cursor;
    if (cursor < end) {
        if (text::upper(*cursor) != 'M') {
            return false;
        }
        ++cursor;
    }
    return true;
}

}  // namespace

bool readAnyTimeAmPm(const char*& cursor, const char* end, double& seconds) noexcept {
    int hours = 0;
    int minutes = 0;
    char separator = 0;
    if (!readUnsignedInt(cursor, end, hours) || !text::takeSeparator(cursor, end, separator) ||
        !readUnsignedInt(cursor, end, minutes)) {
        return false;
    }
    seconds = hours * 3600.0 + minutes * 60.0;
    text::skipBlanksAndTabs(cursor, end);
    if (cursor == end) {
        return true;
    }
    if (text::take(cursor, end, separator)) {
        if (cursor == end || !isDigit(cursor)) {
            return false;
        }
        double secondsOfMinute = digitValue(cursor++);
        if (!readDigitsWithFraction(cursor, end, secondsOfMinute, false)) {
            return false;
        }
        seconds += secondsOfMinute;
        text::skipBlanksAndTabs(cursor, end);
        if (cursor == end) {
            return true;
        }
    }
    return applyAmPm(cursor, end, seconds);
}

}  // namespace kivo
