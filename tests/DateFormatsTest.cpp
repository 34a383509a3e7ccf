// The DATE writer, the year writer and the single-component formats, with the entry conventions they
// share: missing values first, then "*" for a value that is no valid date.
#include <gtest/gtest.h>

#include <cmath>

#include "FieldHarness.h"
#include "kivo/format/Missing.h"
#include "kivox/Calendar.h"
#include "kivox/Missing.h"
#include "kivox/Services.h"

namespace {

using kivo::lum_numeric::MISSING;

double day(int y, int m, int d) { return static_cast<int>(kivo::Date(y, m, d)); }

struct Case {
    const char* name;
    KivoFormatFunction format;
    int width;
    int decimals;
    double value;
    const char* expected;
};

std::ostream& operator<<(std::ostream& os, const Case& c) {
    return os << c.name << c.width << "." << c.decimals << " of " << c.value;
}

class DateFormats : public testing::TestWithParam<Case> {};

TEST_P(DateFormats, WritesTheExpectedField) {
    const Case& c = GetParam();
    EXPECT_EQ(formatField(c.format, c.width, c.decimals, c.value), c.expected);
}

const double Y10000 = day(10000, 3, 1);

INSTANTIATE_TEST_SUITE_P(
    DateWriter, DateFormats,
    testing::Values(
        Case{"DATE", dateFormat, 5, 0, 0, "01JAN"}, Case{"DATE", dateFormat, 6, 0, 0, " 01JAN"},
        Case{"DATE", dateFormat, 7, 0, 0, "01JAN60"}, Case{"DATE", dateFormat, 8, 0, 0, " 01JAN60"},
        Case{"DATE", dateFormat, 9, 0, 0, "01JAN1960"}, Case{"DATE", dateFormat, 10, 0, 0, " 01JAN1960"},
        Case{"DATE", dateFormat, 11, 0, 0, "01-JAN-1960"}, Case{"DATE", dateFormat, 9, 0, 22356, "17MAR2021"},
        Case{"DATE", dateFormat, 9, 0, -17321, "30JUL1912"}, Case{"DATE", dateFormat, 9, 0, 10600, "08JAN1989"},
        Case{"DATE", dateFormat, 7, 0, -138061, "01JAN82"}, Case{"DATE", dateFormat, 9, 0, 22356.9, "17MAR2021"},
        Case{"DATE", dateFormat, 9, 0, -0.5, "31DEC1959"}, Case{"DATE", dateFormat, 9, 0, Y10000, "01MAR****"},
        Case{"DATE", dateFormat, 10, 0, Y10000, " 01MAR****"}, Case{"DATE", dateFormat, 11, 0, Y10000, "01-MAR-****"},
        Case{"DATE", dateFormat, 7, 0, Y10000, "01MAR00"}, Case{"DATE", dateFormat, 4, 0, 0, "####"},
        Case{"DATE", dateFormat, 12, 0, 0, "############"}, Case{"DATE", dateFormat, 9, 0, 6589341, "*********"},
        Case{"DATE", dateFormat, 9, 0, -138062, "*********"}, Case{"DATE", dateFormat, 9, 0, 1e300, "*********"},
        Case{"DTDATE", dtdateFormat, 9, 0, 22356 * 86400.0 + 86399.9, "17MAR2021"},
        Case{"DTDATE", dtdateFormat, 9, 0, -0.001, "31DEC1959"}, Case{"DTDATE", dtdateFormat, 7, 0, 1e15, "*******"}));

INSTANTIATE_TEST_SUITE_P(
    YearWriter, DateFormats,
    testing::Values(Case{"YEAR", yearFormat, 2, 0, 0, "60"}, Case{"YEAR", yearFormat, 3, 0, 0, " 60"},
                    Case{"YEAR", yearFormat, 4, 0, 0, "1960"}, Case{"YEAR", yearFormat, 6, 0, 0, "  1960"},
                    Case{"YEAR", yearFormat, 2, 0, Y10000, "00"}, Case{"YEAR", yearFormat, 3, 0, Y10000, " 00"},
                    Case{"YEAR", yearFormat, 4, 0, Y10000, "****"}, Case{"YEAR", yearFormat, 5, 0, Y10000, "10000"},
                    Case{"YEAR", yearFormat, 7, 0, Y10000, "  10000"}, Case{"YEAR", yearFormat, 8, 2, MISSING, "     .  "},
                    Case{"YEAR", yearFormat, 1, 0, 0, "*"},
                    Case{"DTYEAR", dtyearFormat, 4, 0, 86400.0 * day(2021, 12, 31) + 3600, "2021"},
                    Case{"DTYEAR", dtyearFormat, 4, 2, MISSING, "   ."}));

INSTANTIATE_TEST_SUITE_P(
    SingleComponents, DateFormats,
    testing::Values(
        Case{"DAY", dayFormat, 2, 0, day(2021, 3, 5), " 5"}, Case{"DAY", dayFormat, 4, 0, day(2021, 3, 5), "   5"},
        Case{"DAY", dayFormat, 2, 0, day(2021, 3, 31), "31"}, Case{"DAY", dayFormat, 1, 0, 0, "*"},
        Case{"WEEKDAY", weekdayFormat, 1, 0, 0, "6"}, Case{"WEEKDAY", weekdayFormat, 3, 0, 2, "  1"},
        Case{"JULDAY", juldayFormat, 3, 0, day(2021, 1, 5), "  5"},
        Case{"JULDAY", juldayFormat, 3, 0, day(2021, 2, 14), " 45"},
        Case{"JULDAY", juldayFormat, 3, 0, day(2021, 2, 1), " 32"},
        Case{"JULDAY", juldayFormat, 5, 0, day(2020, 12, 31), "  366"},
        Case{"MONTH", monthFormat, 2, 0, day(2021, 3, 1), " 3"}, Case{"MONTH", monthFormat, 3, 0, day(2021, 12, 1), " 12"},
        Case{"MONTH", monthFormat, 1, 0, day(2021, 9, 1), "9"}, Case{"MONTH", monthFormat, 1, 0, day(2021, 10, 1), "A"},
        Case{"MONTH", monthFormat, 1, 0, day(2021, 11, 1), "B"}, Case{"MONTH", monthFormat, 1, 0, day(2021, 12, 1), "C"},
        Case{"QTR", qtrFormat, 1, 0, day(2021, 3, 31), "1"}, Case{"QTR", qtrFormat, 3, 0, day(2021, 4, 1), "  2"},
        Case{"QTRR", qtrrFormat, 2, 0, day(2021, 11, 1), "IV"}, Case{"QTRR", qtrrFormat, 3, 0, day(2021, 11, 1), " IV"},
        Case{"QTRR", qtrrFormat, 3, 0, day(2021, 8, 1), "III"}, Case{"QTRR", qtrrFormat, 5, 0, day(2021, 1, 1), "    I"},
        Case{"QTRR", qtrrFormat, 1, 0, day(2021, 8, 1), "I"},
        Case{"DOWNAME", downameFormat, 9, 0, 0, "   Friday"}, Case{"DOWNAME", downameFormat, 6, 0, 0, "Friday"},
        Case{"DOWNAME", downameFormat, 3, 0, 1, "Sat"}, Case{"DOWNAME", downameFormat, 12, 0, 5, "   Wednesday"},
        Case{"MONNAME", monnameFormat, 9, 0, day(2021, 9, 1), "September"},
        Case{"MONNAME", monnameFormat, 9, 0, day(2021, 5, 1), "      May"},
        Case{"MONNAME", monnameFormat, 2, 0, day(2021, 5, 1), "Ma"},
        Case{"MONNAME", monnameFormat, 9, 3, kivo::lum_numeric::specialMissing('B'), "     B   "},
        Case{"DOWNAME", downameFormat, 9, 0, kivo::lum_numeric::MISSING__, "        _"},
        Case{"QTR", qtrFormat, 3, 0, -1e9, "***"}, Case{"MONTH", monthFormat, 2, 0, INFINITY, " ."}));

// The formats that place the missing character by their decimals, and those that do not.
TEST(DateFormatsEntry, MissingPositionFollowsTheDecimalsOnlyWhereTheFormatSaysSo) {
    const KivoFormatFunction byDecimals[] = {downameFormat, monnameFormat, qtrFormat, qtrrFormat, yearFormat};
    const KivoFormatFunction ignoringDecimals[] = {dateFormat, dtdateFormat, dayFormat,   juldayFormat,
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
        {INFINITY, 5, 0, "    ."},    {-INFINITY, 3, 1, " . "},       {NAN, 2, 0, " ."},
        {MISSING, 6, 2, "   .  "},    {MISSING, 8, 0, "       ."},    {kivo::lum_numeric::specialMissing('A'), 3, 0, "  A"},
        {MISSING, 3, 5, ".  "},       {MISSING, 3, -2, "  ."},        {kivo::lum_numeric::MISSING__, 1, 0, "_"},
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
    const std::pair<int, int> ints[] = {{0, 0},         {-5, 0},        {1, 1},        {9, 1},
                                        {10, 2},        {99, 2},        {100, 3},      {9999, 4},
                                        {10000, 5},     {99999999, 8},  {100000000, 9}, {999999999, 9},
                                        {1000000000, 10}, {2147483647, 10}};
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
