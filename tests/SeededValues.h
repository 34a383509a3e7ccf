#pragma once

// A seeded stream of doubles that a format may meet, the same on every machine and compiler: day and
// seconds serials across the calendar and just past its ends, times of day and long durations, numbers
// of every magnitude, each often a few units in the last place either side of a point where a field's
// rounding or a day changes; and missing values, NaN and the infinities. The field hash test and the
// equivalence driver in tools/ draw from it, so that a change in any byte of any field shows.
#include <bit>
#include <cmath>
#include <cstdint>

#include "kivox/Missing.h"

namespace kivo::testing {

class SeededValues {
public:
    explicit SeededValues(std::uint64_t seed) noexcept : state_(seed) {}

    double next() noexcept {
        switch (below(10)) {
            case 0: return special();
            case 1: case 2: return daySerial();
            case 3: case 4: case 5: return secondsSerial();
            case 6: case 7: return duration();
            default: return number();
        }
    }

private:
    static constexpr double DAY = 86400.0;
    static constexpr double FIRST_DAY = -138061.0;  // 1 January 1582
    static constexpr double LAST_DAY = 6589340.0;   // 31 December 20000

    std::uint64_t state_;

    // splitmix64: small, fast and fully specified.
    std::uint64_t bits() noexcept {
        std::uint64_t z = (state_ += 0x9E3779B97F4A7C15ULL);
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ULL;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBULL;
        return z ^ (z >> 31);
    }
    std::uint64_t below(std::uint64_t n) noexcept { return bits() % n; }
    double unit() noexcept { return static_cast<double>(bits() >> 11) * 0x1p-53; }
    double between(double low, double high) noexcept { return low + (high - low) * unit(); }
    double sign() noexcept { return below(2) == 0 ? 1.0 : -1.0; }

    // x moved by -3..3 units in the last place, x itself half the time.
    double hair(double x) noexcept {
        if (below(2) == 0) {
            return x;
        }
        const auto steps = static_cast<int>(below(7)) - 3;
        for (int i = 0; i < steps; ++i) {
            x = std::nextafter(x, INFINITY);
        }
        for (int i = 0; i > steps; --i) {
            x = std::nextafter(x, -INFINITY);
        }
        return x;
    }

    // A point where a field shown with 0..9 decimals rounds the other way: k + 0.5 units of the last
    // decimal, or a whole unit.
    double roundingPoint(double whole) noexcept {
        const auto decimals = static_cast<int>(below(10));
        const double unitOfLast = std::pow(10.0, -decimals);
        const double units = std::floor(unit() / unitOfLast);
        return whole + (units + (below(2) == 0 ? 0.5 : 0.0)) * unitOfLast;
    }

    double special() noexcept {
        static constexpr double FIXED[] = {0.0, -0.0, NAN, INFINITY, -INFINITY, 1e300, -1e300, 5e-324,
                                           (FIRST_DAY - 1) * DAY, (LAST_DAY + 1) * DAY, FIRST_DAY - 1, LAST_DAY + 1};
        switch (below(3)) {
            case 0: return lum_numeric::MISSING;
            case 1: return std::bit_cast<double>(lum_numeric::MISSING_MASK | (bits() & 0xFFFFFFFFFFFFULL));
            default: return hair(FIXED[below(std::size(FIXED))]);
        }
    }

    double daySerial() noexcept {
        switch (below(4)) {
            case 0: return between(FIRST_DAY - 3, LAST_DAY + 3);
            case 1: return hair(std::floor(between(-30000, 60000)));
            case 2: return hair(below(2) == 0 ? FIRST_DAY : LAST_DAY + 1);
            default: return std::floor(between(-30000, 60000)) + unit();
        }
    }

    double secondsSerial() noexcept {
        const double day = std::floor(below(8) == 0 ? between(FIRST_DAY - 2, LAST_DAY + 2) : between(-30000, 60000));
        switch (below(4)) {
            case 0: return between(day, day + 1) * DAY;
            case 1: return hair((day + below(2)) * DAY);
            default: return hair(day * DAY + roundingPoint(std::floor(between(0, DAY))));
        }
    }

    double duration() noexcept {
        const double magnitude = below(4) == 0 ? std::pow(10.0, between(5, 12)) : between(0, DAY);
        return sign() * hair(roundingPoint(std::floor(magnitude)));
    }

    double number() noexcept {
        switch (below(4)) {
            case 0: return sign() * std::pow(10.0, between(-20, 20));
            case 1: return sign() * hair(std::pow(10.0, static_cast<double>(below(41)) - 20));
            case 2: return sign() * hair(roundingPoint(std::floor(std::pow(10.0, between(0, 12)))) *
                                        std::pow(10.0, -static_cast<double>(below(8))));
            default: return sign() * static_cast<double>(below(1000000));
        }
    }
};

// FNV-1a over a field's bytes, continuing from hash: how both of them fold fields into one number.
inline std::uint64_t hashField(const char* bytes, int length, std::uint64_t hash) noexcept {
    for (int i = 0; i < length; ++i) {
        hash = (hash ^ static_cast<unsigned char>(bytes[i])) * 0x100000001B3ULL;
    }
    return hash;
}

inline constexpr std::uint64_t FIELD_HASH_START = 0xCBF29CE484222325ULL;

}  // namespace kivo::testing
