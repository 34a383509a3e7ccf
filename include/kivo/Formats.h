#pragma once

#include "kivo/Export.h"

// The formats: each writes exactly width bytes (no terminating NUL) for one value and returns 0.
// Arguments: the field, its width, the decimals of the format spec, the value (a day serial,
// a seconds serial, a time value or a missing value).
#ifdef __cplusplus
extern "C" {
#endif

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

// Times and durations: the decimals are the digits shown after the point of the last component.
KIVO_EXPORT int timeFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int hhmmFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int mmssFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int hourFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int todFormat(char* field, int width, int decimals, double value);

// Twelve-hour times and datetimes. MDYAMPM and DMYAMPM use the decimals only to place the missing
// character; the others show them as decimals of the second.
KIVO_EXPORT int timeampmFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int datetimeFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int dateampmFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int mdyampmFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int dmyampmFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int mondytmFormat(char* field, int width, int decimals, double value);

// Dates as digits in a fixed order, month-year and year-quarter: the suffix names the separator
// (B blank, C colon, D dash, P point, S slash, N none); the plain names use '/' (DDMMYY, MMDDYY), '-'
// (YYMMDD), 'M' (MMYY, YYMM) and 'Q' (YYQ, YYQR). YYMON's decimals move the missing character.
KIVO_EXPORT int ddmmyyFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int ddmmyybFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int ddmmyycFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int ddmmyydFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int ddmmyynFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int ddmmyypFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int ddmmyysFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int mmddyyFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int mmddyybFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int mmddyycFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int mmddyydFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int mmddyynFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int mmddyypFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int mmddyysFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int yymmddFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int yymmddbFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int yymmddcFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int yymmdddFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int yymmddnFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int yymmddpFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int yymmddsFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int mmyyFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int mmyycFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int mmyydFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int mmyynFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int mmyypFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int mmyysFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int yymmFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int yymmcFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int yymmdFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int yymmnFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int yymmpFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int yymmsFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int monyyFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int dtmonyyFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int yymonFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int yyqFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int yyqcFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int dtyyqcFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int yyqdFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int yyqnFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int yyqpFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int yyqsFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int yyqrFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int yyqrcFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int yyqrdFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int yyqrnFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int yyqrpFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int yyqrsFormat(char* field, int width, int decimals, double value);

// Dates in words, the width choosing short or long names: WORDDATE (March 17, 2021), WORDDATX
// (17 March 2021), WEEKDATE (Wednesday, March 17, 2021), WEEKDATX and, for a seconds serial, DTWKDATX
// (Wednesday, 17 March 2021).
KIVO_EXPORT int worddateFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int worddatxFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int weekdateFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int weekdatxFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int dtwkdatxFormat(char* field, int width, int decimals, double value);

// Week numbers under the U, V and W week conventions, left-aligned: 2021-W11-04, 2021-W11.
KIVO_EXPORT int weekuFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int weekvFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int weekwFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int yyweekuFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int yyweekvFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int yyweekwFormat(char* field, int width, int decimals, double value);

// Year and day of the year (JULIAN: 2021076; PDJULG and PDJULI: packed decimal bytes, not text) and
// the era calendars (MINGUO: 110/03/17; NENGO: R03/03/17).
KIVO_EXPORT int julianFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int pdjulgFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int pdjuliFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int minguoFormat(char* field, int width, int decimals, double value);
KIVO_EXPORT int nengoFormat(char* field, int width, int decimals, double value);

#ifdef __cplusplus
}  // extern "C"
#endif
