// The week-number formats: the texts by width of both families, and every day of two centuries under
// each week convention against the C library's strftime, which numbers the same three conventions
// (%U, %W, and %G/%V for the weeks of the week-based year).
#include <gtest/gtest.h>

#include <ctime>
#include <string>

#include "FormatFieldSupport.h"
#include "kivox/Calendar.h"
#include "kivox/Missing.h"

namespace {

using kivo::test::formatField;

double day(int y, int m, int d) { return static_cast<int>(kivo::Date(y, m, d)); }

struct WidthRow {
    int width;
    const char* weeku;  // left-aligned: the blanks follow the text
    const char* yyweeku;
};

TEST(WeekNumberFormats, TextsByWidth) {
    // 17 March 2021 is weekday 4 of U-week 11.
    const WidthRow rows[] = {
        {3, "W11", "W11"},
        {4, "W11 ", "W11 "},
        {5, "21W11", "21W11"},
        {6, "21W11 ", "21W11 "},
        {7, "21W1104", "2021W11"},
        {8, "21W1104 ", "2021-W11"},
        {9, "2021W1104", "2021W1104"},
        {10, "2021W1104 ", "2021W1104 "},
        {11, "2021-W11-04", "2021-W11-04"},
        {15, "2021-W11-04    ", "2021-W11-04    "},
    };
    for (const WidthRow& row : rows) {
        EXPECT_EQ(formatField(weekuFormat, row.width, 0, day(2021, 3, 17)), row.weeku) << row.width;
        EXPECT_EQ(formatField(yyweekuFormat, row.width, 0, day(2021, 3, 17)), row.yyweeku) << row.width;
    }
}

TEST(WeekNumberFormats, YearsOfTheWeekAndOfFiveDigits) {
    struct Case {
        KivoFormatFunction format;
        int width;
        double value;
        const char* expected;
    };
    const Case cases[] = {
        // 1 January 2021, a Friday, lies in week 53 of 2020 for V, in week 0 of 2021 for U and W.
        {weekvFormat, 11, day(2021, 1, 1), "2020-W53-05"},
        {yyweekvFormat, 8, day(2021, 1, 1), "2020-W53"},
        {yyweekvFormat, 7, day(2021, 1, 1), "2020W53"},
        {weekvFormat, 5, day(2021, 1, 1), "20W53"},
        {weekuFormat, 11, day(2021, 1, 1), "2021-W00-06"},
        {weekwFormat, 11, day(2021, 1, 1), "2021-W00-05"},
        {weekvFormat, 11, day(2021, 1, 4), "2021-W01-01"},
        // A year past 9999 shows its last four digits.
        {weekvFormat, 11, day(12021, 3, 17), "2021-W11-03"},
        {yyweekwFormat, 8, day(12021, 3, 17), "2021-W11"},
        {weekuFormat, 6, kivo::lum_numeric::MISSING, "     ."},
        {yyweekwFormat, 4, 1e9, "****"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(formatField(c.format, c.width, 0, c.value), c.expected) << c.expected;
    }
}

// "2021-W11-04" as strftime writes it for the given week convention; the weekday in two digits.
std::string strftimeWeek(double daySerial, const char* yearAndWeek, bool sundayFirst) {
    constexpr long SECONDS_FROM_1960_TO_1970 = 3653L * 86400;
    const std::time_t seconds = static_cast<std::time_t>(daySerial) * 86400 - SECONDS_FROM_1960_TO_1970;
    std::tm broken{};
    gmtime_r(&seconds, &broken);
    char text[32];
    std::strftime(text, sizeof text, yearAndWeek, &broken);
    const int weekday = sundayFirst ? broken.tm_wday + 1 : (broken.tm_wday + 6) % 7 + 1;
    return std::string(text) + "-0" + std::to_string(weekday);
}

TEST(WeekNumberFormats, EveryDayOfTwoCenturiesAgreesWithStrftime) {
    for (double value = day(1900, 1, 1); value <= day(2100, 12, 31); ++value) {
        ASSERT_EQ(formatField(weekuFormat, 11, 0, value), strftimeWeek(value, "%Y-W%U", true)) << value;
        ASSERT_EQ(formatField(weekwFormat, 11, 0, value), strftimeWeek(value, "%Y-W%W", false)) << value;
        ASSERT_EQ(formatField(weekvFormat, 11, 0, value), strftimeWeek(value, "%G-W%V", false)) << value;
    }
}

}  // namespace
