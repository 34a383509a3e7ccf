// A date as its year and day of the year: JULIAN as text (2021076), PDJULG and PDJULI as packed
// decimal bytes, two digits a byte and the sign nibble 0xF (unsigned) at the end. PDJULG keeps the full
// year; PDJULI counts years from 1900, so 2021 is 121.
#include <bit>
#include <cstdint>

#include "formats/FieldLimits.h"
#include "formats/FieldWriting.h"
#include "formats/datetime_formats/DateLayout.h"
#include "formats/datetime_formats/FormatEntry.h"
#include "kivo/Formats.h"
#include "kivox/Missing.h"

namespace kivo::format::datetime {

namespace {

// JULIAN: yyddd at width 5, one blank before it at width 6, yyyyddd right-aligned from width 7.
constexpr layout::LayoutsByWidth<layout::JulianDate, 3> JULIAN_LAYOUTS{
    limits::JULIAN.minWidth,
    {layout::row<"yj", layout::JulianDate>, layout::row<" yj", layout::JulianDate>,
     layout::row<"Yj", layout::JulianDate>}};
static_assert(JULIAN_LAYOUTS.eachRowFillsItsWidth());

// From the four-digit row on, a year past 9999 has no room, and the whole field is "*".
void writeJulian(const Date& date, char*& out, int width) noexcept {
    const Date::YD yd = date.yearDayOfYear();
    if (width >= JULIAN_LAYOUTS.widest() && yd.year > field::LARGEST_FOUR_DIGIT_YEAR) {
        field::stars(out, width);
        return;
    }
    JULIAN_LAYOUTS.writePadded(width, out, {yd.year, yd.dayOfYear});
}

constexpr unsigned char UNSIGNED_SIGN = 0x0F;
constexpr unsigned char NINES = 0x99;
constexpr int PACKED_DAY_BYTES = 2;  // the day of the year, its last digit sharing a byte with the sign

// The byte holding the two digits of n (0 to 99): 21 is 0x21.
constexpr unsigned char bcd(int n) noexcept { return static_cast<unsigned char>(n / 10 * 16 + n % 10); }

void put(char*& out, unsigned char byte) noexcept { *out++ = static_cast<char>(byte); }

void putRepeated(char*& out, int count, unsigned char byte) noexcept {
    for (int i = 0; i < count; ++i) {
        put(out, byte);
    }
}

// The day's first two digits, then its last digit beside the sign.
void putDayOfYear(char*& out, int dayOfYear) noexcept {
    put(out, bcd(dayOfYear / 10));
    put(out, static_cast<unsigned char>(dayOfYear % 10 * 16 + UNSIGNED_SIGN));
}

// A field too small for the year: nines where the year would go, and still the day's last digit.
void putNinesForYear(char* out, int width, int dayOfYear) noexcept {
    putRepeated(out, width - 1, NINES);
    put(out, static_cast<unsigned char>(dayOfYear % 10 * 16 + UNSIGNED_SIGN));
}

void putPackedZero(char* out, int width) noexcept {
    putRepeated(out, width - 1, 0x00);
    put(out, UNSIGNED_SIGN);
}

// A year (or a year count) of up to six digits in `yearBytes` bytes, the day of the year after it,
// and zero bytes in front up to the width.
void putYearAndDay(char* out, int width, int year, int yearBytes, int dayOfYear) noexcept {
    putRepeated(out, width - yearBytes - PACKED_DAY_BYTES, 0x00);
    constexpr int BYTE_SCALES[] = {1, 100, 10000};
    for (int byte = yearBytes - 1; byte >= 0; --byte) {
        put(out, bcd(year / BYTE_SCALES[byte] % 100));
    }
    putDayOfYear(out, dayOfYear);
}

bool hasMissingPattern(double value) noexcept {
    return (std::bit_cast<std::uint64_t>(value) & lum_numeric::MISSING_MASK) == lum_numeric::MISSING_MASK;
}

// The packed formats write no text, so a missing value or a date that is not valid is the packed zero
// rather than a missing character or stars. A field of one or two bytes (widths the host is not meant
// to pass) has no room for a year and gets the nines, as three bytes do where the year does not fit.
template <class Write>
int withPackedDate(char* field, int width, double value, Write write) noexcept {
    if (width <= 0) {
        return 0;
    }
    const Date date(value);
    if (hasMissingPattern(value) || !date.isValid()) {
        putPackedZero(field, width);
        return 0;
    }
    write(field, width, date.yearDayOfYear());
    return 0;
}

// PDJULG: 2021-03-17 at width 4 is 20 21 07 6F; wider fields add the year's ten-thousands and zeros.
void writePdjulg(char* out, int width, const Date::YD& yd) noexcept {
    if (width < 4 || (width == 4 && yd.year > field::LARGEST_FOUR_DIGIT_YEAR)) {
        putNinesForYear(out, width, yd.dayOfYear);
        return;
    }
    putYearAndDay(out, width, yd.year, width == 4 ? 2 : 3, yd.dayOfYear);
}

constexpr int PDJULI_BASE_YEAR = 1900;

// PDJULI: 2021-03-17 (year 121 from 1900) at width 4 is 01 21 07 6F. A year before 1900 has no count
// to show and is written like a date that is not valid.
void writePdjuli(char* out, int width, const Date::YD& yd) noexcept {
    const int years = yd.year - PDJULI_BASE_YEAR;
    if (years < 0) {
        putPackedZero(out, width);
        return;
    }
    const int yearBytes = width <= 3 ? 1 : width == 4 ? 2 : 3;
    constexpr int LARGEST_COUNT[] = {0, 99, 9999, 999999};
    if (width < 3 || years > LARGEST_COUNT[yearBytes]) {
        putNinesForYear(out, width, yd.dayOfYear);
        return;
    }
    putYearAndDay(out, width, years, yearBytes, yd.dayOfYear);
}

}  // namespace

}  // namespace kivo::format::datetime

namespace datetime = kivo::format::datetime;
namespace entry = kivo::format::datetime::entry;

extern "C" {

int julianFormat(char* field, int width, int, double value) {
    return entry::withDate(field, width, entry::NO_DECIMALS, value, datetime::writeJulian);
}

int pdjulgFormat(char* field, int width, int, double value) {
    return datetime::withPackedDate(field, width, value, datetime::writePdjulg);
}

int pdjuliFormat(char* field, int width, int, double value) {
    return datetime::withPackedDate(field, width, value, datetime::writePdjuli);
}

}  // extern "C"
