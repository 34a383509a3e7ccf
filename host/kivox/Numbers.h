#pragma once

#include <cstdint>

#include "kivox/Export.h"

namespace kivo {

// 10^e as the double nearest to it (0 below the smallest subnormal, infinity above DBL_MAX).
KIVOX_EXPORT double pow10(int e) noexcept;

// 10^e for e in 0..18; 0 outside that range.
KIVOX_EXPORT std::int64_t int64Pow10(int e) noexcept;

// The largest integer e with 10^e <= |value|, exact for every positive finite double; for 0, NaN and
// infinities, FLOOR_LOG10_NONE.
KIVOX_EXPORT int floorLog10(const double& value) noexcept;
inline constexpr int FLOOR_LOG10_NONE = -400;

}  // namespace kivo
