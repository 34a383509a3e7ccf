#pragma once

#include <cmath>
#include <type_traits>

#include "formats/FieldLimits.h"
#include "formats/FieldWriting.h"
#include "kivo/format/Missing.h"
#include "kivox/Calendar.h"

// The steps every date, datetime and time format takes before it writes: the missing value first,
// then the host's value, then a field of "*" when that value is not valid. One shape for all of them:
// `write(value, out, width)` or, for the layouts that use them, `write(value, out, width, decimals)`
// lays out the rest, starting at the field's first byte.
namespace kivo::format::datetime::entry {

// What a format does with its decimals argument: the decimals its layout shows, and those writeMissing
// gets to move the missing character left of the field's end.
struct DecimalsUse {
    int layout;
    int missing;
};

// The use of a format's decimals by its rule in FieldLimits.h.
constexpr DecimalsUse decimalsUse(limits::Decimals rule, int decimals) noexcept {
    switch (rule) {
        case limits::Decimals::MISSING_POSITION:
            return {0, decimals};
        case limits::Decimals::LAYOUT:
            return {decimals, 0};
        default:
            return {0, 0};
    }
}

// The formats whose decimals are not used: no decimals shown, the missing character in the last position.
inline constexpr DecimalsUse NO_DECIMALS = decimalsUse(limits::Decimals::NOT_USED, 0);

// The missing value or a stray NaN or infinity: writes its field and says so. A finite value, the
// common case, is told apart here without a call.
inline bool writesMissing(double value, char* field, int width, int missingDecimals) noexcept {
    return !std::isfinite(value) && writeMissing(value, field, width, missingDecimals);
}

template <class Value, class Write>
inline int writeValid(char* field, int width, int decimals, const Value& value, bool valid, Write write) noexcept {
    if (!valid) [[unlikely]] {
        field::stars(field, width);
        return 0;
    }
    char* out = field;
    if constexpr (std::is_invocable_v<Write, const Value&, char*&, int, int>) {
        write(value, out, width, decimals);
    } else {
        write(value, out, width);
    }
    return 0;
}

// The missing value, then the host value made from the number, then the layout or "*".
template <class Make, class Write>
inline int withHostValue(char* field, int width, DecimalsUse decimals, double value, Make make, Write write) noexcept {
    if (writesMissing(value, field, width, decimals.missing)) [[unlikely]] {
        return 0;
    }
    const auto hostValue = make(value);
    return writeValid(field, width, decimals.layout, hostValue, hostValue.isValid(), write);
}

// A day serial.
template <class Write>
inline int withDate(char* field, int width, DecimalsUse decimals, double value, Write write) noexcept {
    return withHostValue(field, width, decimals, value, [](double v) { return Date(v); }, write);
}

// The DT formats: a seconds serial, of which only the calendar day is shown. An invalid datetime has
// an invalid date.
template <class Write>
inline int withDatetimeDate(char* field, int width, DecimalsUse decimals, double value, Write write) noexcept {
    return withHostValue(field, width, decimals, value, [](double v) { return Datetime(v).date(); }, write);
}

// A seconds serial, shown as a date and a time of day.
template <class Write>
inline int withDatetime(char* field, int width, DecimalsUse decimals, double value, Write write) noexcept {
    return withHostValue(field, width, decimals, value, [](double v) { return Datetime(v); }, write);
}

// A time or a duration: the count of seconds itself is laid out, but only when the host could hold it
// as a datetime, so that a time far beyond the calendar prints as "*" like a datetime would.
template <class Write>
inline int withTime(char* field, int width, DecimalsUse decimals, double value, Write write) noexcept {
    if (writesMissing(value, field, width, decimals.missing)) {
        return 0;
    }
    return writeValid(field, width, decimals.layout, value, Datetime(value).isValid(), write);
}

}  // namespace kivo::format::datetime::entry
