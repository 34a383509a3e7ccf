#include "kivoconvert/Catalog.h"
#include "kivoconvert/NumericFormats.h"

namespace kivoconvert {

namespace {

constexpr FormatEntry ENTRIES[] = {
    {"BEST", "", numeric::bestFormat, "a number in as many significant digits as fit", limits::BEST, ValueKind::NUMBER},
    {"D", "", numeric::dFormat, "a number with about `d` significant decimals, aligned for a column", limits::D,
     ValueKind::NUMBER},
    {"E", "", numeric::eFormat, "a number in scientific notation", limits::E, ValueKind::NUMBER},
    {"", "", numeric::blankFormat, "a number with `d` decimals", limits::FIXED_DECIMALS, ValueKind::NUMBER},
    {"PERCENT", "", numeric::percentFormat, "a number times 100 with a percent sign, a negative one in parentheses",
     limits::PERCENT, ValueKind::NUMBER},
};

}  // namespace

std::span<const FormatEntry> numericFormatEntries() { return ENTRIES; }

}  // namespace kivoconvert
