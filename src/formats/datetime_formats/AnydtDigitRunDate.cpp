#include "formats/datetime_formats/AnydtDateStyle.h"
#include "formats/datetime_formats/AnydtFailures.h"
#include "formats/datetime_formats/AnydtReadings.h"
#include "kivox/Calendar.h"
#include "kivox/Fail.h"

namespace kivo::anydt {

namespace {

// The run cut into year, month and day in one order.
struct Fields {
    int year;
    int month;
    int day;
};

// The six cuts of a run, indexed by DateStyle. In an 8-digit run the year takes four digits.
struct Readings {
    Date date[6];
    bool valid(DateStyle style) const noexcept { return date[style].isValid(); }
};

// Fields of a run of six or eight digits v, left to right: a two-digit field is v / scale % 100 and the
// four-digit year v / scale % 10000, scale the power of ten of the field's last digit.
Fields cut(std::int64_t v, bool eightDigits, DateStyle style) noexcept {
    const auto two = [v](std::int64_t scale) { return static_cast<int>(v / scale % 100); };
    const auto four = [v](std::int64_t scale) { return static_cast<int>(v / scale % 10000); };
    if (!eightDigits) {
        const int first = two(10000);
        const int second = two(100);
        const int third = two(1);
        switch (style) {
            case DMY: return {third, second, first};
            case DYM: return {second, third, first};
            case MDY: return {third, first, second};
            case MYD: return {second, first, third};
            case YDM: return {first, third, second};
            case YMD: return {first, second, third};
        }
    }
    switch (style) {
        case DMY: return {four(1), two(10000), two(1000000)};        // ddmmyyyy
        case DYM: return {four(100), two(1), two(1000000)};          // ddyyyymm
        case MDY: return {four(1), two(1000000), two(10000)};        // mmddyyyy
        case MYD: return {four(100), two(1000000), two(1)};          // mmyyyydd
        case YDM: return {four(10000), two(1), two(100)};            // yyyyddmm
        case YMD: return {four(10000), two(100), two(1)};            // yyyymmdd
    }
    return {0, 0, 0};
}

Readings readAll(std::int64_t v, bool eightDigits) noexcept {
    Readings readings;
    for (int style = DMY; style <= YMD; ++style) {
        const Fields f = cut(v, eightDigits, static_cast<DateStyle>(style));
        readings.date[style] = Date(lum_date::expand2DigitYear(f.year), f.month, f.day);
    }
    return readings;
}

bool inRange(std::int64_t x, std::int64_t low, std::int64_t high) noexcept { return x >= low && x <= high; }

// A valid reading's day serial; a reading the checks above proved valid and is not is a broken invariant.
bool storeChecked(const Date& date, const format::FailureSite& site, double& out) noexcept {
    if (!date.isValid()) {
        format::fail(site);
    }
    out = static_cast<double>(date);
    return true;
}

// The run as the number it spells: what a run that is not clearly a date comes back as.
bool storeDigits(std::int64_t v, double& out) noexcept {
    out = static_cast<double>(v);
    return true;
}

// More than one reading is possible (or the year-first one is): the date style decides.
bool decideByStyle(DateStyle style, const Readings& r, std::int64_t v, bool eightDigits, double& out) noexcept {
    const bool shortYear = eightDigits && inRange(v % 10000, 1, 99);
    if (style == MDY && !r.valid(MDY)) {
        style = YMD;
    }
    if (style == YMD && !r.valid(YMD)) {
        if (shortYear) {
            return false;
        }
        style = DMY;
    }
    switch (style) {
        case DMY:
            return storeChecked(r.date[DMY], failure::DIGIT_RUN_DDMMYY, out);
        case MDY:
            return storeChecked(r.date[MDY], failure::DIGIT_RUN_MMDDYY, out);
        case YMD:
            return storeChecked(r.date[YMD], failure::DIGIT_RUN_YYMMDD, out);
        case DYM:
        case MYD:
        case YDM: {
            // The rare orders give their own reading only when it is not one of three equally good ones.
            const bool allThree = r.valid(DYM) && r.valid(MYD) && r.valid(YDM);
            if (allThree || !r.valid(style)) {
                return storeDigits(v, out);
            }
            out = static_cast<double>(r.date[style]);
            return true;
        }
    }
    format::fail(failure::DIGIT_RUN_STYLE);
}

}  // namespace

bool readDigitRunDate(const ParseInfo& pi, double& out) noexcept {
    if (!((pi.valLength[0] == 6) || (pi.valLength[0] == 8))) {
        format::fail(failure::DIGIT_RUN_LENGTH);
    }
    if (!(pi.sepType[0] == ST_NONE)) {
        format::fail(failure::DIGIT_RUN_SEPARATOR);
    }
    const DateStyle style = readDateStyle();
    const std::int64_t v = pi.value[0];
    const bool eightDigits = pi.valLength[0] == 8;
    const Readings r = readAll(v, eightDigits);
    const int count = int{r.valid(DMY)} + int{r.valid(MDY)};
    const std::int64_t leading = v / 10000;  // the first two digits of six, the first four of eight
    const bool yearLike = eightDigits && (inRange(leading, 100, 1599) || inRange(leading, 2201, 3199));

    if (count == 0) {
        if (r.valid(YMD)) {
            if (yearLike) {
                return storeDigits(v, out);
            }
            out = static_cast<double>(r.date[YMD]);
            return true;
        }
        if ((!eightDigits && inRange(leading, 1, 31)) || yearLike) {
            return storeDigits(v, out);
        }
        return false;
    }
    if (count == 1 && !r.valid(YMD)) {
        if (r.valid(MDY)) {
            out = static_cast<double>(r.date[MDY]);
            return true;
        }
        if (eightDigits && inRange(leading, 1600, 2200)) {
            return false;
        }
        if (eightDigits && inRange(v % 10000, 1, 99)) {
            if (style == MDY || style == YMD) {
                return false;
            }
            if (style != DMY) {
                return storeDigits(v, out);
            }
        }
        out = static_cast<double>(r.date[DMY]);
        return true;
    }
    return decideByStyle(style, r, v, eightDigits, out);
}

}  // namespace kivo::anydt
