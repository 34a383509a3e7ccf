#pragma once

// Constant-time conversions between day serials (day 0 = 1 January 1960) and proleptic Gregorian
// year/month/day, after Hinnant's days-from-civil and civil-from-days. The shift by SHIFT_DAYS moves
// every serial the host supports (and a few years either side, for the week computations) to a
// positive count of days since 1 March of year 0, so all the divisions are on non-negative values.
namespace kivo::civil {

inline constexpr long SHIFT_DAYS = 719468 - 3653;  // days from 0000-03-01 to 1960-01-01

struct YearMonthDay {
    int year;
    int month;
    int day;
};

constexpr YearMonthDay fromSerial(long serial) noexcept {
    const long shifted = serial + SHIFT_DAYS;
    const long era = shifted / 146097;
    const long dayOfEra = shifted - era * 146097;
    const long yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    const long dayOfMarchYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const long marchMonth = (5 * dayOfMarchYear + 2) / 153;
    const int day = static_cast<int>(dayOfMarchYear - (153 * marchMonth + 2) / 5 + 1);
    const int month = static_cast<int>(marchMonth < 10 ? marchMonth + 3 : marchMonth - 9);
    const int year = static_cast<int>(yearOfEra + era * 400 + (month <= 2 ? 1 : 0));
    return {year, month, day};
}

// year must be at least 1; month 1..12; day may run past the month's end (it then counts on).
constexpr long toSerial(int year, int month, int day) noexcept {
    const long y = year - (month <= 2 ? 1 : 0);
    const long era = y / 400;
    const long yearOfEra = y - era * 400;
    const long dayOfMarchYear = (153 * (month > 2 ? month - 3 : month + 9) + 2) / 5 + day - 1;
    const long dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfMarchYear;
    return era * 146097 + dayOfEra - SHIFT_DAYS;
}

constexpr bool isLeapYear(int year) noexcept {
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

constexpr int daysInMonth(int year, int month) noexcept {
    constexpr int days[13] = {0, 31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return month == 2 && isLeapYear(year) ? 29 : days[month];
}

// 1 = Sunday ... 7 = Saturday; 1 January 1960 was a Friday. The offset keeps the dividend positive
// for every serial from well before 1582.
constexpr int dayOfWeek(long serial) noexcept {
    return static_cast<int>((serial + 7L * 100000 + 5) % 7) + 1;
}

static_assert(toSerial(1960, 1, 1) == 0);
static_assert(toSerial(1582, 1, 1) == -138061);
static_assert(toSerial(20000, 12, 31) == 6589340);
static_assert(fromSerial(-17321).year == 1912 && fromSerial(-17321).month == 7 && fromSerial(-17321).day == 30);
static_assert(dayOfWeek(0) == 6);

}  // namespace kivo::civil
