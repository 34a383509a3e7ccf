// The informats of a date in one fixed layout other than three numbers: a month abbreviation between
// day and year (DATE) or before the year (MONYY), one run of digits (YYMMN, JULIAN), a year and a
// quarter (YYQ), and yyyy-mm-dd (CANDATE).
#include "formats/datetime_formats/InformatEntry.h"
#include "formats/datetime_formats/InformatValues.h"
#include "formats/datetime_formats/TextReaders.h"
#include "kivo/Informats.h"
#include "kivox/Calendar.h"

namespace kivo::informat {

namespace {

using entry::MissingNotation;
using entry::readTextField;
using lum_date::expand2DigitYear;

// What follows the year is not looked at.
bool readDayMonthAbbrevYearDate(const char* cursor, const char* end, double& value) noexcept {
    int day = 0;
    int month = 0;
    int year = 0;
    return readDayMonthAbbrevYear(cursor, end, day, month, year) && storeDay(expand2DigitYear(year), month, day, value);
}

// A month abbreviation at the first character, then the year; the first day of that month.
bool readMonthAbbrevYear(const char* cursor, const char* end, double& value) noexcept {
    int month = 0;
    int year = 0;
    if (!readMonthAbbrev(cursor, end, month)) {
        return false;
    }
    text::skipNonAlnum(cursor, end);
    return readUnsignedInt(cursor, end, year) && storeDay(expand2DigitYear(year), month, 1, value);
}

// One number over the whole field.
bool readWholeFieldNumber(const char* cursor, const char* end, int& n) noexcept {
    return readUnsignedInt(cursor, end, n) && cursor == end;
}

// yyyymm or yymm: the first day of the month.
bool readYearMonthDigits(const char* cursor, const char* end, double& value) noexcept {
    int n = 0;
    return readWholeFieldNumber(cursor, end, n) && storeDay(expand2DigitYear(n / 100), n % 100, 1, value);
}

// yyyyddd or yyddd: the year and the day of the year in three digits.
bool readYearDayOfYearDigits(const char* cursor, const char* end, double& value) noexcept {
    int n = 0;
    return readWholeFieldNumber(cursor, end, n) && storeDay(Date(expand2DigitYear(n / 1000), n % 1000), value);
}

// The year, "Q" in either case, the quarter 1..4: the first day of the quarter.
bool readYearQuarter(const char* cursor, const char* end, double& value) noexcept {
    int year = 0;
    int quarter = 0;
    if (!readUnsignedInt(cursor, end, year) || cursor == end || text::upper(*cursor) != 'Q') {
        return false;
    }
    ++cursor;
    return readUnsignedInt(cursor, end, quarter) && cursor == end && quarter >= 1 && quarter <= 4 &&
           storeDay(expand2DigitYear(year), 3 * quarter - 2, 1, value);
}

bool readWholeFieldIsoDate(const char* cursor, const char* end, double& value) noexcept {
    return readIsoDate(cursor, end, value) && cursor == end;
}

}  // namespace

}  // namespace kivo::informat

using namespace kivo::informat;

extern "C" {

int dateInformat(const char* text, int width, int, int, double* result) {
    return readTextField(text, width, result, readDayMonthAbbrevYearDate);
}

int monyyInformat(const char* text, int width, int, int, double* result) {
    return readTextField(text, width, result, readMonthAbbrevYear);
}

int yymmnInformat(const char* text, int width, int, int, double* result) {
    return readTextField(text, width, result, readYearMonthDigits);
}

int julianInformat(const char* text, int width, int, int, double* result) {
    return readTextField(text, width, result, readYearDayOfYearDigits);
}

// A missing-value notation is no quarter: it fails like any other text without one.
int yyqInformat(const char* text, int width, int, int, double* result) {
    return readTextField(text, width, result, readYearQuarter, MissingNotation::REJECTED);
}

int candateInformat(const char* text, int width, int, int, double* result) {
    return readTextField(text, width, result, readWholeFieldIsoDate);
}

}  // extern "C"
