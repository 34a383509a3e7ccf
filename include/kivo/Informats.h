#pragma once

#include "kivo/Export.h"

// The informats: each reads width bytes of text (not NUL-terminated) and returns 1 when it stored a
// value or a missing value in *result, 0 when the text is not acceptable (result left as it was).
extern "C" {

typedef int (*KivoInformatFunction)(const char* text, int width, int length, int decimals, double* result);

// Free-form dates, datetimes and times. They always return 1; a field they cannot read leaves the
// missing value in *result.
KIVO_EXPORT int anydtdteInformat(const char* text, int width, int length, int decimals, double* result);
KIVO_EXPORT int anydtdtmInformat(const char* text, int width, int length, int decimals, double* result);
KIVO_EXPORT int anydttmeInformat(const char* text, int width, int length, int decimals, double* result);

}  // extern "C"
