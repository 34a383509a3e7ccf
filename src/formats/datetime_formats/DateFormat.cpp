#include <string_view>

#include "formats/datetime_formats/DateLayout.h"
#include "formats/datetime_formats/FormatEntry.h"
#include "kivo/Formats.h"
#include "kivo/format/datetime/DateWriters.h"

namespace kivo::format::datetime {

namespace {

constexpr int NARROWEST = 5;
constexpr int WIDEST = 11;

// DATE by width: the odd widths add the year in two and then four digits, the even ones put a blank in
// front of the odd layout below them, and the widest spells the date with dashes.
constexpr layout::DateLayoutWriter DATE_LAYOUTS[WIDEST - NARROWEST + 1] = {
    layout::row<"dM">,     // 5: 17MAR
    layout::row<" dM">,    // 6
    layout::row<"dMy">,    // 7: 17MAR21
    layout::row<" dMy">,   // 8
    layout::row<"dMY">,    // 9: 17MAR2021
    layout::row<" dMY">,   // 10
    layout::row<"d-M-Y">,  // 11: 17-MAR-2021
};

}  // namespace

// 22356 (17 March 2021) at width 9: "17MAR2021". A width outside 5..11 leaves the field as it was.
void doDateFormat(const Date& date, char*& out, int width) {
    if (width < NARROWEST || width > WIDEST) {
        return;
    }
    out = DATE_LAYOUTS[width - NARROWEST](out, date.yearMonthDay(), ' ');
}

}  // namespace kivo::format::datetime

using kivo::format::datetime::doDateFormat;
namespace entry = kivo::format::datetime::entry;

extern "C" {

int dateFormat(char* field, int width, int, double value) {
    return entry::withDate(field, width, 0, 0, value, doDateFormat);
}

int dtdateFormat(char* field, int width, int, double value) {
    return entry::withDatetimeDate(field, width, 0, 0, value, doDateFormat);
}

}  // extern "C"
