#include <bit>
#include <cmath>
#include <cstdint>

#include "kivox/Numbers.h"

namespace kivo {

namespace {
#include "Pow10Tables.inc"

double smallestNotBelowPow10(int e) noexcept {
    if (e > POW10_TABLE_MAX) {
        return HUGE_VAL;
    }
    return SMALLEST_NOT_BELOW_POW10[e - POW10_TABLE_MIN];
}

// Zero, NaN and the infinities have no logarithm; a subnormal's binary exponent comes from frexp, and
// the table of the smallest doubles not below each power of ten settles the decimal one.
int floorLog10OfZeroSubnormalOrNonFinite(double magnitude) noexcept {
    if (!(magnitude > 0.0) || magnitude == HUGE_VAL) {
        return FLOOR_LOG10_NONE;
    }
    int binaryExponent = 0;
    std::frexp(magnitude, &binaryExponent);
    int e = ((binaryExponent - 1) * 78913) >> 18;
    if (e < POW10_TABLE_MIN) {
        e = POW10_TABLE_MIN;
    }
    while (magnitude >= smallestNotBelowPow10(e + 1)) {
        ++e;
    }
    while (e > POW10_TABLE_MIN && magnitude < smallestNotBelowPow10(e)) {
        --e;
    }
    return e;
}
}  // namespace

double pow10(int e) noexcept {
    if (e < POW10_TABLE_MIN) {
        return 0.0;
    }
    if (e > POW10_TABLE_MAX) {
        return HUGE_VAL;
    }
    return NEAREST_POW10[e - POW10_TABLE_MIN];
}

std::int64_t int64Pow10(int e) noexcept {
    static constexpr std::int64_t powers[19] = {1LL,
                                                10LL,
                                                100LL,
                                                1000LL,
                                                10000LL,
                                                100000LL,
                                                1000000LL,
                                                10000000LL,
                                                100000000LL,
                                                1000000000LL,
                                                10000000000LL,
                                                100000000000LL,
                                                1000000000000LL,
                                                10000000000000LL,
                                                100000000000000LL,
                                                1000000000000000LL,
                                                10000000000000000LL,
                                                100000000000000000LL,
                                                1000000000000000000LL};
    return e >= 0 && e <= 18 ? powers[e] : 0;
}

int floorLog10(const double& value) noexcept {
    const double magnitude = std::fabs(value);
    const auto biased = static_cast<int>(std::bit_cast<std::uint64_t>(magnitude) >> 52);
    if (biased == 0 || biased == 0x7FF) [[unlikely]] {
        return floorLog10OfZeroSubnormalOrNonFinite(magnitude);
    }
    // A normal value lies in [2^k, 2^(k+1)) with k read from its bits. floor(k log10 2), which is
    // (k * 78913) >> 18 for every |k| below 1100, is at most the answer and at most one below it, so
    // one comparison with the smallest double not below the next power settles it. The comparison is
    // kept a branch (the empty asm stops the compiler from turning it into a flag add): predicted, it
    // lets the caller's scaling, which waits on the answer, start before the table is read.
    const int k = biased - 1023;
    const int e = (k * 78913) >> 18;
    if (magnitude >= SMALLEST_NOT_BELOW_POW10[e + 1 - POW10_TABLE_MIN]) {
        int next = e + 1;
        asm("" : "+r"(next));
        return next;
    }
    return e;
}

}  // namespace kivo
