#pragma once

#include <cmath>
#include <cstdint>

// A non-negative whole number held in a double, taken apart into decimal digits from the least
// significant end by integer division. Below 2^56 one 64-bit limb holds it; above, two limbs of 56 bits
// are divided by ten together, so that every digit of a large double comes out exactly and no text
// conversion of the double is ever needed.
namespace kivo::format::limbs {

inline constexpr double TWO_POW_56 = 72057594037927936.0;
inline constexpr std::uint64_t LOW_LIMB_BASE = std::uint64_t{1} << 56;
static_assert(TWO_POW_56 == static_cast<double>(LOW_LIMB_BASE));
// The first value a high limb of 64 bits cannot hold.
inline constexpr double TWO_POW_64 = 0x1p64;

class DecimalLimbs {
public:
    // whole must already be an integer; NaN and negatives count as zero, and anything beyond the range
    // of two limbs is held at their largest value, so that no conversion overflows.
    explicit DecimalLimbs(double whole) noexcept {
        if (!(whole > 0.0)) {
            return;
        }
        if (whole < TWO_POW_56) {
            low_ = static_cast<std::uint64_t>(whole);
            return;
        }
        const double high = std::trunc(whole / TWO_POW_56);
        if (!(high < TWO_POW_64)) {
            high_ = ~std::uint64_t{0};
            low_ = LOW_LIMB_BASE - 1;
            return;
        }
        high_ = static_cast<std::uint64_t>(high);
        low_ = static_cast<std::uint64_t>(whole - high * TWO_POW_56);
    }

    bool isZero() const noexcept { return high_ == 0 && low_ == 0; }

    // The least significant digit, removed from the number.
    int popDigit() noexcept {
        if (high_ == 0) {
            const std::uint64_t digit = low_ % 10;
            low_ /= 10;
            return static_cast<int>(digit);
        }
        const std::uint64_t remainder = (high_ % 10) * LOW_LIMB_BASE + low_;
        high_ /= 10;
        low_ = remainder / 10;
        return static_cast<int>(remainder % 10);
    }

private:
    std::uint64_t high_ = 0;
    std::uint64_t low_ = 0;
};

}  // namespace kivo::format::limbs
