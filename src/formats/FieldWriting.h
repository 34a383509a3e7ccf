#pragma once

#include <cstdint>
#include <cstring>

// Small writers shared by the formats: they put digits and text straight into the caller's field and
// advance the output position. No allocation, no locale, no formatted print.
namespace kivo::format::field {

inline constexpr char DIGITS[] = "0123456789";

// count copies of c. The few bytes a layout pads with are stored in place, two overlapping stores at
// most, rather than through a call to memset.
inline void repeat(char*& out, int count, char c) noexcept {
    if (count <= 0) {
        return;
    }
    if (count > 8) {
        std::memset(out, c, static_cast<std::size_t>(count));
    } else if (count >= 4) {
        const std::uint32_t four = 0x01010101U * static_cast<unsigned char>(c);
        std::memcpy(out, &four, 4);
        std::memcpy(out + count - 4, &four, 4);
    } else {
        out[0] = c;
        out[count - 1] = c;
        out[count / 2] = c;
    }
    out += count;
}

inline void blanks(char*& out, int count) noexcept { repeat(out, count, ' '); }

// The whole field as "*": the value cannot be shown.
inline void stars(char* field, int width) noexcept {
    if (width > 0) {
        std::memset(field, '*', static_cast<std::size_t>(width));
    }
}

// length characters (CHUNK <= length <= 2 * CHUNK) of source in two moves of CHUNK bytes, the second
// ending at the last character: the two may overlap.
template <int CHUNK>
inline void twoOverlappingMoves(char* out, const char* source, int length) noexcept {
    char head[CHUNK];
    char tail[CHUNK];
    std::memcpy(head, source, CHUNK);
    std::memcpy(tail, source + length - CHUNK, CHUNK);
    std::memcpy(out, head, CHUNK);
    std::memcpy(out + length - CHUNK, tail, CHUNK);
}

// length characters of source. Up to 32 are copied in place, in two overlapping moves at most, rather
// than through a call to memcpy.
inline void text(char*& out, const char* source, int length) noexcept {
    if (length <= 0) {
        return;
    }
    if (__builtin_constant_p(length)) {
        // A length fixed where the call is compiled (a month's three letters) is the compiler's to move.
        std::memcpy(out, source, static_cast<std::size_t>(length));
    } else if (length > 32) {
        std::memcpy(out, source, static_cast<std::size_t>(length));
    } else if (length > 16) {
        twoOverlappingMoves<16>(out, source, length);
    } else if (length >= 8) {
        twoOverlappingMoves<8>(out, source, length);
    } else if (length >= 4) {
        twoOverlappingMoves<4>(out, source, length);
    } else {
        out[0] = source[0];
        out[length - 1] = source[length - 1];
        out[length / 2] = source[length / 2];
    }
    out += length;
}

inline void digit(char*& out, int value) noexcept { *out++ = DIGITS[value]; }

// "00" "01" ... "99": two digits in one copy, with no division on the way.
inline constexpr char DIGIT_PAIRS[] =
    "00010203040506070809101112131415161718192021222324252627282930313233343536373839"
    "40414243444546474849505152535455565758596061626364656667686970717273747576777879"
    "8081828384858687888990919293949596979899";

static_assert(sizeof DIGIT_PAIRS == 2 * 100 + 1);

// value 0..99 as two digits, with a leading zero.
inline void twoDigits(char*& out, int value) noexcept {
    std::memcpy(out, DIGIT_PAIRS + 2 * value, 2);
    out += 2;
}

// " 0" " 1" ... " 9" "10" ... "99": a number below 100 in two positions, blank-led, in one copy and with
// no branch on its length, for the hours of a clock, which come below 10 and from 10 on alike.
struct DigitPairTable {
    char pairs[200];
};
inline constexpr DigitPairTable BLANK_LED_PAIRS = [] {
    DigitPairTable table{};
    for (int i = 0; i < 200; ++i) {
        table.pairs[i] = i < 20 && i % 2 == 0 ? ' ' : DIGIT_PAIRS[i];
    }
    return table;
}();
static_assert(BLANK_LED_PAIRS.pairs[0] == ' ' && BLANK_LED_PAIRS.pairs[19] == '9' && BLANK_LED_PAIRS.pairs[20] == '1');

// value 0..99 in two positions, a blank in front of a single digit.
inline void twoDigitsBlankLed(char*& out, int value) noexcept {
    out[0] = value < 10 ? ' ' : DIGITS[value / 10];
    out[1] = DIGITS[value % 10];
    out += 2;
}

// value 0..999 in three positions, blanks in front of fewer digits.
inline void threeDigitsBlankLed(char*& out, int value) noexcept {
    out[0] = value < 100 ? ' ' : DIGITS[value / 100];
    out[1] = value < 10 ? ' ' : DIGITS[value / 10 % 10];
    out[2] = DIGITS[value % 10];
    out += 3;
}

// value 0..9999 as four digits (divided as unsigned: no sign to correct).
inline void fourDigits(char*& out, int value) noexcept {
    const auto v = static_cast<unsigned>(value);
    twoDigits(out, static_cast<int>(v / 100));
    twoDigits(out, static_cast<int>(v % 100));
}

// The largest year that four year positions hold.
inline constexpr int LARGEST_FOUR_DIGIT_YEAR = 9999;

// A year in four positions: 2021 as "2021", a year past 9999 as "****".
inline void fourDigitYearOrStars(char*& out, int year) noexcept {
    if (year > LARGEST_FOUR_DIGIT_YEAR) [[unlikely]] {
        repeat(out, 4, '*');
    } else {
        fourDigits(out, year);
    }
}

// value 0..99999 as five digits.
inline void fiveDigits(char*& out, int value) noexcept {
    digit(out, value / 10000);
    fourDigits(out, value % 10000);
}

// ---- Years right-aligned in the room a layout leaves (year, month-year and quarter layouts) ----

// The year in `positions` bytes: 2 holds its last two digits, 3 a blank and those two, 4 the four-digit
// year or "****"; a wider field takes blanks and four digits, or one blank less and all five digits past
// 9999, so that those layouts grow to the left rather than hide the year. Callers keep to two positions
// or more.
inline void yearInPositions(char*& out, int positions, int year) noexcept {
    switch (positions) {
        case 2:
            twoDigits(out, year % 100);
            return;
        case 3:
            blanks(out, 1);
            twoDigits(out, year % 100);
            return;
        case 4:
            fourDigitYearOrStars(out, year);
            return;
        default:
            break;
    }
    if (year <= LARGEST_FOUR_DIGIT_YEAR) {
        blanks(out, positions - 4);
        fourDigits(out, year);
    } else {
        blanks(out, positions - 5);
        fiveDigits(out, year);
    }
}

// value 0..999 as three digits, with leading zeros.
inline void threeDigits(char*& out, int value) noexcept {
    digit(out, value / 100);
    twoDigits(out, value % 100);
}

}  // namespace kivo::format::field
