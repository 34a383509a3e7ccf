// The year with the quarter as a digit: YYQ ("2021Q1"), the separated YYQx variants and DTYYQC, and
// YYQN without separator. The year comes first, in the room the quarter leaves.
#include "formats/datetime_formats/DateLayout.h"
#include "formats/datetime_formats/FormatEntry.h"
#include "formats/datetime_formats/Quarters.h"
#include "kivo/Formats.h"
#include "kivo/format/datetime/DateWriters.h"

namespace kivo::format::datetime {

namespace {

// YYQ is the separated layout with the letter Q between year and quarter.
template <char SEPARATOR>
void writeYyq(const Date& date, char*& out, int width) noexcept {
    doYyqxFormat(date, out, width, SEPARATOR);
}

// 2 positions for the year at width 3, 4 at width 5.
void writeYyqn(const Date& date, char*& out, int width) noexcept {
    const Date::YM ym = date.yearMonth();
    if (layout::yearBeforeRest(out, width, 1, ym.year)) {
        field::digit(out, quarterOf(ym.month));
    }
}

}  // namespace

// 22356 (March 2021) with '-': "21-1" at width 4, "2021-1" at width 6, "  2021-1" at width 8.
void doYyqxFormat(const Date& date, char*& out, int width, char separator) {
    const Date::YM ym = date.yearMonth();
    if (layout::yearBeforeRest(out, width, 2, ym.year)) {
        *out++ = separator;
        field::digit(out, quarterOf(ym.month));
    }
}

}  // namespace kivo::format::datetime

namespace datetime = kivo::format::datetime;
namespace entry = kivo::format::datetime::entry;

extern "C" {

int yyqFormat(char* field, int width, int, double value) {
    return entry::withDate(field, width, 0, 0, value, datetime::writeYyq<'Q'>);
}
int yyqcFormat(char* field, int width, int, double value) {
    return entry::withDate(field, width, 0, 0, value, datetime::writeYyq<':'>);
}
int dtyyqcFormat(char* field, int width, int, double value) {
    return entry::withDatetimeDate(field, width, 0, 0, value, datetime::writeYyq<':'>);
}
int yyqdFormat(char* field, int width, int, double value) {
    return entry::withDate(field, width, 0, 0, value, datetime::writeYyq<'-'>);
}
int yyqpFormat(char* field, int width, int, double value) {
    return entry::withDate(field, width, 0, 0, value, datetime::writeYyq<'.'>);
}
int yyqsFormat(char* field, int width, int, double value) {
    return entry::withDate(field, width, 0, 0, value, datetime::writeYyq<'/'>);
}
int yyqnFormat(char* field, int width, int, double value) {
    return entry::withDate(field, width, 0, 0, value, datetime::writeYyqn);
}

}  // extern "C"
