#pragma once

#include "kivox/Missing.h"

// The steps every text informat takes around its own reading: narrow the field past blanks, tabs and
// NUL bytes at both ends, recognise a missing-value notation (".", "._", ".A" ...), and store the value
// only when the text was accepted, so that a rejected text leaves the result exactly as it was.
//
// `read(cursor, end, value)` parses the narrowed field [cursor, end) and returns true with value set
// when the text is acceptable; it never reads at or past end. The binary informats (packed decimals,
// machine clocks) and the week informats take their bytes as given and do not come through here.
namespace kivo::informat::entry {

enum class MissingNotation {
    STORED,    // a notation stores the host's missing value and the informat accepts it
    REJECTED,  // a notation is text like any other, and the reading decides (it fails)
};

template <class Read>
inline int readTextField(const char* text, int width, double* result, Read read,
                         MissingNotation notation = MissingNotation::STORED) noexcept {
    const char* begin = text;
    const char* end = text + (width > 0 ? width : 0);
    findNumericStartAndEnd(begin, end);
    double value = 0;
    if (notation == MissingNotation::STORED && findNumericMissing(begin, end, value)) {
        *result = value;
        return 1;
    }
    if (!read(begin, end, value)) {
        return 0;
    }
    *result = value;
    return 1;
}

}  // namespace kivo::informat::entry
