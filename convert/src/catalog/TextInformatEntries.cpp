#include "kivoconvert/Catalog.h"

namespace kivoconvert {

namespace {

// Each minimum is the shortest text that reads as a value: "1JAN0", "1/1/0" (DDMMYY, MMDDYY),
// "00115" (YYMMDD), "01/1/1" and "R1/1/1" (the era forms want six characters), "JAN0", "1" (YYMMN,
// JULIAN and HHMMSS read one digit as a whole value), "0Q1", "00-01-01", "1:0", "1JAN0 1:0",
// "1/1/0 1:0", "JAN1 0 1:0", "0-1-1T1:0", "00:00:00" and "00-01-01 00:00:00". The defaults are the
// widths of the matching format's usual layout: 7 for 15JAN00, 8 for 01/15/00, 6 for 2000Q1, 16 for
// 15JAN00:10:30:00 and so on; the layouts without a format default to their full length. The decimals are handed to the
// informat, which does not use them.
constexpr Limits TEXT(int minWidth, int defaultWidth) {
    return {minWidth, MAX_FIELD, defaultWidth, Decimals::PASSED_THROUGH};
}

constexpr ValueKind DAY = ValueKind::DAY;
constexpr ValueKind DATETIME = ValueKind::DATETIME;
constexpr ValueKind TIME = ValueKind::TIME;

constexpr InformatEntry ENTRIES[] = {
    KIVO_INFORMAT_ENTRY(DATE, date, "day, month abbreviation and year", "17MAR2021|17-mar-21", TEXT(5, 7), DAY),
    KIVO_INFORMAT_ENTRY(DDMMYY, ddmmyy, "day, month and year: digits, one separator character used twice", "17/03/2021|17-03-21|170321", TEXT(5, 8), DAY),
    KIVO_INFORMAT_ENTRY(MMDDYY, mmddyy, "month, day and year: digits, one separator character used twice", "03/17/2021|031721", TEXT(5, 8), DAY),
    KIVO_INFORMAT_ENTRY(YYMMDD, yymmdd, "year, month and day: digits, one separator character used twice", "2021-03-17|20210317", TEXT(5, 8), DAY),
    KIVO_INFORMAT_ENTRY(MINGUO, minguo, "year of the Minguo era, month and day", "110/03/17", TEXT(6, 8), DAY),
    KIVO_INFORMAT_ENTRY(NENGO, nengo, "an era letter (M, T, S, H or R), its year, month and day", "R03.03.17|H12.01.15", TEXT(6, 10), DAY),
    KIVO_INFORMAT_ENTRY(MONYY, monyy, "month abbreviation and year, as the month's first day", "MAR2021|mar21", TEXT(4, 5), DAY),
    KIVO_INFORMAT_ENTRY(YYMMN, yymmn, "year and month as digits, as the month's first day", "202103", TEXT(1, 6), DAY),
    KIVO_INFORMAT_ENTRY(JULIAN, julian, "year and day of the year", "2021076|21076", TEXT(1, 5), DAY),
    KIVO_INFORMAT_ENTRY(YYQ, yyq, "year and quarter, as the quarter's first day", "2021Q1", TEXT(3, 6), DAY),
    KIVO_INFORMAT_ENTRY(CANDATE, candate, "year, month and day with dashes", "2021-03-17", TEXT(8, 10), DAY),
    KIVO_INFORMAT_ENTRY(TIME, time, "hours, minutes and seconds, with AM or PM, or negative", "10:30|13:30:15.5|1:30 PM|-1:30", TEXT(3, 8), TIME),
    KIVO_INFORMAT_ENTRY(CANTIME, cantime, "hours, minutes and seconds with colons", "10:30:15", TEXT(8, 8), TIME),
    KIVO_INFORMAT_ENTRY(HHMMSS, hhmmss, "hours, minutes and seconds as digits or with colons", "103015|10:30:15", TEXT(1, 8), TIME),
    KIVO_INFORMAT_ENTRY(DATETIME, datetime, "day, month abbreviation and year, then the time", "17MAR2021:10:30:15", TEXT(9, 16), DATETIME),
    KIVO_INFORMAT_ENTRY(MDYAMPM, mdyampm, "month, day and year, then the time with AM or PM", "03/17/2021 10:30 PM", TEXT(9, 19), DATETIME),
    KIVO_INFORMAT_ENTRY(DMYAMPM, dmyampm, "day, month and year, then the time with AM or PM", "17/03/2021 10:30 PM", TEXT(9, 19), DATETIME),
    KIVO_INFORMAT_ENTRY(MONDYTM, mondytm, "month abbreviation, day and year, then the time with AM or PM", "MAR 17 2021 10:30:15 PM", TEXT(10, 23), DATETIME),
    KIVO_INFORMAT_ENTRY(YMDDTTM, ymddttm, "year, month and day, then the time", "2021-03-17T10:30|2021-03-17 10:30:15", TEXT(9, 19), DATETIME),
    KIVO_INFORMAT_ENTRY(CANSTAMP, canstamp, "year, month and day with dashes, then the time with colons", "2021-03-17 10:30:15", TEXT(17, 19), DATETIME),
};

}  // namespace

std::span<const InformatEntry> textInformatEntries() { return ENTRIES; }

}  // namespace kivoconvert
