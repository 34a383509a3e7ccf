#include "formats/FieldWriting.h"
#include "formats/datetime_formats/FormatEntry.h"
#include "kivo/Formats.h"
#include "kivo/format/datetime/DateWriters.h"

namespace kivo::format::datetime {

void doYearFormat(const Date& date, char*& out, int width) {
    const int year = date.year();
    switch (width) {
        case 2:
            field::twoDigits(out, year % 100);
            return;
        case 3:
            field::blanks(out, 1);
            field::twoDigits(out, year % 100);
            return;
        case 4:
            field::fourDigitYearOrStars(out, year);
            return;
        default:
            break;
    }
    // A field narrower than two holds no year: rather than write past it, fill it with "*".
    if (width < 5) {
        field::stars(out, width);
        return;
    }
    // Wider fields right-align the whole year; five digits appear only here.
    if (year <= field::LARGEST_FOUR_DIGIT_YEAR) {
        field::blanks(out, width - 4);
        field::fourDigits(out, year);
    } else {
        field::blanks(out, width - 5);
        field::fiveDigits(out, year);
    }
}

}  // namespace kivo::format::datetime

using kivo::format::datetime::doYearFormat;
namespace entry = kivo::format::datetime::entry;

extern "C" {

int yearFormat(char* field, int width, int decimals, double value) {
    return entry::withDate(field, width, decimals, decimals, value, doYearFormat);
}

int dtyearFormat(char* field, int width, int, double value) {
    return entry::withDatetimeDate(field, width, 0, 0, value, doYearFormat);
}

}  // extern "C"
