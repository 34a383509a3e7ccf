#pragma once

#include <string>
#include <string_view>

#include "kivo/AnydtInformats.h"

namespace kivoconvert {

// A value as a user writes it: a decimal number ("22356", "-0.5", "1e9"; "inf" and "nan" too, to show
// how formats treat them) or a missing-value notation (".", "._", ".A" ... ".Z", either case).
// Blanks around it are ignored. A number too small for a double reads as the nearest one, 0 or a
// subnormal ("1e-400" is 0); one too large for it ("1e400") is refused, as is anything else.
bool parseValue(std::string_view text, double& value);

// True for a missing value (".", "._", ".A" ... ".Z" and the host's other missing doubles).
bool isMissingValue(double value);

// A value read by an informat, as the front ends print it: the missing notation for a missing value, else the
// shortest decimal that reads back to the same double. Returns the length written (at most 32).
std::size_t printValue(double value, char* out);

// Hex pairs ("0A1b") to bytes; false for an odd count or a character that is not a hex digit.
bool decodeHex(std::string_view text, std::string& bytes);
// Bytes to upper-case hex pairs; out must hold 2 * size characters.
void encodeHex(const char* bytes, std::size_t size, char* out);

// True for an empty text and one of blanks, tabs and NULs only: a value left out.
bool isBlankText(std::string_view text) noexcept;

// True when the text, without the blanks around it, is a missing-value notation (".", "._", ".A").
bool isMissingNotation(std::string_view text) noexcept;

// What the free-form reader finds in a whole text: a date, a datetime, a time, or a missing-value
// notation (ANYDT_MISSING); false when it recognises none of them.
bool freeFormType(std::string_view text, kivo::AnydtType& type) noexcept;

// The code of a missing value as the host tells it: '.' for the ordinary one, '_' or a letter for a
// special one (".a" read by an informat gives 'A'). A NaN of no missing pattern (numpy's) counts as
// the ordinary one, as the formats show it; a number gives '\0'.
char missingCode(double value) noexcept;

// The same for a text: '.' for a value left out (empty or blank, as an informat reads it), the code
// of a missing-value notation (".", "._", ".z" gives 'Z'), '\0' for any other text.
char missingCode(std::string_view text) noexcept;

}  // namespace kivoconvert
