#include "kivoconvert/Catalog.h"

namespace kivoconvert {

namespace {

constexpr ValueKind DAY = ValueKind::DAY;
constexpr ValueKind DATETIME = ValueKind::DATETIME;
constexpr bool WRITES_BYTES = true;

constexpr FormatEntry ENTRIES[] = {
    KIVO_FORMAT_ENTRY(WORDDATE, worddate, "month in words, day and year", limits::WORD_DATE, DAY),
    KIVO_FORMAT_ENTRY(WORDDATX, worddatx, "day, month in words and year", limits::WORD_DATE, DAY),
    KIVO_FORMAT_ENTRY(WEEKDATE, weekdate, "weekday, month in words, day and year", limits::WEEKDAY_DATE, DAY),
    KIVO_FORMAT_ENTRY(WEEKDATX, weekdatx, "weekday, day, month in words and year", limits::WEEKDAY_DATE, DAY),
    KIVO_FORMAT_ENTRY(DTWKDATX, dtwkdatx, "the day of a datetime, as WEEKDATX shows it", limits::WEEKDAY_DATE,
                      DATETIME),
    KIVO_FORMAT_ENTRY(WEEKU, weeku, "year, week and weekday under Sunday weeks, left-aligned", limits::WEEK, DAY),
    KIVO_FORMAT_ENTRY(WEEKV, weekv, "ISO 8601 year, week and weekday, left-aligned", limits::WEEK, DAY),
    KIVO_FORMAT_ENTRY(WEEKW, weekw, "year, week and weekday under Monday weeks, left-aligned", limits::WEEK, DAY),
    KIVO_FORMAT_ENTRY(YYWEEKU, yyweeku, "year and week under Sunday weeks", limits::YEAR_WEEK, DAY),
    KIVO_FORMAT_ENTRY(YYWEEKV, yyweekv, "ISO 8601 year and week", limits::YEAR_WEEK, DAY),
    KIVO_FORMAT_ENTRY(YYWEEKW, yyweekw, "year and week under Monday weeks", limits::YEAR_WEEK, DAY),
    KIVO_FORMAT_ENTRY(JULIAN, julian, "year and day of the year", limits::JULIAN, DAY),
    KIVO_FORMAT_ENTRY(MINGUO, minguo, "year of the Minguo era, month and day", limits::MINGUO, DAY),
    KIVO_FORMAT_ENTRY(NENGO, nengo,
                      "Japanese era, its year, month and day; a day of the running era after today shows *",
                      limits::NENGO, DAY),
    KIVO_FORMAT_ENTRY(PDJULG, pdjulg, "packed decimal year and day of the year (bytes)", limits::PACKED_JULIAN, DAY,
                      WRITES_BYTES),
    KIVO_FORMAT_ENTRY(PDJULI, pdjuli, "packed decimal century since 1900, year and day of the year (bytes)",
                      limits::PACKED_JULIAN, DAY, WRITES_BYTES),
};

}  // namespace

std::span<const FormatEntry> wordWeekEraFormatEntries() { return ENTRIES; }

}  // namespace kivoconvert
