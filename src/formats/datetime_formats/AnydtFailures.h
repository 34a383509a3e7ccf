#pragma once

#include "formats/FailureSite.h"

// Where the free-form reader reports its broken invariants: one source path and fixed line numbers,
// so that a report names the same place whichever file of the reader the check sits in.
namespace kivo::anydt::failure {

using format::FailureSite;

inline constexpr const char* SOURCE = "src/formats/datetime_formats/AnydtInformats";

inline constexpr FailureSite ILLEGAL_DATESTYLE{"illegal datestyle", SOURCE, 77};
inline constexpr FailureSite TIME_TOO_FEW_VALUES{"pi.valCount >= index + 2", SOURCE, 345};
inline constexpr FailureSite TIME_TOO_MANY_VALUES{"pi.valCount <= index + 4", SOURCE, 346};
// The three-number date: a reading the checks proved valid is not, or the style is none of the six.
inline constexpr FailureSite THREE_NUMBER_STYLE{"illegal datestyle", SOURCE, 383};
inline constexpr FailureSite THREE_NUMBER_DDMMYY{"retDDMMYY", SOURCE, 389};
inline constexpr FailureSite THREE_NUMBER_YYMMDD{"retYYMMDD", SOURCE, 397};
// The run of six or eight digits.
inline constexpr FailureSite DIGIT_RUN_LENGTH{"(pi.valLength[0] == 6) || (pi.valLength[0] == 8)", SOURCE, 418};
inline constexpr FailureSite DIGIT_RUN_SEPARATOR{"pi.sepType[0] == ST_NONE", SOURCE, 419};
inline constexpr FailureSite DIGIT_RUN_DDMMYY{"retDDMMYY", SOURCE, 487};
inline constexpr FailureSite DIGIT_RUN_MMDDYY{"retMMDDYY", SOURCE, 491};
inline constexpr FailureSite DIGIT_RUN_YYMMDD{"retYYMMDD", SOURCE, 495};
inline constexpr FailureSite DIGIT_RUN_STYLE{"illegal datestyle", SOURCE, 509};

inline constexpr FailureSite ALL[] = {
    ILLEGAL_DATESTYLE,   TIME_TOO_FEW_VALUES, TIME_TOO_MANY_VALUES, THREE_NUMBER_STYLE, THREE_NUMBER_DDMMYY,
    THREE_NUMBER_YYMMDD, DIGIT_RUN_LENGTH,     DIGIT_RUN_SEPARATOR, DIGIT_RUN_DDMMYY,
    DIGIT_RUN_MMDDYY,    DIGIT_RUN_YYMMDD,    DIGIT_RUN_STYLE,
};

}  // namespace kivo::anydt::failure
