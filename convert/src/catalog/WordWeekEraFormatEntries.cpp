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
    KIVO_FORMAT_ENTRY(WORDDATE, worddate, "month in words, day and year", NO_DECIMALS(3, MAX_FIELD, 18), DAY),
    KIVO_FORMAT_ENTRY(WORDDATX, worddatx, "day, month in words and year", NO_DECIMALS(3, MAX_FIELD, 18), DAY),
    KIVO_FORMAT_ENTRY(WEEKDATE, weekdate, "weekday, month in words, day and year", NO_DECIMALS(3, MAX_FIELD, 29), DAY),
    KIVO_FORMAT_ENTRY(WEEKDATX, weekdatx, "weekday, day, month in words and year", NO_DECIMALS(3, MAX_FIELD, 29), DAY),
    KIVO_FORMAT_ENTRY(DTWKDATX, dtwkdatx, "the day of a datetime, as WEEKDATX shows it", NO_DECIMALS(3, MAX_FIELD, 29), DATETIME),
    KIVO_FORMAT_ENTRY(WEEKU, weeku, "year, week and weekday under Sunday weeks, left-aligned", NO_DECIMALS(3, MAX_FIELD, 11), DAY),
    KIVO_FORMAT_ENTRY(WEEKV, weekv, "ISO 8601 year, week and weekday, left-aligned", NO_DECIMALS(3, MAX_FIELD, 11), DAY),
    KIVO_FORMAT_ENTRY(WEEKW, weekw, "year, week and weekday under Monday weeks, left-aligned", NO_DECIMALS(3, MAX_FIELD, 11), DAY),
    KIVO_FORMAT_ENTRY(YYWEEKU, yyweeku, "year and week under Sunday weeks", NO_DECIMALS(3, MAX_FIELD, 8), DAY),
    KIVO_FORMAT_ENTRY(YYWEEKV, yyweekv, "ISO 8601 year and week", NO_DECIMALS(3, MAX_FIELD, 8), DAY),
    KIVO_FORMAT_ENTRY(YYWEEKW, yyweekw, "year and week under Monday weeks", NO_DECIMALS(3, MAX_FIELD, 8), DAY),
    KIVO_FORMAT_ENTRY(JULIAN, julian, "year and day of the year", NO_DECIMALS(5, MAX_FIELD, 5), DAY),
    KIVO_FORMAT_ENTRY(MINGUO, minguo, "year of the Minguo era, month and day", NO_DECIMALS(6, 10, 8), DAY),
    KIVO_FORMAT_ENTRY(NENGO, nengo, "Japanese era, its year, month and day; a day of the running era after today shows *", NO_DECIMALS(2, 10, 10), DAY),
    KIVO_FORMAT_ENTRY(PDJULG, pdjulg, "packed decimal year and day of the year (bytes)", NO_DECIMALS(3, WIDEST_PACKED, 4), DAY, WRITES_BYTES),
    KIVO_FORMAT_ENTRY(PDJULI, pdjuli, "packed decimal century since 1900, year and day of the year (bytes)", NO_DECIMALS(3, WIDEST_PACKED, 4), DAY, WRITES_BYTES),
};

}  // namespace

std::span<const FormatEntry> wordWeekEraFormatEntries() { return ENTRIES; }

}  // namespace kivoconvert
