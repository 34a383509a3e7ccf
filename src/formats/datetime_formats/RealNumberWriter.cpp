#include <cstdint>

#include "formats/datetime_formats/DatetimeFormatsFailures.h"
#include "formats/datetime_formats/TimeFieldWriting.h"
#include "kivo/format/Missing.h"
#include "kivo/format/datetime/TimeWriters.h"

namespace kivo::format::datetime {

namespace {

// 10^-1 ... 10^-15: the fraction's first significant digit lies after as many zeros as there are
// entries above it.
constexpr double NEGATIVE_POWERS[15] = {1e-1, 1e-2,  1e-3,  1e-4,  1e-5,  1e-6,  1e-7, 1e-8,
                                        1e-9, 1e-10, 1e-11, 1e-12, 1e-13, 1e-14, 1e-15};

// A fraction carries at most this many significant digits, integer digits included.
constexpr int SIGNIFICANT_DIGITS = 15;

// Digits of the integer part that follow its leading zeros, as written in intWidth positions.
int significantIntegerDigits(std::int32_t integer, int intWidth) noexcept {
    if (intWidth <= 0) {
        return 0;
    }
    const std::int64_t shown = intWidth >= 18 ? integer : integer % int64Pow10(intWidth);
    return numberOfDigits(static_cast<long long>(shown));
}

}  // namespace

int numberOfLeadingZeroes(const double& x) {
    // Four levels of a balanced tree over the fifteen thresholds, each step halving what is left.
    int zeros = 0;
    if (x < NEGATIVE_POWERS[zeros + 7]) {
        zeros += 8;
    }
    if (x < NEGATIVE_POWERS[zeros + 3]) {
        zeros += 4;
    }
    if (x < NEGATIVE_POWERS[zeros + 1]) {
        zeros += 2;
    }
    if (x < NEGATIVE_POWERS[zeros]) {
        zeros += 1;
    }
    return zeros;
}

void writeRealNumber(char*& out, double x, int intWidth, int decimals) {
    // The callers' values stay far inside 32 bits; anything larger wraps (rather than being undefined)
    // and then trips the scaled-fraction check below.
    const auto integer = static_cast<std::int32_t>(static_cast<std::int64_t>(x));
    timefield::lowDigits(out, static_cast<std::uint64_t>(integer), intWidth);
    *out++ = '.';

    const double fraction = x - integer;
    const int significant = significantIntegerDigits(integer, intWidth);
    int zeros = 0;
    if (significant == 0 && fraction < 0.1) {
        zeros = numberOfLeadingZeroes(fraction);
        zeros = zeros < decimals ? zeros : decimals;
        field::repeat(out, zeros, '0');
    }
    const int remaining = decimals - zeros;
    const int digits = remaining < SIGNIFICANT_DIGITS - significant ? remaining : SIGNIFICANT_DIGITS - significant;

    // Truncated, not rounded: the caller has added its half unit already.
    auto scaled = static_cast<std::int64_t>(pow10(digits + zeros) * fraction);
    const std::int64_t limit = int64Pow10(digits);
    if (scaled >= limit) {
        // Only floating-point error can get here, and then exactly to the limit: show all nines.
        if (scaled != limit) {
            fail(failure::SCALED_FRACTION);
        }
        scaled = limit - 1;
    }
    timefield::lowDigits(out, static_cast<std::uint64_t>(scaled), digits);
    field::repeat(out, remaining - digits, '0');
}

}  // namespace kivo::format::datetime
