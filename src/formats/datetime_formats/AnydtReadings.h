#pragma once

#include <cstdint>

#include "formats/datetime_formats/AnydtParseInfo.h"

// The readings the free-form reader builds from the values of a parse record.
namespace kivo::anydt {

// Hours, minutes and optional seconds (with an optional fraction) from the values from slot index on,
// with a trailing AM or PM. seconds is written once the sum is known, even when the trailing run then
// rejects the field. No range check on the parts: 25:75:99 is 94599 seconds.
bool readTimeTokens(int index, const ParseInfo& pi, double& seconds) noexcept;

// The day serial of year, month, day; the year widened from two digits when expandYear is set.
bool makeAnydtDate(std::int64_t year, std::int64_t month, std::int64_t day, double& out, bool expandYear) noexcept;

// Three numbers with the same separator: the one valid reading, or the date style's among several.
bool readThreeNumberDate(const ParseInfo& pi, double& out) noexcept;

// One run of 6 or 8 digits as a date in one of the six orders; some runs come back as the number itself.
bool readDigitRunDate(const ParseInfo& pi, double& out) noexcept;

// One run of 5 or 7 digits as year and day of the year (yyddd, yyyyddd).
bool readJulianRun(const ParseInfo& pi, double& out) noexcept;

}  // namespace kivo::anydt
