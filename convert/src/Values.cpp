#include "kivoconvert/Values.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>

#include "kivox/Missing.h"

namespace kivoconvert {

namespace {

std::string_view trimmed(std::string_view text) {
    const char* begin = text.data();
    const char* end = begin + text.size();
    kivo::findNumericStartAndEnd(begin, end);
    return {begin, static_cast<std::size_t>(end - begin)};
}

// Whether a decimal number lies below 1 in magnitude, for a number out of a double's range, which is
// then far below 1 or far above it. Its size is the places of its integer part, or minus the zeros
// after its point when it has none (1 more than the decimal logarithm, rounded down), plus its exponent.
bool belowOne(std::string_view number) {
    constexpr long long FAR = 1'000'000'000;  // past any double, in either direction
    std::size_t pos = number[0] == '-' ? 1 : 0;
    long long size = 0;
    bool significant = false, afterPoint = false;
    for (; pos < number.size() && number[pos] != 'e' && number[pos] != 'E'; ++pos) {
        if (number[pos] == '.') {
            afterPoint = true;
        } else if (!significant && number[pos] == '0') {
            size -= afterPoint ? 1 : 0;
        } else {
            significant = true;
            size += afterPoint ? 0 : 1;
        }
    }
    long long exponent = 0;
    bool negativeExponent = false;
    if (pos < number.size()) {  // at the "e", which from_chars reads only with digits after it
        ++pos;
        negativeExponent = number[pos] == '-';
        pos += number[pos] == '-' || number[pos] == '+' ? 1 : 0;
        for (; pos < number.size(); ++pos) {
            exponent = std::min(exponent * 10 + (number[pos] - '0'), FAR);
        }
    }
    return !significant || size + (negativeExponent ? -exponent : exponent) <= 0;
}

int hexDigit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

}  // namespace

bool isMissingValue(double value) {
    return (std::bit_cast<std::uint64_t>(value) & kivo::lum_numeric::MISSING_MASK) == kivo::lum_numeric::MISSING_MASK;
}

bool parseValue(std::string_view text, double& value) {
    const std::string_view body = trimmed(text);
    if (body.empty()) {
        return false;
    }
    if (kivo::findNumericMissing(body.data(), body.data() + body.size(), value)) {
        return true;
    }
    // from_chars takes no leading "+".
    const std::string_view number = body[0] == '+' && body.size() > 1 && body[1] != '-' ? body.substr(1) : body;
    double parsed = 0;
    const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), parsed);
    if (end != number.data() + number.size()) {
        return false;
    }
    if (error == std::errc::result_out_of_range) {
        // from_chars gives no value for a number outside the doubles; one below the smallest
        // subnormal rounds to zero, keeping its sign.
        if (!belowOne(number)) {
            return false;
        }
        parsed = number[0] == '-' ? -0.0 : 0.0;
    } else if (error != std::errc()) {
        return false;
    }
    value = parsed;
    return true;
}

std::size_t printValue(double value, char* out) {
    if (isMissingValue(value)) {
        const char c = kivo::lum_numeric::missingChar(value);
        out[0] = '.';
        if (c == '.') {
            return 1;
        }
        out[1] = c;
        return 2;
    }
    const auto result = std::to_chars(out, out + 32, value);
    return static_cast<std::size_t>(result.ptr - out);
}

bool decodeHex(std::string_view text, std::string& bytes) {
    const std::string_view body = trimmed(text);
    if (body.size() % 2 != 0) {
        return false;
    }
    bytes.clear();
    for (std::size_t i = 0; i < body.size(); i += 2) {
        const int high = hexDigit(body[i]);
        const int low = hexDigit(body[i + 1]);
        if (high < 0 || low < 0) {
            return false;
        }
        bytes.push_back(static_cast<char>(high * 16 + low));
    }
    return true;
}

void encodeHex(const char* bytes, std::size_t size, char* out) {
    constexpr char HEX[] = "0123456789ABCDEF";
    for (std::size_t i = 0; i < size; ++i) {
        const auto byte = static_cast<unsigned char>(bytes[i]);
        out[2 * i] = HEX[byte >> 4];
        out[2 * i + 1] = HEX[byte & 0xF];
    }
}

bool isBlankText(std::string_view text) noexcept {
    for (const char c : text) {
        if (c != ' ' && c != '\t' && c != '\0') {
            return false;
        }
    }
    return true;
}

bool isMissingNotation(std::string_view text) noexcept {
    const std::string_view body = trimmed(text);
    double ignored = 0;
    return kivo::findNumericMissing(body.data(), body.data() + body.size(), ignored);
}

bool freeFormType(std::string_view text, kivo::AnydtType& type) noexcept {
    double value = 0;
    const int width = static_cast<int>(text.size());
    return kivo::anydtInformats(text.data(), width, width, 0, value, type);
}

char missingCode(double value) noexcept {
    if (isMissingValue(value)) {
        return kivo::lum_numeric::missingChar(value);
    }
    return std::isnan(value) ? '.' : '\0';
}

char missingCode(std::string_view text) noexcept {
    if (isBlankText(text)) {
        return '.';
    }
    const std::string_view body = trimmed(text);
    double value = 0;
    return kivo::findNumericMissing(body.data(), body.data() + body.size(), value) ? missingCode(value) : '\0';
}

}  // namespace kivoconvert
