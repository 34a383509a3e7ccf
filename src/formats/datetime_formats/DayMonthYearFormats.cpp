// The day-month-year, month-day-year and year-month-day formats: a date as digits in one fixed order.
// Each order has a writer that takes the separator, shared by its separated variants, and a writer of
// its own for the N variant, which never separates.
#include <string_view>

#include "formats/FailureSite.h"
#include "formats/FieldLimits.h"
#include "formats/datetime_formats/DateLayout.h"
#include "formats/datetime_formats/DatetimeFormatsFailures.h"
#include "formats/datetime_formats/FormatEntry.h"
#include "kivo/Formats.h"
#include "kivo/format/datetime/DateWriters.h"

namespace kivo::format::datetime {

namespace {

using layout::NumericDate;

template <std::size_t COUNT>
using NumericLayouts = layout::LayoutsByWidth<NumericDate, COUNT>;

template <layout::Pieces ROW>
constexpr layout::Row<NumericDate> row = layout::row<ROW, NumericDate>;

// The separated layouts, widths 2 to 10. A separator appears only where the separated text fills the
// field (5, 8 and 10, and 9 behind its blank); at 4, 6 and 7 the digits run together even in the
// variants that have a separator, and only width 10 has room for the four-digit year.
constexpr int SEPARATED_NARROWEST = limits::DAY_MONTH_YEAR.minWidth;
constexpr NumericLayouts<9> DDMMYY_SEPARATED{
    SEPARATED_NARROWEST,
    {row<"d">, row<" d">, row<"dm">, row<"dsm">, row<"dmy">, row<" dmy">, row<"dsmsy">, row<" dsmsy">, row<"dsmsY">}};
constexpr NumericLayouts<9> MMDDYY_SEPARATED{
    SEPARATED_NARROWEST,
    {row<"m">, row<" m">, row<"md">, row<"msd">, row<"mdy">, row<" mdy">, row<"msdsy">, row<" msdsy">, row<"msdsY">}};
constexpr NumericLayouts<9> YYMMDD_SEPARATED{
    SEPARATED_NARROWEST,
    {row<"y">, row<" y">, row<"ym">, row<"ysm">, row<"ymd">, row<" ymd">, row<"ysmsd">, row<" ysmsd">, row<"Ysmsd">}};

// The N layouts, widths 2 to 8: the odd widths put a blank in front of the even layout below them, and
// width 8 is the first with room for the four-digit year.
constexpr int RUN_TOGETHER_NARROWEST = limits::DAY_MONTH_YEAR_RUN_TOGETHER.minWidth;
constexpr NumericLayouts<7> DDMMYY_RUN_TOGETHER{
    RUN_TOGETHER_NARROWEST, {row<"d">, row<" d">, row<"dm">, row<" dm">, row<"dmy">, row<" dmy">, row<"dmY">}};
constexpr NumericLayouts<7> MMDDYY_RUN_TOGETHER{
    RUN_TOGETHER_NARROWEST, {row<"m">, row<" m">, row<"md">, row<" md">, row<"mdy">, row<" mdy">, row<"mdY">}};
constexpr NumericLayouts<7> YYMMDD_RUN_TOGETHER{
    RUN_TOGETHER_NARROWEST, {row<"y">, row<" y">, row<"ym">, row<" ym">, row<"ymd">, row<" ymd">, row<"Ymd">}};

// Each table has a row for every width its limits take and no other, each row as wide as its width.
template <std::size_t COUNT>
constexpr bool servesExactly(const NumericLayouts<COUNT>& layouts, const limits::Limits& widths) noexcept {
    return layouts.eachRowFillsItsWidth() && layouts.narrowest == widths.minWidth &&
           layouts.widest() == widths.maxWidth;
}
static_assert(servesExactly(DDMMYY_SEPARATED, limits::DAY_MONTH_YEAR) &&
              servesExactly(MMDDYY_SEPARATED, limits::DAY_MONTH_YEAR) &&
              servesExactly(YYMMDD_SEPARATED, limits::DAY_MONTH_YEAR));
static_assert(servesExactly(DDMMYY_RUN_TOGETHER, limits::DAY_MONTH_YEAR_RUN_TOGETHER) &&
              servesExactly(MMDDYY_RUN_TOGETHER, limits::DAY_MONTH_YEAR_RUN_TOGETHER) &&
              servesExactly(YYMMDD_RUN_TOGETHER, limits::DAY_MONTH_YEAR_RUN_TOGETHER));

// What the run-together writers pass for the separator their rows never ask for.
constexpr char NO_SEPARATOR = ' ';

// The entry steps, then the row of the width. These writers have no layout for any other width and
// no way to show that, so a width outside the table is a broken promise of the host and stops here.
template <std::size_t COUNT>
int writeDigitDate(double value, char* field, int width, const NumericLayouts<COUNT>& layouts,
                   const FailureSite& widthOutside, char separator) noexcept {
    return entry::withDate(field, width, entry::NO_DECIMALS, value,
                           [&layouts, &widthOutside, separator](const Date& date, char*& out, int w) {
                               if (!layouts.covers(w)) [[unlikely]] {
                                   format::fail(widthOutside);
                               }
                               layouts.write(w, out, layout::numericDate(date.yearMonthDay(), separator));
                           });
}

int doDdmmyyn(double value, char* field, int width) noexcept {
    return writeDigitDate(value, field, width, DDMMYY_RUN_TOGETHER, failure::DDMMYYN_WIDTH, NO_SEPARATOR);
}

int doMmddyyn(double value, char* field, int width) noexcept {
    return writeDigitDate(value, field, width, MMDDYY_RUN_TOGETHER, failure::MMDDYYN_WIDTH, NO_SEPARATOR);
}

int doYymmddn(double value, char* field, int width) noexcept {
    return writeDigitDate(value, field, width, YYMMDD_RUN_TOGETHER, failure::YYMMDDN_WIDTH, NO_SEPARATOR);
}

}  // namespace

// 22356 (17 March 2021) with '/': "17/03/21" at width 8, "17/03/2021" at width 10.
int doDdmmyyxFormat(double value, char* field, int width, char separator) {
    return writeDigitDate(value, field, width, DDMMYY_SEPARATED, failure::DDMMYYX_WIDTH, separator);
}

// "03/17/21" at width 8, "03/17/2021" at width 10.
int doMmddyyx(double value, char* field, int width, char separator) {
    return writeDigitDate(value, field, width, MMDDYY_SEPARATED, failure::MMDDYYX_WIDTH, separator);
}

// "21-03-17" at width 8, "2021-03-17" at width 10.
int doYymmddx(double value, char* field, int width, char separator) {
    return writeDigitDate(value, field, width, YYMMDD_SEPARATED, failure::YYMMDDX_WIDTH, separator);
}

}  // namespace kivo::format::datetime

