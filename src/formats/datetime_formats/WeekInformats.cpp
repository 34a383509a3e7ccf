// WEEKU, WEEKV and WEEKW: a week date written as year, "W", week and an optional day of the week
// (W05, 21W05, 2021W05, 21W0503, 2021-W05, 2021W0503, 2021-W05-03), read back to the day serial of
// that day under Sunday weeks (U), ISO 8601 weeks (V) or Monday weeks (W).
#include "formats/datetime_formats/DatetimeInformatsFailures.h"
#include "formats/datetime_formats/TextReaders.h"
#include "kivo/Informats.h"
#include "kivo/WeekInformats.h"
#include "kivox/Calendar.h"

namespace kivo {

namespace {

constexpr int FIRST_YEAR = 1581;
constexpr int LAST_YEAR = 20000;
constexpr int THURSDAY = 5;  // the host numbers the days 1 = Sunday to 7 = Saturday

// A number of at most two digits from cursor, within the field.
bool readTwoDigitsAtMost(const char*& cursor, const char* end, int& value) noexcept {
    const char* limit = end - cursor > 2 ? cursor + 2 : end;
    return readUnsignedInt(cursor, limit, value);
}

// The position of the one "W" of the field; nullptr when there is none or more than one.
const char* onlyW(const char* begin, const char* end) noexcept {
    const char* w = nullptr;
    for (const char* c = begin; c < end; ++c) {
        if (*c == 'W') {
            if (w != nullptr) {
                return nullptr;
            }
            w = c;
        }
    }
    return w;
}

// The year, then "W" (or "-" and "W") and the week; the cursor stops after the week. A year of two
// digits or fewer is widened when `widen`.
bool readYearAndWeek(const char*& cursor, const char* end, const char* w, bool widen, int& year, int& week,
                     bool& dashAfterYear) noexcept {
    if (!readUnsignedInt(cursor, end, year) || cursor == end || (*cursor != 'W' && *cursor != '-')) {
        return false;
    }
    dashAfterYear = *cursor == '-';
    cursor += dashAfterYear ? 1 : 0;
    if (cursor != w) {
        return false;
    }
    ++cursor;
    if (widen && year <= 99) {
        year = lum_date::expand2DigitYear(year);
    }
    return readTwoDigitsAtMost(cursor, end, week);
}

// The day after the week, by the rules of the field's length: the 7- and 8-character forms want a
// day of two characters at once, the longer ones take a "-" before it, and from 11 characters a field
// that ends after the "-" has no day.
bool readDay(const char*& cursor, const char* end, std::ptrdiff_t n, bool dashAfterYear, int& day) noexcept {
    if (cursor == end || *cursor == ' ') {
        return true;
    }
    if (n >= 9 && *cursor == '-') {
        ++cursor;
    } else if (dashAfterYear && (n <= 8 ? *cursor != '-' : true)) {
        return false;
    }
    if (end - cursor < 2) {
        return n >= 11;
    }
    return readTwoDigitsAtMost(cursor, end, day);
}

}  // namespace

bool parseWeekUVWInformat(const char* text, int width, int length, int, int& day, int& week, int& year) {
    const int n = width < length ? width : length;
    if (n < 3) {
        return false;
    }
    const char* cursor = text;
    const char* end = text + n;
    const char* w = onlyW(text, end);
    if (w == nullptr) {
        return false;
    }
    bool dashAfterYear = false;
    if (n <= 4) {
        if (w != text) {
            return false;
        }
        ++cursor;
        year = Date::localDate().year();
        if (!readUnsignedInt(cursor, text + 3 < end ? text + 3 : end, week)) {
            return false;
        }
    } else if (n <= 6) {
        if (!readUnsignedInt(cursor, end, year) || cursor != w) {
            return false;
        }
        year = year <= 99 ? lum_date::expand2DigitYear(year) : year;
        cursor = w + 1;
        if (end - cursor >= 2 && !readTwoDigitsAtMost(cursor, end, week)) {
            return false;
        }
    } else {
        if (n >= 9) {
            while (cursor < end && *cursor == ' ') {
                ++cursor;
            }
        }
        if (!readYearAndWeek(cursor, end, w, n <= 8, year, week, dashAfterYear) ||
            !readDay(cursor, end, n, dashAfterYear, day)) {
            return false;
        }
    }
    day = day == 0 ? 1 : day;
    return day >= 1 && day <= 7 && week <= 53 && year >= FIRST_YEAR && year <= LAST_YEAR;
}

}  // namespace kivo

