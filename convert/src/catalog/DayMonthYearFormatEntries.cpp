#include "kivoconvert/Catalog.h"

namespace kivoconvert {

namespace {

constexpr ValueKind DAY = ValueKind::DAY;
constexpr ValueKind DATETIME = ValueKind::DATETIME;

constexpr FormatEntry ENTRIES[] = {
    KIVO_FORMAT_ENTRY(DDMMYY, ddmmyy, "day, month and year with slashes", limits::DAY_MONTH_YEAR, DAY),
    KIVO_FORMAT_ENTRY(DDMMYYB, ddmmyyb, "day, month and year with blanks", limits::DAY_MONTH_YEAR, DAY),
    KIVO_FORMAT_ENTRY(DDMMYYC, ddmmyyc, "day, month and year with colons", limits::DAY_MONTH_YEAR, DAY),
    KIVO_FORMAT_ENTRY(DDMMYYD, ddmmyyd, "day, month and year with dashes", limits::DAY_MONTH_YEAR, DAY),
    KIVO_FORMAT_ENTRY(DDMMYYN, ddmmyyn, "day, month and year with no separator", limits::DAY_MONTH_YEAR_RUN_TOGETHER,
                      DAY),
    KIVO_FORMAT_ENTRY(DDMMYYP, ddmmyyp, "day, month and year with points", limits::DAY_MONTH_YEAR, DAY),
    KIVO_FORMAT_ENTRY(DDMMYYS, ddmmyys, "day, month and year with slashes", limits::DAY_MONTH_YEAR, DAY),
    KIVO_FORMAT_ENTRY(MMDDYY, mmddyy, "month, day and year with slashes", limits::DAY_MONTH_YEAR, DAY),
    KIVO_FORMAT_ENTRY(MMDDYYB, mmddyyb, "month, day and year with blanks", limits::DAY_MONTH_YEAR, DAY),
    KIVO_FORMAT_ENTRY(MMDDYYC, mmddyyc, "month, day and year with colons", limits::DAY_MONTH_YEAR, DAY),
    KIVO_FORMAT_ENTRY(MMDDYYD, mmddyyd, "month, day and year with dashes", limits::DAY_MONTH_YEAR, DAY),
    KIVO_FORMAT_ENTRY(MMDDYYN, mmddyyn, "month, day and year with no separator", limits::DAY_MONTH_YEAR_RUN_TOGETHER,
                      DAY),
    KIVO_FORMAT_ENTRY(MMDDYYP, mmddyyp, "month, day and year with points", limits::DAY_MONTH_YEAR, DAY),
    KIVO_FORMAT_ENTRY(MMDDYYS, mmddyys, "month, day and year with slashes", limits::DAY_MONTH_YEAR, DAY),
    KIVO_FORMAT_ENTRY(YYMMDD, yymmdd, "year, month and day with slashes", limits::DAY_MONTH_YEAR, DAY),
    KIVO_FORMAT_ENTRY(YYMMDDB, yymmddb, "year, month and day with blanks", limits::DAY_MONTH_YEAR, DAY),
    KIVO_FORMAT_ENTRY(YYMMDDC, yymmddc, "year, month and day with colons", limits::DAY_MONTH_YEAR, DAY),
    KIVO_FORMAT_ENTRY(YYMMDDD, yymmddd, "year, month and day with dashes", limits::DAY_MONTH_YEAR, DAY),
    KIVO_FORMAT_ENTRY(YYMMDDN, yymmddn, "year, month and day with no separator", limits::DAY_MONTH_YEAR_RUN_TOGETHER,
                      DAY),
    KIVO_FORMAT_ENTRY(YYMMDDP, yymmddp, "year, month and day with points", limits::DAY_MONTH_YEAR, DAY),
    KIVO_FORMAT_ENTRY(YYMMDDS, yymmdds, "year, month and day with slashes", limits::DAY_MONTH_YEAR, DAY),

    KIVO_FORMAT_ENTRY(MMYY, mmyy, "month and year with M between", limits::MONTH_YEAR, DAY),
    KIVO_FORMAT_ENTRY(MMYYC, mmyyc, "month and year with colons", limits::MONTH_YEAR, DAY),
    KIVO_FORMAT_ENTRY(MMYYD, mmyyd, "month and year with dashes", limits::MONTH_YEAR, DAY),
    KIVO_FORMAT_ENTRY(MMYYN, mmyyn, "month and year with no separator", limits::MONTH_YEAR_RUN_TOGETHER, DAY),
    KIVO_FORMAT_ENTRY(MMYYP, mmyyp, "month and year with points", limits::MONTH_YEAR, DAY),
    KIVO_FORMAT_ENTRY(MMYYS, mmyys, "month and year with slashes", limits::MONTH_YEAR, DAY),
    KIVO_FORMAT_ENTRY(YYMM, yymm, "year and month with M between", limits::MONTH_YEAR, DAY),
    KIVO_FORMAT_ENTRY(YYMMC, yymmc, "year and month with colons", limits::MONTH_YEAR, DAY),
    KIVO_FORMAT_ENTRY(YYMMD, yymmd, "year and month with dashes", limits::MONTH_YEAR, DAY),
    KIVO_FORMAT_ENTRY(YYMMN, yymmn, "year and month with no separator", limits::MONTH_YEAR_RUN_TOGETHER, DAY),
    KIVO_FORMAT_ENTRY(YYMMP, yymmp, "year and month with points", limits::MONTH_YEAR, DAY),
    KIVO_FORMAT_ENTRY(YYMMS, yymms, "year and month with slashes", limits::MONTH_YEAR, DAY),

    // MONYY has layouts for 5..7 only (MAR99, a blank and MAR99, MAR1999). YYMON pads like YYMM ("99MAR"
    // from 5) and is the one of these whose decimals move the missing character.
    KIVO_FORMAT_ENTRY(MONYY, monyy, "month abbreviation and year", limits::MONYY, DAY),
    KIVO_FORMAT_ENTRY(DTMONYY, dtmonyy, "the month abbreviation and year of a datetime", limits::MONYY, DATETIME),
    KIVO_FORMAT_ENTRY(YYMON, yymon, "year and month abbreviation", limits::YYMON, DAY),

    KIVO_FORMAT_ENTRY(YYQ, yyq, "year and quarter with Q between", limits::YEAR_QUARTER, DAY),
    KIVO_FORMAT_ENTRY(YYQC, yyqc, "year and quarter with colons", limits::YEAR_QUARTER, DAY),
    KIVO_FORMAT_ENTRY(DTYYQC, dtyyqc, "the year and quarter of a datetime, with a colon", limits::YEAR_QUARTER,
                      DATETIME),
    KIVO_FORMAT_ENTRY(YYQD, yyqd, "year and quarter with dashes", limits::YEAR_QUARTER, DAY),
    KIVO_FORMAT_ENTRY(YYQN, yyqn, "year and quarter with no separator", limits::YEAR_QUARTER_RUN_TOGETHER, DAY),
    KIVO_FORMAT_ENTRY(YYQP, yyqp, "year and quarter with points", limits::YEAR_QUARTER, DAY),
    KIVO_FORMAT_ENTRY(YYQS, yyqs, "year and quarter with slashes", limits::YEAR_QUARTER, DAY),
    KIVO_FORMAT_ENTRY(YYQR, yyqr, "year and quarter in Roman numerals with Q between", limits::YEAR_ROMAN_QUARTER, DAY),
    KIVO_FORMAT_ENTRY(YYQRC, yyqrc, "year and quarter in Roman numerals with colons", limits::YEAR_ROMAN_QUARTER, DAY),
    KIVO_FORMAT_ENTRY(YYQRD, yyqrd, "year and quarter in Roman numerals with dashes", limits::YEAR_ROMAN_QUARTER, DAY),
    KIVO_FORMAT_ENTRY(YYQRN, yyqrn, "year and quarter in Roman numerals with no separator",
                      limits::YEAR_ROMAN_QUARTER_RUN_TOGETHER, DAY),
    KIVO_FORMAT_ENTRY(YYQRP, yyqrp, "year and quarter in Roman numerals with points", limits::YEAR_ROMAN_QUARTER, DAY),
    KIVO_FORMAT_ENTRY(YYQRS, yyqrs, "year and quarter in Roman numerals with slashes", limits::YEAR_ROMAN_QUARTER, DAY),
};

}  // namespace

std::span<const FormatEntry> dayMonthYearFormatEntries() { return ENTRIES; }

}  // namespace kivoconvert
