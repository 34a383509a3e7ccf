#include "formats/FieldWriting.h"
#include "formats/datetime_formats/FormatEntry.h"
#include "kivo/Formats.h"
#include "kivo/format/datetime/DateWriters.h"
#include "kivox/Names.h"

namespace kivo::format::datetime {

namespace {

void monthAbbreviation(char*& out, int month) noexcept { field::text(out, Month::upperShortName(month), 3); }

void dayMonth(char*& out, int day, int month) noexcept {
    field::twoDigits(out, day);
    monthAbbreviation(out, month);
}

}  // namespace

void doDateFormat(const Date& date, char*& out, int width) {
    if (width < 5 || width > 11) {
        return;
    }
    // Widths 6, 8 and 10 are the layouts of 5, 7 and 9 behind one blank.
    if (width != 11 && width % 2 == 0) {
        field::blanks(out, 1);
    }
    if (width <= 6) {
        const Date::MD md = date.monthDay();
        dayMonth(out, md.day, md.month);
        return;
    }
    const Date::YMD ymd = date.yearMonthDay();
    if (width <= 8) {
        dayMonth(out, ymd.day, ymd.month);
        field::twoDigits(out, ymd.year % 100);
        return;
    }
    if (width <= 10) {
        dayMonth(out, ymd.day, ymd.month);
        field::fourDigitYearOrStars(out, ymd.year);
        return;
    }
    field::twoDigits(out, ymd.day);
    *out++ = '-';
    monthAbbreviation(out, ymd.month);
    *out++ = '-';
    field::fourDigitYearOrStars(out, ymd.year);
}

}  // namespace kivo::format::datetime

using kivo::format::datetime::doDateFormat;
namespace entry = kivo::format::datetime::entry;

extern "C" {

int dateFormat(char* field, int width, int, double value) {
    return entry::withDate(field, width, 0, 0, value, doDateFormat);
}

int dtdateFormat(char* field, int width, int, double value) {
    return entry::withDatetimeDate(field, width, 0, 0, value, doDateFormat);
}

}  // extern "C"
