#include <climits>
#include <cmath>

#include "kivox/Calendar.h"
#include "kivox/Services.h"

namespace kivo {

namespace {

constexpr double DAY = 86400.0;
constexpr double LAST_SECOND_OF_DAY = 86399.99999999999;  // the largest double below 86400

int saturatedInt(double value) noexcept {
    if (!(value > INT_MIN)) {
        return value != value ? 0 : INT_MIN;
    }
    return value < INT_MAX ? static_cast<int>(value) : INT_MAX;
}

}  // namespace

Datetime::Datetime(const double& secondsSerial) noexcept : date_(), secondsOfDay_(0.0) {
    // Cheap rejection first; the comparisons are false for NaN and missing values.
    if (!(secondsSerial >= (Date::MIN_SERIAL - 1.0) * DAY && secondsSerial < (Date::MAX_SERIAL + 2.0) * DAY)) {
        return;
    }
    // floor(v / 86400) in exact arithmetic: the rounded quotient may land on the next integer when v
    // lies just below a day boundary, which the negative remainder reveals.
    double day = std::floor(secondsSerial / DAY);
    double seconds = secondsSerial - day * DAY;
    if (seconds < 0.0) {
        day -= 1.0;
        seconds += DAY;
    }
    // A tiny negative remainder plus one day rounds up to a whole day; keep it inside the day.
    if (seconds >= DAY) {
        seconds = LAST_SECOND_OF_DAY;
    }
    date_ = Date(day);
    secondsOfDay_ = seconds;
}

bool Datetime::isValid() const noexcept { return date_.isValid(); }

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
