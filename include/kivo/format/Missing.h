#pragma once

#include "kivo/Export.h"

namespace kivo::format {

// Writes a missing value (or a NaN or infinity, shown as the ordinary missing value) into the field:
// width blanks with the missing character at position width - decimals - 1, kept inside the field.
// Returns false, writing nothing, for a finite number.
// Example: writeMissing(MISSING, 5, 1) -> "   . "
KIVO_EXPORT bool writeMissing(const double& value, char* field, int width, int decimals);

// Fills the field with blanks and returns true for a value with the missing pattern; false otherwise.
// Example: writeMissingAsBlanks(MISSING, 3, 0) -> "   "
KIVO_EXPORT bool writeMissingAsBlanks(const double& value, char* field, int width, int decimals);

// The number of decimal digits of a positive value; 0 for zero and negatives.
// Example: numberOfDigits(12345) -> 5
KIVO_EXPORT int numberOfDigits(int value);
// Example: numberOfDigits(0LL) -> 0
KIVO_EXPORT int numberOfDigits(long long value);

}  // namespace kivo::format
