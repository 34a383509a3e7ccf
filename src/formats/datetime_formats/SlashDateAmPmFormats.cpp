#include "formats/datetime_formats/DateLayout.h"
#include "formats/datetime_formats/TimeFieldWriting.h"
#include "kivo/Formats.h"

// MDYAMPM and DMYAMPM: a numeric date with slashes, then the hour and minute with AM or PM. The hour is
// the 24-hour value (13:45 PM is the text), truncated like the minutes; no seconds are shown.
namespace kivo::format::datetime {

namespace {

enum class Order { MONTH_FIRST, DAY_FIRST };

constexpr int SHORT_DATE = 8;           // 03/17/21
constexpr int LONG_DATE = 10;           // 03/17/2021
constexpr int SHORT_DATE_AND_TIME = 17;  // 03/17/21 13:45 PM
constexpr int LONG_DATE_AND_TIME = 19;   // 03/17/2021 13:45 PM

// The date by order and by the digits of its year.
constexpr layout::Row<layout::NumericDate> DATES[2][2] = {
    {layout::row<"m/d/y", layout::NumericDate>, layout::row<"m/d/Y", layout::NumericDate>},
    {layout::row<"d/m/y", layout::NumericDate>, layout::row<"d/m/Y", layout::NumericDate>},
};
static_assert(DATES[0][0].longestLength == SHORT_DATE && DATES[1][1].longestLength == LONG_DATE);

void writeDate(char*& out, const Date::YMD& ymd, Order order, bool fourDigitYear) noexcept {
    const int byOrder = order == Order::MONTH_FIRST ? 0 : 1;
    out = DATES[byOrder][fourDigitYear ? 1 : 0].write(out, layout::numericDate(ymd), LONG_DATE);
}

// " 13:45 PM"; a one-digit hour keeps the width with a blank before the date instead.
void writeTime(char*& out, int hours, int minutes) noexcept {
    *out++ = ' ';
    if (hours < 10) {
        field::digit(out, hours);
    } else {
        field::twoDigits(out, hours);
    }
    *out++ = ':';
    field::twoDigits(out, minutes);
    timefield::meridiem(out, hours >= 12);
}

void writeSlashDateAmPm(const Datetime& datetime, char*& out, int width, Order order) noexcept {
    if (width < SHORT_DATE) {
        return;
    }
    const Date::YMD ymd = datetime.date().yearMonthDay();
    if (width < SHORT_DATE_AND_TIME) {
        const bool fourDigitYear = width >= LONG_DATE;
        field::blanks(out, width - (fourDigitYear ? LONG_DATE : SHORT_DATE));
        writeDate(out, ymd, order, fourDigitYear);
        return;
    }
    const TimeDuration timeOfDay = datetime.timeOfDay();
    const int hours = timeOfDay.hours();
    const bool fourDigitYear = width >= LONG_DATE_AND_TIME;
    const int textWidth = fourDigitYear ? LONG_DATE_AND_TIME : SHORT_DATE_AND_TIME;
    field::blanks(out, width - textWidth + (hours < 10 ? 1 : 0));
    writeDate(out, ymd, order, fourDigitYear);
    writeTime(out, hours, timeOfDay.minutes());
}

template <Order order>
int slashDateAmPmFormat(char* field, int width, int decimals, double value) noexcept {
    const entry::DecimalsUse use = entry::decimalsUse(limits::SLASH_DATE_AM_PM.decimals, decimals);
    return entry::withDatetime(field, width, use, value, [](const Datetime& datetime, char*& out, int w) {
        writeSlashDateAmPm(datetime, out, w, order);
    });
}

}  // namespace

}  // namespace kivo::format::datetime

extern "C" {

int mdyampmFormat(char* field, int width, int decimals, double value) {
    using kivo::format::datetime::Order;
    return kivo::format::datetime::slashDateAmPmFormat<Order::MONTH_FIRST>(field, width, decimals, value);
}

int dmyampmFormat(char* field, int width, int decimals, double value) {
    using kivo::format::datetime::Order;
    return kivo::format::datetime::slashDateAmPmFormat<Order::DAY_FIRST>(field, width, decimals, value);
}

}  // extern "C"
