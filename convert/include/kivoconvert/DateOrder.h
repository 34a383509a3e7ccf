#pragma once

#include <string_view>

namespace kivoconvert {

// The order of day, month and year that a date text shows of itself, as a date style names it. OPEN: a
// date with its year last whose day and month could each be either (05/06/2021).
enum class DateOrder : unsigned char { NONE, DMY, DYM, MDY, MYD, YDM, YMD, OPEN };

// "dmy" … "ymd", or "" for NONE and OPEN.
std::string_view styleName(DateOrder order) noexcept;

// What a text says of its order, from its first three numbers, when it begins with them (one separator
// character between each, the date part ending there or at a time part): a number of three or more
// digits, or above 31, is the year; of the two others, one above 12 is the day. "17/03/2021" is DMY,
// "03/17/2021" MDY, "2021-03-17" YMD, "05/06/2021" OPEN; "2021-03-05", "17MAR2021" and "10:30" say
// nothing (NONE).
DateOrder dateOrderOf(std::string_view text) noexcept;

}  // namespace kivoconvert
