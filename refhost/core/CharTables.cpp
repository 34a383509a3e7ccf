#include "kivox/CharTables.h"

namespace kivo {

namespace {

constexpr unsigned char classOf(int c) noexcept {
    if (c >= 'A' && c <= 'Z') return sbcs::CTYPE_UPPER;
    if (c >= 'a' && c <= 'z') return sbcs::CTYPE_LOWER;
    if (c >= '0' && c <= '9') return sbcs::CTYPE_DIGIT;
    if (c == ' ' || (c >= '\t' && c <= '\r')) return sbcs::CTYPE_SPACE;
    if (c > ' ' && c < 0x7F) return sbcs::CTYPE_PUNCT;
    if (c < ' ' || c == 0x7F) return sbcs::CTYPE_CNTRL;
    return 0;
}

constexpr unsigned char lowerOf(int c) noexcept {
    return static_cast<unsigned char>(c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c);
}

constexpr unsigned char alphanumericValueOf(int c) noexcept {
    if (c >= '0' && c <= '9') return static_cast<unsigned char>(c - '0');
    if (c >= 'A' && c <= 'Z') return static_cast<unsigned char>(c - 'A' + 10);
    if (c >= 'a' && c <= 'z') return static_cast<unsigned char>(c - 'a' + 10);
    return 0xFF;
}

}  // namespace

// Each table is a constant initialised at compile time: entry(c) for every byte c.
#define KIVOX_BYTES_4(entry, base) entry(base), entry(base + 1), entry(base + 2), entry(base + 3)
#define KIVOX_BYTES_16(entry, base) \
    KIVOX_BYTES_4(entry, base), KIVOX_BYTES_4(entry, base + 4), KIVOX_BYTES_4(entry, base + 8), KIVOX_BYTES_4(entry, base + 12)
#define KIVOX_BYTES_64(entry, base) \
    KIVOX_BYTES_16(entry, base), KIVOX_BYTES_16(entry, base + 16), KIVOX_BYTES_16(entry, base + 32), KIVOX_BYTES_16(entry, base + 48)
#define KIVOX_BYTES_256(entry) \
    KIVOX_BYTES_64(entry, 0), KIVOX_BYTES_64(entry, 64), KIVOX_BYTES_64(entry, 128), KIVOX_BYTES_64(entry, 192)

namespace sbcs::detail {
const unsigned char ctypeTable_[256] = {KIVOX_BYTES_256(classOf)};
const unsigned char tolowerTable_[256] = {KIVOX_BYTES_256(lowerOf)};
}  // namespace sbcs::detail

const unsigned char CharRepresentation::ASCII_ALPHANUMERIC_TABLE[256] = {KIVOX_BYTES_256(alphanumericValueOf)};

}  // namespace kivo
