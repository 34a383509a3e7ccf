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

#include "RealFieldText.h"

namespace {

using realtext::Layout;

// The value shown (strtod skips the leading blanks) and the unit of its last digit.
bool readBack(const std::string& text, double& shown, double& unit) {
    char* end = nullptr;
    shown = std::strtod(text.c_str(), &end);
    const std::size_t e = text.find('E');
    const std::size_t point = text.find('.');
    const std::size_t mantissaEnd = e == std::string::npos ? text.size() : e;
    const int decimals = point == std::string::npos ? 0 : static_cast<int>(mantissaEnd - point - 1);
    unit = std::pow(10.0, (e == std::string::npos ? 0 : std::atoi(text.c_str() + e + 1)) - decimals);
    return end == text.c_str() + text.size() && text.find_first_not_of(' ') != std::string::npos;
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
            const std::string text = realtext::layOut(layout, x, width, decimals);
            ASSERT_FALSE(::testing::Test::HasFailure());
            if (text == "*") {
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
