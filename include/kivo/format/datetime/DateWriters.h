#pragma once

#include "kivo/Export.h"
#include "kivox/Calendar.h"

namespace kivo::format::datetime {

// The DATE layout for widths 5 to 11 (ddMMM, ddMMMyy, ddMMMyyyy, dd-MMM-yyyy, the even widths with one
// leading blank); advances out past what it wrote. Any other width writes nothing.
KIVO_EXPORT void doDateFormat(const kivo::Date& date, char*& out, int width);

// The year: yy at widths 2 and 3, yyyy (or "****" above 9999) at width 4, right-aligned four or five
// digits at wider fields.
KIVO_EXPORT void doYearFormat(const kivo::Date& date, char*& out, int width);

// The day-month-year, month-day-year and year-month-day writers with their separator, widths 2 to 10:
// each runs the whole format (missing value, "*" for an invalid date) and returns 0. The separator shows
// at widths 5, 8, 9 and 10 only; width 10 has the four-digit year. A width outside 2..10 stops the
// process through kivoFail.
KIVO_EXPORT int doDdmmyyxFormat(double value, char* field, int width, char separator);
KIVO_EXPORT int doMmddyyx(double value, char* field, int width, char separator);
KIVO_EXPORT int doYymmddx(double value, char* field, int width, char separator);

// Month-year and year-month with their separator, from width 5; each runs the whole format and
// returns 0. MMYY pads its widest layout (a year past 9999 stays "****"); YYMM grows to five digits.
KIVO_EXPORT int doMmyyx(double value, char* field, int width, char separator);
KIVO_EXPORT int doYymmx(double value, char* field, int width, char separator);

// Year and Roman quarter with their separator; the year takes what the numeral and separator leave.
KIVO_EXPORT int doYyqrx(double value, char* field, int width, char separator);

// MMMyy at width 5, a blank and MMMyy at 6, MMMyyyy at 7; any other width writes nothing.
KIVO_EXPORT void doMonyyFormat(const kivo::Date& date, char*& out, int width);

// The year, the separator and the quarter digit, from width 4; advances out past what it wrote.
KIVO_EXPORT void doYyqxFormat(const kivo::Date& date, char*& out, int width, char separator);

// WEEKDATX: the weekday and the date day first, short or long names by the width ("Wed, 17 Mar 2021",
// "Wednesday, 17 March 2021"), right-aligned; advances out past the field.
KIVO_EXPORT void doWeekdatxFormat(const kivo::Date& date, char*& out, int width);

// A week record as text, left-aligned and padded with blanks to the width: "2021-W11-04" (withDay),
// "2021-W11" (without, at width 8); advances out past the field.
KIVO_EXPORT void doWeekFormat(const kivo::Date::YWD& ywd, char*& out, int width, bool withDay);

}  // namespace kivo::format::datetime
