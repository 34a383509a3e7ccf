#pragma once

#include "formats/FailureSite.h"

// Where the fixed-layout and machine-timestamp informats report their broken invariants.
namespace kivo::informat::failure {

using format::FailureSite;

inline constexpr const char* SOURCE = "src/formats/datetime_formats/DatetimeInformats";

// A packed-decimal reader code outside 0..3.
inline constexpr FailureSite PDTIME_READER_CODE{"false", SOURCE, 1542};
inline constexpr FailureSite RMFDUR_READER_CODE{"false", SOURCE, 1589};
inline constexpr FailureSite RMFSTAMP_READER_CODE{"false", SOURCE, 1656};
// A day of the week outside 1..7 in the week informats.
inline constexpr FailureSite WEEKV_DAY_OF_WEEK{"Can't happen!", SOURCE, 2428};
inline constexpr FailureSite WEEKW_DAY_OF_WEEK{"Can't happen!", SOURCE, 2496};

inline constexpr FailureSite ALL[] = {PDTIME_READER_CODE, RMFDUR_READER_CODE, RMFSTAMP_READER_CODE,
                                      WEEKV_DAY_OF_WEEK, WEEKW_DAY_OF_WEEK};

}  // namespace kivo::informat::failure
