#pragma once

#include "kivox/Export.h"

namespace kivo {
namespace sbcs {

// Class bits of ctypeTable_: a letter has a bit of CTYPE_ALPHA set, a digit CTYPE_DIGIT; so the set
// 3 tests letters, 4 digits and 7 letters or digits.
inline constexpr unsigned char CTYPE_UPPER = 0x01;
inline constexpr unsigned char CTYPE_LOWER = 0x02;
inline constexpr unsigned char CTYPE_ALPHA = CTYPE_UPPER | CTYPE_LOWER;
inline constexpr unsigned char CTYPE_DIGIT = 0x04;
inline constexpr unsigned char CTYPE_ALNUM = CTYPE_ALPHA | CTYPE_DIGIT;
inline constexpr unsigned char CTYPE_SPACE = 0x08;
inline constexpr unsigned char CTYPE_PUNCT = 0x10;
inline constexpr unsigned char CTYPE_CNTRL = 0x20;

namespace detail {
// Indexed by the unsigned byte; ASCII classes only, bytes above 0x7F have no class.
KIVOX_EXPORT extern const unsigned char ctypeTable_[256];
// Indexed by the unsigned byte; maps 'A'..'Z' to 'a'..'z' and every other byte to itself.
KIVOX_EXPORT extern const unsigned char tolowerTable_[256];
}  // namespace detail
}  // namespace sbcs

class KIVOX_EXPORT CharRepresentation {
public:
    // '0'..'9' give 0..9, letters of either case give 10..35, every other byte gives 0xFF.
    static const unsigned char ASCII_ALPHANUMERIC_TABLE[256];
};

}  // namespace kivo
