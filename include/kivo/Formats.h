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

// Dates as digits in a fixed order: the suffix names the separator (B blank, C colon, D dash, P point,
// S slash, N none); the plain names use '/' (DDMMYY, MMDDYY) and '-' (YYMMDD).
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

}  // extern "C"
