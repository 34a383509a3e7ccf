#pragma once

#include "kivo/Export.h"

namespace kivo {

// Reads an elapsed time from width bytes of text: seconds ("05", "5.25"), minutes and seconds
// ("2:05") or hours, minutes and seconds ("1:02:03.5"), the parts parted by any separator character
// of kivo::DefaultSeparators; the seconds are two digits or carry a fraction. True with the seconds
// in result when the whole field was read. False otherwise with result untouched, except for a
// missing-value notation (".", "._", ".A" ...): its missing value is stored and the result is still
// false. A negative time is not accepted. The two middle arguments are not used.
KIVO_EXPORT bool kivoLogTimeInformat(const char* text, int width, int length, int decimals, double& result) noexcept;

}  // namespace kivo
