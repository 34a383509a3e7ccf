// The month-year (MMYY) and year-month (YYMM) formats, each with a writer that takes the separator and
// one of its own for the N variant.
//
// The two orders treat a wide field differently. MMYY keeps its widest layout and pads it with blanks,
// so its four year positions show "****" past 9999 at every width; YYMM puts the year first, in the room
// the month leaves, and a year past 9999 takes one of the padding blanks for its fifth digit.
#include <string_view>

#include "formats/datetime_formats/DateLayout.h"
#include "formats/datetime_formats/FormatEntry.h"
#include "kivo/Formats.h"
#include "kivo/format/datetime/DateWriters.h"

namespace kivo::format::datetime {

namespace {

using layout::row;

using layout::LayoutsByWidth;

// The two-digit year up to the first width with room for four digits; wider fields pad the last row.
constexpr LayoutsByWidth<3> MMYY_SEPARATED{5, {row<"msy">, row<" msy">, row<"msY">}};
constexpr LayoutsByWidth<3> MMYY_RUN_TOGETHER{4, {row<"my">, row<" my">, row<"mY">}};

// What MMYYN passes for the separator its rows never ask for.
constexpr char NO_SEPARATOR = ' ';

// Past its widest row a month-first layout keeps that row behind blanks; below its narrowest it has
// nothing to show and fills the field with "*".
template <std::size_t COUNT>
void writeMonthFirst(const Date& date, char*& out, int width, const LayoutsByWidth<COUNT>& layouts,
                     char separator) noexcept {
    if (width < layouts.narrowest) {
        field::repeat(out, width, '*');
        return;
    }
    const int widest = layouts.widest();
    field::blanks(out, width - widest);
    layouts.write(width < widest ? width : widest, out, date.yearMonthDay(), separator);
}

// The year in what the separator and the month leave: 2 positions at width 5, 4 at width 7.
void writeYearSeparatorMonth(const Date& date, char*& out, int width, char separator) noexcept {
    const Date::YM ym = date.yearMonth();
    if (layout::yearBeforeRest(out, width, 3, ym.year)) {
        *out++ = separator;
        field::twoDigits(out, ym.month);
    }
}

void writeMmyyn(const Date& date, char*& out, int width) noexcept {
    writeMonthFirst(date, out, width, MMYY_RUN_TOGETHER, NO_SEPARATOR);
}

void writeYymmn(const Date& date, char*& out, int width) noexcept {
    const Date::YM ym = date.yearMonth();
    if (layout::yearBeforeRest(out, width, 2, ym.year)) {
        field::twoDigits(out, ym.month);
    }
}

}  // namespace

// 22356 (March 2021) with 'M': "03M21" at width 5, "03M2021" at width 7, "  03M2021" at width 9.
int doMmyyx(double value, char* field, int width, char separator) {
    return entry::withDate(field, width, 0, 0, value, [separator](const Date& date, char*& out, int w) {
        writeMonthFirst(date, out, w, MMYY_SEPARATED, separator);
    });
}

// "21M03" at width 5, "2021M03" at width 7, "  2021M03" at width 9.
int doYymmx(double value, char* field, int width, char separator) {
    return entry::withDate(field, width, 0, 0, value, [separator](const Date& date, char*& out, int w) {
        writeYearSeparatorMonth(date, out, w, separator);
    });
}

}  // namespace kivo::format::datetime

namespace datetime = kivo::format::datetime;
namespace entry = kivo::format::datetime::entry;

extern "C" {

// The plain MMYY and YYMM separate with the letter M.
int mmyyFormat(char* field, int width, int, double value) { return datetime::doMmyyx(value, field, width, 'M'); }
int mmyycFormat(char* field, int width, int, double value) { return datetime::doMmyyx(value, field, width, ':'); }
int mmyydFormat(char* field, int width, int, double value) { return datetime::doMmyyx(value, field, width, '-'); }
int mmyypFormat(char* field, int width, int, double value) { return datetime::doMmyyx(value, field, width, '.'); }
int mmyysFormat(char* field, int width, int, double value) { return datetime::doMmyyx(value, field, width, '/'); }
int mmyynFormat(char* field, int width, int, double value) {
    return entry::withDate(field, width, 0, 0, value, datetime::writeMmyyn);
}

int yymmFormat(char* field, int width, int, double value) { return datetime::doYymmx(value, field, width, 'M'); }
int yymmcFormat(char* field, int width, int, double value) { return datetime::doYymmx(value, field, width, ':'); }
int yymmdFormat(char* field, int width, int, double value) { return datetime::doYymmx(value, field, width, '-'); }
int yymmpFormat(char* field, int width, int, double value) { return datetime::doYymmx(value, field, width, '.'); }
int yymmsFormat(char* field, int width, int, double value) { return datetime::doYymmx(value, field, width, '/'); }
int yymmnFormat(char* field, int width, int, double value) {
    return entry::withDate(field, width, 0, 0, value, datetime::writeYymmn);
}

}  // extern "C"
