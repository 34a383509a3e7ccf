#include "formats/DecimalDigits.h"
#include "formats/RealLayoutSteps.h"
#include "formats/ScaledRounding.h"
#include "kivo/format/RealLayouts.h"
#include "kivox/Numbers.h"

namespace kivo::format {

using namespace layout;

namespace layout {

ExponentRow smallBestRow(int width, int e) {
    switch (width) {
        case 5:
            if (e >= -8) return {2, false, e - 1};
            if (e >= -99) return {1, false, e};
            return NO_FIT;
        case 6:
            if (e >= -7) return {3, false, e - 2};
            if (e >= -98) return {2, false, e - 1};
            return {1, false, e};
        case 7:
            if (e >= -9) return {3, true, e};
            if (e >= -97) return {3, false, e - 2};
            return {2, false, e - 1};
        case 8:
            if (e >= -9) return {4, true, e};
            if (e >= -99) return {3, true, e};
            return {3, false, e - 2};
        default:
            break;
    }
    if (width < 5) {
        return NO_FIT;
    }
    const int places = e >= -9 ? width - 5 : (e >= -99 ? width - 6 : width - 7);
    return {atMost(places + 1, EXPONENT_DIGITS), true, e};
}

// The irregular rows (width 5 with e = 10 and 11, width 6 with e = 12, width 7 with e = 102) are
// deliberate: they are what the field has always shown.
//
// At width 7 and e = 102 the row splits at 1.12e102: from there on four significant digits are
// planned, below it two (one more for the blank layout). Part of the same record of what the field
// has shown, kept to the digit.
constexpr double WIDTH_7_E_102_SPLIT = 1.12e102;

ExponentRow largeRealRow(double x, int width, int e, bool blankLayout) {
    switch (width) {
        case 0:
        case 1:
        case 2:
            return NO_FIT;
        case 3:
            return e <= 9 ? ExponentRow{1, false, e} : NO_FIT;
        case 4:
            if (e <= 10) return {2, false, e - 1};
            if (e <= 99) return {1, false, e};
            return NO_FIT;
        case 5:
            if (e <= 9 || e == 11) return {3, false, e - 2};
            if (e <= 100) return {2, false, e - 1};
            return {1, false, e};
        case 6:
            if (e <= 9) return {3, true, e};
            if (e == 12) return {4, false, e - 3};
            if (e == 100 || e >= 102) return {2, false, e - 1};
            return {3, false, e - 2};
        case 7:
            if (e <= 9) return {4, true, e};
            if (e <= 99) return {3, true, e};
            if (e == 102 && x >= WIDTH_7_E_102_SPLIT) return {4, false, e - 3};
            if (e == 102 && !blankLayout) return {2, false, e - 1};
            return {3, false, e - 2};
        default:
            break;
    }
    if (width < 0) {
        return NO_FIT;
    }
    const int places = e <= 9 ? width - 4 : (e <= 99 ? width - 5 : width - 6);
    return {atMost(places + 1, EXPONENT_DIGITS), true, e};
}

void finishSmallBest(FormatRealFields& f, int width, bool carried) {
    if (carried && (width == 5 || width == 6) && f.exponent == 2 - width) {
        // 0.0009996 in width 5: 1E-3 reads better as 0.001, and fits.
        f.hasDecimalPoint = true;
        f.exponentDigits = 0;
        f.leadingZeroes = -f.exponent;
        f.exponent = 0;
        f.leadingBlanks =
            width - (f.numDigits + f.leadingBlanks + f.trailingZeroes + 1 + f.leadingZeroes + f.isNegative);
        return;
    }
    f.stripTrailingZeroes(true);
    f.setExponentDigits();
    fitToWidth(f, width);
}

bool layOutMediumDirectly(double x, int width, int e, FormatRealFields& f) {
    if (width < 4) {
        return false;
    }
    const int pointPosition = atLeast(e, 0) + 1;
    const int budget = atMost(width - 1, FIXED_DIGITS);
    const bool withPoint = budget > pointPosition;
    const int planned = withPoint ? budget : pointPosition;
    if (planned > digits::MOST_DIGITS_BELOW_2_POW_56 - 1) [[unlikely]] {
        return false;
    }
    const rounding::RoundedWhole rounded = rounding::roundedScaledValue(x, planned - pointPosition, FUZZ);
    if (!rounded.inOneWord || rounded.number == 0 || rounded.number >= digits::POWERS_OF_TEN[planned])
        [[unlikely]] {
        return false;
    }
    digits::lowestDigits(f.digits, planned, rounded.number);
    const int numDigits = planned - digits::trailingZeroCharacters(f.digits, planned);
    // Zeros at the end of the integer part stay as trailing zeros, and a point with only zeros after
    // it goes; zeros after the point go with it.
    const bool pointStays = withPoint && numDigits > pointPosition;
    const int trailingZeroes = pointStays ? 0 : pointPosition - numDigits;
    f.numDigits = numDigits;
    f.trailingZeroes = trailingZeroes;
    f.pointPosition = pointPosition;
    f.hasDecimalPoint = pointStays;
    f.leadingBlanks = width - (numDigits + trailingZeroes + static_cast<int>(pointStays));
    return true;
}

}  // namespace layout

void getZeroRealRightAligned(int width, FormatRealFields& fields) {
    fields.leadingZeroes = 1;
    fields.pointPosition = 1;
    fields.leadingBlanks = width - 1;
}

void getSmallRealForBestFormat(double x, int width, int e, FormatRealFields& fields) {
    const ExponentRow row = smallBestRow(width, e);
    if (row.digits == 0) {
        markDoesNotFit(fields);
        return;
    }
    planExponentRow(fields, row, true);
    const bool carried = !fields.writeDigitBuffer(x, 0, FUZZ);
    finishSmallBest(fields, width, carried);
}

namespace {

// Widths 2 and 3 leave out the 0 before the point of a value below one (.5, .25).
void planNarrowMedium(FormatRealFields& f, int width, int e) {
    if (e >= 0) {
        f.pointPosition = e + 1;
        if (width - 1 <= e + 1) {
            f.numDigits = e + 1;
        } else {
            f.numDigits = width - 1;
            f.hasDecimalPoint = true;
        }
        return;
    }
    f.numDigits = width - 1;
    f.hasDecimalPoint = true;
    f.pointPosition = 0;
}

void planMedium(FormatRealFields& f, int width, int e) {
    if (width < 2) {
        f.pointPosition = 1;
        f.numDigits = 1;
        return;
    }
    if (width < 4) {
        planNarrowMedium(f, width, e);
        return;
    }
    f.pointPosition = atLeast(e, 0) + 1;
    const int budget = atMost(width - 1, FIXED_DIGITS);
    if (budget <= f.pointPosition) {
        f.numDigits = f.pointPosition;
    } else {
        f.numDigits = budget;
        f.hasDecimalPoint = true;
    }
}

}  // namespace

void getMediumRealForBestFormat(double x, int width, int e, FormatRealFields& fields) {
    planMedium(fields, width, e);
    if (fields.writeDigitBuffer(x, 0, FUZZ)) {
        fields.stripTrailingZeroes(true);
        if (width == 3 && fields.pointPosition == 0 && fields.leadingZeroes == 0 && fields.numDigits == 1) {
            fields.pointPosition = 1;  // 0.5 fits width 3 with its 0
            fields.leadingZeroes = 1;
        }
        fitToWidth(fields, width);
        return;
    }
    if (width < fields.pointPosition) {
        fields.useExponentAfterOverflow();
    } else {
        fields.stripTrailingZeroes(true);
    }
    fitToWidth(fields, width);
}

void getLargeRealForBestFormat(double x, int width, int e, FormatRealFields& fields) {
    const ExponentRow row = largeRealRow(x, width, e, false);
    layOutExponentRow(fields, row, false, x, width, FUZZ);
}

void getRealForBestFormat(double x, int width, FormatRealFields& fields) {
    if (x == 0.0) {
        getZeroRealRightAligned(width, fields);
        return;
    }
    if (width == 1 && x < 0.0) {
        layOutOneCharacterNegative(x, fields);
        return;
    }
    const auto [magnitude, available, negative] = takeSign(x, width);
    x = magnitude;
    const int e = floorLog10(x);
    if (available > 4 && e < atLeast(2 - available, -5)) {
        getSmallRealForBestFormat(x, available, e, fields);
    } else if (available > e) {
        if (!layOutMediumDirectly(x, available, e, fields)) {
            getMediumRealForBestFormat(x, available, e, fields);
        }
    } else {
        getLargeRealForBestFormat(x, available, e, fields);
    }
    if (fields.leadingBlanks >= 0 && fields.numDigits == 0 && (width == 3 || width == 4) && negative) {
        ++fields.leadingBlanks;  // too narrow for -0: a plain 0
        return;
    }
    fields.isNegative = negative;
}

}  // namespace kivo::format
