#include "formats/FieldWriting.h"
#include "formats/datetime_formats/FormatEntry.h"
#include "kivo/Formats.h"
#include "kivo/format/datetime/DateWriters.h"

namespace kivo::format::datetime {

void doYearFormat(const Date& date, char*& out, int width) {
    // A field narrower than two holds no year: rather than write past it, fill it with "*".
    if (width < 2) {
        field::stars(out, width);
        return;
    }
    field::yearInPositions(out, width, date.year());
}

}  // namespace kivo::format::datetime

using kivo::format::datetime::doYearFormat;
namespace entry = kivo::format::datetime::entry;

extern "C" {

int yearFormat(char* field, int width, int decimals, double value) {
    return entry::withDate(field, width, decimals, decimals, value, doYearFormat);
}

int dtyearFormat(char* field, int width, int, double value) {
    return entry::withDatetimeDate(field, width, 0, 0, value, doYearFormat);
}

}  // extern "C"
