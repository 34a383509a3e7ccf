// Informats of timestamps stored in machine form: packed-decimal times, durations and dates, the
// date-and-time stamps of machine records, the 8-byte time-of-day clock and timer units. They take
// their bytes as given: no narrowing, no missing-value notation. A wrong width returns 0.
#include <cmath>
#include <cstdint>

#include "formats/datetime_formats/DatetimeInformatsFailures.h"
#include "formats/datetime_formats/InformatValues.h"
#include "formats/datetime_formats/PackedWords.h"
#include "kivo/Informats.h"
#include "kivo/LogTimeInformat.h"
#include "kivox/Missing.h"

namespace kivo::informat {

namespace {

using packed::readWord;

const unsigned char* bytesOf(const char* text) noexcept { return reinterpret_cast<const unsigned char*>(text); }

int store(double value, double* result) noexcept {
    *result = value;
    return 1;
}

// A signed packed word read as seconds by `seconds`: negative with sign B or D, the missing value for
// a digit as sign or a bad digit.
template <class Seconds>
int storeSignedSeconds(const unsigned char* bytes, double* result, const format::FailureSite& site,
                       Seconds seconds) noexcept {
    std::int32_t value = 0;
    switch (readWord(bytes, value)) {
        case packed::POSITIVE:
            return store(seconds(value), result);
        case packed::NEGATIVE:
            return store(-seconds(value), result);
        case packed::DIGIT_SIGN:
        case packed::BAD_DIGIT:
            return store(lum_numeric::MISSING, result);
        default:
            format::fail(site);
    }
}

// MMSSttt: minutes, seconds and thousandths.
double secondsOfDurationWord(std::int32_t value) noexcept {
    return (60000.0 * (value / 100000) + 1000.0 * (value / 1000 % 100) + value % 1000) / 1000.0;
}

// The time-of-day clock: up to 8 bytes, big-endian, left-aligned; bit 51 counts one microsecond since
// 1900-01-01 00:00. Zero microseconds (or no bytes) is no time at all.
bool clockMicroseconds(const char* text, int width, double& microseconds) noexcept {
    const int count = width < 8 ? width : 8;
    if (count <= 0) {
        return false;
    }
    const std::uint64_t clock = packed::bigEndian(bytesOf(text), count) << (8 * (8 - count));
    const std::uint64_t micro = clock >> 12;
    microseconds = static_cast<double>(micro);
    return micro != 0;
}

// The seconds from 1900-01-01 to 1960-01-01, the runtime's epoch: 21,914 days.
constexpr double SECONDS_1900_TO_1960 = 1893369600.0;

// HHMMSShh in eight plain nibbles; false when one is above 9.
bool plainNibbleTime(const unsigned char* bytes, double& seconds) noexcept {
    int digits[8];
    for (int i = 0; i < 8; ++i) {
        digits[i] = (i % 2 == 0 ? bytes[i / 2] >> 4 : bytes[i / 2]) & 0xF;
        if (digits[i] > 9) {
            return false;
        }
    }
    const auto pair = [&digits](int i) { return digits[i] * 10 + digits[i + 1]; };
    seconds = 3600.0 * pair(0) + 60.0 * pair(2) + pair(4) + pair(6) * 0.01;
    return true;
}

// SMFSTAMP's empty stamp: a zero time and a zero packed date whose sign byte is 0x00 or 0x0A..0x7F.
bool emptySmfStamp(const unsigned char* bytes, std::int32_t hundredths) noexcept {
    std::int32_t date = 0;
    const int code = readWord(bytes + 4, date);
    const unsigned char signByte = bytes[7];
    return hundredths == 0 && code != packed::BAD_DIGIT && date == 0 &&
           (signByte == 0x00 || (signByte >= 0x0A && signByte <= 0x7F));
}

}  // namespace

}  // namespace kivo::informat

namespace informat = kivo::informat;
namespace packed = kivo::informat::packed;
namespace site = kivo::informat::failure;
using informat::bytesOf;

