// Every layout, over many random values and every width the front end offers: the field is exactly
// `width` characters, and what it shows, read back, lies within half a unit of its last digit (or of
// the last significant digit, when a wide field pads the digits with zeros).
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <random>
#include <string>

#include "kivo/format/FormatRealFields.h"
#include "kivo/format/RealLayouts.h"

namespace {

using kivo::format::FormatRealFields;

enum class Layout { BEST, D, E, BLANK, PERCENT };

// The layout's field, "" when it reports that the number does not fit. Guard bytes around the field
// must stay untouched.
std::string layOut(Layout layout, double x, int width, int decimals) {
    FormatRealFields f;
    switch (layout) {
        case Layout::BEST: kivo::format::getRealForBestFormat(x, width, f); break;
        case Layout::D: kivo::format::getRealForDFormat(x, width, decimals, f); break;
        case Layout::E: kivo::format::getRealForEFormat(x, width, f); break;
        case Layout::BLANK: kivo::format::getRealForBlankFormat(x, width, decimals, f); break;
        case Layout::PERCENT: kivo::format::getRealForPercentFormat(x, width, decimals, f); break;
    }
    if (f.leadingBlanks < 0) {
        return "";
    }
    EXPECT_TRUE(f.invariant()) << x << " width " << width;
    char buffer[128];
    std::memset(buffer, '#', sizeof buffer);
    char* out = buffer + 32;
    f.outputReal(out, '.', '-', FormatRealFields::BEFORE);
    EXPECT_EQ(out - (buffer + 32), width) << x << " width " << width << " decimals " << decimals;
    for (int i = 0; i < 32; ++i) {
        EXPECT_EQ(buffer[i], '#');
    }
    return std::string(buffer + 32, static_cast<std::size_t>(out > buffer + 32 ? out - (buffer + 32) : 0));
}

// The value shown and the unit of its last digit.
bool readBack(const std::string& text, double& shown, double& unit) {
    const std::size_t start = text.find_first_not_of(' ');
    if (start == std::string::npos) {
        return false;
    }
    const std::string number = text.substr(start);
    char* end = nullptr;
    shown = std::strtod(number.c_str(), &end);
    if (end != number.c_str() + number.size()) {
        return false;
    }
    const std::size_t e = number.find('E');
    const std::string mantissa = number.substr(0, e);
    const std::size_t point = mantissa.find('.');
    const int decimals = point == std::string::npos ? 0 : static_cast<int>(mantissa.size() - point - 1);
    const int exponent = e == std::string::npos ? 0 : std::atoi(number.c_str() + e + 1);
    unit = std::pow(10.0, exponent - decimals);
    return true;
}

double randomValue(std::mt19937_64& random) {
    switch (random() % 5) {
        case 0: {  // any finite bit pattern
            double x = 0;
            do {
                const std::uint64_t bits = random();
                std::memcpy(&x, &bits, sizeof x);
            } while (!std::isfinite(x));
            return x;
        }
        case 1:  // log-uniform over everyday magnitudes
            return std::pow(10.0, std::uniform_real_distribution<double>(-12, 18)(random)) *
                   (random() % 2 ? 1 : -1);
        case 2:  // whole numbers and halves
            return static_cast<double>(static_cast<std::int64_t>(random() % 2000001) - 1000000) / 2;
        case 3: {  // just below a power of ten: the carries
            const int e = static_cast<int>(random() % 40) - 20;
            return std::pow(10.0, e) * (1 - std::pow(10.0, -static_cast<double>(random() % 16)));
        }
        default:  // beyond 2^56
            return std::ldexp(static_cast<double>(random() >> 11), 10 + static_cast<int>(random() % 60));
    }
}

void checkLayout(Layout layout, int minWidth, int seed) {
    std::mt19937_64 random(static_cast<std::uint64_t>(seed));
    for (int n = 0; n < 2500; ++n) {
        double x = randomValue(random);
        if (layout == Layout::PERCENT) {
            x = std::fabs(x);
        }
        for (int width = minWidth; width <= 32; ++width) {
            // D takes any count of significant decimals; the others stay below the width.
            const std::uint64_t decimalsRange = layout == Layout::D ? 32 : static_cast<std::uint64_t>(width);
            const int decimals = static_cast<int>(random() % decimalsRange);
            const std::string text = layOut(layout, x, width, decimals);
            if (text.empty() || ::testing::Test::HasFailure()) {
                ASSERT_FALSE(::testing::Test::HasFailure());
                continue;
            }
            double shown = 0;
            double unit = 0;
            ASSERT_TRUE(readBack(text, shown, unit)) << "\"" << text << "\" for " << x;
            // Wide fields show at most 14 or 15 significant digits and zeros after them.
            const double significantUnit = x == 0 ? 0 : std::pow(10.0, std::floor(std::log10(std::fabs(x))) - 13);
            const double tolerance = 0.5 * std::max(unit, significantUnit) * (1 + 1e-9) + std::fabs(x) * 4e-15;
            ASSERT_LE(std::fabs(shown - x), tolerance)
                << "\"" << text << "\" for " << x << " width " << width << " decimals " << decimals;
        }
    }
}

TEST(NumericLayoutsProperty, Best) { checkLayout(Layout::BEST, 1, 1); }
TEST(NumericLayoutsProperty, D) { checkLayout(Layout::D, 1, 2); }
TEST(NumericLayoutsProperty, E) { checkLayout(Layout::E, 1, 3); }
TEST(NumericLayoutsProperty, Blank) { checkLayout(Layout::BLANK, 1, 4); }
TEST(NumericLayoutsProperty, Percent) { checkLayout(Layout::PERCENT, 1, 5); }

}  // namespace
