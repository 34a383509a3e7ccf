#include "formats/RealLayoutSteps.h"
#include "kivo/format/RealLayouts.h"
#include "kivox/Numbers.h"

namespace kivo::format {

using namespace layout;

namespace {

// The plan of a fixed number of decimals; returns the places of the run after the leading zeros.
int planBlankPlaces(FormatRealFields& f, int width, int decimals, int e) {
    if (e >= 0) {
        f.pointPosition = e + 1;
        const int room = width - 2 - e;
        if (room > 0 && decimals != 0) {
            f.hasDecimalPoint = true;
            return e + 1 + atMost(room, decimals);
        }
        return e + 1;
    }
    if (width == 1 || decimals == 0) {
        f.pointPosition = 1;
        return 1;
    }
    f.hasDecimalPoint = true;
    if (decimals + 1 < width) {
        // 0.05: the 0 before the point and the zeros after it lead the digits.
        f.pointPosition = 1;
        f.leadingZeroes = -e;
        const int places = decimals + e + 1;
        if (places >= 1) {
            return places;
        }
        f.leadingZeroes = decimals + 1;
        return 0;
    }
    // No room for the 0 before the point: .05
    f.pointPosition = 0;
    f.leadingZeroes = -e - 1;
    const int places = e + width;
    if (places >= 1) {
        return places;
    }
    f.leadingZeroes = width - 1;
    return 0;
}

// A carry made the run one place longer: give up a decimal when the field would overflow, and the
// point with it when nothing would be left after it.
void absorbBlankCarry(FormatRealFields& f, int width) {
    if (f.pointPosition > width) {
        f.useExponentAfterOverflow();
        return;
    }
    if (f.hasDecimalPoint && f.trailingZeroes + 2 > width) {
        const int zerosBefore = f.trailingZeroes;
        --f.trailingZeroes;
        if (f.pointPosition == zerosBefore) {
            f.hasDecimalPoint = false;
        }
    }
}

}  // namespace

void getMediumRealForBlankFormat(double x, int width, int decimals, int e, FormatRealFields& fields) {
    planFixedPlaces(fields, planBlankPlaces(fields, width, decimals, e));
    if (!fields.writeDigitBuffer(x, 0, FUZZ)) {
        absorbBlankCarry(fields, width);
    }
    fitToWidth(fields, width);
}

void getLargeRealForBlankFormat(double x, int width, int e, FormatRealFields& fields) {
    const ExponentRow row = largeRealRow(x, width, e, true);
    layOutExponentRow(fields, row, false, x, width, FUZZ);
}

void getRealForBlankFormat(double x, int width, int decimals, FormatRealFields& fields) {
    if (width < 1) {
        markDoesNotFit(fields);
        return;
    }
    const bool negative = x < 0.0;
    int available = width;
    double magnitude = x;
    if (negative) {
        available = width - 1;
        magnitude = -x;
    }
    if (available == 0) {
        if (magnitude >= 0.5) {
            markDoesNotFit(fields);
        } else {
            getZeroRealRightAligned(1, fields);
        }
        return;
    }
    const int e = floorLog10(magnitude);
    if (e < available) {
        getMediumRealForBlankFormat(magnitude, available, decimals, e, fields);
    } else {
        getLargeRealForBlankFormat(magnitude, available, e, fields);
    }
    fields.isNegative = negative;
}

}  // namespace kivo::format
