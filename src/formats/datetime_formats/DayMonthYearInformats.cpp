// The informats of a date written as three numbers, day, month and year in some order, either with
// one separator character repeated between them or as one run of digits: DDMMYY, MMDDYY, YYMMDD, and
// the era-year forms MINGUO and NENGO.
#include <climits>

#include "formats/FieldLimits.h"
#include "formats/datetime_formats/EraCalendar.h"
#include "formats/datetime_formats/InformatEntry.h"
#include "formats/datetime_formats/InformatValues.h"
#include "formats/datetime_formats/TextReaders.h"
#include "kivo/Informats.h"
#include "kivox/Calendar.h"

namespace kivo::informat {

namespace {

using entry::readTextField;

// Day or month first, the year last: two-digit parts and a year of two digits up to six digits in
// all, of four digits up to eight, and of five beyond.
ThreeNumbers splitYearLast(int n) {
    if (n <= 999999) {
        return {n / 10000, n / 100 % 100, n % 100};
    }
    if (n <= 99999999) {
        return {n / 1000000, n / 10000 % 100, n % 10000};
    }
    return {n / 10000000, n / 100000 % 100, n % 100000};
}

// The year first, then two digits of month and two of day: six and eight digits both work.
ThreeNumbers splitYearFirst(int n) { return {n / 10000, n / 100 % 100, n % 100}; }

// Where a layout puts the day, the month and the year among the three numbers (0, 1, 2).
struct NumericDateLayout {
    int dayAt;
    int monthAt;
    int yearAt;
    DigitRunSplit split;
};

constexpr NumericDateLayout DAY_MONTH_YEAR{0, 1, 2, splitYearLast};
constexpr NumericDateLayout MONTH_DAY_YEAR{1, 0, 2, splitYearLast};
constexpr NumericDateLayout YEAR_MONTH_DAY{2, 1, 0, splitYearFirst};

// The shortest narrowed fields that can hold a whole date of the year-first layouts (00115); the era
// forms want six characters, NENGO's letter counted in (01/1/1, R1/1/1).
constexpr int SHORTEST_YEAR_FIRST = limits::YEAR_MONTH_DAY_TEXT.minWidth;
constexpr int SHORTEST_ERA_DATE = limits::MINGUO_TEXT.minWidth;
static_assert(limits::NENGO_TEXT.minWidth == SHORTEST_ERA_DATE);

struct WrittenDate {
    int year;  // as written: two digits, four, or an era year
    int month;
    int day;
};

template <const NumericDateLayout& LAYOUT>
bool readNumericDate(const char*& cursor, const char* end, WrittenDate& date) noexcept {
    ThreeNumbers numbers{};
    if (readFixedThreeNumbers<LAYOUT.yearAt>(cursor, end, numbers)) {
        cursor = end;
    } else {
        // Its own copy: the general reader takes the numbers' address, and the fixed shape's numbers
        // would then leave the registers too.
        ThreeNumbers general{};
        if (!readThreeNumbers(cursor, end, LAYOUT.split, general)) {
            return false;
        }
        numbers = general;
    }
    const int parts[3] = {numbers.first, numbers.second, numbers.third};
    date = {parts[LAYOUT.yearAt], parts[LAYOUT.monthAt], parts[LAYOUT.dayAt]};
    return true;
}

template <const NumericDateLayout& LAYOUT, int SHORTEST>
int readExpandedYearDate(const char* text, int width, double* result) noexcept {
    return readTextField(text, width, result, [](const char* cursor, const char* end, double& value) {
        WrittenDate date{};
        return end - cursor >= SHORTEST && readNumericDate<LAYOUT>(cursor, end, date) &&
               storeDay(lum_date::expand2DigitYear(date.year), date.month, date.day, value);
    });
}

// The date of an era year counted from base (the year before the era's year 1). A year that would
// carry the sum past the int range names no date.
bool storeEraDay(int base, const WrittenDate& date, double& value) noexcept {
    return date.year <= INT_MAX - base && storeDay(base + date.year, date.month, date.day, value);
}

int readMinguoDate(const char* text, int width, double* result) noexcept {
    return readTextField(text, width, result, [](const char* cursor, const char* end, double& value) {
        WrittenDate date{};
        return end - cursor >= SHORTEST_ERA_DATE && readNumericDate<YEAR_MONTH_DAY>(cursor, end, date) &&
               storeEraDay(era::MINGUO_BASE, date, value);
    });
}

// The era letter, in either case, and the "." that may follow it; without a letter the running era.
const era::Era& readEra(const char*& cursor, const char* end) noexcept {
    for (const era::Era& era : era::ERAS) {
        if (cursor < end && text::upper(*cursor) == era.letter) {
            ++cursor;
            text::take(cursor, end, '.');
            return era;
        }
    }
    return era::RUNNING_ERA;
}

// An era year the era reaches; the running era has no last year.
bool withinEra(const era::Era& era, int year) noexcept {
    return era::isRunning(era) || year <= era::lastYearOf(era);
}

int readNengoDate(const char* text, int width, double* result) noexcept {
    return readTextField(text, width, result, [](const char* cursor, const char* end, double& value) {
        if (end - cursor < SHORTEST_ERA_DATE) {
            return false;
        }
        const era::Era& era = readEra(cursor, end);
        WrittenDate date{};
        return readNumericDate<YEAR_MONTH_DAY>(cursor, end, date) && withinEra(era, date.year) &&
               storeEraDay(era.base(), date, value);
    });
}

}  // namespace

}  // namespace kivo::informat

using namespace kivo::informat;

extern "C" {

int ddmmyyInformat(const char* text, int width, int, int, double* result) {
    return readExpandedYearDate<DAY_MONTH_YEAR, 0>(text, width, result);
}

int mmddyyInformat(const char* text, int width, int, int, double* result) {
    return readExpandedYearDate<MONTH_DAY_YEAR, 0>(text, width, result);
}

int yymmddInformat(const char* text, int width, int, int, double* result) {
    return readExpandedYearDate<YEAR_MONTH_DAY, SHORTEST_YEAR_FIRST>(text, width, result);
}

int minguoInformat(const char* text, int width, int, int, double* result) {
    return readMinguoDate(text, width, result);
}

int nengoInformat(const char* text, int width, int, int, double* result) { return readNengoDate(text, width, result); }

}  // extern "C"
