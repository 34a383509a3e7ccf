#include "formats/RealLayoutSteps.h"
#include "kivo/format/RealLayouts.h"
#include "kivox/Numbers.h"

namespace kivo::format {

using namespace layout;

namespace {

// Significant digits beyond this many are written as zeros in a wide field.
constexpr int E_WIDE_DIGITS = 14;

struct EPlan {
    int digits;
    int zeros;
    int blanks;
};

// One digit before the point; two exponent digits for |e| <= 99, three above. A positive value
// keeps a blank in front (the place of a sign) unless the field is 7 wide.
EPlan planE(int width, int e, bool negative) {
    const bool twoExponentDigits = e >= -99 && e <= 99;
    if (twoExponentDigits && (width == 7 || negative)) {
        const int zeros = atLeast(width - 5 - E_WIDE_DIGITS, 0);
        return {width - 5 - zeros, zeros, 0};
    }
    const int zeros = atLeast(width - 6 - E_WIDE_DIGITS, 0);
    return {width - 6 - zeros, zeros, twoExponentDigits ? 1 : 0};
}

void planEWithPoint(FormatRealFields& f, const EPlan& plan, int e) {
    f.numDigits = plan.digits;
    f.trailingZeroes = plan.zeros;
    f.hasDecimalPoint = true;
    f.pointPosition = 1;
    f.exponent = e;
    f.showExponentSign = true;
    f.exponentDigits = e >= -99 && e <= 99 ? 2 : 3;
}

// Width 6 cannot hold a point and a signed three-digit exponent: digits and an exponent without sign.
void planESixWide(FormatRealFields& f, int digits, int exponent, bool signedExponent) {
    f.numDigits = digits;
    f.pointPosition = digits;
    f.exponent = exponent;
    f.showExponentSign = signedExponent;
    const int magnitude = exponent < 0 ? -exponent : exponent;
    f.exponentDigits = magnitude > 99 ? 3 : 2;
}

bool fitsPlan(const EPlan& plan) { return plan.digits >= 1; }

}  // namespace

void getZeroRealforEFormat(int width, FormatRealFields& fields) {
    if (width < 7) {
        markDoesNotFit(fields);  // 0.0E+00 is the shortest zero
        return;
    }
    fields.leadingZeroes = 1;
    fields.hasDecimalPoint = true;
    fields.pointPosition = 1;
    fields.exponentDigits = 2;
    fields.showExponentSign = true;
    fields.exponent = 0;
    fields.trailingZeroes = atLeast(width - 7, 1);
    fields.leadingBlanks = width > 7 ? 1 : 0;
}

void getSmallRealForEFormat(double x, bool negative, int width, int e, FormatRealFields& fields) {
    if (width == 6 && e < -99) {
        planESixWide(fields, 1, e, true);  // 1E-100
        const bool carried = !fields.writeDigitBuffer(x, 0, E_FUZZ);
        if (carried && fields.exponent == -99) {
            fields.exponentDigits = 2;
        }
        fitToWidth(fields, width);
        return;
    }
    const EPlan plan = planE(width, e, negative);
    if (!fitsPlan(plan)) {
        markDoesNotFit(fields);
        return;
    }
    planEWithPoint(fields, plan, e);
    fields.leadingBlanks = plan.blanks;
    const bool carried = !fields.writeDigitBuffer(x, 0, E_FUZZ);
    if (carried && fields.exponent == -99 && fields.exponentDigits == 3) {
        // One exponent digit fewer: its place becomes a leading blank.
        fields.exponentDigits = 2;
        fields.leadingBlanks = plan.blanks + 1;
    }
}

void getLargeRealForEFormat(double x, bool negative, int width, int e, FormatRealFields& fields) {
    if (width == 6 && e > 99) {
        // Width 6 keeps its own rows: 123E99 for e = 101, else two digits.
        if (e == 101) {
            planESixWide(fields, 3, 99, false);
        } else {
            planESixWide(fields, 2, e - 1, false);
        }
        fields.writeDigitBuffer(x, 0, E_FUZZ);
        fields.stripTrailingZeroes(true);
        fields.exponentDigits = fields.exponent > 99 ? 3 : 2;  // a carry or the stripped zeros may add one
        fitToWidth(fields, width);
        return;
    }
    const EPlan plan = planE(width, e, negative);
    if (!fitsPlan(plan)) {
        markDoesNotFit(fields);
        return;
    }
    planEWithPoint(fields, plan, e);
    const bool carried = !fields.writeDigitBuffer(x, 0, E_FUZZ);
    if (carried && fields.exponent == 100 && fields.exponentDigits == 2) {
        fields.exponentDigits = 3;
        if (fields.trailingZeroes > 0) {
            --fields.trailingZeroes;  // its place goes to the third exponent digit
        } else {
            fields.showExponentSign = false;
            fields.hasDecimalPoint = false;
            fields.stripTrailingZeroes(true);
        }
    }
    fitToWidth(fields, width);
}

void getRealForEFormat(double x, int width, FormatRealFields& fields) {
    if (x == 0.0) {
        getZeroRealforEFormat(width, fields);
        return;
    }
    const bool negative = x < 0.0;
    int available = width;
    if (negative) {
        available = width - 1;
        x = -x;
    }
    const int e = floorLog10(x);
    if (e < 0) {
        getSmallRealForEFormat(x, negative, available, e, fields);
    } else {
        getLargeRealForEFormat(x, negative, available, e, fields);
    }
    fields.isNegative = negative;
}

}  // namespace kivo::format
