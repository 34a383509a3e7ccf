#pragma once

#include "kivox/Calendar.h"
#include "kivox/Services.h"

// The reference host as the tests use it: day serials by date, and services of a test's own.
namespace kivo::test {

inline double day(int year, int month, int dayOfMonth) { return static_cast<double>(Date(year, month, dayOfMonth)); }
// The seconds serial of a time of day on a date.
inline double at(int year, int month, int dayOfMonth, double seconds) {
    return day(year, month, dayOfMonth) * 86400 + seconds;
}

// A locator current on this thread for the object's life, so that the options a test sets never reach
// another test.
class OwnServices {
public:
    OwnServices() : previous_(ServiceLocator::setCurrent(&locator_)) {}
    ~OwnServices() { ServiceLocator::setCurrent(previous_); }
    OwnServices(const OwnServices&) = delete;
    OwnServices& operator=(const OwnServices&) = delete;

    ServiceLocator& locator() { return locator_; }
    SystemOptions& options() { return locator_.systemOptions(); }

private:
    ServiceLocator locator_;
    ServiceLocator* previous_;
};

}  // namespace kivo::test
