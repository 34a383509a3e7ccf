#pragma once

#include "kivo/Export.h"

namespace kivo::format::datetime {

// For 0 <= x < 1: how many zeros stand between the point and the first significant digit of x
// (0 for x >= 0.1, 1 for x >= 0.01, ... 14 for x >= 1e-15, 15 below that and for zero).
// Example: numberOfLeadingZeroes(0.0625) -> 1
KIVO_EXPORT int numberOfLeadingZeroes(const double& x);

// Writes x >= 0 as exactly intWidth integer digits (leading zeros; only the lowest intWidth digits of a
// longer integer part), a point (always, even with no decimals) and decimals digits of the fraction,
// truncated: callers add their half unit before they call. At most 15 significant digits are produced;
// the rest of the decimals are zeros. Advances out past what it wrote.
// Example: writeRealNumber(7.25, 2, 3) -> "07.250"
KIVO_EXPORT void writeRealNumber(char*& out, double x, int intWidth, int decimals);

}  // namespace kivo::format::datetime
