#include "kivoconvert/Catalog.h"

namespace kivoconvert {

namespace {

constexpr ValueKind DAY = ValueKind::DAY;
constexpr ValueKind DATETIME = ValueKind::DATETIME;

constexpr FormatEntry ENTRIES[] = {
    KIVO_FORMAT_ENTRY(DATE, date, "day, month abbreviation and year; dashes between them at width 11", limits::DATE,
                      DAY),
    KIVO_FORMAT_ENTRY(DTDATE, dtdate, "the day of a datetime, as DATE shows it", limits::DATE, DATETIME),
    KIVO_FORMAT_ENTRY(DAY, day, "the day of the month", limits::DAY, DAY),
    KIVO_FORMAT_ENTRY(DOWNAME, downame, "the weekday's name, cut on the right to the width", limits::NAME, DAY),
    KIVO_FORMAT_ENTRY(JULDAY, julday, "the day of the year", limits::DAY_OF_YEAR, DAY),
    KIVO_FORMAT_ENTRY(MONNAME, monname, "the month's name, cut on the right to the width", limits::NAME, DAY),
    KIVO_FORMAT_ENTRY(MONTH, month, "the month's number (width 1: 1-9, A, B, C)", limits::MONTH, DAY),
    KIVO_FORMAT_ENTRY(QTR, qtr, "the quarter of the year", limits::QUARTER, DAY),
    KIVO_FORMAT_ENTRY(QTRR, qtrr, "the quarter of the year in Roman numerals", limits::ROMAN_QUARTER, DAY),
    KIVO_FORMAT_ENTRY(WEEKDAY, weekday, "the weekday's number, 1 for Sunday", limits::WEEKDAY, DAY),
    KIVO_FORMAT_ENTRY(YEAR, year, "the year", limits::YEAR, DAY),
    KIVO_FORMAT_ENTRY(DTYEAR, dtyear, "the year of a datetime", limits::DTYEAR, DATETIME),
};

}  // namespace

std::span<const FormatEntry> dateFormatEntries() { return ENTRIES; }

}  // namespace kivoconvert
