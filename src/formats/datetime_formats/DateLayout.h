#pragma once

#include <cstddef>
#include <string_view>
#include <utility>

#include "formats/FieldWriting.h"
#include "formats/datetime_formats/Quarters.h"
#include "kivox/Calendar.h"
#include "kivox/Names.h"

// A date layout as a row of pieces, one character each, written left to right. Every date family lays
// out its text as rows of this one alphabet, read by the one writer below: DATE, the day-month-year,
// month-year and quarter families, YEAR, the word dates, the week numbers, JULIAN and the era calendars.
//
// A letter is a piece; any other character (a blank, '-', '/', '.', ',') stands for itself.
//
//   day      d  the day of the month, two digits (07)     e  the day of the month, one or two digits (7)
//            j  the day of the year, three digits (076)
//   month    m  the month, two digits (03)                M  its upper-case abbreviation (MAR)
//            b  its short name (Mar)                      B  its long name (March)
//   weekday  a  its short name (Wed)                      A  its long name (Wednesday)
//            u  its number within the week, two digits (04)
//   week     W  the letter W and the week, two digits (W11)
//   quarter  q  the quarter, one digit (1)                R  the quarter as a Roman numeral (I ... IV)
//   year     y  its last two digits (21)                  Y  four positions, "****" past 9999
//            i  one digit (an era year below 10)          t  three digits (a Minguo year up to 999)
//            G  its last four digits (12021 as 2021)      L  all its digits: four, or five past 9999
//            P  the year right-aligned in the positions the rest of the row leaves: 2 hold its last two
//               digits, 3 a blank and those two, 4 the year as Y; more hold blanks and four digits, or
//               one blank fewer and all five past 9999. P stands first; fewer than two positions hold
//               no year, and the whole field is "*".
//   others   s  the family's separator                    E  the era's letter (R)
//
// So a family's widths read as a table: DATE9. is "dMY" (17MAR2021), DATE11. "d-M-Y" (17-MAR-2021), a
// day-month-year layout with its separator "dsmsY" (17/03/2021), WEEKDATX29. "A, e B L" (Wednesday,
// 17 March 2021), WEEKV11. "G-W-u" (2021-W11-03), NENGO9. "Ey/m/d" (R03/03/17), YYMM "Psm" at every width.
namespace kivo::format::datetime::layout {

// What the rows of each family show, handed over by value: each record holds only what its rows read,
// so that it travels in registers, and a piece reads its part by name, so that a row asking for a part
// its family does not have does not compile.
struct NumericDate {  // DATE, the day-month-year, month-year and quarter families, YEAR
    int year;
    int month;
    int day;
    char separator;
};
struct JulianDate {  // JULIAN
    int year;
    int dayOfYear;
};
struct WordDate {  // the word dates
    int year;
    int month;
    int day;
    int weekday;
};
struct WeekDate {  // the week numbers: the week's year, the week and the weekday within it
    int year;
    int week;
    int weekday;
};
struct EraDate {  // MINGUO and NENGO: the year of the era
    int year;
    int month;
    int day;
    char era;
};

// The characters a piece writes whatever the date: all but e, B, A, L, R and P.
constexpr int fixedLength(char piece) noexcept {
    switch (piece) {
        case 'd':
        case 'm':
        case 'u':
        case 'y':
            return 2;
        case 'j':
        case 'M':
        case 'b':
        case 'a':
        case 'W':
        case 't':
            return 3;
        case 'Y':
        case 'G':
            return 4;
        default:
            return 1;
    }
}

constexpr bool hasVariableLength(char piece) noexcept {
    return piece == 'e' || piece == 'B' || piece == 'A' || piece == 'L' || piece == 'R' || piece == 'P';
}

// The most characters a piece writes: names of nine characters (September, Wednesday), a two-digit day,
// a four-digit year, the numeral III; P counts none of its own.
constexpr int longestLength(char piece) noexcept {
    switch (piece) {
        case 'e':
            return 2;
        case 'B':
        case 'A':
            return 9;
        case 'L':
            return 4;
        case 'R':
            return 3;
        case 'P':
            return 0;
        default:
            return fixedLength(piece);
    }
}

inline constexpr int SHORT_NAME_LENGTH = 3;

// One piece, chosen when the row is compiled.
template <char PIECE, class Parts>
inline void writePiece(char*& o, const Parts& p) noexcept {
    if constexpr (PIECE == 'd') {
        field::twoDigits(o, p.day);
    } else if constexpr (PIECE == 'e') {
        if (p.day < 10) {
            field::digit(o, p.day);
        } else {
            field::twoDigits(o, p.day);
        }
    } else if constexpr (PIECE == 'j') {
        field::threeDigits(o, p.dayOfYear);
    } else if constexpr (PIECE == 'm') {
        field::twoDigits(o, p.month);
    } else if constexpr (PIECE == 'M') {
        field::text(o, Month::upperShortName(p.month), SHORT_NAME_LENGTH);
    } else if constexpr (PIECE == 'b') {
        field::text(o, Month::shortName(p.month), SHORT_NAME_LENGTH);
    } else if constexpr (PIECE == 'B') {
        field::text(o, Month::longName(p.month), Month::longNameLength(p.month));
    } else if constexpr (PIECE == 'a') {
        field::text(o, DayOfWeek::shortName(p.weekday), SHORT_NAME_LENGTH);
    } else if constexpr (PIECE == 'A') {
        field::text(o, DayOfWeek::longName(p.weekday), DayOfWeek::longNameLength(p.weekday));
    } else if constexpr (PIECE == 'u') {
        field::twoDigits(o, p.weekday);
    } else if constexpr (PIECE == 'W') {
        *o++ = 'W';
        field::twoDigits(o, p.week);
    } else if constexpr (PIECE == 'q') {
        field::digit(o, quarterOf(p.month));
    } else if constexpr (PIECE == 'R') {
        const RomanQuarter& numeral = ROMAN_QUARTERS[quarterOf(p.month)];
        field::text(o, numeral.text, numeral.length);
    } else if constexpr (PIECE == 'y') {
        field::twoDigits(o, p.year % 100);
    } else if constexpr (PIECE == 'Y') {
        field::fourDigitYearOrStars(o, p.year);
    } else if constexpr (PIECE == 'i') {
        field::digit(o, p.year);
    } else if constexpr (PIECE == 't') {
        field::threeDigits(o, p.year);
    } else if constexpr (PIECE == 'G') {
        field::fourDigits(o, p.year % 10000);
    } else if constexpr (PIECE == 'L') {
        if (p.year > field::LARGEST_FOUR_DIGIT_YEAR) {
            field::fiveDigits(o, p.year);
        } else {
            field::fourDigits(o, p.year);
        }
    } else if constexpr (PIECE == 's') {
        *o++ = p.separator;
    } else if constexpr (PIECE == 'E') {
        *o++ = p.era;
    } else {
        static_assert(!(PIECE >= 'a' && PIECE <= 'z') && !(PIECE >= 'A' && PIECE <= 'Z'), "a letter with no piece");
        *o++ = PIECE;
    }
}

// The characters one piece writes for this date.
template <char PIECE, class Parts>
inline int pieceLength(const Parts& p) noexcept {
    if constexpr (PIECE == 'e') {
        return p.day < 10 ? 1 : 2;
    } else if constexpr (PIECE == 'B') {
        return Month::longNameLength(p.month);
    } else if constexpr (PIECE == 'A') {
        return DayOfWeek::longNameLength(p.weekday);
    } else if constexpr (PIECE == 'L') {
        return p.year > field::LARGEST_FOUR_DIGIT_YEAR ? 5 : 4;
    } else if constexpr (PIECE == 'R') {
        return ROMAN_QUARTERS[quarterOf(p.month)].length;
    } else if constexpr (PIECE == 'P') {
        return 0;
    } else {
        return fixedLength(PIECE);
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
    static constexpr std::size_t COUNT = N - 1;  // the literal's NUL is no piece

    constexpr bool contains(char piece) const noexcept {
        for (std::size_t i = 0; i < COUNT; ++i) {
            if (text[i] == piece) {
                return true;
            }
        }
        return false;
    }
    constexpr bool hasFixedLength() const noexcept {
        for (std::size_t i = 0; i < COUNT; ++i) {
            if (hasVariableLength(text[i])) {
                return false;
            }
        }
        return true;
    }
    // The characters the row writes, with every piece at its longest (P counting none).
    constexpr int longestLength() const noexcept {
        int length = 0;
        for (std::size_t i = 0; i < COUNT; ++i) {
            length += layout::longestLength(text[i]);
        }
        return length;
    }
};

// The characters a row writes for this date, P's year not counted.
template <Pieces ROW, class Parts>
inline int rowLength(Parts parts) noexcept {
    if constexpr (ROW.hasFixedLength()) {
        return ROW.longestLength();
    } else {
        return [&]<std::size_t... I>(std::index_sequence<I...>) {
            return (0 + ... + pieceLength<ROW.text[I]>(parts));
        }(std::make_index_sequence<ROW.COUNT>{});
    }
}

// The writer of one row, its pieces unrolled at compile time into straight code. It takes the date by
// value and returns the position after the row, so that neither the date nor the position makes a trip
// through memory between the host's answer and the field. width is read by P alone.
template <Pieces ROW, class Parts>
inline char* writeRow(char* out, Parts parts, int width) noexcept {
    if constexpr (ROW.contains('P')) {
        static_assert(ROW.text[0] == 'P', "P stands first in its row");
        const int positions = width - rowLength<ROW>(parts);
        if (positions < 2) {
            field::repeat(out, width, '*');
            return out;
        }
        field::yearInPositions(out, positions, parts.year);
        [&]<std::size_t... I>(std::index_sequence<I...>) {
            (writePiece<ROW.text[I + 1]>(out, parts), ...);
        }(std::make_index_sequence<ROW.COUNT - 1>{});
    } else {
        [&]<std::size_t... I>(std::index_sequence<I...>) {
            (writePiece<ROW.text[I]>(out, parts), ...);
        }(std::make_index_sequence<ROW.COUNT>{});
    }
    return out;
}

// A row for a table: its writer, its measure and its pieces as written.
template <class Parts>
struct Row {
    char* (*write)(char* out, Parts parts, int width) noexcept;
    int (*length)(Parts parts) noexcept;
    std::string_view pieces;
    int longestLength;

    constexpr bool shows(char piece) const noexcept { return pieces.find(piece) != std::string_view::npos; }
};

// The row of a literal for a table of Parts: layout::row<"dMY", NumericDate>.
template <Pieces ROW, class Parts>
inline constexpr Row<Parts> row = {&writeRow<ROW, Parts>, &rowLength<ROW, Parts>,
                                    std::string_view(ROW.text, ROW.COUNT), ROW.longestLength()};

// Rows for consecutive widths from the narrowest, one row per width.
template <class Parts, std::size_t COUNT>
struct LayoutsByWidth {
    int narrowest;
    Row<Parts> rows[COUNT];

    constexpr int widest() const noexcept { return narrowest + static_cast<int>(COUNT) - 1; }
    constexpr bool covers(int width) const noexcept { return width >= narrowest && width <= widest(); }
    // The row of a width the table covers, written at out, which moves past it.
    void write(int width, char*& out, Parts parts) const noexcept {
        out = rows[width - narrowest].write(out, parts, width);
    }
    // Past the widest row its text stands behind blanks; below the narrowest there is nothing to show
    // and the field is "*".
    void writePadded(int width, char*& out, Parts parts) const noexcept {
        if (width < narrowest) {
            field::repeat(out, width, '*');
            return;
        }
        field::blanks(out, width - widest());
        write(width < widest() ? width : widest(), out, parts);
    }
    // Each row, at its longest, fills exactly the width it serves.
    constexpr bool eachRowFillsItsWidth() const noexcept {
        for (std::size_t i = 0; i < COUNT; ++i) {
            if (rows[i].longestLength != narrowest + static_cast<int>(i)) {
                return false;
            }
        }
        return true;
    }
};

// The parts of a numeric date, with the family's separator where its rows show one.
inline NumericDate numericDate(const Date::YMD& ymd, char separator = ' ') noexcept {
    return {ymd.year, ymd.month, ymd.day, separator};
}
inline NumericDate numericDate(const Date::YM& ym, char separator = ' ') noexcept {
    return {ym.year, ym.month, 1, separator};
}

}  // namespace kivo::format::datetime::layout
