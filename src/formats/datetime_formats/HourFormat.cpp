#include <cstdint>

#include "formats/datetime_formats/TimeFieldWriting.h"
#include "kivo/Formats.h"
#include "kivo/format/FormatRealFields.h"
#include "kivo/format/Missing.h"
#include "kivo/format/RealLayouts.h"
#include "kivo/format/datetime/TimeWriters.h"

// HOUR: a duration as hours with a decimal fraction. The sign is not shown. Hours that do not fit the
// width are handed to the blank layout for large reals, which writes them in exponent form.
namespace kivo::format::datetime {

namespace {

// The decimals that fit after the integer digits and a point in width positions.
int shownDecimals(int width, int integerDigits, int decimals) noexcept {
    const int used = integerDigits + 1 < width ? integerDigits + 1 : width;
    return width - used < decimals ? width - used : decimals;
}

// Hours whose integer part is longer than the width: the blank layout for large reals writes them in
// exponent form in exactly the width, or marks them as not fitting, and then the field is "*".
void writeHoursBeyondWidth(char* field, int width, double hours, int exponent) noexcept {
    FormatRealFields record;
    getLargeRealForBlankFormat(hours, width, exponent, record);
    if (record.leadingBlanks < 0) {
        field::stars(field, width);
        return;
    }
    char* out = field;
    record.outputReal(out, '.', '-', FormatRealFields::BEFORE);
}

void writeHours(double value, char*& out, int width, int decimals) noexcept {
    double hours = (value < 0.0 ? -value : value) / 3600.0;
    int nd = numberOfDigits(static_cast<long long>(hours));
    int shown = shownDecimals(width, nd, decimals);
    hours = (hours + timefield::halfUnit(shown)) * timefield::ROUNDING_NUDGE;
    if (hours >= pow10(nd)) {
        // The rounding added an integer digit.
        ++nd;
        shown = shownDecimals(width, nd, decimals);
    }

    if (shown >= 1) {
        if (nd == 0) {
            // A "0" before the point only when there is room for it.
            nd = shown + 1 < width ? 1 : 0;
        }
        field::blanks(out, width - 1 - shown - nd);
        timefield::writeReal(out, hours, nd, shown);
        return;
    }
    const int integerDigits = nd > 1 ? nd : 1;
    if (integerDigits <= width) {
        field::blanks(out, width - integerDigits);
        timefield::lowDigits(out, static_cast<std::uint64_t>(hours), integerDigits);
        return;
    }
    writeHoursBeyondWidth(out, width, hours, integerDigits - 1);
}

}  // namespace

}  // namespace kivo::format::datetime

extern "C" int hourFormat(char* field, int width, int decimals, double value) {
    return kivo::format::datetime::entry::withTime(
        field, width, kivo::format::datetime::entry::decimalsUse(kivo::limits::HOUR.decimals, decimals), value,
        kivo::format::datetime::writeHours);
}
