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

INSTANTIATE_TEST_SUITE_P(TimeAmPm, DatetimeFormats, testing::Values(
    FieldCase{timeampmFormat, "TIMEAMPM", 4, 0, T, "  PM"},
    FieldCase{timeampmFormat, "TIMEAMPM", 5, 0, T, " 1 PM"},
    FieldCase{timeampmFormat, "TIMEAMPM", 8, 0, T, " 1:45 PM"},
    FieldCase{timeampmFormat, "TIMEAMPM", 11, 0, T, " 1:45:30 PM"},
    FieldCase{timeampmFormat, "TIMEAMPM", 12, 0, T, "  1:45:30 PM"},
    FieldCase{timeampmFormat, "TIMEAMPM", 13, 2, T, "1:45:30.25 PM"},
    FieldCase{timeampmFormat, "TIMEAMPM", 11, 0, 0.0, "12:00:00 AM"},
    FieldCase{timeampmFormat, "TIMEAMPM", 11, 0, 12 * 3600.0, "12:00:00 PM"},
    FieldCase{timeampmFormat, "TIMEAMPM", 11, 0, 86399.6, "12:00:00 AM"},  // wraps at midnight
    FieldCase{timeampmFormat, "TIMEAMPM", 11, 0, 86399.4, "11:59:59 PM"},
    FieldCase{timeampmFormat, "TIMEAMPM", 11, 0, 43199.7, "12:00:00 PM"},
    FieldCase{timeampmFormat, "TIMEAMPM", 11, 0, 35999.7, "10:00:00 AM"},  // the hour grows to two digits
    FieldCase{timeampmFormat, "TIMEAMPM", 12, 1, 35999.97, " 10:00:00 AM"},
    FieldCase{timeampmFormat, "TIMEAMPM", 2, 0, 35999.0, "AM"}));

INSTANTIATE_TEST_SUITE_P(Datetime, DatetimeFormats, testing::Values(
    FieldCase{datetimeFormat, "DATETIME", 7, 0, T, "17MAR21"},
    FieldCase{datetimeFormat, "DATETIME", 8, 0, T, " 17MAR21"},
    FieldCase{datetimeFormat, "DATETIME", 9, 0, T, "17MAR2021"},
    FieldCase{datetimeFormat, "DATETIME", 10, 0, T, "17MAR21:13"},
    FieldCase{datetimeFormat, "DATETIME", 12, 0, T, "  17MAR21:13"},
    FieldCase{datetimeFormat, "DATETIME", 13, 0, T, "17MAR21:13:45"},
    FieldCase{datetimeFormat, "DATETIME", 15, 0, T, "  17MAR21:13:45"},
    FieldCase{datetimeFormat, "DATETIME", 16, 0, T, "17MAR21:13:45:30"},
    FieldCase{datetimeFormat, "DATETIME", 18, 0, T, "  17MAR21:13:45:30"},
    FieldCase{datetimeFormat, "DATETIME", 19, 0, T, " 17MAR2021:13:45:30"},
    FieldCase{datetimeFormat, "DATETIME", 21, 0, T, "   17MAR2021:13:45:30"},
    FieldCase{datetimeFormat, "DATETIME", 16, 2, T, "17MAR21:13:45:30"},
    FieldCase{datetimeFormat, "DATETIME", 17, 2, T, "17MAR21:13:45:30."},
    FieldCase{datetimeFormat, "DATETIME", 18, 2, T, "17MAR21:13:45:30.2"},  // cut, not rounded
    FieldCase{datetimeFormat, "DATETIME", 19, 2, T, "17MAR21:13:45:30.25"},
    FieldCase{datetimeFormat, "DATETIME", 20, 2, T, " 17MAR21:13:45:30.25"},
    FieldCase{datetimeFormat, "DATETIME", 21, 2, T, "17MAR2021:13:45:30.25"},
    FieldCase{datetimeFormat, "DATETIME", 23, 2, T, "  17MAR2021:13:45:30.25"},
    FieldCase{datetimeFormat, "DATETIME", 9, 2, T, "17MAR2021"},
    FieldCase{datetimeFormat, "DATETIME", 14, 2, T, " 17MAR21:13:45"},
    // The end of the day: at the limit the next day, a hair before it hour 24 of the same day.
    FieldCase{datetimeFormat, "DATETIME", 16, 0, DAY_END, "02JAN60:00:00:00"},
    FieldCase{datetimeFormat, "DATETIME", 16, 0, std::nextafter(DAY_END, 0.0), "01JAN60:24:00:00"},
    FieldCase{datetimeFormat, "DATETIME", 16, 0, 86399.4, "01JAN60:23:59:59"},
    FieldCase{datetimeFormat, "DATETIME", 28, 9, 86399.999999995, "01JAN1960:24:00:00.000000000"},
    FieldCase{datetimeFormat, "DATETIME", 28, 9, 86399.99999998, "01JAN1960:23:59:59.999999980"},
    FieldCase{datetimeFormat, "DATETIME", 13, 0, 3599.5, "01JAN60:01:00"},  // unseen seconds still carry
    FieldCase{datetimeFormat, "DATETIME", 18, 0, -0.5, "  31DEC59:24:00:00"},
    FieldCase{datetimeFormat, "DATETIME", 19, 0, YEAR_10000, " 01JAN****:00:00:00"},
    FieldCase{datetimeFormat, "DATETIME", 16, 0, LAST_DAY_OF_CALENDAR + DAY_END, "****************"}));

