#pragma once

#include <gtest/gtest.h>

#include <string>

#include "kivo/Formats.h"

// Runs a format into a field with guard bytes on both sides and fails the test when the format writes
// outside its field. The field starts filled with '#', so an untouched byte shows.
inline std::string formatField(KivoFormatFunction format, int width, int decimals, double value) {
    constexpr int GUARD = 16;
    std::string buffer(static_cast<std::size_t>(width + 2 * GUARD), '#');
    format(buffer.data() + GUARD, width, decimals, value);
    EXPECT_EQ(buffer.substr(0, GUARD), std::string(GUARD, '#')) << "wrote before the field";
    EXPECT_EQ(buffer.substr(static_cast<std::size_t>(GUARD + width)), std::string(GUARD, '#'))
        << "wrote after the field";
    return buffer.substr(GUARD, static_cast<std::size_t>(width));
}
