#include "formats/datetime_formats/AnydtFailures.h"
#include "formats/datetime_formats/AnydtReadings.h"
#include "kivox/Fail.h"
#include "kivox/Numbers.h"

namespace kivo::anydt {

namespace {

constexpr std::int64_t INT_LIMIT = 2147483648LL;
constexpr double NOON = 43200.0;
constexpr double ONE_PM = 46800.0;

// The trailing run decides: AM folds 12:xx back to 0:xx, PM moves 0:00..11:59 to the afternoon,
// anything but nothing at all rejects the time.
bool applyTrailingRun(std::uint32_t trailing, double& seconds) noexcept {
    switch (trailing & ~ST_BLANK_BEFORE) {
        case ST_AM:
            if (seconds >= NOON && seconds < ONE_PM) {
                seconds -= NOON;
            }
            return true;
        case ST_PM:
            if (seconds < NOON) {
                seconds += NOON;
            }
            return true;
        default:
            return trailing == ST_NONE;
    }
}

}  // namespace

bool readTimeTokens(int index, const ParseInfo& pi, double& seconds) noexcept {
    if (!(pi.valCount >= index + 2)) {
        format::fail(failure::TIME_TOO_FEW_VALUES);
    }
    if (!(pi.valCount <= index + 4)) {
        format::fail(failure::TIME_TOO_MANY_VALUES);
    }
    const std::int64_t hours = pi.value[index];
    const std::int64_t minutes = pi.value[index + 1];
    // The separator after the hours sets the one every later part must use; "." may not follow hours.
    const std::uint32_t separator = pi.sepType[index + 1];
    if (hours >= INT_LIMIT || !isCleanSeparator(separator) || separator == ST_DOT || minutes >= INT_LIMIT) {
        return false;
    }
    double secs = 0.0;
    if (pi.valCount == index + 2) {
        if (separator != ST_COLON) {
            return false;
        }
    } else {
        if ((pi.sepType[index + 2] & ~ST_BLANK_BEFORE) != separator) {
            return false;
        }
        secs = static_cast<double>(pi.value[index + 2]);
        if (pi.valCount > index + 3 && pi.sepType[index + 3] == ST_DOT) {
            // The fraction keeps its leading zeros: ".05" is five hundredths.
            secs += static_cast<double>(pi.value[index + 3]) / pow10(pi.valLength[index + 3]);
        }
    }
    seconds = static_cast<double>(hours) * 3600.0 + static_cast<double>(minutes) * 60.0 + secs;
    return applyTrailingRun(pi.sepType[pi.valCount], seconds);
}

}  // namespace kivo::anydt
