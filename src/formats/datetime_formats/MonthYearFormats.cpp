// The month-year (MMYY) and year-month (YYMM) formats, each with a writer that takes the separator and
// one of its own for the N variant.
//
// The two orders treat a wide field differently. MMYY keeps its widest layout and pads it with blanks,
// so its four year positions show "****" past 9999 at every width; YYMM puts the year first, in the room
// the month leaves, and a year past 9999 takes one of the padding blanks for its fifth digit.
#include <string_view>

#include "formats/FieldLimits.h"
#include "formats/datetime_formats/DateLayout.h"
#include "formats/datetime_formats/FormatEntry.h"
#include "kivo/Formats.h"
#include "kivo/format/datetime/DateWriters.h"

namespace kivo::format::datetime {

namespace {

using layout::NumericDate;

template <layout::Pieces ROW>
constexpr layout::Row<NumericDate> row = layout::row<ROW, NumericDate>;

// The two-digit year up to the first width with room for four digits; wider fields pad the last row.
constexpr layout::LayoutsByWidth<NumericDate, 3> MMYY_SEPARATED{limits::MONTH_YEAR.minWidth,
                                                                {row<"msy">, row<" msy">, row<"msY">}};
constexpr layout::LayoutsByWidth<NumericDate, 3> MMYY_RUN_TOGETHER{limits::MONTH_YEAR_RUN_TOGETHER.minWidth,
                                                                   {row<"my">, row<" my">, row<"mY">}};
static_assert(MMYY_SEPARATED.eachRowFillsItsWidth() && MMYY_RUN_TOGETHER.eachRowFillsItsWidth());

// The year first, in what the separator and the month leave: 2 positions at width 5, 4 at width 7.
constexpr layout::Row<NumericDate> YYMM_SEPARATED = row<"Psm">;
constexpr layout::Row<NumericDate> YYMM_RUN_TOGETHER = row<"Pm">;
// Their narrowest widths leave the year two positions.
static_assert(limits::MONTH_YEAR.minWidth - YYMM_SEPARATED.longestLength == 2 &&
              limits::MONTH_YEAR_RUN_TOGETHER.minWidth - YYMM_RUN_TOGETHER.longestLength == 2);

// What MMYYN passes for the separator its rows never ask for.
constexpr char NO_SEPARATOR = ' ';

void writeMmyyn(const Date& date, char*& out, int width) noexcept {
    MMYY_RUN_TOGETHER.writePadded(width, out, layout::numericDate(date.yearMonthDay(), NO_SEPARATOR));
}

void writeYymmn(const Date& date, char*& out, int width) noexcept {
    out = YYMM_RUN_TOGETHER.write(out, layout::numericDate(date.yearMonth()), width);
}

}  // namespace

// 22356 (March 2021) with 'M': "03M21" at width 5, "03M2021" at width 7, "  03M2021" at width 9.
int doMmyyx(double value, char* field, int width, char separator) {
    return entry::withDate(field, width, entry::NO_DECIMALS, value, [separator](const Date& date, char*& out, int w) {
        MMYY_SEPARATED.writePadded(w, out, layout::numericDate(date.yearMonthDay(), separator));
    });
}

// "21M03" at width 5, "2021M03" at width 7, "  2021M03" at width 9.
int doYymmx(double value, char* field, int width, char separator) {
    return entry::withDate(field, width, entry::NO_DECIMALS, value, [separator](const Date& date, char*& out, int w) {
        out = YYMM_SEPARATED.write(out, layout::numericDate(date.yearMonth(), separator), w);
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
    return entry::withDate(field, width, entry::NO_DECIMALS, value, datetime::writeMmyyn);
}

int yymmFormat(char* field, int width, int, double value) { return datetime::doYymmx(value, field, width, 'M'); }
int yymmcFormat(char* field, int width, int, double value) { return datetime::doYymmx(value, field, width, ':'); }
int yymmdFormat(char* field, int width, int, double value) { return datetime::doYymmx(value, field, width, '-'); }
int yymmpFormat(char* field, int width, int, double value) { return datetime::doYymmx(value, field, width, '.'); }
int yymmsFormat(char* field, int width, int, double value) { return datetime::doYymmx(value, field, width, '/'); }
int yymmnFormat(char* field, int width, int, double value) {
    return entry::withDate(field, width, entry::NO_DECIMALS, value, datetime::writeYymmn);
}

}  // extern "C"
