// The datetime formats: what each width shows of a date and a time, the AM/PM clocks, and the carries
// at the end of a day.
#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "FormatFieldSupport.h"
#include "kivo/Formats.h"

namespace {

constexpr double DAY = 86400.0;
constexpr double MARCH_17_2021 = 22356 * DAY;
constexpr double at(double day, int h, int m, double s) { return day + h * 3600 + m * 60 + s; }
constexpr double T = at(MARCH_17_2021, 13, 45, 30.25);
// The last instant of a day that is still shown on it: 86400 - 2^-31. On day 0 the seconds serial
// keeps that precision.
const double DAY_END = DAY - std::ldexp(1.0, -31);
constexpr double LAST_DAY_OF_CALENDAR = 6589340 * DAY;  // 31 December 20000
constexpr double YEAR_10000 = 2936550 * DAY;            // 1 January 10000

class DatetimeFormats : public kivo::test::FormatTable {};
TEST_P(DatetimeFormats, WritesTheField) { expectRow(); }

// TIMEAMPM wraps at midnight, and its hour grows to two digits.
INSTANTIATE_TEST_SUITE_P(TimeAmPm, DatetimeFormats, testing::ValuesIn(kivo::test::rows({
        FORMAT_ROWS(timeampm, {4, 0, T, "  PM"}, {5, 0, T, " 1 PM"}, {8, 0, T, " 1:45 PM"}, {11, 0, T, " 1:45:30 PM"},
            {12, 0, T, "  1:45:30 PM"}, {13, 2, T, "1:45:30.25 PM"}, {11, 0, 0.0, "12:00:00 AM"},
            {11, 0, 12 * 3600.0, "12:00:00 PM"}, {11, 0, 86399.6, "12:00:00 AM"}, {11, 0, 86399.4, "11:59:59 PM"},
            {11, 0, 43199.7, "12:00:00 PM"}, {11, 0, 35999.7, "10:00:00 AM"}, {12, 1, 35999.97, " 10:00:00 AM"},
            {2, 0, 35999.0, "AM"})})));

// DATETIME cuts its decimals rather than rounding them; unseen seconds still carry. At the end of the
// day: at the limit the next day, a hair before it hour 24 of the same day.
INSTANTIATE_TEST_SUITE_P(Datetime, DatetimeFormats, testing::ValuesIn(kivo::test::rows({
        FORMAT_WIDTHS(datetime, 7, T, "17MAR21", " 17MAR21", "17MAR2021", "17MAR21:13"),
        FORMAT_ROWS(datetime, {12, 0, T, "  17MAR21:13"}, {13, 0, T, "17MAR21:13:45"}, {15, 0, T, "  17MAR21:13:45"},
            {16, 0, T, "17MAR21:13:45:30"}, {18, 0, T, "  17MAR21:13:45:30"}, {19, 0, T, " 17MAR2021:13:45:30"},
            {21, 0, T, "   17MAR2021:13:45:30"}, {16, 2, T, "17MAR21:13:45:30"}, {17, 2, T, "17MAR21:13:45:30."},
            {18, 2, T, "17MAR21:13:45:30.2"}, {19, 2, T, "17MAR21:13:45:30.25"}, {20, 2, T, " 17MAR21:13:45:30.25"},
            {21, 2, T, "17MAR2021:13:45:30.25"}, {23, 2, T, "  17MAR2021:13:45:30.25"}, {9, 2, T, "17MAR2021"},
            {14, 2, T, " 17MAR21:13:45"}, {16, 0, DAY_END, "02JAN60:00:00:00"},
            {16, 0, std::nextafter(DAY_END, 0.0), "01JAN60:24:00:00"}, {16, 0, 86399.4, "01JAN60:23:59:59"},
            {28, 9, 86399.999999995, "01JAN1960:24:00:00.000000000"},
            {28, 9, 86399.99999998, "01JAN1960:23:59:59.999999980"}, {13, 0, 3599.5, "01JAN60:01:00"},
            {18, 0, -0.5, "  31DEC59:24:00:00"}, {19, 0, YEAR_10000, " 01JAN****:00:00:00"},
            {16, 0, LAST_DAY_OF_CALENDAR + DAY_END, "****************"})})));

// DATEAMPM shows the 24-hour hour, without AM or PM, until the width has room for them; its day-end
// limit moves with the decimals, and hour 24 can follow a carry.
INSTANTIATE_TEST_SUITE_P(DateAmPm, DatetimeFormats, testing::ValuesIn(kivo::test::rows({
        FORMAT_WIDTHS(dateampm, 7, T, "17MAR21", " 17MAR21", "17MAR2021", "17MAR21:13"),
        FORMAT_ROWS(dateampm, {12, 0, T, "  17MAR21:13"}, {13, 0, T, "17MAR21:01 PM"}, {16, 0, T, "17MAR21:01:45 PM"},
            {19, 0, T, "17MAR21:01:45:30 PM"}, {21, 0, T, "  17MAR21:01:45:30 PM"},
            {22, 0, T, " 17MAR2021:01:45:30 PM"}, {20, 2, T, "17MAR21:01:45:30. PM"},
            {21, 2, T, "17MAR21:01:45:30.2 PM"}, {23, 2, T, " 17MAR21:01:45:30.25 PM"},
            {24, 2, T, "17MAR2021:01:45:30.25 PM"}, {19, 2, T, "17MAR21:01:45:30 PM"},
            {19, 0, 86399.6, "02JAN60:12:00:00 AM"}, {19, 0, 86399.49, "01JAN60:11:59:59 PM"},
            {23, 1, 86399.95, "02JAN1960:12:00:00.0 AM"}, {23, 1, 86399.94, "01JAN1960:11:59:59.9 PM"},
            {26, 3, 86399.6, " 01JAN1960:11:59:59.600 PM"}, {24, 2, DAY_END, "02JAN1960:12:00:00.00 AM"},
            {13, 0, 3599.5, "01JAN60:01 AM"}, {13, 0, 86399.49999999, "01JAN60:12 AM"},
            {10, 0, 86399.49999999, "01JAN60:24"})})));

constexpr double T9_05 = at(MARCH_17_2021, 9, 5, 59.9);

// MDYAMPM and DMYAMPM do not round; below width 8 the field is left as it was.
INSTANTIATE_TEST_SUITE_P(SlashDates, DatetimeFormats, testing::ValuesIn(kivo::test::rows({
        FORMAT_ROWS(mdyampm, {8, 0, T, "03/17/21"}, {9, 0, T, " 03/17/21"}, {10, 0, T, "03/17/2021"},
            {16, 0, T, "      03/17/2021"}, {17, 0, T, "03/17/21 13:45 PM"}, {17, 0, T9_05, " 03/17/21 9:05 AM"},
            {18, 0, T, " 03/17/21 13:45 PM"}, {19, 0, T, "03/17/2021 13:45 PM"}, {19, 0, T9_05, " 03/17/2021 9:05 AM"},
            {19, 0, at(MARCH_17_2021, 0, 30, 0), " 03/17/2021 0:30 AM"}, {21, 0, T, "  03/17/2021 13:45 PM"},
            {10, 0, YEAR_10000, "01/01/****"}, {8, 0, YEAR_10000, "01/01/00"}, {7, 0, T, "#######"}),
        FORMAT_ROWS(dmyampm, {8, 0, T, "17/03/21"}, {19, 0, T, "17/03/2021 13:45 PM"},
            {17, 0, T9_05, " 17/03/21 9:05 AM"})})));

// MONDYTM shows the last instant of a day as 12 AM of that same date.
INSTANTIATE_TEST_SUITE_P(Mondytm, DatetimeFormats, testing::ValuesIn(kivo::test::rows({
        FORMAT_ROWS(mondytm, {20, 0, T, "MAR 17 2021 01:45 PM"}, {23, 0, T, "MAR 17 2021 01:45:30 PM"},
            {24, 2, T, " MAR 17 2021 01:45:30 PM"}, {25, 2, T, "MAR 17 2021 01:45:30.2 PM"},
            {26, 2, T, "MAR 17 2021 01:45:30.25 PM"}, {28, 2, T, "  MAR 17 2021 01:45:30.25 PM"},
            {20, 0, T - 14 * DAY, " MAR 3 2021 01:45 PM"}, {21, 0, at(MARCH_17_2021, 0, 0, 0), " MAR 17 2021 12:00 AM"},
            {23, 0, 86399.8, " JAN 1 1960 12:00:00 AM"}, {23, 0, 86399.4, " JAN 1 1960 11:59:59 PM"},
            {20, 0, 86399.4, " JAN 1 1960 11:59 PM"}, {20, 0, 3599.5, " JAN 1 1960 01:00 AM"},
            {23, 0, YEAR_10000, "***********************"})})));

}  // namespace