namespace {

using kivo::Date;

enum class WeekSystem { U, V, W };

// The weekday of 1 January: the host's, but 1581 (before its calendar) starts on a Thursday.
int januaryFirstWeekday(int year) noexcept { return year == 1581 ? kivo::THURSDAY : Date(year, 1, 1).dayOfWeek(); }

// The day of the year of (week, day) under the system; false for a week 53 (U, W) or 0 (V) the year
// does not have.
bool dayOfYearOf(WeekSystem system, int year, int week, int day, int& dayOfYear) noexcept {
    const int d = januaryFirstWeekday(year);
    const bool leap = kivo::Year::isLeapYear(year);
    switch (system) {
        case WeekSystem::U:
            if (week == 53 && d != 1 && !(d == 6 && leap)) {
                return false;
            }
            dayOfYear = (8 - d) % 7 + day + 7 * (week - 1);
            return true;
        case WeekSystem::W: {
            static constexpr int DAYS_BEFORE_FIRST_MONDAY[7] = {1, 0, 6, 5, 4, 3, 2};
            if (d < 1 || d > 7) {
                kivo::format::fail(kivo::informat::failure::WEEKW_DAY_OF_WEEK);
            }
            if (week == 53 && d != 2 && !(d == 1 && leap)) {
                return false;
            }
            dayOfYear = DAYS_BEFORE_FIRST_MONDAY[d - 1] + day + 7 * (week - 1);
            return true;
        }
        case WeekSystem::V: {
            static constexpr int SHIFT[7] = {1, 0, -1, -2, -3, 3, 2};
            if (d < 1 || d > 7) {
                kivo::format::fail(kivo::informat::failure::WEEKV_DAY_OF_WEEK);
            }
            if (week == 0) {
                return false;
            }
            dayOfYear = 7 * (week - 1) + day + SHIFT[d - 1];
            return true;
        }
    }
    return false;
}

int lastDayOfYear(int year) noexcept { return Date(year, 12, 31).dayOfYear(); }

// A day of the year before 1 or past the year's end moves into the year next to it. In 1581, which
// the host's calendar does not hold, only the days that reach into 1582 are dates.
Date dateOf(int year, int dayOfYear) noexcept {
    if (year == 1581) {
        return dayOfYear >= 366 ? Date(1582, dayOfYear - 365) : Date();
    }
    if (dayOfYear < 1) {
        if (year - 1 < 1582) {
            return Date();
        }
        dayOfYear += lastDayOfYear(year - 1);
        --year;
    } else if (dayOfYear > lastDayOfYear(year)) {
        dayOfYear -= lastDayOfYear(year);
        ++year;
    }
    return Date(year, dayOfYear);
}

int weekInformat(WeekSystem system, const char* text, int width, int length, int decimals, double* result) {
    int day = 1;
    int week = 0;
    int year = 0;
    int dayOfYear = 0;
    if (!kivo::parseWeekUVWInformat(text, width, length, decimals, day, week, year) ||
        !dayOfYearOf(system, year, week, day, dayOfYear)) {
        return 0;
    }
    const Date date = dateOf(year, dayOfYear);
    if (!date.isValid()) {
        return 0;
    }
    *result = static_cast<double>(date);
    return 1;
}

}  // namespace

extern "C" {

int weekuInformat(const char* text, int width, int length, int decimals, double* result) {
    return weekInformat(WeekSystem::U, text, width, length, decimals, result);
}

int weekvInformat(const char* text, int width, int length, int decimals, double* result) {
    return weekInformat(WeekSystem::V, text, width, length, decimals, result);
}

int weekwInformat(const char* text, int width, int length, int decimals, double* result) {
    return weekInformat(WeekSystem::W, text, width, length, decimals, result);
}

}  // extern "C"
