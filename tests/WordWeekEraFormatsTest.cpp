// The word-date, week-number and era formats. Word dates: layouts by width, names of every length, days
// of one and two digits, and the two ways a five-digit year is cut when it does not quite fit. Week
// numbers: the texts by width of both families and the convention each follows at the turn of the year
// (the host's week records are checked against strftime, the fields read back by the week informats).
// JULIAN, MINGUO and NENGO as text, PDJULG and PDJULI as packed bytes; NENGO's last era ends at today's
// date, so its tests fix "today" through the host option.
#include <gtest/gtest.h>

#include <string>

#include "FormatFieldSupport.h"
#include "HostSupport.h"
#include "kivox/Missing.h"

namespace {

using kivo::test::day;
using kivo::test::formatField;

// Today is 17 March 2021, where NENGO's running era ends.
class WordWeekEraFormats : public kivo::test::FormatTable {
protected:
    WordWeekEraFormats() { services_.options().setOption("today", "2021-03-17"); }
    kivo::test::OwnServices services_;
};
TEST_P(WordWeekEraFormats, WritesTheExpectedField) { expectRow(); }

const double MAR17 = day(2021, 3, 17);  // Wednesday, day 76 of the year, weekday 4 of U-week 11
const double SEP5 = day(2021, 9, 5);    // Sunday: the longest month name, a one-digit day
const double SEP15 = day(2021, 9, 15);  // Wednesday, September: both names at their longest
const double MAY1 = day(2021, 5, 1);    // Saturday, the shortest month name
const double SEP15_12021 = day(12021, 9, 15);  // Wednesday again: 10000 years are 25 whole 400-year cycles
const double SEP5_12021 = day(12021, 9, 5);    // Sunday

// A five-digit year one character too long for the field keeps its first four digits: WORDDATE and
// WEEKDATE then drop the blank before it, WORDDATX keeps one blank in front. DTWKDATX shows the calendar
// day of a seconds serial, evening included.
INSTANTIATE_TEST_SUITE_P(WordDates, WordWeekEraFormats, testing::ValuesIn(kivo::test::rows({
        FORMAT_ROWS(worddate, {18, 0, MAR17, "    March 17, 2021"}, {12, 0, MAR17, "Mar 17, 2021"},
            {11, 0, MAR17, "      March"}, {9, 0, SEP5, "September"}, {8, 0, MAR17, "     Mar"}, {3, 0, MAR17, "Mar"},
            {17, 0, SEP5, "      Sep 5, 2021"}, {18, 0, SEP5, " September 5, 2021"},
            {18, 0, SEP15, "September 15, 2021"}, {20, 0, MAY1, "         May 1, 2021"},
            {18, 0, SEP15_12021, "September 15, 1202"},
            {19, 0, SEP15_12021, "September 15, 12021"}, {12, 0, SEP15_12021, "Sep 15, 1202"},
            {13, 0, SEP15_12021, "Sep 15, 12021"},
            {12, 0, SEP5_12021, "Sep 5, 12021"}),
        FORMAT_ROWS(worddatx, {12, 0, MAY1, "  1 May 2021"}, {18, 0, MAR17, "     17 March 2021"},
            {18, 0, SEP15, " 15 September 2021"}, {17, 0, SEP15, "      15 Sep 2021"}, {11, 0, MAY1, "        May"},
            {5, 0, SEP5, "  Sep"}, {12, 0, SEP15_12021, " 15 Sep 1202"}, {13, 0, SEP15_12021, " 15 Sep 12021"},
            {12, 0, SEP5_12021, " 5 Sep 12021"}, {18, 0, SEP15_12021, " 15 September 1202"},
            {19, 0, SEP15_12021, " 15 September 12021"}),
        FORMAT_ROWS(weekdate, {29, 0, SEP15, "Wednesday, September 15, 2021"},
            {29, 0, MAR17, "    Wednesday, March 17, 2021"}, {16, 0, MAR17, " Wed, Mar 17, 21"},
            {15, 0, SEP5, " Sun, Sep 5, 21"}, {22, 0, MAR17, "     Wed, Mar 17, 2021"},
            {23, 0, MAY1, "  Saturday, May 1, 2021"}, {9, 0, SEP5, "   Sunday"}, {9, 0, MAR17, "Wednesday"},
            {3, 0, MAY1, "Sat"}, {16, 0, SEP15_12021, " Wed, Sep 15, 21"}, {17, 0, SEP15_12021, "Wed, Sep 15, 1202"},
            {23, 0, SEP15_12021, "Wednesday, Sep 15, 1202"}, {24, 0, SEP15_12021, "Wednesday, Sep 15, 12021"},
            {29, 0, SEP15_12021, "Wednesday, September 15, 1202"},
            {30, 0, SEP15_12021, "Wednesday, September 15, 12021"}),
        FORMAT_ROWS(weekdatx, {29, 0, SEP5, "     Sunday, 5 September 2021"},
            {28, 0, SEP15, "      Wednesday, 15 Sep 2021"}, {16, 0, MAR17, "  Wed, 17 Mar 21"},
            {17, 0, MAY1, "  Sat, 1 May 2021"}, {14, 0, MAR17, "     Wednesday"},
            {17, 0, SEP15_12021, " Wed, 15 Sep 1202"},
            {17, 0, SEP5_12021, " Sun, 5 Sep 12021"}, {29, 0, SEP15_12021, " Wednesday, 15 September 1202"},
            {30, 0, SEP15_12021, " Wednesday, 15 September 12021"}),
        FORMAT_ROWS(dtwkdatx, {29, 0, SEP5 * 86400 + 86399.5, "     Sunday, 5 September 2021"},
            {3, 0, -0.5, "Thu"})})));

// Every layout fits every day at every width the formats offer, five-digit years included: no "*" for
// a valid date, and the text ends on the field's last byte.
TEST(WordDateFormatsSweep, EveryDayFitsEveryWidth) {
    const KivoFormatFunction formats[] = {worddateFormat, worddatxFormat, weekdateFormat, weekdatxFormat};
    for (const int year : {2021, 12020}) {
        for (double value = day(year, 1, 1); value <= day(year, 12, 31); ++value) {
            for (KivoFormatFunction format : formats) {
                for (int width = 3; width <= 32; ++width) {
                    const std::string text = formatField(format, width, 0, value);
                    ASSERT_EQ(text.find('*'), std::string::npos) << text;
                    ASSERT_NE(text.back(), ' ') << text;
                }
            }
        }
    }
}

using kivo::test::day;
using kivo::test::formatField;


const double JAN1 = day(2021, 1, 1);      // a Friday: week 53 of 2020 for V, week 0 of 2021 for U and W
const double Y12021 = day(12021, 3, 17);  // a year past 9999 shows its last four digits

// WEEKU is left-aligned, the blanks after the text; YYWEEKU at widths 7 and 8 shows the whole year.
// Sunday 3 January 2021 begins U-week 1 but is still in W-week 0.
INSTANTIATE_TEST_SUITE_P(WeekNumbers, WordWeekEraFormats, testing::ValuesIn(kivo::test::rows({
        FORMAT_WIDTHS(weeku, 3, MAR17, "W11", "W11 ", "21W11", "21W11 ", "21W1104", "21W1104 ", "2021W1104",
                      "2021W1104 ", "2021-W11-04"),
        FORMAT_WIDTHS(yyweeku, 3, MAR17, "W11", "W11 ", "21W11", "21W11 ", "2021W11", "2021-W11", "2021W1104",
                      "2021W1104 ", "2021-W11-04"),
        FORMAT_ROWS(weeku, {15, 0, MAR17, "2021-W11-04    "}, {11, 0, JAN1, "2021-W00-06"}),
        FORMAT_ROWS(yyweeku, {15, 0, MAR17, "2021-W11-04    "}, {8, 0, day(2021, 1, 3), "2021-W01"}),
        FORMAT_ROWS(weekv, {11, 0, JAN1, "2020-W53-05"}, {5, 0, JAN1, "20W53"}, {11, 0, day(2021, 1, 4), "2021-W01-01"},
                    {11, 0, Y12021, "2021-W11-03"}),
        FORMAT_ROWS(yyweekv, {8, 0, JAN1, "2020-W53"}, {7, 0, JAN1, "2020W53"}),
        FORMAT_ROWS(weekw, {11, 0, JAN1, "2021-W00-05"}),
        FORMAT_ROWS(yyweekw, {8, 0, Y12021, "2021-W11"}, {8, 0, JAN1, "2021-W00"},
                    {8, 0, day(2021, 1, 3), "2021-W00"})})));

using kivo::lum_numeric::MISSING;


// MINGUO counts years from 1911 up to 999; NENGO's eras begin on the days of their first rows.
INSTANTIATE_TEST_SUITE_P(JulianAndEras, WordWeekEraFormats, testing::ValuesIn(kivo::test::rows({
        FORMAT_WIDTHS(julian, 4, MAR17, "****", "21076", " 21076", "2021076", " 2021076"),
        FORMAT_ROWS(julian, {9, 0, day(2021, 1, 5), "  2021005"}, {5, 0, day(2020, 12, 31), "20366"},
                    {5, 0, Y12021, "21076"}, {8, 0, Y12021, "********"}),
        FORMAT_WIDTHS(minguo, 6, MAR17, "******", "1100317", "1100317 ", "110/03/17", "0110/03/17"),
        FORMAT_ROWS(minguo, {6, 0, day(1999, 3, 17), "880317"}, {7, 0, day(1999, 3, 17), "0880317"},
                    {8, 0, day(1999, 3, 17), "88/03/17"}, {10, 0, day(1999, 3, 17), "0088/03/17"},
                    {6, 0, day(1911, 3, 17), "000317"}, {8, 0, day(1911, 1, 1), "00/01/01"},
                    {8, 0, day(1910, 12, 31), "********"}, {9, 0, day(2910, 12, 31), "999/12/31"},
                    {10, 0, day(2911, 1, 1), "**********"}),
        FORMAT_WIDTHS(nengo, 2, MAR17, "R3", "R03", "R03 ", "R03  ", "R03/03", " R03/03", "R.030317", "R03/03/17",
                      "R.03/03/17"),
        FORMAT_ROWS(nengo, {9, 0, day(1868, 8, 31), "*********"}, {9, 0, day(1868, 9, 1), "M01/09/01"},
                    {9, 0, day(1912, 7, 29), "M45/07/29"}, {9, 0, day(1912, 7, 30), "T01/07/30"},
                    {9, 0, day(1926, 12, 24), "T15/12/24"}, {9, 0, day(1926, 12, 25), "S01/12/25"},
                    {9, 0, day(1989, 1, 7), "S64/01/07"}, {9, 0, day(1989, 1, 8), "H01/01/08"},
                    {9, 0, day(2019, 4, 30), "H31/04/30"}, {9, 0, day(2019, 5, 1), "R01/05/01"},
                    {2, 0, day(2019, 4, 30), "**"}, {2, 0, day(1989, 1, 8), "H1"}, {9, 0, MAR17 + 1, "*********"})})));

// The running era reaches as far as the "today" option, even past the year 2100.
TEST(NengoToday, TheRunningEraEndsWhereTheTodayOptionSays) {
    kivo::test::OwnServices services;
    services.options().setOption("today", "20000-12-31");
    EXPECT_EQ(formatField(nengoFormat, 10, 0, day(2100, 1, 1)), "R.82/01/01");
}

// The packed field as hex pairs, "2021076F".
std::string packedHex(KivoFormatFunction format, int width, double value) {
    const std::string bytes = formatField(format, width, 0, value);
    std::string hex;
    for (const char byte : bytes) {
        hex += "0123456789ABCDEF"[static_cast<unsigned char>(byte) >> 4];
        hex += "0123456789ABCDEF"[byte & 0xF];
    }
    return hex;
}

TEST(PackedJulianFormats, BytesByWidth) {
    struct Case { KivoFormatFunction format; int width; double value; const char* expected; };
    // Nines when the year does not fit (PDJULI counts years from 1900, so 121 need two bytes); zeros for
    // a missing value and for a date that is not valid, before 1900 for PDJULI.
    const Case cases[] = {
        {pdjulgFormat, 4, MAR17, "2021076F"}, {pdjulgFormat, 6, MAR17, "00002021076F"},
        {pdjulgFormat, 5, day(2020, 12, 31), "002020366F"}, {pdjulgFormat, 4, day(2021, 1, 5), "2021005F"},
        {pdjulgFormat, 3, MAR17, "99996F"}, {pdjulgFormat, 4, Y12021, "9999996F"},
        {pdjulgFormat, 5, Y12021, "012021076F"}, {pdjulgFormat, 4, MISSING, "0000000F"},
        {pdjulgFormat, 3, 1e9, "00000F"}, {pdjuliFormat, 4, MAR17, "0121076F"},
        {pdjuliFormat, 3, day(1999, 3, 17), "99076F"}, {pdjuliFormat, 3, MAR17, "99996F"},
        {pdjuliFormat, 6, MAR17, "00000121076F"}, {pdjuliFormat, 4, day(1900, 1, 1), "0000001F"},
        {pdjuliFormat, 4, Y12021, "9999996F"}, {pdjuliFormat, 5, Y12021, "010121076F"},
        {pdjuliFormat, 4, day(1899, 12, 31), "0000000F"}, {pdjuliFormat, 5, kivo::lum_numeric::MISSING__, "000000000F"},
    };
    for (const Case& c : cases) EXPECT_EQ(packedHex(c.format, c.width, c.value), c.expected) << c.expected;
}

}  // namespace
