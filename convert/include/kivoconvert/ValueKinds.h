#pragma once

#include "kivoconvert/Catalog.h"

namespace kivoconvert {

// What convert does to a value an informat read before a format of another kind shows it.
enum class KindStep {
    AS_IS,            // the same kind, or a plain number on either side
    DAY_OF_DATETIME,  // a seconds serial shown by a date format: the day it falls on
    MIDNIGHT_OF_DAY,  // a day serial shown by a datetime format: the first second of that day
    REFUSED,          // a time of day and a date or datetime mean different things
};

KindStep kindStep(ValueKind read, ValueKind shown);

// The value for the format; a missing value passes unchanged.
double applyKindStep(KindStep step, double value);

// "a day serial", "a seconds serial", "a time", "a number": for messages.
const char* kindName(ValueKind kind);

}  // namespace kivoconvert
