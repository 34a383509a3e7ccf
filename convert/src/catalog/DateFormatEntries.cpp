#include "kivoconvert/Catalog.h"

namespace kivoconvert {

namespace {

// The widths below each minimum would overrun the layout.
constexpr Limits NO_DECIMALS(int minWidth, int maxWidth, int defaultWidth) {
    return {minWidth, maxWidth, defaultWidth, Decimals::NOT_USED};
}
// Formats whose decimals move the missing character left of the field's end.
constexpr Limits MISSING_POSITION(int minWidth, int maxWidth, int defaultWidth) {
    return {minWidth, maxWidth, defaultWidth, Decimals::MISSING_POSITION};
}

constexpr ValueKind DAY = ValueKind::DAY;
constexpr ValueKind DATETIME = ValueKind::DATETIME;

constexpr FormatEntry ENTRIES[] = {
    KIVO_FORMAT_ENTRY(DATE, date, "day, month abbreviation and year; dashes between them at width 11", NO_DECIMALS(5, 11, 7), DAY),
    KIVO_FORMAT_ENTRY(DTDATE, dtdate, "the day of a datetime, as DATE shows it", NO_DECIMALS(5, 11, 7), DATETIME),
    KIVO_FORMAT_ENTRY(DAY, day, "the day of the month", NO_DECIMALS(2, MAX_FIELD, 2), DAY),
    KIVO_FORMAT_ENTRY(DOWNAME, downame, "the weekday's name, cut on the right to the width", MISSING_POSITION(1, MAX_FIELD, 9), DAY),
    KIVO_FORMAT_ENTRY(JULDAY, julday, "the day of the year", NO_DECIMALS(3, MAX_FIELD, 3), DAY),
    KIVO_FORMAT_ENTRY(MONNAME, monname, "the month's name, cut on the right to the width", MISSING_POSITION(1, MAX_FIELD, 9), DAY),
    KIVO_FORMAT_ENTRY(MONTH, month, "the month's number (width 1: 1-9, A, B, C)", NO_DECIMALS(1, MAX_FIELD, 2), DAY),
    KIVO_FORMAT_ENTRY(QTR, qtr, "the quarter of the year", MISSING_POSITION(1, MAX_FIELD, 1), DAY),
    KIVO_FORMAT_ENTRY(QTRR, qtrr, "the quarter of the year in Roman numerals", MISSING_POSITION(3, MAX_FIELD, 3), DAY),
    KIVO_FORMAT_ENTRY(WEEKDAY, weekday, "the weekday's number, 1 for Sunday", NO_DECIMALS(1, MAX_FIELD, 1), DAY),
    KIVO_FORMAT_ENTRY(YEAR, year, "the year", MISSING_POSITION(2, MAX_FIELD, 4), DAY),
    KIVO_FORMAT_ENTRY(DTYEAR, dtyear, "the year of a datetime", NO_DECIMALS(2, MAX_FIELD, 4), DATETIME),
};

}  // namespace

std::span<const FormatEntry> dateFormatEntries() { return ENTRIES; }

}  // namespace kivoconvert
