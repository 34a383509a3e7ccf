// The year with the quarter as a digit: YYQ ("2021Q1"), the separated YYQx variants and DTYYQC, and
// YYQN without separator. The year comes first, in the room the quarter leaves.
#include "formats/FieldLimits.h"
#include "formats/datetime_formats/DateLayout.h"
#include "formats/datetime_formats/FormatEntry.h"
#include "kivo/Formats.h"
#include "kivo/format/datetime/DateWriters.h"

namespace kivo::format::datetime {

namespace {

// The year first, in what the quarter and any separator leave: 2 positions at width 4 (3 run together),
// 4 at width 6 (5).
constexpr layout::Row<layout::NumericDate> YYQ_SEPARATED = layout::row<"Psq", layout::NumericDate>;
constexpr layout::Row<layout::NumericDate> YYQ_RUN_TOGETHER = layout::row<"Pq", layout::NumericDate>;
static_assert(limits::YEAR_QUARTER.minWidth - YYQ_SEPARATED.longestLength == 2 &&
              limits::YEAR_QUARTER_RUN_TOGETHER.minWidth - YYQ_RUN_TOGETHER.longestLength == 2);

// YYQ is the separated layout with the letter Q between year and quarter.
template <char SEPARATOR>
void writeYyq(const Date& date, char*& out, int width) noexcept {
    doYyqxFormat(date, out, width, SEPARATOR);
}

void writeYyqn(const Date& date, char*& out, int width) noexcept {
    out = YYQ_RUN_TOGETHER.write(out, layout::numericDate(date.yearMonth()), width);
}

}  // namespace

// 22356 (March 2021) with '-': "21-1" at width 4, "2021-1" at width 6, "  2021-1" at width 8.
void doYyqxFormat(const Date& date, char*& out, int width, char separator) {
    out = YYQ_SEPARATED.write(out, layout::numericDate(date.yearMonth(), separator), width);
}

}  // namespace kivo::format::datetime

namespace datetime = kivo::format::datetime;
namespace entry = kivo::format::datetime::entry;

extern "C" {

int yyqFormat(char* field, int width, int, double value) {
    return entry::withDate(field, width, entry::NO_DECIMALS, value, datetime::writeYyq<'Q'>);
}
int yyqcFormat(char* field, int width, int, double value) {
    return entry::withDate(field, width, entry::NO_DECIMALS, value, datetime::writeYyq<':'>);
}
int dtyyqcFormat(char* field, int width, int, double value) {
    return entry::withDatetimeDate(field, width, entry::NO_DECIMALS, value, datetime::writeYyq<':'>);
}
int yyqdFormat(char* field, int width, int, double value) {
    return entry::withDate(field, width, entry::NO_DECIMALS, value, datetime::writeYyq<'-'>);
}
int yyqpFormat(char* field, int width, int, double value) {
    return entry::withDate(field, width, entry::NO_DECIMALS, value, datetime::writeYyq<'.'>);
}
int yyqsFormat(char* field, int width, int, double value) {
    return entry::withDate(field, width, entry::NO_DECIMALS, value, datetime::writeYyq<'/'>);
}
int yyqnFormat(char* field, int width, int, double value) {
    return entry::withDate(field, width, entry::NO_DECIMALS, value, datetime::writeYyqn);
}

}  // extern "C"
