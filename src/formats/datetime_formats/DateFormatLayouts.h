#pragma once

#include "formats/FieldLimits.h"
#include "formats/datetime_formats/DateLayout.h"

// DATE's layouts by width, shared with the datetime layouts that begin with a DATE field.
namespace kivo::format::datetime {

// The odd widths add the year in two and then four digits, the even ones put a blank in front of the
// odd layout below them, and the widest spells the date with dashes.
inline constexpr layout::LayoutsByWidth<layout::NumericDate, 7> DATE_LAYOUTS{
    limits::DATE.minWidth,
    {
        layout::row<"dM", layout::NumericDate>,     // 5: 17MAR
        layout::row<" dM", layout::NumericDate>,    // 6
        layout::row<"dMy", layout::NumericDate>,    // 7: 17MAR21
        layout::row<" dMy", layout::NumericDate>,   // 8
        layout::row<"dMY", layout::NumericDate>,    // 9: 17MAR2021
        layout::row<" dMY", layout::NumericDate>,   // 10
        layout::row<"d-M-Y", layout::NumericDate>,  // 11: 17-MAR-2021
    }};
static_assert(DATE_LAYOUTS.eachRowFillsItsWidth() && DATE_LAYOUTS.widest() == limits::DATE.maxWidth);

// DATE at width 7 (17MAR21) or 9 (17MAR2021), each row inlined where the caller writes it.
inline void writeShortOrLongDate(const Date& date, char*& out, bool longDate) noexcept {
    const layout::NumericDate parts = layout::numericDate(date.yearMonthDay());
    if (longDate) {
        DATE_LAYOUTS.write(9, out, parts);
    } else {
        DATE_LAYOUTS.write(7, out, parts);
    }
}

}  // namespace kivo::format::datetime
