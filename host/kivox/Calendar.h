#pragma once

#include <cstdint>

#include "kivox/Export.h"

namespace kivo {

// Seconds in one calendar day; day serials are multiplied by it to build seconds serials.
KIVOX_EXPORT extern const int SECONDS_PER_DAY;

class KIVOX_EXPORT DateDuration {
public:
    explicit DateDuration(int days) noexcept : days_(days) {}
    int days() const noexcept { return days_; }

private:
    int days_;
};

// A calendar day, carried as a day serial: day 0 is 1 January 1960, earlier days are negative. The
// supported range is 1 January 1582 to 31 December 20000 of the proleptic Gregorian calendar; anything
// else is an invalid date.
class KIVOX_EXPORT Date {
public:
    struct YMD {
        int year;
        int month;
        int day;
    };
    struct MD {
        int month;
        int day;
    };
    struct YM {
        int year;
        int month;
    };
    struct YD {
        int year;
        int dayOfYear;
    };
    // Year, week number and weekday under one of the three week conventions.
    struct YWD {
        int year;
        int week;
        int day;
    };

    static constexpr std::int32_t MIN_SERIAL = -138061;  // 1 January 1582
    static constexpr std::int32_t MAX_SERIAL = 6589340;  // 31 December 20000

    Date() noexcept;
    explicit Date(double daySerial) noexcept;
    Date(int year, int dayOfYear) noexcept;
    Date(int year, int month, int day) noexcept;

    static Date localDate() noexcept;

    bool isValid() const noexcept;
    operator double() const noexcept;
    operator int() const noexcept;
    bool operator<=(const Date& other) const noexcept;
    Date& operator+=(const DateDuration& days) noexcept;

    int year() const noexcept;
    int month() const noexcept;
    int day() const noexcept;
    // 1 = Sunday ... 7 = Saturday.
    int dayOfWeek() const noexcept;
    int dayOfYear() const noexcept;

    YMD yearMonthDay() const noexcept;
    MD monthDay() const noexcept;
    YM yearMonth() const noexcept;
    YD yearDayOfYear() const noexcept;

    // U: Sunday weeks, week 1 from the year's first Sunday, weekday 1 = Sunday.
    YWD yearWeekUDay() const noexcept;
    // V: ISO 8601 weeks of the week-based year, weekday 1 = Monday.
    YWD yearWeekVDay() const noexcept;
    // W: Monday weeks, week 1 from the year's first Monday, weekday 1 = Monday.
    YWD yearWeekWDay() const noexcept;

private:
    std::int32_t serial_;
};

class KIVOX_EXPORT Year {
public:
    static bool isLeapYear(int year) noexcept;
};

// A time of day or a duration in seconds.
class KIVOX_EXPORT TimeDuration {
public:
    explicit TimeDuration(double seconds) noexcept : seconds_(seconds) {}
    // Whole hours, truncated toward zero (saturated to the int range).
    int hours() const noexcept;
    // The minute within the hour, truncated toward zero, with the sign of the duration.
    int minutes() const noexcept;
    double totalSeconds() const noexcept { return seconds_; }

private:
    double seconds_;
};

// An instant as a seconds serial: seconds since midnight at the start of day 0.
class KIVOX_EXPORT Datetime {
public:
    explicit Datetime(const double& secondsSerial) noexcept;
    bool isValid() const noexcept;
    // The day that contains the instant.
    Date date() const noexcept;
    // Seconds since that day's midnight, in [0, 86400).
    TimeDuration timeOfDay() const noexcept;

private:
    Date date_;
    double secondsOfDay_;
};

namespace lum_date {
// A year of 0..99 is placed in the 100-year window that starts at the "yearcutoff" option; every other
// year comes back unchanged.
KIVOX_EXPORT int expand2DigitYear(int year) noexcept;
}  // namespace lum_date

}  // namespace kivo
