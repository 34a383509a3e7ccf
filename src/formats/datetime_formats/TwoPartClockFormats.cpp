#include <cstdint>

#include "formats/datetime_formats/TimeFieldWriting.h"
#include "kivo/Formats.h"
#include "kivo/format/Missing.h"
#include "kivo/format/datetime/TimeWriters.h"

// HHMM (hours and minutes) and MMSS (minutes and seconds): a whole first part of any length, a colon
// and the second part with the decimals asked for. The two share their layout and differ in rounding:
// HHMM rounds a tie of whole minutes down, MMSS rounds a tie of whole seconds up.
namespace kivo::format::datetime {

namespace {

// The first part, a colon and two digits of the second part.
constexpr int COLON_AND_TWO_DIGITS = 3;

struct TwoParts {
    long long first;  // hours or minutes, whole
    double second;    // minutes or seconds, rounded, below 60
};

void writeSecondPart(char*& out, double second, int charactersFromColon) noexcept {
    if (charactersFromColon <= COLON_AND_TWO_DIGITS) {
        field::twoDigits(out, static_cast<int>(second));
    } else {
        // One character after the two digits is a bare point: "12:34." is the text for that width.
        timefield::writeReal(out, second, 2, charactersFromColon - 4);
    }
}

void writeTwoParts(char* field, int width, int decimals, bool negative, const TwoParts& parts) noexcept {
    int w = negative ? width - 1 : width;
    const int numberOfFirst = numberOfDigits(parts.first);
    const int nd = numberOfFirst == 0 ? 1 : numberOfFirst;
    const int minWidth = nd + COLON_AND_TWO_DIGITS;
    char* out = field;
    if (w >= minWidth) {
        const int full = decimals > 0 ? minWidth + decimals + 1 : minWidth;
        if (w > full) {
            field::blanks(out, w - full);
            w = full;
        }
        if (negative) {
            *out++ = '-';
        }
        timefield::lowDigits(out, static_cast<std::uint64_t>(parts.first), nd);
        *out++ = ':';
        writeSecondPart(out, parts.second, w - nd);
    } else if (w >= nd) {
        // No room for the second part: the first part alone.
        field::blanks(out, w - nd);
        if (negative) {
            *out++ = '-';
        }
        timefield::lowDigits(out, static_cast<std::uint64_t>(parts.first), nd);
    } else {
        field::blanks(out, width - 2);
        field::text(out, "**", 2);
    }
}

TwoParts hoursAndMinutes(double seconds, int decimals) noexcept {
    const double totalMinutes = seconds / 60.0;
    auto hours = static_cast<long long>(totalMinutes / 60.0);
    double minutes = totalMinutes - static_cast<double>(hours) * 60.0 + timefield::halfUnit(decimals);
    if (decimals > 0) {
        minutes *= timefield::ROUNDING_NUDGE;
    } else if (minutes == static_cast<double>(static_cast<long long>(minutes))) {
        // Exactly half a minute: rounds down.
        minutes -= 1.0;
    }
    if (minutes >= 60.0) {
        minutes = 0.0;
        ++hours;
    }
    return {hours, minutes};
}

TwoParts minutesAndSeconds(double value, int decimals) noexcept {
    auto minutes = static_cast<long long>(value / 60.0);
    double seconds = (value - static_cast<double>(minutes) * 60.0 + timefield::halfUnit(decimals)) *
                     timefield::ROUNDING_NUDGE;
    if (seconds >= 60.0) {
        seconds = 0.0;
        ++minutes;
    }
    return {minutes, seconds};
}

// HHMM and MMSS take their decimals alike.
static_assert(limits::HHMM.decimals == limits::MMSS.decimals);

template <class Split>
int twoPartFormat(char* field, int width, int decimals, double value, Split split) noexcept {
    const entry::DecimalsUse use = entry::decimalsUse(limits::HHMM.decimals, decimals);
    return entry::withTime(field, width, use, value, [split](double v, char*& out, int w, int d) {
        const bool negative = v < 0.0;
        writeTwoParts(out, w, d, negative, split(negative ? -v : v, d));
    });
}

}  // namespace

}  // namespace kivo::format::datetime

extern "C" {

int hhmmFormat(char* field, int width, int decimals, double value) {
    return kivo::format::datetime::twoPartFormat(field, width, decimals, value,
                                                 kivo::format::datetime::hoursAndMinutes);
}

int mmssFormat(char* field, int width, int decimals, double value) {
    return kivo::format::datetime::twoPartFormat(field, width, decimals, value,
                                                 kivo::format::datetime::minutesAndSeconds);
}

}  // extern "C"
