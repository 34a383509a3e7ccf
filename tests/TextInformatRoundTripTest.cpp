// Round trips: a format's field read back by the informat of the same layout gives the value again, to
// the resolution the field shows. Formats and informats are looked up in kivodt's catalog by name, so
// that a pair whose format is not built yet is skipped rather than failed. (Two-digit years hold only
// the hundred years from the cutoff: each informat's table reads them, the host's tests the window.)
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <string>

#include "HostSupport.h"
#include "InformatFieldSupport.h"
#include "kivodt/Catalog.h"

namespace {

using kivo::Date;
using kivo::test::day;

// The values a pair is tried on, each of the resolution the layout shows.
enum class Values {
    DAYS, FIRST_OF_MONTH, FIRST_OF_QUARTER,  // any day, the first of a month, of a quarter: 1582 to 9999
    MINGUO_DAYS, MINGUO_CENTURY_DAYS,        // Minguo years 0 to 999 (1911 to 2910), or 0 to 99
    NENGO_DAYS,                              // from the first era's first day up to today
    TIMES, CLOCK_MINUTES, SIGNED_TIMES,      // 0 to 100 hours to 10^-decimals s, or whole minutes; -100 to 100 h
    DATETIMES, DATETIME_MINUTES,             // 1582 to 9999, to 10^-decimals of a second or whole minutes
};

struct RoundTrip { const char* informat; const char* format; int minWidth, maxWidth, decimals; Values values; };

void PrintTo(const RoundTrip& r, std::ostream* os) {
    *os << r.informat << " <- " << r.format << r.minWidth << "-" << r.maxWidth << "." << r.decimals;
}

constexpr int VALUES_PER_WIDTH = 2000;
constexpr double HUNDRED_HOURS = 360000;

// The first and the last day with a four-digit year.
const double FIRST_DAY = day(1582, 1, 1);
const double LAST_DAY = day(9999, 12, 31);

class ValueSource {
public:
    ValueSource(Values kind, int decimals) : kind_(kind), resolution_(std::pow(10.0, -decimals)) {}

    double next() {
        switch (kind_) {
            case Values::DAYS: return uniformDay(FIRST_DAY, LAST_DAY);
            case Values::FIRST_OF_MONTH: return day(year(1582, 9999), month(1), 1);
            case Values::FIRST_OF_QUARTER: return day(year(1582, 9999), month(3), 1);
            case Values::MINGUO_DAYS: return uniformDay(day(1911, 1, 1), day(2910, 12, 31));
            case Values::MINGUO_CENTURY_DAYS: return uniformDay(day(1911, 1, 1), day(2010, 12, 31));
            case Values::NENGO_DAYS: return uniformDay(day(1868, 9, 1), static_cast<double>(Date::localDate()));
            case Values::TIMES: return grid(0, HUNDRED_HOURS, resolution_);
            case Values::SIGNED_TIMES: return grid(-HUNDRED_HOURS, HUNDRED_HOURS, 1);
            case Values::CLOCK_MINUTES: return grid(0, HUNDRED_HOURS, 60);
            case Values::DATETIMES: return grid(FIRST_DAY * 86400, (LAST_DAY + 1) * 86400, resolution_);
            case Values::DATETIME_MINUTES: return grid(FIRST_DAY * 86400, (LAST_DAY + 1) * 86400, 60);
        }
        return 0;
    }

    // The largest difference a reading may show: none where the value is a whole number, else the
    // error of carrying a decimal fraction in a double.
    double tolerance() const {
        const bool fractional = (kind_ == Values::TIMES || kind_ == Values::DATETIMES) && resolution_ < 1;
        return fractional ? resolution_ / 4 : 0;
    }

private:
    double uniformDay(double first, double last) {
        return std::uniform_int_distribution<long>(static_cast<long>(first), static_cast<long>(last))(random_);
    }
    int year(int first, int last) { return std::uniform_int_distribution<int>(first, last)(random_); }
    // 1, 4, 7 or 10 for a step of 3; any month for a step of 1.
    int month(int step) { return 1 + step * std::uniform_int_distribution<int>(0, 12 / step - 1)(random_); }
    // A multiple of step in [first, last).
    double grid(double first, double last, double step) {
        const auto count = static_cast<long>((last - first) / step);
        return first + step * static_cast<double>(std::uniform_int_distribution<long>(0, count - 1)(random_));
    }

