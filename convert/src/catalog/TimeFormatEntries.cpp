#include "kivoconvert/Catalog.h"

namespace kivoconvert {

namespace {

constexpr FormatEntry ENTRIES[] = {
    KIVO_FORMAT_ENTRY(TIME, time, "hours, minutes and seconds of a time; a minus sign for a negative one", limits::TIME,
                      ValueKind::TIME),
    KIVO_FORMAT_ENTRY(HHMM, hhmm, "hours and minutes of a time", limits::HHMM, ValueKind::TIME),
    KIVO_FORMAT_ENTRY(MMSS, mmss, "minutes and seconds of a time", limits::MMSS, ValueKind::TIME),
    KIVO_FORMAT_ENTRY(HOUR, hour, "hours of a time, with their fraction as decimals", limits::HOUR, ValueKind::TIME),
    KIVO_FORMAT_ENTRY(TOD, tod, "the time of day of a time or datetime", limits::TOD, ValueKind::TIME),
    KIVO_FORMAT_ENTRY(TIMEAMPM, timeampm, "the time of day with AM or PM", limits::TIMEAMPM, ValueKind::TIME),
    KIVO_FORMAT_ENTRY(DATETIME, datetime, "date and time of day", limits::DATETIME, ValueKind::DATETIME),
    KIVO_FORMAT_ENTRY(DATEAMPM, dateampm, "date and time of day with AM or PM", limits::DATEAMPM, ValueKind::DATETIME),
    KIVO_FORMAT_ENTRY(MDYAMPM, mdyampm, "month, day, year and the 24-hour time with AM or PM", limits::SLASH_DATE_AM_PM,
                      ValueKind::DATETIME),
    KIVO_FORMAT_ENTRY(DMYAMPM, dmyampm, "day, month, year and the 24-hour time with AM or PM", limits::SLASH_DATE_AM_PM,
                      ValueKind::DATETIME),
    KIVO_FORMAT_ENTRY(MONDYTM, mondytm, "month abbreviation, day, year and time with AM or PM", limits::MONDYTM,
                      ValueKind::DATETIME),
};

}  // namespace

std::span<const FormatEntry> timeFormatEntries() { return ENTRIES; }

}  // namespace kivoconvert
