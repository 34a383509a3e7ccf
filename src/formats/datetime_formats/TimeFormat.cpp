#include <cstdint>
#include <cstring>

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

// The decimals of the second that fit beside the hour digits in the usable width (the width less a
// minus sign).
int shownDecimals(int usableWidth, int hourDigitCount, int decimals) noexcept {
    const int base = hourDigitCount + FULL_CLOCK_EXTRA < usableWidth ? hourDigitCount + FULL_CLOCK_EXTRA : usableWidth;
    return usableWidth - base < decimals ? usableWidth - base : decimals;
}

// Rounds the seconds to the decimals shown (of those asked for) and carries into the minutes.
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
            decimals == 0 || shown >= fullPrecision ? timefield::halfUnit(decimals) + timefield::TIME_CARRY_MARGIN : wideHalf;
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

// h:mm:ss or hh:mm:ss, the text of TIME8.
constexpr int WHOLE_SECONDS_TEXT = 8;
// Below 100 hours the hour has at most two digits and the text fits WHOLE_SECONDS_TEXT; the whole
// seconds of such a time fit 32 bits, and Clock::of splits it in integers.
constexpr double TWO_HOUR_DIGITS_LIMIT = 100 * 3600.0;
static_assert(TWO_HOUR_DIGITS_LIMIT <= Clock::INTEGER_SPLIT_LIMIT);
static_assert(WHOLE_SECONDS_TEXT == 2 + FULL_CLOCK_EXTRA - 1);  // hh:mm:ss is the full clock without its point

// TIME8. and wider with no decimals, of a time from 0 up to 100 hours whose seconds do not carry: blanks
// and h:mm:ss, the layout most fields have, worked out in integers.
// The numbers are those of the general steps below: Clock::of splits such a time in integers, and a
// second short of the carry rounds by the plain half second. A carry, rare, is left to those steps.
bool writeTimeToTheSecond(double value, char*& out, int width) noexcept {
    const auto whole = static_cast<std::uint32_t>(value);
    const std::uint32_t wholeMinutes = whole / 60;
    const std::uint32_t secondOfMinute = whole - wholeMinutes * 60;
    const double s = (static_cast<double>(secondOfMinute) + (value - static_cast<double>(whole))) *
                     timefield::ROUNDING_NUDGE;
    if (s + (timefield::halfUnit(0) + timefield::TIME_CARRY_MARGIN) >= 60.0) [[unlikely]] {
        return false;
    }
    const auto seconds = static_cast<std::uint32_t>(s + timefield::halfUnit(0));
    const std::uint32_t hours = wholeMinutes / 60;
    const std::uint32_t minutes = wholeMinutes - hours * 60;
    field::blanks(out, width - WHOLE_SECONDS_TEXT);
    // Each piece goes straight to the field: a copy assembled first and moved in one store would wait
    // for its byte stores to land.
    std::memcpy(out, field::BLANK_LED_PAIRS.pairs + 2 * hours, 2);
    out[2] = ':';
    std::memcpy(out + 3, field::DIGIT_PAIRS + 2 * minutes, 2);
    out[5] = ':';
    std::memcpy(out + 6, field::DIGIT_PAIRS + 2 * seconds, 2);
    out += WHOLE_SECONDS_TEXT;
    return true;
}

// The general steps, for every width, decimals and duration. Kept out of line, so that the common layout
// above runs without the registers and stack these need.
[[gnu::noinline]] void writeAnyTime(double value, char*& out, int width, int decimals) noexcept {
    const bool negative = value < 0.0;
    const int usableWidth = negative ? width - 1 : width;
    Clock clock = Clock::of(negative ? -value : value);

    int hourDigitCount = hourDigits(clock.hours);
    int shown = shownDecimals(usableWidth, hourDigitCount, decimals);
    roundSeconds(clock, shown, decimals);
    if (clock.minutes > 59) {
        clock.carryMinutes();
        if (clock.hours >= int64Pow10(hourDigitCount)) {
            ++hourDigitCount;
            shown = shownDecimals(usableWidth, hourDigitCount, decimals);
        }
    }

    const int rest = usableWidth - hourDigitCount;
    if (rest < 0) {
        field::stars(out, width);
        return;
    }
    field::blanks(out, leadingBlanks(rest, shown));
    if (negative) {
        *out++ = '-';
    }
    timefield::lowDigits(out, static_cast<std::uint64_t>(clock.hours), hourDigitCount);
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

void writeTime(double value, char*& out, int width, int decimals) noexcept {
    if (decimals == 0 && width >= WHOLE_SECONDS_TEXT && value >= 0.0 && value < TWO_HOUR_DIGITS_LIMIT &&
        writeTimeToTheSecond(value, out, width)) [[likely]] {
        return;
    }
    writeAnyTime(value, out, width, decimals);
}

}  // namespace

}  // namespace kivo::format::datetime

extern "C" int timeFormat(char* field, int width, int decimals, double value) {
    return kivo::format::datetime::entry::withTime(
        field, width, kivo::format::datetime::entry::decimalsUse(kivo::limits::TIME.decimals, decimals), value,
        kivo::format::datetime::writeTime);
}
