// JULIAN, MINGUO and NENGO as text; PDJULG and PDJULI as packed bytes. NENGO's last era ends at
// today's date, so its tests fix "today" through the host option.
#include <gtest/gtest.h>

#include <string>

#include "FormatFieldSupport.h"
#include "HostSupport.h"
#include "kivox/Missing.h"

namespace {

using kivo::lum_numeric::MISSING;
using kivo::test::day;
using kivo::test::formatField;

const double MAR17 = day(2021, 3, 17);  // day 76 of the year
const double Y12021 = day(12021, 3, 17);

// Today is 17 March 2021, where NENGO's running era ends.
class JulianEraFormats : public kivo::test::FormatTable {
protected:
    JulianEraFormats() { services_.options().setOption("today", "2021-03-17"); }
    kivo::test::OwnServices services_;
};
TEST_P(JulianEraFormats, WritesTheExpectedField) { expectRow(); }

// MINGUO counts years from 1911 up to 999; NENGO's eras begin on the days of their first rows.
INSTANTIATE_TEST_SUITE_P(JulianAndEras, JulianEraFormats, testing::ValuesIn(kivo::test::rows({
        FORMAT_WIDTHS(julian, 4, MAR17, "****", "21076", " 21076", "2021076", " 2021076"),
        FORMAT_ROWS(julian, {9, 0, day(2021, 1, 5), "  2021005"}, {5, 0, day(2020, 12, 31), "20366"},
                    {5, 0, Y12021, "21076"}, {8, 0, Y12021, "********"}),
        FORMAT_WIDTHS(minguo, 6, MAR17, "******", "1100317", "1100317 ", "110/03/17", "0110/03/17"),
        FORMAT_ROWS(minguo, {6, 0, day(1999, 3, 17), "880317"}, {7, 0, day(1999, 3, 17), "0880317"},
                    {8, 0, day(1999, 3, 17), "88/03/17"}, {10, 0, day(1999, 3, 17), "0088/03/17"},
                    {6, 0, day(1911, 3, 17), "000317"}, {8, 0, day(1911, 1, 1), "00/01/01"},
                    {8, 0, day(1910, 12, 31), "********"}, {9, 0, day(2910, 12, 31), "999/12/31"},
                    {10, 0, day(2911, 1, 1), "**********"}),
        FORMAT_WIDTHS(nengo, 2, MAR17, "R3", "R03", "R03 ", "R03  ", "R03/03", " R03/03", "R.030317", "R03/03/17",
                      "R.03/03/17"),
        FORMAT_ROWS(nengo, {9, 0, day(1868, 8, 31), "*********"}, {9, 0, day(1868, 9, 1), "M01/09/01"},
                    {9, 0, day(1912, 7, 29), "M45/07/29"}, {9, 0, day(1912, 7, 30), "T01/07/30"},
                    {9, 0, day(1926, 12, 24), "T15/12/24"}, {9, 0, day(1926, 12, 25), "S01/12/25"},
                    {9, 0, day(1989, 1, 7), "S64/01/07"}, {9, 0, day(1989, 1, 8), "H01/01/08"},
                    {9, 0, day(2019, 4, 30), "H31/04/30"}, {9, 0, day(2019, 5, 1), "R01/05/01"},
                    {2, 0, day(2019, 4, 30), "**"}, {2, 0, day(1989, 1, 8), "H1"}, {9, 0, MAR17 + 1, "*********"})})));

// The running era reaches as far as the "today" option, even past the year 2100.
TEST(NengoToday, TheRunningEraEndsWhereTheTodayOptionSays) {
    kivo::test::OwnServices services;
    services.options().setOption("today", "20000-12-31");
    EXPECT_EQ(formatField(nengoFormat, 10, 0, day(2100, 1, 1)), "R.82/01/01");
}

// The packed field as hex pairs, "2021076F".
std::string packedHex(KivoFormatFunction format, int width, double value) {
    const std::string bytes = formatField(format, width, 0, value);
    std::string hex;
    for (const char byte : bytes) {
        hex += "0123456789ABCDEF"[static_cast<unsigned char>(byte) >> 4];
        hex += "0123456789ABCDEF"[byte & 0xF];
    }
    return hex;
}

TEST(PackedJulianFormats, BytesByWidth) {
    struct Case { KivoFormatFunction format; int width; double value; const char* expected; };
    // Nines when the year does not fit (PDJULI counts years from 1900, so 121 need two bytes); zeros for
    // a missing value and for a date that is not valid, before 1900 for PDJULI.
    const Case cases[] = {
        {pdjulgFormat, 4, MAR17, "2021076F"}, {pdjulgFormat, 6, MAR17, "00002021076F"},
        {pdjulgFormat, 5, day(2020, 12, 31), "002020366F"}, {pdjulgFormat, 4, day(2021, 1, 5), "2021005F"},
        {pdjulgFormat, 3, MAR17, "99996F"}, {pdjulgFormat, 4, Y12021, "9999996F"},
        {pdjulgFormat, 5, Y12021, "012021076F"}, {pdjulgFormat, 4, MISSING, "0000000F"},
        {pdjulgFormat, 3, 1e9, "00000F"}, {pdjuliFormat, 4, MAR17, "0121076F"},
        {pdjuliFormat, 3, day(1999, 3, 17), "99076F"}, {pdjuliFormat, 3, MAR17, "99996F"},
        {pdjuliFormat, 6, MAR17, "00000121076F"}, {pdjuliFormat, 4, day(1900, 1, 1), "0000001F"},
        {pdjuliFormat, 4, Y12021, "9999996F"}, {pdjuliFormat, 5, Y12021, "010121076F"},
        {pdjuliFormat, 4, day(1899, 12, 31), "0000000F"}, {pdjuliFormat, 5, kivo::lum_numeric::MISSING__, "000000000F"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(packedHex(c.format, c.width, c.value), c.expected) << c.expected;
    }
}

}  // namespace
