#pragma once

#include "kivo/Export.h"

// The informats: each reads width bytes of text (not NUL-terminated) and returns 1 when it stored a
// value or a missing value in *result, 0 when the text is not acceptable (result left as it was).
#ifdef __cplusplus
extern "C" {
#endif

typedef int (*KivoInformatFunction)(const char* text, int width, int length, int decimals, double* result);

// Free-form dates, datetimes and times. They always return 1; a field they cannot read leaves the
// missing value in *result.
KIVO_EXPORT int anydtdteInformat(const char* text, int width, int length, int decimals, double* result);
KIVO_EXPORT int anydtdtmInformat(const char* text, int width, int length, int decimals, double* result);
KIVO_EXPORT int anydttmeInformat(const char* text, int width, int length, int decimals, double* result);

// Dates, times and datetimes in one fixed layout each. Blanks, tabs and NUL bytes around the text are
// dropped; ".", "._" and ".A" ... ".Z" store their missing value, except for YYQ and HHMMSS, which
// reject them. Two-digit years are widened by the "yearcutoff" option.
KIVO_EXPORT int ddmmyyInformat(const char* text, int width, int length, int decimals, double* result);
KIVO_EXPORT int mmddyyInformat(const char* text, int width, int length, int decimals, double* result);
KIVO_EXPORT int yymmddInformat(const char* text, int width, int length, int decimals, double* result);
KIVO_EXPORT int minguoInformat(const char* text, int width, int length, int decimals, double* result);
KIVO_EXPORT int nengoInformat(const char* text, int width, int length, int decimals, double* result);
KIVO_EXPORT int dateInformat(const char* text, int width, int length, int decimals, double* result);
KIVO_EXPORT int monyyInformat(const char* text, int width, int length, int decimals, double* result);
KIVO_EXPORT int yymmnInformat(const char* text, int width, int length, int decimals, double* result);
KIVO_EXPORT int julianInformat(const char* text, int width, int length, int decimals, double* result);
KIVO_EXPORT int yyqInformat(const char* text, int width, int length, int decimals, double* result);
KIVO_EXPORT int candateInformat(const char* text, int width, int length, int decimals, double* result);
KIVO_EXPORT int timeInformat(const char* text, int width, int length, int decimals, double* result);
KIVO_EXPORT int datetimeInformat(const char* text, int width, int length, int decimals, double* result);
KIVO_EXPORT int mdyampmInformat(const char* text, int width, int length, int decimals, double* result);
KIVO_EXPORT int dmyampmInformat(const char* text, int width, int length, int decimals, double* result);
KIVO_EXPORT int mondytmInformat(const char* text, int width, int length, int decimals, double* result);
KIVO_EXPORT int ymddttmInformat(const char* text, int width, int length, int decimals, double* result);
KIVO_EXPORT int cantimeInformat(const char* text, int width, int length, int decimals, double* result);
KIVO_EXPORT int canstampInformat(const char* text, int width, int length, int decimals, double* result);
// Only the first length characters of the narrowed text are read.
KIVO_EXPORT int hhmmssInformat(const char* text, int width, int length, int decimals, double* result);

// Machine-form timestamps, taking their bytes as given: packed-decimal times, durations and dates
// (PDTIME, RMFDUR, PDJULI, PDJULG), record stamps (RMFSTAMP, SMFSTAMP, SHRSTAMP), the time-of-day
// clock (TODSTAMP, MSEC) and timer units (TU); STIMER reads an elapsed time as text.
KIVO_EXPORT int pdtimeInformat(const char* text, int width, int length, int decimals, double* result);
KIVO_EXPORT int rmfdurInformat(const char* text, int width, int length, int decimals, double* result);
KIVO_EXPORT int rmfstampInformat(const char* text, int width, int length, int decimals, double* result);
KIVO_EXPORT int smfstampInformat(const char* text, int width, int length, int decimals, double* result);
KIVO_EXPORT int shrstampInformat(const char* text, int width, int length, int decimals, double* result);
KIVO_EXPORT int todstampInformat(const char* text, int width, int length, int decimals, double* result);
KIVO_EXPORT int msecInformat(const char* text, int width, int length, int decimals, double* result);
KIVO_EXPORT int stimerInformat(const char* text, int width, int length, int decimals, double* result);
KIVO_EXPORT int tuInformat(const char* text, int width, int length, int decimals, double* result);
KIVO_EXPORT int pdjuliInformat(const char* text, int width, int length, int decimals, double* result);
KIVO_EXPORT int pdjulgInformat(const char* text, int width, int length, int decimals, double* result);

// Week dates (2021W0503) under Sunday, ISO 8601 and Monday weeks.
KIVO_EXPORT int weekuInformat(const char* text, int width, int length, int decimals, double* result);
KIVO_EXPORT int weekvInformat(const char* text, int width, int length, int decimals, double* result);
KIVO_EXPORT int weekwInformat(const char* text, int width, int length, int decimals, double* result);

#ifdef __cplusplus
}  // extern "C"
#endif
