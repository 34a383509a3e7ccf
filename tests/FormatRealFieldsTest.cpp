#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <string>

#include "kivo/format/FormatRealFields.h"

namespace {

using kivo::format::FormatRealFields;

struct Plan {
    int leadingZeroes;
    int numDigits;
    int pointPosition;
    bool point;
    int exponent;
    int exponentDigits;
};

FormatRealFields planned(const Plan& p) {
    FormatRealFields f;
    f.leadingZeroes = p.leadingZeroes;
    f.numDigits = p.numDigits;
    f.pointPosition = p.pointPosition;
    f.hasDecimalPoint = p.point;
    f.exponent = p.exponent;
    f.exponentDigits = p.exponentDigits;
    return f;
}

std::string written(const FormatRealFields& f, FormatRealFields::NegativePosition where = FormatRealFields::BEFORE) {
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

// ---- writeDigitBuffer: plan and value in, digits and the reshaped plan out.

struct DigitCase {
    const char* name;
    double value;
    Plan plan;
    double fuzz;
    bool fitted;
    const char* digits;
    int leadingZeroes;
    int trailingZeroes;
    int pointPosition;
    int exponent;
};

const DigitCase DIGIT_CASES[] = {
    {"half rounds up", 2.5, {0, 1, 1, false, 0, 0}, 5e-16, true, "3", 0, 0, 1, 0},
    {"whole value gets no half added", 4503599627370497.0, {0, 16, 16, false, 0, 0}, 5e-16, true,
     "4503599627370497", 0, 0, 16, 0},
    {"low zeros become trailing zeros", 1.2, {0, 4, 1, true, 0, 0}, 5e-16, true, "12", 0, 2, 1, 0},
    {"everything rounds away", 0.0004, {0, 2, 0, true, 0, 0}, 5e-16, true, "", 0, 2, 0, 0},
    {"fuzz lifts a binary near-half", 1.005, {0, 3, 1, true, 0, 0}, 5e-16, true, "101", 0, 0, 1, 0},
    {"no fuzz, no lift", 1.005, {0, 3, 1, true, 0, 0}, 0.0, true, "1", 0, 2, 1, 0},
    {"carry grows the integer part", 9.96, {0, 2, 1, true, 0, 0}, 5e-16, false, "1", 0, 2, 2, 0},
    {"carry taken by a spare leading zero", 9.96, {1, 2, 2, true, 0, 0}, 5e-16, true, "1", 0, 2, 2, 0},
    {"carry into the exponent, no point", 999600.0, {0, 3, 3, false, 3, 1}, 5e-16, false, "1", 0, 0, 1, 6},
    {"carry into the exponent, with point", 999600.0, {0, 3, 1, true, 5, 1}, 5e-16, false, "1", 0, 2, 1, 6},
    {"two limbs: 2^60 exactly", 1152921504606846976.0, {0, 19, 19, false, 0, 0}, 5e-16, true,
     "1152921504606846976", 0, 0, 19, 0},
    {"two limbs: 2^100 exactly", 1267650600228229401496703205376.0, {0, 31, 31, false, 0, 0}, 5e-16, true,
     "1267650600228229401496703205376", 0, 0, 31, 0},
    {"two limbs: the double nearest 1.2345678901234567e17", 123456789012345678.0, {0, 18, 18, false, 0, 0},
     5e-16, true, "12345678901234568", 0, 1, 18, 0},
    {"scaled beyond the double range of one power", 1e-320, {0, 3, 1, true, -320, 3}, 5e-16, true, "1", 0,
     2, 1, -320},
};

class WriteDigitBuffer : public ::testing::TestWithParam<DigitCase> {};

TEST_P(WriteDigitBuffer, ProducesThePlannedDigits) {
    const DigitCase& c = GetParam();
    FormatRealFields f = planned(c.plan);
    EXPECT_EQ(f.writeDigitBuffer(c.value, 0, c.fuzz), c.fitted);
    EXPECT_EQ(std::string(f.digits, static_cast<std::size_t>(f.numDigits)), c.digits);
    EXPECT_EQ(f.leadingZeroes, c.leadingZeroes);
    EXPECT_EQ(f.trailingZeroes, c.trailingZeroes);
    EXPECT_EQ(f.pointPosition, c.pointPosition);
    EXPECT_EQ(f.exponent, c.exponent);
}

INSTANTIATE_TEST_SUITE_P(Cases, WriteDigitBuffer, ::testing::ValuesIn(DIGIT_CASES),
                         [](const auto& info) {
                             std::string name;
                             for (const char* p = info.param.name; *p; ++p) {
                                 name += std::isalnum(static_cast<unsigned char>(*p)) ? *p : '_';
                             }
                             return name;
                         });

// ---- Tidying.

TEST(StripTrailingZeroes, MovesZerosWhereTheLayoutWantsThem) {
    FormatRealFields zero = planned({0, 0, 0, true, 0, 0});
    zero.trailingZeroes = 3;
    zero.stripTrailingZeroes(true);
    EXPECT_EQ(written(zero), "0");

    FormatRealFields inside = planned({0, 2, 1, true, 0, 0});
    std::memcpy(inside.digits, "12", 2);
    inside.trailingZeroes = 3;
    inside.stripTrailingZeroes(true);
    EXPECT_EQ(written(inside), "1.2");

    FormatRealFields integer = planned({0, 1, 3, true, 0, 0});
    inside.digits[0] = '5';
    integer.digits[0] = '5';
    integer.trailingZeroes = 4;
    integer.stripTrailingZeroes(true);
    EXPECT_EQ(written(integer), "500");

    FormatRealFields exponent = planned({0, 1, 3, false, 7, 1});
    exponent.digits[0] = '4';
    exponent.trailingZeroes = 2;
    exponent.stripTrailingZeroes(true);
    exponent.setExponentDigits();
    EXPECT_EQ(written(exponent), "4E9");
}

TEST(UseExponentAfterOverflow, KeepsOneDigitBeforeTheExponent) {
    FormatRealFields f = planned({0, 1, 12, false, 0, 0});
    f.digits[0] = '1';
    f.trailingZeroes = 11;
    f.useExponentAfterOverflow();
    EXPECT_EQ(written(f), "1E11");
}

// ---- Output.

struct OutputCase {
    const char* expected;
    int leadingBlanks;
    bool negative;
    Plan plan;
    const char* digits;
    int trailingZeroes;
    bool exponentSign;
    FormatRealFields::NegativePosition where;
};

const OutputCase OUTPUT_CASES[] = {
    {"  0.005", 2, false, {3, 1, 1, true, 0, 0}, "5", 0, false, FormatRealFields::BEFORE},
    {".25", 0, false, {0, 2, 0, true, 0, 0}, "25", 0, false, FormatRealFields::BEFORE},
    {"12.", 0, false, {0, 2, 2, true, 0, 0}, "12", 0, false, FormatRealFields::BEFORE},
    {"1200.0", 0, false, {0, 2, 4, true, 0, 0}, "12", 3, false, FormatRealFields::BEFORE},
    {" -1.5E+05", 1, true, {0, 2, 1, true, 5, 2}, "15", 0, true, FormatRealFields::BEFORE},
    {"1E-100-", 0, true, {0, 1, 1, false, -100, 3}, "1", 0, true, FormatRealFields::AFTER},
    {"12E9", 0, false, {0, 2, 2, false, 9, 1}, "12", 0, false, FormatRealFields::BEFORE},
    {"1E23", 0, false, {0, 1, 1, false, 123, 2}, "1", 0, false, FormatRealFields::BEFORE},  // high digits lost
    {"7", 0, true, {0, 1, 1, false, 0, 0}, "7", 0, false, static_cast<FormatRealFields::NegativePosition>(2)},
};

class OutputReal : public ::testing::TestWithParam<OutputCase> {};

TEST_P(OutputReal, WritesTheField) {
    const OutputCase& c = GetParam();
    FormatRealFields f = planned(c.plan);
    f.leadingBlanks = c.leadingBlanks;
    f.isNegative = c.negative;
    std::memcpy(f.digits, c.digits, std::strlen(c.digits));
    f.trailingZeroes = c.trailingZeroes;
    f.showExponentSign = c.exponentSign;
    EXPECT_EQ(written(f, c.where), c.expected);
}

INSTANTIATE_TEST_SUITE_P(Cases, OutputReal, ::testing::ValuesIn(OUTPUT_CASES));

struct SeparatedCase {
    const char* expected;
    const char* digits;
    int numDigits;
    int trailingZeroes;
    int pointPosition;
    bool point;
};

const SeparatedCase SEPARATED_CASES[] = {
    {"1,234,567", "1234567", 7, 0, 7, false},
    {"1,200,000", "12", 2, 5, 7, false},
    {"123,456", "123456", 6, 0, 6, false},
    {"1,234.567", "1234567", 7, 0, 4, true},
    {"1,200.00", "12", 2, 4, 4, true},
    {"12,345", "12345", 2, 0, 2, false},  // a short integer part still gets one group
};

class OutputSeparatedReal : public ::testing::TestWithParam<SeparatedCase> {};

TEST_P(OutputSeparatedReal, GroupsTheIntegerPart) {
    const SeparatedCase& c = GetParam();
    FormatRealFields f;
    std::memcpy(f.digits, c.digits, std::strlen(c.digits));
    f.numDigits = c.numDigits;
    f.trailingZeroes = c.trailingZeroes;
    f.pointPosition = c.pointPosition;
    f.hasDecimalPoint = c.point;
    EXPECT_EQ(separated(f), c.expected);
}

INSTANTIATE_TEST_SUITE_P(Cases, OutputSeparatedReal, ::testing::ValuesIn(SEPARATED_CASES));

TEST(OutputSeparatedReal, SignAndBlanksInFront) {
    FormatRealFields f;
    std::memcpy(f.digits, "1234", 4);
    f.numDigits = 4;
    f.pointPosition = 4;
    f.leadingBlanks = 2;
    f.isNegative = true;
    EXPECT_EQ(separated(f), "  -1,234");
}

TEST(OutputSeparatedRealDeathTest, NegativePointPositionIsReported) {
    FormatRealFields f;
    f.numDigits = 1;
    f.digits[0] = '1';
    f.pointPosition = -1;
    EXPECT_DEATH(separated(f), "kivoFail: false \\[src/formats/FormatRealFields:318\\]");
}

// ---- The record itself.

TEST(FormatRealFieldsRecord, EqualityIgnoresUnusedDigits) {
    FormatRealFields a;
    FormatRealFields b;
    std::memcpy(a.digits, "12345", 5);
    std::memcpy(b.digits, "12999", 5);
    a.numDigits = b.numDigits = 2;
    EXPECT_TRUE(a == b);
    b.numDigits = 3;
    a.numDigits = 3;
    EXPECT_FALSE(a == b);
    b.digits[2] = '3';
    b.exponent = 1;
    EXPECT_FALSE(a == b);
}

TEST(FormatRealFieldsRecord, Invariant) {
    FormatRealFields f;
    f.leadingBlanks = -1;
    f.numDigits = 99;
    EXPECT_TRUE(f.invariant());  // a record that does not fit needs nothing else

    f = planned({0, 2, 1, true, 0, 0});
    EXPECT_TRUE(f.invariant());
    f.hasDecimalPoint = false;
    EXPECT_FALSE(f.invariant());  // without a point the whole run is the integer part
    f = planned({0, 33, 1, true, 0, 0});
    EXPECT_FALSE(f.invariant());
    f = planned({0, 2, 3, true, 0, 0});
    EXPECT_FALSE(f.invariant());
    f = planned({0, 1, 1, false, 4, 0});
    EXPECT_FALSE(f.invariant());  // an exponent value without exponent digits
    f = planned({0, 1, 1, false, 4, 4});
    EXPECT_FALSE(f.invariant());
    f = planned({0, 1, 1, false, 4, 3});
    EXPECT_TRUE(f.invariant());
}

TEST(FormatRealFieldsRecord, MultPow10StaysInRange) {
    double big = 1.0;
    FormatRealFields::multPow10(big, 400);
    EXPECT_TRUE(std::isinf(big));
    double small = 1e-300;
    FormatRealFields::multPow10(small, 600);
    EXPECT_DOUBLE_EQ(small, 1e300);
    double tiny = 1e300;
    FormatRealFields::multPow10(tiny, -610);
    EXPECT_NEAR(tiny / 1e-310, 1.0, 1e-6);
}

}  // namespace