using kivo::format::datetime::doDdmmyyn;
using kivo::format::datetime::doDdmmyyxFormat;
using kivo::format::datetime::doMmddyyn;
using kivo::format::datetime::doMmddyyx;
using kivo::format::datetime::doYymmddn;
using kivo::format::datetime::doYymmddx;

extern "C" {

// The plain DDMMYY and MMDDYY separate with '/', the plain YYMMDD with '-'.
int ddmmyyFormat(char* field, int width, int, double value) { return doDdmmyyxFormat(value, field, width, '/'); }
int ddmmyybFormat(char* field, int width, int, double value) { return doDdmmyyxFormat(value, field, width, ' '); }
int ddmmyycFormat(char* field, int width, int, double value) { return doDdmmyyxFormat(value, field, width, ':'); }
int ddmmyydFormat(char* field, int width, int, double value) { return doDdmmyyxFormat(value, field, width, '-'); }
int ddmmyynFormat(char* field, int width, int, double value) { return doDdmmyyn(value, field, width); }
int ddmmyypFormat(char* field, int width, int, double value) { return doDdmmyyxFormat(value, field, width, '.'); }
int ddmmyysFormat(char* field, int width, int, double value) { return doDdmmyyxFormat(value, field, width, '/'); }

int mmddyyFormat(char* field, int width, int, double value) { return doMmddyyx(value, field, width, '/'); }
int mmddyybFormat(char* field, int width, int, double value) { return doMmddyyx(value, field, width, ' '); }
int mmddyycFormat(char* field, int width, int, double value) { return doMmddyyx(value, field, width, ':'); }
int mmddyydFormat(char* field, int width, int, double value) { return doMmddyyx(value, field, width, '-'); }
int mmddyynFormat(char* field, int width, int, double value) { return doMmddyyn(value, field, width); }
int mmddyypFormat(char* field, int width, int, double value) { return doMmddyyx(value, field, width, '.'); }
int mmddyysFormat(char* field, int width, int, double value) { return doMmddyyx(value, field, width, '/'); }

int yymmddFormat(char* field, int width, int, double value) { return doYymmddx(value, field, width, '-'); }
int yymmddbFormat(char* field, int width, int, double value) { return doYymmddx(value, field, width, ' '); }
int yymmddcFormat(char* field, int width, int, double value) { return doYymmddx(value, field, width, ':'); }
int yymmdddFormat(char* field, int width, int, double value) { return doYymmddx(value, field, width, '-'); }
int yymmddnFormat(char* field, int width, int, double value) { return doYymmddn(value, field, width); }
int yymmddpFormat(char* field, int width, int, double value) { return doYymmddx(value, field, width, '.'); }
int yymmddsFormat(char* field, int width, int, double value) { return doYymmddx(value, field, width, '/'); }

}  // extern "C"
