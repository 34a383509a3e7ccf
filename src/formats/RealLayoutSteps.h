#pragma once

#include "kivo/format/FormatRealFields.h"

// Steps shared by the real layouts: the field's character count, exponent plans and the fixed plan
// with its cap on significant digits.
namespace kivo::format::layout {

// Rounding nudge of the digit conversion: the E layouts and small percent values use the larger one.
inline constexpr double FUZZ = 5e-16;
inline constexpr double E_FUZZ = 1.8e-15;

// Exponent layouts plan at most this many significant digits, fixed layouts at most FIXED_DIGITS
// unless the integer part alone is longer.
inline constexpr int EXPONENT_DIGITS = 14;
inline constexpr int FIXED_DIGITS = 15;

inline int fieldCharacterCount(const FormatRealFields& f) {
    int count = f.isNegative + f.leadingZeroes + f.numDigits + f.trailingZeroes + f.hasDecimalPoint;
    if (f.exponentDigits != 0) {
        count += f.exponentDigits + (f.showExponentSign ? 2 : 1);
    }
    return count;
}

inline void fitToWidth(FormatRealFields& f, int width) { f.leadingBlanks = width - fieldCharacterCount(f); }

inline void markDoesNotFit(FormatRealFields& f) { f.leadingBlanks = -1; }

inline int atLeast(int a, int b) { return a > b ? a : b; }
inline int atMost(int a, int b) { return a < b ? a : b; }

// One row of an exponent table: `digits` significant digits (0: does not fit), the point after the
// first of them or none, and the exponent shown.
struct ExponentRow {
    int digits;
    bool point;
    int exponent;
};
inline constexpr ExponentRow NO_FIT{0, false, 0};

// Plans the row on a cleared record; a plan without point has the point after all its digits.
inline void planExponentRow(FormatRealFields& f, const ExponentRow& row, bool signedExponent) {
    f.numDigits = row.digits;
    f.hasDecimalPoint = row.point;
    f.pointPosition = row.point ? 1 : row.digits;
    f.exponent = row.exponent;
    f.showExponentSign = signedExponent;
    f.setExponentDigits();
}

// A negative value in a one-character field, where no sign fits: "0" when it rounds to zero, else it
// does not fit.
inline void layOutOneCharacterNegative(double x, FormatRealFields& f) {
    if (x > -0.5) {
        f.numDigits = 1;
        f.pointPosition = 1;
        f.digits[0] = '0';
    } else {
        markDoesNotFit(f);
    }
}

// The magnitude to lay out and the places left for it once a negative value's sign has its place.
struct SignedPlaces {
    double magnitude;
    int available;
    bool negative;
};
inline SignedPlaces takeSign(double x, int width) {
    return x < 0.0 ? SignedPlaces{-x, width - 1, true} : SignedPlaces{x, width, false};
}

// A whole exponent-form layout: "does not fit" for a row without digits, else the row planned, its
// digits rounded in, trailing zeros given up and the exponent sized for the field.
inline void layOutExponentRow(FormatRealFields& f, const ExponentRow& row, bool signedExponent, double x, int width,
                              double fuzz) {
    if (row.digits == 0) {
        markDoesNotFit(f);
        return;
    }
    planExponentRow(f, row, signedExponent);
    f.writeDigitBuffer(x, 0, fuzz);
    f.stripTrailingZeroes(true);
    f.setExponentDigits();
    fitToWidth(f, width);
}

// A fixed plan: `places` characters of the run after the leading zeros, of which at most
// max(integer places, FIXED_DIGITS) are significant digits and the rest trailing zeros.
inline void planFixedPlaces(FormatRealFields& f, int places) {
    const int cap = atLeast(f.pointPosition - f.leadingZeroes, FIXED_DIGITS);
    f.numDigits = atMost(places, cap);
    f.trailingZeroes = places - f.numDigits;
}

// The small BEST table, shared with the small D and small percent layouts (width >= 5, e < 0).
ExponentRow smallBestRow(int width, int e);

// The large BEST table (width <= e); the blank layout differs in one row, at width 7 and e = 102.
ExponentRow largeRealRow(double x, int width, int e, bool blankLayout);

// The small BEST layout after its plan: the plain-notation fallback for a carry at widths 5 and 6,
// else trailing zeros stripped and the exponent sized.
void finishSmallBest(FormatRealFields& f, int width, bool carried);

// The medium BEST layout (width >= 4, e < width, not the small layout) when its digits neither carry
// nor round away to nothing and one word holds them: the common case, worked out in locals and stored
// once, without the round trips through the record that the general steps make. It fills a cleared
// record as getMediumRealForBestFormat would and returns true; otherwise it returns false, with the
// record untouched apart from its digit characters, for the general steps to lay out.
bool layOutMediumDirectly(double x, int width, int e, FormatRealFields& f);

}  // namespace kivo::format::layout
