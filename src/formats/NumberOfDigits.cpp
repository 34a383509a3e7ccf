#include "kivo/format/Missing.h"

namespace kivo::format {

namespace {

// Digits of a value in 1..9999, by comparisons.
int digitsBelow10000(int value) noexcept {
    if (value < 100) {
        return value < 10 ? 1 : 2;
    }
    return value < 1000 ? 3 : 4;
}

// Digits of a value in 1..99999999.
int digitsBelow100000000(int value) noexcept {
    return value < 10000 ? digitsBelow10000(value) : 4 + digitsBelow10000(value / 10000);
}

}  // namespace

int numberOfDigits(int value) {
    if (value < 1) {
        return 0;
    }
    if (value <= 99999999) {
        return digitsBelow100000000(value);
    }
    return value / 100000000 <= 9 ? 9 : 10;
}

int numberOfDigits(long long value) {
    if (value < 1) {
        return 0;
    }
    constexpr long long E8 = 100000000LL;
    constexpr long long E16 = E8 * E8;
    if (value < E8) {
        return digitsBelow100000000(static_cast<int>(value));
    }
    if (value < E16) {
        return 8 + digitsBelow100000000(static_cast<int>(value / E8));
    }
    return 16 + digitsBelow10000(static_cast<int>(value / E16));
}

}  // namespace kivo::format
