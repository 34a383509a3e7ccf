#pragma once

#include "kivo/Export.h"

// The formats: each writes exactly width bytes (no terminating NUL) for one value and returns 0.
// Arguments: the field, its width, the decimals of the format spec, the value (a day serial,
// a seconds serial, a time value or a missing value).
extern "C" {

typedef int (*KivoFormatFunction)(char* field, int width, int decimals, double value);

// Dates and single components of a date.
KIVO_EXPORT int dateFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int dtdateFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int dayFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int downameFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int juldayFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int monnameFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int monthFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int qtrFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int qtrrFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int weekdayFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int yearFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int dtyearFormat(char* field, int width, int decimals, double value);

}  // extern "C"
