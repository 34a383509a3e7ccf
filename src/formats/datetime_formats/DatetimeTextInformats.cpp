// The informats of a date followed by a time, each in one fixed layout: DATETIME (15JAN2000:10:30:00),
// MDYAMPM and DMYAMPM (01/15/2000 10:30 PM), MONDYTM (JAN 15 2000 10:30:00 PM), YMDDTTM
// (2000-01-15T10:30) and CANSTAMP (2000-01-15 10:30:00). Each reads its date, then its time, and
// stores day serial × 86400 + the seconds.
#include "formats/datetime_formats/InformatEntry.h"
#include "formats/datetime_formats/InformatValues.h"
#include "formats/datetime_formats/TextReaders.h"
#include "kivo/Informats.h"
#include "kivox/Calendar.h"

namespace kivo::informat {

namespace {

using entry::readTextField;
using lum_date::expand2DigitYear;

// Reads the date part into a day serial.
using DateReader = bool (*)(const char*& cursor, const char* end, double& daySerial);
// Steps over what stands between the date and the time.
using Joint = void (*)(const char*& cursor, const char* end);

// The time after the date: hours and minutes, seconds and AM/PM as they come, up to the field's end.
bool readTimeToEnd(const char*& cursor, const char* end, double& seconds) noexcept {
    return readTimeAmPm(cursor, end, seconds) && cursor == end;
}

// The date, then what stands between date and time, then the time.
bool readDateAndTime(const char* cursor, const char* end, double& value, DateReader readDate, Joint joint) noexcept {
    double day = 0;
    double seconds = 0;
    if (!readDate(cursor, end, day)) {
        return false;
    }
    joint(cursor, end);
    if (!readTimeToEnd(cursor, end, seconds)) {
        return false;
    }
    value = datetimeOf(day, seconds);
    return true;
}

bool readDayMonthAbbrevYearDate(const char*& cursor, const char* end, double& day) noexcept {
    int dayOfMonth = 0;
    int month = 0;
    int year = 0;
    return readDayMonthAbbrevYear(cursor, end, dayOfMonth, month, year) &&
           storeDay(expand2DigitYear(year), month, dayOfMonth, day);
}

// Three numbers with one separator character between them, used twice.
bool readSeparatedNumbers(const char*& cursor, const char* end, int (&numbers)[3]) noexcept {
    char separator = 0;
    return readUnsignedInt(cursor, end, numbers[0]) && text::takeSeparator(cursor, end, separator) &&
           readUnsignedInt(cursor, end, numbers[1]) && text::take(cursor, end, separator) &&
           readUnsignedInt(cursor, end, numbers[2]);
}

// A separated date; D, M and Y are the places (0, 1, 2) of its day, month and year.
template <int D, int M, int Y>
bool readSeparatedDate(const char*& cursor, const char* end, double& day) noexcept {
    int numbers[3] = {};
    return readSeparatedNumbers(cursor, end, numbers) &&
           storeDay(expand2DigitYear(numbers[Y]), numbers[M], numbers[D], day);
}

// A month abbreviation at the first character, then day and year, blanks and tabs between them.
bool readMonthAbbrevDayYear(const char*& cursor, const char* end, double& day) noexcept {
    int month = 0;
    int dayOfMonth = 0;
    int year = 0;
    if (!readMonthAbbrev(cursor, end, month)) {
        return false;
    }
    text::skipBlanksAndTabs(cursor, end);
    if (!readUnsignedInt(cursor, end, dayOfMonth)) {
        return false;
    }
    text::skipBlanksAndTabs(cursor, end);
    return readUnsignedInt(cursor, end, year) && storeDay(expand2DigitYear(year), month, dayOfMonth, day);
}

// Blanks and tabs, then any one character that is not a digit (":" or "T" as a rule).
void stepOverJoint(const char*& cursor, const char* end) noexcept {
    text::skipBlanksAndTabs(cursor, end);
    if (cursor < end && !text::isDigit(cursor)) {
        ++cursor;
    }
}

// DATETIME's: blanks and tabs on both sides of the joint, then one optional "-".
void stepOverDatetimeJoint(const char*& cursor, const char* end) noexcept {
    stepOverJoint(cursor, end);
    text::skipBlanksAndTabs(cursor, end);
    text::take(cursor, end, '-');
}

// yyyy-mm-dd, exactly one blank, hh:mm:ss.
bool readCanonicalStamp(const char* cursor, const char* end, double& value) noexcept {
    double day = 0;
    double seconds = 0;
    if (!readIsoDate(cursor, end, day) || !text::take(cursor, end, ' ') || !readClockTime(cursor, end, seconds)) {
        return false;
    }
    value = datetimeOf(day, seconds);
    return true;
}

// The informat of one date reader and one joint.
template <DateReader readDate, Joint joint>
int readDatetimeField(const char* text, int width, double* result) noexcept {
    return readTextField(text, width, result, [](const char* cursor, const char* end, double& value) {
        return readDateAndTime(cursor, end, value, readDate, joint);
    });
}

}  // namespace

}  // namespace kivo::informat

using namespace kivo::informat;

extern "C" {

int datetimeInformat(const char* text, int width, int, int, double* result) {
    return readDatetimeField<readDayMonthAbbrevYearDate, stepOverDatetimeJoint>(text, width, result);
}

int mdyampmInformat(const char* text, int width, int, int, double* result) {
    return readDatetimeField<readSeparatedDate<1, 0, 2>, kivo::text::skipBlanksAndTabs>(text, width, result);
}

int dmyampmInformat(const char* text, int width, int, int, double* result) {
    return readDatetimeField<readSeparatedDate<0, 1, 2>, kivo::text::skipBlanksAndTabs>(text, width, result);
}

int mondytmInformat(const char* text, int width, int, int, double* result) {
    return readDatetimeField<readMonthAbbrevDayYear, kivo::text::skipBlanksAndTabs>(text, width, result);
}

int ymddttmInformat(const char* text, int width, int, int, double* result) {
    return readDatetimeField<readSeparatedDate<2, 1, 0>, stepOverJoint>(text, width, result);
}

int canstampInformat(const char* text, int width, int, int, double* result) {
    return readTextField(text, width, result, readCanonicalStamp);
}

}  // extern "C"
