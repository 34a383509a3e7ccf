// The month's abbreviation with the year: MONYY and DTMONYY (the month first) and YYMON (the year
// first).
#include <string_view>

#include "formats/FieldLimits.h"
#include "formats/datetime_formats/DateLayout.h"
#include "formats/datetime_formats/FormatEntry.h"
#include "kivo/Formats.h"
#include "kivo/format/datetime/DateWriters.h"
#include "kivox/Names.h"

namespace kivo::format::datetime {

namespace {

using layout::NumericDate;

template <layout::Pieces ROW>
constexpr layout::Row<NumericDate> row = layout::row<ROW, NumericDate>;

constexpr layout::LayoutsByWidth<NumericDate, 3> MONYY_LAYOUTS{limits::MONYY.minWidth,
                                                               {row<"My">, row<" My">, row<"MY">}};
static_assert(MONYY_LAYOUTS.eachRowFillsItsWidth() && MONYY_LAYOUTS.widest() == limits::MONYY.maxWidth);

// The year in what the abbreviation leaves: 2 positions at width 5, 4 at width 7, five digits past
// 9999 in a wider field.
constexpr layout::Row<NumericDate> YYMON = row<"PM">;
static_assert(limits::YYMON.minWidth - YYMON.longestLength == 2);

void writeYymon(const Date& date, char*& out, int width) noexcept {
    out = YYMON.write(out, layout::numericDate(date.yearMonth()), width);
}

}  // namespace

// 22356 (March 2021): "MAR21" at width 5, " MAR21" at 6, "MAR2021" at 7. MONYY has no padded layout:
// any other width leaves the field as it was.
void doMonyyFormat(const Date& date, char*& out, int width) {
    if (MONYY_LAYOUTS.covers(width)) {
        MONYY_LAYOUTS.write(width, out, layout::numericDate(date.yearMonthDay()));
    }
}

}  // namespace kivo::format::datetime

namespace datetime = kivo::format::datetime;
namespace entry = kivo::format::datetime::entry;
namespace limits = kivo::limits;

extern "C" {

int monyyFormat(char* field, int width, int, double value) {
    return entry::withDate(field, width, entry::NO_DECIMALS, value, datetime::doMonyyFormat);
}

int dtmonyyFormat(char* field, int width, int, double value) {
    return entry::withDatetimeDate(field, width, entry::NO_DECIMALS, value, datetime::doMonyyFormat);
}

// The one format of these families whose decimals move the missing character.
int yymonFormat(char* field, int width, int decimals, double value) {
    return entry::withDate(field, width, entry::decimalsUse(limits::YYMON.decimals, decimals), value, datetime::writeYymon);
}

}  // extern "C"
