// The readers of the fixed-layout informats that are parts of a field: what each accepts, the value it
// gives and how far it moves the cursor. (The readers that must reach the end of the field, the clock
// time, the ISO date and the time with AM/PM, are checked through CANTIME, CANDATE and TIME.) Every text
// is an exactly-sized heap block, so a read past it shows.
#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <string_view>

#include "formats/datetime_formats/TextReaders.h"

namespace {

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

}  // namespace
