#include "kivo/format/FormatRealFields.h"

#include <cmath>
#include <cstring>

#include "formats/DecimalDigits.h"
#include "formats/DecimalLimbs.h"
#include "formats/FieldWriting.h"
#include "formats/FormatRealFieldsFailures.h"
#include "formats/ScaledRounding.h"
#include "kivox/Numbers.h"

namespace kivo::format {

namespace {

constexpr int DIGIT_CAPACITY = 32;

int runLength(const FormatRealFields& f) { return f.leadingZeroes + f.numDigits + f.trailingZeroes; }

// The exponent's magnitude in exactly `count` digits, leading zeros in front; higher digits are lost.
void writeExponentValue(char*& out, int magnitude, int count) {
    for (int i = count - 1; i >= 0; --i) {
        out[i] = field::DIGITS[magnitude % 10];
        magnitude /= 10;
    }
    out += count;
}

// `count` characters of the run: the digits from source, or zeros when source is null.
void writeRunPart(char*& out, const char* source, int from, int count) {
    if (source == nullptr) {
        field::repeat(out, count - from, '0');
    } else {
        field::text(out, source + from, count - from);
    }
}

// The digit run with the point inserted after `pointPosition` of its characters (when shown), part by
// part. A point on the boundary of two parts is written with the earlier part.
void writeDigitRunInParts(const FormatRealFields& f, char*& out, char pointChar) {
    int before = f.hasDecimalPoint ? f.pointPosition : -1;
    const auto part = [&](const char* source, int count) {
        if (before >= 0 && before <= count) {
            writeRunPart(out, source, 0, before);
            *out++ = pointChar;
            writeRunPart(out, source, before, count);
            before = -1;
            return;
        }
        writeRunPart(out, source, 0, count);
        if (before >= 0) {
            before -= count;
        }
    };
    part(nullptr, f.leadingZeroes);
    part(f.digits, f.numDigits);
    part(nullptr, f.trailingZeroes);
}

// The longest digit run laid out whole before it is written.
constexpr int ASSEMBLED_RUN = 64;

// The same run, assembled first when it is of a field's length (zeros, then the digits over them) and
// written in at most two moves around the point.
void writeDigitRun(const FormatRealFields& f, char*& out, char pointChar) {
    const bool pointAmongDigits = f.pointPosition >= 0 && f.pointPosition <= f.numDigits;
    if (f.leadingZeroes == 0 && f.numDigits >= 0 && f.numDigits <= DIGIT_CAPACITY && f.trailingZeroes >= 0 &&
        (pointAmongDigits || !f.hasDecimalPoint)) [[likely]] {
        // No zeros in front and the point, if shown, among the digits: the digits go straight out.
        if (f.hasDecimalPoint) {
            field::text(out, f.digits, f.pointPosition);
            *out++ = pointChar;
            field::text(out, f.digits + f.pointPosition, f.numDigits - f.pointPosition);
        } else {
            field::text(out, f.digits, f.numDigits);
        }
        field::repeat(out, f.trailingZeroes, '0');
        return;
    }
    const int length = runLength(f);
    if (length > ASSEMBLED_RUN || f.leadingZeroes < 0 || f.numDigits < 0 || f.trailingZeroes < 0 ||
        f.numDigits > DIGIT_CAPACITY) {
        writeDigitRunInParts(f, out, pointChar);
        return;
    }
    char run[ASSEMBLED_RUN];
    std::memset(run, '0', sizeof run);
    char* digitsAt = run + f.leadingZeroes;
    field::text(digitsAt, f.digits, f.numDigits);
    if (!f.hasDecimalPoint || f.pointPosition < 0 || f.pointPosition > length) {
        field::text(out, run, length);
        return;
    }
    field::text(out, run, f.pointPosition);
    *out++ = pointChar;
    field::text(out, run + f.pointPosition, length - f.pointPosition);
}

// The integer characters of a separated field: `count` characters taken from the digits (then zeros),
// with a separator after the first group and after every further three, never after the last.
void writeGroupedInteger(char*& out, const char* digits, int numDigits, int count, int firstGroup,
                         char separatorChar) {
    int untilSeparator = firstGroup;
    for (int i = 0; i < count; ++i) {
        if (untilSeparator == 0) {
            *out++ = separatorChar;
            untilSeparator = 3;
        }
        *out++ = i < numDigits ? digits[i] : '0';
        --untilSeparator;
    }
}

// The lowest count digits of a whole number into run[0 .. count); true when digits are left over, that
// is when rounding carried past the digits planned. Below 2^56 (every field up to 17 significant
// digits) they come from one 64-bit integer; larger numbers are taken apart in two limbs, a digit at
// a time.
bool takeDigits(char* run, int count, const rounding::RoundedWhole& rounded) {
    if (rounded.inOneWord) {
        const std::uint64_t number = rounded.number;
        if (count <= 0) {
            return number != 0;
        }
        digits::lowestDigits(run, count, number);
        return count < digits::MOST_DIGITS_BELOW_2_POW_56 && number >= digits::POWERS_OF_TEN[count];
    }
    limbs::DecimalLimbs number(rounded.whole);
    for (int i = count - 1; i >= 0; --i) {
        run[i] = field::DIGITS[number.popDigit()];
    }
    return !number.isZero();
}

}  // namespace

FormatRealFields::FormatRealFields() { clear(); }

void FormatRealFields::clear() {
    leadingBlanks = 0;
    isNegative = false;
    leadingZeroes = 0;
    numDigits = 0;
    trailingZeroes = 0;
    hasDecimalPoint = false;
    pointPosition = 0;
    exponentDigits = 0;
    showExponentSign = false;
    exponent = 0;
}

bool FormatRealFields::operator==(const FormatRealFields& other) const {
    if (leadingBlanks != other.leadingBlanks || isNegative != other.isNegative ||
        leadingZeroes != other.leadingZeroes || numDigits != other.numDigits ||
        trailingZeroes != other.trailingZeroes || hasDecimalPoint != other.hasDecimalPoint ||
        pointPosition != other.pointPosition) {
        return false;
    }
    const int compared = numDigits < 0 ? 0 : (numDigits > DIGIT_CAPACITY ? DIGIT_CAPACITY : numDigits);
    for (int i = 0; i < compared; ++i) {
        if (digits[i] != other.digits[i]) {
            return false;
        }
    }
    return exponentDigits == other.exponentDigits && showExponentSign == other.showExponentSign &&
           exponent == other.exponent;
}

bool FormatRealFields::invariant() const {
    if (leadingBlanks < 0) {
        return true;  // a record marked as not fitting needs nothing else
    }
    const int length = runLength(*this);
    if (leadingZeroes < 0 || static_cast<unsigned>(numDigits) > DIGIT_CAPACITY || trailingZeroes < 0 ||
        pointPosition < 0 || pointPosition > length) {
        return false;
    }
    if (!hasDecimalPoint && pointPosition != length) {
        return false;
    }
    if (exponentDigits != 0) {
        return exponentDigits >= 1 && exponentDigits <= 3;
    }
    return exponent == 0;
}

void FormatRealFields::multPow10(double& value, int power) { rounding::multiplyByPowerOfTen(value, power); }

bool FormatRealFields::writeDigitBuffer(double value, int extraScale, double fuzz) {
    const int scale = extraScale + leadingZeroes + numDigits - pointPosition - exponent;
    const bool carried = takeDigits(digits, numDigits, rounding::roundedScaledValue(value, scale, fuzz));

    // Zeros at the low end become trailing zeros rather than stored digits.
    const int lowZeros = digits::trailingZeroCharacters(digits, numDigits);
    trailingZeroes += lowZeros;
    numDigits -= lowZeros;

    if (!carried) {
        return true;
    }
    // Rounding carried into a new leading digit: the digits taken were all zeros.
    digits[0] = '1';
    if (leadingZeroes > 0) {
        --leadingZeroes;  // a spare leading zero takes the carry: 0.96 becomes 1.0
        trailingZeroes += numDigits;
        numDigits = 1;
        return true;
    }
    if (exponentDigits == 0) {
        trailingZeroes += numDigits;
        numDigits = 1;
        ++pointPosition;
    } else if (pointPosition > 1 && !hasDecimalPoint) {
        exponent += pointPosition;
        pointPosition = 1;
        numDigits = 1;
        trailingZeroes = 0;
    } else {
        trailingZeroes = numDigits + trailingZeroes - 1;
        numDigits = 1;
        ++exponent;
    }
    return false;
}

void FormatRealFields::stripTrailingZeroes(bool dropPoint) {
    if (numDigits < 1) {
        // Rounded to zero: only the zeros of the integer part stay.
        if (pointPosition == 0) {
            pointPosition = 1;
        }
        leadingZeroes = pointPosition;
        trailingZeroes = 0;
        if (dropPoint) {
            hasDecimalPoint = false;
        }
        return;
    }
    const int significant = leadingZeroes + numDigits;
    const int zerosBeforePoint = pointPosition - significant;
    if (exponentDigits == 0) {
        if (zerosBeforePoint < 0) {
            trailingZeroes = 0;  // the point lies inside the digits and stays
            return;
        }
        trailingZeroes = zerosBeforePoint;
        if (dropPoint) {
            hasDecimalPoint = false;
        }
        return;
    }
    if (zerosBeforePoint > 0) {
        exponent += zerosBeforePoint;  // the zeros move into the exponent
        pointPosition = significant;
    }
    trailingZeroes = 0;
    if (zerosBeforePoint >= 0 && dropPoint) {
        hasDecimalPoint = false;
    }
}

void FormatRealFields::useExponentAfterOverflow() {
    trailingZeroes = 0;
    hasDecimalPoint = false;
    exponent = pointPosition - 1;
    pointPosition = 1;
    exponentDigits = exponent > 9 ? 2 : 1;
}

void FormatRealFields::setExponentDigits() {
    if (exponent >= -9 && exponent <= 9) {
        exponentDigits = 1;
    } else if (exponent >= -99 && exponent <= 99) {
        exponentDigits = 2;
    } else {
        exponentDigits = 3;
    }
}

void FormatRealFields::outputReal(char*& out, char pointChar, char signChar, NegativePosition where) const {
    field::blanks(out, leadingBlanks);
    if (isNegative && where == BEFORE) {
        *out++ = signChar;
    }
    writeDigitRun(*this, out, pointChar);
    if (exponentDigits != 0) {
        *out++ = 'E';
        int shown = exponent;
        if (showExponentSign) {
            *out++ = exponent < 0 ? '-' : '+';
            shown = exponent < 0 ? -exponent : exponent;
        } else if (shown < 0) {
            shown = -shown;  // meaningless without the sign flag; keep the digits in range
        }
        writeExponentValue(out, shown, exponentDigits);
    }
    if (isNegative && where == AFTER) {
        *out++ = signChar;
    }
}

void FormatRealFields::outputSeparatedReal(char*& out, char pointChar, char separatorChar, char signChar) const {
    field::blanks(out, leadingBlanks);
    if (isNegative) {
        *out++ = signChar;
    }
    const int p = pointPosition;
    int firstGroup = 0;
    switch (p % 3) {
        case 0:
            firstGroup = 3;
            break;
        case 1:
        case 2:
            firstGroup = p % 3;
            break;
        default:
            fail(realfields::failure::SEPARATED_POINT_POSITION);
    }
    if (numDigits >= p) {
        // The whole integer part is in the digits. The group loop tests its count only after writing a
        // group, so a short integer part still gets one separator and three more characters: callers
        // use this routine for integer parts of four digits or more.
        field::text(out, digits, firstGroup);
        int written = firstGroup;
        int groups = (p - 1) / 3;
        do {
            *out++ = separatorChar;
            field::text(out, digits + written, 3);
            written += 3;
        } while (--groups > 0);
        if (hasDecimalPoint) {
            *out++ = pointChar;
            field::text(out, digits + p, numDigits - p);
            field::repeat(out, trailingZeroes, '0');
        }
        return;
    }
    writeGroupedInteger(out, digits, numDigits, p, firstGroup, separatorChar);
    if (hasDecimalPoint) {
        *out++ = pointChar;
        field::repeat(out, trailingZeroes - (p - numDigits), '0');
    }
}

}  // namespace kivo::format
