// The DATE writer, the year writer and the single-component formats, with the entry conventions they
// share: missing values first, then "*" for a value that is no valid date.
#include <gtest/gtest.h>

#include <cmath>

#include "FormatFieldSupport.h"
#include "kivo/format/Missing.h"
#include "kivox/Calendar.h"
#include "kivox/Missing.h"
#include "kivox/Services.h"

namespace {

using kivo::lum_numeric::MISSING;
using kivo::test::FieldCase;
using kivo::test::formatField;

double day(int y, int m, int d) { return static_cast<int>(kivo::Date(y, m, d)); }

class DateFormats : public testing::TestWithParam<FieldCase> {};

TEST_P(DateFormats, WritesTheExpectedField) {
    const FieldCase& c = GetParam();
    EXPECT_EQ(formatField(c.format, c.width, c.decimals, c.value), c.expected);
}

const double Y10000 = day(10000, 3, 1);

INSTANTIATE_TEST_SUITE_P(
    DateWriter, DateFormats,
    testing::ValuesIn(kivo::test::rows({
        FORMAT_ROWS(date,
                    {5, 0, 0, "01JAN"}, {6, 0, 0, " 01JAN"}, {7, 0, 0, "01JAN60"}, {8, 0, 0, " 01JAN60"},
                    {9, 0, 0, "01JAN1960"}, {10, 0, 0, " 01JAN1960"}, {11, 0, 0, "01-JAN-1960"},
                    {9, 0, 22356, "17MAR2021"}, {9, 0, -17321, "30JUL1912"}, {9, 0, 10600, "08JAN1989"},
                    {7, 0, -138061, "01JAN82"}, {9, 0, 22356.9, "17MAR2021"}, {9, 0, -0.5, "31DEC1959"},
                    {9, 0, Y10000, "01MAR****"}, {10, 0, Y10000, " 01MAR****"}, {11, 0, Y10000, "01-MAR-****"},
                    {7, 0, Y10000, "01MAR00"}, {4, 0, 0, "####"}, {12, 0, 0, "############"},
                    {9, 0, 6589341, "*********"}, {9, 0, -138062, "*********"}, {9, 0, 1e300, "*********"}),
        FORMAT_ROWS(dtdate,
                    {9, 0, 22356 * 86400.0 + 86399.9, "17MAR2021"}, {9, 0, -0.001, "31DEC1959"},
                    {7, 0, 1e15, "*******"})})));

INSTANTIATE_TEST_SUITE_P(
    YearWriter, DateFormats,
    testing::ValuesIn(kivo::test::rows({
        FORMAT_ROWS(year,
                    {2, 0, 0, "60"}, {3, 0, 0, " 60"}, {4, 0, 0, "1960"}, {6, 0, 0, "  1960"}, {2, 0, Y10000, "00"},
                    {3, 0, Y10000, " 00"}, {4, 0, Y10000, "****"}, {5, 0, Y10000, "10000"},
                    {7, 0, Y10000, "  10000"}, {8, 2, MISSING, "     .  "}, {1, 0, 0, "*"}),
        FORMAT_ROWS(dtyear, {4, 0, 86400.0 * day(2021, 12, 31) + 3600, "2021"}, {4, 2, MISSING, "   ."})})));

INSTANTIATE_TEST_SUITE_P(
    SingleComponents, DateFormats,
    testing::ValuesIn(kivo::test::rows({
        FORMAT_ROWS(day,
                    {2, 0, day(2021, 3, 5), " 5"}, {4, 0, day(2021, 3, 5), "   5"}, {2, 0, day(2021, 3, 31), "31"},
                    {1, 0, 0, "*"}),
        FORMAT_ROWS(weekday, {1, 0, 0, "6"}, {3, 0, 2, "  1"}),
        FORMAT_ROWS(julday,
                    {3, 0, day(2021, 1, 5), "  5"}, {3, 0, day(2021, 2, 14), " 45"}, {3, 0, day(2021, 2, 1), " 32"},
                    {5, 0, day(2020, 12, 31), "  366"}),
        FORMAT_ROWS(month,
                    {2, 0, day(2021, 3, 1), " 3"}, {3, 0, day(2021, 12, 1), " 12"}, {1, 0, day(2021, 9, 1), "9"},
                    {1, 0, day(2021, 10, 1), "A"}, {1, 0, day(2021, 11, 1), "B"}, {1, 0, day(2021, 12, 1), "C"}),
        FORMAT_ROWS(qtr, {1, 0, day(2021, 3, 31), "1"}, {3, 0, day(2021, 4, 1), "  2"}),
        FORMAT_ROWS(qtrr,
                    {2, 0, day(2021, 11, 1), "IV"}, {3, 0, day(2021, 11, 1), " IV"}, {3, 0, day(2021, 8, 1), "III"},
                    {5, 0, day(2021, 1, 1), "    I"}, {1, 0, day(2021, 8, 1), "I"}),
        FORMAT_ROWS(downame,
                    {9, 0, 0, "   Friday"}, {6, 0, 0, "Friday"}, {3, 0, 1, "Sat"}, {12, 0, 5, "   Wednesday"}),
        FORMAT_ROWS(monname,
                    {9, 0, day(2021, 9, 1), "September"}, {9, 0, day(2021, 5, 1), "      May"},
                    {2, 0, day(2021, 5, 1), "Ma"}, {9, 3, kivo::lum_numeric::specialMissing('B'), "     B   "}),
        FORMAT_ROWS(downame, {9, 0, kivo::lum_numeric::MISSING__, "        _"}),
        FORMAT_ROWS(qtr, {3, 0, -1e9, "***"}),
        FORMAT_ROWS(month, {2, 0, INFINITY, " ."})})));

// The formats that place the missing character by their decimals, and those that do not.
TEST(DateFormatsEntry, MissingPositionFollowsTheDecimalsOnlyWhereTheFormatSaysSo) {
    const KivoFormatFunction byDecimals[] = {downameFormat, monnameFormat, qtrFormat, qtrrFormat, yearFormat};
    const KivoFormatFunction ignoringDecimals[] = {dateFormat,  dtdateFormat,  dayFormat,   juldayFormat,
                                                   monthFormat, weekdayFormat, dtyearFormat};
    for (KivoFormatFunction format : byDecimals) {
        EXPECT_EQ(formatField(format, 6, 2, MISSING), "   .  ");
    }
    for (KivoFormatFunction format : ignoringDecimals) {
        EXPECT_EQ(formatField(format, 6, 2, MISSING), "     .");
    }
}

TEST(WriteMissing, FiniteValuesAreLeftAlone) {
    for (double value : {0.0, -1e300, 1.7976931348623157e308, -0.0, 4.9e-324}) {
        char field[4] = {'#', '#', '#', '#'};
        EXPECT_FALSE(kivo::format::writeMissing(value, field, 4, 0)) << value;
        EXPECT_EQ(std::string(field, 4), "####");
        EXPECT_FALSE(kivo::format::writeMissingAsBlanks(value, field, 4, 0));
    }
}

TEST(WriteMissing, PlacesTheCharacter) {
    struct Case {
        double value;
        int width;
        int decimals;
        const char* expected;
    };
    const Case cases[] = {
        {INFINITY, 5, 0, "    ."}, {-INFINITY, 3, 1, " . "},    {NAN, 2, 0, " ."},
        {MISSING, 6, 2, "   .  "}, {MISSING, 8, 0, "       ."}, {kivo::lum_numeric::specialMissing('A'), 3, 0, "  A"},
        {MISSING, 3, 5, ".  "},    {MISSING, 3, -2, "  ."},     {kivo::lum_numeric::MISSING__, 1, 0, "_"},
    };
    for (const Case& c : cases) {
        char field[16];
        ASSERT_TRUE(kivo::format::writeMissing(c.value, field, c.width, c.decimals));
        EXPECT_EQ(std::string(field, static_cast<std::size_t>(c.width)), c.expected) << c.width << "." << c.decimals;
    }
    char field[3];
    EXPECT_TRUE(kivo::format::writeMissingAsBlanks(kivo::lum_numeric::specialMissing('Q'), field, 3, 1));
    EXPECT_EQ(std::string(field, 3), "   ");
    EXPECT_FALSE(kivo::format::writeMissingAsBlanks(NAN, field, 3, 0));
}

TEST(WriteMissing, UsesTheHostCharacterReadAfreshForTheOrdinaryMissingValueOnly) {
    kivo::ServiceLocator session;
    kivo::ServiceLocator* previous = kivo::ServiceLocator::setCurrent(&session);
    session.env().setMissingChar('?');
    EXPECT_EQ(formatField(dateFormat, 5, 0, MISSING), "    ?");
    EXPECT_EQ(formatField(dateFormat, 5, 0, INFINITY), "    ?");
    EXPECT_EQ(formatField(dateFormat, 5, 0, kivo::lum_numeric::specialMissing('z')), "    Z");
    session.env().setMissingChar('-');
    EXPECT_EQ(formatField(dateFormat, 5, 0, MISSING), "    -");
    kivo::ServiceLocator::setCurrent(previous);
}

TEST(NumberOfDigits, CountsDecimalDigits) {
    using kivo::format::numberOfDigits;
    const std::pair<int, int> ints[] = {
        {0, 0},    {-5, 0},    {1, 1},        {9, 1},         {10, 2},        {99, 2},          {100, 3},
        {9999, 4}, {10000, 5}, {99999999, 8}, {100000000, 9}, {999999999, 9}, {1000000000, 10}, {2147483647, 10}};
    for (const auto& [value, digits] : ints) {
        EXPECT_EQ(numberOfDigits(value), digits) << value;
    }
    long long power = 1;
    for (int digits = 1; digits <= 18; ++digits, power *= 10) {
        EXPECT_EQ(numberOfDigits(power), digits) << power;
        EXPECT_EQ(numberOfDigits(power * 10 - 1), digits) << power * 10 - 1;
    }
    EXPECT_EQ(numberOfDigits(1000000000000000000LL), 19);
    EXPECT_EQ(numberOfDigits(9223372036854775807LL), 19);
    EXPECT_EQ(numberOfDigits(-1LL), 0);
}

}  // namespace
