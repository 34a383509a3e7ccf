// The year with the quarter as a Roman numeral: YYQR ("2021QI"), its separated variants and YYQRN.
//
// The numeral is written whole and the year takes what it and the separator leave, so one width lays
// out the quarters differently: at width 7 the first quarter is " 1960QI", the second "1960QII", the
// third " 60QIII". The host's width ranges start where the longest numeral still leaves the year two
// positions; a narrower field shows "*".
#include "formats/FieldLimits.h"
#include "formats/datetime_formats/DateLayout.h"
#include "formats/datetime_formats/FormatEntry.h"
#include "kivo/Formats.h"
#include "kivo/format/datetime/DateWriters.h"

namespace kivo::format::datetime {

namespace {

// The year first, in what the numeral and any separator leave.
constexpr layout::Row<layout::NumericDate> YYQR_SEPARATED = layout::row<"PsR", layout::NumericDate>;
constexpr layout::Row<layout::NumericDate> YYQR_RUN_TOGETHER = layout::row<"PR", layout::NumericDate>;
// The narrowest widths leave the year two positions beside the longest numeral.
static_assert(limits::YEAR_ROMAN_QUARTER.minWidth - YYQR_SEPARATED.longestLength == 2 &&
              limits::YEAR_ROMAN_QUARTER_RUN_TOGETHER.minWidth - YYQR_RUN_TOGETHER.longestLength == 2);

void writeYyqrn(const Date& date, char*& out, int width) noexcept {
    out = YYQR_RUN_TOGETHER.write(out, layout::numericDate(date.yearMonth()), width);
}

}  // namespace

// 22356 (March 2021) with 'Q': "21QI" at width 4, "2021QI" at width 6, "  2021QI" at width 8.
int doYyqrx(double value, char* field, int width, char separator) {
    return entry::withDate(field, width, entry::NO_DECIMALS, value, [separator](const Date& date, char*& out, int w) {
        out = YYQR_SEPARATED.write(out, layout::numericDate(date.yearMonth(), separator), w);
    });
}

}  // namespace kivo::format::datetime

namespace datetime = kivo::format::datetime;
namespace entry = kivo::format::datetime::entry;

extern "C" {

// The plain YYQR separates with the letter Q.
int yyqrFormat(char* field, int width, int, double value) { return datetime::doYyqrx(value, field, width, 'Q'); }
int yyqrcFormat(char* field, int width, int, double value) { return datetime::doYyqrx(value, field, width, ':'); }
int yyqrdFormat(char* field, int width, int, double value) { return datetime::doYyqrx(value, field, width, '-'); }
int yyqrpFormat(char* field, int width, int, double value) { return datetime::doYyqrx(value, field, width, '.'); }
int yyqrsFormat(char* field, int width, int, double value) { return datetime::doYyqrx(value, field, width, '/'); }
int yyqrnFormat(char* field, int width, int, double value) {
    return entry::withDate(field, width, entry::NO_DECIMALS, value, datetime::writeYyqrn);
}

}  // extern "C"
