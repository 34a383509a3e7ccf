#pragma once

#include "formats/FieldWriting.h"
#include "kivo/format/Missing.h"
#include "kivox/Calendar.h"

// The steps every date format takes before it writes: the missing value first, then the host's date,
// then a field of "*" when that date is not valid. `write(date, out, width)` lays out the rest.
namespace kivo::format::datetime::entry {

template <class Write>
inline int writeValidDate(char* field, int width, const Date& date, Write write) noexcept {
    if (!date.isValid()) {
        field::stars(field, width);
        return 0;
    }
    char* out = field;
    write(date, out, width);
    return 0;
}

// A day serial.
template <class Write>
inline int withDate(char* field, int width, int missingDecimals, double value, Write write) noexcept {
    if (writeMissing(value, field, width, missingDecimals)) {
        return 0;
    }
    return writeValidDate(field, width, Date(value), write);
}

// The DT formats: a seconds serial, of which only the calendar day is shown. An invalid datetime has
// an invalid date.
template <class Write>
inline int withDatetimeDate(char* field, int width, int missingDecimals, double value, Write write) noexcept {
    if (writeMissing(value, field, width, missingDecimals)) {
        return 0;
    }
    return writeValidDate(field, width, Datetime(value).date(), write);
}

}  // namespace kivo::format::datetime::entry
