// Week numbers under the host's three week conventions: WEEKU, WEEKV and WEEKW (2021-W11-04) and the
// year-first YYWEEKU, YYWEEKV and YYWEEKW (2021-W11). The host does the week arithmetic; this writer
// only lays out its year, week and weekday. Unlike the other date formats the text is left-aligned,
// with the blanks after it, so that week texts of one width line up on their year.
#include "formats/FieldLimits.h"
#include "formats/FieldWriting.h"
#include "formats/datetime_formats/DateLayout.h"
#include "formats/datetime_formats/FormatEntry.h"
#include "kivo/Formats.h"
#include "kivo/format/datetime/DateWriters.h"

namespace kivo::format::datetime {

namespace {

using layout::WeekDate;

template <layout::Pieces ROW>
constexpr layout::Row<WeekDate> row = layout::row<ROW, WeekDate>;

struct WeekLayout {
    layout::Row<WeekDate> withDay;     // WEEKx
    layout::Row<WeekDate> withoutDay;  // YYWEEKx: at widths 7 and 8 the four-digit year comes first
};

constexpr int NARROWEST = limits::WEEK.minWidth;
constexpr int WIDEST_TEXT = 11;
static_assert(limits::YEAR_WEEK.minWidth == NARROWEST);

constexpr WeekLayout WEEK_LAYOUTS[WIDEST_TEXT - NARROWEST + 1] = {
    {row<"W">, row<"W">},          // 3: W11
    {row<"W">, row<"W">},          // 4
    {row<"yW">, row<"yW">},        // 5: 21W11
    {row<"yW">, row<"yW">},        // 6
    {row<"yWu">, row<"GW">},       // 7: 21W1104, 2021W11
    {row<"yWu">, row<"G-W">},      // 8: 21W1104, 2021-W11
    {row<"GWu">, row<"GWu">},      // 9: 2021W1104
    {row<"GWu">, row<"GWu">},      // 10
    {row<"G-W-u">, row<"G-W-u">},  // 11 and wider: 2021-W11-04
};

// Each text fits the width it serves; the blanks after it fill the rest.
constexpr bool eachTextFits() noexcept {
    for (int width = NARROWEST; width <= WIDEST_TEXT; ++width) {
        const WeekLayout& layout = WEEK_LAYOUTS[width - NARROWEST];
        if (layout.withDay.longestLength > width || layout.withoutDay.longestLength > width) {
            return false;
        }
    }
    return WEEK_LAYOUTS[WIDEST_TEXT - NARROWEST].withDay.longestLength == WIDEST_TEXT;
}
static_assert(eachTextFits());

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
    const WeekLayout& layout = WEEK_LAYOUTS[(width < WIDEST_TEXT ? width : WIDEST_TEXT) - NARROWEST];
    char* const start = out;
    out = (withDay ? layout.withDay : layout.withoutDay).write(out, {ywd.year, ywd.week, ywd.day}, width);
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
