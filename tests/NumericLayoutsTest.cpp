// The real-number layouts: each a table of values and the fields they must give, the digits D keeps
// after the point, and every layout over random values read back. The field is written between guard
// bytes that must stay untouched, and must be exactly `width` characters.
// Beneath them, the real field record: the digits writeDigitBuffer makes of a plan, the text outputReal and
// outputSeparatedReal write, equality and the invariant; and the packed and zoned decimal writers.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <random>
#include <string>

#include "SeededValues.h"
#include "formats/RealLayoutSteps.h"
#include "kivo/format/FormatRealFields.h"
#include "kivo/format/PackedDecimal.h"
#include "kivo/format/RealLayouts.h"
#include "kivox/Numbers.h"

namespace {

enum Layout { BEST, D, E, BLANK, PERCENT, LARGE_BLANK };

// The text a real layout writes, "*" when the layout reports that the number does not fit.
std::string layOut(Layout layout, double x, int width, int decimals) {
    using namespace kivo::format;
    FormatRealFields f;
    switch (layout) {
        case BEST: getRealForBestFormat(x, width, f); break;
        case D: getRealForDFormat(x, width, decimals, f); break;
        case E: getRealForEFormat(x, width, f); break;
        case BLANK: getRealForBlankFormat(x, width, decimals, f); break;
        case PERCENT: getRealForPercentFormat(x, width, decimals, f); break;
        case LARGE_BLANK: getLargeRealForBlankFormat(x, width, decimals, f); break;  // decimals: e
    }
    if (f.leadingBlanks < 0) return "*";
    EXPECT_TRUE(f.invariant()) << x << " width " << width;
    char buffer[128];
    std::memset(buffer, '#', sizeof buffer);
    char* const start = buffer + 32;
    char* out = start;
    f.outputReal(out, '.', '-', FormatRealFields::BEFORE);
    EXPECT_EQ(out - start, width) << x << " width " << width << " decimals " << decimals;
    EXPECT_EQ(std::string(buffer, 32), std::string(32, '#'));
    EXPECT_EQ(std::string(out, 32), std::string(32, '#'));
    return std::string(start, static_cast<std::size_t>(out - start));
}

struct LayoutCase { Layout layout; double x; int width; int decimals; const char* expected; };

void PrintTo(const LayoutCase& c, std::ostream* os) {
    *os << static_cast<int>(c.layout) << " " << c.x << " w" << c.width << " d" << c.decimals;
}

class RealLayouts : public ::testing::TestWithParam<LayoutCase> {};

TEST_P(RealLayouts, WriteTheFieldOfTheirTable) {
    const LayoutCase& c = GetParam();
    EXPECT_EQ(layOut(c.layout, c.x, c.width, c.decimals), c.expected);
}

const LayoutCase LAYOUT_CASES[] = {
    // BEST
    // Zero, width 1, signs.
    {BEST, 0.0, 4, 0, "   0"}, {BEST, 5.0, 1, 0, "5"}, {BEST, 0.3, 1, 0, "0"}, {BEST, -0.3, 1, 0, "0"},
    {BEST, -0.5, 1, 0, "*"}, {BEST, 9.7, 1, 0, "*"}, {BEST, -0.001, 3, 0, "  0"},  // too narrow for -0
    {BEST, -0.001, 5, 0, "   -0"},
    // Medium: narrow fields leave out the 0 before the point.
    {BEST, 0.5, 2, 0, ".5"}, {BEST, 0.5, 3, 0, "0.5"}, {BEST, 0.25, 3, 0, ".25"}, {BEST, 1.25, 3, 0, "1.3"},
    {BEST, 1.5, 2, 0, " 2"}, {BEST, 99.96, 4, 0, " 100"}, {BEST, 9999.6, 4, 0, " 1E4"},
    {BEST, 1.0 / 3, 12, 0, "0.3333333333"}, {BEST, 123456.789, 12, 0, "  123456.789"},
    {BEST, 1.0 / 3, 32, 0, "                0.33333333333333"},  // at most 15 digits
    {BEST, 1e20, 24, 0, "   100000000000000000000"},
    // Small table, width by width.
    {BEST, 1.23e-7, 5, 0, "12E-8"}, {BEST, 1.5e-10, 5, 0, "2E-10"}, {BEST, 1e-100, 5, 0, "*"},
    {BEST, 0.0009996, 5, 0, "0.001"},  // a carry at width 5 falls back to plain notation
    {BEST, 9.9996e-5, 6, 0, "0.0001"}, {BEST, 1.234e-6, 6, 0, "123E-8"}, {BEST, 1.25e-50, 6, 0, "13E-51"},
    {BEST, 1e-200, 6, 0, "1E-200"}, {BEST, 1.2345e-6, 7, 0, "1.23E-6"}, {BEST, 1.234e-20, 7, 0, "123E-22"},
    {BEST, 1.26e-98, 7, 0, " 13E-99"}, {BEST, 1.23456e-6, 8, 0, "1.235E-6"}, {BEST, 1.234e-20, 8, 0, "1.23E-20"},
    {BEST, 1.234e-150, 8, 0, "123E-152"}, {BEST, 1.23456789e-6, 12, 0, "1.2345679E-6"},
    {BEST, 9.99999e-10, 9, 0, "     1E-9"},
    // Large table, width by width, with its irregular rows.
    {BEST, 1234.0, 3, 0, "1E3"}, {BEST, 1e10, 3, 0, "*"}, {BEST, 12345.0, 4, 0, "12E3"}, {BEST, 1.2e11, 4, 0, "1E11"},
    {BEST, 1e100, 4, 0, "*"}, {BEST, 123456.0, 5, 0, "123E3"}, {BEST, 1.234e10, 5, 0, " 12E9"},
    {BEST, 1.234e11, 5, 0, "123E9"}, {BEST, 1.234e12, 5, 0, "12E11"}, {BEST, 1.5e101, 5, 0, "2E101"},
    {BEST, 9.996e5, 5, 0, "  1E6"}, {BEST, 1234567.0, 6, 0, "1.23E6"}, {BEST, 1.234e12, 6, 0, "1234E9"},
    {BEST, 1.234e100, 6, 0, " 12E99"}, {BEST, 1.234e101, 6, 0, "123E99"}, {BEST, 1.234e102, 6, 0, "12E101"},
    {BEST, 12345678.0, 7, 0, "1.235E7"}, {BEST, 1.234e50, 7, 0, "1.23E50"}, {BEST, 1.234e100, 7, 0, " 123E98"},
    {BEST, 1.1234e102, 7, 0, "1123E99"}, {BEST, 1.11e102, 7, 0, " 11E101"}, {BEST, 1.234e103, 7, 0, "123E101"},
    {BEST, 1.23456e9, 8, 0, "1.2346E9"}, {BEST, 1.23456e150, 8, 0, "1.23E150"}, {BEST, 1e300, 12, 0, "       1E300"},
    {BEST, -1.5e300, 12, 0, "    -1.5E300"},

    // BLANK
    {BLANK, 123.456, 8, 2, "  123.46"}, {BLANK, 123.456, 5, 2, "123.5"},  // the decimals give way to the integer part
    {BLANK, 0.0, 5, 2, " 0.00"}, {BLANK, 0.05, 6, 2, "  0.05"}, {BLANK, 0.05, 3, 2, ".05"},
    {BLANK, 0.004, 6, 2, "  0.00"}, {BLANK, 0.006, 6, 2, "  0.01"},  // the carry uses a leading zero
    {BLANK, 0.6, 6, 0, "     1"}, {BLANK, 12.345, 6, 2, " 12.35"},  // the fuzz lifts the binary 12.3449999...
    {BLANK, 0.996, 4, 2, "1.00"}, {BLANK, 9.996, 4, 2, "10.0"},  // a carry gives up a decimal
    {BLANK, 99.96, 4, 1, " 100"},  // and the point with the last one
    {BLANK, 999.6, 3, 0, "1E3"}, {BLANK, -0.3, 1, 0, "0"}, {BLANK, -0.7, 1, 0, "*"},
    {BLANK, -0.0001, 6, 2, " -0.00"},  // the sign of the value as given
    {BLANK, 1.23456e12, 8, 2, "1.235E12"}, {BLANK, 1.11e102, 7, 2, "111E100"},  // differs from BEST at width 7
    {BLANK, 1.1234e102, 7, 2, "1123E99"}, {LARGE_BLANK, 1.11e102, 7, 102, "111E100"},

    // D
    {D, 0.0, 6, 0, "     0"}, {D, 1.0, 12, 0, "    1.000000"}, {D, 1234.5, 12, 0, " 1234.500000"},
    {D, 99999.5, 12, 0, "      100000"},  // the decimals drop in steps as the integer part grows
    {D, 1.0, 8, 3, "  1.0000"}, {D, 0.0012, 8, 0, " 0.00120"},
    {D, 9.9996, 6, 0, " 10.00"},  // the carry lays out 10 afresh
    {D, -9.9996, 7, 0, "-10.000"}, {D, 1.23e-7, 8, 0, " 1.23E-7"},  // the small BEST table, stripped
    {D, 1.23e-7, 4, 0, "0.00"}, {D, 1.23e-7, 12, 10, "     1.23E-7"},  // many decimals strip the trailing zeros
    {D, 12.5, 12, 10, "        12.5"}, {D, 1e15, 8, 0, "    1E15"}, {D, 123.0, 2, 0, "*"}, {D, -0.3, 1, 0, "0"},

    // E
    {E, 0.0, 10, 0, " 0.000E+00"}, {E, 0.0, 7, 0, "0.0E+00"}, {E, 12345.0, 10, 0, " 1.235E+04"},
    {E, -12345.0, 10, 0, "-1.235E+04"}, {E, 12345.0, 7, 0, "1.2E+04"}, {E, 0.00012345, 10, 0, " 1.235E-04"},
    {E, 1.0 / 3, 32, 0, " 3.3333333333333000000000000E-01"},  // 14 digits, then zeros
    {E, 1.234e-120, 10, 0, "1.234E-120"}, {E, -1.234e-120, 7, 0, "-1E-120"},
    {E, 1.234e101, 6, 0, "123E99"},  // width 6 keeps its unsigned exponents
    {E, -1.234e102, 7, 0, "-12E101"}, {E, 1.234e100, 6, 0, " 12E99"},
    {E, 9.99999e99, 10, 0, " 1.00E+100"},  // the third exponent digit takes a zero's place
    {E, 9.99e99, 7, 0, "1.E+100"}, {E, -9.9e99, 7, 0, " -1E100"},  // no zero to give: sign and point go
    {E, 9.99999e-100, 10, 0, " 1.000E-99"}, {E, 9.9e-100, 6, 0, " 1E-99"}, {E, 9.9e-101, 6, 0, "1E-100"},
    {E, 12345.0, 6, 0, "*"},

    // PERCENT
    {PERCENT, 12.345, 6, 2, " 12.35"}, {PERCENT, 0.5, 3, 3, ".50"},  // decimals as wide as the field: one fewer
    {PERCENT, 0.005, 6, 8, "  5E-3"},  // tiny, with more decimals than places: exponent notation
    {PERCENT, 0.005, 4, 6, "5E-3"}, {PERCENT, 0.005, 3, 6, "*"}, {PERCENT, 0.5, 6, 8, ".50000"},
    {PERCENT, 1234567.0, 6, 2, "1.23E6"},
};
INSTANTIATE_TEST_SUITE_P(Cases, RealLayouts, ::testing::ValuesIn(LAYOUT_CASES));

struct DigitsAfterPointCase { int width; int decimals; int e; bool negative; int expected; };

class DFormatDigitsAfterPoint : public ::testing::TestWithParam<DigitsAfterPointCase> {};

TEST_P(DFormatDigitsAfterPoint, FollowsItsRules) {
    const DigitsAfterPointCase& c = GetParam();
    EXPECT_EQ(kivo::format::dFormatDigitsAfterPoint(c.width, c.decimals, c.e, c.negative), c.expected);
}

const DigitsAfterPointCase DIGITS_AFTER_POINT_CASES[] = {
    {2, 0, 5, false, 102}, {4, 0, 5, false, 100},  // the integer part does not fit
    {2, 10, -6, false, 102}, {5, 10, -6, false, 101}, {12, 10, 2, false, 8},  // many decimals
    {3, 0, 0, false, 1}, {3, 1, -1, false, 2}, {3, 1, -1, true, 1},  // narrow fields
    {8, 3, -7, false, 101}, {4, 3, -5, false, 2},  // too small for the fixed layout
    {8, 3, -3, false, 5}, {8, 3, -5, false, 6}, {8, 3, -5, true, 6}, {12, 0, 0, false, 6}, {12, 0, 3, false, 6},
    {12, 0, 4, false, -1}, {8, 3, 0, false, 4}, {5, 3, 0, false, 3}, {5, 3, 1, false, 2}, {4, 3, 1, false, 1},
    {4, 3, 1, true, 1},
};
INSTANTIATE_TEST_SUITE_P(Cases, DFormatDigitsAfterPoint, ::testing::ValuesIn(DIGITS_AFTER_POINT_CASES));

// The value shown (strtod skips the leading blanks) and the unit of its last digit.
bool readBack(const std::string& text, double& shown, double& unit) {
    char* end = nullptr;
    shown = std::strtod(text.c_str(), &end);
    const std::size_t e = text.find('E');
    const std::size_t point = text.find('.');
    const std::size_t mantissaEnd = e == std::string::npos ? text.size() : e;
    const int decimals = point == std::string::npos ? 0 : static_cast<int>(mantissaEnd - point - 1);
    unit = std::pow(10.0, (e == std::string::npos ? 0 : std::atoi(text.c_str() + e + 1)) - decimals);
    return end == text.c_str() + text.size() && text.find_first_not_of(' ') != std::string::npos;
}

double randomValue(std::mt19937_64& random) {
    switch (random() % 5) {
        case 0: {  // any finite bit pattern
            double x = 0;
            do {
                const std::uint64_t bits = random();
                std::memcpy(&x, &bits, sizeof x);
            } while (!std::isfinite(x));
            return x;
        }
        case 1:  // log-uniform over everyday magnitudes
            return std::pow(10.0, std::uniform_real_distribution<double>(-12, 18)(random)) *
                   (random() % 2 ? 1 : -1);
        case 2:  // whole numbers and halves
            return static_cast<double>(static_cast<std::int64_t>(random() % 2000001) - 1000000) / 2;
        case 3: {  // just below a power of ten: the carries
            const int e = static_cast<int>(random() % 40) - 20;
            return std::pow(10.0, e) * (1 - std::pow(10.0, -static_cast<double>(random() % 16)));
        }
        default:  // beyond 2^56
            return std::ldexp(static_cast<double>(random() >> 11), 10 + static_cast<int>(random() % 60));
    }
}

void checkLayout(Layout layout, int seed) {
    std::mt19937_64 random(static_cast<std::uint64_t>(seed));
    for (int n = 0; n < 2500; ++n) {
        double x = randomValue(random);
        if (layout == PERCENT) x = std::fabs(x);
        for (int width = 1; width <= 32; ++width) {
            // D takes any count of significant decimals; the others stay below the width.
            const std::uint64_t decimalsRange = layout == D ? 32 : static_cast<std::uint64_t>(width);
            const int decimals = static_cast<int>(random() % decimalsRange);
            const std::string text = layOut(layout, x, width, decimals);
            ASSERT_FALSE(::testing::Test::HasFailure());
            if (text == "*") continue;
            double shown = 0;
            double unit = 0;
            ASSERT_TRUE(readBack(text, shown, unit)) << "\"" << text << "\" for " << x;
            // Wide fields show at most 14 or 15 significant digits and zeros after them.
            const double significantUnit = x == 0 ? 0 : std::pow(10.0, std::floor(std::log10(std::fabs(x))) - 13);
            const double tolerance = 0.5 * std::max(unit, significantUnit) * (1 + 1e-9) + std::fabs(x) * 4e-15;
            ASSERT_LE(std::fabs(shown - x), tolerance)
                << "\"" << text << "\" for " << x << " width " << width << " decimals " << decimals;
        }
    }
}

// Every layout, over many random values and every width the engine offers: the field is exactly
// `width` characters, and what it shows, read back, lies within half a unit of its last digit (or of
// the last significant digit, when a wide field pads the digits with zeros).
TEST(NumericLayoutsProperty, FieldsShowTheValueToTheirLastDigit) {
    int seed = 0;
    for (Layout layout : {BEST, D, E, BLANK, PERCENT}) {
        SCOPED_TRACE(layout);
        checkLayout(layout, ++seed);
    }
}

// The direct medium BEST layout, wherever it takes a value, must leave the very record the general
// steps leave, down to the fields the text does not show.
TEST(NumericLayoutsProperty, DirectMediumBestRecordIsTheGeneralOne) {
    using namespace kivo::format;
    kivo::testing::SeededValues values(20261123);
    long taken = 0;
    for (int i = 0; i < 400000; ++i) {
        const double x = std::fabs(values.next());
        const int width = 4 + i % 29;
        const int e = kivo::floorLog10(x);
        if (!std::isfinite(x) || x == 0.0 || e >= width || (width > 4 && e < std::max(2 - width, -5))) {
            continue;
        }
        FormatRealFields direct;
        FormatRealFields general;
        getMediumRealForBestFormat(x, width, e, general);
        if (layout::layOutMediumDirectly(x, width, e, direct)) {
            ++taken;
            ASSERT_TRUE(direct == general) << x << " width " << width;
        }
    }
    EXPECT_GT(taken, 100000);
}

using kivo::format::FormatRealFields;

// The fields of a record that a layout plans before its digits are written.
struct Plan { int leadingZeroes, numDigits, pointPosition; bool point; int exponent, exponentDigits; };

FormatRealFields planned(const Plan& p, const char* digits = "") {
    FormatRealFields f;
    f.leadingZeroes = p.leadingZeroes;
    f.numDigits = p.numDigits;
    f.pointPosition = p.pointPosition;
    f.hasDecimalPoint = p.point;
    f.exponent = p.exponent;
    f.exponentDigits = p.exponentDigits;
    std::memcpy(f.digits, digits, std::strlen(digits));
    return f;
}

// The text outputReal writes with the sign at `where`, or outputSeparatedReal when `where` is -1.
std::string written(const FormatRealFields& f, int where) {
    char buffer[80];
    char* out = buffer;
    if (where < 0) {
        f.outputSeparatedReal(out, '.', ',', '-');
    } else {
        f.outputReal(out, '.', '-', static_cast<FormatRealFields::NegativePosition>(where));
    }
    return std::string(buffer, static_cast<std::size_t>(out - buffer));
}

// writeDigitBuffer: a plan and a value in; the digits and the reshaped plan out.
struct DigitCase { const char* name; double value; Plan plan; bool fitted; const char* digits;
                   int leadingZeroes, trailingZeroes, pointPosition, exponent; double fuzz = 5e-16; };

// 2^52 + 1 plus a half would round to even, 2^52 + 2: a whole value gets no half.
const DigitCase DIGIT_CASES[] = {
    {"half rounds up", 2.5, {0, 1, 1, false, 0, 0}, true, "3", 0, 0, 1, 0},
    {"whole value gets no half", 4503599627370497.0, {0, 16, 16, false, 0, 0}, true, "4503599627370497", 0, 0, 16, 0},
    {"low zeros become trailing zeros", 1.2, {0, 4, 1, true, 0, 0}, true, "12", 0, 2, 1, 0},
    {"everything rounds away", 0.0004, {0, 2, 0, true, 0, 0}, true, "", 0, 2, 0, 0},
    {"fuzz lifts a binary near half", 1.005, {0, 3, 1, true, 0, 0}, true, "101", 0, 0, 1, 0},
    {"no fuzz no lift", 1.005, {0, 3, 1, true, 0, 0}, true, "1", 0, 2, 1, 0, 0.0},
    {"no lift of a tenth of a unit", 200000000000000.46875, {0, 15, 15, false, 0, 0}, true, "2", 0, 14, 15, 0},
    {"carry grows the integer part", 9.96, {0, 2, 1, true, 0, 0}, false, "1", 0, 2, 2, 0},
    {"carry taken by a spare leading zero", 9.96, {1, 2, 2, true, 0, 0}, true, "1", 0, 2, 2, 0},
    {"carry into the exponent without point", 999600.0, {0, 3, 3, false, 3, 1}, false, "1", 0, 0, 1, 6},
    {"carry into the exponent with point", 999600.0, {0, 3, 1, true, 5, 1}, false, "1", 0, 2, 1, 6},
    {"two limbs 2 pow 60", 1152921504606846976.0, {0, 19, 19, false, 0, 0}, true, "1152921504606846976", 0, 0, 19, 0},
    {"two limbs 2 pow 100", 1267650600228229401496703205376.0, {0, 31, 31, false, 0, 0}, true,
     "1267650600228229401496703205376", 0, 0, 31, 0},
    {"two limbs nearest 1e17 multiple", 123456789012345678.0, {0, 18, 18, false, 0, 0}, true, "12345678901234568", 0,
     1, 18, 0},
    {"subnormal scaled in two steps", 1e-320, {0, 3, 1, true, -320, 3}, true, "1", 0, 2, 1, -320},
};

class WriteDigitBuffer : public ::testing::TestWithParam<DigitCase> {};

TEST_P(WriteDigitBuffer, ProducesThePlannedDigits) {
    const DigitCase& c = GetParam();
    FormatRealFields f = planned(c.plan);
    SCOPED_TRACE(c.name);
    EXPECT_EQ(f.writeDigitBuffer(c.value, 0, c.fuzz), c.fitted);
    EXPECT_EQ(std::string(f.digits, static_cast<std::size_t>(f.numDigits)), c.digits);
    EXPECT_EQ(f.leadingZeroes, c.leadingZeroes);
    EXPECT_EQ(f.trailingZeroes, c.trailingZeroes);
    EXPECT_EQ(f.pointPosition, c.pointPosition);
    EXPECT_EQ(f.exponent, c.exponent);
}

INSTANTIATE_TEST_SUITE_P(Cases, WriteDigitBuffer, ::testing::ValuesIn(DIGIT_CASES));

// A planned record with its digits, as outputReal (sign at `where`) or outputSeparatedReal (-1) writes
// it.
struct OutputCase { const char* expected; Plan plan; const char* digits; int where = 0; int leadingBlanks = 0;
                    bool negative = false; int trailingZeroes = 0; bool exponentSign = false; };

// The point can sit inside the leading or the trailing zeros; exponent digits beyond those planned are
// lost; a sign is written only at its own position; a separated short integer part still gets a group.
const OutputCase OUTPUT_CASES[] = {
    {"  0.005", {3, 1, 1, true, 0, 0}, "5", 0, 2}, {".25", {0, 2, 0, true, 0, 0}, "25"},
    {"12.", {0, 2, 2, true, 0, 0}, "12"}, {"1200.0", {0, 2, 4, true, 0, 0}, "12", 0, 0, false, 3},
    {" -1.5E+05", {0, 2, 1, true, 5, 2}, "15", 0, 1, true, 0, true},
    {"1E-100-", {0, 1, 1, false, -100, 3}, "1", 1, 0, true, 0, true}, {"12E9", {0, 2, 2, false, 9, 1}, "12"},
    {"1E23", {0, 1, 1, false, 123, 2}, "1"}, {"7", {0, 1, 1, false, 0, 0}, "7", 2, 0, true},
    {"1,234,567", {0, 7, 7, false, 0, 0}, "1234567", -1}, {"1,200,000", {0, 2, 7, false, 0, 0}, "12", -1, 0, false, 5},
    {"123,456", {0, 6, 6, false, 0, 0}, "123456", -1}, {"1,234.567", {0, 7, 4, true, 0, 0}, "1234567", -1},
    {"1,200.00", {0, 2, 4, true, 0, 0}, "12", -1, 0, false, 4}, {"12,345", {0, 2, 2, false, 0, 0}, "12345", -1},
    {"  -1,234", {0, 4, 4, false, 0, 0}, "1234", -1, 2, true},
};

class OutputReal : public ::testing::TestWithParam<OutputCase> {};

TEST_P(OutputReal, WritesTheField) {
    const OutputCase& c = GetParam();
    FormatRealFields f = planned(c.plan, c.digits);
    f.leadingBlanks = c.leadingBlanks;
    f.isNegative = c.negative;
    f.trailingZeroes = c.trailingZeroes;
    f.showExponentSign = c.exponentSign;
    EXPECT_EQ(written(f, c.where), c.expected);
}

INSTANTIATE_TEST_SUITE_P(Cases, OutputReal, ::testing::ValuesIn(OUTPUT_CASES));

TEST(OutputSeparatedRealDeathTest, NegativePointPositionIsReported) {
    EXPECT_DEATH(written(planned({0, 1, -1, false, 0, 0}, "1"), -1),
                 "kivoFail: false \\[src/formats/FormatRealFields:318\\]");
}

TEST(FormatRealFieldsRecord, EqualityIgnoresUnusedDigits) {
    FormatRealFields a = planned({0, 2, 2, false, 0, 0}, "12345");
    FormatRealFields b = planned({0, 2, 2, false, 0, 0}, "12999");
    EXPECT_TRUE(a == b);
    a.numDigits = b.numDigits = 3;
    EXPECT_FALSE(a == b);
}

// A record that does not fit needs nothing else; without a point all of the run is integer; an
// exponent needs its digits.
TEST(FormatRealFieldsRecord, Invariant) {
    FormatRealFields unfit = planned({0, 99, 1, false, 0, 0});
    unfit.leadingBlanks = -1;
    EXPECT_TRUE(unfit.invariant());
    for (const Plan& plan : {Plan{0, 2, 1, true, 0, 0}, Plan{0, 1, 1, false, 4, 3}}) {
        EXPECT_TRUE(planned(plan).invariant());
    }
    for (const Plan& plan : {Plan{0, 2, 1, false, 0, 0}, Plan{0, 33, 1, true, 0, 0}, Plan{0, 2, 3, true, 0, 0},
                             Plan{0, 1, 1, false, 4, 0}, Plan{0, 1, 1, false, 4, 4}}) {
        EXPECT_FALSE(planned(plan).invariant()) << plan.numDigits << " " << plan.pointPosition;
    }
}

// zone 0 selects the packed writer; the expected bytes are followed by a guard byte that must stay.
struct MachineCase { double value; int digits; int decimals; char zone; std::string expected; };

class MachineDecimal : public ::testing::TestWithParam<MachineCase> {};

TEST_P(MachineDecimal, WritesTheDigitsOrTheNinesFill) {
    const MachineCase& c = GetParam();
    std::string out(c.expected.size() + 1, '#');
    if (c.zone == 0) {
        kivo::format::writePackedDecimal(out.data(), c.value, c.digits, c.decimals);
    } else {
        kivo::format::writeZonedDecimal(out.data(), c.value, c.digits, c.decimals, c.zone);
    }
    EXPECT_EQ(out, c.expected + "#");
}

const MachineCase CASES[] = {
    {12.34, 3, 1, 0, "\x12\x30"},
    {998.6, 3, 0, 0, "\x99\x90"},  // rounds to all nines: the overflow fill, the same nines
    {1234.0, 3, 0, 0, "\x99\x90"},
    {1234.0, 4, 0, 0, "\x12\x34"},
    {7.0, 5, 0, 0, std::string("\x00\x00\x70", 3)},
    {0.005, 2, 2, 0, "\x01"},
    {5.0, 2, -1, 0, "\x05"},  // no scaling for decimals below one
    // 2^60 and 2^100 keep every digit through the two-limb conversion.
    {1152921504606846976.0, 19, 0, 0, "\x11\x52\x92\x15\x04\x60\x68\x46\x97\x60"},
    {1267650600228229401496703205376.0, 31, 0, 0,
     std::string("\x12\x67\x65\x06\x00\x22\x82\x29\x40\x14\x96\x70\x32\x05\x37\x60", 16)},
    {7.0, 4, 0, 0x30, "0007"},
    {100.0, 2, 0, 0x30, "99"},
    {12.345, 5, 2, 0x30, "01235"},
    {42.0, 3, 0, 0x40, "\x40\x44\x42"},
    {1e30, 31, 0, 0x30, "1000000000000000019884624838656"},  // the double's exact digits
};
INSTANTIATE_TEST_SUITE_P(Cases, MachineDecimal, ::testing::ValuesIn(CASES));

}  // namespace
