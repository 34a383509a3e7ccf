#pragma once

// The quarter of a month, as a digit and as a Roman numeral: QTR, QTRR and the year-and-quarter formats.
namespace kivo::format::datetime {

// January to March is the first quarter.
constexpr int quarterOf(int month) noexcept { return (month + 2) / 3; }

struct RomanQuarter {
    const char* text;
    int length;
};

// Indexed by the quarter 1..4.
inline constexpr RomanQuarter ROMAN_QUARTERS[5] = {{"", 0}, {"I", 1}, {"II", 2}, {"III", 3}, {"IV", 2}};

}  // namespace kivo::format::datetime
