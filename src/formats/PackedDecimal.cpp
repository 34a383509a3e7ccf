#include "kivo/format/PackedDecimal.h"

#include <cmath>

#include "formats/DecimalLimbs.h"
#include "kivox/Numbers.h"

namespace kivo::format {

namespace {

// The rounded, scaled value as digits, or nothing when it cannot fit `count` digits: a value that
// rounds to all nines takes that path too (its fill is the same nines), and so does a NaN.
bool roundedDigits(double value, int count, int decimals, limbs::DecimalLimbs& number) {
    if (decimals > 0) {
        value *= pow10(decimals);
    }
    const double rounded = value + 0.5;
    if (!(rounded < pow10(count) - 1.0)) {
        return false;
    }
    number = limbs::DecimalLimbs(std::trunc(rounded));
    return true;
}

void fillPackedNines(char* out, int count) {
    for (int i = 0; i < count / 2; ++i) {
        out[i] = static_cast<char>(0x99);
    }
    if (count % 2 != 0) {
        out[count / 2] = static_cast<char>(0x90);
    }
}

void fillZonedNines(char* out, int count, char zone) {
    for (int i = 0; i < count; ++i) {
        out[i] = static_cast<char>(zone + 9);
    }
}

}  // namespace

void writePackedDecimal(char* out, double value, int digits, int decimals) {
    if (digits <= 0) {
        return;
    }
    limbs::DecimalLimbs number(0.0);
    if (!roundedDigits(value, digits, decimals, number)) {
        fillPackedNines(out, digits);
        return;
    }
    // Digit i (0 most significant) goes to byte i / 2: high nibble for even i, low nibble for odd i.
    // The last digit of an odd count leaves the low nibble 0 for the caller's sign.
    for (int i = digits - 1; i >= 0; --i) {
        const int digit = number.popDigit();
        unsigned char& byte = reinterpret_cast<unsigned char&>(out[i / 2]);
        if (i % 2 != 0) {
            byte = static_cast<unsigned char>(digit);
        } else if (i == digits - 1) {
            byte = static_cast<unsigned char>(digit << 4);
        } else {
            byte = static_cast<unsigned char>(byte | digit << 4);
        }
    }
    if (!number.isZero()) {
        fillPackedNines(out, digits);
    }
}

void writeZonedDecimal(char* out, double value, int digits, int decimals, char zone) {
    if (digits <= 0) {
        return;
    }
    limbs::DecimalLimbs number(0.0);
    if (!roundedDigits(value, digits, decimals, number)) {
        fillZonedNines(out, digits, zone);
        return;
    }
    for (int i = digits - 1; i >= 0; --i) {
        out[i] = static_cast<char>(zone + number.popDigit());
    }
    if (!number.isZero()) {
        fillZonedNines(out, digits, zone);
    }
}

}  // namespace kivo::format
