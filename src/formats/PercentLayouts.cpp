#include "formats/RealLayoutSteps.h"
#include "kivo/format/RealLayouts.h"
#include "kivox/Numbers.h"

namespace kivo::format {

using namespace layout;

namespace {

// Below 1/128 percent, a field asked for more decimals than it has places shows the value in
// exponent notation rather than as zeros.
constexpr double SMALL_PERCENT_LIMIT = 0.0078125;

}  // namespace

void getSmallRealForPercentFormat(double x, int width, int e, FormatRealFields& fields) {
    ExponentRow row = NO_FIT;
    if (width == 4) {
        row = e >= -9 ? ExponentRow{1, false, e} : NO_FIT;
    } else {
        row = smallBestRow(width, e);
    }
    layOutExponentRow(fields, row, true, x, width, E_FUZZ);
}

void getRealForPercentFormat(double x, int width, int decimals, FormatRealFields& fields) {
    const int e = floorLog10(x);
    if (decimals > width && x > 0.0 && x < SMALL_PERCENT_LIMIT) {
        getSmallRealForPercentFormat(x, width, e, fields);
    } else if (e >= width) {
        getLargeRealForBlankFormat(x, width, e, fields);
    } else if (decimals < width) {
        getMediumRealForBlankFormat(x, width, decimals, e, fields);
    } else {
        getMediumRealForBlankFormat(x, width, width - 1, e, fields);
    }
}

}  // namespace kivo::format
