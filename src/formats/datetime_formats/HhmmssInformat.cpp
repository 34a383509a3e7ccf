// HHMMSS: a time as digits, with or without colons: "103015", "1030", "10:30:15", "10:30:15.9". It
// has a reader of its own, in two passes: a check of the characters and where colons and the point
// stand, then the count of seconds. The fraction is checked but not counted.
#include "formats/datetime_formats/InformatEntry.h"
#include "formats/datetime_formats/TextReaders.h"
#include "kivo/Informats.h"

namespace kivo::informat {

namespace {

using text::isDigit;

constexpr int MOST_COLONS = 2;

// Digits, at most two colons and at most one point, each right after a digit; no colon after the
// point, and a point only with no colon before it or with both. Returns the end of the whole part
// (the point, or end) and the number of colons; nullptr when the text breaks a rule.
const char* checkClockDigits(const char* begin, const char* end, int& colons) noexcept {
    colons = 0;
    const char* point = nullptr;
    for (const char* p = begin; p < end; ++p) {
        if (isDigit(p)) {
            continue;
        }
        const bool afterDigit = p > begin && isDigit(p - 1);
        if (*p == ':' && afterDigit && colons < MOST_COLONS && point == nullptr) {
            ++colons;
        } else if (*p == '.' && afterDigit && point == nullptr && (colons == 0 || colons == MOST_COLONS)) {
            point = p;
        } else {
            return nullptr;
        }
    }
    return begin == end ? nullptr : point != nullptr ? point : end;
}

// The digits of [begin, end) as a number; a double, so that any run of hours is counted.
double digitsValue(const char* begin, const char* end) noexcept {
    double value = 0;
    for (const char* p = begin; p < end; ++p) {
        value = value * 10 + text::digitValue(p);
    }
    return value;
}

// Digits only. Up to six, weighted from the left as tens and units of hours, minutes and seconds, so
// that "1030" is 10:30 and "1" ten hours; from seven on, the last four are minutes and seconds and the
// rest the hours.
constexpr double DIGIT_WEIGHTS[] = {36000, 3600, 600, 60, 10, 1};
constexpr long WEIGHTED_DIGITS = 6;

double secondsOfDigitRun(const char* begin, const char* end) noexcept {
    if (end - begin <= WEIGHTED_DIGITS) {
        double seconds = 0;
        for (const char* p = begin; p < end; ++p) {
            seconds += DIGIT_WEIGHTS[p - begin] * text::digitValue(p);
        }
        return seconds;
    }
    return digitsValue(begin, end - 4) * 3600 + digitsValue(end - 4, end - 2) * 60 + digitsValue(end - 2, end);
}

// Hours, minutes and seconds as groups of any length between the colons.
double secondsOfColonGroups(const char* begin, const char* end) noexcept {
    constexpr double GROUP_WEIGHTS[] = {3600, 60, 1};
    double seconds = 0;
    int group = 0;
    const char* groupStart = begin;
    for (const char* p = begin; p <= end; ++p) {
        if (p == end || *p == ':') {
            seconds += GROUP_WEIGHTS[group++] * digitsValue(groupStart, p);
            groupStart = p + 1;
        }
    }
    return seconds;
}

bool readClockDigits(const char* cursor, const char* end, double& value) noexcept {
    int colons = 0;
    const char* wholeEnd = checkClockDigits(cursor, end, colons);
    if (wholeEnd == nullptr) {
        return false;
    }
    value = colons == 0 ? secondsOfDigitRun(cursor, wholeEnd) : secondsOfColonGroups(cursor, wholeEnd);
    return true;
}

}  // namespace

}  // namespace kivo::informat

extern "C" {

// The first middle argument cuts the narrowed field to that many characters. No missing-value
// notation: "." is bad text here like any other.
int hhmmssInformat(const char* text, int width, int length, int, double* result) {
    using namespace kivo::informat;
    return entry::readTextField(
        text, width, result,
        [length](const char* cursor, const char* end, double& value) {
            if (length < end - cursor) {
                end = cursor + (length > 0 ? length : 0);
            }
            return readClockDigits(cursor, end, value);
        },
        entry::MissingNotation::REJECTED);
}

}  // extern "C"
