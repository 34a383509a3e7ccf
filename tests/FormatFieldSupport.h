#pragma once

#include <gtest/gtest.h>

#include <cstring>
#include <iomanip>
#include <ostream>
#include <string>

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
    int width;
    int decimals;
    double value;
    const char* expected;
};

inline void PrintTo(const FieldCase& c, std::ostream* os) {
    *os << c.name << c.width << "." << c.decimals << " of " << std::setprecision(17) << c.value;
}

}  // namespace kivo::test
