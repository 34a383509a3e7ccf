// JULIAN, MINGUO and NENGO as text; PDJULG and PDJULI as packed bytes. NENGO's last era ends at
// today's date, so its tests fix "today" through the host option.
#include <gtest/gtest.h>

#include <string>

#include "FormatFieldSupport.h"
#include "kivox/Calendar.h"
#include "kivox/Missing.h"
#include "kivox/Services.h"

namespace {

using kivo::lum_numeric::MISSING;
using kivo::test::FieldCase;
using kivo::test::formatField;

double day(int y, int m, int d) { return static_cast<int>(kivo::Date(y, m, d)); }

const double MAR17 = day(2021, 3, 17);  // day 76 of the year
const double Y12021 = day(12021, 3, 17);

class JulianEraFormats : public testing::TestWithParam<FieldCase> {
protected:
    // NENGO's running era ends at this day.
    void SetUp() override {
        session_.systemOptions().setOption("today", "2021-03-17");
        previous_ = kivo::ServiceLocator::setCurrent(&session_);
    }
    void TearDown() override { kivo::ServiceLocator::setCurrent(previous_); }

private:
    kivo::ServiceLocator session_;
    kivo::ServiceLocator* previous_ = nullptr;
};

TEST_P(JulianEraFormats, WritesTheExpectedField) {
    const FieldCase& c = GetParam();
    EXPECT_EQ(formatField(c.format, c.width, c.decimals, c.value), c.expected);
}

INSTANTIATE_TEST_SUITE_P(
    JulianAndEras, JulianEraFormats,
    testing::ValuesIn(kivo::test::rows({
        FORMAT_ROWS(julian,
                    {5, 0, MAR17, "21076"}, {6, 0, MAR17, " 21076"}, {7, 0, MAR17, "2021076"},
                    {9, 0, day(2021, 1, 5), "  2021005"}, {5, 0, day(2020, 12, 31), "20366"}, {4, 0, MAR17, "****"},
                    {5, 0, Y12021, "21076"}, {8, 0, Y12021, "********"}, {7, 0, MISSING, "      ."}),
        FORMAT_ROWS(minguo,
                    {6, 0, MAR17, "******"}, {7, 0, MAR17, "1100317"}, {8, 0, MAR17, "1100317 "},
                    {9, 0, MAR17, "110/03/17"}, {10, 0, MAR17, "0110/03/17"}, {6, 0, day(1999, 3, 17), "880317"},
                    {7, 0, day(1999, 3, 17), "0880317"}, {8, 0, day(1999, 3, 17), "88/03/17"},
                    {10, 0, day(1999, 3, 17), "0088/03/17"}, {6, 0, day(1911, 3, 17), "000317"},
                    {8, 0, day(1911, 1, 1), "00/01/01"}, {8, 0, day(1910, 12, 31), "********"},
                    {9, 0, day(2910, 12, 31), "999/12/31"}, {10, 0, day(2911, 1, 1), "**********"},
                    {8, 0, MISSING, "       ."}),
        FORMAT_ROWS(nengo,
                    {2, 0, MAR17, "R3"}, {3, 0, MAR17, "R03"}, {5, 0, MAR17, "R03  "}, {6, 0, MAR17, "R03/03"},
                    {7, 0, MAR17, " R03/03"}, {8, 0, MAR17, "R.030317"}, {9, 0, MAR17, "R03/03/17"},
                    {10, 0, MAR17, "R.03/03/17"}, {4, 0, MISSING, "   ."}, {4, 0, -1e9, "****"},
                    // The first day of each era and the day before it.
                    {9, 0, day(1868, 8, 31), "*********"}, {9, 0, day(1868, 9, 1), "M01/09/01"},
                    {9, 0, day(1912, 7, 29), "M45/07/29"}, {9, 0, day(1912, 7, 30), "T01/07/30"},
                    {9, 0, day(1926, 12, 24), "T15/12/24"}, {9, 0, day(1926, 12, 25), "S01/12/25"},
                    {9, 0, day(1989, 1, 7), "S64/01/07"}, {9, 0, day(1989, 1, 8), "H01/01/08"},
                    {9, 0, day(2019, 4, 30), "H31/04/30"}, {9, 0, day(2019, 5, 1), "R01/05/01"},
                    {2, 0, day(2019, 4, 30), "**"}, {2, 0, day(1989, 1, 8), "H1"},
                    // The running era goes no further than today.
                    {9, 0, MAR17 + 1, "*********"})})));

TEST(NengoToday, TheRunningEraEndsWhereTheTodayOptionSays) {
    kivo::ServiceLocator session;
    kivo::ServiceLocator* previous = kivo::ServiceLocator::setCurrent(&session);
    session.systemOptions().setOption("today", "2019-04-30");
    EXPECT_EQ(formatField(nengoFormat, 9, 0, day(2019, 5, 1)), "*********");
    EXPECT_EQ(formatField(nengoFormat, 9, 0, day(2019, 4, 30)), "H31/04/30");
    EXPECT_EQ(formatField(nengoFormat, 9, 0, day(2100, 1, 1)), "*********");
    session.systemOptions().setOption("today", "20000-12-31");
    EXPECT_EQ(formatField(nengoFormat, 10, 0, day(2100, 1, 1)), "R.82/01/01");
    kivo::ServiceLocator::setCurrent(previous);
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
    struct Case {
        KivoFormatFunction format;
        int width;
        double value;
        const char* expected;
    };
    const Case cases[] = {
        {pdjulgFormat, 4, MAR17, "2021076F"},
        {pdjulgFormat, 6, MAR17, "00002021076F"},
        {pdjulgFormat, 5, day(2020, 12, 31), "002020366F"},
        {pdjulgFormat, 4, day(2021, 1, 5), "2021005F"},
        {pdjulgFormat, 3, MAR17, "99996F"},  // no room for the year: nines
        {pdjulgFormat, 4, Y12021, "9999996F"},
        {pdjulgFormat, 5, Y12021, "012021076F"},
        {pdjulgFormat, 4, MISSING, "0000000F"},
        {pdjulgFormat, 3, 1e9, "00000F"},
        {pdjuliFormat, 4, MAR17, "0121076F"},
        {pdjuliFormat, 3, day(1999, 3, 17), "99076F"},
        {pdjuliFormat, 3, MAR17, "99996F"},  // 121 years from 1900 need two bytes
        {pdjuliFormat, 6, MAR17, "00000121076F"},
        {pdjuliFormat, 4, day(1900, 1, 1), "0000001F"},
        {pdjuliFormat, 4, Y12021, "9999996F"},
        {pdjuliFormat, 5, Y12021, "010121076F"},
        {pdjuliFormat, 4, day(1899, 12, 31), "0000000F"},  // before 1900: as a date that is not valid
        {pdjuliFormat, 5, kivo::lum_numeric::MISSING__, "000000000F"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(packedHex(c.format, c.width, c.value), c.expected) << c.expected;
    }
}

}  // namespace
