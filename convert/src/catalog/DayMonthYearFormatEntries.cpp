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
    KIVO_FORMAT_ENTRY(DDMMYY, ddmmyy, SEPARATED, DAY),
    KIVO_FORMAT_ENTRY(DDMMYYB, ddmmyyb, SEPARATED, DAY),
    KIVO_FORMAT_ENTRY(DDMMYYC, ddmmyyc, SEPARATED, DAY),
    KIVO_FORMAT_ENTRY(DDMMYYD, ddmmyyd, SEPARATED, DAY),
    KIVO_FORMAT_ENTRY(DDMMYYN, ddmmyyn, RUN_TOGETHER, DAY),
    KIVO_FORMAT_ENTRY(DDMMYYP, ddmmyyp, SEPARATED, DAY),
    KIVO_FORMAT_ENTRY(DDMMYYS, ddmmyys, SEPARATED, DAY),
    KIVO_FORMAT_ENTRY(MMDDYY, mmddyy, SEPARATED, DAY),
    KIVO_FORMAT_ENTRY(MMDDYYB, mmddyyb, SEPARATED, DAY),
    KIVO_FORMAT_ENTRY(MMDDYYC, mmddyyc, SEPARATED, DAY),
    KIVO_FORMAT_ENTRY(MMDDYYD, mmddyyd, SEPARATED, DAY),
    KIVO_FORMAT_ENTRY(MMDDYYN, mmddyyn, RUN_TOGETHER, DAY),
    KIVO_FORMAT_ENTRY(MMDDYYP, mmddyyp, SEPARATED, DAY),
    KIVO_FORMAT_ENTRY(MMDDYYS, mmddyys, SEPARATED, DAY),
    KIVO_FORMAT_ENTRY(YYMMDD, yymmdd, SEPARATED, DAY),
    KIVO_FORMAT_ENTRY(YYMMDDB, yymmddb, SEPARATED, DAY),
    KIVO_FORMAT_ENTRY(YYMMDDC, yymmddc, SEPARATED, DAY),
    KIVO_FORMAT_ENTRY(YYMMDDD, yymmddd, SEPARATED, DAY),
    KIVO_FORMAT_ENTRY(YYMMDDN, yymmddn, RUN_TOGETHER, DAY),
    KIVO_FORMAT_ENTRY(YYMMDDP, yymmddp, SEPARATED, DAY),
    KIVO_FORMAT_ENTRY(YYMMDDS, yymmdds, SEPARATED, DAY),

    KIVO_FORMAT_ENTRY(MMYY, mmyy, padded(5, 7), DAY),
    KIVO_FORMAT_ENTRY(MMYYC, mmyyc, padded(5, 7), DAY),
    KIVO_FORMAT_ENTRY(MMYYD, mmyyd, padded(5, 7), DAY),
    KIVO_FORMAT_ENTRY(MMYYN, mmyyn, padded(4, 6), DAY),
    KIVO_FORMAT_ENTRY(MMYYP, mmyyp, padded(5, 7), DAY),
    KIVO_FORMAT_ENTRY(MMYYS, mmyys, padded(5, 7), DAY),
    KIVO_FORMAT_ENTRY(YYMM, yymm, padded(5, 7), DAY),
    KIVO_FORMAT_ENTRY(YYMMC, yymmc, padded(5, 7), DAY),
    KIVO_FORMAT_ENTRY(YYMMD, yymmd, padded(5, 7), DAY),
    KIVO_FORMAT_ENTRY(YYMMN, yymmn, padded(4, 6), DAY),
    KIVO_FORMAT_ENTRY(YYMMP, yymmp, padded(5, 7), DAY),
    KIVO_FORMAT_ENTRY(YYMMS, yymms, padded(5, 7), DAY),

    // MONYY has layouts for 5..7 only (MAR99, a blank and MAR99, MAR1999). YYMON pads like YYMM ("99MAR"
    // from 5) and is the one of these whose decimals move the missing character.
    KIVO_FORMAT_ENTRY(MONYY, monyy, NO_DECIMALS(5, 7, 5), DAY),
    KIVO_FORMAT_ENTRY(DTMONYY, dtmonyy, NO_DECIMALS(5, 7, 5), DATETIME),
    KIVO_FORMAT_ENTRY(YYMON, yymon, Limits{5, MAX_FIELD, 7, Decimals::MISSING_POSITION}, DAY),

    KIVO_FORMAT_ENTRY(YYQ, yyq, padded(4, 6), DAY),
    KIVO_FORMAT_ENTRY(YYQC, yyqc, padded(4, 6), DAY),
    KIVO_FORMAT_ENTRY(DTYYQC, dtyyqc, padded(4, 6), DATETIME),
    KIVO_FORMAT_ENTRY(YYQD, yyqd, padded(4, 6), DAY),
    KIVO_FORMAT_ENTRY(YYQN, yyqn, padded(3, 5), DAY),
    KIVO_FORMAT_ENTRY(YYQP, yyqp, padded(4, 6), DAY),
    KIVO_FORMAT_ENTRY(YYQS, yyqs, padded(4, 6), DAY),
    KIVO_FORMAT_ENTRY(YYQR, yyqr, ROMAN_SEPARATED, DAY),
    KIVO_FORMAT_ENTRY(YYQRC, yyqrc, ROMAN_SEPARATED, DAY),
    KIVO_FORMAT_ENTRY(YYQRD, yyqrd, ROMAN_SEPARATED, DAY),
    KIVO_FORMAT_ENTRY(YYQRN, yyqrn, ROMAN_RUN_TOGETHER, DAY),
    KIVO_FORMAT_ENTRY(YYQRP, yyqrp, ROMAN_SEPARATED, DAY),
    KIVO_FORMAT_ENTRY(YYQRS, yyqrs, ROMAN_SEPARATED, DAY),
};

}  // namespace

std::span<const FormatEntry> dayMonthYearFormatEntries() { return ENTRIES; }

}  // namespace kivoconvert