INSTANTIATE_TEST_SUITE_P(DateAmPm, DatetimeFormats, testing::Values(
    FieldCase{dateampmFormat, "DATEAMPM", 7, 0, T, "17MAR21"},
    FieldCase{dateampmFormat, "DATEAMPM", 8, 0, T, " 17MAR21"},
    FieldCase{dateampmFormat, "DATEAMPM", 9, 0, T, "17MAR2021"},
    FieldCase{dateampmFormat, "DATEAMPM", 10, 0, T, "17MAR21:13"},  // 24-hour hour, no AM or PM
    FieldCase{dateampmFormat, "DATEAMPM", 12, 0, T, "  17MAR21:13"},
    FieldCase{dateampmFormat, "DATEAMPM", 13, 0, T, "17MAR21:01 PM"},
    FieldCase{dateampmFormat, "DATEAMPM", 16, 0, T, "17MAR21:01:45 PM"},
    FieldCase{dateampmFormat, "DATEAMPM", 19, 0, T, "17MAR21:01:45:30 PM"},
    FieldCase{dateampmFormat, "DATEAMPM", 21, 0, T, "  17MAR21:01:45:30 PM"},
    FieldCase{dateampmFormat, "DATEAMPM", 22, 0, T, " 17MAR2021:01:45:30 PM"},
    FieldCase{dateampmFormat, "DATEAMPM", 20, 2, T, "17MAR21:01:45:30. PM"},
    FieldCase{dateampmFormat, "DATEAMPM", 21, 2, T, "17MAR21:01:45:30.2 PM"},
    FieldCase{dateampmFormat, "DATEAMPM", 23, 2, T, " 17MAR21:01:45:30.25 PM"},
    FieldCase{dateampmFormat, "DATEAMPM", 24, 2, T, "17MAR2021:01:45:30.25 PM"},
    FieldCase{dateampmFormat, "DATEAMPM", 19, 2, T, "17MAR21:01:45:30 PM"},
    // The day-end limit moves with the decimals.
    FieldCase{dateampmFormat, "DATEAMPM", 19, 0, 86399.6, "02JAN60:12:00:00 AM"},
    FieldCase{dateampmFormat, "DATEAMPM", 19, 0, 86399.49, "01JAN60:11:59:59 PM"},
    FieldCase{dateampmFormat, "DATEAMPM", 23, 1, 86399.95, "02JAN1960:12:00:00.0 AM"},
    FieldCase{dateampmFormat, "DATEAMPM", 23, 1, 86399.94, "01JAN1960:11:59:59.9 PM"},
    FieldCase{dateampmFormat, "DATEAMPM", 26, 3, 86399.6, " 01JAN1960:11:59:59.600 PM"},
    FieldCase{dateampmFormat, "DATEAMPM", 24, 2, DAY_END, "02JAN1960:12:00:00.00 AM"},
    FieldCase{dateampmFormat, "DATEAMPM", 13, 0, 3599.5, "01JAN60:01 AM"},
    FieldCase{dateampmFormat, "DATEAMPM", 13, 0, 86399.49999999, "01JAN60:12 AM"},  // hour 24 after a carry
    FieldCase{dateampmFormat, "DATEAMPM", 10, 0, 86399.49999999, "01JAN60:24"}));

