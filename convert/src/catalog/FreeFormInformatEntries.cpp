#include "kivoconvert/Catalog.h"

namespace kivoconvert {

namespace {

// The free-form informats read whatever layout fits the field, so any width from 1 to the widest field
// the engine offers will do; the defaults fit the usual layouts: "15JAN2000" (9),
// "2000-01-15T10:30:00" (19) and "10:30:00" (8). They take no decimals.
constexpr Limits FREE_FORM(int defaultWidth) { return {1, MAX_FIELD, defaultWidth, Decimals::NOT_USED}; }

constexpr InformatEntry ENTRIES[] = {
    KIVO_INFORMAT_ENTRY(ANYDTDTE, anydtdte, FREE_FORM(9), ValueKind::DAY, Reading::ANY_LAYOUT),
    KIVO_INFORMAT_ENTRY(ANYDTDTM, anydtdtm, FREE_FORM(19), ValueKind::DATETIME, Reading::ANY_LAYOUT),
    KIVO_INFORMAT_ENTRY(ANYDTTME, anydttme, FREE_FORM(8), ValueKind::TIME, Reading::ANY_LAYOUT),
};

}  // namespace

std::span<const InformatEntry> freeFormInformatEntries() { return ENTRIES; }

}  // namespace kivoconvert
