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

// ---- Layouts by width and year-first layouts (day-month-year, month-year and quarter families) ----

// A family's rows of pieces for consecutive widths, the first row for `narrowest`.
template <std::size_t COUNT>
struct LayoutsByWidth {
    int narrowest;
    std::string_view rows[COUNT];

    constexpr int widest() const noexcept { return narrowest + static_cast<int>(COUNT) - 1; }
    constexpr bool covers(int width) const noexcept { return width >= narrowest && width <= widest(); }
    // The row of a width the table covers.
    constexpr std::string_view at(int width) const noexcept { return rows[width - narrowest]; }
};

// A year-first layout: the year right-aligned in the positions the rest of the layout leaves
// (width - restWidth), for the caller to write the rest after it. When that leaves fewer than two
// positions the value cannot be shown: the whole field becomes "*" and the result is false.
inline bool yearBeforeRest(char*& out, int width, int restWidth, int year) noexcept {
    const int positions = width - restWidth;
    if (positions < 2) {
        field::repeat(out, width, '*');
        return false;
    }
    field::yearInPositions(out, positions, year);
    return true;
}

}  // namespace kivo::format::datetime::layout
