// The free-form reader's scanner, separator table, date-time joint and date style.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "HostSupport.h"
#include "formats/datetime_formats/AnydtDateStyle.h"
#include "formats/datetime_formats/AnydtParseInfo.h"
#include "kivo/AnydtInformats.h"

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

}  // namespace
