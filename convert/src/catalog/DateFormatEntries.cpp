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
    KIVO_FORMAT_ENTRY(DATE, date, NO_DECIMALS(5, 11, 7), DAY),
    KIVO_FORMAT_ENTRY(DTDATE, dtdate, NO_DECIMALS(5, 11, 7), DATETIME),
    KIVO_FORMAT_ENTRY(DAY, day, NO_DECIMALS(2, MAX_FIELD, 2), DAY),
    KIVO_FORMAT_ENTRY(DOWNAME, downame, MISSING_POSITION(1, MAX_FIELD, 9), DAY),
    KIVO_FORMAT_ENTRY(JULDAY, julday, NO_DECIMALS(3, MAX_FIELD, 3), DAY),
    KIVO_FORMAT_ENTRY(MONNAME, monname, MISSING_POSITION(1, MAX_FIELD, 9), DAY),
    KIVO_FORMAT_ENTRY(MONTH, month, NO_DECIMALS(1, MAX_FIELD, 2), DAY),
    KIVO_FORMAT_ENTRY(QTR, qtr, MISSING_POSITION(1, MAX_FIELD, 1), DAY),
    KIVO_FORMAT_ENTRY(QTRR, qtrr, MISSING_POSITION(3, MAX_FIELD, 3), DAY),
    KIVO_FORMAT_ENTRY(WEEKDAY, weekday, NO_DECIMALS(1, MAX_FIELD, 1), DAY),
    KIVO_FORMAT_ENTRY(YEAR, year, MISSING_POSITION(2, MAX_FIELD, 4), DAY),
    KIVO_FORMAT_ENTRY(DTYEAR, dtyear, NO_DECIMALS(2, MAX_FIELD, 4), DATETIME),
};

}  // namespace

std::span<const FormatEntry> dateFormatEntries() { return ENTRIES; }

}  // namespace kivoconvert
