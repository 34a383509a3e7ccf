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
    KIVO_INFORMAT_ENTRY(DATE, date, TEXT(5, 7), DAY),
    KIVO_INFORMAT_ENTRY(DDMMYY, ddmmyy, TEXT(5, 8), DAY),
    KIVO_INFORMAT_ENTRY(MMDDYY, mmddyy, TEXT(5, 8), DAY),
    KIVO_INFORMAT_ENTRY(YYMMDD, yymmdd, TEXT(5, 8), DAY),
    KIVO_INFORMAT_ENTRY(MINGUO, minguo, TEXT(6, 8), DAY),
    KIVO_INFORMAT_ENTRY(NENGO, nengo, TEXT(6, 10), DAY),
    KIVO_INFORMAT_ENTRY(MONYY, monyy, TEXT(4, 5), DAY),
    KIVO_INFORMAT_ENTRY(YYMMN, yymmn, TEXT(1, 6), DAY),
    KIVO_INFORMAT_ENTRY(JULIAN, julian, TEXT(1, 5), DAY),
    KIVO_INFORMAT_ENTRY(YYQ, yyq, TEXT(3, 6), DAY),
    KIVO_INFORMAT_ENTRY(CANDATE, candate, TEXT(8, 10), DAY),
    KIVO_INFORMAT_ENTRY(TIME, time, TEXT(3, 8), TIME),
    KIVO_INFORMAT_ENTRY(CANTIME, cantime, TEXT(8, 8), TIME),
    KIVO_INFORMAT_ENTRY(HHMMSS, hhmmss, TEXT(1, 8), TIME),
    KIVO_INFORMAT_ENTRY(DATETIME, datetime, TEXT(9, 16), DATETIME),
    KIVO_INFORMAT_ENTRY(MDYAMPM, mdyampm, TEXT(9, 19), DATETIME),
    KIVO_INFORMAT_ENTRY(DMYAMPM, dmyampm, TEXT(9, 19), DATETIME),
    KIVO_INFORMAT_ENTRY(MONDYTM, mondytm, TEXT(10, 23), DATETIME),
    KIVO_INFORMAT_ENTRY(YMDDTTM, ymddttm, TEXT(9, 19), DATETIME),
    KIVO_INFORMAT_ENTRY(CANSTAMP, canstamp, TEXT(17, 19), DATETIME),
};

}  // namespace

std::span<const InformatEntry> textInformatEntries() { return ENTRIES; }

}  // namespace kivoconvert
