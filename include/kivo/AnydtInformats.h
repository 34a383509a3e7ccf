#pragma once

#include <cstdint>

#include "kivo/Export.h"

namespace kivo {

// What the free-form reader found in a field.
enum AnydtType : std::int32_t {
    ANYDT_DATE = 0,      // the result is a day serial
    ANYDT_DATETIME = 1,  // the result is a seconds serial
    ANYDT_TIME = 2,      // the result is a number of seconds, possibly negative
    ANYDT_MISSING = 3,   // the field was "." or "._"; the result is a missing value
};

// Reads a date, a time or a datetime written in one of many common layouts from width bytes of text.
// True when the field was recognised, with result and type set. False otherwise; result is then the
// ordinary missing value and type ANYDT_DATETIME. The two middle arguments are accepted and not used.
KIVO_EXPORT bool anydtInformats(const char* text, int width, int length, int decimals, double& result,
                                AnydtType& type) noexcept;

// True when [begin, end) may stand between a date and a time: nothing, blanks, or one punctuation
// character with blanks around it, optionally followed by "-".
KIVO_EXPORT bool isDatetimeSeparator(const char* begin, const char* end) noexcept;

}  // namespace kivo
