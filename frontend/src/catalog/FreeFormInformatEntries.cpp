#include "kivodt/Catalog.h"

namespace kivodt {

namespace {

// The free-form informats read whatever layout fits the field, so any width from 1 to the widest field
// the front end offers will do; the defaults fit the usual layouts: "15JAN2000" (9),
// "2000-01-15T10:30:00" (19) and "10:30:00" (8). They take no decimals.
constexpr int MAX_FIELD = 32;
constexpr Limits FREE_FORM(int defaultWidth) { return {1, MAX_FIELD, defaultWidth, 0, 0, false}; }

constexpr InformatEntry ENTRIES[] = {
    {"ANYDTDTE", anydtdteInformat, FREE_FORM(9)},
    {"ANYDTDTM", anydtdtmInformat, FREE_FORM(19)},
    {"ANYDTTME", anydttmeInformat, FREE_FORM(8)},
};

}  // namespace

std::span<const InformatEntry> freeFormInformatEntries() { return ENTRIES; }

}  // namespace kivodt
