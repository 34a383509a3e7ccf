#pragma once

#include "formats/FieldWriting.h"
#include "kivo/format/Missing.h"
#include "kivox/Calendar.h"

// The steps every date format takes before it writes: the missing value first, then the host's date,
// then a field of "*" when that date is not valid. `write(date, out, width)` lays out the rest.
namespace kivo::format::datetime::entry {

template <class Write>
inline int withDate(char* field, int width, int missingDecimals, double value, Write write) noexcept {
    if (writeMissing(value, field, width, missingDecimals)) {
        return 0;
    }
    const Date date(value);
    if (!date.isValid()) {
        field::stars(field, width);
        return 0;
    }
    char* out = field;
    write(date, out, width);
    return 0;
}

// The DT formats: a seconds serial, of which only the calendar day is shown.
template <class Write>
inline int withDatetimeDate(char* field, int width, int missingDecimals, double value, Write write) noexcept {
    if (writeMissing(value, field, width, missingDecimals)) {
        return 0;
    }
    const Datetime datetime(value);
    if (!datetime.isValid()) {
        field::stars(field, width);
        return 0;
    }
    char* out = field;
    write(datetime.date(), out, width);
    return 0;
}

}  // namespace kivo::format::datetime::entry
