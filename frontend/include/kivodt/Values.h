#pragma once

#include <string>
#include <string_view>

namespace kivodt {

// A value as a user writes it: a decimal number ("22356", "-0.5", "1e9"; "inf" and "nan" too, to show
// how formats treat them) or a missing-value notation (".", "._", ".A" ... ".Z", either case).
// Blanks around it are ignored. False for anything else.
bool parseValue(std::string_view text, double& value);

// True for a missing value (".", "._", ".A" ... ".Z" and the host's other missing doubles).
bool isMissingValue(double value);

// A value read by an informat, as kivodt prints it: the missing notation for a missing value, else the
// shortest decimal that reads back to the same double. Returns the length written (at most 32).
std::size_t printValue(double value, char* out);

// Hex pairs ("0A1b") to bytes; false for an odd count or a character that is not a hex digit.
bool decodeHex(std::string_view text, std::string& bytes);
// Bytes to upper-case hex pairs; out must hold 2 * size characters.
void encodeHex(const char* bytes, std::size_t size, char* out);

// How many bytes of a text a message shows before it cuts the rest.
inline constexpr std::size_t SHOWN_TEXT_BYTES = 60;

// A text as a message shows it: in double quotes, with every byte that is not printable ASCII written
// as \xHH ("\t" for a tab, \" and \\ for a quote and a backslash): "a\x00b". A longer text shows its
// first SHOWN_TEXT_BYTES bytes in the quotes, then its length: "<first 60 bytes>"... (10485760 bytes).
std::string quotedForMessage(std::string_view text);

}  // namespace kivodt