constexpr double T9_05 = at(MARCH_17_2021, 9, 5, 59.9);

INSTANTIATE_TEST_SUITE_P(SlashDates, DatetimeFormats, testing::Values(
    FieldCase{mdyampmFormat, "MDYAMPM", 8, 0, T, "03/17/21"},
    FieldCase{mdyampmFormat, "MDYAMPM", 9, 0, T, " 03/17/21"},
    FieldCase{mdyampmFormat, "MDYAMPM", 10, 0, T, "03/17/2021"},
    FieldCase{mdyampmFormat, "MDYAMPM", 16, 0, T, "      03/17/2021"},
    FieldCase{mdyampmFormat, "MDYAMPM", 17, 0, T, "03/17/21 13:45 PM"},
    FieldCase{mdyampmFormat, "MDYAMPM", 17, 0, T9_05, " 03/17/21 9:05 AM"},  // not rounded
    FieldCase{mdyampmFormat, "MDYAMPM", 18, 0, T, " 03/17/21 13:45 PM"},
    FieldCase{mdyampmFormat, "MDYAMPM", 19, 0, T, "03/17/2021 13:45 PM"},
    FieldCase{mdyampmFormat, "MDYAMPM", 19, 0, T9_05, " 03/17/2021 9:05 AM"},
    FieldCase{mdyampmFormat, "MDYAMPM", 19, 0, at(MARCH_17_2021, 0, 30, 0), " 03/17/2021 0:30 AM"},
    FieldCase{mdyampmFormat, "MDYAMPM", 21, 0, T, "  03/17/2021 13:45 PM"},
    FieldCase{mdyampmFormat, "MDYAMPM", 10, 0, YEAR_10000, "01/01/****"},
    FieldCase{mdyampmFormat, "MDYAMPM", 8, 0, YEAR_10000, "01/01/00"},
    FieldCase{dmyampmFormat, "DMYAMPM", 8, 0, T, "17/03/21"},
    FieldCase{dmyampmFormat, "DMYAMPM", 19, 0, T, "17/03/2021 13:45 PM"},
    FieldCase{dmyampmFormat, "DMYAMPM", 17, 0, T9_05, " 17/03/21 9:05 AM"}));

INSTANTIATE_TEST_SUITE_P(Mondytm, DatetimeFormats, testing::Values(
    FieldCase{mondytmFormat, "MONDYTM", 20, 0, T, "MAR 17 2021 01:45 PM"},
    FieldCase{mondytmFormat, "MONDYTM", 23, 0, T, "MAR 17 2021 01:45:30 PM"},
    FieldCase{mondytmFormat, "MONDYTM", 24, 2, T, " MAR 17 2021 01:45:30 PM"},
    FieldCase{mondytmFormat, "MONDYTM", 25, 2, T, "MAR 17 2021 01:45:30.2 PM"},
    FieldCase{mondytmFormat, "MONDYTM", 26, 2, T, "MAR 17 2021 01:45:30.25 PM"},
    FieldCase{mondytmFormat, "MONDYTM", 28, 2, T, "  MAR 17 2021 01:45:30.25 PM"},
    FieldCase{mondytmFormat, "MONDYTM", 20, 0, T - 14 * DAY, " MAR 3 2021 01:45 PM"},
    FieldCase{mondytmFormat, "MONDYTM", 21, 0, at(MARCH_17_2021, 0, 0, 0), " MAR 17 2021 12:00 AM"},
    // The last instant of a day is 12 AM of that same date.
    FieldCase{mondytmFormat, "MONDYTM", 23, 0, 86399.8, " JAN 1 1960 12:00:00 AM"},
    FieldCase{mondytmFormat, "MONDYTM", 23, 0, 86399.4, " JAN 1 1960 11:59:59 PM"},
    FieldCase{mondytmFormat, "MONDYTM", 20, 0, 86399.4, " JAN 1 1960 11:59 PM"},
    FieldCase{mondytmFormat, "MONDYTM", 20, 0, 3599.5, " JAN 1 1960 01:00 AM"},
    FieldCase{mondytmFormat, "MONDYTM", 23, 0, YEAR_10000, "***********************"}));

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
