#include "kivoconvert/Catalog.h"

namespace kivoconvert {

namespace {

constexpr InformatEntry ENTRIES[] = {
    KIVO_INFORMAT_ENTRY(ANYDTDTE, anydtdte, "a date in almost any common layout, as a day serial",
                        "17MAR2021|2021-03-17|03/17/2021|20210317|17-MAR-2021|2021-03-17T10:30", limits::ANYDTDTE,
                        ValueKind::DAY, Reading::ANY_LAYOUT),
    KIVO_INFORMAT_ENTRY(ANYDTDTM, anydtdtm, "a date, time or datetime in almost any common layout, as a seconds serial",
                        "2021-03-17T10:30:15|17MAR2021:10:30|03/17/2021|10:30 PM", limits::ANYDTDTM,
                        ValueKind::DATETIME, Reading::ANY_LAYOUT),
    KIVO_INFORMAT_ENTRY(ANYDTTME, anydttme, "a time, or the time of day of a datetime, in almost any common layout",
                        "10:30|10:30:15.25|10:30 PM|2021-03-17T10:30", limits::ANYDTTME, ValueKind::TIME,
                        Reading::ANY_LAYOUT),
};

}  // namespace

std::span<const InformatEntry> freeFormInformatEntries() { return ENTRIES; }

}  // namespace kivoconvert
