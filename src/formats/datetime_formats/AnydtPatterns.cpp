#include "formats/datetime_formats/AnydtPatterns.h"

#include "formats/datetime_formats/AnydtReadings.h"
#include "kivo/AnydtInformats.h"
#include "kivox/Calendar.h"
#include "kivox/Missing.h"

namespace kivo::anydt {

namespace {

constexpr int NO_MONTH = -1;

bool found(double value, AnydtType kind, double& result, AnydtType& type) noexcept {
    result = value;
    type = kind;
    return true;
}

bool isRunLength(std::int32_t length) noexcept { return length == 6 || length == 8; }

// The run between the date (values 0..2) and the time.
bool datetimeJoint(const ParseInfo& pi) noexcept {
    return isDatetimeSeparator(pi.sepStart[3], pi.sepStart[3] + pi.sepLength[3]);
}

// A time from slot 0 on: "-" in front negates it.
bool leadingTime(const ParseInfo& pi, double& result, AnydtType& type) noexcept {
    double seconds = 0.0;
    if (pi.sepType[0] == ST_DASH && pi.sepType[1] == ST_COLON) {
        return readTimeTokens(0, pi, seconds) && found(-seconds, ANYDT_TIME, result, type);
    }
    if (pi.sepType[0] == ST_NONE) {
        return readTimeTokens(0, pi, seconds) && found(seconds, ANYDT_TIME, result, type);
    }
    return false;
}

// A date, then the time from slot timeIndex on.
bool datetime(double day, int timeIndex, const ParseInfo& pi, double& result, AnydtType& type) noexcept {
    double seconds = 0.0;
    if (!readTimeTokens(timeIndex, pi, seconds)) {
        return false;
    }
    return found(day * static_cast<double>(SECONDS_PER_DAY) + seconds, ANYDT_DATETIME, result, type);
}

// A run of 6 or 8 digits standing first, then a time.
bool digitRunDatetime(const ParseInfo& pi, double& result, AnydtType& type) noexcept {
    double day = 0.0;
    return pi.sepType[0] == ST_NONE && isRunLength(pi.valLength[0]) && readDigitRunDate(pi, day) &&
           datetime(day, 1, pi, result, type);
}

// "." and "._" alone.
bool missingNotation(const ParseInfo& pi, double& result, AnydtType& type) noexcept {
    const char* s = pi.sepStart[0];
    if (pi.sepLength[0] == 1 && s[0] == '.') {
        return found(lum_numeric::MISSING, ANYDT_MISSING, result, type);
    }
    if (pi.sepLength[0] == 2 && s[0] == '.' && s[1] == '_') {
        return found(lum_numeric::MISSING__, ANYDT_MISSING, result, type);
    }
    return false;
}

bool oneNumber(const ParseInfo& pi, double& result, AnydtType& type) noexcept {
    if (pi.sepType[0] != ST_NONE || pi.sepType[1] != ST_NONE) {
        return false;
    }
    double day = 0.0;
    switch (pi.valLength[0]) {
        case 5:
        case 7:
            return readJulianRun(pi, day) && found(day, ANYDT_DATE, result, type);
        case 6:
        case 8:
            return readDigitRunDate(pi, day) && found(day, ANYDT_DATE, result, type);
        default:
            return false;
    }
}

// hh:mm, -hh:mm, or mm/yyyy.
bool twoNumbers(const ParseInfo& pi, double& result, AnydtType& type) noexcept {
    if (leadingTime(pi, result, type)) {
        return true;
    }
    double day = 0.0;
    return pi.sepType[0] == ST_NONE && pi.sepType[1] == ST_SLASH && pi.sepType[2] == ST_NONE &&
           pi.valLength[0] == 2 && (pi.valLength[1] == 4 || pi.valLength[1] == 5) &&
           makeAnydtDate(pi.value[1], pi.value[0], 1, day, false) && found(day, ANYDT_DATE, result, type);
}

// The same clean separator between three numbers, nothing in front.
bool threeNumberShape(const ParseInfo& pi) noexcept {
    return pi.sepType[0] == ST_NONE && isCleanSeparator(pi.sepType[1]) && pi.sepType[2] == pi.sepType[1];
}

// hh:mm:ss, or three numbers as a date.
bool threeNumbers(const ParseInfo& pi, double& result, AnydtType& type) noexcept {
    if (pi.sepType[1] == ST_COLON) {
        return leadingTime(pi, result, type);
    }
    double day = 0.0;
    return threeNumberShape(pi) && pi.sepType[3] == ST_NONE && readThreeNumberDate(pi, day) &&
           found(day, ANYDT_DATE, result, type);
}

// A digit-run date with hh:mm:ss, or hh:mm:ss.fff.
bool fourNumbers(const ParseInfo& pi, double& result, AnydtType& type) noexcept {
    if (digitRunDatetime(pi, result, type)) {
        return true;
    }
    return pi.sepType[1] == ST_COLON && leadingTime(pi, result, type);
}

// A date of three numbers or one digit run, then a time.
bool fiveToSevenNumbers(const ParseInfo& pi, double& result, AnydtType& type) noexcept {
    double day = 0.0;
    if (threeNumberShape(pi) && readThreeNumberDate(pi, day)) {
        return datetime(day, 3, pi, result, type);
    }
    return pi.valCount == 5 && digitRunDatetime(pi, result, type);
}

// The month name first: MONyyyy, MON dd yyyy, MON dd yyyy hh:mm...
bool monthFirst(const ParseInfo& pi, double& result, AnydtType& type) noexcept {
    double day = 0.0;
    switch (pi.valCount) {
        case 2:
            return pi.sepType[0] == ST_NONE && pi.valLength[0] == 3 &&
                   makeAnydtDate(pi.value[1], pi.value[0], 1, day, true) && found(day, ANYDT_DATE, result, type);
        case 3:
            return pi.valLength[1] <= 2 && pi.valLength[2] <= 4 &&
                   makeAnydtDate(pi.value[2], pi.value[0], pi.value[1], day, false) &&
                   found(day, ANYDT_DATE, result, type);
        case 5:
        case 6:
        case 7:
            return pi.valLength[0] == 3 && datetimeJoint(pi) &&
                   makeAnydtDate(pi.value[2], pi.value[0], pi.value[1], day, true) &&
                   datetime(day, 3, pi, result, type);
        default:
            return false;
    }
}

// The month name second: dd MON yyyy, yyyy MON dd, dd MON yyyy hh:mm...
bool monthSecond(const ParseInfo& pi, double& result, AnydtType& type) noexcept {
    double day = 0.0;
    switch (pi.valCount) {
        case 3:
            if (pi.value[0] < 100) {
                return pi.valLength[1] == 3 && makeAnydtDate(pi.value[2], pi.value[1], pi.value[0], day, true) &&
                       found(day, ANYDT_DATE, result, type);
            }
            return pi.valLength[2] <= 2 && makeAnydtDate(pi.value[0], pi.value[1], pi.value[2], day, false) &&
                   found(day, ANYDT_DATE, result, type);
        case 5:
        case 6:
        case 7:
            return pi.valLength[1] == 3 && datetimeJoint(pi) &&
                   makeAnydtDate(pi.value[2], pi.value[1], pi.value[0], day, true) &&
                   datetime(day, 3, pi, result, type);
        default:
            return false;
    }
}

bool numbersOnly(const ParseInfo& pi, double& result, AnydtType& type) noexcept {
    switch (pi.valCount) {
        case 1:
            return oneNumber(pi, result, type);
        case 2:
            return twoNumbers(pi, result, type);
        case 3:
            return threeNumbers(pi, result, type);
        case 4:
            return fourNumbers(pi, result, type);
        default:
            return fiveToSevenNumbers(pi, result, type);
    }
}

}  // namespace

bool interpret(const ParseInfo& pi, int monthIndex, double& result, AnydtType& type) noexcept {
    if (pi.valCount == 0) {
        return missingNotation(pi, result, type);
    }
    switch (monthIndex) {
        case NO_MONTH:
            return numbersOnly(pi, result, type);
        case 0:
            return monthFirst(pi, result, type);
        case 1:
            return monthSecond(pi, result, type);
        default:
            return false;
    }
}

}  // namespace kivo::anydt
