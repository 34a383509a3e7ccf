#include <array>
#include <bit>
#include <climits>
#include <ctime>

#include "CivilCalendar.h"
#include "kivox/Calendar.h"
#include "kivox/Missing.h"
#include "kivox/Services.h"

namespace kivo {

const int SECONDS_PER_DAY = 86400;

namespace {

using civil::INVALID_SERIAL;

constexpr bool inRange(long serial) noexcept {
    return serial >= Date::MIN_SERIAL && serial <= Date::MAX_SERIAL;
}

// Monday-based weekday: 1 = Monday ... 7 = Sunday.
constexpr int mondayWeekday(long serial) noexcept {
    return (civil::dayOfWeek(serial) + 5) % 7 + 1;
}

// Week number when week 1 starts on the year's first day with the given (1-based) weekday index and
// the days before it are week 0.
constexpr int weekFromFirst(int dayOfYear, int weekdayOfJanuaryFirst) noexcept {
    const int firstWeekStart = (8 - weekdayOfJanuaryFirst) % 7;  // 0-based day of year
    return (dayOfYear - 1 + 7 - firstWeekStart) / 7;
}

// monthDayOfMarchYear for every day of a March-based year: on the way to every date field one load
// takes the place of a chain of multiplications.
constexpr auto MONTH_DAYS_OF_MARCH_YEAR = [] {
    std::array<civil::MonthDay, 366> table{};
    for (std::uint32_t day = 0; day < table.size(); ++day) {
        table[day] = civil::monthDayOfMarchYear(day);
    }
    return table;
}();

}  // namespace

Date::Date() noexcept : serial_(INVALID_SERIAL) {}

Date::Date(double daySerial) noexcept : serial_(INVALID_SERIAL) {
    // The comparisons are false for NaN, so NaN, infinities and missing values all stay invalid.
    if (daySerial >= MIN_SERIAL && daySerial < MAX_SERIAL + 1.0) {
        serial_ = civil::floorToSerial(daySerial);
    }
}

Date::Date(int year, int dayOfYear) noexcept : serial_(INVALID_SERIAL) {
    if (year < 1582 || year > 20000 || dayOfYear < 1 || dayOfYear > (civil::isLeapYear(year) ? 366 : 365)) {
        return;
    }
    serial_ = static_cast<std::int32_t>(civil::toSerial(year, 1, 1) + dayOfYear - 1);
}

Date::Date(int year, int month, int day) noexcept : serial_(INVALID_SERIAL) {
    if (year < 1582 || year > 20000 || month < 1 || month > 12 || !civil::hasDay(year, month, day)) {
        return;
    }
    serial_ = static_cast<std::int32_t>(civil::toSerial(year, month, day));
}

// The "today" option of the caller's services, when set, stands in for the clock: what depends on
// today's date then gives the same answer on every run.
Date Date::localDate() noexcept {
    const int today = currentServiceLocator().systemOptions().todaySerial();
    if (today != SystemOptions::CLOCK_TODAY) {
        return Date(static_cast<double>(today));
    }
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    if (localtime_r(&now, &local) == nullptr) {
        return Date();
    }
    return Date(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday);
}

bool Date::isValid() const noexcept { return serial_ != INVALID_SERIAL; }

Date::operator double() const noexcept { return isValid() ? serial_ : lum_numeric::MISSING; }

Date::operator int() const noexcept { return serial_; }

bool Date::operator<=(const Date& other) const noexcept { return serial_ <= other.serial_; }

Date& Date::operator+=(const DateDuration& days) noexcept {
    if (isValid()) {
        const long moved = static_cast<long>(serial_) + days.days();
        serial_ = inRange(moved) ? static_cast<std::int32_t>(moved) : INVALID_SERIAL;
    }
    return *this;
}

// The year and month are built in one 64-bit register and returned as they are: two 32-bit stores
// read back as one 64-bit load would stall every caller on the store buffer. An invalid date is
// converted like day 0 and then cleared, so that no branch joins before the result is assembled.
Date::YMD Date::yearMonthDay() const noexcept {
    const bool valid = isValid();
    const civil::MarchYearDay marchDay = civil::toMarchYearDay(valid ? serial_ : 0);
    const civil::MonthDay md = MONTH_DAYS_OF_MARCH_YEAR[marchDay.dayOfMarchYear];
    std::uint64_t yearAndMonth = static_cast<std::uint32_t>(marchDay.marchYear + md.inNextYear) |
                                 std::uint64_t{md.month} << 32;
    std::uint32_t day = md.day;
    if (!valid) {
        yearAndMonth = 0;
        day = 0;
    }
    return std::bit_cast<YMD>(civil::PackedYearMonthDay{yearAndMonth, day});
}

int Date::year() const noexcept { return yearMonthDay().year; }
int Date::month() const noexcept { return yearMonthDay().month; }
int Date::day() const noexcept { return yearMonthDay().day; }

int Date::dayOfWeek() const noexcept { return isValid() ? civil::dayOfWeek(serial_) : 0; }

Date::MD Date::monthDay() const noexcept {
    const YMD ymd = yearMonthDay();
    return {ymd.month, ymd.day};
}

Date::YM Date::yearMonth() const noexcept {
    const YMD ymd = yearMonthDay();
    return {ymd.year, ymd.month};
}

Date::YD Date::yearDayOfYear() const noexcept {
    if (!isValid()) {
        return {0, 0};
    }
    const civil::YearMonthDay ymd = civil::fromSerial(serial_);
    return {ymd.year, ymd.dayOfYear};
}

int Date::dayOfYear() const noexcept { return yearDayOfYear().dayOfYear; }

Date::YWD Date::yearWeekUDay() const noexcept {
    if (!isValid()) {
        return {0, 0, 0};
    }
    const YD yd = yearDayOfYear();
    const int januaryFirst = civil::dayOfWeek(civil::toSerial(yd.year, 1, 1));
    return {yd.year, weekFromFirst(yd.dayOfYear, januaryFirst), civil::dayOfWeek(serial_)};
}

Date::YWD Date::yearWeekWDay() const noexcept {
    if (!isValid()) {
        return {0, 0, 0};
    }
    const YD yd = yearDayOfYear();
    const int januaryFirst = mondayWeekday(civil::toSerial(yd.year, 1, 1));
    return {yd.year, weekFromFirst(yd.dayOfYear, januaryFirst), mondayWeekday(serial_)};
}

Date::YWD Date::yearWeekVDay() const noexcept {
    if (!isValid()) {
        return {0, 0, 0};
    }
    // The ISO week belongs to the year of its Thursday; the week number counts Thursdays.
    const int weekday = mondayWeekday(serial_);
    const long thursday = static_cast<long>(serial_) + 4 - weekday;
    const int isoYear = civil::fromSerial(thursday).year;
    const long thursdayOfYear = thursday - civil::toSerial(isoYear, 1, 1);
    return {isoYear, static_cast<int>(thursdayOfYear / 7 + 1), weekday};
}

bool Year::isLeapYear(int year) noexcept { return civil::isLeapYear(year); }

}  // namespace kivo
