#pragma once

#include "formats/FailureSite.h"

// Where the real field record reports its broken invariants.
namespace kivo::format::realfields::failure {

inline constexpr const char* SOURCE = "src/formats/FormatRealFields";

// A point position whose remainder by three is negative when the digits are separated.
inline constexpr FailureSite SEPARATED_POINT_POSITION{"false", SOURCE, 318};

inline constexpr FailureSite ALL[] = {SEPARATED_POINT_POSITION};

}  // namespace kivo::format::realfields::failure
