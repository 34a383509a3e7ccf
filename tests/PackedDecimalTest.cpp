#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "kivo/format/PackedDecimal.h"

namespace {

struct MachineCase {
    double value;
    int digits;
    int decimals;
    std::vector<unsigned char> expected;
};

class WritePackedDecimal : public ::testing::TestWithParam<MachineCase> {};

TEST_P(WritePackedDecimal, WritesTwoDigitsPerByte) {
    const MachineCase& c = GetParam();
    std::vector<char> out(c.expected.size() + 1, '\x5A');
    kivo::format::writePackedDecimal(out.data(), c.value, c.digits, c.decimals);
    EXPECT_EQ(std::vector<unsigned char>(out.begin(), out.end() - 1), c.expected);
    EXPECT_EQ(out.back(), '\x5A');  // nothing past the field
}

const MachineCase PACKED_CASES[] = {
    {12.34, 3, 1, {0x12, 0x30}},
    {998.6, 3, 0, {0x99, 0x90}},  // rounds to all nines: the overflow fill, the same nines
    {1234.0, 3, 0, {0x99, 0x90}},
    {1234.0, 4, 0, {0x12, 0x34}},
    {7.0, 5, 0, {0x00, 0x00, 0x70}},
    {0.004, 2, 2, {0x00}},
    {0.005, 2, 2, {0x01}},
    {5.0, 2, -1, {0x05}},  // no scaling for decimals below one
    // 2^60 and 2^100 keep every digit through the two-limb conversion.
    {1152921504606846976.0, 19, 0, {0x11, 0x52, 0x92, 0x15, 0x04, 0x60, 0x68, 0x46, 0x97, 0x60}},
    {1267650600228229401496703205376.0, 31, 0,
     {0x12, 0x67, 0x65, 0x06, 0x00, 0x22, 0x82, 0x29, 0x40, 0x14, 0x96, 0x70, 0x32, 0x05, 0x37, 0x60}},
};
INSTANTIATE_TEST_SUITE_P(Cases, WritePackedDecimal, ::testing::ValuesIn(PACKED_CASES));

struct ZonedCase {
    double value;
    int digits;
    int decimals;
    char zone;
    const char* expected;
};

class WriteZonedDecimal : public ::testing::TestWithParam<ZonedCase> {};

TEST_P(WriteZonedDecimal, WritesOneDigitPerByte) {
    const ZonedCase& c = GetParam();
    const std::string expected = c.expected;
    std::string out(expected.size() + 1, '#');
    kivo::format::writeZonedDecimal(out.data(), c.value, c.digits, c.decimals, c.zone);
    EXPECT_EQ(out, expected + "#");
}

const ZonedCase ZONED_CASES[] = {
    {7.0, 4, 0, 0x30, "0007"},
    {100.0, 2, 0, 0x30, "99"},
    {12.345, 5, 2, 0x30, "01235"},
    {42.0, 3, 0, 0x40, "\x40\x44\x42"},
    {1e30, 31, 0, 0x30, "1000000000000000019884624838656"},  // the double's exact digits
};
INSTANTIATE_TEST_SUITE_P(Cases, WriteZonedDecimal, ::testing::ValuesIn(ZONED_CASES));

}  // namespace
