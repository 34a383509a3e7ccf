// The readers of the fixed-layout informats, each on its own: what it accepts, the value it gives and
// how far it moves the cursor. Every text is an exactly-sized heap block, so a read past it shows.
#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <string_view>

#include "HostSupport.h"
#include "formats/datetime_formats/TextReaders.h"

namespace {

using kivo::test::day;

constexpr double ANY = -999;  // a rejected row's value is not looked at

// One row: the text, whether the reader takes it, the value and how many characters it consumed.
struct ReaderCase { const char* text; bool ok; double value; long consumed; };

// Runs read(cursor, end, value) over an exact copy of each row's text; a consumed count of -1 is not
// checked.
template <class Value, class Read, std::size_t N>
void expectReadings(const ReaderCase (&cases)[N], Value start, Read read) {
    for (const ReaderCase& c : cases) {
        const std::size_t length = std::strlen(c.text);
        const std::unique_ptr<char[]> field(new char[length]);
        std::memcpy(field.get(), c.text, length);
        const char* cursor = field.get();
        Value value = start;
        EXPECT_EQ(read(cursor, field.get() + length, value), c.ok) << '"' << c.text << '"';
        if (c.ok) {
            EXPECT_DOUBLE_EQ(static_cast<double>(value), c.value) << '"' << c.text << '"';
        }
        if (c.consumed >= 0) {
            EXPECT_EQ(cursor - field.get(), c.consumed) << '"' << c.text << '"';
        }
    }
}

TEST(TextReaders, MonthAbbreviationAlwaysTakesThreeCharacters) {
    const ReaderCase cases[] = {
        {"JAN", true, 1, 3},    {"dec2000", true, 12, 3}, {"sEp", true, 9, 3},   {"JANUARY", true, 1, 3},
        {"JUX", false, ANY, 3}, {"1JAN", false, ANY, 3},  {"JA", false, ANY, 0}, {"", false, ANY, 0},
    };
    expectReadings(cases, 0, kivo::readMonthAbbrev);
}

TEST(TextReaders, UnsignedIntegerUpToTheLargestSigned32BitValue) {
    const ReaderCase cases[] = {
        {"0", true, 0, 1}, {"0042x", true, 42, 4}, {"2147483647", true, 2147483647, 10}, {"2147483648", false, ANY, -1},
        {"21474836470", false, ANY, -1}, {"-5", false, ANY, 0}, {" 5", false, ANY, 0}, {"", false, ANY, 0},
    };
    expectReadings(cases, 0, kivo::readUnsignedInt);
    // A letter where the number should start leaves -1; any other character leaves the value alone.
    int value = 7;
    const char* letter = "Q";
    EXPECT_FALSE(kivo::readUnsignedInt(letter, letter + 1, value));
    EXPECT_EQ(value, -1);
    value = 7;
    const char* colon = ":";
    EXPECT_FALSE(kivo::readUnsignedInt(colon, colon + 1, value));
    EXPECT_EQ(value, 7);
}

// The caller has taken the first digit, 3, already.
TEST(TextReaders, DigitsWithFractionContinueAFirstDigit) {
    const ReaderCase optional[] = {
        {"", true, 3, 0},           {"0", true, 30, 1},    {"0.25", true, 30.25, 4},
        {".5:", true, 3.5, 2},      {"0.", false, ANY, 2}, {"1.x", false, ANY, 2},
        {".0625", true, 3.0625, 5}, {"x", true, 3, 0},     {".12345678901234567", true, 3.123456789012345, 18},
    };
    expectReadings(optional, 3.0, [](const char*& c, const char* e, double& v) {
        return kivo::readDigitsWithFraction(c, e, v, false);
    });
    const ReaderCase required[] = {{"0", false, ANY, 1}, {".5", true, 3.5, 2}, {"", false, ANY, 0}};
    expectReadings(required, 3.0, [](const char*& c, const char* e, double& v) {
        return kivo::readDigitsWithFraction(c, e, v, true);
    });
}

TEST(TextReaders, ClockTimeHasTwoDigitsEachAndReachesTheEnd) {
    const ReaderCase cases[] = {
        {"10:30:15", true, 37815, 8}, {"23.59:59", true, 86399, 8}, {"00:00:00.5  \t", true, 0.5, 13},
        {"10:30:15.123456", true, 37815.123456, 15}, {"10:30:15.1234567", false, ANY, -1},
        {"10:30:15.", false, ANY, -1}, {"24:00:00", false, ANY, -1}, {"10:60:00", false, ANY, -1},
        {"10:30:60", false, ANY, -1}, {"1:30:00", false, ANY, -1}, {"10:30.15", false, ANY, -1},
        {"10,30:15", false, ANY, -1}, {"10:30:15 x", false, ANY, -1}, {"10:30", false, ANY, -1},
    };
    expectReadings(cases, 0.0, kivo::readClockTime);
}

TEST(TextReaders, IsoDateTestsTheLeapYearAsWritten) {
    const ReaderCase cases[] = {
        {"2000-02-29", true, day(2000, 2, 29), 10}, {"2001-02-29", false, ANY, -1}, {"1900-02-29", false, ANY, -1},
        {"00-01-15T", true, day(2000, 1, 15), 8}, {"2000-2-29", false, ANY, -1}, {"200-01-01", false, ANY, -1},
        {"20000-01-01", false, ANY, -1}, {"2000-13-01", false, ANY, -1}, {"2000-04-31", false, ANY, -1},
        {"2000-01-32", false, ANY, -1}, {"2000/01/15", false, ANY, -1}, {"1581-12-31", false, ANY, -1},
    };
    expectReadings(cases, 0.0, kivo::readIsoDate);
}

TEST(TextReaders, TimeWithAmPm) {
    const ReaderCase cases[] = {
        {"10:30", true, 37800, 5}, {"10:30  ", true, 37800, 7}, {"10:30:15.5", true, 37815.5, 10},
        {"10.30.15", true, 37815, 8}, {"10:30.15", false, ANY, -1}, {"12:15 AM", true, 900, 8},
        {"12:15 PM", true, 44100, 8}, {"1:15 pm", true, 47700, 7}, {"1:15p", true, 47700, 5},
        {"13:15 AM", true, 47700, 8}, {"11:59:59 AM", true, 43199, 11}, {"10:30:15 PMX", true, 81015, 11},
        {"10:30 PX", false, ANY, -1}, {"10:30 X", false, ANY, -1}, {"10:30:", false, ANY, -1},
        {"10:30:x", false, ANY, -1}, {"25:61", true, 93660, 5}, {"10", false, ANY, -1}, {"10,30", false, ANY, -1},
    };
    expectReadings(cases, 0.0, kivo::readTimeAmPm);
}

}  // namespace
