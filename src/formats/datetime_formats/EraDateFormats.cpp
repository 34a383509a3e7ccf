// Dates in era calendars: MINGUO counts years from 1911 (2021 is year 110), NENGO counts them within
// named eras, each written as one letter (2021 is R03, the third year of the era that began on
// 1 May 2019).
#include <string_view>

#include "formats/FieldWriting.h"
#include "formats/datetime_formats/DatetimeFormatsFailures.h"
#include "formats/datetime_formats/FormatEntry.h"
#include "kivo/Formats.h"

namespace kivo::format::datetime {

namespace {

// An era date as a row of pieces, one character each:
//
//   'L'  the era's letter                       'e'  the year of the era, one digit
//   'y'  the year, two digits (modulo 100)      'Y'  the year, three digits
//   'm'  the month, two digits                  'd'  the day, two digits
//   any other character stands for itself ('/', '.', the blanks and MINGUO's leading '0')
struct EraDate {
    char letter;
    int year;
    Date::MD md;
};

void writeEraPieces(char*& out, std::string_view pieces, const EraDate& date) noexcept {
    for (const char piece : pieces) {
        switch (piece) {
            case 'L':
                *out++ = date.letter;
                break;
            case 'e':
                field::digit(out, date.year);
                break;
            case 'y':
                field::twoDigits(out, date.year % 100);
                break;
            case 'Y':
                field::threeDigits(out, date.year);
                break;
            case 'm':
                field::twoDigits(out, date.md.month);
                break;
            case 'd':
                field::twoDigits(out, date.md.day);
                break;
            default:
                *out++ = piece;
                break;
        }
    }
}

// MINGUO by width, for years up to 99 and for years 100 to 999; an empty row is a field of "*", and
// so is every year from 1000 on.
struct MinguoLayout {
    std::string_view upTo99;
    std::string_view upTo999;
};

constexpr int MINGUO_BASE_YEAR = 1911;
constexpr int MINGUO_NARROWEST = 6;
constexpr int MINGUO_WIDEST = 10;

constexpr MinguoLayout MINGUO_LAYOUTS[MINGUO_WIDEST - MINGUO_NARROWEST + 1] = {
    {"ymd", ""},           // 6: 880317
    {"Ymd", "Ymd"},        // 7: 1100317
    {"y/m/d", "Ymd "},     // 8: 88/03/17, 1100317 and a blank
    {"Y/m/d", "Y/m/d"},    // 9: 110/03/17
    {"0Y/m/d", "0Y/m/d"},  // 10: 0110/03/17
};

// 17 March 2021 (year 110) at width 9: "110/03/17". The year 1911 is year 0; earlier years show "*".
void writeMinguo(const Date& date, char*& out, int width) noexcept {
    const Date::YMD ymd = date.yearMonthDay();
    const int year = ymd.year - MINGUO_BASE_YEAR;
    if (year < 0) {
        field::stars(out, width);
        return;
    }
    if (width < MINGUO_NARROWEST || width > MINGUO_WIDEST) {
        fail(failure::MINGUO_WIDTH);
    }
    const MinguoLayout& layout = MINGUO_LAYOUTS[width - MINGUO_NARROWEST];
    const std::string_view pieces = year <= 99 ? layout.upTo99 : year <= 999 ? layout.upTo999 : std::string_view();
    if (pieces.empty()) {
        field::stars(out, width);
        return;
    }
    writeEraPieces(out, pieces, {' ', year, {ymd.month, ymd.day}});
}

// The eras, in order; each runs up to the day before the next one's first day.
struct Era {
    char letter;
    int firstDay;   // day serial
    int firstYear;  // the calendar year of that day, the era's year 1
};

constexpr Era ERAS[] = {
    {'M', -33358, 1868},  // 1 September 1868
    {'T', -17321, 1912},  // 30 July 1912
    {'S', -12060, 1926},  // 25 December 1926
    {'H', 10600, 1989},   // 8 January 1989
    {'R', 21670, 2019},   // 1 May 2019
};
constexpr int ERA_COUNT = sizeof ERAS / sizeof ERAS[0];

constexpr int NENGO_NARROWEST = 2;
constexpr int NENGO_WIDEST = 10;

// NENGO by width; width 2 shows the year in one digit, and a year above 9 as "**".
constexpr std::string_view NENGO_LAYOUTS[NENGO_WIDEST - NENGO_NARROWEST + 1] = {
    "Le",       // 2: R3
    "Ly",       // 3: R03
    "Ly ",      // 4
    "Ly  ",     // 5
    "Ly/m",     // 6: R03/03
    " Ly/m",    // 7
    "L.ymd",    // 8: R.030317
    "Ly/m/d",   // 9: R03/03/17
    "L.y/m/d",  // 10: R.03/03/17
};

// The era of a day from the first era on.
const Era& eraOf(int daySerial) noexcept {
    int era = 0;
    while (era + 1 < ERA_COUNT && daySerial >= ERAS[era + 1].firstDay) {
        ++era;
    }
    return ERAS[era];
}

// Only the era still running has no end of its own: today's date stands in for it, and a later day,
// which may yet fall in a new era, shows "*".
bool isShown(const Date& date, const Era& era) noexcept {
    return &era != &ERAS[ERA_COUNT - 1] || date <= Date::localDate();
}

// 17 March 2021 at width 9: "R03/03/17". Days before the first era show "*".
void writeNengo(const Date& date, char*& out, int width) noexcept {
    const int daySerial = static_cast<int>(date);
    if (daySerial < ERAS[0].firstDay) {
        field::stars(out, width);
        return;
    }
    const Era& era = eraOf(daySerial);
    if (!isShown(date, era)) {
        field::stars(out, width);
        return;
    }
    if (width < NENGO_NARROWEST || width > NENGO_WIDEST) {
        fail(failure::NENGO_WIDTH);
    }
    const Date::YMD ymd = date.yearMonthDay();
    const int year = ymd.year - era.firstYear + 1;
    if (width == NENGO_NARROWEST && year > 9) {
        field::stars(out, width);
        return;
    }
    writeEraPieces(out, NENGO_LAYOUTS[width - NENGO_NARROWEST], {era.letter, year, {ymd.month, ymd.day}});
}

}  // namespace

}  // namespace kivo::format::datetime

namespace datetime = kivo::format::datetime;
namespace entry = kivo::format::datetime::entry;

extern "C" {

int minguoFormat(char* field, int width, int, double value) {
    return entry::withDate(field, width, entry::NO_DECIMALS, value, datetime::writeMinguo);
}

int nengoFormat(char* field, int width, int, double value) {
    return entry::withDate(field, width, entry::NO_DECIMALS, value, datetime::writeNengo);
}

}  // extern "C"
