#pragma once

#include <cstddef>
#include <string_view>
#include <utility>

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

// One piece, chosen when the layout is compiled.
template <char PIECE>
inline void writePiece(char*& o, const Date::YMD& ymd, char separator) noexcept {
    if constexpr (PIECE == 'd') {
        field::twoDigits(o, ymd.day);
    } else if constexpr (PIECE == 'm') {
        field::twoDigits(o, ymd.month);
    } else if constexpr (PIECE == 'M') {
        field::text(o, Month::upperShortName(ymd.month), 3);
    } else if constexpr (PIECE == 'y') {
        field::twoDigits(o, ymd.year % 100);
    } else if constexpr (PIECE == 'Y') {
        field::fourDigitYearOrStars(o, ymd.year);
    } else if constexpr (PIECE == 's') {
        *o++ = separator;
    } else {
        *o++ = PIECE;
    }
}

// A row of pieces as a literal the compiler can read: Pieces{"d-M-Y"}.
template <std::size_t N>
struct Pieces {
    char text[N];
    consteval Pieces(const char (&row)[N]) noexcept {  // NOLINT: implicit, so that a literal is a row
        for (std::size_t i = 0; i < N; ++i) {
            text[i] = row[i];
        }
    }
};

// A row's writer takes the date by value and returns the position after the row, so that neither the
// date nor the position makes a trip through memory between the host's answer and the field.
using DateLayoutWriter = char* (*)(char* out, Date::YMD ymd, char separator) noexcept;

// The writer of one row, its pieces unrolled at compile time into straight code.
template <Pieces ROW>
inline char* writeRow(char* out, Date::YMD ymd, char separator) noexcept {
    [&]<std::size_t... I>(std::index_sequence<I...>) {
        (writePiece<ROW.text[I]>(out, ymd, separator), ...);
    }(std::make_index_sequence<sizeof(ROW.text) - 1>{});
    return out;
}

// The writer of a row, for a table of layouts: layout::row<"dMY">.
template <Pieces ROW>
inline constexpr DateLayoutWriter row = &writeRow<ROW>;

template <std::size_t COUNT>
struct LayoutsByWidth {
    int narrowest;
    DateLayoutWriter rows[COUNT];

    constexpr int widest() const noexcept { return narrowest + static_cast<int>(COUNT) - 1; }
    constexpr bool covers(int width) const noexcept { return width >= narrowest && width <= widest(); }
    // The row of a width the table covers, written at out, which moves past it.
    void write(int width, char*& out, Date::YMD ymd, char separator) const noexcept {
        out = rows[width - narrowest](out, ymd, separator);
    }
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
