#pragma once

#include <cstdint>

#include "kivox/Calendar.h"

// The words of machine records: four bytes of packed decimal, seven digit nibbles (high nibble first)
// and a sign nibble. 00 12 34 5C is +0012345; 00 12 34 5D is -0012345.
namespace kivo::informat::packed {

// What the packed-decimal reader found. The informats switch on it.
enum Code {
    POSITIVE = 0,    // sign nibble A, C, E or F
    NEGATIVE = 1,    // sign nibble B or D
    DIGIT_SIGN = 2,  // the sign nibble is a digit: not valid, but the value is still stored
    BAD_DIGIT = 3,   // a digit nibble above 9 (checked first): not valid, no value stored
};

inline int readWord(const unsigned char* bytes, std::int32_t& value) noexcept {
    std::int32_t digits = 0;
    for (int i = 0; i < 7; ++i) {
        const int nibble = (i % 2 == 0 ? bytes[i / 2] >> 4 : bytes[i / 2]) & 0xF;
        if (nibble > 9) {
            return BAD_DIGIT;
        }
        digits = digits * 10 + nibble;
    }
    value = digits;
    const int sign = bytes[3] & 0xF;
    if (sign <= 9) {
        return DIGIT_SIGN;
    }
    return sign == 0xB || sign == 0xD ? NEGATIVE : POSITIVE;
}

// 0HHMMSS and a sign: seconds, the fields not range-checked (a minute field of 75 adds 4500 s).
inline double secondsOfTimeWord(std::int32_t value) noexcept {
    return 3600.0 * (value / 10000) + 60.0 * (value / 100 % 100) + value % 100;
}

// 0CYYDDD with a positive sign: day DDD of the year 1900 + CYY (C = 1 is 20YY). False for any other
// sign, bad digits or a day the year does not have.
inline bool readJulianDateWord(const unsigned char* bytes, Date& date) noexcept {
    std::int32_t value = 0;
    if (readWord(bytes, value) != POSITIVE) {
        return false;
    }
    date = Date(lum_date::expand2DigitYear(value / 1000 + 1900), value % 1000);
    return date.isValid();
}

// Bytes as an unsigned big-endian number.
inline std::uint64_t bigEndian(const unsigned char* bytes, int count) noexcept {
    std::uint64_t value = 0;
    for (int i = 0; i < count; ++i) {
        value = value << 8 | bytes[i];
    }
    return value;
}

}  // namespace kivo::informat::packed
