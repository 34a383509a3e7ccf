// One test per reporting source walks that source's table of failure sites; a site no call can reach
// (its checks rule it out) is listed as such, so a new site cannot go untested.
#include <gtest/gtest.h>

#include <set>
#include <string>

#include "FailureSiteSupport.h"
#include "formats/FormatRealFieldsFailures.h"
#include "formats/datetime_formats/AnydtFailures.h"
#include "formats/datetime_formats/AnydtParseInfo.h"
#include "formats/datetime_formats/AnydtReadings.h"
#include "formats/datetime_formats/DatetimeFormatsFailures.h"
#include "formats/datetime_formats/DatetimeInformatsFailures.h"
#include "kivo/Formats.h"
#include "kivo/format/datetime/TimeWriters.h"

namespace kivo::test {

using format::FailureSite;

namespace {

// A free-form parse record: count values, nothing between them.
anydt::ParseInfo record(int count, std::int32_t firstLength, std::uint32_t firstSeparator) {
    anydt::ParseInfo pi{};
    pi.valCount = count;
    for (int k = 0; k < count; ++k) {
        pi.value[k] = 1;
        pi.valLength[k] = 2;
    }
    pi.valLength[0] = firstLength;
    pi.sepType[0] = firstSeparator;
    return pi;
}

TEST(FailureSitesDeathTest, FreeFormReader) {
    namespace site = anydt::failure;
    double out = 0;
    expectTableReported(
        site::ALL,
        {
            {site::TIME_TOO_FEW_VALUES, [&] { anydt::readTimeTokens(1, record(2, 2, 0), out); }},
            {site::TIME_TOO_MANY_VALUES, [&] { anydt::readTimeTokens(0, record(5, 2, 0), out); }},
            {site::DIGIT_RUN_LENGTH, [&] { anydt::readDigitRunDate(record(1, 7, 0), out); }},
            {site::DIGIT_RUN_SEPARATOR, [&] { anydt::readDigitRunDate(record(1, 8, anydt::ST_DASH), out); }},
        },
        // The date style is checked where it is read (its own tests stop the process there), so the
        // readings' own style and validity checks cannot be reached.
        {&site::ILLEGAL_DATESTYLE, &site::THREE_NUMBER_STYLE, &site::THREE_NUMBER_DDMMYY, &site::THREE_NUMBER_YYMMDD,
         &site::DIGIT_RUN_DDMMYY, &site::DIGIT_RUN_MMDDYY, &site::DIGIT_RUN_YYMMDD, &site::DIGIT_RUN_STYLE});
}

TEST(FailureSitesDeathTest, DateTimeAndDatetimeFormats) {
    namespace site = format::datetime::failure;
    char field[40];
    expectTableReported(
        site::ALL,
        {
            // An integer part beyond 32 bits leaves a "fraction" that no rounding can explain.
            {site::SCALED_FRACTION,
             [&] {
                 char* out = field;
                 format::datetime::writeRealNumber(out, 4294967296.5, 2, 3);
             }},
            // Below width 7 DATEAMPM's level chooser has no level.
            {site::DATEAMPM_ROUNDING, [&] { dateampmFormat(field, 4, 0, 1931607930.25); }},
            // The day-month-year writers handed a width outside their tables.
            {site::DDMMYYX_WIDTH, [&] { ddmmyybFormat(field, 11, 0, 0); }},
            {site::MMDDYYX_WIDTH, [&] { mmddyyFormat(field, 1, 0, 0); }},
            {site::YYMMDDX_WIDTH, [&] { yymmddsFormat(field, 11, 0, 0); }},
            {site::DDMMYYN_WIDTH, [&] { ddmmyynFormat(field, 9, 0, 0); }},
            {site::MMDDYYN_WIDTH, [&] { mmddyynFormat(field, 1, 0, 0); }},
            {site::YYMMDDN_WIDTH, [&] { yymmddnFormat(field, 9, 0, 0); }},
            // MINGUO lays out widths 6 to 10 and NENGO 2 to 10, of a date they can show.
            {site::MINGUO_WIDTH, [&] { minguoFormat(field, 11, 0, 14610); }},
            {site::NENGO_WIDTH, [&] { nengoFormat(field, 1, 0, 14610); }},
        },
        {&site::DATEAMPM_WRITING});
}

TEST(FailureSitesDeathTest, MachineAndWeekInformats) {
    namespace site = informat::failure;
    // The packed-decimal reader gives only its four codes and the host only the seven weekdays.
    expectTableReported(site::ALL, {},
                        {&site::PDTIME_READER_CODE, &site::RMFDUR_READER_CODE, &site::RMFSTAMP_READER_CODE,
                         &site::WEEKV_DAY_OF_WEEK, &site::WEEKW_DAY_OF_WEEK});
}

TEST(FailureSitesDeathTest, TablesNameTheirOwnSource) {
    const auto expectSource = [](std::span<const FailureSite> table, const char* source) {
        std::set<std::pair<std::string, int>> seen;
        for (const FailureSite& site : table) {
            EXPECT_STREQ(site.source, source);
            EXPECT_TRUE(seen.insert({site.message, site.line}).second) << "twice: " << site.line;
        }
    };
    expectSource(anydt::failure::ALL, "src/formats/datetime_formats/AnydtInformats");
    expectSource(format::datetime::failure::ALL, "src/formats/datetime_formats/DatetimeFormats");
    expectSource(informat::failure::ALL, "src/formats/datetime_formats/DatetimeInformats");
    expectSource(format::realfields::failure::ALL, "src/formats/FormatRealFields");
}

}  // namespace

}  // namespace kivo::test
