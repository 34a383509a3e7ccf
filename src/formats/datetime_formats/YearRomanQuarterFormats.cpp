// The year with the quarter as a Roman numeral: YYQR ("2021QI"), its separated variants and YYQRN.
//
// The numeral is written whole and the year takes what it and the separator leave, so one width lays
// out the quarters differently: at width 7 the first quarter is " 1960QI", the second "1960QII", the
// third " 60QIII". The host's width ranges start where the longest numeral still leaves the year two
// positions; narrower fields are not guarded here.
#include "formats/FieldWriting.h"
#include "formats/datetime_formats/FormatEntry.h"
#include "formats/datetime_formats/Quarters.h"
#include "kivo/Formats.h"
#include "kivo/format/datetime/DateWriters.h"

namespace kivo::format::datetime {

namespace {

const RomanQuarter& romanQuarterOf(int month) noexcept { return ROMAN_QUARTERS[quarterOf(month)]; }

void writeYyqrn(const Date& date, char*& out, int width) noexcept {
    const Date::YM ym = date.yearMonth();
    const RomanQuarter& numeral = romanQuarterOf(ym.month);
    field::yearInPositions(out, width - numeral.length, ym.year);
    field::text(out, numeral.text, numeral.length);
}

}  // namespace

int doYyqrx(double value, char* field, int width, char separator) {
    return entry::withDate(field, width, 0, 0, value, [separator](const Date& date, char*& out, int w) {
        const Date::YM ym = date.yearMonth();
        const RomanQuarter& numeral = romanQuarterOf(ym.month);
        field::yearInPositions(out, w - numeral.length - 1, ym.year);
        *out++ = separator;
        field::text(out, numeral.text, numeral.length);
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
    return entry::withDate(field, width, 0, 0, value, datetime::writeYyqrn);
}

}  // extern "C"
