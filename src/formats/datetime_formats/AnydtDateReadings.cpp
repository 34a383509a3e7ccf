#include "formats/datetime_formats/AnydtDateStyle.h"
#include "formats/datetime_formats/AnydtFailures.h"
#include "formats/datetime_formats/AnydtReadings.h"
#include "kivox/Calendar.h"
#include "kivox/Fail.h"

namespace kivo::anydt {

namespace {

constexpr std::int64_t INT_LIMIT = 2147483648LL;

// A year, month and day as the host's date; invalid when a part does not fit an int.
Date dateOf(std::int64_t year, std::int64_t month, std::int64_t day, bool expandYear) noexcept {
    if (year >= INT_LIMIT || month >= INT_LIMIT || day >= INT_LIMIT) {
        return Date();
    }
    const int y = expandYear ? lum_date::expand2DigitYear(static_cast<int>(year)) : static_cast<int>(year);
    return Date(y, static_cast<int>(month), static_cast<int>(day));
}

bool store(const Date& date, double& out) noexcept {
    if (!date.isValid()) {
        return false;
    }
    out = static_cast<double>(date);
    return true;
}

// The reading the date style picks when more than one order gives a date. The three common orders
// fall back as noted; the rare ones stand alone.
bool pickByStyle(const Date& dmy, const Date& mdy, const Date& ymd, std::int64_t a, std::int64_t b,
                 std::int64_t c, double& out) noexcept {
    switch (readDateStyle()) {
        case DMY:
            if (!dmy.isValid()) {
                format::fail(failure::THREE_NUMBER_DDMMYY);
            }
            return store(dmy, out);
        case MDY: {
            const Date& chosen = mdy.isValid() ? mdy : ymd;
            if (!chosen.isValid()) {
                format::fail(failure::THREE_NUMBER_YYMMDD);
            }
            return store(chosen, out);
        }
        case YMD: {
            const Date& chosen = ymd.isValid() ? ymd : dmy;
            if (!chosen.isValid()) {
                format::fail(failure::THREE_NUMBER_DDMMYY);
            }
            return store(chosen, out);
        }
        case DYM:
            return store(dateOf(b, c, a, true), out);
        case MYD:
            return store(dateOf(b, a, c, true), out);
        case YDM:
            return store(dateOf(a, c, b, true), out);
    }
    format::fail(failure::THREE_NUMBER_STYLE);
}

}  // namespace

bool makeAnydtDate(std::int64_t year, std::int64_t month, std::int64_t day, double& out, bool expandYear) noexcept {
    return store(dateOf(year, month, day, expandYear), out);
}

bool readThreeNumberDate(const ParseInfo& pi, double& out) noexcept {
    const std::int64_t a = pi.value[0];
    const std::int64_t b = pi.value[1];
    const std::int64_t c = pi.value[2];
    const Date dmy = dateOf(c, b, a, true);
    const Date mdy = dateOf(c, a, b, true);
    const Date ymd = dateOf(a, b, c, true);
    const int valid = int{dmy.isValid()} + int{mdy.isValid()} + int{ymd.isValid()};
    if (valid == 0) {
        return false;
    }
    if (valid == 1) {
        return store(dmy.isValid() ? dmy : mdy.isValid() ? mdy : ymd, out);
    }
    return pickByStyle(dmy, mdy, ymd, a, b, c, out);
}

bool readJulianRun(const ParseInfo& pi, double& out) noexcept {
    // The run has at most seven digits, so both parts fit an int.
    const int year = lum_date::expand2DigitYear(static_cast<int>(pi.value[0] / 1000));
    return store(Date(year, static_cast<int>(pi.value[0] % 1000)), out);
}

}  // namespace kivo::anydt
