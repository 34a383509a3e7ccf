#include "kivoconvert/Catalog.h"

namespace kivoconvert {

namespace {

constexpr ValueKind DAY = ValueKind::DAY;
constexpr ValueKind DATETIME = ValueKind::DATETIME;
constexpr ValueKind TIME = ValueKind::TIME;

constexpr InformatEntry ENTRIES[] = {
    KIVO_INFORMAT_ENTRY(DATE, date, "day, month abbreviation and year", "17MAR2021|17-mar-21", limits::DATE_TEXT, DAY),
    KIVO_INFORMAT_ENTRY(DDMMYY, ddmmyy, "day, month and year: digits, one separator character used twice",
                        "17/03/2021|17-03-21|170321", limits::DAY_MONTH_YEAR_TEXT, DAY),
    KIVO_INFORMAT_ENTRY(MMDDYY, mmddyy, "month, day and year: digits, one separator character used twice",
                        "03/17/2021|031721", limits::DAY_MONTH_YEAR_TEXT, DAY),
    KIVO_INFORMAT_ENTRY(YYMMDD, yymmdd, "year, month and day: digits, one separator character used twice",
                        "2021-03-17|20210317", limits::YEAR_MONTH_DAY_TEXT, DAY),
    KIVO_INFORMAT_ENTRY(MINGUO, minguo, "year of the Minguo era, month and day", "110/03/17", limits::MINGUO_TEXT, DAY),
    KIVO_INFORMAT_ENTRY(NENGO, nengo, "an era letter (M, T, S, H or R), its year, month and day", "R03.03.17|H12.01.15",
                        limits::NENGO_TEXT, DAY),
    KIVO_INFORMAT_ENTRY(MONYY, monyy, "month abbreviation and year, as the month's first day", "MAR2021|mar21",
                        limits::MONYY_TEXT, DAY),
    KIVO_INFORMAT_ENTRY(YYMMN, yymmn, "year and month as digits, as the month's first day", "202103",
                        limits::YYMMN_TEXT, DAY),
    KIVO_INFORMAT_ENTRY(JULIAN, julian, "year and day of the year", "2021076|21076", limits::JULIAN_TEXT, DAY),
    KIVO_INFORMAT_ENTRY(YYQ, yyq, "year and quarter, as the quarter's first day", "2021Q1", limits::YYQ_TEXT, DAY),
    KIVO_INFORMAT_ENTRY(CANDATE, candate, "year, month and day with dashes", "2021-03-17", limits::CANDATE_TEXT, DAY),
    KIVO_INFORMAT_ENTRY(TIME, time, "hours, minutes and seconds, with AM or PM, or negative",
                        "10:30|13:30:15.5|1:30 PM|-1:30", limits::TIME_TEXT, TIME),
    KIVO_INFORMAT_ENTRY(CANTIME, cantime, "hours, minutes and seconds with colons", "10:30:15", limits::CANTIME_TEXT,
                        TIME),
    KIVO_INFORMAT_ENTRY(HHMMSS, hhmmss, "hours, minutes and seconds as digits or with colons", "103015|10:30:15",
                        limits::HHMMSS_TEXT, TIME),
    KIVO_INFORMAT_ENTRY(DATETIME, datetime, "day, month abbreviation and year, then the time", "17MAR2021:10:30:15",
                        limits::DATETIME_TEXT, DATETIME),
    KIVO_INFORMAT_ENTRY(MDYAMPM, mdyampm, "month, day and year, then the time with AM or PM", "03/17/2021 10:30 PM",
                        limits::SLASH_DATE_AM_PM_TEXT, DATETIME),
    KIVO_INFORMAT_ENTRY(DMYAMPM, dmyampm, "day, month and year, then the time with AM or PM", "17/03/2021 10:30 PM",
                        limits::SLASH_DATE_AM_PM_TEXT, DATETIME),
    KIVO_INFORMAT_ENTRY(MONDYTM, mondytm, "month abbreviation, day and year, then the time with AM or PM",
                        "MAR 17 2021 10:30:15 PM", limits::MONDYTM_TEXT, DATETIME),
    KIVO_INFORMAT_ENTRY(YMDDTTM, ymddttm, "year, month and day, then the time", "2021-03-17T10:30|2021-03-17 10:30:15",
                        limits::YMDDTTM_TEXT, DATETIME),
    KIVO_INFORMAT_ENTRY(CANSTAMP, canstamp, "year, month and day with dashes, then the time with colons",
                        "2021-03-17 10:30:15", limits::CANSTAMP_TEXT, DATETIME),
};

}  // namespace

std::span<const InformatEntry> textInformatEntries() { return ENTRIES; }

}  // namespace kivoconvert
