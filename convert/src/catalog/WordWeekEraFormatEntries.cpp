#include "kivoconvert/Catalog.h"

namespace kivoconvert {

namespace {

// The text layouts start at the narrowest width that holds a name or a week (three characters); JULIAN
// at its two-digit-year layout; MINGUO and NENGO span exactly the widths their tables define.
constexpr Limits NO_DECIMALS(int minWidth, int maxWidth, int defaultWidth) {
    return {minWidth, maxWidth, defaultWidth, Decimals::NOT_USED};
}

// The packed formats need three bytes for the day of the year and its sign; sixteen bytes are more
// than any year needs.
constexpr int WIDEST_PACKED = 16;

constexpr ValueKind DAY = ValueKind::DAY;
constexpr ValueKind DATETIME = ValueKind::DATETIME;
constexpr bool WRITES_BYTES = true;

constexpr FormatEntry ENTRIES[] = {
    KIVO_FORMAT_ENTRY(WORDDATE, worddate, NO_DECIMALS(3, MAX_FIELD, 18), DAY),
    KIVO_FORMAT_ENTRY(WORDDATX, worddatx, NO_DECIMALS(3, MAX_FIELD, 18), DAY),
    KIVO_FORMAT_ENTRY(WEEKDATE, weekdate, NO_DECIMALS(3, MAX_FIELD, 29), DAY),
    KIVO_FORMAT_ENTRY(WEEKDATX, weekdatx, NO_DECIMALS(3, MAX_FIELD, 29), DAY),
    KIVO_FORMAT_ENTRY(DTWKDATX, dtwkdatx, NO_DECIMALS(3, MAX_FIELD, 29), DATETIME),
    KIVO_FORMAT_ENTRY(WEEKU, weeku, NO_DECIMALS(3, MAX_FIELD, 11), DAY),
    KIVO_FORMAT_ENTRY(WEEKV, weekv, NO_DECIMALS(3, MAX_FIELD, 11), DAY),
    KIVO_FORMAT_ENTRY(WEEKW, weekw, NO_DECIMALS(3, MAX_FIELD, 11), DAY),
    KIVO_FORMAT_ENTRY(YYWEEKU, yyweeku, NO_DECIMALS(3, MAX_FIELD, 8), DAY),
    KIVO_FORMAT_ENTRY(YYWEEKV, yyweekv, NO_DECIMALS(3, MAX_FIELD, 8), DAY),
    KIVO_FORMAT_ENTRY(YYWEEKW, yyweekw, NO_DECIMALS(3, MAX_FIELD, 8), DAY),
    KIVO_FORMAT_ENTRY(JULIAN, julian, NO_DECIMALS(5, MAX_FIELD, 5), DAY),
    KIVO_FORMAT_ENTRY(MINGUO, minguo, NO_DECIMALS(6, 10, 8), DAY),
    KIVO_FORMAT_ENTRY(NENGO, nengo, NO_DECIMALS(2, 10, 10), DAY),
    KIVO_FORMAT_ENTRY(PDJULG, pdjulg, NO_DECIMALS(3, WIDEST_PACKED, 4), DAY, WRITES_BYTES),
    KIVO_FORMAT_ENTRY(PDJULI, pdjuli, NO_DECIMALS(3, WIDEST_PACKED, 4), DAY, WRITES_BYTES),
};

}  // namespace

std::span<const FormatEntry> wordWeekEraFormatEntries() { return ENTRIES; }

}  // namespace kivoconvert
