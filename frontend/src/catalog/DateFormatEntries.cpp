#include "kivodt/Catalog.h"

namespace kivodt {

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
    KIVODT_FORMAT(DATE, date, NO_DECIMALS(5, 11, 7), DAY),
    KIVODT_FORMAT(DTDATE, dtdate, NO_DECIMALS(5, 11, 7), DATETIME),
    KIVODT_FORMAT(DAY, day, NO_DECIMALS(2, MAX_FIELD, 2), DAY),
    KIVODT_FORMAT(DOWNAME, downame, MISSING_POSITION(1, MAX_FIELD, 9), DAY),
    KIVODT_FORMAT(JULDAY, julday, NO_DECIMALS(3, MAX_FIELD, 3), DAY),
    KIVODT_FORMAT(MONNAME, monname, MISSING_POSITION(1, MAX_FIELD, 9), DAY),
    KIVODT_FORMAT(MONTH, month, NO_DECIMALS(1, MAX_FIELD, 2), DAY),
    KIVODT_FORMAT(QTR, qtr, MISSING_POSITION(1, MAX_FIELD, 1), DAY),
    KIVODT_FORMAT(QTRR, qtrr, MISSING_POSITION(3, MAX_FIELD, 3), DAY),
    KIVODT_FORMAT(WEEKDAY, weekday, NO_DECIMALS(1, MAX_FIELD, 1), DAY),
    KIVODT_FORMAT(YEAR, year, MISSING_POSITION(2, MAX_FIELD, 4), DAY),
    KIVODT_FORMAT(DTYEAR, dtyear, NO_DECIMALS(2, MAX_FIELD, 4), DATETIME),
};

}  // namespace

std::span<const FormatEntry> dateFormatEntries() { return ENTRIES; }

}  // namespace kivodt
