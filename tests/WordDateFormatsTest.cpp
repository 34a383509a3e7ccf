// The word-date formats: layouts by width, names of every length, days of one and two digits, and the
// two ways a five-digit year is cut when it does not quite fit.
#include <gtest/gtest.h>

#include "FormatFieldSupport.h"
#include "HostSupport.h"

namespace {

using kivo::test::day;
using kivo::test::formatField;

class WordDateFormats : public kivo::test::FormatTable {};
TEST_P(WordDateFormats, WritesTheExpectedField) { expectRow(); }

const double MAR17 = day(2021, 3, 17);      // Wednesday
const double SEP5 = day(2021, 9, 5);        // Sunday: the longest month name, a one-digit day
const double SEP15 = day(2021, 9, 15);      // Wednesday, September: both names at their longest
const double MAY1 = day(2021, 5, 1);        // Saturday, the shortest month name
const double Y12021 = day(12021, 9, 15);    // Wednesday again: 10000 years are 25 whole 400-year cycles
const double Y12021_D5 = day(12021, 9, 5);  // Sunday

// A five-digit year one character too long for the field keeps its first four digits: WORDDATE and
// WEEKDATE then drop the blank before it, WORDDATX keeps one blank in front. DTWKDATX shows the calendar
// day of a seconds serial, evening included.
INSTANTIATE_TEST_SUITE_P(WordDates, WordDateFormats, testing::ValuesIn(kivo::test::rows({
        FORMAT_ROWS(worddate, {18, 0, MAR17, "    March 17, 2021"}, {12, 0, MAR17, "Mar 17, 2021"},
            {11, 0, MAR17, "      March"}, {9, 0, SEP5, "September"}, {8, 0, MAR17, "     Mar"}, {3, 0, MAR17, "Mar"},
            {17, 0, SEP5, "      Sep 5, 2021"}, {18, 0, SEP5, " September 5, 2021"},
            {18, 0, SEP15, "September 15, 2021"}, {20, 0, MAY1, "         May 1, 2021"},
            {18, 0, Y12021, "September 15, 1202"},
            {19, 0, Y12021, "September 15, 12021"}, {12, 0, Y12021, "Sep 15, 1202"}, {13, 0, Y12021, "Sep 15, 12021"},
            {12, 0, Y12021_D5, "Sep 5, 12021"}),
        FORMAT_ROWS(worddatx, {12, 0, MAY1, "  1 May 2021"}, {18, 0, MAR17, "     17 March 2021"},
            {18, 0, SEP15, " 15 September 2021"}, {17, 0, SEP15, "      15 Sep 2021"}, {11, 0, MAY1, "        May"},
            {5, 0, SEP5, "  Sep"}, {12, 0, Y12021, " 15 Sep 1202"}, {13, 0, Y12021, " 15 Sep 12021"},
            {12, 0, Y12021_D5, " 5 Sep 12021"}, {18, 0, Y12021, " 15 September 1202"},
            {19, 0, Y12021, " 15 September 12021"}),
        FORMAT_ROWS(weekdate, {29, 0, SEP15, "Wednesday, September 15, 2021"},
            {29, 0, MAR17, "    Wednesday, March 17, 2021"}, {16, 0, MAR17, " Wed, Mar 17, 21"},
            {15, 0, SEP5, " Sun, Sep 5, 21"}, {22, 0, MAR17, "     Wed, Mar 17, 2021"},
            {23, 0, MAY1, "  Saturday, May 1, 2021"}, {9, 0, SEP5, "   Sunday"}, {9, 0, MAR17, "Wednesday"},
            {3, 0, MAY1, "Sat"}, {16, 0, Y12021, " Wed, Sep 15, 21"}, {17, 0, Y12021, "Wed, Sep 15, 1202"},
            {23, 0, Y12021, "Wednesday, Sep 15, 1202"}, {24, 0, Y12021, "Wednesday, Sep 15, 12021"},
            {29, 0, Y12021, "Wednesday, September 15, 1202"}, {30, 0, Y12021, "Wednesday, September 15, 12021"}),
        FORMAT_ROWS(weekdatx, {29, 0, SEP5, "     Sunday, 5 September 2021"},
            {28, 0, SEP15, "      Wednesday, 15 Sep 2021"}, {16, 0, MAR17, "  Wed, 17 Mar 21"},
            {17, 0, MAY1, "  Sat, 1 May 2021"}, {14, 0, MAR17, "     Wednesday"}, {17, 0, Y12021, " Wed, 15 Sep 1202"},
            {17, 0, Y12021_D5, " Sun, 5 Sep 12021"}, {29, 0, Y12021, " Wednesday, 15 September 1202"},
            {30, 0, Y12021, " Wednesday, 15 September 12021"}),
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

}  // namespace
