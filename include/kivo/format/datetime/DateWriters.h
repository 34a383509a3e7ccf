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

}  // namespace kivo::format::datetime
