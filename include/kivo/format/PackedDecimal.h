#pragma once

#include "kivo/Export.h"

// Machine decimal fields of a fixed count of digits. The value is the magnitude: scaled by 10^decimals
// (decimals > 0), rounded half up and written exactly; a value that does not fit fills the field with
// nines. Neither routine writes a sign: the caller applies its own sign code afterwards.
namespace kivo::format {

// Two digits per byte, the more significant in the high nibble: digits / 2 bytes, plus one byte for
// an odd count whose low nibble (the sign's place) is left 0. The example shows the bytes in hex.
// Example: writePackedDecimal(123.45, 7, 2) -> 00123450
KIVO_EXPORT void writePackedDecimal(char* out, double value, int digits, int decimals);

// One byte per digit: zone + digit, most significant first (zone 0x30 gives ASCII digits).
// Example: writeZonedDecimal(123.45, 6, 2, 0x30) -> "012345"
KIVO_EXPORT void writeZonedDecimal(char* out, double value, int digits, int decimals, char zone);

}  // namespace kivo::format
