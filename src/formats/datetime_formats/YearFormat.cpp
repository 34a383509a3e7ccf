#include "formats/FieldWriting.h"
#include "formats/datetime_formats/DateLayout.h"
#include "formats/datetime_formats/FormatEntry.h"
#include "kivo/Formats.h"
#include "kivo/format/datetime/DateWriters.h"

namespace kivo::format::datetime {

namespace {

// The year alone, right-aligned in the field.
constexpr layout::Row<layout::NumericDate> YEAR = layout::row<"P", layout::NumericDate>;

}  // namespace

// 22356 (2021): "21" at width 2, "2021" at width 4, "  2021" at width 6.
void doYearFormat(const Date& date, char*& out, int width) {
    // A field narrower than two holds no year: rather than write past it, fill it with "*".
    if (width < 2) {
        field::stars(out, width);
        return;
    }
    out = YEAR.write(out, {date.year(), 1, 1, ' '}, width);
}

}  // namespace kivo::format::datetime

using kivo::format::datetime::doYearFormat;
namespace entry = kivo::format::datetime::entry;

extern "C" {

int yearFormat(char* field, int width, int decimals, double value) {
    return entry::withDate(field, width, entry::decimalsUse(kivo::limits::YEAR.decimals, decimals), value, doYearFormat);
}

int dtyearFormat(char* field, int width, int, double value) {
    return entry::withDatetimeDate(field, width, entry::NO_DECIMALS, value, doYearFormat);
}

}  // extern "C"
