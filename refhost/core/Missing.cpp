#include <bit>
#include <cstdint>

#include "kivox/Missing.h"

namespace kivo {
namespace lum_numeric {

namespace {

// The missing value's character sits in bits 40..47 below the all-ones top 16 bits.
constexpr int CHAR_SHIFT = 40;

constexpr double missingOf(char c) noexcept {
    return std::bit_cast<double>(MISSING_MASK | (static_cast<std::uint64_t>(static_cast<unsigned char>(c)) << CHAR_SHIFT));
}

constexpr bool isSpecialChar(char c) noexcept { return c == '_' || (c >= 'A' && c <= 'Z'); }

constexpr char upper(char c) noexcept { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

}  // namespace

const double MISSING = missingOf('.');
const double MISSING__ = missingOf('_');

double specialMissing(char c) noexcept {
    const char u = upper(c);
    return isSpecialChar(u) ? missingOf(u) : MISSING;
}

char missingChar(double value) noexcept {
    const char c = static_cast<char>((std::bit_cast<std::uint64_t>(value) >> CHAR_SHIFT) & 0xFF);
    return isSpecialChar(c) ? c : '.';
}

}  // namespace lum_numeric

namespace {
constexpr bool isFieldPadding(char c) noexcept { return c == ' ' || c == '\t' || c == '\0'; }
constexpr bool isLetter(char c) noexcept { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }
}  // namespace

bool findNumericMissing(const char* begin, const char* end, double& result) noexcept {
    const long length = end - begin;
    if (length < 1 || length > 2 || begin[0] != '.') {
        return false;
    }
    if (length == 1) {
        result = lum_numeric::MISSING;
        return true;
    }
    if (begin[1] != '_' && !isLetter(begin[1])) {
        return false;
    }
    result = lum_numeric::specialMissing(begin[1]);
    return true;
}

void findNumericStartAndEnd(const char*& begin, const char*& end) noexcept {
    while (begin < end && isFieldPadding(*begin)) {
        ++begin;
    }
    while (end > begin && isFieldPadding(end[-1])) {
        --end;
    }
}

}  // namespace kivo
