#pragma once

#include "kivox/Export.h"

namespace kivo {

// Month names; the argument is 1 (January) .. 12. The strings live as long as the process.
class KIVOX_EXPORT Month {
public:
    static const char* longName(int month) noexcept;
    static int longNameLength(int month) noexcept;
    static const char* shortName(int month) noexcept;
    static const char* upperShortName(int month) noexcept;
};

// Weekday names; the argument is 1 (Sunday) .. 7 (Saturday).
class KIVOX_EXPORT DayOfWeek {
public:
    static const char* longName(int day) noexcept;
    static int longNameLength(int day) noexcept;
    static const char* shortName(int day) noexcept;
};

}  // namespace kivo
