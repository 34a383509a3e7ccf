// The reference host's calendar against independent computations: every valid day walked one by one,
// the week conventions against the C library's around every turn of the year, and the datetime split.
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <ctime>
#include <string>

#include "HostSupport.h"
#include "kivox/Missing.h"

namespace {

using kivo::Date;

bool leap(int y) { return (y % 4 == 0 && y % 100 != 0) || y % 400 == 0; }
int monthLength(int y, int m) {
    static const int days[] = {0, 31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return m == 2 && leap(y) ? 29 : days[m];
}

TEST(HostCalendar, EveryValidDayAgreesWithAnIncrementalCalendar) {
    int year = 1582, month = 1, day = 1, dayOfYear = 1;
    int weekday = 6;  // 1 January 1582 (proleptic Gregorian) was a Friday
    for (int serial = Date::MIN_SERIAL; serial <= Date::MAX_SERIAL; ++serial) {
        const Date date(static_cast<double>(serial));
        const Date::YMD ymd = date.yearMonthDay();
        const Date::YD yd = date.yearDayOfYear();
        if (ymd.year != year || ymd.month != month || ymd.day != day || yd.dayOfYear != dayOfYear ||
            date.dayOfWeek() != weekday || static_cast<int>(Date(year, month, day)) != serial ||
            static_cast<int>(Date(year, dayOfYear)) != serial) {
            FAIL() << "serial " << serial << ": host " << ymd.year << "-" << ymd.month << "-" << ymd.day << " day "
                   << yd.dayOfYear << " weekday " << date.dayOfWeek() << ", expected " << year << "-" << month
                   << "-" << day << " day " << dayOfYear << " weekday " << weekday;
        }
        weekday = weekday % 7 + 1;
        ++dayOfYear;
        if (++day > monthLength(year, month)) {
            day = 1;
            if (++month > 12) month = 1, dayOfYear = 1, ++year;
        }
    }
    EXPECT_EQ(year, 20001);
}

TEST(HostCalendar, RangeAndConstruction) {
    // The serial a value stands for; INVALID for none.
    constexpr int INVALID = 1 << 30;
    const std::pair<double, int> cases[] = {
        {0.0, 0},           {-0.5, -1},          {22356.99, 22356},  {-138061, -138061}, {-138061.5, INVALID},
        {6589340.999, 6589340}, {6589341, INVALID}, {NAN, INVALID},  {-INFINITY, INVALID}, {1e300, INVALID},
        {kivo::lum_numeric::MISSING, INVALID},
    };
    for (const auto& [value, serial] : cases) {
        const Date date(value);
        EXPECT_EQ(date.isValid() ? static_cast<int>(date) : INVALID, serial) << value;
    }
    for (const Date& invalid : {Date(1581, 12, 31), Date(20001, 1, 1), Date(2001, 2, 29), Date(1900, 2, 29),
                                Date(2001, 366)}) {
        EXPECT_FALSE(invalid.isValid());
    }
    EXPECT_TRUE(Date(2000, 2, 29).isValid());
    Date last(static_cast<double>(Date::MAX_SERIAL));
    last += kivo::DateDuration(1);
    EXPECT_FALSE(last.isValid());
    Date first(0.0);
    first += kivo::DateDuration(1);
    EXPECT_EQ(static_cast<int>(first), 1);
    EXPECT_TRUE(Date(0.0) <= Date(1.0));
}

// A week record as "year-week-day", the week in two digits, and the same day as strftime writes it with
// `format`, which names the same convention: %U, %W, or %G/%V for the weeks of the week-based year.
std::string shown(const Date::YWD& r, int firstDay) {
    return std::to_string(r.year) + (r.week < 10 ? "-0" : "-") + std::to_string(r.week) + "-" +
           std::to_string(r.day - firstDay);
}
std::string strftimeWeek(const Date& date, const char* format) {
    const std::time_t seconds = (static_cast<std::time_t>(static_cast<int>(date)) - 3653) * 86400;  // from 1970
    std::tm broken{};
    gmtime_r(&seconds, &broken);
    char text[32];
    std::strftime(text, sizeof text, format, &broken);
    return text;
}

TEST(HostCalendar, WeekRecordsAroundEveryTurnOfTheYearAgreeWithStrftime) {
    for (int year = 1583; year <= 20000; ++year) {
        const int start = static_cast<int>(Date(year, 1, 1)) - 8;
        for (int serial = start; serial < start + 16; ++serial) {
            const Date date(static_cast<double>(serial));
            ASSERT_EQ(shown(date.yearWeekUDay(), 1), strftimeWeek(date, "%Y-%U-%w")) << serial;  // Sunday is 1
            ASSERT_EQ(shown(date.yearWeekWDay(), 0), strftimeWeek(date, "%Y-%W-%u")) << serial;  // Monday is 1
            ASSERT_EQ(shown(date.yearWeekVDay(), 0), strftimeWeek(date, "%G-%V-%u")) << serial;
        }
    }
}

TEST(HostCalendar, DatetimeSplitsIntoDayAndTimeOfDay) {
    struct Case { double seconds; int day; double timeOfDay; };
    const Case cases[] = {
        {0.0, 0, 0.0}, {86399.5, 0, 86399.5}, {86400.0, 1, 0.0}, {-1.0, -1, 86399.0}, {-86400.0, -1, 0.0},
        {1e-300, 0, 1e-300},
        // The largest instant before a day boundary still belongs to the day before; a tiny negative
        // instant belongs to the day before and stays inside it.
        {259199.99999999997, 2, 86399.99999999997}, {-1e-20, -1, 86399.99999999999},
    };
    for (const Case& c : cases) {
        const kivo::Datetime datetime(c.seconds);
        ASSERT_TRUE(datetime.isValid()) << c.seconds;
        EXPECT_EQ(static_cast<int>(datetime.date()), c.day) << c.seconds;
        EXPECT_NEAR(datetime.timeOfDay().totalSeconds(), c.timeOfDay, 1e-6) << c.seconds;
        EXPECT_LT(datetime.timeOfDay().totalSeconds(), 86400.0) << c.seconds;
        EXPECT_GE(datetime.timeOfDay().totalSeconds(), 0.0) << c.seconds;
    }
    EXPECT_FALSE(kivo::Datetime((Date::MAX_SERIAL + 1.0) * 86400).isValid());
    EXPECT_TRUE(kivo::Datetime((Date::MAX_SERIAL + 1.0) * 86400 - 0.5).isValid());
    EXPECT_FALSE(kivo::Datetime(Date::MIN_SERIAL * 86400.0 - 0.5).isValid());
    EXPECT_FALSE(kivo::Datetime(kivo::lum_numeric::MISSING).isValid());

    const kivo::TimeDuration negative(-5430.0), positive(45296.789);  // -1:30:30, 12:34:56.789
    EXPECT_EQ((std::array{negative.hours(), negative.minutes(), positive.hours(), positive.minutes()}),
              (std::array{-1, -30, 12, 34}));
}

TEST(HostCalendar, TwoDigitYearsFollowTheCutoff) {
    kivo::test::OwnServices services;
    struct Case { const char* cutoff; int year; int expanded; };
    const Case cases[] = {{"1940", 40, 1940}, {"1940", 39, 2039}, {"1940", 0, 2000},   {"1940", 99, 1999},
                          {"1940", 100, 100}, {"1940", -1, -1},   {"1900", 0, 1900},   {"1900", 99, 1999},
                          {"1999", 98, 2098}, {"1999", 99, 1999}, {"2000", 99, 2099}};
    for (const Case& c : cases) {
        ASSERT_TRUE(services.options().setOption("yearcutoff", c.cutoff));
        EXPECT_EQ(kivo::lum_date::expand2DigitYear(c.year), c.expanded) << c.cutoff << " " << c.year;
    }
    EXPECT_FALSE(services.options().setOption("yearcutoff", "19x0"));
    EXPECT_FALSE(services.options().setOption("yearcutoff", "1500"));
    EXPECT_STREQ(services.options().getOption("yearcutoff"), "2000");
}

}  // namespace
