#include "kivoconvert/Catalog.h"

namespace kivoconvert {

namespace {

constexpr Limits NO_DECIMALS(int minWidth, int maxWidth, int defaultWidth) {
    return {minWidth, maxWidth, defaultWidth, Decimals::NOT_USED};
}

// The day-month-year writers have a layout for each width of 2..10 (2..8 without separator) and stop
// the process on any other; the default shows the two-digit year with its separators (31/12/99), or run
// together (311299).
constexpr Limits SEPARATED = NO_DECIMALS(2, 10, 8);
constexpr Limits RUN_TOGETHER = NO_DECIMALS(2, 8, 6);

// The month-year and quarter layouts pad on the left without end; each starts at the narrowest width
// its shortest layout fits: "12/99" for MMYYx and YYMMx, "1299" for MMYYN and YYMMN, "99-4" for the YYQ
// family. The defaults show the four-digit year: 12/1999, 199912, 1999-4, 19994.
constexpr Limits padded(int minWidth, int defaultWidth) { return NO_DECIMALS(minWidth, MAX_FIELD, defaultWidth); }

// The Roman quarter takes up to three positions, and the year needs two beside it: the ranges start
// where "99QIII" (6) and "99III" (5) fit. The defaults leave every quarter the four-digit year:
// "1999QIII", "1999III".
constexpr Limits ROMAN_SEPARATED = padded(6, 8);
constexpr Limits ROMAN_RUN_TOGETHER = padded(5, 7);

constexpr ValueKind DAY = ValueKind::DAY;
constexpr ValueKind DATETIME = ValueKind::DATETIME;

constexpr FormatEntry ENTRIES[] = {
    KIVO_FORMAT_ENTRY(DDMMYY, ddmmyy, "day, month and year with slashes", SEPARATED, DAY),
    KIVO_FORMAT_ENTRY(DDMMYYB, ddmmyyb, "day, month and year with blanks", SEPARATED, DAY),
    KIVO_FORMAT_ENTRY(DDMMYYC, ddmmyyc, "day, month and year with colons", SEPARATED, DAY),
    KIVO_FORMAT_ENTRY(DDMMYYD, ddmmyyd, "day, month and year with dashes", SEPARATED, DAY),
    KIVO_FORMAT_ENTRY(DDMMYYN, ddmmyyn, "day, month and year with no separator", RUN_TOGETHER, DAY),
    KIVO_FORMAT_ENTRY(DDMMYYP, ddmmyyp, "day, month and year with points", SEPARATED, DAY),
    KIVO_FORMAT_ENTRY(DDMMYYS, ddmmyys, "day, month and year with slashes", SEPARATED, DAY),
    KIVO_FORMAT_ENTRY(MMDDYY, mmddyy, "month, day and year with slashes", SEPARATED, DAY),
    KIVO_FORMAT_ENTRY(MMDDYYB, mmddyyb, "month, day and year with blanks", SEPARATED, DAY),
    KIVO_FORMAT_ENTRY(MMDDYYC, mmddyyc, "month, day and year with colons", SEPARATED, DAY),
    KIVO_FORMAT_ENTRY(MMDDYYD, mmddyyd, "month, day and year with dashes", SEPARATED, DAY),
    KIVO_FORMAT_ENTRY(MMDDYYN, mmddyyn, "month, day and year with no separator", RUN_TOGETHER, DAY),
    KIVO_FORMAT_ENTRY(MMDDYYP, mmddyyp, "month, day and year with points", SEPARATED, DAY),
    KIVO_FORMAT_ENTRY(MMDDYYS, mmddyys, "month, day and year with slashes", SEPARATED, DAY),
    KIVO_FORMAT_ENTRY(YYMMDD, yymmdd, "year, month and day with slashes", SEPARATED, DAY),
    KIVO_FORMAT_ENTRY(YYMMDDB, yymmddb, "year, month and day with blanks", SEPARATED, DAY),
    KIVO_FORMAT_ENTRY(YYMMDDC, yymmddc, "year, month and day with colons", SEPARATED, DAY),
    KIVO_FORMAT_ENTRY(YYMMDDD, yymmddd, "year, month and day with dashes", SEPARATED, DAY),
    KIVO_FORMAT_ENTRY(YYMMDDN, yymmddn, "year, month and day with no separator", RUN_TOGETHER, DAY),
    KIVO_FORMAT_ENTRY(YYMMDDP, yymmddp, "year, month and day with points", SEPARATED, DAY),
    KIVO_FORMAT_ENTRY(YYMMDDS, yymmdds, "year, month and day with slashes", SEPARATED, DAY),

    KIVO_FORMAT_ENTRY(MMYY, mmyy, "month and year with M between", padded(5, 7), DAY),
    KIVO_FORMAT_ENTRY(MMYYC, mmyyc, "month and year with colons", padded(5, 7), DAY),
    KIVO_FORMAT_ENTRY(MMYYD, mmyyd, "month and year with dashes", padded(5, 7), DAY),
    KIVO_FORMAT_ENTRY(MMYYN, mmyyn, "month and year with no separator", padded(4, 6), DAY),
    KIVO_FORMAT_ENTRY(MMYYP, mmyyp, "month and year with points", padded(5, 7), DAY),
    KIVO_FORMAT_ENTRY(MMYYS, mmyys, "month and year with slashes", padded(5, 7), DAY),
    KIVO_FORMAT_ENTRY(YYMM, yymm, "year and month with M between", padded(5, 7), DAY),
    KIVO_FORMAT_ENTRY(YYMMC, yymmc, "year and month with colons", padded(5, 7), DAY),
    KIVO_FORMAT_ENTRY(YYMMD, yymmd, "year and month with dashes", padded(5, 7), DAY),
    KIVO_FORMAT_ENTRY(YYMMN, yymmn, "year and month with no separator", padded(4, 6), DAY),
    KIVO_FORMAT_ENTRY(YYMMP, yymmp, "year and month with points", padded(5, 7), DAY),
    KIVO_FORMAT_ENTRY(YYMMS, yymms, "year and month with slashes", padded(5, 7), DAY),

    // MONYY has layouts for 5..7 only (MAR99, a blank and MAR99, MAR1999). YYMON pads like YYMM ("99MAR"
    // from 5) and is the one of these whose decimals move the missing character.
    KIVO_FORMAT_ENTRY(MONYY, monyy, "month abbreviation and year", NO_DECIMALS(5, 7, 5), DAY),
    KIVO_FORMAT_ENTRY(DTMONYY, dtmonyy, "the month abbreviation and year of a datetime", NO_DECIMALS(5, 7, 5), DATETIME),
    KIVO_FORMAT_ENTRY(YYMON, yymon, "year and month abbreviation", Limits{5, MAX_FIELD, 7, Decimals::MISSING_POSITION}, DAY),

    KIVO_FORMAT_ENTRY(YYQ, yyq, "year and quarter with Q between", padded(4, 6), DAY),
    KIVO_FORMAT_ENTRY(YYQC, yyqc, "year and quarter with colons", padded(4, 6), DAY),
    KIVO_FORMAT_ENTRY(DTYYQC, dtyyqc, "the year and quarter of a datetime, with a colon", padded(4, 6), DATETIME),
    KIVO_FORMAT_ENTRY(YYQD, yyqd, "year and quarter with dashes", padded(4, 6), DAY),
    KIVO_FORMAT_ENTRY(YYQN, yyqn, "year and quarter with no separator", padded(3, 5), DAY),
    KIVO_FORMAT_ENTRY(YYQP, yyqp, "year and quarter with points", padded(4, 6), DAY),
    KIVO_FORMAT_ENTRY(YYQS, yyqs, "year and quarter with slashes", padded(4, 6), DAY),
    KIVO_FORMAT_ENTRY(YYQR, yyqr, "year and quarter in Roman numerals with Q between", ROMAN_SEPARATED, DAY),
    KIVO_FORMAT_ENTRY(YYQRC, yyqrc, "year and quarter in Roman numerals with colons", ROMAN_SEPARATED, DAY),
    KIVO_FORMAT_ENTRY(YYQRD, yyqrd, "year and quarter in Roman numerals with dashes", ROMAN_SEPARATED, DAY),
    KIVO_FORMAT_ENTRY(YYQRN, yyqrn, "year and quarter in Roman numerals with no separator", ROMAN_RUN_TOGETHER, DAY),
    KIVO_FORMAT_ENTRY(YYQRP, yyqrp, "year and quarter in Roman numerals with points", ROMAN_SEPARATED, DAY),
    KIVO_FORMAT_ENTRY(YYQRS, yyqrs, "year and quarter in Roman numerals with slashes", ROMAN_SEPARATED, DAY),
};

}  // namespace

std::span<const FormatEntry> dayMonthYearFormatEntries() { return ENTRIES; }

}  // namespace kivoconvert
