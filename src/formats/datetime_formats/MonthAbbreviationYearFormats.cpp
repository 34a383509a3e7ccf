// The month's abbreviation with the year: MONYY and DTMONYY (the month first) and YYMON (the year
// first).
#include <string_view>

#include "formats/datetime_formats/DateLayout.h"
#include "formats/datetime_formats/FormatEntry.h"
#include "kivo/Formats.h"
#include "kivo/format/datetime/DateWriters.h"
#include "kivox/Names.h"

namespace kivo::format::datetime {

namespace {

using layout::row;

constexpr layout::LayoutsByWidth<3> MONYY_LAYOUTS{5, {row<"My">, row<" My">, row<"MY">}};

// The year in what the abbreviation leaves: 2 positions at width 5, 4 at width 7, five digits past
// 9999 in a wider field.
void writeYymon(const Date& date, char*& out, int width) noexcept {
    const Date::YM ym = date.yearMonth();
    if (layout::yearBeforeRest(out, width, 3, ym.year)) {
        field::text(out, Month::upperShortName(ym.month), 3);
    }
}

}  // namespace

// 22356 (March 2021): "MAR21" at width 5, " MAR21" at 6, "MAR2021" at 7. MONYY has no padded layout:
// any other width leaves the field as it was.
void doMonyyFormat(const Date& date, char*& out, int width) {
    if (MONYY_LAYOUTS.covers(width)) {
        MONYY_LAYOUTS.write(width, out, date.yearMonthDay(), ' ');
    }
}

}  // namespace kivo::format::datetime

namespace datetime = kivo::format::datetime;
namespace entry = kivo::format::datetime::entry;

extern "C" {

int monyyFormat(char* field, int width, int, double value) {
    return entry::withDate(field, width, 0, 0, value, datetime::doMonyyFormat);
}

int dtmonyyFormat(char* field, int width, int, double value) {
    return entry::withDatetimeDate(field, width, 0, 0, value, datetime::doMonyyFormat);
}

// The one format of these families whose decimals move the missing character.
int yymonFormat(char* field, int width, int decimals, double value) {
    return entry::withDate(field, width, decimals, decimals, value, datetime::writeYymon);
}

}  // extern "C"
