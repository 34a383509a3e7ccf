#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "FormatFieldSupport.h"
#include "kivo/Formats.h"
#include "kivo/format/datetime/TimeWriters.h"
#include "kivox/Missing.h"

namespace {

using kivo::test::FieldCase;
using kivo::test::formatField;

class TimeFormats : public testing::TestWithParam<FieldCase> {};

TEST_P(TimeFormats, WritesTheField) {
    const FieldCase& c = GetParam();
    EXPECT_EQ(formatField(c.format, c.width, c.decimals, c.value), c.expected);
}

constexpr double T12_34_56_789 = 45296.789;

INSTANTIATE_TEST_SUITE_P(Time, TimeFormats, testing::ValuesIn(kivo::test::rows({
        FORMAT_ROWS(time,
            // What fits, in the order hours, minutes, seconds, decimals.
            {8, 0, T12_34_56_789, "12:34:57"}, {5, 0, T12_34_56_789, "12:34"}, {7, 0, T12_34_56_789, "  12:34"},
            {2, 0, T12_34_56_789, "12"}, {1, 0, T12_34_56_789, "*"}, {10, 0, T12_34_56_789, "  12:34:57"},
            {11, 2, T12_34_56_789, "12:34:56.79"}, {10, 2, T12_34_56_789, "12:34:56.8"},
            {12, 3, T12_34_56_789, "12:34:56.789"}, {9, 2, T12_34_56_789, " 12:34:57"}, {8, 0, 0.0, " 0:00:00"},
            {9, 0, 360000.0, "100:00:00"}, {8, 0, -3600.0, "-1:00:00"}, {9, 0, -3600.0, " -1:00:00"},
            {2, 0, -36000.0, "**"},
            // Carries from the seconds into the minutes and hours, and the growth of the hour digits.
            {8, 0, 59.9999, " 0:01:00"}, {8, 0, 3599.5, " 1:00:00"}, {9, 0, 359999.5, "100:00:00"},
            {8, 0, 359999.5, "  100:00"},
            // Decimals asked for but none fit: a plain half second rounds.
            {8, 2, 59.4999999, " 0:00:59"}, {8, 2, 59.5, " 0:01:00"},
            // Fewer decimals shown than asked for: just below a whole second shows the whole second.
            {9, 2, 5.949999995, "0:00:06.0"}, {9, 2, 5.9499999, "0:00:05.9"},
            // Stored a hair below its decimal form, 0.29 still prints as written.
            {10, 2, 0.29, "0:00:00.29"})})));

INSTANTIATE_TEST_SUITE_P(HhmmMmss, TimeFormats, testing::ValuesIn(kivo::test::rows({
        FORMAT_ROWS(hhmm,
            {5, 0, T12_34_56_789, "12:35"},
            {5, 0, 1770.0, " 0:29"},  // a tie of minutes rounds down
            {5, 0, 3570.0, " 0:59"}, {5, 0, 1770.001, " 0:30"}, {5, 0, 3570.001, " 1:00"}, {6, 1, 5400.0, "1:30.0"},
            {5, 1, 5400.0, "1:30."},  // the bare point at nd + 4
            {4, 1, 5400.0, "1:30"}, {3, 0, 5400.0, "  1"}, {8, 1, 5400.0, "  1:30.0"}, {7, 1, 3596.99, " 0:59.9"},
            {7, 1, 3597.0, " 1:00.0"}, {6, 0, -5400.0, " -1:30"}, {3, 0, 360000.0, "100"}, {2, 0, 360000.0, "**"},
            {3, 0, -360000.0, " **"}),
        FORMAT_ROWS(mmss,
            {5, 0, 29.5, " 0:30"},  // a tie of seconds rounds up
            {5, 0, 29.4999999, " 0:29"}, {5, 0, 3599.5, "60:00"}, {6, 2, 61.25, "1:01.2"}, {7, 2, 61.25, "1:01.25"},
            {6, 0, -61.0, " -1:01"}, {2, 0, 6000.0, "**"},
            // Minutes beyond 32 bits.
            {14, 0, 3e11, " 5000000000:00"})})));

INSTANTIATE_TEST_SUITE_P(Hour, TimeFormats, testing::ValuesIn(kivo::test::rows({
        FORMAT_ROWS(hour,
            {2, 0, 5400.0, " 2"}, {3, 1, 5400.0, "1.5"}, {5, 2, 5400.0, " 1.50"}, {2, 1, 1800.0, ".5"},
            {4, 2, 1800.0, "0.50"},
            {3, 1, -5400.0, "1.5"},  // no sign
            {2, 0, 34200.0, "10"},  // 9.5 hours gain a digit
            {3, 1, 35820.0, " 10"},  // 9.95: no room left for a decimal
            {3, 1, 35819.0, "9.9"}, {4, 1, 35820.0, "10.0"},
            // Hours longer than the width: exponent form, or stars when even that does not fit.
            {3, 0, 3600000.0, "1E3"}, {3, 1, -3600000.0, "1E3"}, {6, 0, 5.5e11, "1.53E8"}, {2, 0, 360000.0, "**"})})));

constexpr double T9_05_30 = 9 * 3600 + 5 * 60 + 30;
constexpr double T13_45_30 = 13 * 3600 + 45 * 60 + 30;

INSTANTIATE_TEST_SUITE_P(Tod, TimeFormats, testing::ValuesIn(kivo::test::rows({
        FORMAT_ROWS(tod,
            {8, 0, T9_05_30, "09:05:30"}, {7, 0, T9_05_30, "9:05:30"}, {5, 0, T9_05_30, "09:05"},
            {9, 0, T9_05_30, " 09:05:30"}, {10, 1, T9_05_30, "09:05:30.0"}, {2, 0, T9_05_30, "09"},
            {8, 0, T13_45_30, "13:45:30"}, {9, 0, T13_45_30, " 13:45:30"}, {4, 0, T13_45_30, "  13"},
            {10, 1, T13_45_30 + 0.25, "13:45:30.3"},
            {8, 0, 86399.6, "24:00:00"},  // the hour does not wrap
            {8, 0, 35999.6, "10:00:00"},
            {8, 0, -86400.0 + T9_05_30, "09:05:30"},  // a datetime before 1960
            {8, 0, 22356 * 86400.0 + T13_45_30, "13:45:30"})})));

// Beyond the host's datetime range (before 1582, after 20000) a duration is all stars.
INSTANTIATE_TEST_SUITE_P(OutOfRange, TimeFormats, testing::ValuesIn(kivo::test::rows({
        FORMAT_ROWS(time, {8, 0, 1e13, "********"}, {8, 0, -1.2e10, "********"}),
        FORMAT_ROWS(hhmm, {5, 0, 1e13, "*****"}),
        FORMAT_ROWS(mmss, {5, 0, -1e13, "*****"}),
        FORMAT_ROWS(hour, {4, 1, 1e13, "****"}),
        FORMAT_ROWS(tod, {8, 0, 1e13, "********"})})));

// The missing character goes to the last position whatever the decimals.
TEST(TimeFormatsMissing, LastPosition) {
    for (KivoFormatFunction format : {timeFormat, hhmmFormat, mmssFormat, hourFormat, todFormat}) {
        EXPECT_EQ(formatField(format, 8, 2, kivo::lum_numeric::MISSING), "       .");
        EXPECT_EQ(formatField(format, 5, 0, kivo::lum_numeric::specialMissing('B')), "    B");
    }
}

// The carry of the seconds at every number of decimals: a hair below the rounding boundary shows the
// last second with all nines, a hair above shows the next minute.
struct CarryLayout {
    KivoFormatFunction format;
    int widthAtNoDecimals;
    const char* below;
    const char* above;
    double slack;  // TIME's increment is 1e-8 above the half unit
    const char* suffix = "";
};

class SecondsCarry : public testing::TestWithParam<CarryLayout> {};

TEST_P(SecondsCarry, AtEveryDecimals) {
    const CarryLayout& layout = GetParam();
    constexpr double HAIR = 1e-11;
    for (int d = 0; d <= 9; ++d) {
        const int width = layout.widthAtNoDecimals + (d > 0 ? d + 1 : 0);
        const double boundary = 60.0 - 0.5 / std::pow(10.0, d) - layout.slack;
        std::string nines = d > 0 ? "." + std::string(static_cast<std::size_t>(d), '9') : "";
        if (layout.slack > 0 && d >= 8) {
            // The slack shows in the last digits.
            nines = d == 8 ? ".99999998" : ".999999989";
        }
        const std::string zeros = d > 0 ? "." + std::string(static_cast<std::size_t>(d), '0') : "";
        EXPECT_EQ(formatField(layout.format, width, d, boundary - HAIR), layout.below + nines + layout.suffix) << d;
        EXPECT_EQ(formatField(layout.format, width, d, boundary + HAIR), layout.above + zeros + layout.suffix) << d;
    }
}

INSTANTIATE_TEST_SUITE_P(AllClocks, SecondsCarry, testing::Values(
    CarryLayout{timeFormat, 7, "0:00:59", "0:01:00", 1e-8},
    CarryLayout{mmssFormat, 4, "0:59", "1:00", 0.0},
    CarryLayout{todFormat, 7, "0:00:59", "0:01:00", 0.0},
    CarryLayout{timeampmFormat, 11, "12:00:59", "12:01:00", 0.0, " AM"},
    CarryLayout{datetimeFormat, 16, "01JAN60:00:00:59", "01JAN60:00:01:00", 0.0}));

TEST(NumberOfLeadingZeroes, Thresholds) {
    using kivo::format::datetime::numberOfLeadingZeroes;
    EXPECT_EQ(numberOfLeadingZeroes(0.5), 0);
    EXPECT_EQ(numberOfLeadingZeroes(0.1), 0);
    for (int k = 1; k <= 15; ++k) {
        const double power = std::pow(10.0, -k);
        EXPECT_EQ(numberOfLeadingZeroes(power), k - 1) << k;
        EXPECT_EQ(numberOfLeadingZeroes(std::nextafter(power, 0.0)), k) << k;
    }
    EXPECT_EQ(numberOfLeadingZeroes(0.0), 15);
}

struct RealNumberCase {
    double x;
    int intWidth;
    int decimals;
    const char* expected;
};

class WriteRealNumber : public testing::TestWithParam<RealNumberCase> {};

TEST_P(WriteRealNumber, Writes) {
    const RealNumberCase& c = GetParam();
    char buffer[40];
    char* out = buffer;
    kivo::format::datetime::writeRealNumber(out, c.x, c.intWidth, c.decimals);
    EXPECT_EQ(std::string(buffer, out), c.expected);
}

INSTANTIATE_TEST_SUITE_P(Fractions, WriteRealNumber, testing::Values(
    RealNumberCase{7.25, 2, 3, "07.250"},
    RealNumberCase{0.0625, 0, 4, ".0625"},
    RealNumberCase{59.99, 2, 0, "59."},
    RealNumberCase{0.05, 0, 1, ".0"},
    RealNumberCase{0.05, 0, 3, ".050"},
    RealNumberCase{123.5, 2, 1, "23.5"},   // only the lowest integer digits
    RealNumberCase{105.5, 2, 1, "05.5"},
    RealNumberCase{0.000123, 2, 6, "00.000123"},
    RealNumberCase{0.0, 1, 3, "0.000"},
    // At most 15 significant digits; the rest are zeros.
    RealNumberCase{12.123456789012345678, 2, 18, "12.123456789012300000"},
    RealNumberCase{0.123456789012345678, 0, 17, ".12345678901234500"}));

}  // namespace
