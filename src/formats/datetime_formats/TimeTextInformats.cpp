// The informats of a time of day or a duration in one fixed layout: hours and minutes with optional
// seconds and AM/PM (TIME), and hh:mm:ss (CANTIME).
#include "formats/datetime_formats/InformatEntry.h"
#include "formats/datetime_formats/TextReaders.h"
#include "kivo/Informats.h"

namespace kivo::informat {

namespace {

// An optional "-" at the very start makes the time negative.
bool readSignedTime(const char* cursor, const char* end, double& value) noexcept {
    const bool negative = text::take(cursor, end, '-');
    double seconds = 0;
    if (!readTimeAmPm(cursor, end, seconds) || cursor != end) {
        return false;
    }
    value = negative ? -seconds : seconds;
    return true;
}

bool readWholeFieldClockTime(const char* cursor, const char* end, double& value) noexcept {
    return readClockTime(cursor, end, value);
}

}  // namespace

}  // namespace kivo::informat

using namespace kivo::informat;

extern "C" {

int timeInformat(const char* text, int width, int, int, double* result) {
    return entry::readTextField(text, width, result, readSignedTime);
}

int cantimeInformat(const char* text, int width, int, int, double* result) {
    return entry::readTextField(text, width, result, readWholeFieldClockTime);
}

}  // extern "C"