    Values kind_;
    double resolution_;
    std::mt19937_64 random_{20240611};
};

class TextInformatRoundTrip : public testing::TestWithParam<RoundTrip> {
protected:
    // Two-digit-year expansion plays no part here, but a cutoff left by another test must not either.
    // NENGO's latest date is the host's today, fixed here so that no run depends on the clock.
    void SetUp() override { services_.options().setOption("today", "2021-03-17"); }
    kivo::test::OwnServices services_;
};

TEST_P(TextInformatRoundTrip, ReadsBackWhatTheFormatWrote) {
    const RoundTrip& trip = GetParam();
    const kivodt::FormatEntry* format = kivodt::findFormat(trip.format);
    const kivodt::InformatEntry* informat = kivodt::findInformat(trip.informat);
    ASSERT_NE(informat, nullptr) << trip.informat;
    if (format == nullptr) GTEST_SKIP() << "the " << trip.format << " format is not in the catalog yet";
    const int first = std::max({trip.minWidth, format->limits.minWidth, informat->limits.minWidth});
    const int last = std::min({trip.maxWidth, format->limits.maxWidth, informat->limits.maxWidth});
    ASSERT_LE(first, last) << "no width in common";
    ValueSource source(trip.values, trip.decimals);
    for (int width = first; width <= last; ++width) {
        for (int i = 0; i < VALUES_PER_WIDTH; ++i) {
            const double value = source.next();
            char field[kivodt::MAX_FIELD];
            format->function(field, width, trip.decimals, value);
            const std::string text(field, static_cast<std::size_t>(width));
            const kivo::test::InformatReading reading = kivo::test::readField(informat->function, text);
            ASSERT_EQ(reading.code, 1) << trip.format << width << "." << trip.decimals << " \"" << text << "\"";
            ASSERT_NEAR(reading.result, value, source.tolerance()) << "\"" << text << "\"";
        }
    }
}

// The pairs of one layout; the widths are those at which the field carries the whole value (four-digit
// years, seconds shown), cut to what both entries accept.
// clang-format off
constexpr int MAX = kivodt::MAX_FIELD;
const RoundTrip ROUND_TRIPS[] = {
    {"DATE", "DATE", 9, 11, 0, Values::DAYS}, {"DDMMYY", "DDMMYY", 10, 10, 0, Values::DAYS},
    {"DDMMYY", "DDMMYYB", 10, 10, 0, Values::DAYS}, {"DDMMYY", "DDMMYYC", 10, 10, 0, Values::DAYS},
    {"DDMMYY", "DDMMYYD", 10, 10, 0, Values::DAYS}, {"DDMMYY", "DDMMYYP", 10, 10, 0, Values::DAYS},
    {"DDMMYY", "DDMMYYN", 8, 8, 0, Values::DAYS}, {"MMDDYY", "MMDDYY", 10, 10, 0, Values::DAYS},
    {"MMDDYY", "MMDDYYS", 10, 10, 0, Values::DAYS}, {"MMDDYY", "MMDDYYN", 8, 8, 0, Values::DAYS},
    {"YYMMDD", "YYMMDD", 10, 10, 0, Values::DAYS}, {"YYMMDD", "YYMMDDB", 10, 10, 0, Values::DAYS},
    {"YYMMDD", "YYMMDDN", 8, 8, 0, Values::DAYS}, {"MONYY", "MONYY", 7, 7, 0, Values::FIRST_OF_MONTH},
    {"YYMMN", "YYMMN", 6, MAX, 0, Values::FIRST_OF_MONTH}, {"YYQ", "YYQ", 6, MAX, 0, Values::FIRST_OF_QUARTER},
    {"JULIAN", "JULIAN", 7, MAX, 0, Values::DAYS}, {"MINGUO", "MINGUO", 7, 10, 0, Values::MINGUO_DAYS},
    {"MINGUO", "MINGUO", 6, 6, 0, Values::MINGUO_CENTURY_DAYS}, {"NENGO", "NENGO", 8, 10, 0, Values::NENGO_DAYS},
    {"TIME", "TIME", 8, MAX, 0, Values::TIMES}, {"TIME", "TIME", 10, MAX, 0, Values::SIGNED_TIMES},
    {"TIME", "TIME", 12, MAX, 3, Values::TIMES}, {"DATETIME", "DATETIME", 19, MAX, 0, Values::DATETIMES},
    {"DATETIME", "DATETIME", 21, MAX, 2, Values::DATETIMES},
    {"MDYAMPM", "MDYAMPM", 19, MAX, 0, Values::DATETIME_MINUTES},
    {"DMYAMPM", "DMYAMPM", 19, MAX, 0, Values::DATETIME_MINUTES}, {"MONDYTM", "MONDYTM", 23, MAX, 0, Values::DATETIMES},
    {"MONDYTM", "MONDYTM", 26, MAX, 2, Values::DATETIMES}, {"HHMMSS", "TIME", 8, MAX, 0, Values::TIMES},
    {"HHMMSS", "HHMM", 5, MAX, 0, Values::CLOCK_MINUTES},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(SameLayout, TextInformatRoundTrip, testing::ValuesIn(ROUND_TRIPS),
                         [](const testing::TestParamInfo<RoundTrip>& info) {
                             const RoundTrip& r = info.param;
                             return std::string(r.informat) + "_from_" + r.format + "_" + std::to_string(r.minWidth) +
                                    "_" + std::to_string(r.decimals);
                         });

}  // namespace
