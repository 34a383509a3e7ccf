// The DATE writer, the year writer and the single-component formats, the missing-value writers and the
// digit counter they share.
// The day-month-year, month-year and quarter families: each family is one table, a row per date, a
// column per width from the family's narrowest, 'x' standing for the separator of the variant run. Every
// variant of the family runs every row, so a separator, a component order or a width rule that one
// variant gets wrong shows up there.
// Then the word-date, week-number and era formats. Word dates: layouts by width, names of every length, days
// of one and two digits, and the two ways a five-digit year is cut when it does not quite fit. Week
// numbers: the texts by width of both families and the convention each follows at the turn of the year
// (the host's week records are checked against strftime, the fields read back by the week informats).
// JULIAN, MINGUO and NENGO as text, PDJULG and PDJULI as packed bytes; NENGO's last era ends at today's
// date, so its tests fix "today" through the host option.
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
#include "kivox/Missing.h"

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
    long long power = 1;
    for (int digits = 1; digits <= 19; ++digits, power *= 10) {
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

}  // namespace
