// The machine-form informats on their bytes (given here as hex pairs) and the week informats on their
// texts: one table each, a rejected field checked to leave the result untouched; then the packed and
// week formats read back by their informats, day by day.
#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "InformatFieldSupport.h"
#include "kivo/Formats.h"
#include "kivo/Informats.h"
#include "kivo/WeekInformats.h"
#include "kivodt/Values.h"
#include "kivox/Calendar.h"
#include "kivox/Missing.h"
#include "kivox/Services.h"

namespace {

using kivo::Date;
using kivo::test::readField;

constexpr double REJECTED = -1e300;  // a row's mark for "returns 0, result untouched"
const double MISSING = kivo::lum_numeric::MISSING;

double day(int y, int m, int d) { return static_cast<double>(Date(y, m, d)); }
double at(double daySerial, double seconds) { return daySerial * 86400 + seconds; }

struct Row {
    KivoInformatFunction informat;
    const char* name;
    const char* field;  // hex pairs for the machine forms, text for the week dates
    double expected;
};

class InformatTable : public testing::Test {
protected:
    // The week forms without a year take today's; the tests fix it.
    void SetUp() override {
        locator_.systemOptions().setOption("today", "2021-03-17");
        previous_ = kivo::ServiceLocator::setCurrent(&locator_);
    }
    void TearDown() override { kivo::ServiceLocator::setCurrent(previous_); }

    static void expectRows(std::initializer_list<Row> rows, bool hex) {
        for (const Row& row : rows) {
            std::string bytes = row.field;
            if (hex) {
                ASSERT_TRUE(kivodt::decodeHex(row.field, bytes)) << row.name << " " << row.field;
            }
            const kivo::test::InformatReading reading = readField(row.informat, bytes);
            if (row.expected == REJECTED) {
                EXPECT_EQ(reading.code, 0) << row.name << " " << row.field;
                EXPECT_TRUE(kivo::test::sameBits(reading.result, kivo::test::UNTOUCHED)) << row.name << " " << row.field;
            } else if (std::isnan(row.expected)) {
                EXPECT_EQ(reading.code, 1) << row.name << " " << row.field;
                EXPECT_TRUE(kivo::test::sameBits(reading.result, MISSING)) << row.name << " " << row.field;
            } else {
                EXPECT_EQ(reading.code, 1) << row.name << " " << row.field;
                EXPECT_DOUBLE_EQ(reading.result, row.expected) << row.name << " " << row.field;
            }
        }
    }

