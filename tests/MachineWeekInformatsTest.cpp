// The machine-form informats on their bytes (given here as hex pairs) and the week informats on their
// texts: one table of informats, each with its fields, a rejected field checked to leave the result
// untouched; then the packed and week formats read back by their informats, day by day.
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "HostSupport.h"
#include "InformatFieldSupport.h"
#include "kivo/Formats.h"
#include "kivo/Informats.h"
#include "kivo/WeekInformats.h"
#include "kivodt/Values.h"
#include "kivox/Missing.h"

namespace {

using kivo::Date;
using kivo::test::day;
using kivo::test::readField;
using kivo::test::sameBits;

using kivo::test::REJECTED;
const double MISSING = kivo::lum_numeric::MISSING;
const double FEB14_2023 = day(2023, 2, 14);
double at(double daySerial, double seconds) { return daySerial * 86400 + seconds; }

// field: hex pairs for the machine forms, text for the week dates; expected: REJECTED, NAN for the
// missing value, or the value.
struct Field { const char* field; double expected; };
struct Informat { KivoInformatFunction informat; const char* name; bool hex; std::vector<Field> fields; };

// The week forms without a year take today's; the tests fix it.
class InformatTable : public testing::Test {
protected:
    void SetUp() override { services_.options().setOption("today", "2021-03-17"); }
    kivo::test::OwnServices services_;
};

// clang-format off
const Informat TABLE[] = {
    // Packed time words: each sign, a digit as sign, a nibble above 9 in the digits, the width.
    {pdtimeInformat, "PDTIME", true, {{"0012345C", 5025}, {"0012345F", 5025}, {"0012345A", 5025},
        {"0012345E", 5025}, {"0012345D", -5025}, {"0012345B", -5025}, {"00123455", NAN}, {"00A2345C", NAN},
        {"001234AC", NAN}, {"0017500C", 4500 + 3600}, {"0012345C00", REJECTED}}},
    {rmfdurInformat, "RMFDUR", true, {{"1234567C", 12 * 60 + 34.567}, {"0001500D", -1.5}, {"0001500F", 1.5},
        {"000150F0", NAN}}},
    // Packed Julian dates: 0CYYDDD.
    {pdjuliInformat, "PDJULI", true, {{"0123045F", FEB14_2023}, {"0099365C", day(1999, 12, 31)},
        {"0123045D", REJECTED}, {"01230455", REJECTED}, {"0123366F", REJECTED}, {"0123000F", REJECTED}}},
    {pdjulgInformat, "PDJULG", true, {{"2023045F", FEB14_2023}, {"23045F", FEB14_2023}, {"2023045B", REJECTED},
        {"045F", REJECTED}, {"99365F", day(1999, 12, 31)}}},
    // Record stamps: time then date (RMF, SMF), date then plain nibbles (SHR).
    {rmfstampInformat, "RMFSTAMP", true, {{"0012345F0123045F", at(FEB14_2023, 5025)},
        {"0012345D0123045F", at(FEB14_2023, -5025)}, {"001234550123045F", NAN}, {"0012345F0123045D", REJECTED},
        {"0012345F0123366F", REJECTED}}},
    {smfstampInformat, "SMFSTAMP", true, {{"000001F40123045F", at(FEB14_2023, 5)},
        {"FFFFFF9C0123045F", at(FEB14_2023, -1)}, {"0000000000000000", NAN}, {"000000000000000F", NAN},
        {"0000000000000005", REJECTED}, {"000001F40123045D", REJECTED}}},
    {shrstampInformat, "SHRSTAMP", true, {{"0123045F13453025", at(FEB14_2023, 13 * 3600 + 45 * 60 + 30.25)},
        {"0123045F134530A5", REJECTED}}},
    // The clock: 1960-01-01 is 1,893,369,600 s after 1900; bit 51 is a microsecond. Six bytes are the
    // clock's high bytes; MSEC keeps only the time of day.
    {todstampInformat, "TODSTAMP", true, {{"0000000000000000", NAN}, {"0000000000000FFF", NAN},
        {"0000000000001000", 1e-6 - 1893369600}, {"6BA02766FC000000", 0}, {"6BA02766FC00", 0}}},
    {msecInformat, "MSEC", true, {{"6BA02766FC000000", 0}, {"0000000000001000", 1e-6}, {"6BA1694472000000", 0},
        {"", NAN}}},
    {tuInformat, "TU", true, {{"00009600", 1}, {"FFFFFFFF", 4294967295.0 / 38400}, {"009600", REJECTED}}},
    {stimerInformat, "STIMER", false, {{"1:02:03.5", 3723.5}, {"x", REJECTED}}},
    // Every form; 1 January 2021 was a Friday. The calendar's edges: 1581 only reaches into 1582; 1580
    // and 20001 are no years. Malformed: two W's, a lower-case w, a dashed year with an undashed day, a
    // day of 8.
    {weekvInformat, "WEEKV", false, {{"2021W0101", day(2021, 1, 4)}, {"2021-W01-01", day(2021, 1, 4)},
        {"21W0101", day(2021, 1, 4)}, {"2021-W01", day(2021, 1, 4)}, {"2021W01", day(2021, 1, 4)},
        {"21W01", day(2021, 1, 4)}, {"W01", day(2021, 1, 4)}, {"  2021W0107", day(2021, 1, 10)},
        {"2021-W01-0", REJECTED}, {"2021W5", REJECTED}, {"2021-W53-07", day(2022, 1, 9)}, {"2021-W54", REJECTED},
        {"1581W5305", day(1582, 1, 1)}, {"1581W5304", REJECTED}, {"1580W0101", REJECTED}, {"20001W0101", REJECTED},
        {"20000W5207", day(20000, 12, 31)}, {"2021WW05", REJECTED}, {"2021w05", REJECTED}, {"2021-W0503", REJECTED},
        {"2021W0508", REJECTED}, {"W5", REJECTED}, {"21W05-3", REJECTED}}},
    // Week 0 of the Sunday and Monday weeks: the days before the first Sunday or Monday. Week 53: U when
    // 1 January is a Sunday or a Friday in a leap year; W when a Monday or a Sunday in a leap year.
    {weekuInformat, "WEEKU", false, {{"2021W5", day(2020, 12, 27)}, {"2021W0107", day(2021, 1, 9)},
        {"2017W5301", day(2017, 12, 31)}, {"2016W5301", day(2017, 1, 1)}, {"2000W5301", REJECTED},
        {"2021W5301", REJECTED}, {"1581W5207", day(1582, 1, 2)}}},
    {weekwInformat, "WEEKW", false, {{"2021W5", day(2020, 12, 28)}, {"2021W0101", day(2021, 1, 4)},
        {"2018W5301", day(2018, 12, 31)}, {"2012W5301", day(2012, 12, 31)}, {"2021W5301", REJECTED}}},
};
// clang-format on

TEST_F(InformatTable, ReadTheirFieldsAndRejectTheRest) {
    for (const Informat& table : TABLE) {
        for (const Field& row : table.fields) {
            std::string bytes = row.field;
            ASSERT_TRUE(!table.hex || kivodt::decodeHex(row.field, bytes)) << row.field;
            const kivo::test::InformatReading reading = readField(table.informat, bytes);
            kivo::test::expectReading(reading, row.expected, std::string(table.name) + " " + row.field);
        }
    }
    // STIMER stores the missing value of a missing-value notation and still says no.
    double result = 0;
    EXPECT_EQ(stimerInformat(".", 1, 1, 0, &result), 0);
    EXPECT_TRUE(sameBits(result, MISSING));
    // The week field is the first min(width, length) bytes.
    int dayOfWeek = 1, week = 0, year = 0;
    EXPECT_TRUE(kivo::parseWeekUVWInformat("2021W0503", 9, 7, 0, dayOfWeek, week, year));
    EXPECT_EQ(year * 10000 + week * 10 + dayOfWeek, 2021 * 10000 + 5 * 10 + 1);
}

// Each day of a few centuries written by a packed or week format and read back by its informat. WEEKU
// refuses by design the 53rd week its format writes for 31 December of a leap year that began on a
// Saturday.
TEST_F(InformatTable, PackedAndWeekFormatsReadBack) {
    struct Pair { KivoFormatFunction format; KivoInformatFunction informat; int width; int firstYear; };
    // The week formats hold the day and a four-digit year from width 9; the packed ones at 4.
    const Pair pairs[] = {{pdjulgFormat, pdjulgInformat, 4, 1582}, {pdjuliFormat, pdjuliInformat, 4, 1900},
                          {weekuFormat, weekuInformat, 9, 1583},   {weekuFormat, weekuInformat, 11, 1583},
                          {weekuFormat, weekuInformat, 32, 1583},  {weekvFormat, weekvInformat, 10, 1583},
                          {weekvFormat, weekvInformat, 11, 1583},  {weekwFormat, weekwInformat, 9, 1583},
                          {weekwFormat, weekwInformat, 12, 1583}};
    for (const Pair& pair : pairs) {
        for (double serial = day(pair.firstYear, 1, 1); serial <= day(2300, 12, 31); ++serial) {
            char buffer[32];
            pair.format(buffer, pair.width, 0, serial);
            const std::string field(buffer, static_cast<std::size_t>(pair.width));
            const kivo::test::InformatReading reading = readField(pair.informat, field);
            const Date date(serial);
            const bool byDesign = pair.informat == weekuInformat && date.month() == 12 && date.day() == 31 &&
                                  kivo::Year::isLeapYear(date.year()) && Date(date.year(), 1, 1).dayOfWeek() == 7;
            if (byDesign) {
                EXPECT_EQ(reading.code, 0) << field;
            } else if (reading.code != 1 || reading.result != serial) {
                FAIL() << "day " << serial << " as \"" << field << "\" reads back as " << reading.result;
            }
        }
    }
}

}  // namespace
