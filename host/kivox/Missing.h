#pragma once

#include "kivox/Export.h"

namespace kivo {
namespace lum_numeric {

// A missing value is any double whose top 16 bits are all set. The ordinary one prints as ".", the
// special ones as "_" or a letter A..Z.
inline constexpr unsigned long long MISSING_MASK = 0xFFFF000000000000ULL;

KIVOX_EXPORT extern const double MISSING;
KIVOX_EXPORT extern const double MISSING__;

// The special missing value written "." followed by c ('_' or a letter of either case); MISSING for
// any other character.
KIVOX_EXPORT double specialMissing(char c) noexcept;

// The character of a missing value: '.', '_' or an upper-case letter.
KIVOX_EXPORT char missingChar(double value) noexcept;

}  // namespace lum_numeric

// True when [begin, end) is exactly ".", "._" or "." and one letter (either case); the matching missing
// value is stored in result. Otherwise false, and result is left alone.
KIVOX_EXPORT bool findNumericMissing(const char* begin, const char* end, double& result) noexcept;

// Narrows [begin, end) past leading and trailing blanks, tabs and NUL bytes.
KIVOX_EXPORT void findNumericStartAndEnd(const char*& begin, const char*& end) noexcept;

}  // namespace kivo
