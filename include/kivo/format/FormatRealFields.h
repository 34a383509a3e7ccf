#pragma once

#include <cstdint>

#include "kivo/Export.h"

namespace kivo::format {

// A real number laid out for a fixed-width field, before any character is written. A layout routine
// fills it (blanks, sign, zeros, significant digits, point, exponent), asks it for the digits with
// writeDigitBuffer, lets it tidy itself, and then outputReal or outputSeparatedReal writes the text.
//
// The digit run is leadingZeroes zeros, the numDigits characters of digits, then trailingZeroes
// zeros; its length is L. The value shown is that run read as an integer times
// 10^(exponent - (L - pointPosition)).
struct KIVO_EXPORT FormatRealFields {
    // Where outputReal puts the sign of a negative number; any other value writes no sign.
    enum NegativePosition : int { BEFORE = 0, AFTER = 1 };

    std::int32_t leadingBlanks;  // negative: the number does not fit the width
    bool isNegative;
    std::int32_t leadingZeroes;
    std::int32_t numDigits;  // 0..32 characters of digits in use
    std::int32_t trailingZeroes;
    bool hasDecimalPoint;
    std::int32_t pointPosition;  // characters of the digit run before the point
    char digits[32];             // '0'..'9', left-aligned, not terminated
    std::int32_t exponentDigits;  // 0: no exponent; else 1, 2 or 3 digits written
    bool showExponentSign;
    std::int32_t exponent;

    // Every field 0/false; the digit characters are left as they are (only numDigits of them count).
    FormatRealFields();
    void clear();

    // Equal scalar fields and equal digits up to numDigits.
    bool operator==(const FormatRealFields& other) const;
    bool invariant() const;

    // value *= 10^power, without a power of ten outside the double range.
    static void multPow10(double& value, int power);

    // Produces the planned digits of the non-negative value (see the source for the steps). True when
    // the rounded value fitted the plan or a spare leading zero took the carry; false when the layout
    // had to grow by one place.
    bool writeDigitBuffer(double value, int extraScale, double fuzz);
    void stripTrailingZeroes(bool dropPoint);
    void useExponentAfterOverflow();
    void setExponentDigits();

    // Write leadingBlanks + the field's characters at out and advance it; no terminator.
    // Example: outputReal of getRealForBestFormat(-2.5, 5) with '.', '-', AFTER -> " 2.5-"
    void outputReal(char*& out, char pointChar, char signChar, NegativePosition where) const;
    // The same with separatorChar between groups of three integer digits, which the width did not count.
    // Example: outputSeparatedReal of getRealForBestFormat(1234567, 9) with '.', ',', '-' -> "  1,234,567"
    void outputSeparatedReal(char*& out, char pointChar, char separatorChar, char signChar) const;
};

}  // namespace kivo::format
