#include "kivodt/Catalog.h"

namespace kivodt {

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
    KIVODT_FORMAT(DDMMYY, ddmmyy, SEPARATED, DAY),
    KIVODT_FORMAT(DDMMYYB, ddmmyyb, SEPARATED, DAY),
    KIVODT_FORMAT(DDMMYYC, ddmmyyc, SEPARATED, DAY),
    KIVODT_FORMAT(DDMMYYD, ddmmyyd, SEPARATED, DAY),
    KIVODT_FORMAT(DDMMYYN, ddmmyyn, RUN_TOGETHER, DAY),
    KIVODT_FORMAT(DDMMYYP, ddmmyyp, SEPARATED, DAY),
    KIVODT_FORMAT(DDMMYYS, ddmmyys, SEPARATED, DAY),
    KIVODT_FORMAT(MMDDYY, mmddyy, SEPARATED, DAY),
    KIVODT_FORMAT(MMDDYYB, mmddyyb, SEPARATED, DAY),
    KIVODT_FORMAT(MMDDYYC, mmddyyc, SEPARATED, DAY),
    KIVODT_FORMAT(MMDDYYD, mmddyyd, SEPARATED, DAY),
    KIVODT_FORMAT(MMDDYYN, mmddyyn, RUN_TOGETHER, DAY),
    KIVODT_FORMAT(MMDDYYP, mmddyyp, SEPARATED, DAY),
    KIVODT_FORMAT(MMDDYYS, mmddyys, SEPARATED, DAY),
    KIVODT_FORMAT(YYMMDD, yymmdd, SEPARATED, DAY),
    KIVODT_FORMAT(YYMMDDB, yymmddb, SEPARATED, DAY),
    KIVODT_FORMAT(YYMMDDC, yymmddc, SEPARATED, DAY),
    KIVODT_FORMAT(YYMMDDD, yymmddd, SEPARATED, DAY),
    KIVODT_FORMAT(YYMMDDN, yymmddn, RUN_TOGETHER, DAY),
    KIVODT_FORMAT(YYMMDDP, yymmddp, SEPARATED, DAY),
    KIVODT_FORMAT(YYMMDDS, yymmdds, SEPARATED, DAY),

    KIVODT_FORMAT(MMYY, mmyy, padded(5, 7), DAY),
    KIVODT_FORMAT(MMYYC, mmyyc, padded(5, 7), DAY),
    KIVODT_FORMAT(MMYYD, mmyyd, padded(5, 7), DAY),
    KIVODT_FORMAT(MMYYN, mmyyn, padded(4, 6), DAY),
    KIVODT_FORMAT(MMYYP, mmyyp, padded(5, 7), DAY),
    KIVODT_FORMAT(MMYYS, mmyys, padded(5, 7), DAY),
    KIVODT_FORMAT(YYMM, yymm, padded(5, 7), DAY),
    KIVODT_FORMAT(YYMMC, yymmc, padded(5, 7), DAY),
    KIVODT_FORMAT(YYMMD, yymmd, padded(5, 7), DAY),
    KIVODT_FORMAT(YYMMN, yymmn, padded(4, 6), DAY),
    KIVODT_FORMAT(YYMMP, yymmp, padded(5, 7), DAY),
    KIVODT_FORMAT(YYMMS, yymms, padded(5, 7), DAY),

    // MONYY has layouts for 5..7 only (MAR99, a blank and MAR99, MAR1999). YYMON pads like YYMM ("99MAR"
    // from 5) and is the one of these whose decimals move the missing character.
    KIVODT_FORMAT(MONYY, monyy, NO_DECIMALS(5, 7, 5), DAY),
    KIVODT_FORMAT(DTMONYY, dtmonyy, NO_DECIMALS(5, 7, 5), DATETIME),
    KIVODT_FORMAT(YYMON, yymon, Limits{5, MAX_FIELD, 7, Decimals::MISSING_POSITION}, DAY),

    KIVODT_FORMAT(YYQ, yyq, padded(4, 6), DAY),
    KIVODT_FORMAT(YYQC, yyqc, padded(4, 6), DAY),
    KIVODT_FORMAT(DTYYQC, dtyyqc, padded(4, 6), DATETIME),
    KIVODT_FORMAT(YYQD, yyqd, padded(4, 6), DAY),
    KIVODT_FORMAT(YYQN, yyqn, padded(3, 5), DAY),
    KIVODT_FORMAT(YYQP, yyqp, padded(4, 6), DAY),
    KIVODT_FORMAT(YYQS, yyqs, padded(4, 6), DAY),
    KIVODT_FORMAT(YYQR, yyqr, ROMAN_SEPARATED, DAY),
    KIVODT_FORMAT(YYQRC, yyqrc, ROMAN_SEPARATED, DAY),
    KIVODT_FORMAT(YYQRD, yyqrd, ROMAN_SEPARATED, DAY),
    KIVODT_FORMAT(YYQRN, yyqrn, ROMAN_RUN_TOGETHER, DAY),
    KIVODT_FORMAT(YYQRP, yyqrp, ROMAN_SEPARATED, DAY),
    KIVODT_FORMAT(YYQRS, yyqrs, ROMAN_SEPARATED, DAY),
};

}  // namespace

std::span<const FormatEntry> dayMonthYearFormatEntries() { return ENTRIES; }

}  // namespace kivodt
