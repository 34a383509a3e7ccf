#pragma once

#include "kivo/Export.h"

namespace kivo {

// The characters that may separate the parts of a date or time in text: blank and
// !#$%&()*+-./:;<=>?[\]^_{|}~ (not the comma, quotes, "@" or the backquote).
class DefaultSeparators {
public:
    // Indexed by the unsigned byte: 1 for a separator character, 0 for every other byte. Filled when
    // the library is loaded, read-only afterwards.
    KIVO_EXPORT static unsigned char SEPARATORS_TABLE[256];
    // The load-time object whose construction fills the table.
    KIVO_EXPORT static DefaultSeparators instance_;

    static bool isSeparator(unsigned char c) noexcept { return SEPARATORS_TABLE[c] != 0; }

private:
    DefaultSeparators() noexcept;
};

}  // namespace kivo
