#include <string_view>

#include "formats/datetime_formats/DateFormatLayouts.h"
#include "formats/datetime_formats/FormatEntry.h"
#include "kivo/Formats.h"
#include "kivo/format/datetime/DateWriters.h"

namespace kivo::format::datetime {

// 22356 (17 March 2021) at width 9: "17MAR2021". A width outside 5..11 leaves the field as it was.
void doDateFormat(const Date& date, char*& out, int width) {
    if (DATE_LAYOUTS.covers(width)) {
        DATE_LAYOUTS.write(width, out, layout::numericDate(date.yearMonthDay()));
    }
}

}  // namespace kivo::format::datetime

using kivo::format::datetime::doDateFormat;
namespace entry = kivo::format::datetime::entry;

extern "C" {

int dateFormat(char* field, int width, int, double value) {
    return entry::withDate(field, width, entry::NO_DECIMALS, value, doDateFormat);
}

int dtdateFormat(char* field, int width, int, double value) {
    return entry::withDatetimeDate(field, width, entry::NO_DECIMALS, value, doDateFormat);
}

}  // extern "C"
