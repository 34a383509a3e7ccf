#include "kivoconvert/Catalog.h"

namespace kivoconvert {

namespace {

constexpr ValueKind DAY = ValueKind::DAY;
constexpr ValueKind DATETIME = ValueKind::DATETIME;
constexpr ValueKind TIME = ValueKind::TIME;
constexpr Reading READS_BYTES = Reading::BYTES;
constexpr bool STORES_MISSING_WHEN_REJECTING = true;

constexpr InformatEntry ENTRIES[] = {
    KIVO_INFORMAT_ENTRY(PDTIME, pdtime, "packed 0HHMMSS and a sign nibble (bytes, as hex pairs)", "0012345C|0012345D",
                        limits::PACKED_WORD, TIME, READS_BYTES),
    KIVO_INFORMAT_ENTRY(RMFDUR, rmfdur,
                        "packed MMSSttt and a sign nibble: minutes, seconds and thousandths (bytes, as hex pairs)",
                        "1234567C", limits::PACKED_WORD, TIME, READS_BYTES),
    KIVO_INFORMAT_ENTRY(RMFSTAMP, rmfstamp, "packed time 0HHMMSS then packed date 0CYYDDD (bytes, as hex pairs)",
                        "0012345F0121076F", limits::MACHINE_STAMP, DATETIME, READS_BYTES),
    KIVO_INFORMAT_ENTRY(SMFSTAMP, smfstamp,
                        "hundredths of a second since midnight, then packed date 0CYYDDD (bytes, as hex pairs)",
                        "000001F40121076F", limits::MACHINE_STAMP, DATETIME, READS_BYTES),
    KIVO_INFORMAT_ENTRY(SHRSTAMP, shrstamp, "packed date 0CYYDDD, then HHMMSShh as plain nibbles (bytes, as hex pairs)",
                        "0121076F13453025", limits::MACHINE_STAMP, DATETIME, READS_BYTES),
    KIVO_INFORMAT_ENTRY(TODSTAMP, todstamp,
                        "the 8-byte time-of-day clock, microseconds since 1900 in bit 51 (bytes, as hex pairs)",
                        "6BA02766FC000000", limits::CLOCK_BYTES, DATETIME, READS_BYTES),
    KIVO_INFORMAT_ENTRY(MSEC, msec, "the time of day of the 8-byte time-of-day clock (bytes, as hex pairs)",
                        "0000000000001000", limits::CLOCK_BYTES, TIME, READS_BYTES),
    KIVO_INFORMAT_ENTRY(STIMER, stimer, "an elapsed time: hours, minutes, seconds", "1:02:03.5|90", limits::STIMER_TEXT,
                        TIME, Reading::ONE_LAYOUT, STORES_MISSING_WHEN_REJECTING),
    KIVO_INFORMAT_ENTRY(TU, tu, "timer units of 1/38400 second (bytes, as hex pairs)", "00009600", limits::PACKED_WORD,
                        TIME, READS_BYTES),
    KIVO_INFORMAT_ENTRY(PDJULI, pdjuli,
                        "packed decimal 0CYYDDD: century since 1900, year and day of the year (bytes, as hex pairs)",
                        "0121076F", limits::PACKED_WORD, DAY, READS_BYTES),
    KIVO_INFORMAT_ENTRY(PDJULG, pdjulg, "packed decimal YYYYDDD or YYDDD (bytes, as hex pairs)", "2021076F|21076F",
                        limits::PDJULG_BYTES, DAY, READS_BYTES),
    KIVO_INFORMAT_ENTRY(WEEKU, weeku, "year, week and weekday under Sunday weeks", "2021W1104|2021-W11-04",
                        limits::WEEK_TEXT, DAY),
    KIVO_INFORMAT_ENTRY(WEEKV, weekv, "ISO 8601 year, week and weekday", "2021W1103|2021-W11-03|2021-W11",
                        limits::WEEK_TEXT, DAY),
    KIVO_INFORMAT_ENTRY(WEEKW, weekw, "year, week and weekday under Monday weeks", "2021W1103|2021-W11-03",
                        limits::WEEK_TEXT, DAY),
};

}  // namespace

std::span<const InformatEntry> machineInformatEntries() { return ENTRIES; }

}  // namespace kivoconvert
