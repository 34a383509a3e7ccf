#pragma once

#include <cstddef>
#include <span>

#include "kivodt/Catalog.h"

namespace kivo {
class ServiceLocator;
}

// Whole arrays through one format or informat, split over several threads: the plain C++ entry that a
// Python front end binds. Each element's output is exactly what one call gives it, in input order,
// whatever the number of threads.
//
// Threads: at most `threads` run a batch, the calling thread being one of them, and never more than there
// are elements; fewer than 1 counts as 1. A thread that cannot be started leaves its share to the calling
// thread. Every thread of the batch has `locator` as its current service locator while it converts, so a
// caller can give one batch its own options without touching other threads; with no locator they all use
// the caller's current one (or the fallback when it has none), as a one-thread call would.
namespace kivodt {

// Texts laid end to end in one buffer: text i is bytes[offsets[i], offsets[i + 1]), so n texts take n + 1
// offsets (none at all for no texts). "15JAN2000" and "2000-01-15" are "15JAN20002000-01-15", {0, 9, 19}.
struct TextColumn {
    const char* bytes = nullptr;
    std::span<const std::size_t> offsets;
};

// The informat batch's width for fields that are their whole text (kivodt's informat spec without width).
inline constexpr int WHOLE_TEXT = 0;

// Writes values[i] into fields[i * width, (i + 1) * width), which holds values.size() * width bytes:
// DATE9. over {22356, 0} gives "17MAR202101JAN1960". Throws std::invalid_argument for a width or decimals
// outside the entry's limits.
void formatBatch(const FormatEntry& entry, int width, int decimals, std::span<const double> values, char* fields,
                 int threads, kivo::ServiceLocator* locator = nullptr);

// Reads each text as kivodt does: the field is its first `width` bytes, or all of it when it is shorter
// or width is WHOLE_TEXT, and the informat gets the field's length and then the text's length. results[i]
// is the value stored (the missing value when none was) and accepted[i] is 1 when the informat accepted
// the text, else 0. Throws std::invalid_argument when the counts of texts, results and accepted flags
// differ, the offsets go backwards or a text is longer than an int, or for a width or decimals outside
// the entry's limits.
void informatBatch(const InformatEntry& entry, int width, int decimals, TextColumn texts, std::span<double> results,
                   std::span<unsigned char> accepted, int threads, kivo::ServiceLocator* locator = nullptr);

}  // namespace kivodt
