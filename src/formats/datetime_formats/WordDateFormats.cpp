// Dates with the month, and for some the weekday, spelled out: WORDDATE (March 17, 2021), WORDDATX
// (17 March 2021), WEEKDATE (Wednesday, March 17, 2021), WEEKDATX and DTWKDATX (Wednesday, 17 March
// 2021). The width alone chooses the layout, never the length of the names at hand: each layout's
// narrowest width holds the longest names (nine characters), a two-digit day and a four-digit year.
#include <span>
#include <string_view>

#include "formats/FieldWriting.h"
#include "formats/datetime_formats/FormatEntry.h"
#include "kivo/Formats.h"
#include "kivo/format/datetime/DateWriters.h"
#include "kivox/Names.h"

namespace kivo::format::datetime {

namespace {

// A layout is a row of pieces, one character each, read left to right:
//
//   'w'  the weekday's short name, three characters     'W'  the weekday's long name
//   'm'  the month's short name, three characters       'M'  the month's long name
//   'd'  the day, one or two digits (no leading zero)
//   'y'  the year's last two digits                     'Y'  the year, four digits or five past 9999
//   any other character stands for itself (the blanks and commas between the parts)
//
// The text is measured first and right-aligned: the blanks it leaves go in front.
struct WordLayout {
    int narrowest;  // the layout serves this width and the wider ones up to the next row's
    std::string_view pieces;
};

// A five-digit year that does not quite fit is cut to its first four digits. The two families do it
// differently, and on purpose: the month-first ones when the text is one character too long, leaving
// no blank; the day-first ones when the text would fill the field exactly, leaving one blank in front.
enum class YearCut { WHEN_ONE_OVER, WHEN_FULL };

struct WordFamily {
    YearCut yearCut;
    std::span<const WordLayout> layouts;
};

constexpr int SHORT_NAME_LENGTH = 3;

struct WordDate {
    Date::YMD ymd;
    int weekday;
    int year;  // as written: the full year, or its first four digits once cut
};

int yearLength(int year) noexcept { return year > field::LARGEST_FOUR_DIGIT_YEAR ? 5 : 4; }

int pieceLength(char piece, const WordDate& date) noexcept {
    switch (piece) {
        case 'w':
        case 'm':
            return SHORT_NAME_LENGTH;
        case 'W':
            return DayOfWeek::longNameLength(date.weekday);
        case 'M':
            return Month::longNameLength(date.ymd.month);
        case 'd':
            return date.ymd.day < 10 ? 1 : 2;
        case 'y':
            return 2;
        case 'Y':
            return yearLength(date.year);
        default:
            return 1;
    }
}

void writePiece(char*& out, char piece, const WordDate& date) noexcept {
    switch (piece) {
        case 'w':
            field::text(out, DayOfWeek::shortName(date.weekday), SHORT_NAME_LENGTH);
            break;
        case 'm':
            field::text(out, Month::shortName(date.ymd.month), SHORT_NAME_LENGTH);
            break;
        case 'W':
            field::text(out, DayOfWeek::longName(date.weekday), DayOfWeek::longNameLength(date.weekday));
            break;
        case 'M':
            field::text(out, Month::longName(date.ymd.month), Month::longNameLength(date.ymd.month));
            break;
        case 'd':
            if (date.ymd.day < 10) {
                field::digit(out, date.ymd.day);
            } else {
                field::twoDigits(out, date.ymd.day);
            }
            break;
        case 'y':
            field::twoDigits(out, date.ymd.year % 100);
            break;
        case 'Y':
            if (date.year > field::LARGEST_FOUR_DIGIT_YEAR) {
                field::fiveDigits(out, date.year);
            } else {
                field::fourDigits(out, date.year);
            }
            break;
        default:
            *out++ = piece;
            break;
    }
}

int textLength(std::string_view pieces, const WordDate& date) noexcept {
    int length = 0;
    for (const char piece : pieces) {
        length += pieceLength(piece, date);
    }
    return length;
}

const WordLayout& layoutFor(std::span<const WordLayout> layouts, int width) noexcept {
    const WordLayout* chosen = &layouts.front();
    for (const WordLayout& layout : layouts) {
        if (width >= layout.narrowest) {
            chosen = &layout;
        }
    }
    return *chosen;
}

// Whether the family cuts this text's five-digit year, and the blanks it then writes in front.
bool cutsYear(YearCut cut, int length, int width, int& blanks) noexcept {
    if (cut == YearCut::WHEN_ONE_OVER && length == width + 1) {
        blanks = 0;
        return true;
    }
    if (cut == YearCut::WHEN_FULL && length == width) {
        blanks = 1;
        return true;
    }
    return false;
}

void writeWordDate(const Date& date, char*& out, int width, const WordFamily& family) noexcept {
    const std::string_view pieces = layoutFor(family.layouts, width).pieces;
    const Date::YMD ymd = date.yearMonthDay();
    WordDate words{ymd, date.dayOfWeek(), ymd.year};
    const int length = textLength(pieces, words);
    int blanks = width - length;
    const bool fiveDigitYear =
        pieces.find('Y') != std::string_view::npos && words.year > field::LARGEST_FOUR_DIGIT_YEAR;
    if (fiveDigitYear && cutsYear(family.yearCut, length, width, blanks)) {
        words.year /= 10;
    } else if (length > width) {
        // Only a field narrower than three characters, or a host whose names run past nine characters,
        // gets here: the field shows that the date does not fit rather than being overrun.
        field::stars(out, width);
        out += width;
        return;
    }
    field::blanks(out, blanks);
    for (const char piece : pieces) {
        writePiece(out, piece, words);
    }
}

constexpr WordLayout WORDDATE_LAYOUTS[] = {
    {0, "m"},        // Mar
    {9, "M"},        // March
    {12, "m d, Y"},  // Mar 17, 2021
    {18, "M d, Y"},  // March 17, 2021
};
constexpr WordLayout WORDDATX_LAYOUTS[] = {
    {0, "m"},       // Mar
    {9, "M"},       // March
    {12, "d m Y"},  // 17 Mar 2021
    {18, "d M Y"},  // 17 March 2021
};
constexpr WordLayout WEEKDATE_LAYOUTS[] = {
    {0, "w"},           // Wed
    {9, "W"},           // Wednesday
    {15, "w, m d, y"},  // Wed, Mar 17, 21
    {17, "w, m d, Y"},  // Wed, Mar 17, 2021
    {23, "W, m d, Y"},  // Wednesday, Mar 17, 2021
    {29, "W, M d, Y"},  // Wednesday, March 17, 2021
};
constexpr WordLayout WEEKDATX_LAYOUTS[] = {
    {0, "w"},          // Wed
    {9, "W"},          // Wednesday
    {15, "w, d m y"},  // Wed, 17 Mar 21
    {17, "w, d m Y"},  // Wed, 17 Mar 2021
    {23, "W, d m Y"},  // Wednesday, 17 Mar 2021
    {29, "W, d M Y"},  // Wednesday, 17 March 2021
};

constexpr WordFamily WORDDATE{YearCut::WHEN_ONE_OVER, WORDDATE_LAYOUTS};
constexpr WordFamily WORDDATX{YearCut::WHEN_FULL, WORDDATX_LAYOUTS};
constexpr WordFamily WEEKDATE{YearCut::WHEN_ONE_OVER, WEEKDATE_LAYOUTS};
constexpr WordFamily WEEKDATX{YearCut::WHEN_FULL, WEEKDATX_LAYOUTS};

void writeWorddate(const Date& date, char*& out, int width) noexcept { writeWordDate(date, out, width, WORDDATE); }
void writeWorddatx(const Date& date, char*& out, int width) noexcept { writeWordDate(date, out, width, WORDDATX); }
void writeWeekdate(const Date& date, char*& out, int width) noexcept { writeWordDate(date, out, width, WEEKDATE); }

}  // namespace

void doWeekdatxFormat(const Date& date, char*& out, int width) { writeWordDate(date, out, width, WEEKDATX); }

}  // namespace kivo::format::datetime

namespace datetime = kivo::format::datetime;
namespace entry = kivo::format::datetime::entry;

extern "C" {

int worddateFormat(char* field, int width, int, double value) {
    return entry::withDate(field, width, entry::NO_DECIMALS, value, datetime::writeWorddate);
}

int worddatxFormat(char* field, int width, int, double value) {
    return entry::withDate(field, width, entry::NO_DECIMALS, value, datetime::writeWorddatx);
}

int weekdateFormat(char* field, int width, int, double value) {
    return entry::withDate(field, width, entry::NO_DECIMALS, value, datetime::writeWeekdate);
}

int weekdatxFormat(char* field, int width, int, double value) {
    return entry::withDate(field, width, entry::NO_DECIMALS, value, datetime::doWeekdatxFormat);
}

int dtwkdatxFormat(char* field, int width, int, double value) {
    return entry::withDatetimeDate(field, width, entry::NO_DECIMALS, value, datetime::doWeekdatxFormat);
}

}  // extern "C"
