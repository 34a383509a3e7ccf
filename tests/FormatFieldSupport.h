#pragma once

#include <gtest/gtest.h>

#include <cstring>
#include <iomanip>
#include <ostream>
#include <string>
#include <vector>

#include "kivo/Formats.h"

namespace kivo::test {

// Runs a format on a field with guard bytes on both sides: a byte written outside the field fails the
// test, a byte left unwritten inside it shows as '#'.
inline std::string formatField(KivoFormatFunction format, int width, int decimals, double value) {
    constexpr int GUARD = 16;
    char buffer[64 + 2 * GUARD];
    std::memset(buffer, '#', sizeof buffer);
    format(buffer + GUARD, width, decimals, value);
    for (int i = 0; i < GUARD; ++i) {
        EXPECT_EQ(buffer[i], '#') << "written before the field";
        EXPECT_EQ(buffer[GUARD + width + i], '#') << "written after the field";
    }
    return std::string(buffer + GUARD, static_cast<std::size_t>(width));
}

// One row of a format table: the field a format must produce for (width, decimals, value).
struct FieldCase {
    KivoFormatFunction format;
    const char* name;
    int width, decimals;
    double value;
    const char* expected;
};

inline void PrintTo(const FieldCase& c, std::ostream* os) {
    *os << c.name << c.width << "." << c.decimals << " of " << std::setprecision(17) << c.value;
}

// (width, decimals, value) and the field it must give, for the format of a FORMAT_ROWS group.
struct FieldRow { int width, decimals; double value; const char* expected; };

inline std::vector<FieldCase> formatRows(KivoFormatFunction format, const char* name,
                                         std::initializer_list<FieldRow> rows) {
    std::vector<FieldCase> cases;
    for (const FieldRow& r : rows) cases.push_back({format, name, r.width, r.decimals, r.value, r.expected});
    return cases;
}

// The groups of a table, one after the other.
inline std::vector<FieldCase> rows(std::initializer_list<std::vector<FieldCase>> groups) {
    std::vector<FieldCase> all;
    for (const std::vector<FieldCase>& group : groups) all.insert(all.end(), group.begin(), group.end());
    return all;
}

// The fields of one value at consecutive widths from `first`, decimals 0.
inline std::vector<FieldCase> widthRows(KivoFormatFunction format, const char* name, int first, double value,
                                        std::initializer_list<const char*> fields) {
    std::vector<FieldCase> cases;
    for (const char* expected : fields) cases.push_back({format, name, first++, 0, value, expected});
    return cases;
}

// The parameterised test of a format table: class TimeFormats : public FormatTable {}; then
// TEST_P(TimeFormats, WritesTheField) { expectRow(); } and the table's INSTANTIATE_TEST_SUITE_P.
class FormatTable : public testing::TestWithParam<FieldCase> {
protected:
    void expectRow() {
        const FieldCase& c = GetParam();
        EXPECT_EQ(formatField(c.format, c.width, c.decimals, c.value), c.expected);
    }
};

}  // namespace kivo::test

// The rows of one format, whose function and name come from one token, so that they cannot disagree:
// FORMAT_ROWS(date, {9, 0, 22356, "17MAR2021"}, {11, 0, 0, "01-JAN-1960"}).
#define FORMAT_ROWS(stem, ...) ::kivo::test::formatRows(stem##Format, #stem, {__VA_ARGS__})
// The fields of one value at consecutive widths: FORMAT_WIDTHS(date, 5, 0, "01JAN", " 01JAN", "01JAN60").
#define FORMAT_WIDTHS(stem, first, value, ...) \
    ::kivo::test::widthRows(stem##Format, #stem, first, value, {__VA_ARGS__})
