#include "formats/RealLayoutSteps.h"
#include "kivo/format/RealLayouts.h"
#include "kivox/Numbers.h"

namespace kivo::format {

using namespace layout;

namespace {

// Digits after the point for a width of at most three.
int narrowDigitsAfterPoint(int width, int d, int e, bool negative) {
    const int t = e >= 0 ? e : -1;
    if (negative && width == 3 && e == -1 && d == 1) {
        return width - t - 3;
    }
    return width - t - 2;
}

// The general rule: half of the places beyond the wanted decimals go to the decimals, fewer as the
// integer part grows, with the corrections narrow fields have always had.
int regularDigitsAfterPoint(int s, int d, int e, bool negative) {
    int r = s - 3;
    const int h = (s - d - 1) / 2 + e;
    if (h < 0) {
        if (!negative && s - d <= -e) {
            r = s - 2;
        }
        return r;
    }
    const int q = atLeast(s - d - 2, 1);
    const int m = atLeast(h - 1, 0);
    r = (d + s - 3) / 2 - q * (m / q);
    if (s <= 11) {
        if (d + 2 == s) {
            if (e == 0) ++r;
            if (negative) --r;
        }
        if (s != 11 && d + 1 == s) {
            if (e > 0 && e <= d - 1) --r;
            if (negative) --r;
        }
    }
    return r;
}

// The medium D plan; returns the places of the run after the leading zeros.
int planDPlaces(FormatRealFields& f, int width, int e, int k) {
    if (k < 1) {
        f.pointPosition = atLeast(e, 0) + 1;
        return f.pointPosition;
    }
    f.hasDecimalPoint = true;
    if (e >= 0) {
        f.pointPosition = e + 1;
        return e + 1 + k;
    }
    f.pointPosition = 0;
    f.leadingZeroes = atMost(-e - 1, k);
    const int places = k - f.leadingZeroes;
    if (k + 1 < width) {
        f.pointPosition = 1;  // 0.0012 rather than .0012 when there is room
        ++f.leadingZeroes;
    }
    return places;
}

// Lays out x with exponent e; false when the medium layout asks for the next power of ten.
bool layOutD(double x, int width, int decimals, int e, bool negative, FormatRealFields& fields) {
    const int k = dFormatDigitsAfterPoint(width, decimals, e, negative);
    switch (k) {
        case D_USE_SMALL:
            getSmallRealForDFormat(x, width, e, fields);
            return true;
        case D_DOES_NOT_FIT:
            markDoesNotFit(fields);
            return true;
        case D_USE_LARGE_BLANK:
            getLargeRealForBlankFormat(x, width, e, fields);
            return true;
        default:
            return getMediumRealForDFormat(x, width, decimals, e, k, fields);
    }
}

// A value at or above this multiple of the next power of ten is laid out as that power. With the host's
// exact floor logarithm no value of the decade reaches it; the step stays for a coarser logarithm.
constexpr double NEXT_POWER_MARGIN = 9.9999999999769;

}  // namespace

int dFormatDigitsAfterPoint(int width, int decimals, int e, bool negative) {
    const int s = negative ? width + 1 : width;
    const int d = decimals == 0 ? 3 : decimals;
    if (width <= e) {
        return width < 3 ? D_DOES_NOT_FIT : D_USE_LARGE_BLANK;
    }
    int r = 0;
    if (d > 9) {
        if (e < -5) {
            return width < 3 ? D_DOES_NOT_FIT : D_USE_SMALL;
        }
        r = atMost(width - 2, 14) - atLeast(e, 0);
    } else if (width <= 3) {
        r = narrowDigitsAfterPoint(width, d, e, negative);
    } else {
        if (atMost(atLeast(s - d - 2, 5), width - 2) + e < 0) {
            return width == 4 ? 2 : D_USE_SMALL;
        }
        r = regularDigitsAfterPoint(s, d, e, negative);
    }
    return r > 0 ? r : -1;
}

// The small D layout is the small BEST layout.
void getSmallRealForDFormat(double x, int width, int e, FormatRealFields& fields) {
    getSmallRealForBestFormat(x, width, e, fields);
}

bool getMediumRealForDFormat(double x, int width, int decimals, int e, int digitsAfterPoint,
                             FormatRealFields& fields) {
    planFixedPlaces(fields, planDPlaces(fields, width, e, digitsAfterPoint));
    if (!fields.writeDigitBuffer(x, 0, FUZZ)) {
        if (fields.pointPosition <= width) {
            return false;
        }
        fields.useExponentAfterOverflow();
    } else if (decimals > 9) {
        fields.stripTrailingZeroes(true);
    }
    fitToWidth(fields, width);
    return true;
}

void getRealForDFormat(double x, int width, int decimals, FormatRealFields& fields) {
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
    int e = floorLog10(x);
    if (e < 308 && x >= NEXT_POWER_MARGIN * pow10(e + 1)) {
        x = pow10(e + 1);
        e += 1;
    }
    if (!layOutD(x, available, decimals, e, negative, fields)) {
        // Rounding carried into a new integer digit: lay out the next power of ten afresh.
        fields.clear();
        if (!layOutD(pow10(e + 1), available, decimals, e + 1, negative, fields)) {
            markDoesNotFit(fields);  // a power of ten cannot carry; never leave a half-made record
        }
    }
    fields.isNegative = negative;
}

}  // namespace kivo::format
