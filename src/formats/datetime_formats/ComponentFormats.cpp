// Formats that show one component of a date: day, weekday, day of year, month, quarter and the names
// of the weekday and month.
#include "formats/FieldWriting.h"
#include "formats/datetime_formats/FormatEntry.h"
#include "formats/datetime_formats/Quarters.h"
#include "kivo/Formats.h"
#include "kivox/Names.h"

namespace kivo::format::datetime {

namespace {

// The component takes `positions` bytes at the right of the field. A field too narrow for it (a width
// the host is not meant to pass) shows "*" instead of being overrun.
template <class WriteComponent>
void rightAligned(char*& out, int width, int positions, WriteComponent writeComponent) noexcept {
    if (width < positions) {
        field::stars(out, width);
        return;
    }
    field::blanks(out, width - positions);
    writeComponent(out);
}

// A name right-aligned when the field is wider than the name, otherwise its first `width` characters:
// a name is cut on the right rather than replaced by "*".
void nameRightAlignedOrCut(char*& out, int width, const char* name, int length) noexcept {
    if (width > length) {
        field::blanks(out, width - length);
        field::text(out, name, length);
    } else {
        field::text(out, name, width);
    }
}

// MONTH at width 1: one character per month, the letters A, B and C for October to December.
constexpr char SINGLE_CHARACTER_MONTHS[] = "?123456789ABC";
static_assert(sizeof SINGLE_CHARACTER_MONTHS == 1 + 12 + 1);  // a month 1..12, and the literal's NUL

void writeDay(const Date& date, char*& out, int width) noexcept {
    rightAligned(out, width, 2, [&](char*& o) { field::twoDigitsBlankLed(o, date.day()); });
}

void writeWeekday(const Date& date, char*& out, int width) noexcept {
    rightAligned(out, width, 1, [&](char*& o) { field::digit(o, date.dayOfWeek()); });
}

void writeDayOfYear(const Date& date, char*& out, int width) noexcept {
    rightAligned(out, width, 3, [&](char*& o) { field::threeDigitsBlankLed(o, date.dayOfYear()); });
}

void writeMonth(const Date& date, char*& out, int width) noexcept {
    const int month = date.month();
    if (width == 1) {
        *out++ = SINGLE_CHARACTER_MONTHS[month];
        return;
    }
    rightAligned(out, width, 2, [&](char*& o) { field::twoDigitsBlankLed(o, month); });
}

void writeQuarter(const Date& date, char*& out, int width) noexcept {
    rightAligned(out, width, 1, [&](char*& o) { field::digit(o, quarterOf(date.month())); });
}

void writeRomanQuarter(const Date& date, char*& out, int width) noexcept {
    const RomanQuarter& numeral = ROMAN_QUARTERS[quarterOf(date.month())];
    nameRightAlignedOrCut(out, width, numeral.text, numeral.length);
}

void writeWeekdayName(const Date& date, char*& out, int width) noexcept {
    const int day = date.dayOfWeek();
    nameRightAlignedOrCut(out, width, DayOfWeek::longName(day), DayOfWeek::longNameLength(day));
}

void writeMonthName(const Date& date, char*& out, int width) noexcept {
    const int month = date.month();
    nameRightAlignedOrCut(out, width, Month::longName(month), Month::longNameLength(month));
}

}  // namespace

}  // namespace kivo::format::datetime

namespace datetime = kivo::format::datetime;
namespace entry = kivo::format::datetime::entry;
namespace limits = kivo::limits;

extern "C" {

int dayFormat(char* field, int width, int, double value) {
    return entry::withDate(field, width, entry::NO_DECIMALS, value, datetime::writeDay);
}

int weekdayFormat(char* field, int width, int, double value) {
    return entry::withDate(field, width, entry::NO_DECIMALS, value, datetime::writeWeekday);
}

int juldayFormat(char* field, int width, int, double value) {
    return entry::withDate(field, width, entry::NO_DECIMALS, value, datetime::writeDayOfYear);
}

int monthFormat(char* field, int width, int, double value) {
    return entry::withDate(field, width, entry::NO_DECIMALS, value, datetime::writeMonth);
}

int qtrFormat(char* field, int width, int decimals, double value) {
    return entry::withDate(field, width, entry::decimalsUse(limits::QUARTER.decimals, decimals), value, datetime::writeQuarter);
}

int qtrrFormat(char* field, int width, int decimals, double value) {
    return entry::withDate(field, width, entry::decimalsUse(limits::ROMAN_QUARTER.decimals, decimals), value,
                           datetime::writeRomanQuarter);
}

int downameFormat(char* field, int width, int decimals, double value) {
    return entry::withDate(field, width, entry::decimalsUse(limits::NAME.decimals, decimals), value,
                           datetime::writeWeekdayName);
}

int monnameFormat(char* field, int width, int decimals, double value) {
    return entry::withDate(field, width, entry::decimalsUse(limits::NAME.decimals, decimals), value,
                           datetime::writeMonthName);
}

}  // extern "C"
