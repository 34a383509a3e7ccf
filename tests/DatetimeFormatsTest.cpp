#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "FormatFieldSupport.h"
#include "kivo/Formats.h"
#include "kivox/Missing.h"

namespace {

using kivo::test::FieldCase;
using kivo::test::formatField;

constexpr double DAY = 86400.0;
constexpr double MARCH_17_2021 = 22356 * DAY;
constexpr double at(double day, int h, int m, double s) { return day + h * 3600 + m * 60 + s; }
constexpr double T = at(MARCH_17_2021, 13, 45, 30.25);
// The last instant of a day that is still shown on it: 86400 - 2^-31. On day 0 the seconds serial
// keeps that precision.
const double DAY_END = DAY - std::ldexp(1.0, -31);
constexpr double LAST_DAY_OF_CALENDAR = 6589340 * DAY;  // 31 December 20000
constexpr double YEAR_10000 = 2936550 * DAY;            // 1 January 10000

class DatetimeFormats : public testing::TestWithParam<FieldCase> {};

TEST_P(DatetimeFormats, WritesTheField) {
    const FieldCase& c = GetParam();
    EXPECT_EQ(formatField(c.format, c.width, c.decimals, c.value), c.expected);
}

INSTANTIATE_TEST_SUITE_P(TimeAmPm, DatetimeFormats, testing::ValuesIn(kivo::test::rows({
        FORMAT_ROWS(timeampm,
            {4, 0, T, "  PM"}, {5, 0, T, " 1 PM"}, {8, 0, T, " 1:45 PM"}, {11, 0, T, " 1:45:30 PM"},
            {12, 0, T, "  1:45:30 PM"}, {13, 2, T, "1:45:30.25 PM"}, {11, 0, 0.0, "12:00:00 AM"},
            {11, 0, 12 * 3600.0, "12:00:00 PM"},
            {11, 0, 86399.6, "12:00:00 AM"},  // wraps at midnight
            {11, 0, 86399.4, "11:59:59 PM"}, {11, 0, 43199.7, "12:00:00 PM"},
            {11, 0, 35999.7, "10:00:00 AM"},  // the hour grows to two digits
            {12, 1, 35999.97, " 10:00:00 AM"}, {2, 0, 35999.0, "AM"})})));

INSTANTIATE_TEST_SUITE_P(Datetime, DatetimeFormats, testing::ValuesIn(kivo::test::rows({
        FORMAT_ROWS(datetime,
            {7, 0, T, "17MAR21"}, {8, 0, T, " 17MAR21"}, {9, 0, T, "17MAR2021"}, {10, 0, T, "17MAR21:13"},
            {12, 0, T, "  17MAR21:13"}, {13, 0, T, "17MAR21:13:45"}, {15, 0, T, "  17MAR21:13:45"},
            {16, 0, T, "17MAR21:13:45:30"}, {18, 0, T, "  17MAR21:13:45:30"}, {19, 0, T, " 17MAR2021:13:45:30"},
            {21, 0, T, "   17MAR2021:13:45:30"}, {16, 2, T, "17MAR21:13:45:30"}, {17, 2, T, "17MAR21:13:45:30."},
            {18, 2, T, "17MAR21:13:45:30.2"},  // cut, not rounded
            {19, 2, T, "17MAR21:13:45:30.25"}, {20, 2, T, " 17MAR21:13:45:30.25"},
            {21, 2, T, "17MAR2021:13:45:30.25"}, {23, 2, T, "  17MAR2021:13:45:30.25"}, {9, 2, T, "17MAR2021"},
            {14, 2, T, " 17MAR21:13:45"},
            // The end of the day: at the limit the next day, a hair before it hour 24 of the same day.
            {16, 0, DAY_END, "02JAN60:00:00:00"}, {16, 0, std::nextafter(DAY_END, 0.0), "01JAN60:24:00:00"},
            {16, 0, 86399.4, "01JAN60:23:59:59"}, {28, 9, 86399.999999995, "01JAN1960:24:00:00.000000000"},
            {28, 9, 86399.99999998, "01JAN1960:23:59:59.999999980"},
            {13, 0, 3599.5, "01JAN60:01:00"},  // unseen seconds still carry
            {18, 0, -0.5, "  31DEC59:24:00:00"}, {19, 0, YEAR_10000, " 01JAN****:00:00:00"},
            {16, 0, LAST_DAY_OF_CALENDAR + DAY_END, "****************"})})));

INSTANTIATE_TEST_SUITE_P(DateAmPm, DatetimeFormats, testing::ValuesIn(kivo::test::rows({
        FORMAT_ROWS(dateampm,
            {7, 0, T, "17MAR21"}, {8, 0, T, " 17MAR21"}, {9, 0, T, "17MAR2021"},
            {10, 0, T, "17MAR21:13"},  // 24-hour hour, no AM or PM
            {12, 0, T, "  17MAR21:13"}, {13, 0, T, "17MAR21:01 PM"}, {16, 0, T, "17MAR21:01:45 PM"},
            {19, 0, T, "17MAR21:01:45:30 PM"}, {21, 0, T, "  17MAR21:01:45:30 PM"},
            {22, 0, T, " 17MAR2021:01:45:30 PM"}, {20, 2, T, "17MAR21:01:45:30. PM"},
            {21, 2, T, "17MAR21:01:45:30.2 PM"}, {23, 2, T, " 17MAR21:01:45:30.25 PM"},
            {24, 2, T, "17MAR2021:01:45:30.25 PM"}, {19, 2, T, "17MAR21:01:45:30 PM"},
            // The day-end limit moves with the decimals.
            {19, 0, 86399.6, "02JAN60:12:00:00 AM"}, {19, 0, 86399.49, "01JAN60:11:59:59 PM"},
            {23, 1, 86399.95, "02JAN1960:12:00:00.0 AM"}, {23, 1, 86399.94, "01JAN1960:11:59:59.9 PM"},
            {26, 3, 86399.6, " 01JAN1960:11:59:59.600 PM"}, {24, 2, DAY_END, "02JAN1960:12:00:00.00 AM"},
            {13, 0, 3599.5, "01JAN60:01 AM"},
            {13, 0, 86399.49999999, "01JAN60:12 AM"},  // hour 24 after a carry
            {10, 0, 86399.49999999, "01JAN60:24"})})));

constexpr double T9_05 = at(MARCH_17_2021, 9, 5, 59.9);

INSTANTIATE_TEST_SUITE_P(SlashDates, DatetimeFormats, testing::ValuesIn(kivo::test::rows({
        FORMAT_ROWS(mdyampm,
            {8, 0, T, "03/17/21"}, {9, 0, T, " 03/17/21"}, {10, 0, T, "03/17/2021"}, {16, 0, T, "      03/17/2021"},
            {17, 0, T, "03/17/21 13:45 PM"},
            {17, 0, T9_05, " 03/17/21 9:05 AM"},  // not rounded
            {18, 0, T, " 03/17/21 13:45 PM"}, {19, 0, T, "03/17/2021 13:45 PM"},
            {19, 0, T9_05, " 03/17/2021 9:05 AM"}, {19, 0, at(MARCH_17_2021, 0, 30, 0), " 03/17/2021 0:30 AM"},
            {21, 0, T, "  03/17/2021 13:45 PM"}, {10, 0, YEAR_10000, "01/01/****"}, {8, 0, YEAR_10000, "01/01/00"}),
        FORMAT_ROWS(dmyampm,
            {8, 0, T, "17/03/21"}, {19, 0, T, "17/03/2021 13:45 PM"}, {17, 0, T9_05, " 17/03/21 9:05 AM"})})));

INSTANTIATE_TEST_SUITE_P(Mondytm, DatetimeFormats, testing::ValuesIn(kivo::test::rows({
        FORMAT_ROWS(mondytm,
            {20, 0, T, "MAR 17 2021 01:45 PM"}, {23, 0, T, "MAR 17 2021 01:45:30 PM"},
            {24, 2, T, " MAR 17 2021 01:45:30 PM"}, {25, 2, T, "MAR 17 2021 01:45:30.2 PM"},
            {26, 2, T, "MAR 17 2021 01:45:30.25 PM"}, {28, 2, T, "  MAR 17 2021 01:45:30.25 PM"},
            {20, 0, T - 14 * DAY, " MAR 3 2021 01:45 PM"},
            {21, 0, at(MARCH_17_2021, 0, 0, 0), " MAR 17 2021 12:00 AM"},
            // The last instant of a day is 12 AM of that same date.
            {23, 0, 86399.8, " JAN 1 1960 12:00:00 AM"}, {23, 0, 86399.4, " JAN 1 1960 11:59:59 PM"},
            {20, 0, 86399.4, " JAN 1 1960 11:59 PM"}, {20, 0, 3599.5, " JAN 1 1960 01:00 AM"},
            {23, 0, YEAR_10000, "***********************"})})));

// Outside the host's datetime range every format fills its field with stars.
TEST(DatetimeFormatsRange, StarsBeyondTheCalendar) {
    for (KivoFormatFunction format :
         {timeampmFormat, datetimeFormat, dateampmFormat, mdyampmFormat, dmyampmFormat, mondytmFormat}) {
        EXPECT_EQ(formatField(format, 24, 0, (6589341 + 1) * DAY), std::string(24, '*'));
        EXPECT_EQ(formatField(format, 24, 0, -138062 * DAY - 1), std::string(24, '*'));
    }
}

// MDYAMPM and DMYAMPM move the missing character by their decimals; the others keep it at the end.
TEST(DatetimeFormatsMissing, Position) {
    const double missing = kivo::lum_numeric::MISSING;
    EXPECT_EQ(formatField(mdyampmFormat, 10, 2, missing), "       .  ");
    EXPECT_EQ(formatField(dmyampmFormat, 10, 3, missing), "      .   ");
    for (KivoFormatFunction format : {timeampmFormat, datetimeFormat, dateampmFormat, mondytmFormat}) {
        EXPECT_EQ(formatField(format, 20, 2, missing), std::string(19, ' ') + ".");
    }
}

TEST(DatetimeFormatsLayout, MdyampmBelowEightLeavesTheField) {
    char field[7] = {'a', 'b', 'c', 'd', 'e', 'f', 'g'};
    mdyampmFormat(field, 7, 0, T);
    EXPECT_EQ(std::string(field, 7), "abcdefg");
}

}  // namespace
