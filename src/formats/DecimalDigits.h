#pragma once

#include <cstdint>
#include <cstring>

#include "formats/FieldWriting.h"

// The decimal digits of a whole number below 10^17 written straight into a buffer, two at a time from
// the pair table and in independent chains of eight, so that a twelve-digit field waits on three
// short divisions rather than twelve dependent ones.
namespace kivo::format::digits {

inline constexpr std::uint64_t POWERS_OF_TEN[20] = {1ULL,
                                                    10ULL,
                                                    100ULL,
                                                    1000ULL,
                                                    10000ULL,
                                                    100000ULL,
                                                    1000000ULL,
                                                    10000000ULL,
                                                    100000000ULL,
                                                    1000000000ULL,
                                                    10000000000ULL,
                                                    100000000000ULL,
                                                    1000000000000ULL,
                                                    10000000000000ULL,
                                                    100000000000000ULL,
                                                    1000000000000000ULL,
                                                    10000000000000000ULL,
                                                    100000000000000000ULL,
                                                    1000000000000000000ULL,
                                                    10000000000000000000ULL};

// The most digits a whole number below 2^56 has.
inline constexpr int MOST_DIGITS_BELOW_2_POW_56 = 17;

inline void pair(char* out, std::uint32_t value) noexcept { std::memcpy(out, field::DIGIT_PAIRS + 2 * value, 2); }

// value 0..99999999 as eight digits: two halves, then two pairs of each, every step independent.
inline void eightDigits(char* out, std::uint32_t value) noexcept {
    const std::uint32_t high = value / 10000;
    const std::uint32_t low = value - high * 10000;
    pair(out, high / 100);
    pair(out + 2, high % 100);
    pair(out + 4, low / 100);
    pair(out + 6, low % 100);
}

// The lowest `count` digits of value (below 10^17), with leading zeros, at out[0 .. count).
inline void lowestDigits(char* out, int count, std::uint64_t value) noexcept {
    if (count > MOST_DIGITS_BELOW_2_POW_56) {
        std::memset(out, '0', static_cast<std::size_t>(count - MOST_DIGITS_BELOW_2_POW_56));
        out += count - MOST_DIGITS_BELOW_2_POW_56;
        count = MOST_DIGITS_BELOW_2_POW_56;
    }
    char* end = out + count;
    while (count >= 8) {
        const std::uint64_t above = value / 100000000;
        eightDigits(end - 8, static_cast<std::uint32_t>(value - above * 100000000));
        value = above;
        end -= 8;
        count -= 8;
    }
    auto rest = static_cast<std::uint32_t>(value % 100000000);
    for (; count >= 2; count -= 2) {
        end -= 2;
        pair(end, rest % 100);
        rest /= 100;
    }
    if (count == 1) {
        end[-1] = field::DIGITS[rest % 10];
    }
}

// How many of the count characters at the end of run are '0', eight at a time while they last. The
// count is found by branches, not worked out from the digits: the branches are predicted, so what
// depends on the count goes ahead before the digits are known.
inline int trailingZeroCharacters(const char* run, int count) noexcept {
    int zeros = 0;
    while (zeros + 8 <= count && std::memcmp(run + count - zeros - 8, "00000000", 8) == 0) {
        zeros += 8;
    }
    while (zeros < count && run[count - 1 - zeros] == '0') {
        ++zeros;
    }
    return zeros;
}

}  // namespace kivo::format::digits
