// The real field record: the digits writeDigitBuffer makes of a plan, the text outputReal and
// outputSeparatedReal write, equality and the invariant.
// Beside it, the packed and zoned decimal writers.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "kivo/format/FormatRealFields.h"
#include "kivo/format/PackedDecimal.h"

namespace {

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
