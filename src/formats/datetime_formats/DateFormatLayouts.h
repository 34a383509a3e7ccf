#pragma once

#include "formats/datetime_formats/DateLayout.h"

// DATE's layouts by width, shared with the datetime layouts that begin with a DATE field.
namespace kivo::format::datetime {

// The odd widths add the year in two and then four digits, the even ones put a blank in front of the
// odd layout below them, and the widest spells the date with dashes.
inline constexpr layout::LayoutsByWidth<7> DATE_LAYOUTS{5,
                                                        {
                                                            layout::row<"dM">,     // 5: 17MAR
                                                            layout::row<" dM">,    // 6
                                                            layout::row<"dMy">,    // 7: 17MAR21
                                                            layout::row<" dMy">,   // 8
                                                            layout::row<"dMY">,    // 9: 17MAR2021
                                                            layout::row<" dMY">,   // 10
                                                            layout::row<"d-M-Y">,  // 11: 17-MAR-2021
                                                        }};

// DATE at width 7 (17MAR21) or 9 (17MAR2021), each row inlined where the caller writes it.
inline void writeShortOrLongDate(const Date& date, char*& out, bool longDate) noexcept {
    const Date::YMD ymd = date.yearMonthDay();
    if (longDate) {
        DATE_LAYOUTS.write(9, out, ymd, ' ');
    } else {
        DATE_LAYOUTS.write(7, out, ymd, ' ');
    }
}

}  // namespace kivo::format::datetime
