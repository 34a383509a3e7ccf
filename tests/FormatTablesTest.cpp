// The date, time and datetime formats, each a table of values and the fields they must give: the DATE
// and year writers, the single components, the missing-value writers and the digit counter they share;
// the day-month-year, month-year and quarter families, one table per family, a row per date and a column
// per width, 'x' standing for the separator of the variant run (every variant runs every row, so a
// separator, order or width rule one variant gets wrong shows); the word-date, week-number and era
// formats, with today fixed for NENGO's running era; and the time and datetime formats, the AM/PM clocks,
// the carries of the seconds at every number of decimals and at the end of a day, and their fraction
// writer. (The host's week records are checked against strftime; the week fields read back by the week
// informats.)
#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <initializer_list>
#include <span>
#include <string>

#include "FormatFieldSupport.h"
#include "HostSupport.h"
#include "kivo/Formats.h"
#include "kivo/format/Missing.h"
#include "kivo/format/datetime/TimeWriters.h"
#include "kivox/Missing.h"
#include "kivox/Numbers.h"

namespace {

using kivo::lum_numeric::MISSING;
using kivo::lum_numeric::specialMissing;
using kivo::test::day;
using kivo::test::formatField;

class DateFormats : public kivo::test::FormatTable {};
TEST_P(DateFormats, WritesTheExpectedField) { expectRow(); }

const double Y10000 = day(10000, 3, 1);

// Widths outside a layout's range leave the field as it was ('#').
INSTANTIATE_TEST_SUITE_P(DateWriter, DateFormats, testing::ValuesIn(kivo::test::rows({
        FORMAT_WIDTHS(date, 5, 0, "01JAN", " 01JAN", "01JAN60", " 01JAN60", "01JAN1960", " 01JAN1960", "01-JAN-1960"),
        FORMAT_WIDTHS(date, 9, Y10000, "01MAR****", " 01MAR****", "01-MAR-****"),
        FORMAT_ROWS(date, {9, 0, 22356, "17MAR2021"}, {9, 0, -17321, "30JUL1912"}, {9, 0, 10600, "08JAN1989"},
                    {7, 0, -138061, "01JAN82"}, {9, 0, 22356.9, "17MAR2021"}, {9, 0, -0.5, "31DEC1959"},
                    {7, 0, Y10000, "01MAR00"}, {4, 0, 0, "####"}, {12, 0, 0, "############"}),
        FORMAT_ROWS(dtdate, {9, 0, 22356 * 86400.0 + 86399.9, "17MAR2021"}, {9, 0, -0.001, "31DEC1959"})})));

INSTANTIATE_TEST_SUITE_P(YearWriter, DateFormats, testing::ValuesIn(kivo::test::rows({
        FORMAT_ROWS(year, {2, 0, 0, "60"}, {3, 0, 0, " 60"}, {4, 0, 0, "1960"}, {6, 0, 0, "  1960"}, {1, 0, 0, "*"}),
        FORMAT_WIDTHS(year, 2, Y10000, "00", " 00", "****", "10000", " 10000", "  10000"),
        FORMAT_ROWS(dtyear, {4, 0, 86400.0 * day(2021, 12, 31) + 3600, "2021"})})));

INSTANTIATE_TEST_SUITE_P(SingleComponents, DateFormats, testing::ValuesIn(kivo::test::rows({
        FORMAT_ROWS(day, {2, 0, day(2021, 3, 5), " 5"}, {4, 0, day(2021, 3, 5), "   5"},
                    {2, 0, day(2021, 3, 31), "31"}, {1, 0, 0, "*"}),
        FORMAT_ROWS(weekday, {1, 0, 0, "6"}, {3, 0, 2, "  1"}),
        FORMAT_ROWS(julday, {3, 0, day(2021, 1, 5), "  5"}, {3, 0, day(2021, 2, 14), " 45"},
                    {3, 0, day(2021, 2, 1), " 32"}, {5, 0, day(2020, 12, 31), "  366"}),
        FORMAT_ROWS(month, {2, 0, day(2021, 3, 1), " 3"}, {3, 0, day(2021, 12, 1), " 12"}, {1, 0, day(2021, 9, 1), "9"},
                    {1, 0, day(2021, 10, 1), "A"}, {1, 0, day(2021, 11, 1), "B"}, {1, 0, day(2021, 12, 1), "C"}),
        FORMAT_ROWS(qtr, {1, 0, day(2021, 3, 31), "1"}, {3, 0, day(2021, 4, 1), "  2"}),
        FORMAT_ROWS(qtrr, {2, 0, day(2021, 11, 1), "IV"}, {3, 0, day(2021, 11, 1), " IV"},
                    {3, 0, day(2021, 8, 1), "III"}, {5, 0, day(2021, 1, 1), "    I"}, {1, 0, day(2021, 8, 1), "I"}),
        FORMAT_ROWS(downame, {9, 0, 0, "   Friday"}, {6, 0, 0, "Friday"}, {3, 0, 1, "Sat"}, {12, 0, 5, "   Wednesday"}),
        FORMAT_ROWS(monname, {9, 0, day(2021, 9, 1), "September"}, {9, 0, day(2021, 5, 1), "      May"},
                    {2, 0, day(2021, 5, 1), "Ma"})})));

TEST(WriteMissing, PlacesTheCharacterOrLeavesAFiniteValueAlone) {
    struct Case { double value; int width; int decimals; const char* expected; };
    const Case cases[] = {
        {INFINITY, 5, 0, "    ."}, {-INFINITY, 3, 1, " . "}, {NAN, 2, 0, " ."}, {MISSING, 6, 2, "   .  "},
        {specialMissing('A'), 3, 0, "  A"}, {MISSING, 3, 5, ".  "}, {MISSING, 3, -2, "  ."},
        {kivo::lum_numeric::MISSING__, 1, 0, "_"},
    };
    for (const Case& c : cases) {
        char field[16];
        ASSERT_TRUE(kivo::format::writeMissing(c.value, field, c.width, c.decimals));
        EXPECT_EQ(std::string(field, static_cast<std::size_t>(c.width)), c.expected) << c.width << "." << c.decimals;
    }
    char field[3] = {'#', '#', '#'};
    for (double finite : {-0.0, -1.7976931348623157e308, 4.9e-324}) {
        EXPECT_FALSE(kivo::format::writeMissing(finite, field, 3, 0)) << finite;
        EXPECT_FALSE(kivo::format::writeMissingAsBlanks(finite, field, 3, 0)) << finite;
    }
    EXPECT_EQ(std::string(field, 3), "###");
    EXPECT_FALSE(kivo::format::writeMissingAsBlanks(NAN, field, 3, 0));
    EXPECT_TRUE(kivo::format::writeMissingAsBlanks(specialMissing('Q'), field, 3, 1));
    EXPECT_EQ(std::string(field, 3), "   ");
}

TEST(WriteMissing, UsesTheHostCharacterReadAfreshForTheOrdinaryMissingValueOnly) {
    kivo::test::OwnServices services;
    services.locator().env().setMissingChar('?');
    EXPECT_EQ(formatField(dateFormat, 5, 0, MISSING), "    ?");
    EXPECT_EQ(formatField(dateFormat, 5, 0, INFINITY), "    ?");
    EXPECT_EQ(formatField(dateFormat, 5, 0, specialMissing('z')), "    Z");
    services.locator().env().setMissingChar('-');
    EXPECT_EQ(formatField(dateFormat, 5, 0, MISSING), "    -");
}

TEST(NumberOfDigits, CountsDecimalDigits) {
    using kivo::format::numberOfDigits;
    for (int digits = 1; digits <= 19; ++digits) {
        const long long power = kivo::int64Pow10(digits - 1);  // no 20th power: it would overflow
        const long long largest = digits == 19 ? LLONG_MAX : power * 10 - 1;
        EXPECT_EQ(numberOfDigits(power), digits) << power;
        EXPECT_EQ(numberOfDigits(largest), digits) << largest;
        if (power <= INT_MAX) {
            EXPECT_EQ(numberOfDigits(static_cast<int>(power)), digits) << power;
            EXPECT_EQ(numberOfDigits(static_cast<int>(std::min<long long>(largest, INT_MAX))), digits) << largest;
        }
    }
    EXPECT_EQ(numberOfDigits(0), 0);
    EXPECT_EQ(numberOfDigits(-5), 0);
    EXPECT_EQ(numberOfDigits(-1LL), 0);
}

const double D0 = 0;                           // 1 January 1960
const double LEAP_DAY = day(2020, 2, 29);      // Q1
const double YEAR_END = day(1999, 12, 31);     // Q4
const double BEFORE_1600 = day(1582, 10, 15);  // Q4
const double Y12000 = day(12000, 1, 15);       // past the four year positions
const double MAY_1960 = day(1960, 5, 1);       // Q2
const double AUG_1960 = day(1960, 8, 1);       // Q3
const double NOV_1960 = day(1960, 11, 30);     // Q4

// secondsSerial marks the DT formats, which are given the same day at noon.
struct Variant { KivoFormatFunction format; const char* name; char separator; bool secondsSerial = false; };

struct Row { double day; std::initializer_list<const char*> byWidth; };

// A variant's function and name from one token: VARIANT(ddmmyyb, ' ').
#define VARIANT(stem, ...) Variant{stem##Format, #stem, __VA_ARGS__}

const Variant DDMMYY_VARIANTS[] = {VARIANT(ddmmyy, '/'),  VARIANT(ddmmyyb, ' '), VARIANT(ddmmyyc, ':'),
                                   VARIANT(ddmmyyd, '-'), VARIANT(ddmmyyp, '.'), VARIANT(ddmmyys, '/')};
const Variant MMDDYY_VARIANTS[] = {VARIANT(mmddyy, '/'),  VARIANT(mmddyyb, ' '), VARIANT(mmddyyc, ':'),
                                   VARIANT(mmddyyd, '-'), VARIANT(mmddyyp, '.'), VARIANT(mmddyys, '/')};
const Variant YYMMDD_VARIANTS[] = {VARIANT(yymmdd, '-'),  VARIANT(yymmddb, ' '), VARIANT(yymmddc, ':'),
                                   VARIANT(yymmddd, '-'), VARIANT(yymmddp, '.'), VARIANT(yymmdds, '/')};
const Variant MMYY_VARIANTS[] = {VARIANT(mmyy, 'M'), VARIANT(mmyyc, ':'), VARIANT(mmyyd, '-'), VARIANT(mmyyp, '.'),
                                 VARIANT(mmyys, '/')};
const Variant YYMM_VARIANTS[] = {VARIANT(yymm, 'M'), VARIANT(yymmc, ':'), VARIANT(yymmd, '-'), VARIANT(yymmp, '.'),
                                 VARIANT(yymms, '/')};
const Variant YYQ_VARIANTS[] = {VARIANT(yyq, 'Q'),  VARIANT(yyqc, ':'), VARIANT(dtyyqc, ':', true),
                                VARIANT(yyqd, '-'), VARIANT(yyqp, '.'), VARIANT(yyqs, '/')};
const Variant YYQR_VARIANTS[] = {VARIANT(yyqr, 'Q'),  VARIANT(yyqrc, ':'), VARIANT(yyqrd, '-'), VARIANT(yyqrp, '.'),
                                 VARIANT(yyqrs, '/')};
// The writers of one variant each.
const Variant DDMMYYN[] = {VARIANT(ddmmyyn, 0)}, MMDDYYN[] = {VARIANT(mmddyyn, 0)}, YYMMDDN[] = {VARIANT(yymmddn, 0)};
const Variant MMYYN[] = {VARIANT(mmyyn, 0)}, YYMMN[] = {VARIANT(yymmn, 0)}, YYMON[] = {VARIANT(yymon, 0)};
const Variant MONYY[] = {VARIANT(monyy, 0), VARIANT(dtmonyy, 0, true)};
const Variant YYQN[] = {VARIANT(yyqn, 0)}, YYQRN[] = {VARIANT(yyqrn, 0)};

void expectFamily(int narrowest, std::span<const Variant> variants, std::initializer_list<Row> rows) {
    for (const Variant& variant : variants) {
        for (const Row& row : rows) {
            const double value = variant.secondsSerial ? row.day * 86400 + 43200 : row.day;
            int width = narrowest;
            for (std::string expected : row.byWidth) {
                for (char& c : expected) c = c == 'x' ? variant.separator : c;
                EXPECT_EQ(formatField(variant.format, width, 0, value), expected)
                    << variant.name << width << ". of day " << row.day;
                ++width;
            }
        }
    }
}

TEST(DayMonthYearFormats, SeparatedShowTheSeparatorOnlyWhereItFills) {
    expectFamily(2, DDMMYY_VARIANTS, {
        {D0, {"01", " 01", "0101", "01x01", "010160", " 010160", "01x01x60", " 01x01x60", "01x01x1960"}},
        {YEAR_END, {"31", " 31", "3112", "31x12", "311299", " 311299", "31x12x99", " 31x12x99", "31x12x1999"}},
        {Y12000, {"15", " 15", "1501", "15x01", "150100", " 150100", "15x01x00", " 15x01x00", "15x01x****"}}});
    expectFamily(2, MMDDYY_VARIANTS, {
        {D0, {"01", " 01", "0101", "01x01", "010160", " 010160", "01x01x60", " 01x01x60", "01x01x1960"}},
        {YEAR_END, {"12", " 12", "1231", "12x31", "123199", " 123199", "12x31x99", " 12x31x99", "12x31x1999"}},
        {Y12000, {"01", " 01", "0115", "01x15", "011500", " 011500", "01x15x00", " 01x15x00", "01x15x****"}}});
    expectFamily(2, YYMMDD_VARIANTS, {
        {D0, {"60", " 60", "6001", "60x01", "600101", " 600101", "60x01x01", " 60x01x01", "1960x01x01"}},
        {YEAR_END, {"99", " 99", "9912", "99x12", "991231", " 991231", "99x12x31", " 99x12x31", "1999x12x31"}},
        {Y12000, {"00", " 00", "0001", "00x01", "000115", " 000115", "00x01x15", " 00x01x15", "****x01x15"}}});
}

TEST(DayMonthYearFormats, RunTogether) {
    expectFamily(2, DDMMYYN, {
        {D0, {"01", " 01", "0101", " 0101", "010160", " 010160", "01011960"}},
        {LEAP_DAY, {"29", " 29", "2902", " 2902", "290220", " 290220", "29022020"}},
        {Y12000, {"15", " 15", "1501", " 1501", "150100", " 150100", "1501****"}}});
    expectFamily(2, MMDDYYN, {
        {YEAR_END, {"12", " 12", "1231", " 1231", "123199", " 123199", "12311999"}},
        {Y12000, {"01", " 01", "0115", " 0115", "011500", " 011500", "0115****"}}});
    expectFamily(2, YYMMDDN, {
        {D0, {"60", " 60", "6001", " 6001", "600101", " 600101", "19600101"}},
        {BEFORE_1600, {"82", " 82", "8210", " 8210", "821015", " 821015", "15821015"}},
        {Y12000, {"00", " 00", "0001", " 0001", "000115", " 000115", "****0115"}}});
}

// MMYY pads its widest layout and keeps "****" past 9999; YYMM and YYMON grow to five digits instead.
TEST(MonthYearFormats, MonthFirstPadsYearFirstGrows) {
    expectFamily(5, MMYY_VARIANTS, {
        {D0, {"01x60", " 01x60", "01x1960", " 01x1960", "  01x1960"}},
        {YEAR_END, {"12x99", " 12x99", "12x1999", " 12x1999", "  12x1999"}},
        {Y12000, {"01x00", " 01x00", "01x****", " 01x****", "  01x****"}}});
    expectFamily(4, MMYYN, {
        {D0, {"0160", " 0160", "011960", " 011960", "  011960"}},
        {Y12000, {"0100", " 0100", "01****", " 01****", "  01****"}}});
    expectFamily(5, YYMM_VARIANTS, {
        {D0, {"60x01", " 60x01", "1960x01", " 1960x01", "  1960x01"}},
        {BEFORE_1600, {"82x10", " 82x10", "1582x10", " 1582x10", "  1582x10"}},
        {Y12000, {"00x01", " 00x01", "****x01", "12000x01", " 12000x01"}}});
    expectFamily(4, YYMMN, {
        {D0, {"6001", " 6001", "196001", " 196001", "  196001"}},
        {Y12000, {"0001", " 0001", "****01", "1200001", " 1200001"}}});
    expectFamily(5, YYMON, {
        {D0, {"60JAN", " 60JAN", "1960JAN", " 1960JAN", "  1960JAN"}},
        {YEAR_END, {"99DEC", " 99DEC", "1999DEC", " 1999DEC", "  1999DEC"}},
        {Y12000, {"00JAN", " 00JAN", "****JAN", "12000JAN", " 12000JAN"}}});
}

// '#' is a byte the format left alone: MONYY writes nothing outside its three widths.
TEST(MonthYearFormats, MonyyHasThreeWidths) {
    expectFamily(4, MONYY, {
        {D0, {"####", "JAN60", " JAN60", "JAN1960", "########"}},
        {LEAP_DAY, {"####", "FEB20", " FEB20", "FEB2020", "########"}},
        {Y12000, {"####", "JAN00", " JAN00", "JAN****", "########"}}});
}

TEST(QuarterFormats, DigitQuarter) {
    expectFamily(4, YYQ_VARIANTS, {
        {D0, {"60x1", " 60x1", "1960x1", " 1960x1", "  1960x1"}},
        {AUG_1960, {"60x3", " 60x3", "1960x3", " 1960x3", "  1960x3"}},
        {YEAR_END, {"99x4", " 99x4", "1999x4", " 1999x4", "  1999x4"}},
        {Y12000, {"00x1", " 00x1", "****x1", "12000x1", " 12000x1"}}});
    expectFamily(3, YYQN, {
        {D0, {"601", " 601", "19601", " 19601", "  19601"}}, {YEAR_END, {"994", " 994", "19994", " 19994", "  19994"}},
        {Y12000, {"001", " 001", "****1", "120001", " 120001"}}});
}

// The year takes what the numeral leaves, so each quarter has its own layout at one width.
TEST(QuarterFormats, RomanQuarterMovesTheYear) {
    expectFamily(6, YYQR_VARIANTS, {
        {D0, {"1960xI", " 1960xI", "  1960xI", "   1960xI"}},
        {MAY_1960, {" 60xII", "1960xII", " 1960xII", "  1960xII"}},
        {AUG_1960, {"60xIII", " 60xIII", "1960xIII", " 1960xIII"}},
        {NOV_1960, {" 60xIV", "1960xIV", " 1960xIV", "  1960xIV"}},
        {Y12000, {"****xI", "12000xI", " 12000xI", "  12000xI"}}});
    expectFamily(5, YYQRN, {
        {D0, {"1960I", " 1960I", "  1960I"}}, {AUG_1960, {"60III", " 60III", "1960III"}},
        {NOV_1960, {" 60IV", "1960IV", " 1960IV"}}, {Y12000, {"****I", "12000I", " 12000I"}}});
}

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


class TimeFormats : public kivo::test::FormatTable {};
TEST_P(TimeFormats, WritesTheField) { expectRow(); }

constexpr double T = 45296.789;  // 12:34:56.789

INSTANTIATE_TEST_SUITE_P(Time, TimeFormats, testing::ValuesIn(kivo::test::rows({
        FORMAT_ROWS(time,
            // What fits, in the order hours, minutes, seconds, decimals.
            {8, 0, T, "12:34:57"}, {5, 0, T, "12:34"}, {7, 0, T, "  12:34"}, {2, 0, T, "12"}, {1, 0, T, "*"},
            {10, 0, T, "  12:34:57"}, {11, 2, T, "12:34:56.79"}, {10, 2, T, "12:34:56.8"}, {12, 3, T, "12:34:56.789"},
            {9, 2, T, " 12:34:57"}, {8, 0, 0.0, " 0:00:00"}, {9, 0, 360000.0, "100:00:00"}, {8, 0, -3600.0, "-1:00:00"},
            {9, 0, -3600.0, " -1:00:00"}, {2, 0, -36000.0, "**"},
            // Carries from the seconds into the minutes and hours, and the growth of the hour digits.
            {8, 0, 59.9999, " 0:01:00"}, {8, 0, 3599.5, " 1:00:00"}, {9, 0, 359999.5, "100:00:00"},
            {8, 0, 359999.5, "  100:00"},
            // Decimals asked for but none fit: a plain half second rounds.
            {8, 2, 59.4999999, " 0:00:59"}, {8, 2, 59.5, " 0:01:00"},
            // Fewer decimals shown than asked for: just below a whole second shows the whole second.
            {9, 2, 5.949999995, "0:00:06.0"}, {9, 2, 5.9499999, "0:00:05.9"},
            // Stored a hair below its decimal form, 0.29 still prints as written.
            {10, 2, 0.29, "0:00:00.29"})})));

// HHMM rounds a tie of minutes down and shows a bare point at nd + 4; MMSS rounds a tie of seconds up
// and counts minutes beyond 32 bits.
INSTANTIATE_TEST_SUITE_P(HhmmMmss, TimeFormats, testing::ValuesIn(kivo::test::rows({
        FORMAT_ROWS(hhmm, {5, 0, T, "12:35"}, {5, 0, 1770.0, " 0:29"}, {5, 0, 3570.0, " 0:59"},
            {5, 0, 1770.001, " 0:30"}, {5, 0, 3570.001, " 1:00"}, {6, 1, 5400.0, "1:30.0"}, {5, 1, 5400.0, "1:30."},
            {4, 1, 5400.0, "1:30"}, {3, 0, 5400.0, "  1"}, {8, 1, 5400.0, "  1:30.0"}, {7, 1, 3596.99, " 0:59.9"},
            {7, 1, 3597.0, " 1:00.0"}, {6, 0, -5400.0, " -1:30"}, {3, 0, 360000.0, "100"}, {2, 0, 360000.0, "**"},
            {3, 0, -360000.0, " **"}),
        FORMAT_ROWS(mmss, {5, 0, 29.5, " 0:30"}, {5, 0, 29.4999999, " 0:29"}, {5, 0, 3599.5, "60:00"},
            {6, 2, 61.25, "1:01.2"}, {7, 2, 61.25, "1:01.25"}, {6, 0, -61.0, " -1:01"}, {2, 0, 6000.0, "**"},
            {14, 0, 3e11, " 5000000000:00"})})));

// HOUR: no sign; 9.5 hours gain a digit and 9.95 leave no room for a decimal; hours longer than the
// width take the exponent form, or stars when even that does not fit.
INSTANTIATE_TEST_SUITE_P(Hour, TimeFormats, testing::ValuesIn(kivo::test::rows({
        FORMAT_ROWS(hour, {2, 0, 5400.0, " 2"}, {3, 1, 5400.0, "1.5"}, {5, 2, 5400.0, " 1.50"}, {2, 1, 1800.0, ".5"},
            {4, 2, 1800.0, "0.50"}, {3, 1, -5400.0, "1.5"}, {2, 0, 34200.0, "10"}, {3, 1, 35820.0, " 10"},
            {3, 1, 35819.0, "9.9"}, {4, 1, 35820.0, "10.0"}, {3, 0, 3600000.0, "1E3"}, {3, 1, -3600000.0, "1E3"},
            {6, 0, 5.5e11, "1.53E8"}, {2, 0, 360000.0, "**"})})));

constexpr double T9_05_30 = 9 * 3600 + 5 * 60 + 30;
constexpr double T13_45_30 = 13 * 3600 + 45 * 60 + 30;

// TOD: the hour does not wrap at the end of the day; a datetime shows its time of day, before 1960 too.
INSTANTIATE_TEST_SUITE_P(Tod, TimeFormats, testing::ValuesIn(kivo::test::rows({
        FORMAT_ROWS(tod, {8, 0, T9_05_30, "09:05:30"}, {7, 0, T9_05_30, "9:05:30"}, {5, 0, T9_05_30, "09:05"},
            {9, 0, T9_05_30, " 09:05:30"}, {10, 1, T9_05_30, "09:05:30.0"}, {2, 0, T9_05_30, "09"},
            {8, 0, T13_45_30, "13:45:30"}, {9, 0, T13_45_30, " 13:45:30"}, {4, 0, T13_45_30, "  13"},
            {10, 1, T13_45_30 + 0.25, "13:45:30.3"}, {8, 0, 86399.6, "24:00:00"}, {8, 0, 35999.6, "10:00:00"},
            {8, 0, -86400.0 + T9_05_30, "09:05:30"}, {8, 0, 22356 * 86400.0 + T13_45_30, "13:45:30"})})));

// The carry of the seconds at every number of decimals: a hair below the rounding boundary shows the
// last second with all nines, a hair above shows the next minute.
// slack: TIME's increment is 1e-8 above the half unit.
struct CarryLayout { KivoFormatFunction format; int widthAtNoDecimals; const char *below, *above; double slack;
                     const char* suffix = ""; };

class SecondsCarry : public testing::TestWithParam<CarryLayout> {};

TEST_P(SecondsCarry, AtEveryDecimals) {
    const CarryLayout& layout = GetParam();
    constexpr double HAIR = 1e-11;
    for (int d = 0; d <= 9; ++d) {
        const int width = layout.widthAtNoDecimals + (d > 0 ? d + 1 : 0);
        const double boundary = 60.0 - 0.5 / std::pow(10.0, d) - layout.slack;
        std::string nines = d > 0 ? "." + std::string(static_cast<std::size_t>(d), '9') : "";
        if (layout.slack > 0 && d >= 8) {
            // The slack shows in the last digits.
            nines = d == 8 ? ".99999998" : ".999999989";
        }
        const std::string zeros = d > 0 ? "." + std::string(static_cast<std::size_t>(d), '0') : "";
        EXPECT_EQ(formatField(layout.format, width, d, boundary - HAIR), layout.below + nines + layout.suffix) << d;
        EXPECT_EQ(formatField(layout.format, width, d, boundary + HAIR), layout.above + zeros + layout.suffix) << d;
    }
}

INSTANTIATE_TEST_SUITE_P(AllClocks, SecondsCarry, testing::Values(
    CarryLayout{timeFormat, 7, "0:00:59", "0:01:00", 1e-8},
    CarryLayout{mmssFormat, 4, "0:59", "1:00", 0.0},
    CarryLayout{todFormat, 7, "0:00:59", "0:01:00", 0.0},
    CarryLayout{timeampmFormat, 11, "12:00:59", "12:01:00", 0.0, " AM"},
    CarryLayout{datetimeFormat, 16, "01JAN60:00:00:59", "01JAN60:00:01:00", 0.0}));

TEST(NumberOfLeadingZeroes, Thresholds) {
    using kivo::format::datetime::numberOfLeadingZeroes;
    EXPECT_EQ(numberOfLeadingZeroes(0.5), 0);
    EXPECT_EQ(numberOfLeadingZeroes(0.1), 0);
    for (int k = 1; k <= 15; ++k) {
        const double power = std::pow(10.0, -k);
        EXPECT_EQ(numberOfLeadingZeroes(power), k - 1) << k;
        EXPECT_EQ(numberOfLeadingZeroes(std::nextafter(power, 0.0)), k) << k;
    }
    EXPECT_EQ(numberOfLeadingZeroes(0.0), 15);
}

struct RealNumberCase { double x; int intWidth; int decimals; const char* expected; };

class WriteRealNumber : public testing::TestWithParam<RealNumberCase> {};

TEST_P(WriteRealNumber, Writes) {
    const RealNumberCase& c = GetParam();
    char buffer[40];
    char* out = buffer;
    kivo::format::datetime::writeRealNumber(out, c.x, c.intWidth, c.decimals);
    EXPECT_EQ(std::string(buffer, out), c.expected);
}

// Only the lowest integer digits; at most 15 significant digits, then zeros.
const RealNumberCase REAL_NUMBER_CASES[] = {
    {7.25, 2, 3, "07.250"},  {0.0625, 0, 4, ".0625"}, {59.99, 2, 0, "59."},     {0.05, 0, 1, ".0"},
    {0.05, 0, 3, ".050"},    {123.5, 2, 1, "23.5"},   {105.5, 2, 1, "05.5"},    {0.000123, 2, 6, "00.000123"},
    {0.0, 1, 3, "0.000"},    {12.123456789012345678, 2, 18, "12.123456789012300000"},
    {0.123456789012345678, 0, 17, ".12345678901234500"}};
INSTANTIATE_TEST_SUITE_P(Fractions, WriteRealNumber, testing::ValuesIn(REAL_NUMBER_CASES));

constexpr double DAY = 86400.0;
constexpr double MARCH_17_2021 = 22356 * DAY;
constexpr double at(double day, int h, int m, double s) { return day + h * 3600 + m * 60 + s; }
constexpr double DT = at(MARCH_17_2021, 13, 45, 30.25);
// The last instant of a day that is still shown on it: 86400 - 2^-31. On day 0 the seconds serial
// keeps that precision.
const double DAY_END = DAY - std::ldexp(1.0, -31);
constexpr double LAST_DAY_OF_CALENDAR = 6589340 * DAY;  // 31 December 20000
constexpr double YEAR_10000 = 2936550 * DAY;            // 1 January 10000


// TIMEAMPM wraps at midnight, and its hour grows to two digits.
INSTANTIATE_TEST_SUITE_P(TimeAmPm, TimeFormats, testing::ValuesIn(kivo::test::rows({
        FORMAT_ROWS(timeampm, {4, 0, DT, "  PM"}, {5, 0, DT, " 1 PM"}, {8, 0, DT, " 1:45 PM"},
            {11, 0, DT, " 1:45:30 PM"},
            {12, 0, DT, "  1:45:30 PM"}, {13, 2, DT, "1:45:30.25 PM"}, {11, 0, 0.0, "12:00:00 AM"},
            {11, 0, 12 * 3600.0, "12:00:00 PM"}, {11, 0, 86399.6, "12:00:00 AM"}, {11, 0, 86399.4, "11:59:59 PM"},
            {11, 0, 43199.7, "12:00:00 PM"}, {11, 0, 35999.7, "10:00:00 AM"}, {12, 1, 35999.97, " 10:00:00 AM"},
            {2, 0, 35999.0, "AM"})})));

// DATETIME cuts its decimals rather than rounding them; unseen seconds still carry. At the end of the
// day: at the limit the next day, a hair before it hour 24 of the same day.
INSTANTIATE_TEST_SUITE_P(Datetime, TimeFormats, testing::ValuesIn(kivo::test::rows({
        FORMAT_WIDTHS(datetime, 7, DT, "17MAR21", " 17MAR21", "17MAR2021", "17MAR21:13"),
        FORMAT_ROWS(datetime, {12, 0, DT, "  17MAR21:13"}, {13, 0, DT, "17MAR21:13:45"}, {15, 0, DT, "  17MAR21:13:45"},
            {16, 0, DT, "17MAR21:13:45:30"}, {18, 0, DT, "  17MAR21:13:45:30"}, {19, 0, DT, " 17MAR2021:13:45:30"},
            {21, 0, DT, "   17MAR2021:13:45:30"}, {16, 2, DT, "17MAR21:13:45:30"}, {17, 2, DT, "17MAR21:13:45:30."},
            {18, 2, DT, "17MAR21:13:45:30.2"}, {19, 2, DT, "17MAR21:13:45:30.25"}, {20, 2, DT, " 17MAR21:13:45:30.25"},
            {21, 2, DT, "17MAR2021:13:45:30.25"}, {23, 2, DT, "  17MAR2021:13:45:30.25"}, {9, 2, DT, "17MAR2021"},
            {14, 2, DT, " 17MAR21:13:45"}, {16, 0, DAY_END, "02JAN60:00:00:00"},
            {16, 0, std::nextafter(DAY_END, 0.0), "01JAN60:24:00:00"}, {16, 0, 86399.4, "01JAN60:23:59:59"},
            {28, 9, 86399.999999995, "01JAN1960:24:00:00.000000000"},
            {28, 9, 86399.99999998, "01JAN1960:23:59:59.999999980"}, {13, 0, 3599.5, "01JAN60:01:00"},
            {18, 0, -0.5, "  31DEC59:24:00:00"}, {19, 0, YEAR_10000, " 01JAN****:00:00:00"},
            {16, 0, LAST_DAY_OF_CALENDAR + DAY_END, "****************"})})));

// DATEAMPM shows the 24-hour hour, without AM or PM, until the width has room for them; its day-end
// limit moves with the decimals, and hour 24 can follow a carry.
INSTANTIATE_TEST_SUITE_P(DateAmPm, TimeFormats, testing::ValuesIn(kivo::test::rows({
        FORMAT_WIDTHS(dateampm, 7, DT, "17MAR21", " 17MAR21", "17MAR2021", "17MAR21:13"),
        FORMAT_ROWS(dateampm, {12, 0, DT, "  17MAR21:13"}, {13, 0, DT, "17MAR21:01 PM"},
            {16, 0, DT, "17MAR21:01:45 PM"},
            {19, 0, DT, "17MAR21:01:45:30 PM"}, {21, 0, DT, "  17MAR21:01:45:30 PM"},
            {22, 0, DT, " 17MAR2021:01:45:30 PM"}, {20, 2, DT, "17MAR21:01:45:30. PM"},
            {21, 2, DT, "17MAR21:01:45:30.2 PM"}, {23, 2, DT, " 17MAR21:01:45:30.25 PM"},
            {24, 2, DT, "17MAR2021:01:45:30.25 PM"}, {19, 2, DT, "17MAR21:01:45:30 PM"},
            {19, 0, 86399.6, "02JAN60:12:00:00 AM"}, {19, 0, 86399.49, "01JAN60:11:59:59 PM"},
            {23, 1, 86399.95, "02JAN1960:12:00:00.0 AM"}, {23, 1, 86399.94, "01JAN1960:11:59:59.9 PM"},
            {26, 3, 86399.6, " 01JAN1960:11:59:59.600 PM"}, {24, 2, DAY_END, "02JAN1960:12:00:00.00 AM"},
            {13, 0, 3599.5, "01JAN60:01 AM"}, {13, 0, 86399.49999999, "01JAN60:12 AM"},
            {10, 0, 86399.49999999, "01JAN60:24"})})));

constexpr double T9_05 = at(MARCH_17_2021, 9, 5, 59.9);

// MDYAMPM and DMYAMPM do not round; below width 8 the field is left as it was.
INSTANTIATE_TEST_SUITE_P(SlashDates, TimeFormats, testing::ValuesIn(kivo::test::rows({
        FORMAT_ROWS(mdyampm, {8, 0, DT, "03/17/21"}, {9, 0, DT, " 03/17/21"}, {10, 0, DT, "03/17/2021"},
            {16, 0, DT, "      03/17/2021"}, {17, 0, DT, "03/17/21 13:45 PM"}, {17, 0, T9_05, " 03/17/21 9:05 AM"},
            {18, 0, DT, " 03/17/21 13:45 PM"}, {19, 0, DT, "03/17/2021 13:45 PM"},
            {19, 0, T9_05, " 03/17/2021 9:05 AM"},
            {19, 0, at(MARCH_17_2021, 0, 30, 0), " 03/17/2021 0:30 AM"}, {21, 0, DT, "  03/17/2021 13:45 PM"},
            {10, 0, YEAR_10000, "01/01/****"}, {8, 0, YEAR_10000, "01/01/00"}, {7, 0, DT, "#######"}),
        FORMAT_ROWS(dmyampm, {8, 0, DT, "17/03/21"}, {19, 0, DT, "17/03/2021 13:45 PM"},
            {17, 0, T9_05, " 17/03/21 9:05 AM"})})));

// MONDYTM shows the last instant of a day as 12 AM of that same date.
INSTANTIATE_TEST_SUITE_P(Mondytm, TimeFormats, testing::ValuesIn(kivo::test::rows({
        FORMAT_ROWS(mondytm, {20, 0, DT, "MAR 17 2021 01:45 PM"}, {23, 0, DT, "MAR 17 2021 01:45:30 PM"},
            {24, 2, DT, " MAR 17 2021 01:45:30 PM"}, {25, 2, DT, "MAR 17 2021 01:45:30.2 PM"},
            {26, 2, DT, "MAR 17 2021 01:45:30.25 PM"}, {28, 2, DT, "  MAR 17 2021 01:45:30.25 PM"},
            {20, 0, DT - 14 * DAY, " MAR 3 2021 01:45 PM"},
            {21, 0, at(MARCH_17_2021, 0, 0, 0), " MAR 17 2021 12:00 AM"},
            {23, 0, 86399.8, " JAN 1 1960 12:00:00 AM"}, {23, 0, 86399.4, " JAN 1 1960 11:59:59 PM"},
            {20, 0, 86399.4, " JAN 1 1960 11:59 PM"}, {20, 0, 3599.5, " JAN 1 1960 01:00 AM"},
            {23, 0, YEAR_10000, "***********************"})})));

}  // namespace
