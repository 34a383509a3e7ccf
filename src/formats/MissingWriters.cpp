#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>

#include "kivo/format/Missing.h"
#include "kivox/Missing.h"
#include "kivox/Services.h"

namespace kivo::format {

namespace {

bool hasMissingPattern(const double& value) noexcept {
    return (std::bit_cast<std::uint64_t>(value) & lum_numeric::MISSING_MASK) == lum_numeric::MISSING_MASK;
}

// The character the host prints for the ordinary missing value, read afresh on every call so that a
// change of the option shows at once.
char hostMissingChar() noexcept {
    Service* service = currentServiceLocator().getService(Env::ID, Env::NAME);
    return service != nullptr ? static_cast<Env*>(service)->missingChar() : '.';
}

// Blanks, then c at position width - decimals - 1. A decimals argument the host should never pass
// (not below the width, or negative) keeps the character inside the field.
void writeMissingField(char* field, int width, int decimals, char c) noexcept {
    if (width <= 0) {
        return;
    }
    std::memset(field, ' ', static_cast<std::size_t>(width));
    int position = width - decimals - 1;
    if (position < 0) {
        position = 0;
    } else if (position >= width) {
        position = width - 1;
    }
    field[position] = c;
}

}  // namespace

bool writeMissing(const double& value, char* field, int width, int decimals) {
    if (hasMissingPattern(value)) {
        const char own = lum_numeric::missingChar(value);
        writeMissingField(field, width, decimals, own == '.' ? hostMissingChar() : own);
        return true;
    }
    if (std::isfinite(value)) {
        return false;
    }
    // A stray NaN or an infinity is shown as the ordinary missing value rather than as digits or "*".
    writeMissingField(field, width, decimals, hostMissingChar());
    return true;
}

bool writeMissingAsBlanks(const double& value, char* field, int width, int) {
    if (!hasMissingPattern(value)) {
        return false;
    }
    if (width > 0) {
        std::memset(field, ' ', static_cast<std::size_t>(width));
    }
    return true;
}

}  // namespace kivo::format
