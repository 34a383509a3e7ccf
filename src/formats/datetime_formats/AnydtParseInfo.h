#pragma once

#include <cstdint>

// The parse record of the free-form reader: what the scanner found in one field, on the caller's stack.
namespace kivo::anydt {

// Class code of a separator run. The low byte holds the punctuation character; the bits above are flags.
inline constexpr std::uint32_t ST_NONE = 0;
inline constexpr std::uint32_t ST_CHAR_MASK = 0xFF;
inline constexpr std::uint32_t ST_BLANK_BEFORE = 0x100;
inline constexpr std::uint32_t ST_BLANK_AFTER = 0x200;
inline constexpr std::uint32_t ST_PUNCT = 0x400;
inline constexpr std::uint32_t ST_LISTED = 0x800;
inline constexpr std::uint32_t ST_MULTI = 0x1000;
inline constexpr std::uint32_t ST_AM = 0x2000;
inline constexpr std::uint32_t ST_PM = 0x4000;

// A listed separator character with nothing else around it: the codes the interpretation compares.
inline constexpr std::uint32_t ST_CLEAN = ST_PUNCT | ST_LISTED;
inline constexpr std::uint32_t ST_BLANK_SEP = ST_CLEAN | ' ';
inline constexpr std::uint32_t ST_DASH = ST_CLEAN | '-';
inline constexpr std::uint32_t ST_SLASH = ST_CLEAN | '/';
inline constexpr std::uint32_t ST_COLON = ST_CLEAN | ':';
inline constexpr std::uint32_t ST_DOT = ST_CLEAN | '.';

inline constexpr int MAX_VALUES = 7;
inline constexpr int MAX_SEPARATORS = MAX_VALUES + 1;

// Separator slot k lies in front of value k; slot valCount is the run after the last value.
struct ParseInfo {
    const char* sepStart[MAX_SEPARATORS];
    std::uint32_t sepType[MAX_SEPARATORS];
    std::int32_t sepLength[MAX_SEPARATORS];
    const char* valStart[MAX_VALUES];
    std::int64_t value[MAX_VALUES];
    std::int32_t valLength[MAX_VALUES];
    std::int32_t valCount;
};

// True when code is one listed separator character on its own (the blank separator included).
inline bool isCleanSeparator(std::uint32_t code) noexcept { return (code & ~ST_CHAR_MASK) == ST_CLEAN; }

// Cuts [begin, end) (already narrowed) into value tokens and separator runs. False when the field
// cannot be a date or time at all: an eighth value, a letter run that is no month name, a second
// month name, or a digit run beyond 64 bits. monthIndex is the slot of the month name, or -1.
bool scanField(const char* begin, const char* end, ParseInfo& pi, int& monthIndex) noexcept;

}  // namespace kivo::anydt
