#include "kivox/Names.h"

namespace kivo {

namespace {

struct Name {
    const char* text;
    int length;
};

constexpr Name MONTH_LONG[13] = {{"", 0},         {"January", 7},  {"February", 8}, {"March", 5},    {"April", 5},
                                 {"May", 3},      {"June", 4},     {"July", 4},     {"August", 6},   {"September", 9},
                                 {"October", 7},  {"November", 8}, {"December", 8}};
constexpr const char* MONTH_SHORT[13] = {"",    "Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                         "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
constexpr const char* MONTH_UPPER_SHORT[13] = {"",    "JAN", "FEB", "MAR", "APR", "MAY", "JUN",
                                               "JUL", "AUG", "SEP", "OCT", "NOV", "DEC"};
constexpr Name WEEKDAY_LONG[8] = {{"", 0},          {"Sunday", 6},   {"Monday", 6}, {"Tuesday", 7},
                                  {"Wednesday", 9}, {"Thursday", 8}, {"Friday", 6}, {"Saturday", 8}};
constexpr const char* WEEKDAY_SHORT[8] = {"", "Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};

// Out-of-range arguments get the empty name rather than a read past the tables.
constexpr int monthIndex(int month) noexcept { return month >= 1 && month <= 12 ? month : 0; }
constexpr int weekdayIndex(int day) noexcept { return day >= 1 && day <= 7 ? day : 0; }

}  // namespace

const char* Month::longName(int month) noexcept { return MONTH_LONG[monthIndex(month)].text; }
int Month::longNameLength(int month) noexcept { return MONTH_LONG[monthIndex(month)].length; }
const char* Month::shortName(int month) noexcept { return MONTH_SHORT[monthIndex(month)]; }
const char* Month::upperShortName(int month) noexcept { return MONTH_UPPER_SHORT[monthIndex(month)]; }

const char* DayOfWeek::longName(int day) noexcept { return WEEKDAY_LONG[weekdayIndex(day)].text; }
int DayOfWeek::longNameLength(int day) noexcept { return WEEKDAY_LONG[weekdayIndex(day)].length; }
const char* DayOfWeek::shortName(int day) noexcept { return WEEKDAY_SHORT[weekdayIndex(day)]; }

}  // namespace kivo
