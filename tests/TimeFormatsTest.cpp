// The time and datetime formats: what each width shows of a time, a date and a time, the AM/PM clocks,
// the carries of the seconds at every number of decimals and at the end of a day, and the fraction
// writer they share.
#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "FormatFieldSupport.h"
#include "kivo/Formats.h"
#include "kivo/format/datetime/TimeWriters.h"

namespace {

using kivo::test::formatField;

class TimeFormats : public kivo::test::FormatTable {};
TEST_P(TimeFormats, WritesTheField) { expectRow(); }

constexpr double T = 45296.789;  // 12:34:56.789

INSTANTIATE_TEST_SUITE_P(Time, TimeFormats, testing::ValuesIn(kivo::test::rows({
        FORMAT_ROWS(time,
            // What fits, in the order hours, minutes, seconds, decimals.
            {8, 0, T, "12:34:57"}, {5, 0, T, "12:34"}, {7, 0, T, "  12:34"}, {2, 0, T, "12"}, {1, 0, T, "*"},
            {10, 0, T, "  12:34:57"}, {11, 2, T, "12:34:56.79"}, {10, 2, T, "12:34:56.8"}, {12, 3, T, "12:34:56.789"},
            {9, 2, T, " 12:34:57"}, {8, 0, 0.0, " 0:00:00"}, {9, 0, 360000.0, "100:00:00"}, {8, 0, -3600.0, "-1:00:00"},
            {9, 0, -3600.0, " -1:00:00"}, {2, 0, -36000.0, "**"},
            // Carries from the seconds into the minutes and hours, and the growth of the hour digits.
            {8, 0, 59.9999, " 0:01:00"}, {8, 0, 3599.5, " 1:00:00"}, {9, 0, 359999.5, "100:00:00"},
            {8, 0, 359999.5, "  100:00"},
            // Decimals asked for but none fit: a plain half second rounds.
            {8, 2, 59.4999999, " 0:00:59"}, {8, 2, 59.5, " 0:01:00"},
            // Fewer decimals shown than asked for: just below a whole second shows the whole second.
            {9, 2, 5.949999995, "0:00:06.0"}, {9, 2, 5.9499999, "0:00:05.9"},
            // Stored a hair below its decimal form, 0.29 still prints as written.
            {10, 2, 0.29, "0:00:00.29"})})));

// HHMM rounds a tie of minutes down and shows a bare point at nd + 4; MMSS rounds a tie of seconds up
// and counts minutes beyond 32 bits.
INSTANTIATE_TEST_SUITE_P(HhmmMmss, TimeFormats, testing::ValuesIn(kivo::test::rows({
        FORMAT_ROWS(hhmm, {5, 0, T, "12:35"}, {5, 0, 1770.0, " 0:29"}, {5, 0, 3570.0, " 0:59"},
            {5, 0, 1770.001, " 0:30"}, {5, 0, 3570.001, " 1:00"}, {6, 1, 5400.0, "1:30.0"}, {5, 1, 5400.0, "1:30."},
            {4, 1, 5400.0, "1:30"}, {3, 0, 5400.0, "  1"}, {8, 1, 5400.0, "  1:30.0"}, {7, 1, 3596.99, " 0:59.9"},
            {7, 1, 3597.0, " 1:00.0"}, {6, 0, -5400.0, " -1:30"}, {3, 0, 360000.0, "100"}, {2, 0, 360000.0, "**"},
            {3, 0, -360000.0, " **"}),
        FORMAT_ROWS(mmss, {5, 0, 29.5, " 0:30"}, {5, 0, 29.4999999, " 0:29"}, {5, 0, 3599.5, "60:00"},
            {6, 2, 61.25, "1:01.2"}, {7, 2, 61.25, "1:01.25"}, {6, 0, -61.0, " -1:01"}, {2, 0, 6000.0, "**"},
            {14, 0, 3e11, " 5000000000:00"})})));

// HOUR: no sign; 9.5 hours gain a digit and 9.95 leave no room for a decimal; hours longer than the
// width take the exponent form, or stars when even that does not fit.
INSTANTIATE_TEST_SUITE_P(Hour, TimeFormats, testing::ValuesIn(kivo::test::rows({
        FORMAT_ROWS(hour, {2, 0, 5400.0, " 2"}, {3, 1, 5400.0, "1.5"}, {5, 2, 5400.0, " 1.50"}, {2, 1, 1800.0, ".5"},
            {4, 2, 1800.0, "0.50"}, {3, 1, -5400.0, "1.5"}, {2, 0, 34200.0, "10"}, {3, 1, 35820.0, " 10"},
            {3, 1, 35819.0, "9.9"}, {4, 1, 35820.0, "10.0"}, {3, 0, 3600000.0, "1E3"}, {3, 1, -3600000.0, "1E3"},
            {6, 0, 5.5e11, "1.53E8"}, {2, 0, 360000.0, "**"})})));

constexpr double T9_05_30 = 9 * 3600 + 5 * 60 + 30;
constexpr double T13_45_30 = 13 * 3600 + 45 * 60 + 30;

// TOD: the hour does not wrap at the end of the day; a datetime shows its time of day, before 1960 too.
INSTANTIATE_TEST_SUITE_P(Tod, TimeFormats, testing::ValuesIn(kivo::test::rows({
        FORMAT_ROWS(tod, {8, 0, T9_05_30, "09:05:30"}, {7, 0, T9_05_30, "9:05:30"}, {5, 0, T9_05_30, "09:05"},
            {9, 0, T9_05_30, " 09:05:30"}, {10, 1, T9_05_30, "09:05:30.0"}, {2, 0, T9_05_30, "09"},
            {8, 0, T13_45_30, "13:45:30"}, {9, 0, T13_45_30, " 13:45:30"}, {4, 0, T13_45_30, "  13"},
            {10, 1, T13_45_30 + 0.25, "13:45:30.3"}, {8, 0, 86399.6, "24:00:00"}, {8, 0, 35999.6, "10:00:00"},
            {8, 0, -86400.0 + T9_05_30, "09:05:30"}, {8, 0, 22356 * 86400.0 + T13_45_30, "13:45:30"})})));

// The carry of the seconds at every number of decimals: a hair below the rounding boundary shows the
// last second with all nines, a hair above shows the next minute.
// slack: TIME's increment is 1e-8 above the half unit.
struct CarryLayout { KivoFormatFunction format; int widthAtNoDecimals; const char *below, *above; double slack;
                     const char* suffix = ""; };

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

struct RealNumberCase { double x; int intWidth; int decimals; const char* expected; };

class WriteRealNumber : public testing::TestWithParam<RealNumberCase> {};

TEST_P(WriteRealNumber, Writes) {
    const RealNumberCase& c = GetParam();
    char buffer[40];
    char* out = buffer;
    kivo::format::datetime::writeRealNumber(out, c.x, c.intWidth, c.decimals);
    EXPECT_EQ(std::string(buffer, out), c.expected);
}

// Only the lowest integer digits; at most 15 significant digits, then zeros.
const RealNumberCase REAL_NUMBER_CASES[] = {
    {7.25, 2, 3, "07.250"},  {0.0625, 0, 4, ".0625"}, {59.99, 2, 0, "59."},     {0.05, 0, 1, ".0"},
    {0.05, 0, 3, ".050"},    {123.5, 2, 1, "23.5"},   {105.5, 2, 1, "05.5"},    {0.000123, 2, 6, "00.000123"},
    {0.0, 1, 3, "0.000"},    {12.123456789012345678, 2, 18, "12.123456789012300000"},
    {0.123456789012345678, 0, 17, ".12345678901234500"}};
INSTANTIATE_TEST_SUITE_P(Fractions, WriteRealNumber, testing::ValuesIn(REAL_NUMBER_CASES));

constexpr double DAY = 86400.0;
constexpr double MARCH_17_2021 = 22356 * DAY;
constexpr double at(double day, int h, int m, double s) { return day + h * 3600 + m * 60 + s; }
constexpr double DT = at(MARCH_17_2021, 13, 45, 30.25);
// The last instant of a day that is still shown on it: 86400 - 2^-31. On day 0 the seconds serial
// keeps that precision.
const double DAY_END = DAY - std::ldexp(1.0, -31);
constexpr double LAST_DAY_OF_CALENDAR = 6589340 * DAY;  // 31 December 20000
constexpr double YEAR_10000 = 2936550 * DAY;            // 1 January 10000


// TIMEAMPM wraps at midnight, and its hour grows to two digits.
INSTANTIATE_TEST_SUITE_P(TimeAmPm, TimeFormats, testing::ValuesIn(kivo::test::rows({
        FORMAT_ROWS(timeampm, {4, 0, DT, "  PM"}, {5, 0, DT, " 1 PM"}, {8, 0, DT, " 1:45 PM"},
            {11, 0, DT, " 1:45:30 PM"},
            {12, 0, DT, "  1:45:30 PM"}, {13, 2, DT, "1:45:30.25 PM"}, {11, 0, 0.0, "12:00:00 AM"},
            {11, 0, 12 * 3600.0, "12:00:00 PM"}, {11, 0, 86399.6, "12:00:00 AM"}, {11, 0, 86399.4, "11:59:59 PM"},
            {11, 0, 43199.7, "12:00:00 PM"}, {11, 0, 35999.7, "10:00:00 AM"}, {12, 1, 35999.97, " 10:00:00 AM"},
            {2, 0, 35999.0, "AM"})})));

// DATETIME cuts its decimals rather than rounding them; unseen seconds still carry. At the end of the
// day: at the limit the next day, a hair before it hour 24 of the same day.
INSTANTIATE_TEST_SUITE_P(Datetime, TimeFormats, testing::ValuesIn(kivo::test::rows({
        FORMAT_WIDTHS(datetime, 7, DT, "17MAR21", " 17MAR21", "17MAR2021", "17MAR21:13"),
        FORMAT_ROWS(datetime, {12, 0, DT, "  17MAR21:13"}, {13, 0, DT, "17MAR21:13:45"}, {15, 0, DT, "  17MAR21:13:45"},
            {16, 0, DT, "17MAR21:13:45:30"}, {18, 0, DT, "  17MAR21:13:45:30"}, {19, 0, DT, " 17MAR2021:13:45:30"},
            {21, 0, DT, "   17MAR2021:13:45:30"}, {16, 2, DT, "17MAR21:13:45:30"}, {17, 2, DT, "17MAR21:13:45:30."},
            {18, 2, DT, "17MAR21:13:45:30.2"}, {19, 2, DT, "17MAR21:13:45:30.25"}, {20, 2, DT, " 17MAR21:13:45:30.25"},
            {21, 2, DT, "17MAR2021:13:45:30.25"}, {23, 2, DT, "  17MAR2021:13:45:30.25"}, {9, 2, DT, "17MAR2021"},
            {14, 2, DT, " 17MAR21:13:45"}, {16, 0, DAY_END, "02JAN60:00:00:00"},
            {16, 0, std::nextafter(DAY_END, 0.0), "01JAN60:24:00:00"}, {16, 0, 86399.4, "01JAN60:23:59:59"},
            {28, 9, 86399.999999995, "01JAN1960:24:00:00.000000000"},
            {28, 9, 86399.99999998, "01JAN1960:23:59:59.999999980"}, {13, 0, 3599.5, "01JAN60:01:00"},
            {18, 0, -0.5, "  31DEC59:24:00:00"}, {19, 0, YEAR_10000, " 01JAN****:00:00:00"},
            {16, 0, LAST_DAY_OF_CALENDAR + DAY_END, "****************"})})));

// DATEAMPM shows the 24-hour hour, without AM or PM, until the width has room for them; its day-end
// limit moves with the decimals, and hour 24 can follow a carry.
INSTANTIATE_TEST_SUITE_P(DateAmPm, TimeFormats, testing::ValuesIn(kivo::test::rows({
        FORMAT_WIDTHS(dateampm, 7, DT, "17MAR21", " 17MAR21", "17MAR2021", "17MAR21:13"),
        FORMAT_ROWS(dateampm, {12, 0, DT, "  17MAR21:13"}, {13, 0, DT, "17MAR21:01 PM"},
            {16, 0, DT, "17MAR21:01:45 PM"},
            {19, 0, DT, "17MAR21:01:45:30 PM"}, {21, 0, DT, "  17MAR21:01:45:30 PM"},
            {22, 0, DT, " 17MAR2021:01:45:30 PM"}, {20, 2, DT, "17MAR21:01:45:30. PM"},
            {21, 2, DT, "17MAR21:01:45:30.2 PM"}, {23, 2, DT, " 17MAR21:01:45:30.25 PM"},
            {24, 2, DT, "17MAR2021:01:45:30.25 PM"}, {19, 2, DT, "17MAR21:01:45:30 PM"},
            {19, 0, 86399.6, "02JAN60:12:00:00 AM"}, {19, 0, 86399.49, "01JAN60:11:59:59 PM"},
            {23, 1, 86399.95, "02JAN1960:12:00:00.0 AM"}, {23, 1, 86399.94, "01JAN1960:11:59:59.9 PM"},
            {26, 3, 86399.6, " 01JAN1960:11:59:59.600 PM"}, {24, 2, DAY_END, "02JAN1960:12:00:00.00 AM"},
            {13, 0, 3599.5, "01JAN60:01 AM"}, {13, 0, 86399.49999999, "01JAN60:12 AM"},
            {10, 0, 86399.49999999, "01JAN60:24"})})));

constexpr double T9_05 = at(MARCH_17_2021, 9, 5, 59.9);

// MDYAMPM and DMYAMPM do not round; below width 8 the field is left as it was.
INSTANTIATE_TEST_SUITE_P(SlashDates, TimeFormats, testing::ValuesIn(kivo::test::rows({
        FORMAT_ROWS(mdyampm, {8, 0, DT, "03/17/21"}, {9, 0, DT, " 03/17/21"}, {10, 0, DT, "03/17/2021"},
            {16, 0, DT, "      03/17/2021"}, {17, 0, DT, "03/17/21 13:45 PM"}, {17, 0, T9_05, " 03/17/21 9:05 AM"},
            {18, 0, DT, " 03/17/21 13:45 PM"}, {19, 0, DT, "03/17/2021 13:45 PM"},
            {19, 0, T9_05, " 03/17/2021 9:05 AM"},
            {19, 0, at(MARCH_17_2021, 0, 30, 0), " 03/17/2021 0:30 AM"}, {21, 0, DT, "  03/17/2021 13:45 PM"},
            {10, 0, YEAR_10000, "01/01/****"}, {8, 0, YEAR_10000, "01/01/00"}, {7, 0, DT, "#######"}),
        FORMAT_ROWS(dmyampm, {8, 0, DT, "17/03/21"}, {19, 0, DT, "17/03/2021 13:45 PM"},
            {17, 0, T9_05, " 17/03/21 9:05 AM"})})));

// MONDYTM shows the last instant of a day as 12 AM of that same date.
INSTANTIATE_TEST_SUITE_P(Mondytm, TimeFormats, testing::ValuesIn(kivo::test::rows({
        FORMAT_ROWS(mondytm, {20, 0, DT, "MAR 17 2021 01:45 PM"}, {23, 0, DT, "MAR 17 2021 01:45:30 PM"},
            {24, 2, DT, " MAR 17 2021 01:45:30 PM"}, {25, 2, DT, "MAR 17 2021 01:45:30.2 PM"},
            {26, 2, DT, "MAR 17 2021 01:45:30.25 PM"}, {28, 2, DT, "  MAR 17 2021 01:45:30.25 PM"},
            {20, 0, DT - 14 * DAY, " MAR 3 2021 01:45 PM"},
            {21, 0, at(MARCH_17_2021, 0, 0, 0), " MAR 17 2021 12:00 AM"},
            {23, 0, 86399.8, " JAN 1 1960 12:00:00 AM"}, {23, 0, 86399.4, " JAN 1 1960 11:59:59 PM"},
            {20, 0, 86399.4, " JAN 1 1960 11:59 PM"}, {20, 0, 3599.5, " JAN 1 1960 01:00 AM"},
            {23, 0, YEAR_10000, "***********************"})})));

}  // namespace
