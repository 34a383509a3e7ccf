#include "kivoconvert/Catalog.h"
#include "kivoconvert/NumericFormats.h"

namespace kivoconvert {

namespace {

constexpr Limits limits(int minWidth, int defaultWidth, Decimals decimals) {
    return {minWidth, MAX_FIELD, defaultWidth, decimals};
}

// The engine's own numeric formats: no library symbol of their own.
constexpr FormatEntry ENTRIES[] = {
    // Width 1 still holds a one-digit number (or a single 0 for a small negative one).
    {"BEST", "", numeric::bestFormat, "a number in as many significant digits as fit", limits(1, 12, Decimals::NOT_USED), ValueKind::NUMBER},
    // The decimals are the significant decimals wanted, not a position: no bound by the width.
    {"D", "", numeric::dFormat, "a number with about `d` significant decimals, aligned for a column", limits(1, 12, Decimals::SIGNIFICANT), ValueKind::NUMBER},
    // 0.0E+00 is the shortest field the E layout writes.
    {"E", "", numeric::eFormat, "a number in scientific notation", limits(7, 12, Decimals::NOT_USED), ValueKind::NUMBER},
    // The plain layout: "12.3"; the decimals place the missing character on the point.
    {"", "", numeric::blankFormat, "a number with `d` decimals", limits(1, 12, Decimals::LAYOUT), ValueKind::NUMBER},
    // A negative percentage needs "(", one digit and "%)".
    {"PERCENT", "", numeric::percentFormat, "a number times 100 with a percent sign, a negative one in parentheses", limits(4, 6, Decimals::LAYOUT), ValueKind::NUMBER},
};

}  // namespace

std::span<const FormatEntry> numericFormatEntries() { return ENTRIES; }

}  // namespace kivoconvert
