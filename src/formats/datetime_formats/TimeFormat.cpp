#include "formats/datetime_formats/TimeFieldWriting.h"
#include "kivo/Formats.h"
#include "kivo/format/Missing.h"
#include "kivo/format/datetime/TimeWriters.h"

// TIME: a duration as hours:minutes:seconds with as many hour digits as it needs and a sign, showing
// what the width allows in the order hours, minutes, seconds, decimals of the second.
namespace kivo::format::datetime {

namespace {

using timefield::Clock;

// Hours, two colons, minutes, seconds and a point.
constexpr int FULL_CLOCK_EXTRA = 7;

int hourDigits(int hours) noexcept {
    const int digits = numberOfDigits(hours);
    return digits == 0 ? 1 : digits;
}

// The decimals of the second that fit beside nd hour digits in w positions.
int shownDecimals(int w, int hourDigitCount, int decimals) noexcept {
    const int base = hourDigitCount + FULL_CLOCK_EXTRA < w ? hourDigitCount + FULL_CLOCK_EXTRA : w;
    return w - base < decimals ? w - base : decimals;
}

// Rounds the seconds to the decimals shown (d of the D asked for) and carries into the minutes.
void roundSeconds(Clock& clock, int shown, int decimals) noexcept {
    double s = clock.seconds * timefield::ROUNDING_NUDGE;
    bool carry = false;
    if (decimals >= 1 && shown == 0) {
        carry = s + 0.5 >= 60.0;
        if (!carry) {
            s += 0.5;
        }
    } else {
        const double wideHalf = timefield::wideHalfUnit(shown);
        const int fullPrecision = decimals < 8 ? decimals : 8;
        const double increment =
            decimals == 0 || shown >= fullPrecision ? timefield::halfUnit(decimals) + 1e-8 : wideHalf;
        if (s + increment >= 60.0) {
            carry = true;
        } else if (shown == 0) {
            s += 0.5;
        } else if (static_cast<long long>(s + wideHalf) != static_cast<long long>(s)) {
            // Just below a whole second: show the whole second rather than a string of nines.
            s = static_cast<double>(static_cast<long long>(s + wideHalf));
        } else {
            s += timefield::halfUnit(shown);
        }
    }
    clock.seconds = s;
    if (carry || clock.seconds >= 60.0) {
        clock.carrySeconds();
    }
}

// Blanks in front of the hours for the characters left after them.
int leadingBlanks(int rest, int shown) noexcept {
    if (rest < 8) {
        static constexpr int BY_REST[8] = {0, 1, 2, 0, 1, 2, 0, 1};
        return BY_REST[rest];
    }
    if (shown == 0) {
        return rest - 6;
    }
    return rest - shown - 7 > 0 ? rest - shown - 7 : 0;
}

void writeTime(double value, char*& out, int width, int decimals) noexcept {
    const bool negative = value < 0.0;
    const int w = negative ? width - 1 : width;
    Clock clock = Clock::of(negative ? -value : value);

    int nd = hourDigits(clock.hours);
    int shown = shownDecimals(w, nd, decimals);
    roundSeconds(clock, shown, decimals);
    if (clock.minutes > 59) {
        clock.carryMinutes();
        if (clock.hours >= int64Pow10(nd)) {
            ++nd;
            shown = shownDecimals(w, nd, decimals);
        }
    }

    const int rest = w - nd;
    if (rest < 0) {
        field::stars(out, width);
        return;
    }
    field::blanks(out, leadingBlanks(rest, shown));
    if (negative) {
        *out++ = '-';
    }
    timefield::lowDigits(out, static_cast<std::uint64_t>(clock.hours), nd);
    if (rest > 2) {
        *out++ = ':';
        field::twoDigits(out, clock.minutes);
    }
    if (rest > 5) {
        *out++ = ':';
        if (shown == 0) {
            field::twoDigits(out, static_cast<int>(clock.seconds));
        } else {
            timefield::writeReal(out, clock.seconds, 2, shown);
        }
    }
}

}  // namespace

}  // namespace kivo::format::datetime

extern "C" int timeFormat(char* field, int width, int decimals, double value) {
    return kivo::format::datetime::entry::withTime(
        field, width, kivo::format::datetime::entry::decimalsUse(kivo::limits::TIME.decimals, decimals), value,
        kivo::format::datetime::writeTime);
}
