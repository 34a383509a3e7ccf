#pragma once

#include "formats/FailureSite.h"

// Where the date, time and datetime formats report their broken invariants. A writer handed a width
// outside its table stops here rather than write outside the field; the host passes only the widths
// each format declares (FieldLimits.h, which the tables are checked against where they are compiled),
// so none of these is reached from a valid call.
namespace kivo::format::datetime::failure {

inline constexpr const char* SOURCE = "src/formats/datetime_formats/DatetimeFormats";

// writeRealNumber: a scaled fraction above its limit, which the callers' rounding rules out.
inline constexpr FailureSite SCALED_FRACTION{"intScaledValue == maxScaledValue", SOURCE, 307};
// DATEAMPM: a level of detail outside 1..5 when rounding or writing the time.
inline constexpr FailureSite DATEAMPM_ROUNDING{"false", SOURCE, 642};
inline constexpr FailureSite DATEAMPM_WRITING{"false", SOURCE, 704};

// The day-month-year writers: a width outside limits::DAY_MONTH_YEAR (with a separator) or
// limits::DAY_MONTH_YEAR_RUN_TOGETHER (the N writers).
inline constexpr FailureSite DDMMYYX_WIDTH{"false", SOURCE, 1036};
inline constexpr FailureSite MMDDYYX_WIDTH{"false", SOURCE, 1089};
inline constexpr FailureSite YYMMDDX_WIDTH{"false", SOURCE, 1142};
inline constexpr FailureSite DDMMYYN_WIDTH{"false", SOURCE, 1181};
inline constexpr FailureSite MMDDYYN_WIDTH{"false", SOURCE, 1220};
inline constexpr FailureSite YYMMDDN_WIDTH{"false", SOURCE, 1259};
// MINGUO and NENGO: a width outside limits::MINGUO and limits::NENGO.
inline constexpr FailureSite MINGUO_WIDTH{"false", SOURCE, 1676};
inline constexpr FailureSite NENGO_WIDTH{"false", SOURCE, 1839};

inline constexpr FailureSite ALL[] = {SCALED_FRACTION, DATEAMPM_ROUNDING, DATEAMPM_WRITING,
                                      DDMMYYX_WIDTH,   MMDDYYX_WIDTH,     YYMMDDX_WIDTH,
                                      DDMMYYN_WIDTH,   MMDDYYN_WIDTH,     YYMMDDN_WIDTH,
                                      MINGUO_WIDTH,    NENGO_WIDTH};

}  // namespace kivo::format::datetime::failure
