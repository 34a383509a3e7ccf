#include "ExactSerials.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <utility>

#include "kivox/Missing.h"

namespace kivopy {

namespace {

using kivoconvert::KindStep;
using kivoconvert::ValueKind;

constexpr std::int64_t SECONDS_PER_DAY = 86400;
constexpr std::int64_t EPOCH_DAYS = 3653;  // from 1960-01-01, day 0 of the serials, to numpy's 1970-01-01

struct UnitRow {
    std::string_view code;
    std::int64_t months;
    std::int64_t secondsNum;
    std::int64_t secondsDen;
};

// numpy's units, coarsest first. "generic" is the unit of an array of NaT only.
constexpr UnitRow UNITS[] = {
    {"Y", 12, 0, 1},
    {"M", 1, 0, 1},
    {"W", 0, 7 * SECONDS_PER_DAY, 1},
    {"D", 0, SECONDS_PER_DAY, 1},
    {"generic", 0, SECONDS_PER_DAY, 1},
    {"h", 0, 3600, 1},
    {"m", 0, 60, 1},
    {"s", 0, 1, 1},
    {"ms", 0, 1, 1'000},
    {"us", 0, 1, 1'000'000},
    {"ns", 0, 1, 1'000'000'000},
    {"ps", 0, 1, 1'000'000'000'000},
    {"fs", 0, 1, 1'000'000'000'000'000},
    {"as", 0, 1, 1'000'000'000'000'000'000},
};

__int128 floorDiv(__int128 a, __int128 b) {
    const __int128 q = a / b;
    return (a % b != 0 && (a < 0) != (b < 0)) ? q - 1 : q;
}

int bitWidth(unsigned __int128 v) {
    const auto high = static_cast<std::uint64_t>(v >> 64);
    return high != 0 ? 64 + std::bit_width(high) : std::bit_width(static_cast<std::uint64_t>(v));
}

// Days from 1970-01-01 to the first of a month of the proleptic Gregorian calendar: the
// days-from-civil count in 400-year eras of 146097 days, each starting on 1 March.
__int128 daysToMonth(__int128 year, int month) {
    const __int128 y = year - (month <= 2 ? 1 : 0);
    const __int128 era = floorDiv(y, 400);
    const __int128 yearOfEra = y - era * 400;                              // [0, 399]
    const int dayOfYear = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5;  // [0, 365], from 1 March
    const __int128 dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
    return era * 146097 + dayOfEra - 719468;
}

// A count as an exact number of seconds, num / den, since 1970-01-01 (or of a duration).
std::pair<__int128, __int128> exactSeconds(std::int64_t count, const CountUnit& unit) {
    if (unit.months != 0) {
        const __int128 months = static_cast<__int128>(count) * unit.months;  // since January 1970
        const __int128 years = floorDiv(months, 12);
        const int month = static_cast<int>(months - years * 12) + 1;
        return {daysToMonth(1970 + years, month) * SECONDS_PER_DAY, 1};
    }
    return {static_cast<__int128>(count) * unit.secondsNum, unit.secondsDen};
}

}  // namespace

bool countUnit(std::string_view code, std::int64_t multiplier, CountUnit& unit) {
    const auto row =
        std::find_if(std::begin(UNITS), std::end(UNITS), [code](const UnitRow& r) { return r.code == code; });
    if (row == std::end(UNITS) || multiplier < 1) {
        return false;
    }
    unit = {row->months * multiplier, row->secondsNum * multiplier, row->secondsDen};
    return true;
}

double nearestQuotient(__int128 numerator, __int128 denominator) {
    if (numerator == 0) {
        return 0.0;
    }
    const bool negative = numerator < 0;
    const unsigned __int128 n = negative ? -static_cast<unsigned __int128>(numerator) : numerator;
    const auto d = static_cast<unsigned __int128>(denominator);
    // The quotient is at least 2^(width(n) - width(d) - 1); scaled by 2^shift it has 55 bits or more:
    // the 53 a double keeps, the rounding bit, and a lowest bit that the remainder, when there is one,
    // sets, so that the one rounding of the conversion below sees every bit of the exact quotient.
    const int shift = std::max(0, 55 - bitWidth(n) + bitWidth(d));
    const unsigned __int128 scaled = n << shift;
    const unsigned __int128 quotient = scaled / d | (scaled % d != 0 ? 1 : 0);
    const double magnitude = std::ldexp(static_cast<double>(quotient), -shift);
    return negative ? -magnitude : magnitude;
}

void serialsOfCounts(std::span<const std::int64_t> counts, const CountUnit& unit, ValueKind read, KindStep step,
                     std::span<double> serials) {
    const bool toDays = (read == ValueKind::DAY && step == KindStep::AS_IS) || step == KindStep::DAY_OF_DATETIME;
    const __int128 epochSeconds = read == ValueKind::TIME ? 0 : EPOCH_DAYS * SECONDS_PER_DAY;
    for (std::size_t i = 0; i < counts.size(); ++i) {
        if (counts[i] == NOT_A_TIME) {
            serials[i] = kivo::lum_numeric::MISSING;
            continue;
        }
        const auto [num, den] = exactSeconds(counts[i], unit);
        serials[i] = toDays ? static_cast<double>(floorDiv(num, den * SECONDS_PER_DAY) + EPOCH_DAYS)
                            : nearestQuotient(num + epochSeconds * den, den);
    }
}

namespace {

// The count of one serial, or false when it has none.
bool countOfSerial(double value, ValueKind kind, std::int64_t perSecond, std::int64_t& count) {
    if (!(std::fabs(value) < 0x1p62)) {  // infinities too: no int64 count of any unit lies out there
        return false;
    }
    const double whole = std::floor(value);
    const double fraction = value - whole;  // exact, in [0, 1)
    const auto wholeCount = static_cast<__int128>(whole);
    __int128 units = 0;
    if (kind == ValueKind::DAY) {
        const __int128 days = wholeCount - EPOCH_DAYS;
        units = perSecond == 0 ? days : days * SECONDS_PER_DAY * perSecond;
    } else {
        const __int128 seconds = wholeCount - (kind == ValueKind::DATETIME ? EPOCH_DAYS * SECONDS_PER_DAY : 0);
        units = seconds * perSecond +
                static_cast<std::int64_t>(std::floor(fraction * static_cast<double>(perSecond) + 0.5));
    }
    if (units <= NOT_A_TIME || units > std::numeric_limits<std::int64_t>::max()) {
        return false;
    }
    count = static_cast<std::int64_t>(units);
    return true;
}

}  // namespace

std::size_t countsOfSerials(std::span<const double> serials, ValueKind kind, std::int64_t perSecond,
                            std::span<std::int64_t> counts) {
    std::size_t firstBad = serials.size();
    for (std::size_t i = 0; i < serials.size(); ++i) {
        counts[i] = NOT_A_TIME;
        if (!std::isnan(serials[i]) && !countOfSerial(serials[i], kind, perSecond, counts[i])) {
            counts[i] = NOT_A_TIME;
            firstBad = std::min(firstBad, i);
        }
    }
    return firstBad;
}

}  // namespace kivopy
