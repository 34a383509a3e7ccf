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

// Each numeral's length is that of its text; the longest is III.
constexpr bool numeralLengthsHold() noexcept {
    for (const RomanQuarter& numeral : ROMAN_QUARTERS) {
        int length = 0;
        while (numeral.text[length] != '\0') {
            ++length;
        }
        if (length != numeral.length || length > 3) {
            return false;
        }
    }
    return true;
}
static_assert(numeralLengthsHold());
static_assert(quarterOf(1) == 1 && quarterOf(3) == 1 && quarterOf(4) == 2 && quarterOf(12) == 4);

}  // namespace kivo::format::datetime
