#include "kivoconvert/DateOrder.h"

#include <array>

namespace kivoconvert {

namespace {

constexpr std::string_view STYLE_NAMES[] = {"", "dmy", "dym", "mdy", "myd", "ydm", "ymd", ""};

// The largest number a date position holds; longer runs are years or no date at all.
constexpr int LONGEST_RUN = 5;
constexpr int LAST_DAY = 31;
constexpr int LAST_MONTH = 12;
constexpr int YEAR_DIGITS = 3;  // a number of three digits or more can only be a year

bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool isDateSeparator(char c) { return c == '/' || c == '-' || c == '.' || c == ' '; }

struct Number {
    int value = 0;
    int digits = 0;
};

// The three numbers a text begins with, one separator between each; false when it does not.
bool firstThreeNumbers(std::string_view text, std::array<Number, 3>& numbers) {
    std::size_t pos = text.find_first_not_of(' ');
    for (std::size_t n = 0; n < numbers.size(); ++n) {
        if (n > 0) {
            if (pos >= text.size() || !isDateSeparator(text[pos])) {
                return false;
            }
            ++pos;
        }
        Number& number = numbers[n];
        for (; pos < text.size() && isDigit(text[pos]) && number.digits <= LONGEST_RUN; ++pos) {
            number.value = number.value * 10 + (text[pos] - '0');
            ++number.digits;
        }
        if (number.digits == 0 || number.digits > LONGEST_RUN) {
            return false;
        }
    }
    // The date part ends with its third number: at the text's end, or where a time begins.
    return pos == text.size() || text[pos] == ' ' || !isDateSeparator(text[pos]);
}

bool isYear(const Number& number) { return number.digits >= YEAR_DIGITS || number.value > LAST_DAY; }

}  // namespace

std::string_view styleName(DateOrder order) noexcept { return STYLE_NAMES[static_cast<int>(order)]; }

DateOrder dateOrderOf(std::string_view text) noexcept {
    std::array<Number, 3> numbers{};
    if (!firstThreeNumbers(text, numbers)) {
        return DateOrder::NONE;
    }
    int year = -1;
    for (int i = 0; i < 3; ++i) {
        if (isYear(numbers[i])) {
            if (year >= 0) {
                return DateOrder::NONE;  // two years: no date
            }
            year = i;
        }
    }
    if (year < 0) {
        return DateOrder::NONE;
    }
    const int first = year == 0 ? 1 : 0;
    const int second = year == 2 ? 1 : 2;
    const bool firstIsDay = numbers[first].value > LAST_MONTH;
    const bool secondIsDay = numbers[second].value > LAST_MONTH;
    if (firstIsDay == secondIsDay) {
        // Both could be the day, or neither is a month; only the first matters to a reading, and only
        // with the year last: a year first is read year, month, day whatever the date style.
        return !firstIsDay && year == 2 ? DateOrder::OPEN : DateOrder::NONE;
    }
    // Rows: where the year stands; columns: whether the day comes before the month.
    constexpr DateOrder ORDERS[3][2] = {
        {DateOrder::YMD, DateOrder::YDM}, {DateOrder::MYD, DateOrder::DYM}, {DateOrder::MDY, DateOrder::DMY}};
    return ORDERS[year][firstIsDay ? 1 : 0];
}

}  // namespace kivoconvert
