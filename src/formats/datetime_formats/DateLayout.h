#pragma once

#include <string_view>

#include "formats/FieldWriting.h"
#include "kivox/Calendar.h"
#include "kivox/Names.h"

// A numeric date layout as a row of pieces, one character each, written left to right:
//
//   ' '  a blank                        'd'  the day, two digits
//   'm'  the month, two digits          'M'  the month's upper-case abbreviation ("MAR")
//   'y'  the year's last two digits     'Y'  the year in four positions, "****" past 9999
//   's'  the family's separator         any other character stands for itself ('-', '/')
//
// so that a family's widths read as a table: DATE9. is "dMY" (17MAR2021), DATE11. "d-M-Y"
// (17-MAR-2021), a day-month-year layout with its separator "dsmsY" (17/03/2021).
namespace kivo::format::datetime::layout {

inline void writeDatePieces(char*& out, std::string_view pieces, const Date::YMD& ymd, char separator = ' ') noexcept {
    for (const char piece : pieces) {
        switch (piece) {
            case 'd':
                field::twoDigits(out, ymd.day);
                break;
            case 'm':
                field::twoDigits(out, ymd.month);
                break;
            case 'M':
                field::text(out, Month::upperShortName(ymd.month), 3);
                break;
            case 'y':
                field::twoDigits(out, ymd.year % 100);
                break;
            case 'Y':
                field::fourDigitYearOrStars(out, ymd.year);
                break;
            case 's':
                *out++ = separator;
                break;
            default:
                *out++ = piece;
                break;
        }
    }
}

}  // namespace kivo::format::datetime::layout
