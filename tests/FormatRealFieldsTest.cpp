#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "kivo/format/FormatRealFields.h"

namespace {

using kivo::format::FormatRealFields;

struct Plan {
    int leadingZeroes, numDigits, pointPosition;
    bool point;
    int exponent, exponentDigits;
};

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

std::string written(const FormatRealFields& f, FormatRealFields::NegativePosition where) {
    char buffer[80];
    char* out = buffer;
    f.outputReal(out, '.', '-', where);
    return std::string(buffer, static_cast<std::size_t>(out - buffer));
}

std::string separated(const FormatRealFields& f) {
    char buffer[80];
    char* out = buffer;
    f.outputSeparatedReal(out, '.', ',', '-');
    return std::string(buffer, static_cast<std::size_t>(out - buffer));
}

// writeDigitBuffer: a plan and a value in; the digits and the reshaped plan out.
struct DigitCase {
    const char* name;
    double value;
    Plan plan;
    double fuzz;
    bool fitted;
    const char* digits;
    int leadingZeroes, trailingZeroes, pointPosition, exponent;
};

const DigitCase DIGIT_CASES[] = {
    {"half rounds up", 2.5, {0, 1, 1, false, 0, 0}, 5e-16, true, "3", 0, 0, 1, 0},
    // 2^52 + 1 plus a half would round to even, 2^52 + 2: a whole value gets no half.
    {"whole value gets no half", 4503599627370497.0, {0, 16, 16, false, 0, 0}, 5e-16, true, "4503599627370497", 0,
     0, 16, 0},
    {"low zeros become trailing zeros", 1.2, {0, 4, 1, true, 0, 0}, 5e-16, true, "12", 0, 2, 1, 0},
    {"everything rounds away", 0.0004, {0, 2, 0, true, 0, 0}, 5e-16, true, "", 0, 2, 0, 0},
    {"fuzz lifts a binary near half", 1.005, {0, 3, 1, true, 0, 0}, 5e-16, true, "101", 0, 0, 1, 0},
    {"no fuzz no lift", 1.005, {0, 3, 1, true, 0, 0}, 0.0, true, "1", 0, 2, 1, 0},
    {"carry grows the integer part", 9.96, {0, 2, 1, true, 0, 0}, 5e-16, false, "1", 0, 2, 2, 0},
    {"carry taken by a spare leading zero", 9.96, {1, 2, 2, true, 0, 0}, 5e-16, true, "1", 0, 2, 2, 0},
    {"carry into the exponent without point", 999600.0, {0, 3, 3, false, 3, 1}, 5e-16, false, "1", 0, 0, 1, 6},
    {"carry into the exponent with point", 999600.0, {0, 3, 1, true, 5, 1}, 5e-16, false, "1", 0, 2, 1, 6},
    {"two limbs 2 pow 60", 1152921504606846976.0, {0, 19, 19, false, 0, 0}, 5e-16, true, "1152921504606846976", 0,
     0, 19, 0},
    {"two limbs 2 pow 100", 1267650600228229401496703205376.0, {0, 31, 31, false, 0, 0}, 5e-16, true,
     "1267650600228229401496703205376", 0, 0, 31, 0},
    {"two limbs nearest 1e17 multiple", 123456789012345678.0, {0, 18, 18, false, 0, 0}, 5e-16, true,
     "12345678901234568", 0, 1, 18, 0},
    {"subnormal scaled in two steps", 1e-320, {0, 3, 1, true, -320, 3}, 5e-16, true, "1", 0, 2, 1, -320},
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

struct OutputCase {
    const char* expected;
    int leadingBlanks;
    bool negative;
    Plan plan;
    const char* digits;
    int trailingZeroes;
    bool exponentSign;
    int where;
};

const OutputCase OUTPUT_CASES[] = {
    {"  0.005", 2, false, {3, 1, 1, true, 0, 0}, "5", 0, false, 0},  // point inside the leading zeros
    {".25", 0, false, {0, 2, 0, true, 0, 0}, "25", 0, false, 0},
    {"12.", 0, false, {0, 2, 2, true, 0, 0}, "12", 0, false, 0},
    {"1200.0", 0, false, {0, 2, 4, true, 0, 0}, "12", 3, false, 0},  // point inside the trailing zeros
    {" -1.5E+05", 1, true, {0, 2, 1, true, 5, 2}, "15", 0, true, 0},
    {"1E-100-", 0, true, {0, 1, 1, false, -100, 3}, "1", 0, true, 1},
    {"12E9", 0, false, {0, 2, 2, false, 9, 1}, "12", 0, false, 0},
    {"1E23", 0, false, {0, 1, 1, false, 123, 2}, "1", 0, false, 0},  // high exponent digits lost
    {"7", 0, true, {0, 1, 1, false, 0, 0}, "7", 0, false, 2},        // no sign for another position
};

class OutputReal : public ::testing::TestWithParam<OutputCase> {};

TEST_P(OutputReal, WritesTheField) {
    const OutputCase& c = GetParam();
    FormatRealFields f = planned(c.plan, c.digits);
    f.leadingBlanks = c.leadingBlanks;
    f.isNegative = c.negative;
    f.trailingZeroes = c.trailingZeroes;
    f.showExponentSign = c.exponentSign;
    EXPECT_EQ(written(f, static_cast<FormatRealFields::NegativePosition>(c.where)), c.expected);
}

INSTANTIATE_TEST_SUITE_P(Cases, OutputReal, ::testing::ValuesIn(OUTPUT_CASES));

struct SeparatedCase {
    const char* expected;
    const char* digits;
    int numDigits, trailingZeroes, pointPosition;
    bool point;
};

const SeparatedCase SEPARATED_CASES[] = {
    {"1,234,567", "1234567", 7, 0, 7, false}, {"1,200,000", "12", 2, 5, 7, false},
    {"123,456", "123456", 6, 0, 6, false},    {"1,234.567", "1234567", 7, 0, 4, true},
    {"1,200.00", "12", 2, 4, 4, true},
    {"12,345", "12345", 2, 0, 2, false},  // a short integer part still gets one group
};

class OutputSeparatedReal : public ::testing::TestWithParam<SeparatedCase> {};

TEST_P(OutputSeparatedReal, GroupsTheIntegerPart) {
    const SeparatedCase& c = GetParam();
    FormatRealFields f = planned({0, c.numDigits, c.pointPosition, c.point, 0, 0}, c.digits);
    f.trailingZeroes = c.trailingZeroes;
    EXPECT_EQ(separated(f), c.expected);
}

INSTANTIATE_TEST_SUITE_P(Cases, OutputSeparatedReal, ::testing::ValuesIn(SEPARATED_CASES));

TEST(OutputSeparatedReal, SignAfterTheBlanks) {
    FormatRealFields f = planned({0, 4, 4, false, 0, 0}, "1234");
    f.leadingBlanks = 2;
    f.isNegative = true;
    EXPECT_EQ(separated(f), "  -1,234");
}

TEST(OutputSeparatedRealDeathTest, NegativePointPositionIsReported) {
    FormatRealFields f = planned({0, 1, -1, false, 0, 0}, "1");
    EXPECT_DEATH(separated(f), "kivoFail: false \\[src/formats/FormatRealFields:318\\]");
}

TEST(FormatRealFieldsRecord, EqualityIgnoresUnusedDigits) {
    FormatRealFields a = planned({0, 2, 2, false, 0, 0}, "12345");
    FormatRealFields b = planned({0, 2, 2, false, 0, 0}, "12999");
    EXPECT_TRUE(a == b);
    a.numDigits = b.numDigits = 3;
    EXPECT_FALSE(a == b);
}

TEST(FormatRealFieldsRecord, Invariant) {
    FormatRealFields unfit = planned({0, 99, 1, false, 0, 0});
    unfit.leadingBlanks = -1;
    EXPECT_TRUE(unfit.invariant());  // a record that does not fit needs nothing else
    EXPECT_TRUE(planned({0, 2, 1, true, 0, 0}).invariant());
    EXPECT_TRUE(planned({0, 1, 1, false, 4, 3}).invariant());
    EXPECT_FALSE(planned({0, 2, 1, false, 0, 0}).invariant());  // no point: all of the run is integer
    EXPECT_FALSE(planned({0, 33, 1, true, 0, 0}).invariant());
    EXPECT_FALSE(planned({0, 2, 3, true, 0, 0}).invariant());
    EXPECT_FALSE(planned({0, 1, 1, false, 4, 0}).invariant());  // an exponent without its digits
    EXPECT_FALSE(planned({0, 1, 1, false, 4, 4}).invariant());
}

}  // namespace
