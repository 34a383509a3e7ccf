#include "kivodt/Values.h"

#include <bit>
#include <charconv>
#include <cstdint>

#include "kivox/Missing.h"

namespace kivodt {

namespace {

std::string_view trimmed(std::string_view text) {
    const char* begin = text.data();
    const char* end = begin + text.size();
    kivo::findNumericStartAndEnd(begin, end);
    return {begin, static_cast<std::size_t>(end - begin)};
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
    if (error != std::errc() || end != number.data() + number.size()) {
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

std::string quotedForMessage(std::string_view text) {
    constexpr char HEX[] = "0123456789abcdef";
    const std::string_view shown = text.substr(0, SHOWN_TEXT_BYTES);
    std::string quoted = "\"";
    for (const char c : shown) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\') {
            quoted += '\\';
            quoted += c;
        } else if (c == '\t') {
            quoted += "\\t";
        } else if (byte >= 0x20 && byte < 0x7F) {
            quoted += c;
        } else {
            quoted += "\\x";
            quoted += HEX[byte >> 4];
            quoted += HEX[byte & 0xF];
        }
    }
    quoted += '"';
    if (shown.size() < text.size()) {
        quoted += "... (" + std::to_string(text.size()) + " bytes)";
    }
    return quoted;
}

}  // namespace kivodt
