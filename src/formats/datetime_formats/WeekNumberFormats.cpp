// Week numbers under the host's three week conventions: WEEKU, WEEKV and WEEKW (2021-W11-04) and the
// year-first YYWEEKU, YYWEEKV and YYWEEKW (2021-W11). The host does the week arithmetic; this writer
// only lays out its year, week and weekday. Unlike the other date formats the text is left-aligned,
// with the blanks after it, so that week texts of one width line up on their year.
#include <string_view>

#include "formats/FieldWriting.h"
#include "formats/datetime_formats/FormatEntry.h"
#include "kivo/Formats.h"
#include "kivo/format/datetime/DateWriters.h"

namespace kivo::format::datetime {

namespace {

// A week text as a row of pieces, one character each:
//
//   'Y'  the year modulo 10000, four digits      'y'  the year modulo 100, two digits
//   'w'  the week, two digits                    'd'  the weekday, two digits
//   any other character stands for itself (the letter W and the hyphens)
struct WeekLayout {
    std::string_view withDay;     // WEEKx
    std::string_view withoutDay;  // YYWEEKx: at widths 7 and 8 the four-digit year comes first
};

constexpr int NARROWEST = 3;
constexpr int WIDEST_TEXT = 11;

constexpr WeekLayout WEEK_LAYOUTS[WIDEST_TEXT + 1] = {
    {"", ""},              // 0 to 2: no text fits
    {"", ""},              //
    {"", ""},              //
    {"Ww", "Ww"},          // 3: W11
    {"Ww", "Ww"},          // 4
    {"yWw", "yWw"},        // 5: 21W11
    {"yWw", "yWw"},        // 6
    {"yWwd", "YWw"},       // 7: 21W1104, 2021W11
    {"yWwd", "Y-Ww"},      // 8: 21W1104, 2021-W11
    {"YWwd", "YWwd"},      // 9: 2021W1104
    {"YWwd", "YWwd"},      // 10
    {"Y-Ww-d", "Y-Ww-d"},  // 11 and wider: 2021-W11-04
};

void writePiece(char*& out, char piece, const Date::YWD& ywd) noexcept {
    switch (piece) {
        case 'Y':
            field::fourDigits(out, ywd.year % 10000);
            break;
        case 'y':
            field::twoDigits(out, ywd.year % 100);
            break;
        case 'w':
            field::twoDigits(out, ywd.week);
            break;
        case 'd':
            field::twoDigits(out, ywd.day);
            break;
        default:
            *out++ = piece;
            break;
    }
}

template <Date::YWD (Date::*yearWeekDay)() const noexcept, bool withDay>
void writeWeek(const Date& date, char*& out, int width) noexcept {
    doWeekFormat((date.*yearWeekDay)(), out, width, withDay);
}

}  // namespace

// The record (2021, 11, 4) at width 11: "2021-W11-04"; at width 15 the same and four blanks. Widths 1
// and 2 hold no week text and show "*".
void doWeekFormat(const Date::YWD& ywd, char*& out, int width, bool withDay) {
    if (width < NARROWEST) {
        field::stars(out, width);
        out += width > 0 ? width : 0;
        return;
    }
    const WeekLayout& layout = WEEK_LAYOUTS[width < WIDEST_TEXT ? width : WIDEST_TEXT];
    char* const start = out;
    for (const char piece : withDay ? layout.withDay : layout.withoutDay) {
        writePiece(out, piece, ywd);
    }
    field::blanks(out, width - static_cast<int>(out - start));
}

}  // namespace kivo::format::datetime

namespace datetime = kivo::format::datetime;
namespace entry = kivo::format::datetime::entry;
using kivo::Date;

extern "C" {

int weekuFormat(char* field, int width, int, double value) {
    return entry::withDate(field, width, entry::NO_DECIMALS, value, datetime::writeWeek<&Date::yearWeekUDay, true>);
}

int weekvFormat(char* field, int width, int, double value) {
    return entry::withDate(field, width, entry::NO_DECIMALS, value, datetime::writeWeek<&Date::yearWeekVDay, true>);
}

int weekwFormat(char* field, int width, int, double value) {
    return entry::withDate(field, width, entry::NO_DECIMALS, value, datetime::writeWeek<&Date::yearWeekWDay, true>);
}

int yyweekuFormat(char* field, int width, int, double value) {
    return entry::withDate(field, width, entry::NO_DECIMALS, value, datetime::writeWeek<&Date::yearWeekUDay, false>);
}

int yyweekvFormat(char* field, int width, int, double value) {
    return entry::withDate(field, width, entry::NO_DECIMALS, value, datetime::writeWeek<&Date::yearWeekVDay, false>);
}

int yyweekwFormat(char* field, int width, int, double value) {
    return entry::withDate(field, width, entry::NO_DECIMALS, value, datetime::writeWeek<&Date::yearWeekWDay, false>);
}

}  // extern "C"
