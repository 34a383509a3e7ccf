#pragma once

#include <cmath>
#include <cstdint>

#include "formats/DecimalLimbs.h"
#include "kivox/Numbers.h"

// A real number scaled by a power of ten and rounded to the whole number its planned digits are taken
// from: the step every real layout shares, kept inline so that a layout's common case runs it without
// a call.
namespace kivo::format::rounding {

// 10^-22 .. 10^22 as the nearest doubles, the same the host's pow10 gives: the positive powers are
// exact, and one correctly rounded division of 1 by an exact power is the nearest double to its
// reciprocal. A table here saves a call into the host on every field.
inline constexpr int EXACT_POWERS = 22;
inline constexpr auto NEAREST_POWERS_OF_TEN = [] {
    struct Table {
        double values[2 * EXACT_POWERS + 1];
    } table{};
    double power = 1.0;
    for (int e = 0; e <= EXACT_POWERS; ++e) {
        table.values[EXACT_POWERS + e] = power;
        table.values[EXACT_POWERS - e] = 1.0 / power;
        power *= 10.0;
    }
    return table;
}();

// value *= 10^power, with at most one step of 10^308 or 10^-307 first so that no power of ten is
// outside the double range.
inline void multiplyByPowerOfTen(double& value, int power) noexcept {
    if (power >= -EXACT_POWERS && power <= EXACT_POWERS) [[likely]] {
        value *= NEAREST_POWERS_OF_TEN.values[power + EXACT_POWERS];
        return;
    }
    if (power > 308) {
        value *= pow10(308);
        power -= 308;
    } else if (power < -307) {
        value *= pow10(-307);
        power += 307;
    }
    value *= pow10(power);
}

// x scaled to the planned digits, rounded half up, then nudged by the fuzz factor: a value a hair
// below a rounding boundary only because of its binary form is pushed over it, but only while the
// nudge stays below LARGEST_NUDGE units of the last digit, far short of changing a digit that is there.
inline constexpr double LARGEST_NUDGE = 0.05;

struct RoundedWhole {
    double whole;          // the rounded value, a whole number
    std::uint64_t number;  // the same as an integer, when inOneWord
    bool inOneWord;        // below 2^56: one 64-bit integer holds it
};

// Below 2^52 the value is its own integer part's conversion away from a whole number, and the final
// truncation is the conversion itself: the rounding runs on the integer the digits come from, without
// two more round trips through the floating-point truncation. The conversions are the signed ones:
// the value is far below 2^63, and the unsigned conversion costs a range test.
inline RoundedWhole roundedScaledValue(double value, int scale, double fuzz) noexcept {
    double x = value;
    multiplyByPowerOfTen(x, scale);
    if (x >= 0.0 && x < 0x1p52) [[likely]] {
        if (static_cast<double>(static_cast<std::int64_t>(x)) != x) {
            x += 0.5;
        }
        if (fuzz * x < LARGEST_NUDGE) {
            x *= 1.0 + fuzz;
        }
        return {0.0, static_cast<std::uint64_t>(static_cast<std::int64_t>(x)), true};
    }
    if (x != std::trunc(x) || std::isnan(x)) {
        x += 0.5;
    }
    if (fuzz * x < LARGEST_NUDGE) {
        x *= 1.0 + fuzz;
    }
    const double whole = std::trunc(x);
    if (whole < limbs::TWO_POW_56) {
        return {whole, whole > 0.0 ? static_cast<std::uint64_t>(whole) : 0, true};
    }
    return {whole, 0, false};
}

}  // namespace kivo::format::rounding
