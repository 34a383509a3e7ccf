#include "kivo/AnydtInformats.h"

#include "formats/datetime_formats/AnydtParseInfo.h"
#include "formats/datetime_formats/AnydtPatterns.h"
#include "kivo/Informats.h"
#include "kivox/Calendar.h"
#include "kivox/Missing.h"

namespace kivo {

namespace {

// Beyond this day serial a date times 86400 is no longer a seconds serial worth keeping.
constexpr double LARGEST_DATETIME_DAY = 32000000.0;

double dateOfDatetime(double secondsSerial) noexcept {
    const Datetime datetime(secondsSerial);
    return datetime.isValid() ? static_cast<double>(datetime.date()) : lum_numeric::MISSING;
}

double timeOfDatetime(double secondsSerial) noexcept {
    const Datetime datetime(secondsSerial);
    return datetime.isValid() ? datetime.timeOfDay().totalSeconds() : lum_numeric::MISSING;
}

}  // namespace

bool anydtInformats(const char* text, int width, int, int, double& result, AnydtType& type) noexcept {
    // Every failure leaves these behind.
    result = lum_numeric::MISSING;
    type = ANYDT_DATETIME;
    const char* begin = text;
    const char* end = width > 0 ? text + width : text;
    findNumericStartAndEnd(begin, end);
    anydt::ParseInfo pi;
    int monthIndex = -1;
    return anydt::scanField(begin, end, pi, monthIndex) && anydt::interpret(pi, monthIndex, result, type);
}

}  // namespace kivo

namespace {

// The steps the three informats share: read the field, store the missing value when nothing could be
// read, else what `convert(value, type)` makes of the reading. They always report success.
template <class Convert>
int readAndConvert(const char* text, int width, int length, int decimals, double* result, Convert convert) noexcept {
    double value = 0.0;
    kivo::AnydtType type = kivo::ANYDT_DATETIME;
    *result = kivo::anydtInformats(text, width, length, decimals, value, type) ? convert(value, type)
                                                                                : kivo::lum_numeric::MISSING;
    return 1;
}

}  // namespace

extern "C" {

int anydtdteInformat(const char* text, int width, int length, int decimals, double* result) {
    return readAndConvert(text, width, length, decimals, result, [](double value, kivo::AnydtType type) {
        switch (type) {
            case kivo::ANYDT_DATE:
                return value;
            case kivo::ANYDT_DATETIME:
                return kivo::dateOfDatetime(value);
            case kivo::ANYDT_TIME:
            case kivo::ANYDT_MISSING:
                break;
        }
        // A date reader given a time or "." reads day 0 rather than a missing value.
        return 0.0;
    });
}

int anydtdtmInformat(const char* text, int width, int length, int decimals, double* result) {
    return readAndConvert(text, width, length, decimals, result, [](double value, kivo::AnydtType type) {
        if (type == kivo::ANYDT_DATE) {
            return value > kivo::LARGEST_DATETIME_DAY ? kivo::lum_numeric::MISSING
                                                      : value * static_cast<double>(kivo::SECONDS_PER_DAY);
        }
        // Datetimes, times (kept as seconds) and missing values pass through.
        return value;
    });
}

int anydttmeInformat(const char* text, int width, int length, int decimals, double* result) {
    return readAndConvert(text, width, length, decimals, result, [](double value, kivo::AnydtType type) {
        switch (type) {
            case kivo::ANYDT_DATE:
                return 0.0;
            case kivo::ANYDT_DATETIME:
                return kivo::timeOfDatetime(value);
            case kivo::ANYDT_TIME:
            case kivo::ANYDT_MISSING:
                break;
        }
        return value;
    });
}

}  // extern "C"
