#include "kivoconvert/Catalog.h"

namespace kivoconvert {

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
constexpr Reading READS_BYTES = Reading::BYTES;
constexpr bool STORES_MISSING_WHEN_REJECTING = true;

constexpr InformatEntry ENTRIES[] = {
    KIVO_INFORMAT_ENTRY(PDTIME, pdtime, BYTES(4, 4, 4), TIME, READS_BYTES),
    KIVO_INFORMAT_ENTRY(RMFDUR, rmfdur, BYTES(4, 4, 4), TIME, READS_BYTES),
    KIVO_INFORMAT_ENTRY(RMFSTAMP, rmfstamp, BYTES(8, 8, 8), DATETIME, READS_BYTES),
    KIVO_INFORMAT_ENTRY(SMFSTAMP, smfstamp, BYTES(8, 8, 8), DATETIME, READS_BYTES),
    KIVO_INFORMAT_ENTRY(SHRSTAMP, shrstamp, BYTES(8, 8, 8), DATETIME, READS_BYTES),
    KIVO_INFORMAT_ENTRY(TODSTAMP, todstamp, BYTES(1, 8, 8), DATETIME, READS_BYTES),
    KIVO_INFORMAT_ENTRY(MSEC, msec, BYTES(1, 8, 8), TIME, READS_BYTES),
    KIVO_INFORMAT_ENTRY(STIMER, stimer, TEXT(1, 8), TIME, Reading::ONE_LAYOUT, STORES_MISSING_WHEN_REJECTING),
    KIVO_INFORMAT_ENTRY(TU, tu, BYTES(4, 4, 4), TIME, READS_BYTES),
    KIVO_INFORMAT_ENTRY(PDJULI, pdjuli, BYTES(4, 4, 4), DAY, READS_BYTES),
    KIVO_INFORMAT_ENTRY(PDJULG, pdjulg, BYTES(3, 4, 4), DAY, READS_BYTES),
    KIVO_INFORMAT_ENTRY(WEEKU, weeku, TEXT(3, 11), DAY),
    KIVO_INFORMAT_ENTRY(WEEKV, weekv, TEXT(3, 11), DAY),
    KIVO_INFORMAT_ENTRY(WEEKW, weekw, TEXT(3, 11), DAY),
};

}  // namespace

std::span<const InformatEntry> machineInformatEntries() { return ENTRIES; }

}  // namespace kivoconvert
