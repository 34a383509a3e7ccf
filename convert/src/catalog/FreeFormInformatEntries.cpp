#include "kivoconvert/Catalog.h"

namespace kivoconvert {

namespace {

// The free-form informats read whatever layout fits the field, so any width from 1 to the widest field
// the engine offers will do; the defaults fit the usual layouts: "15JAN2000" (9),
// "2000-01-15T10:30:00" (19) and "10:30:00" (8). They take no decimals.
constexpr Limits FREE_FORM(int defaultWidth) { return {1, MAX_FIELD, defaultWidth, Decimals::NOT_USED}; }

constexpr InformatEntry ENTRIES[] = {
    KIVO_INFORMAT_ENTRY(ANYDTDTE, anydtdte, "a date in almost any common layout, as a day serial", "17MAR2021|2021-03-17|03/17/2021|20210317|17-MAR-2021|2021-03-17T10:30", FREE_FORM(9), ValueKind::DAY, Reading::ANY_LAYOUT),
    KIVO_INFORMAT_ENTRY(ANYDTDTM, anydtdtm, "a date, time or datetime in almost any common layout, as a seconds serial", "2021-03-17T10:30:15|17MAR2021:10:30|03/17/2021|10:30 PM", FREE_FORM(19), ValueKind::DATETIME, Reading::ANY_LAYOUT),
    KIVO_INFORMAT_ENTRY(ANYDTTME, anydttme, "a time, or the time of day of a datetime, in almost any common layout", "10:30|10:30:15.25|10:30 PM|2021-03-17T10:30", FREE_FORM(8), ValueKind::TIME, Reading::ANY_LAYOUT),
};

}  // namespace

std::span<const InformatEntry> freeFormInformatEntries() { return ENTRIES; }

}  // namespace kivoconvert
