// The DATE writer, the year writer and the single-component formats, the missing-value writers and the
// digit counter they share.
#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <string>

#include "FormatFieldSupport.h"
#include "HostSupport.h"
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

}  // namespace
