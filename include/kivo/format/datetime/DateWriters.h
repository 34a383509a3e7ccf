#pragma once

#include "kivo/Export.h"
#include "kivox/Calendar.h"

// The shared date writers. Each example names the date by its day serial: 22356 is Wednesday,
// 17 March 2021.
namespace kivo::format::datetime {

// The DATE layout for widths 5 to 11 (ddMMM, ddMMMyy, ddMMMyyyy, dd-MMM-yyyy, the even widths with one
// leading blank); advances out past what it wrote. Any other width writes nothing.
// Example: doDateFormat(22356, 9) -> "17MAR2021"
KIVO_EXPORT void doDateFormat(const kivo::Date& date, char*& out, int width);

// The year: yy at widths 2 and 3, yyyy (or "****" above 9999) at width 4, right-aligned four or five
// digits at wider fields.
// Example: doYearFormat(22356, 6) -> "  2021"
KIVO_EXPORT void doYearFormat(const kivo::Date& date, char*& out, int width);

// The day-month-year, month-day-year and year-month-day writers with their separator: each runs the
// whole format (missing value, "*" for an invalid date) and returns 0. The separator shows at widths 5,
// 8, 9 and 10 only; the widest has the four-digit year. A width the writer has no layout for stops the
// process through kivoFail.
// Example: doDdmmyyxFormat(22356, 10, '/') -> "17/03/2021"
KIVO_EXPORT int doDdmmyyxFormat(double value, char* field, int width, char separator);
// Example: doMmddyyx(22356, 8, '-') -> "03-17-21"
KIVO_EXPORT int doMmddyyx(double value, char* field, int width, char separator);
// Example: doYymmddx(22356, 10, '-') -> "2021-03-17"
KIVO_EXPORT int doYymmddx(double value, char* field, int width, char separator);

// Month-year and year-month with their separator, from width 5; each runs the whole format and
// returns 0. MMYY pads its widest layout (a year past 9999 stays "****"); YYMM grows to five digits.
// Example: doMmyyx(22356, 7, 'M') -> "03M2021"
KIVO_EXPORT int doMmyyx(double value, char* field, int width, char separator);
// Example: doYymmx(22356, 9, '/') -> "  2021/03"
KIVO_EXPORT int doYymmx(double value, char* field, int width, char separator);

// Year and Roman quarter with their separator; the year takes what the numeral and separator leave.
// Example: doYyqrx(22356, 6, 'Q') -> "2021QI"
KIVO_EXPORT int doYyqrx(double value, char* field, int width, char separator);

// MMMyy at width 5, a blank and MMMyy at 6, MMMyyyy at 7; any other width writes nothing.
// Example: doMonyyFormat(22356, 5) -> "MAR21"
KIVO_EXPORT void doMonyyFormat(const kivo::Date& date, char*& out, int width);

// The year, the separator and the quarter digit, from width 4; advances out past what it wrote.
// Example: doYyqxFormat(22356, 6, '-') -> "2021-1"
KIVO_EXPORT void doYyqxFormat(const kivo::Date& date, char*& out, int width, char separator);

// WEEKDATX: the weekday and the date day first, short or long names by the width ("Wed, 17 Mar 2021",
// "Wednesday, 17 March 2021"), right-aligned; advances out past the field.
// Example: doWeekdatxFormat(22356, 16) -> "  Wed, 17 Mar 21"
KIVO_EXPORT void doWeekdatxFormat(const kivo::Date& date, char*& out, int width);

// A week record as text, left-aligned and padded with blanks to the width: "2021-W11-04" (withDay),
// "2021-W11" (without, at width 8); advances out past the field.
// Example: doWeekFormat({2021, 11, 4}, 8, false) -> "2021-W11"
KIVO_EXPORT void doWeekFormat(const kivo::Date::YWD& ywd, char*& out, int width, bool withDay);

}  // namespace kivo::format::datetime
