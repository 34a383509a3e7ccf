#include "kivodt/Catalog.h"

namespace kivodt {

namespace {

// The widths below each minimum would overrun the layout; 32 is the widest field the front end offers.
constexpr int MAX_FIELD = 32;
constexpr Limits NO_DECIMALS(int minWidth, int maxWidth, int defaultWidth) {
    return {minWidth, maxWidth, defaultWidth, 0, 0, false};
}
// Formats whose decimals move the missing character left of the field's end.
constexpr Limits MISSING_POSITION(int minWidth, int maxWidth, int defaultWidth) {
    return {minWidth, maxWidth, defaultWidth, 0, MAX_FIELD - 1, true};
}

constexpr FormatEntry ENTRIES[] = {
    {"DATE", dateFormat, NO_DECIMALS(5, 11, 7)},
    {"DTDATE", dtdateFormat, NO_DECIMALS(5, 11, 7)},
    {"DAY", dayFormat, NO_DECIMALS(2, MAX_FIELD, 2)},
    {"DOWNAME", downameFormat, MISSING_POSITION(1, MAX_FIELD, 9)},
    {"JULDAY", juldayFormat, NO_DECIMALS(3, MAX_FIELD, 3)},
    {"MONNAME", monnameFormat, MISSING_POSITION(1, MAX_FIELD, 9)},
    {"MONTH", monthFormat, NO_DECIMALS(1, MAX_FIELD, 2)},
    {"QTR", qtrFormat, MISSING_POSITION(1, MAX_FIELD, 1)},
    {"QTRR", qtrrFormat, MISSING_POSITION(3, MAX_FIELD, 3)},
    {"WEEKDAY", weekdayFormat, NO_DECIMALS(1, MAX_FIELD, 1)},
    {"YEAR", yearFormat, MISSING_POSITION(2, MAX_FIELD, 4)},
    {"DTYEAR", dtyearFormat, NO_DECIMALS(2, MAX_FIELD, 4)},
};

}  // namespace

std::span<const FormatEntry> dateFormatEntries() { return ENTRIES; }

}  // namespace kivodt
