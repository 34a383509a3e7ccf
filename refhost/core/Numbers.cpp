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
    if (!(magnitude > 0.0) || magnitude == HUGE_VAL) {
        return FLOOR_LOG10_NONE;
    }
    // The binary exponent gives the answer to within one; the table of the smallest doubles not below
    // each power of ten settles it exactly, also for values next to a power of ten.
    // The exponent is read from the double's bits (frexp's, one more than the unbiased one), and
    // floor(k log10 2) is (k * 78913) >> 18 for every |k| below 1100, the same integer as the floor of
    // the double product. Subnormals, with no exponent in their bits, ask frexp.
    const auto bits = std::bit_cast<std::uint64_t>(magnitude);
    int binaryExponent = static_cast<int>(bits >> 52) - 1022;
    if ((bits >> 52) == 0) {
        std::frexp(magnitude, &binaryExponent);
    }
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

}  // namespace kivo