    kivo::ServiceLocator locator_;
    kivo::ServiceLocator* previous_ = nullptr;
};

TEST_F(InformatTable, MachineForms) {
    const double feb14_2023 = day(2023, 2, 14);
    expectRows(
        {
            // Packed time words: each sign, a digit as sign, a nibble above 9 in the digits, the width.
            {pdtimeInformat, "PDTIME", "0012345C", 5025},   {pdtimeInformat, "PDTIME", "0012345F", 5025},
            {pdtimeInformat, "PDTIME", "0012345A", 5025},   {pdtimeInformat, "PDTIME", "0012345E", 5025},
            {pdtimeInformat, "PDTIME", "0012345D", -5025},  {pdtimeInformat, "PDTIME", "0012345B", -5025},
            {pdtimeInformat, "PDTIME", "00123455", NAN},    {pdtimeInformat, "PDTIME", "00A2345C", NAN},
            {pdtimeInformat, "PDTIME", "001234AC", NAN},    {pdtimeInformat, "PDTIME", "0017500C", 4500 + 3600 * 1},
            {pdtimeInformat, "PDTIME", "0012345C00", REJECTED},
            {rmfdurInformat, "RMFDUR", "1234567C", 12 * 60 + 34.567}, {rmfdurInformat, "RMFDUR", "0001500D", -1.5},
            {rmfdurInformat, "RMFDUR", "0001500F", 1.5},    {rmfdurInformat, "RMFDUR", "000150F0", NAN},
            // Packed Julian dates: 0CYYDDD.
            {pdjuliInformat, "PDJULI", "0123045F", feb14_2023}, {pdjuliInformat, "PDJULI", "0099365C", day(1999, 12, 31)},
            {pdjuliInformat, "PDJULI", "0123045D", REJECTED},  {pdjuliInformat, "PDJULI", "01230455", REJECTED},
            {pdjuliInformat, "PDJULI", "0123366F", REJECTED},  {pdjuliInformat, "PDJULI", "0123000F", REJECTED},
            {pdjulgInformat, "PDJULG", "2023045F", feb14_2023}, {pdjulgInformat, "PDJULG", "23045F", feb14_2023},
            {pdjulgInformat, "PDJULG", "2023045B", REJECTED},   {pdjulgInformat, "PDJULG", "045F", REJECTED},
            {pdjulgInformat, "PDJULG", "99365F", day(1999, 12, 31)},
            // Record stamps: time then date (RMF, SMF), date then plain nibbles (SHR).
            {rmfstampInformat, "RMFSTAMP", "0012345F0123045F", at(feb14_2023, 5025)},
            {rmfstampInformat, "RMFSTAMP", "0012345D0123045F", at(feb14_2023, -5025)},
            {rmfstampInformat, "RMFSTAMP", "001234550123045F", NAN},
            {rmfstampInformat, "RMFSTAMP", "0012345F0123045D", REJECTED},
            {rmfstampInformat, "RMFSTAMP", "0012345F0123366F", REJECTED},
            {smfstampInformat, "SMFSTAMP", "000001F40123045F", at(feb14_2023, 5)},
            {smfstampInformat, "SMFSTAMP", "FFFFFF9C0123045F", at(feb14_2023, -1)},
            {smfstampInformat, "SMFSTAMP", "0000000000000000", NAN},
            {smfstampInformat, "SMFSTAMP", "000000000000000F", NAN},
            {smfstampInformat, "SMFSTAMP", "0000000000000005", REJECTED},
            {smfstampInformat, "SMFSTAMP", "000001F40123045D", REJECTED},
            {shrstampInformat, "SHRSTAMP", "0123045F13453025", at(feb14_2023, 13 * 3600 + 45 * 60 + 30.25)},
            {shrstampInformat, "SHRSTAMP", "0123045F134530A5", REJECTED},
            // The clock: 1960-01-01 is 1,893,369,600 s after 1900; bit 51 is a microsecond.
            {todstampInformat, "TODSTAMP", "0000000000000000", NAN}, {todstampInformat, "TODSTAMP", "0000000000000FFF", NAN},
            {todstampInformat, "TODSTAMP", "0000000000001000", 1e-6 - 1893369600},
            {todstampInformat, "TODSTAMP", "6BA02766FC000000", 0},
            {todstampInformat, "TODSTAMP", "6BA02766FC00", 0},  // the high bytes of the clock
            {msecInformat, "MSEC", "6BA02766FC000000", 0}, {msecInformat, "MSEC", "0000000000001000", 1e-6},
            {msecInformat, "MSEC", "6BA1694472000000", 0},  // a day later, the same time of day
            {msecInformat, "MSEC", "", NAN},
            {tuInformat, "TU", "00009600", 1}, {tuInformat, "TU", "FFFFFFFF", 4294967295.0 / 38400},
            {tuInformat, "TU", "009600", REJECTED},
        },
        true);
}

TEST_F(InformatTable, StimerReadsTextAndSaysNoToAMissingNotation) {
    expectRows({{stimerInformat, "STIMER", "1:02:03.5", 3723.5}, {stimerInformat, "STIMER", "x", REJECTED}}, false);
    double result = 0;
    EXPECT_EQ(stimerInformat(".", 1, 1, 0, &result), 0);
    EXPECT_TRUE(kivo::test::sameBits(result, MISSING));
}

TEST_F(InformatTable, WeekDates) {
    expectRows(
        {
            // Every form; 1 January 2021 was a Friday.
            {weekvInformat, "WEEKV", "2021W0101", day(2021, 1, 4)}, {weekvInformat, "WEEKV", "2021-W01-01", day(2021, 1, 4)},
            {weekvInformat, "WEEKV", "21W0101", day(2021, 1, 4)},    {weekvInformat, "WEEKV", "2021-W01", day(2021, 1, 4)},
            {weekvInformat, "WEEKV", "2021W01", day(2021, 1, 4)},    {weekvInformat, "WEEKV", "21W01", day(2021, 1, 4)},
            {weekvInformat, "WEEKV", "W01", day(2021, 1, 4)},        {weekvInformat, "WEEKV", "  2021W0107", day(2021, 1, 10)},
            {weekvInformat, "WEEKV", "2021-W01-0", REJECTED}, {weekvInformat, "WEEKV", "2021W5", REJECTED},
            {weekvInformat, "WEEKV", "2021-W53-07", day(2022, 1, 9)}, {weekvInformat, "WEEKV", "2021-W54", REJECTED},
            // Week 0 of the Sunday and Monday weeks: the days before the first Sunday or Monday.
            {weekuInformat, "WEEKU", "2021W5", day(2020, 12, 27)},   {weekwInformat, "WEEKW", "2021W5", day(2020, 12, 28)},
            {weekuInformat, "WEEKU", "2021W0107", day(2021, 1, 9)},  {weekwInformat, "WEEKW", "2021W0101", day(2021, 1, 4)},
            // Week 53: U when 1 January is a Sunday or a Friday in a leap year; W when a Monday or a
            // Sunday in a leap year.
            {weekuInformat, "WEEKU", "2017W5301", day(2017, 12, 31)}, {weekuInformat, "WEEKU", "2016W5301", day(2017, 1, 1)},
            {weekuInformat, "WEEKU", "2000W5301", REJECTED},          {weekuInformat, "WEEKU", "2021W5301", REJECTED},
            {weekwInformat, "WEEKW", "2018W5301", day(2018, 12, 31)}, {weekwInformat, "WEEKW", "2012W5301", day(2012, 12, 31)},
            {weekwInformat, "WEEKW", "2021W5301", REJECTED},
            // The calendar's edges: 1581 only reaches into 1582; 1580 and 20001 are no years.
            {weekvInformat, "WEEKV", "1581W5305", day(1582, 1, 1)},  {weekvInformat, "WEEKV", "1581W5304", REJECTED},
            {weekuInformat, "WEEKU", "1581W5207", day(1582, 1, 2)},  {weekvInformat, "WEEKV", "1580W0101", REJECTED},
            {weekvInformat, "WEEKV", "20001W0101", REJECTED},        {weekvInformat, "WEEKV", "20000W5207", day(20000, 12, 31)},
            // Malformed: two W's, a lower-case w, a dashed year with an undashed day, a day of 8.
            {weekvInformat, "WEEKV", "2021WW05", REJECTED},           {weekvInformat, "WEEKV", "2021w05", REJECTED},
            {weekvInformat, "WEEKV", "2021-W0503", REJECTED},         {weekvInformat, "WEEKV", "2021W0508", REJECTED},
            {weekvInformat, "WEEKV", "W5", REJECTED},                 {weekvInformat, "WEEKV", "21W05-3", REJECTED},
        },
        false);
    // The field is the first min(width, length) bytes.
    int dayOfWeek = 1, week = 0, year = 0;
    EXPECT_TRUE(kivo::parseWeekUVWInformat("2021W0503", 9, 7, 0, dayOfWeek, week, year));
    EXPECT_EQ(year * 10000 + week * 10 + dayOfWeek, 2021 * 10000 + 5 * 10 + 1);
}

// Each day of a few centuries written by a packed or week format and read back by its informat. WEEKU
// refuses by design the 53rd week its format writes for 31 December of a leap year that began on a
// Saturday.
TEST_F(InformatTable, PackedAndWeekFormatsReadBack) {
    struct Pair {
        KivoFormatFunction format;
        KivoInformatFunction informat;
        int width;
        int firstYear;
    };
    // The week formats hold the day and a four-digit year from width 9; the packed ones at 4.
    const Pair pairs[] = {{pdjulgFormat, pdjulgInformat, 4, 1582}, {pdjuliFormat, pdjuliInformat, 4, 1900},
                          {weekuFormat, weekuInformat, 9, 1583},   {weekuFormat, weekuInformat, 11, 1583},
                          {weekuFormat, weekuInformat, 32, 1583},  {weekvFormat, weekvInformat, 10, 1583},
                          {weekvFormat, weekvInformat, 11, 1583},  {weekwFormat, weekwInformat, 9, 1583},
                          {weekwFormat, weekwInformat, 12, 1583}};
    for (const Pair& pair : pairs) {
        for (double serial = day(pair.firstYear, 1, 1); serial <= day(2300, 12, 31); ++serial) {
            char field[32];
            pair.format(field, pair.width, 0, serial);
            const kivo::test::InformatReading reading =
                readField(pair.informat, std::string_view(field, static_cast<std::size_t>(pair.width)));
            const Date date(serial);
            const bool byDesign = pair.informat == weekuInformat && date.month() == 12 && date.day() == 31 &&
                                  kivo::Year::isLeapYear(date.year()) && Date(date.year(), 1, 1).dayOfWeek() == 7;
            if (byDesign) {
                EXPECT_EQ(reading.code, 0) << std::string(field, static_cast<std::size_t>(pair.width));
            } else if (reading.code != 1 || reading.result != serial) {
                FAIL() << "day " << serial << " as \"" << std::string(field, static_cast<std::size_t>(pair.width))
                       << "\" reads back as " << reading.result;
            }
        }
    }
}

}  // namespace
