#pragma once

#include "kivox/Calendar.h"

// How the fixed-layout informats turn what they read into the value they store.
namespace kivo::informat {

// The day serial of a date the host can hold; false, with value untouched, for any other.
inline bool storeDay(const Date& date, double& value) noexcept {
    if (!date.isValid()) {
        return false;
    }
    value = static_cast<double>(date);
    return true;
}

inline bool storeDay(int year, int month, int day, double& value) noexcept {
    return storeDay(Date(year, month, day), value);
}

// A seconds serial from the day and the seconds since its midnight.
inline double datetimeOf(double daySerial, double seconds) noexcept {
    return daySerial * static_cast<double>(SECONDS_PER_DAY) + seconds;
}

}  // namespace kivo::informat
