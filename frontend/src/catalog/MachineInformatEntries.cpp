#include "kivodt/Catalog.h"

namespace kivodt {

namespace {

// The machine-form informats read exactly the bytes of their word (PDJULG 3 or 4, TODSTAMP and MSEC
// 1 to 8, the high bytes of the clock); they are given as hex pairs and ignore the decimals. STIMER is
// text, from one digit up; a week date is at least "W05" and at most the widest field, its usual
// layout 2021-W05-03.
constexpr Limits BYTES(int minWidth, int maxWidth, int defaultWidth) {
    return {minWidth, maxWidth, defaultWidth, Decimals::NOT_USED};
}
constexpr Limits TEXT(int minWidth, int defaultWidth) {
    return {minWidth, MAX_FIELD, defaultWidth, Decimals::PASSED_THROUGH};
}

constexpr ValueKind DAY = ValueKind::DAY;
constexpr ValueKind DATETIME = ValueKind::DATETIME;
constexpr ValueKind TIME = ValueKind::TIME;
constexpr bool READS_BYTES = true;

constexpr InformatEntry ENTRIES[] = {
    KIVODT_INFORMAT(PDTIME, pdtime, BYTES(4, 4, 4), TIME, READS_BYTES),
    KIVODT_INFORMAT(RMFDUR, rmfdur, BYTES(4, 4, 4), TIME, READS_BYTES),
    KIVODT_INFORMAT(RMFSTAMP, rmfstamp, BYTES(8, 8, 8), DATETIME, READS_BYTES),
    KIVODT_INFORMAT(SMFSTAMP, smfstamp, BYTES(8, 8, 8), DATETIME, READS_BYTES),
    KIVODT_INFORMAT(SHRSTAMP, shrstamp, BYTES(8, 8, 8), DATETIME, READS_BYTES),
    KIVODT_INFORMAT(TODSTAMP, todstamp, BYTES(1, 8, 8), DATETIME, READS_BYTES),
    KIVODT_INFORMAT(MSEC, msec, BYTES(1, 8, 8), TIME, READS_BYTES),
    KIVODT_INFORMAT(STIMER, stimer, TEXT(1, 8), TIME, false, true),
    KIVODT_INFORMAT(TU, tu, BYTES(4, 4, 4), TIME, READS_BYTES),
    KIVODT_INFORMAT(PDJULI, pdjuli, BYTES(4, 4, 4), DAY, READS_BYTES),
    KIVODT_INFORMAT(PDJULG, pdjulg, BYTES(3, 4, 4), DAY, READS_BYTES),
    KIVODT_INFORMAT(WEEKU, weeku, TEXT(3, 11), DAY),
    KIVODT_INFORMAT(WEEKV, weekv, TEXT(3, 11), DAY),
    KIVODT_INFORMAT(WEEKW, weekw, TEXT(3, 11), DAY),
};

}  // namespace

std::span<const InformatEntry> machineInformatEntries() { return ENTRIES; }

}  // namespace kivodt
