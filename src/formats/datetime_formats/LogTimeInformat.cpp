// The elapsed time of a log line: seconds ("05", "5.25"), minutes and seconds ("2:05") or hours,
// minutes and seconds ("1:02:03.5"). Elapsed times are never negative.
#include "kivo/LogTimeInformat.h"

#include <algorithm>

#include "formats/datetime_formats/TextReaders.h"
#include "kivox/Missing.h"

namespace kivo {

namespace {

// The seconds that end the text: two digits, with or without a fraction, or any run of digits with a
// fraction. They must take the rest of the field.
bool readLastSeconds(const char* cursor, const char* end, double& seconds) noexcept {
    if (cursor == end || !text::isDigit(cursor)) {
        return false;
    }
    const char* start = cursor;
    double value = text::digitValue(cursor++);
    if (!readDigitsWithFraction(cursor, end, value, false) || cursor != end) {
        return false;
    }
    // Two digits may stand alone; any other run of digits needs its fraction.
    const char* point = std::find(start, end, '.');
    if (point == end && end - start != 2) {
        return false;
    }
    seconds = value;
    return true;
}

// A number and one separator character from the shared set.
bool readNumberAndSeparator(const char*& cursor, const char* end, int& number) noexcept {
    char separator = 0;
    return readUnsignedInt(cursor, end, number) && text::takeSeparator(cursor, end, separator);
}

bool readElapsedTime(const char* cursor, const char* end, double& value) noexcept {
    double seconds = 0;
    if (readLastSeconds(cursor, end, seconds)) {
        value = seconds;
        return true;
    }
    int first = 0;
    if (!readNumberAndSeparator(cursor, end, first)) {
        return false;
    }
    if (readLastSeconds(cursor, end, seconds)) {
        value = first * 60.0 + seconds;
        return true;
    }
    int minutes = 0;
    if (!readNumberAndSeparator(cursor, end, minutes) || !readLastSeconds(cursor, end, seconds)) {
        return false;
    }
    value = first * 3600.0 + minutes * 60.0 + seconds;
    return true;
}

}  // namespace

bool kivoLogTimeInformat(const char* field, int width, int, int, double& result) noexcept {
    const char* begin = field;
    const char* end = field + (width > 0 ? width : 0);
    findNumericStartAndEnd(begin, end);
    // A missing-value notation stores the missing value, and still counts as no elapsed time read.
    if (findNumericMissing(begin, end, result) || text::take(begin, end, '-')) {
        return false;
    }
    return readElapsedTime(begin, end, result);
}

}  // namespace kivo
