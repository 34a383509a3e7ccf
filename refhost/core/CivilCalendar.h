#pragma once

#include <climits>
#include <cstdint>

// Constant-time conversions between day serials (day 0 = 1 January 1960) and proleptic Gregorian
// year/month/day: Hinnant's days-from-civil one way, Neri and Schneider's civil-from-days the other.
// The shift by SHIFT_DAYS moves every serial the host supports (and a few years either side, for the
// week computations) to a positive count of days since 1 March of year 0, so all the divisions are on
// non-negative values.
namespace kivo::civil {

inline constexpr long SHIFT_DAYS = 719468 - 3653;  // days from 0000-03-01 to 1960-01-01

// The serial an invalid date holds.
inline constexpr std::int32_t INVALID_SERIAL = INT32_MIN;

struct YearMonthDay {
    int year;
    int month;
    int day;
    int dayOfYear;  // 1..366
};

// A year, month and day as they travel back to the caller: year and month in one 64-bit word.
struct __attribute__((packed)) PackedYearMonthDay {
    std::uint64_t yearAndMonth;
    std::uint32_t day;
};

// floor(value) for a value whose floor fits an int32: a truncation, one less for a negative fraction.
// Exact, and a few instructions where the library's floor is a long sequence on processors without a
// rounding instruction.
constexpr std::int32_t floorToSerial(double value) noexcept {
    const auto truncated = static_cast<std::int32_t>(value);
    return truncated - (value < truncated ? 1 : 0);
}

// Without branches: a date informat reads months and years in no predictable order, and a missed
// branch costs more than the three tests.
constexpr bool isLeapYear(int year) noexcept {
    return (year % 4 == 0) & ((year % 100 != 0) | (year % 400 == 0));
}

// A day counted within its March-based year: the year that begins on 1 March, and the day of it, 0 (1
// March) to 365 (29 February).
struct MarchYearDay {
    int marchYear;
    std::uint32_t dayOfMarchYear;
};

// Neri and Schneider's Euclidean affine form of civil-from-days: 32-bit unsigned products and shifts
// only. Valid while 4 * (serial + SHIFT_DAYS) + 3 fits in 32 bits, far beyond the supported range.
constexpr MarchYearDay toMarchYearDay(long serial) noexcept {
    const auto n = static_cast<std::uint32_t>(serial + SHIFT_DAYS);  // days since 0000-03-01
    const std::uint32_t n1 = 4 * n + 3;
    const std::uint32_t century = n1 / 146097;
    const std::uint32_t dayOfCentury = n1 % 146097 / 4;
    const std::uint32_t n2 = 4 * dayOfCentury + 3;
    const std::uint64_t p2 = std::uint64_t{2939745} * n2;
    const auto yearOfCentury = static_cast<std::uint32_t>(p2 >> 32);
    return {static_cast<int>(100 * century + yearOfCentury), static_cast<std::uint32_t>(p2) / 2939745 / 4};
}

// The calendar month and day of a day of a March-based year, and whether it falls in January or
// February, that is in the next calendar year.
struct MonthDay {
    std::uint8_t month;
    std::uint8_t day;
    std::uint8_t inNextYear;
};

constexpr MonthDay monthDayOfMarchYear(std::uint32_t dayOfMarchYear) noexcept {
    const std::uint32_t n3 = 2141 * dayOfMarchYear + 197913;
    const std::uint32_t marchMonth = n3 >> 16;  // 3..14
    const bool januaryOrFebruary = dayOfMarchYear >= 306;
    return {static_cast<std::uint8_t>(januaryOrFebruary ? marchMonth - 12 : marchMonth),
            static_cast<std::uint8_t>((n3 & 0xFFFF) / 2141 + 1), static_cast<std::uint8_t>(januaryOrFebruary)};
}

constexpr YearMonthDay fromSerial(long serial) noexcept {
    const MarchYearDay marchDay = toMarchYearDay(serial);
    const MonthDay md = monthDayOfMarchYear(marchDay.dayOfMarchYear);
    const int year = marchDay.marchYear + md.inNextYear;
    const auto dayOfYear = static_cast<int>(md.inNextYear ? marchDay.dayOfMarchYear - 305
                                                          : marchDay.dayOfMarchYear + 60 + (isLeapYear(year) ? 1 : 0));
    return {year, md.month, md.day, dayOfYear};
}

// The day of the March-based year on which each month (1..12) begins: (153 × (month − 3 mod 12) + 2) / 5.
inline constexpr std::uint32_t MARCH_YEAR_DAY_OF_MONTH_START[13] = {0,   306, 337, 0,   31,  61, 92,
                                                                    122, 153, 184, 214, 245, 275};

// year must be at least 1; month 1..12; day may run past the month's end (it then counts on). Every
// quantity is then non-negative, so the divisions by constants are unsigned: a multiplication and a
// shift each, with no sign to correct. The leap days before March year y are y/4 − y/100 + y/400:
// three independent divisions rather than a split into 400-year eras and a chain through the year of
// the era.
constexpr long toSerial(int year, int month, int day) noexcept {
    const std::uint32_t y = static_cast<std::uint32_t>(year) - static_cast<std::uint32_t>(month <= 2);
    const std::uint32_t dayOfMarchYear = MARCH_YEAR_DAY_OF_MONTH_START[month] + static_cast<std::uint32_t>(day) - 1;
    const std::uint64_t days = std::uint64_t{y} * 365 + y / 4 - y / 100 + y / 400 + dayOfMarchYear;
    return static_cast<long>(days) - SHIFT_DAYS;
}

// The longest each month (1..12) can be; February's 29th then needs a leap year.
inline constexpr int LONGEST_MONTH_DAYS[13] = {0, 31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};

// A month 1..12 and any day: whether the month of that year has the day. The leap-year test is made
// only for a 29 February, so that it stays off the way of almost every date.
constexpr bool hasDay(int year, int month, int day) noexcept {
    if (day < 1 || day > LONGEST_MONTH_DAYS[month]) {
        return false;
    }
    return ((month == 2) & (day == 29)) == 0 || isLeapYear(year);
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
static_assert(hasDay(2000, 2, 29) && !hasDay(1900, 2, 29) && hasDay(1900, 2, 28) && !hasDay(2001, 4, 31) &&
              hasDay(2001, 12, 31) && !hasDay(2001, 1, 0));
static_assert([] {
    for (int month = 1; month <= 12; ++month) {
        const int marchMonth = month > 2 ? month - 3 : month + 9;
        if (MARCH_YEAR_DAY_OF_MONTH_START[month] != static_cast<std::uint32_t>((153 * marchMonth + 2) / 5)) {
            return false;
        }
    }
    return true;
}());
static_assert(floorToSerial(-0.5) == -1 && floorToSerial(-1.0) == -1 && floorToSerial(-0.0) == 0 && floorToSerial(2.99) == 2);
static_assert(fromSerial(0).dayOfYear == 1 && fromSerial(-1).dayOfYear == 365 && fromSerial(59).dayOfYear == 60);

}  // namespace kivo::civil
