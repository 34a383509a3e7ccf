#include "kivoconvert/ValueKinds.h"

#include <cmath>

#include "kivoconvert/Values.h"

namespace kivoconvert {

namespace {

constexpr double SECONDS_PER_DAY = 86400;

constexpr KindStep A = KindStep::AS_IS;
constexpr KindStep D = KindStep::DAY_OF_DATETIME;
constexpr KindStep M = KindStep::MIDNIGHT_OF_DAY;
constexpr KindStep R = KindStep::REFUSED;

// Rows: the kind read; columns: the kind shown; both in the order of ValueKind (DAY, DATETIME, TIME,
// NUMBER). A plain number carries no kind, so the user's choice of entries says what it means.
constexpr KindStep STEPS[4][4] = {
    {A, M, R, A},
    {D, A, R, A},
    {R, R, A, A},
    {A, A, A, A},
};

constexpr const char* KIND_NAMES[] = {"a day serial", "a seconds serial", "a time", "a number"};

}  // namespace

KindStep kindStep(ValueKind read, ValueKind shown) { return STEPS[static_cast<int>(read)][static_cast<int>(shown)]; }

double applyKindStep(KindStep step, double value) {
    if (isMissingValue(value)) {
        return value;
    }
    switch (step) {
        case KindStep::DAY_OF_DATETIME:
            return std::floor(value / SECONDS_PER_DAY);
        case KindStep::MIDNIGHT_OF_DAY:
            return value * SECONDS_PER_DAY;
        case KindStep::AS_IS:
        case KindStep::REFUSED:
            break;
    }
    return value;
}

const char* kindName(ValueKind kind) { return KIND_NAMES[static_cast<int>(kind)]; }

}  // namespace kivoconvert
