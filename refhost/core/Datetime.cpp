#include <bit>
#include <climits>
#include <cmath>

#include "CivilCalendar.h"
#include "kivox/Calendar.h"
#include "kivox/Services.h"

namespace kivo {

namespace {

constexpr double DAY = 86400.0;
constexpr double LAST_SECOND_OF_DAY = 86399.99999999999;  // the largest double below 86400
// Days added before the day is estimated, so that every value the range check lets through is positive.
constexpr std::int64_t DAY_OFFSET = 200000;

int saturatedInt(double value) noexcept {
    if (!(value > INT_MIN)) {
        return value != value ? 0 : INT_MIN;
    }
    return value < INT_MAX ? static_cast<int>(value) : INT_MAX;
}

struct DayAndSeconds {
    std::int64_t day;
    double seconds;
};

// The day, floor(v / 86400) in exact arithmetic, and the seconds into it, v - day * 86400 rounded once.
// The day is first estimated with one multiplication, offset so that truncating is flooring; near a
// day's boundary the estimate may be one off, which the remainder shows: below 0 it is a day late. A
// remainder of 86400 or more is either a day early or, for a tiny negative v, 86400 by rounding: the
// next day's remainder tells them apart, and a rounded one is kept just inside the day.
DayAndSeconds splitDay(double v) noexcept {
    auto day = static_cast<std::int64_t>((v + DAY_OFFSET * DAY) * (1.0 / DAY)) - DAY_OFFSET;
    double seconds = v - static_cast<double>(day) * DAY;
    if (seconds < 0.0) {
        --day;
        seconds = v - static_cast<double>(day) * DAY;
    } else if (seconds >= DAY) {
        const double nextDaySeconds = v - static_cast<double>(day + 1) * DAY;
        if (nextDaySeconds >= 0.0) {
            ++day;
            seconds = nextDaySeconds;
        }
    }
    if (seconds >= DAY) {
        seconds = LAST_SECOND_OF_DAY;
    }
    return {day, seconds};
}

// A date is its serial and nothing else: the day, once checked, becomes the date without a second
// conversion or a call.
Date dateOfSerial(std::int32_t serial) noexcept { return std::bit_cast<Date>(serial); }

}  // namespace

Datetime::Datetime(const double& secondsSerial) noexcept
    : date_(dateOfSerial(civil::INVALID_SERIAL)), secondsOfDay_(0.0) {
    // Cheap rejection first; the comparisons are false for NaN and missing values.
    if (!(secondsSerial >= (Date::MIN_SERIAL - 1.0) * DAY && secondsSerial < (Date::MAX_SERIAL + 2.0) * DAY)) {
        return;
    }
    const DayAndSeconds split = splitDay(secondsSerial);
    if (split.day >= Date::MIN_SERIAL && split.day <= Date::MAX_SERIAL) {
        date_ = dateOfSerial(static_cast<std::int32_t>(split.day));
    }
    secondsOfDay_ = split.seconds;
}

bool Datetime::isValid() const noexcept { return std::bit_cast<std::int32_t>(date_) != civil::INVALID_SERIAL; }

Date Datetime::date() const noexcept { return date_; }

TimeDuration Datetime::timeOfDay() const noexcept { return TimeDuration(secondsOfDay_); }

int TimeDuration::hours() const noexcept { return saturatedInt(std::trunc(seconds_ / 3600.0)); }

int TimeDuration::minutes() const noexcept {
    if (!std::isfinite(seconds_)) {
        return 0;
    }
    return static_cast<int>(std::fmod(std::trunc(seconds_ / 60.0), 60.0));
}

namespace lum_date {

int expand2DigitYear(int year) noexcept {
    if (year < 0 || year > 99) {
        return year;
    }
    const int cutoff = currentServiceLocator().systemOptions().yearCutoff();
    const int candidate = cutoff - cutoff % 100 + year;
    return candidate < cutoff ? candidate + 100 : candidate;
}

}  // namespace lum_date

}  // namespace kivo
