#include "kivodt/Catalog.h"

namespace kivodt {

namespace {

// 32 is the widest field the front end offers.
constexpr int MAX_FIELD = 32;

// Any decimals below the width. Most of these formats show them as digits of the last component and
// drop what does not fit; MDYAMPM and DMYAMPM only move the missing character left of the field's end.
constexpr Limits DECIMALS_BELOW_WIDTH(int minWidth, int defaultWidth) {
    return {minWidth, MAX_FIELD, defaultWidth, 0, MAX_FIELD - 1, true};
}

// Minimum widths: below them a layout would write outside the field ("**" of HHMM and MMSS, a padded
// hour of TOD, "AM" of TIMEAMPM, the date of DATETIME and DATEAMPM, the shortest MONDYTM text with a
// two-digit day); MDYAMPM and DMYAMPM write nothing below 8. Defaults are the layouts seen most often:
// h:mm:ss, h:mm, m:ss, whole hours, hh:mm:ss, h:mm:ss AM, 17MAR21:13:45:30, 17MAR21:01:45:30 PM,
// 03/17/2021 13:45 PM and MAR 17 2021 01:45:30 PM.
constexpr FormatEntry ENTRIES[] = {
    {"TIME", timeFormat, DECIMALS_BELOW_WIDTH(2, 8)},
    {"HHMM", hhmmFormat, DECIMALS_BELOW_WIDTH(2, 5)},
    {"MMSS", mmssFormat, DECIMALS_BELOW_WIDTH(2, 5)},
    {"HOUR", hourFormat, DECIMALS_BELOW_WIDTH(2, 2)},
    {"TOD", todFormat, DECIMALS_BELOW_WIDTH(2, 8)},
    {"TIMEAMPM", timeampmFormat, DECIMALS_BELOW_WIDTH(2, 11)},
    {"DATETIME", datetimeFormat, DECIMALS_BELOW_WIDTH(7, 16)},
    {"DATEAMPM", dateampmFormat, DECIMALS_BELOW_WIDTH(7, 19)},
    {"MDYAMPM", mdyampmFormat, DECIMALS_BELOW_WIDTH(8, 19)},
    {"DMYAMPM", dmyampmFormat, DECIMALS_BELOW_WIDTH(8, 19)},
    {"MONDYTM", mondytmFormat, DECIMALS_BELOW_WIDTH(20, 23)},
};

}  // namespace

std::span<const FormatEntry> timeFormatEntries() { return ENTRIES; }

}  // namespace kivodt
