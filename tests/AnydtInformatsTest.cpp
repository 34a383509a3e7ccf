// The free-form reader: its scanner and date-time joint, its layouts under several date styles and year
// cutoffs, the three informats' conversions, the date style it reads, and the invariants that stop the
// process.
#include <gtest/gtest.h>

#include <bit>
#include <cstring>
#include <string>
#include <vector>

#include "HostSupport.h"
#include "formats/datetime_formats/AnydtDateStyle.h"
#include "formats/datetime_formats/AnydtParseInfo.h"
#include "formats/datetime_formats/AnydtReadings.h"
#include "kivo/AnydtInformats.h"
#include "kivo/Informats.h"
#include "kivox/Missing.h"

namespace {

using namespace kivo::anydt;

constexpr std::uint32_t BLANK = ST_BLANK_SEP;

// separators: slots 0..valCount; a refused field has no values or separators.
struct ScanCase { std::string field; bool accepted; int monthIndex; std::vector<std::int64_t> values;
                  std::vector<std::uint32_t> separators; };

// One blank in front makes a run a blank separator even with punctuation after it ("1 - 2"); two do not.
const ScanCase SCAN_CASES[] = {
    {"12JAN2000", true, 1, {12, 1, 2000}, {ST_NONE, ST_NONE, ST_NONE, ST_NONE}},
    {"12 JAN 2000", true, 1, {12, 1, 2000}, {ST_NONE, BLANK, BLANK, ST_NONE}},
    {"12  JAN\t2000", true, 1, {12, 1, 2000}, {ST_NONE, ST_BLANK_BEFORE, ST_BLANK_BEFORE, ST_NONE}},
    {"2000-01-15T10:30", true, -1, {2000, 1, 15, 10, 30}, {0, ST_DASH, ST_DASH, BLANK, ST_COLON, 0}},
    {"10:30 pm", true, -1, {10, 30}, {0, ST_COLON, ST_PM | ST_BLANK_BEFORE}},
    {"10:30P", true, -1, {10, 30}, {0, ST_COLON, ST_PM}}, {"9a", true, -1, {9}, {0, ST_AM}},
    {"1 - 2", true, -1, {1, 2}, {0, BLANK, 0}},
    {"1  - 2", true, -1, {1, 2}, {0, ST_DASH | ST_BLANK_BEFORE | ST_BLANK_AFTER, 0}},
    {"1,2,3", true, -1, {1, 2, 3}, {0, 0x42C, 0x42C, 0}}, {"1-/2", true, -1, {1, 2}, {0, ST_MULTI, 0}},
    {"1\xE9" "2", true, -1, {1, 2}, {0, ST_PUNCT | 0xE9, 0}}, {"Septemberx5", false, 0, {}, {}},
    {"sept 5", true, 0, {9, 5}, {0, BLANK, 0}}, {"JA 2000", false, 0, {}, {}}, {"MAYBE", false, 0, {}, {}},
    {"JAN FEB", false, 0, {}, {}},
    {"1 2 3 4 5 6 7", true, -1, {1, 2, 3, 4, 5, 6, 7}, {0, BLANK, BLANK, BLANK, BLANK, BLANK, BLANK, 0}},
    {"1 2 3 4 5 6 7 8", false, 0, {}, {}}, {"9223372036854775807", true, -1, {9223372036854775807LL}, {0, 0}},
    {"9223372036854775808", false, 0, {}, {}}, {"12T-5", false, 0, {}, {}}, {"", true, -1, {}, {0}},
};

TEST(AnydtScanner, ClassifiesValuesAndSeparators) {
    for (const ScanCase& c : SCAN_CASES) {
        ParseInfo pi;
        int monthIndex = 0;
        const char* begin = c.field.data();
        ASSERT_EQ(scanField(begin, begin + c.field.size(), pi, monthIndex), c.accepted) << c.field;
        if (!c.accepted) continue;
        EXPECT_EQ(monthIndex, c.monthIndex) << c.field;
        EXPECT_EQ(std::vector<std::int64_t>(pi.value, pi.value + pi.valCount), c.values) << c.field;
        EXPECT_EQ(std::vector<std::uint32_t>(pi.sepType, pi.sepType + pi.valCount + 1), c.separators) << c.field;
    }
}

TEST(AnydtScanner, LengthsCoverTheWholeField) {
    const std::string field = "sept 05, 2000 10:30";
    ParseInfo pi;
    int monthIndex = -1;
    ASSERT_TRUE(scanField(field.data(), field.data() + field.size(), pi, monthIndex));
    int covered = 0;
    for (int k = 0; k < pi.valCount; ++k) covered += pi.sepLength[k] + pi.valLength[k];
    EXPECT_EQ(covered + pi.sepLength[pi.valCount], static_cast<int>(field.size()));
    EXPECT_EQ(pi.valLength[0], 4);
}

TEST(AnydtScanner, DatetimeJoint) {
    for (const std::string text : {"", "  ", " : ", "/-", "/ -"}) {
        EXPECT_TRUE(kivo::isDatetimeSeparator(text.data(), text.data() + text.size())) << '"' << text << '"';
    }
    for (const std::string text : {"T", "::", "/--"}) {
        EXPECT_FALSE(kivo::isDatetimeSeparator(text.data(), text.data() + text.size())) << '"' << text << '"';
    }
}

struct DateStyleTest : ::testing::Test {
    kivo::test::OwnServices services_;
};

TEST_F(DateStyleTest, ReadsTheOptionAndTheLocale) {
    const std::pair<const char*, DateStyle> cases[] = {{"dmy", DMY}, {"DYM", DYM}, {"Mdy", MDY},
                                                       {"myd", MYD}, {"ydm", YDM}, {"yMD", YMD}};
    for (const auto& [text, style] : cases) {
        services_.options().setOption("datestyle", text);
        EXPECT_EQ(readDateStyle(), style) << text;
    }
    services_.options().setOption("datestyle", "LOCALE");
    services_.locator().nationalLanguageSupport().setDateStyle("ydm");
    EXPECT_EQ(readDateStyle(), YDM);
}

TEST_F(DateStyleTest, IllegalStylesStopTheProcess) {
    for (const char* text : {"md", "mdyx", "", "dmy "}) {
        services_.options().setOption("datestyle", text);
        EXPECT_DEATH(readDateStyle(), "illegal datestyle.*AnydtInformats.*77") << '"' << text << '"';
    }
    services_.options().setOption("datestyle", "locale");
    services_.locator().nationalLanguageSupport().setDateStyle("");
    EXPECT_DEATH(readDateStyle(), "illegal datestyle");
}

using kivo::AnydtType;
constexpr AnydtType DATE = kivo::ANYDT_DATE;
constexpr AnydtType DATETIME = kivo::ANYDT_DATETIME;
constexpr AnydtType TIME = kivo::ANYDT_TIME;
constexpr AnydtType MISSING = kivo::ANYDT_MISSING;
constexpr double NONE = 1e300;  // stands for the ordinary missing value in the tables

using kivo::test::at;
using kivo::test::day;
std::uint64_t bits(double x) { return std::bit_cast<std::uint64_t>(x); }
void expectResult(double result, double expected, const std::string& where) {
    if (expected == NONE) {
        EXPECT_EQ(bits(result), bits(kivo::lum_numeric::MISSING)) << where;
    } else {
        EXPECT_DOUBLE_EQ(result, expected) << where;
    }
}

// Each test reads under a locator of its own; styles and cutoffs set here never leak.
struct AnydtTest : ::testing::Test {
    void use(const char* style, const char* cutoff) {
        ASSERT_TRUE(services_.options().setOption("datestyle", style));
        ASSERT_TRUE(services_.options().setOption("yearcutoff", cutoff));
    }
    kivo::test::OwnServices services_;
};

// result NONE: not recognised (missing result, type datetime).
struct ReadCase { const char* field; double result; AnydtType type; const char* style = "mdy", *cutoff = "1940"; };

// Digits that fit all three rare orders (dym, myd, ydm) read as the number they spell.
const ReadCase READ_CASES[] = {
    {"20000115", day(2000, 1, 15), DATE}, {"010203", day(2003, 2, 1), DATE, "dmy"}, {"010203", day(2003, 1, 2), DATE},
    {"010203", day(2001, 2, 3), DATE, "ymd"}, {"010203", 10203, DATE, "dym"}, {"311399", 311399, DATE, "ymd"},
    {"15001399", 15001399, DATE, "dmy"}, {"13010050", day(1950, 1, 13), DATE, "dmy"},
    {"13010050", 13010050, DATE, "myd"}, {"13010050", NONE, DATETIME}, {"20012000", NONE, DATETIME, "dmy"},
    {"1234567", NONE, DATETIME}, {"99001", day(1999, 1, 1), DATE}, {"99001", day(2099, 1, 1), DATE, "mdy", "2000"},
    {"2000015", day(2000, 1, 15), DATE}, {"01/02/03", day(2003, 2, 1), DATE, "dmy"},
    {"01/02/03", day(1903, 2, 1), DATE, "dmy", "1900"}, {"01 02 03", day(2002, 3, 1), DATE, "dym"},
    {"01.02.03", day(2002, 1, 3), DATE, "myd"}, {"01-02-03", day(2001, 3, 2), DATE, "ydm"},
    {"2000-01-15", day(2000, 1, 15), DATE, "ymd"}, {"01/15/2000", day(2000, 1, 15), DATE},
    {"1.30.00", day(2000, 1, 30), DATE}, {"01/02-03", NONE, DATETIME}, {"15JAN2000", day(2000, 1, 15), DATE},
    {"15-JAN-00", day(2000, 1, 15), DATE, "mdy", "1950"}, {"15 jan 00", day(1900, 1, 15), DATE, "mdy", "1900"},
    {"2000 JAN 15", day(2000, 1, 15), DATE}, {"JAN 15 2000", day(2000, 1, 15), DATE}, {"JAN 15 00", NONE, DATETIME},
    {"JAN2000", day(2000, 1, 1), DATE}, {"jan 2000", day(2000, 1, 1), DATE}, {"JANUARY2000", NONE, DATETIME},
    {"01/2000", day(2000, 1, 1), DATE}, {"1/2000", NONE, DATETIME}, {"12:30", 45000, TIME}, {"12:30 AM", 1800, TIME},
    {"12:30 PM", 45000, TIME}, {"1:30 PM", 48600, TIME}, {"10:30p", 81000, TIME}, {"-1:30", -5400, TIME},
    {"-1:30:15", -5415, TIME}, {"1.30", NONE, DATETIME}, {"1:30-", NONE, DATETIME}, {"10:30:15.25", 37815.25, TIME},
    {"10:30:15.05", 37815.05, TIME}, {"25:75:99", 94599, TIME},
    {"2000-01-15T10:30:00", at(2000, 1, 15, 37800), DATETIME}, {"15JAN2000:10:30:00", at(2000, 1, 15, 37800), DATETIME},
    {"JAN 15 00 10:00", at(2000, 1, 15, 36000), DATETIME}, {"20000115 10:30:00", at(2000, 1, 15, 37800), DATETIME},
    {"20000115 10:30:00.5", at(2000, 1, 15, 37800.5), DATETIME}, {"-20000115 10:30:00", NONE, DATETIME},
    {"(20000115 10:30:00.5", NONE, DATETIME}, {"01/15/2000 10:30 PM", at(2000, 1, 15, 81000), DATETIME},
    {"01/15/2000 10:30 XM", NONE, DATETIME}, {"  .  ", kivo::lum_numeric::MISSING, MISSING}, {"", NONE, DATETIME},
};

TEST_F(AnydtTest, LayoutsUnderStylesAndCutoffs) {
    for (const ReadCase& c : READ_CASES) {
        use(c.style, c.cutoff);
        double result = 0;
        AnydtType type = MISSING;
        const bool read = kivo::anydtInformats(c.field, static_cast<int>(std::strlen(c.field)), 0, 0, result, type);
        const std::string where = std::string(c.field) + " [" + c.style + " " + c.cutoff + "]";
        EXPECT_EQ(read, c.result != NONE) << where;
        EXPECT_EQ(type, c.type) << where;
        expectResult(result, c.result == NONE || c.type == MISSING ? NONE : c.result, where);
    }
}

TEST_F(AnydtTest, SpecialMissingAndFieldBounds) {
    double result = 0;
    AnydtType type = DATE;
    ASSERT_TRUE(kivo::anydtInformats("._", 2, 0, 0, result, type));
    EXPECT_EQ(bits(result), bits(kivo::lum_numeric::MISSING__));
    EXPECT_EQ(type, MISSING);
    // Only the width's bytes count: the digits after "12:30" lie outside the field.
    ASSERT_TRUE(kivo::anydtInformats("12:3099", 5, 0, 0, result, type));
    EXPECT_EQ(result, 45000);
}

// A result of NONE stands for the ordinary missing value.
struct ConversionCase { KivoInformatFunction informat; const char* field; double result; };

TEST_F(AnydtTest, InformatsConvertByType) {
    use("mdy", "1940");
    const ConversionCase cases[] = {
        {anydtdteInformat, "15JAN2000", day(2000, 1, 15)}, {anydtdteInformat, "2000-01-15T10:30:00", day(2000, 1, 15)},
        {anydtdteInformat, "10:30", 0}, {anydtdteInformat, ".", 0}, {anydtdteInformat, "JAN FEB", NONE},
        {anydtdtmInformat, "15JAN2000", at(2000, 1, 15, 0)}, {anydtdtmInformat, "1:30 PM", 48600},
        {anydtdtmInformat, "2000-01-15T10:30:00", at(2000, 1, 15, 37800)}, {anydtdtmInformat, ".", NONE},
        {anydttmeInformat, "2000-01-15T10:30:00", 37800}, {anydttmeInformat, "15JAN2000", 0},
        {anydttmeInformat, "-1:30", -5400}, {anydttmeInformat, ".", NONE}, {anydttmeInformat, "garbage", NONE},
    };
    for (const ConversionCase& c : cases) {
        double result = 12345;
        EXPECT_EQ(c.informat(c.field, static_cast<int>(std::strlen(c.field)), 0, 0, &result), 1) << c.field;
        expectResult(result, c.result, c.field);
    }
}

TEST_F(AnydtTest, IllegalDateStyleStopsAReadThatNeedsIt) {
    use("xyz", "1940");
    double result = 0;
    EXPECT_EQ(anydtdteInformat("15JAN2000", 9, 0, 0, &result), 1);
    EXPECT_DEATH(anydtdteInformat("010203", 6, 0, 0, &result), "illegal datestyle");
}

}  // namespace
