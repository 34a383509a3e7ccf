// The week-number formats: the texts by width of both families, and the convention each one follows at
// the turn of the year. The host's week records themselves are checked against strftime around every
// turn of the year, and the formats' fields read back day by day by the week informats.
#include <gtest/gtest.h>

#include <string>

#include "FormatFieldSupport.h"
#include "HostSupport.h"

namespace {

using kivo::test::day;
using kivo::test::formatField;

class WeekNumberTexts : public kivo::test::FormatTable {};
TEST_P(WeekNumberTexts, WritesTheField) { expectRow(); }

const double MAR17 = day(2021, 3, 17);    // weekday 4 of U-week 11
const double JAN1 = day(2021, 1, 1);      // a Friday: week 53 of 2020 for V, week 0 of 2021 for U and W
const double Y12021 = day(12021, 3, 17);  // a year past 9999 shows its last four digits

// WEEKU is left-aligned, the blanks after the text; YYWEEKU at widths 7 and 8 shows the whole year.
// Sunday 3 January 2021 begins U-week 1 but is still in W-week 0.
INSTANTIATE_TEST_SUITE_P(ByWidth, WeekNumberTexts, testing::ValuesIn(kivo::test::rows({
        FORMAT_WIDTHS(weeku, 3, MAR17, "W11", "W11 ", "21W11", "21W11 ", "21W1104", "21W1104 ", "2021W1104",
                      "2021W1104 ", "2021-W11-04"),
        FORMAT_WIDTHS(yyweeku, 3, MAR17, "W11", "W11 ", "21W11", "21W11 ", "2021W11", "2021-W11", "2021W1104",
                      "2021W1104 ", "2021-W11-04"),
        FORMAT_ROWS(weeku, {15, 0, MAR17, "2021-W11-04    "}, {11, 0, JAN1, "2021-W00-06"}),
        FORMAT_ROWS(yyweeku, {15, 0, MAR17, "2021-W11-04    "}, {8, 0, day(2021, 1, 3), "2021-W01"}),
        FORMAT_ROWS(weekv, {11, 0, JAN1, "2020-W53-05"}, {5, 0, JAN1, "20W53"}, {11, 0, day(2021, 1, 4), "2021-W01-01"},
                    {11, 0, Y12021, "2021-W11-03"}),
        FORMAT_ROWS(yyweekv, {8, 0, JAN1, "2020-W53"}, {7, 0, JAN1, "2020W53"}),
        FORMAT_ROWS(weekw, {11, 0, JAN1, "2021-W00-05"}),
        FORMAT_ROWS(yyweekw, {8, 0, Y12021, "2021-W11"}, {8, 0, JAN1, "2021-W00"},
                    {8, 0, day(2021, 1, 3), "2021-W00"})})));

}  // namespace