extern "C" {

int pdtimeInformat(const char* text, int width, int, int, double* result) {
    if (width != 4) {
        return 0;
    }
    return informat::storeSignedSeconds(bytesOf(text), result, site::PDTIME_READER_CODE, packed::secondsOfTimeWord);
}

int rmfdurInformat(const char* text, int width, int, int, double* result) {
    if (width != 4) {
        return 0;
    }
    return informat::storeSignedSeconds(bytesOf(text), result, site::RMFDUR_READER_CODE,
                                        informat::secondsOfDurationWord);
}

// The date (bytes 4-7) first, then the time (bytes 0-3): a bad date rejects the stamp, a bad time
// gives the missing value.
int rmfstampInformat(const char* text, int width, int, int, double* result) {
    kivo::Date date;
    if (width != 8 || !packed::readJulianDateWord(bytesOf(text) + 4, date)) {
        return 0;
    }
    std::int32_t time = 0;
    const double day = static_cast<double>(date);
    switch (packed::readWord(bytesOf(text), time)) {
        case packed::POSITIVE:
            return informat::store(informat::datetimeOf(day, packed::secondsOfTimeWord(time)), result);
        case packed::NEGATIVE:
            return informat::store(informat::datetimeOf(day, -packed::secondsOfTimeWord(time)), result);
        case packed::DIGIT_SIGN:
        case packed::BAD_DIGIT:
            return informat::store(kivo::lum_numeric::MISSING, result);
        default:
            kivo::format::fail(site::RMFSTAMP_READER_CODE);
    }
}

int smfstampInformat(const char* text, int width, int, int, double* result) {
    if (width != 8) {
        return 0;
    }
    const auto hundredths = static_cast<std::int32_t>(static_cast<std::uint32_t>(packed::bigEndian(bytesOf(text), 4)));
    if (informat::emptySmfStamp(bytesOf(text), hundredths)) {
        return informat::store(kivo::lum_numeric::MISSING, result);
    }
    kivo::Date date;
    if (!packed::readJulianDateWord(bytesOf(text) + 4, date)) {
        return 0;
    }
    return informat::store(informat::datetimeOf(static_cast<double>(date), hundredths / 100.0), result);
}

int shrstampInformat(const char* text, int width, int, int, double* result) {
    kivo::Date date;
    double seconds = 0;
    if (width != 8 || !packed::readJulianDateWord(bytesOf(text), date) ||
        !informat::plainNibbleTime(bytesOf(text) + 4, seconds)) {
        return 0;
    }
    return informat::store(informat::datetimeOf(static_cast<double>(date), seconds), result);
}

int todstampInformat(const char* text, int width, int, int, double* result) {
    double microseconds = 0;
    if (!informat::clockMicroseconds(text, width, microseconds)) {
        return informat::store(kivo::lum_numeric::MISSING, result);
    }
    return informat::store(microseconds / 1000000.0 - informat::SECONDS_1900_TO_1960, result);
}

int msecInformat(const char* text, int width, int, int, double* result) {
    double microseconds = 0;
    if (!informat::clockMicroseconds(text, width, microseconds)) {
        return informat::store(kivo::lum_numeric::MISSING, result);
    }
    return informat::store(std::fmod(microseconds / 1000000.0, 86400.0), result);
}

// The log-time informat with no text length: a missing-value notation stores its value and still
// returns 0.
int stimerInformat(const char* text, int width, int, int decimals, double* result) {
    return kivo::kivoLogTimeInformat(text, width, 0, decimals, *result) ? 1 : 0;
}

int tuInformat(const char* text, int width, int, int, double* result) {
    if (width != 4) {
        return 0;
    }
    return informat::store(static_cast<double>(packed::bigEndian(bytesOf(text), 4)) / 38400.0, result);
}

int pdjuliInformat(const char* text, int width, int, int, double* result) {
    kivo::Date date;
    if (width != 4 || !packed::readJulianDateWord(bytesOf(text), date)) {
        return 0;
    }
    return informat::store(static_cast<double>(date), result);
}

// YYYYDDD and a sign in 4 bytes, or YYDDD and a sign in 3 (read as if a zero byte stood in front).
int pdjulgInformat(const char* text, int width, int, int, double* result) {
    if (width != 3 && width != 4) {
        return 0;
    }
    unsigned char word[4] = {0, 0, 0, 0};
    for (int i = 0; i < width; ++i) {
        word[4 - width + i] = bytesOf(text)[i];
    }
    std::int32_t value = 0;
    if (packed::readWord(word, value) != packed::POSITIVE) {
        return 0;
    }
    const kivo::Date date(kivo::lum_date::expand2DigitYear(value / 1000), value % 1000);
    return date.isValid() ? informat::store(static_cast<double>(date), result) : 0;
}

}  // extern "C"
