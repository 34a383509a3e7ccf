#pragma once

#include "kivo/Export.h"

namespace kivo {

// Splits a week date of the first min(width, length) bytes of text into its year, week and day of the
// week: "W05" (this year's week 5), "21W05", "2021W05", "21W0503", "2021-W05", "2021W0503",
// "2021-W05-03". The caller sets day = 1 and week = 0 first; a form without them leaves them so. False
// for any other text, a day outside 1..7 (0 counts as 1), a week above 53 or a year outside
// 1581..20000. The fourth argument is not used.
KIVO_EXPORT bool parseWeekUVWInformat(const char* text, int width, int length, int decimals, int& day, int& week,
                                      int& year);

}  // namespace kivo
