// The reference host's numbers, missing values, services and options. (Its character tables are read by
// every informat's tables.)
// Its calendar against independent computations: every valid day walked one by one, the week conventions
// against the C library's around every turn of the year, and the datetime split.
#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fstream>
#include <string>
#include <thread>
#include <utility>

#include "HostSupport.h"
#include "kivox/Missing.h"
#include "kivox/Numbers.h"
#include "kivox/OptionSettings.h"
#include "kivox/Services.h"

namespace {

using kivo::test::day;

// The decimal exponent of the exact value of x, from enough digits that no double near a power of ten
// rounds across it.
int exactDecimalExponent(double x) {
    char text[128];
    std::snprintf(text, sizeof text, "%.60e", x);
    return std::atoi(std::strchr(text, 'e') + 1);
}

TEST(HostNumbers, FloorLog10IsExactNextToEveryPowerOfTen) {
    for (int e = -323; e <= 308; ++e) {
        const double power = kivo::pow10(e);
        for (double x : {power, std::nextafter(power, 0.0), std::nextafter(power, INFINITY), power * 3.7}) {
            if (x > 0 && std::isfinite(x)) {
                ASSERT_EQ(kivo::floorLog10(x), exactDecimalExponent(x)) << x;
                ASSERT_EQ(kivo::floorLog10(-x), exactDecimalExponent(x)) << -x;
            }
        }
    }
    EXPECT_EQ(kivo::floorLog10(4.9406564584124654e-324), -324);
    EXPECT_EQ(kivo::floorLog10(1.7976931348623157e308), 308);
    EXPECT_EQ(kivo::floorLog10(0.0), kivo::FLOOR_LOG10_NONE);
    EXPECT_EQ(kivo::floorLog10(NAN), kivo::FLOOR_LOG10_NONE);
}

TEST(HostNumbers, PowersOfTen) {
    const std::pair<int, double> powers[] = {{0, 1.0},     {22, 1e22},       {-5, 1e-5},
                                             {308, 1e308}, {309, INFINITY}, {-400, 0.0}};
    for (const auto& [e, power] : powers) EXPECT_EQ(kivo::pow10(e), power) << e;
    EXPECT_EQ(kivo::int64Pow10(18), 1000000000000000000LL);
    EXPECT_EQ(kivo::int64Pow10(19), 0);
}

TEST(HostMissing, PatternsCharactersNotationAndFieldNarrowing) {
    using namespace kivo::lum_numeric;
    EXPECT_EQ((std::string{missingChar(MISSING), missingChar(MISSING__), missingChar(specialMissing('a')),
                           missingChar(specialMissing('Z'))}),
              "._AZ");
    EXPECT_EQ(std::bit_cast<unsigned long long>(MISSING) >> 48, 0xFFFFu);
    EXPECT_NE(MISSING, MISSING);  // every missing value is a NaN

    // The character found, or 0 for a text that is no notation (and leaves the result alone).
    const std::pair<const char*, char> cases[] = {{".", '.'}, {"._", '_'}, {".a", 'A'}, {".Q", 'Q'}, {"", 0}, {"..", 0},
                                                  {".1", 0},  {"A", 0},    {". ", 0},   {".AB", 0}, {"_", 0}};
    for (const auto& [text, character] : cases) {
        double result = 42.0;
        EXPECT_EQ(kivo::findNumericMissing(text, text + std::strlen(text), result), character != 0) << text;
        EXPECT_TRUE(character != 0 ? missingChar(result) == character : result == 42.0) << text;
    }

    // Narrowing drops blanks, tabs and NULs at both ends; a blank field narrows to nothing.
    const char field[] = " \t\0 12 3\t \0", blank[] = "   ";
    const char *begin = field, *end = field + sizeof field - 1;
    kivo::findNumericStartAndEnd(begin, end);
    EXPECT_EQ(std::string(begin, end), "12 3");
    begin = blank, end = blank + 3;
    kivo::findNumericStartAndEnd(begin, end);
    EXPECT_EQ(begin, end);
}

TEST(HostServices, ThreadLocatorOverridesTheFallback) {
    kivo::ServiceLocator& fallback = kivo::getFallbackServiceCreator();
    EXPECT_EQ(&kivo::currentServiceLocator(), &fallback);
    EXPECT_STREQ(fallback.systemOptions().getOption("datestyle"), "locale");
    EXPECT_STREQ(fallback.nationalLanguageSupport().dateStyle(), "mdy");

    kivo::ServiceLocator session;
    session.systemOptions().setOption("datestyle", "dmy");
    kivo::ServiceLocator::setCurrent(&session);
    auto* options = static_cast<kivo::SystemOptions*>(
        kivo::currentServiceLocator().getService(kivo::SystemOptions::ID, kivo::SystemOptions::NAME));
    EXPECT_STREQ(options->getOption("datestyle"), "dmy");
    // Another thread has no locator of its own and sees the fallback.
    const char* seenElsewhere = nullptr;
    std::thread([&] { seenElsewhere = kivo::currentServiceLocator().systemOptions().getOption("datestyle"); }).join();
    EXPECT_STREQ(seenElsewhere, "locale");
    kivo::ServiceLocator::setCurrent(nullptr);

    EXPECT_EQ(session.getService(kivo::SystemOptions::ID, "Env"), nullptr);
    EXPECT_EQ(session.getService(99, "SystemOptions"), nullptr);
    EXPECT_NE(session.getService(kivo::Env::ID, kivo::Env::NAME), nullptr);
    EXPECT_EQ(session.systemOptions().getOption("nosuch"), nullptr);
    EXPECT_FALSE(session.systemOptions().setOption("nosuch", "1"));
}

// Resident pages of this process (the second field of /proc/self/statm).
long residentPages() {
    long size = 0, resident = 0;
    std::ifstream("/proc/self/statm") >> size >> resident;
    return resident;
}

TEST(HostServices, OptionChangesToValuesSeenBeforeHoldNoNewMemory) {
    kivo::ServiceLocator session;
    kivo::SystemOptions& options = session.systemOptions();
    options.setOption("datestyle", "dmy");
    const char* first = options.getOption("datestyle");
    options.setOption("datestyle", "mdy");
    options.setOption("datestyle", "dmy");
    EXPECT_EQ(options.getOption("datestyle"), first);

    const char* const styles[] = {"dmy", "dym", "mdy", "myd", "ydm", "ymd", "locale"};
    const auto change = [&](int times) {
        for (int i = 0; i < times; ++i) {
            options.setOption("datestyle", styles[i % 7]);
            options.setOption("yearcutoff", i % 2 == 0 ? "1920" : "1940");
            session.nationalLanguageSupport().setDateStyle(styles[i % 6]);
        }
    };
    change(100);
    const long before = residentPages();
    change(1'000'000);
    // Keeping every replaced text would hold some 100 MB here.
    EXPECT_LT(residentPages() - before, 256) << "pages";
}

// The options a locator holds, as "datestyle/yearcutoff/locale style/missing character".
std::string optionsOf(kivo::ServiceLocator& locator) {
    return std::string(locator.systemOptions().getOption("datestyle")) + "/" +
           locator.systemOptions().getOption("yearcutoff") + "/" + locator.nationalLanguageSupport().dateStyle() + "/" +
           locator.env().missingChar();
}

TEST(HostServices, EnvironmentValuesAreCheckedAsTheyAreRead) {
    // options: what the locator holds afterwards, the defaults when the value is refused.
    struct Case { const char* variable; const char* value; const char* options; };
    const char* const defaults = "locale/1940/mdy/.";
    const Case cases[] = {
        {"KIVO_DATESTYLE", "DMY", "DMY/1940/mdy/."},    {"KIVO_DATESTYLE", "xyz", defaults},
        {"KIVO_DATESTYLE", "", defaults},              {"KIVO_YEARCUTOFF", "1920", "locale/1920/mdy/."},
        {"KIVO_YEARCUTOFF", "abc", defaults},          {"KIVO_YEARCUTOFF", "99999", defaults},
        {"KIVO_LOCALE_DATESTYLE", "ymd", "locale/1940/ymd/."}, {"KIVO_LOCALE_DATESTYLE", "locale", defaults},
        {"KIVO_MISSING_CHAR", "?", "locale/1940/mdy/?"}, {"KIVO_MISSING_CHAR", "ab", defaults},
        {"KIVO_MISSING_CHAR", "", defaults},           {"KIVO_TODAY", "2021-02-29", defaults},
    };
    for (const Case& c : cases) {
        ::setenv(c.variable, c.value, 1);
        kivo::ServiceLocator session;
        const std::vector<kivo::RejectedVariable> rejected = kivo::applyEnvironment(session);
        ::unsetenv(c.variable);
        EXPECT_EQ(optionsOf(session), c.options) << c.variable << "=" << c.value;
        if (std::string(c.options) == defaults) {
            ASSERT_EQ(rejected.size(), 1u) << c.variable << "=" << c.value;
            EXPECT_STREQ(rejected[0].name, c.variable);
            EXPECT_EQ(rejected[0].value, c.value);
            EXPECT_NE(std::string(rejected[0].allowed), "");
        } else {
            EXPECT_TRUE(rejected.empty()) << c.variable << "=" << c.value;
        }
    }
}

// The "today" option takes real days written year-month-day, and Date::localDate() answers with it for
// the threads whose services set it.
TEST(HostTodayOption, TakesRealDaysWrittenYearMonthDay) {
    // A serial of 0 stands for a refused text.
    struct Case { const char* text; double serial; };
    const Case cases[] = {
        {"2021-03-17", day(2021, 3, 17)}, {"1582-01-01", day(1582, 1, 1)}, {"2020-02-29", day(2020, 2, 29)},
        {"20000-12-31", day(20000, 12, 31)}, {"2021-02-29", 0}, {"1581-12-31", 0}, {"20001-01-01", 0},
        {"2021-3-17", 0}, {"2021/03/17", 0}, {"2021-03-17 ", 0}, {"2021-13-01", 0}, {"2021-00-10", 0}, {"17MAR2021", 0},
        {"+021-03-17", 0}, {"2021-03/17", 0},
    };
    for (const Case& c : cases) {
        kivo::SystemOptions options;
        const bool taken = c.serial != 0;
        EXPECT_EQ(options.setOption("today", c.text), taken) << c.text;
        EXPECT_EQ(options.todaySerial(), taken ? c.serial : kivo::SystemOptions::CLOCK_TODAY) << c.text;
        EXPECT_STREQ(options.getOption("today"), taken ? c.text : "");
    }
}

TEST(HostTodayOption, LocalDateFollowsTheCallersServicesAndTheEmptyTextGivesTheClockBack) {
    kivo::test::OwnServices services;
    ASSERT_TRUE(services.options().setOption("today", "2021-03-17"));
    EXPECT_EQ(static_cast<int>(kivo::Date::localDate()), day(2021, 3, 17));
    double elsewhere = 0;
    std::thread([&] {
        kivo::test::OwnServices other;
        other.options().setOption("today", "1999-12-31");
        elsewhere = static_cast<int>(kivo::Date::localDate());
    }).join();
    EXPECT_EQ(elsewhere, day(1999, 12, 31));
    EXPECT_EQ(static_cast<int>(kivo::Date::localDate()), day(2021, 3, 17));

    ASSERT_TRUE(services.options().setOption("today", ""));
    EXPECT_EQ(services.options().todaySerial(), kivo::SystemOptions::CLOCK_TODAY);
    EXPECT_TRUE(kivo::Date::localDate().isValid());
}

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
