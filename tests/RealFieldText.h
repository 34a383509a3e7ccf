#pragma once

#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "kivo/format/FormatRealFields.h"
#include "kivo/format/RealLayouts.h"

// The text a real layout writes, for the layout tests: "*" when the layout reports that the number does
// not fit. The field is written between guard bytes that must stay untouched, and must be exactly
// `width` characters.
namespace realtext {

enum class Layout { BEST, D, E, BLANK, PERCENT, LARGE_BLANK };

inline std::string layOut(Layout layout, double x, int width, int decimals) {
    using namespace kivo::format;
    FormatRealFields f;
    switch (layout) {
        case Layout::BEST: getRealForBestFormat(x, width, f); break;
        case Layout::D: getRealForDFormat(x, width, decimals, f); break;
        case Layout::E: getRealForEFormat(x, width, f); break;
        case Layout::BLANK: getRealForBlankFormat(x, width, decimals, f); break;
        case Layout::PERCENT: getRealForPercentFormat(x, width, decimals, f); break;
        case Layout::LARGE_BLANK: getLargeRealForBlankFormat(x, width, decimals, f); break;  // decimals: e
    }
    if (f.leadingBlanks < 0) {
        return "*";
    }
    EXPECT_TRUE(f.invariant()) << x << " width " << width;
    char buffer[128];
    std::memset(buffer, '#', sizeof buffer);
    char* const start = buffer + 32;
    char* out = start;
    f.outputReal(out, '.', '-', FormatRealFields::BEFORE);
    EXPECT_EQ(out - start, width) << x << " width " << width << " decimals " << decimals;
    EXPECT_EQ(std::string(buffer, 32), std::string(32, '#'));
    EXPECT_EQ(std::string(out, 32), std::string(32, '#'));
    return std::string(start, static_cast<std::size_t>(out - start));
}

}  // namespace realtext
