// The reference host's "today" option: which texts it takes, and Date::localDate() answering with it
// for the threads whose services set it.
#include <gtest/gtest.h>

#include <thread>

#include "HostSupport.h"

namespace {

using kivo::test::day;

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

}  // namespace
