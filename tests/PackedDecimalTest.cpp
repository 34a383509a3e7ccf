#include <gtest/gtest.h>

#include <string>

#include "kivo/format/PackedDecimal.h"

namespace {

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
