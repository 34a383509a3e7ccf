// Dates in era calendars: MINGUO counts years from 1911 (2021 is year 110), NENGO counts them within
// named eras, each written as one letter (2021 is R03, the third year of the era that began on
// 1 May 2019).
#include "formats/FieldLimits.h"
#include "formats/FieldWriting.h"
#include "formats/datetime_formats/DateLayout.h"
#include "formats/datetime_formats/DatetimeFormatsFailures.h"
#include "formats/datetime_formats/EraCalendar.h"
#include "formats/datetime_formats/FormatEntry.h"
#include "kivo/Formats.h"

namespace kivo::format::datetime {

namespace {

using layout::EraDate;

template <layout::Pieces ROW>
constexpr layout::Row<EraDate> row = layout::row<ROW, EraDate>;

// MINGUO by width, for years up to 99 and for years 100 to 999; an empty row is a field of "*", and
// so is every year from 1000 on.
struct MinguoLayout {
    layout::Row<EraDate> upTo99;
    layout::Row<EraDate> upTo999;
};

constexpr int MINGUO_NARROWEST = limits::MINGUO.minWidth;
constexpr int MINGUO_WIDEST = limits::MINGUO.maxWidth;

constexpr MinguoLayout MINGUO_LAYOUTS[MINGUO_WIDEST - MINGUO_NARROWEST + 1] = {
    {row<"ymd">, row<"">},         // 6: 880317
    {row<"tmd">, row<"tmd">},      // 7: 1100317
    {row<"y/m/d">, row<"tmd ">},   // 8: 88/03/17, 1100317 and a blank
    {row<"t/m/d">, row<"t/m/d">},  // 9: 110/03/17
    {row<"Y/m/d">, row<"Y/m/d">},  // 10: 0110/03/17 (the year below 1000 in four digits)
};

// Each row fills the width it serves, or is empty.
constexpr bool eachMinguoRowFillsItsWidth() noexcept {
    for (int width = MINGUO_NARROWEST; width <= MINGUO_WIDEST; ++width) {
        for (const auto& row : {MINGUO_LAYOUTS[width - MINGUO_NARROWEST].upTo99,
                                MINGUO_LAYOUTS[width - MINGUO_NARROWEST].upTo999}) {
            if (!row.pieces.empty() && row.longestLength != width) {
                return false;
            }
        }
    }
    return true;
}
static_assert(eachMinguoRowFillsItsWidth());

// 17 March 2021 (year 110) at width 9: "110/03/17". The year 1911 is year 0; earlier years show "*".
void writeMinguo(const Date& date, char*& out, int width) noexcept {
    const Date::YMD ymd = date.yearMonthDay();
    const int year = ymd.year - era::MINGUO_BASE;
    if (year < 0) {
        field::stars(out, width);
        return;
    }
    if (width < MINGUO_NARROWEST || width > MINGUO_WIDEST) {
        fail(failure::MINGUO_WIDTH);
    }
    const MinguoLayout& layout = MINGUO_LAYOUTS[width - MINGUO_NARROWEST];
    const layout::Row<EraDate>* chosen = year <= 99 ? &layout.upTo99 : year <= 999 ? &layout.upTo999 : nullptr;
    if (chosen == nullptr || chosen->pieces.empty()) {
        field::stars(out, width);
        return;
    }
    out = chosen->write(out, {year, ymd.month, ymd.day, ' '}, width);
}

// NENGO by width; width 2 shows the year in one digit, and a year above 9 as "**".
constexpr layout::LayoutsByWidth<EraDate, 9> NENGO_LAYOUTS{
    limits::NENGO.minWidth,
    {
        row<"Ei">,       // 2: R3
        row<"Ey">,       // 3: R03
        row<"Ey ">,      // 4
        row<"Ey  ">,     // 5
        row<"Ey/m">,     // 6: R03/03
        row<" Ey/m">,    // 7
        row<"E.ymd">,    // 8: R.030317
        row<"Ey/m/d">,   // 9: R03/03/17
        row<"E.y/m/d">,  // 10: R.03/03/17
    }};
static_assert(NENGO_LAYOUTS.eachRowFillsItsWidth() && NENGO_LAYOUTS.widest() == limits::NENGO.maxWidth);

// The era of a day from the first era's first day on.
const era::Era& eraOf(int daySerial) noexcept {
    int index = 0;
    while (index + 1 < era::ERA_COUNT && daySerial >= era::ERAS[index + 1].firstDay) {
        ++index;
    }
    return era::ERAS[index];
}

// Only the running era has no end of its own: today's date stands in for it, and a later day, which
// may yet fall in a new era, shows "*".
bool isShown(const Date& date, const era::Era& dateEra) noexcept {
    return !era::isRunning(dateEra) || date <= Date::localDate();
}

// 17 March 2021 at width 9: "R03/03/17". Days before the first era show "*".
void writeNengo(const Date& date, char*& out, int width) noexcept {
    const int daySerial = static_cast<int>(date);
    if (daySerial < era::ERAS[0].firstDay) {
        field::stars(out, width);
        return;
    }
    const era::Era& dateEra = eraOf(daySerial);
    if (!isShown(date, dateEra)) {
        field::stars(out, width);
        return;
    }
    if (!NENGO_LAYOUTS.covers(width)) {
        fail(failure::NENGO_WIDTH);
    }
    const Date::YMD ymd = date.yearMonthDay();
    const int year = ymd.year - dateEra.base();
    if (width == NENGO_LAYOUTS.narrowest && year > 9) {
        field::stars(out, width);
        return;
    }
    NENGO_LAYOUTS.write(width, out, {year, ymd.month, ymd.day, dateEra.letter});
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
