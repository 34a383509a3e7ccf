#include "kivoconvert/Catalog.h"

namespace kivoconvert {

namespace {

// Any decimals below the width. Most of these formats show them as digits of the last component and
// drop what does not fit; MDYAMPM and DMYAMPM only move the missing character left of the field's end.
constexpr Limits LAYOUT_DECIMALS(int minWidth, int defaultWidth) {
    return {minWidth, MAX_FIELD, defaultWidth, Decimals::LAYOUT};
}
constexpr Limits MISSING_POSITION(int minWidth, int defaultWidth) {
    return {minWidth, MAX_FIELD, defaultWidth, Decimals::MISSING_POSITION};
}

// Minimum widths: below them a layout would write outside the field ("**" of HHMM and MMSS, a padded
// hour of TOD, "AM" of TIMEAMPM, the date of DATETIME and DATEAMPM, the shortest MONDYTM text with a
// two-digit day); MDYAMPM and DMYAMPM write nothing below 8. Defaults are the layouts seen most often:
// h:mm:ss, h:mm, m:ss, whole hours, hh:mm:ss, h:mm:ss AM, 17MAR21:13:45:30, 17MAR21:01:45:30 PM,
// 03/17/2021 13:45 PM and MAR 17 2021 01:45:30 PM.
constexpr FormatEntry ENTRIES[] = {
    KIVO_FORMAT_ENTRY(TIME, time, "hours, minutes and seconds of a time; a minus sign for a negative one", LAYOUT_DECIMALS(2, 8), ValueKind::TIME),
    KIVO_FORMAT_ENTRY(HHMM, hhmm, "hours and minutes of a time", LAYOUT_DECIMALS(2, 5), ValueKind::TIME),
    KIVO_FORMAT_ENTRY(MMSS, mmss, "minutes and seconds of a time", LAYOUT_DECIMALS(2, 5), ValueKind::TIME),
    KIVO_FORMAT_ENTRY(HOUR, hour, "hours of a time, with their fraction as decimals", LAYOUT_DECIMALS(2, 2), ValueKind::TIME),
    KIVO_FORMAT_ENTRY(TOD, tod, "the time of day of a time or datetime", LAYOUT_DECIMALS(2, 8), ValueKind::TIME),
    KIVO_FORMAT_ENTRY(TIMEAMPM, timeampm, "the time of day with AM or PM", LAYOUT_DECIMALS(2, 11), ValueKind::TIME),
    KIVO_FORMAT_ENTRY(DATETIME, datetime, "date and time of day", LAYOUT_DECIMALS(7, 16), ValueKind::DATETIME),
    KIVO_FORMAT_ENTRY(DATEAMPM, dateampm, "date and time of day with AM or PM", LAYOUT_DECIMALS(7, 19), ValueKind::DATETIME),
    KIVO_FORMAT_ENTRY(MDYAMPM, mdyampm, "month, day, year and the 24-hour time with AM or PM", MISSING_POSITION(8, 19), ValueKind::DATETIME),
    KIVO_FORMAT_ENTRY(DMYAMPM, dmyampm, "day, month, year and the 24-hour time with AM or PM", MISSING_POSITION(8, 19), ValueKind::DATETIME),
    KIVO_FORMAT_ENTRY(MONDYTM, mondytm, "month abbreviation, day, year and time with AM or PM", LAYOUT_DECIMALS(20, 23), ValueKind::DATETIME),
};

}  // namespace

std::span<const FormatEntry> timeFormatEntries() { return ENTRIES; }

}  // namespace kivoconvert
