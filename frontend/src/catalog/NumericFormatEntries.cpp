#include "kivodt/Catalog.h"
#include "kivodt/NumericFormats.h"

namespace kivodt {

namespace {

// The real layouts plan up to 32 digit places, so 32 is also the widest numeric field.
constexpr int MAX_FIELD = 32;

constexpr FormatEntry ENTRIES[] = {
    // Width 1 still holds a one-digit number (or a single 0 for a small negative one).
    {"BEST", numeric::bestFormat, {1, MAX_FIELD, 12, 0, 0, false}},
    // The decimals are the significant decimals wanted, not a position: no bound by the width.
    {"D", numeric::dFormat, {1, MAX_FIELD, 12, 0, MAX_FIELD - 1, false}},
    // 0.0E+00 is the shortest field the E layout writes.
    {"E", numeric::eFormat, {7, MAX_FIELD, 12, 0, 0, false}},
    // The plain layout: "12.3"; the decimals place the missing character on the point.
    {"", numeric::blankFormat, {1, MAX_FIELD, 12, 0, MAX_FIELD - 1, true}},
    // A negative percentage needs "(", one digit and "%)".
    {"PERCENT", numeric::percentFormat, {4, MAX_FIELD, 6, 0, MAX_FIELD - 1, true}},
};

}  // namespace

std::span<const FormatEntry> numericFormatEntries() { return ENTRIES; }

}  // namespace kivodt
