// Arbitrary bytes into the three free-form informats and their reader. The field is copied into a heap
// block of exactly its size, so a read past its end is caught by AddressSanitizer. A first byte of 1..7
// picks the date style ("dmy" .. "ymd", then "locale") and is not part of the field; so every style is
// explored, including the orders that only the rarer styles reach.
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "kivo/AnydtInformats.h"
#include "kivo/Informats.h"
#include "kivox/Missing.h"
#include "kivox/Services.h"

namespace {

constexpr const char* STYLES[] = {"dmy", "dym", "mdy", "myd", "ydm", "ymd", "locale"};

// One locator per style, made once: setting an option keeps its old text alive, so options are never
// changed per input.
kivo::ServiceLocator* locatorFor(unsigned style) {
    static kivo::ServiceLocator* locators = [] {
        auto* all = new kivo::ServiceLocator[7];
        for (int i = 0; i < 7; ++i) {
            all[i].systemOptions().setOption("datestyle", STYLES[i]);
        }
        return all;
    }();
    return &locators[style];
}

bool isMissing(double x) {
    std::uint64_t b;
    std::memcpy(&b, &x, sizeof b);
    return (b & kivo::lum_numeric::MISSING_MASK) == kivo::lum_numeric::MISSING_MASK;
}

bool sameBits(double a, double b) { return std::memcmp(&a, &b, sizeof a) == 0; }

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    kivo::ServiceLocator* previous = nullptr;
    const bool picked = size > 0 && data[0] >= 1 && data[0] <= 7;
    if (picked) {
        previous = kivo::ServiceLocator::setCurrent(locatorFor(data[0] - 1u));
        ++data;
        --size;
    }
    const std::unique_ptr<char[]> field(new char[size]);
    if (size > 0) {
        std::memcpy(field.get(), data, size);
    }
    const int width = static_cast<int>(size);

    double result = 0;
    kivo::AnydtType type = kivo::ANYDT_DATE;
    if (!kivo::anydtInformats(field.get(), width, 0, 0, result, type)) {
        // A field the reader does not recognise leaves the missing value as a datetime.
        if (!sameBits(result, kivo::lum_numeric::MISSING) || type != kivo::ANYDT_DATETIME) {
            std::abort();
        }
    } else if (type == kivo::ANYDT_MISSING && !isMissing(result)) {
        std::abort();
    }
    for (KivoInformatFunction informat : {anydtdteInformat, anydtdtmInformat, anydttmeInformat}) {
        double value = 0;
        if (informat(field.get(), width, width, 0, &value) != 1) {
            std::abort();
        }
    }
    if (picked) {
        kivo::ServiceLocator::setCurrent(previous);
    }
    return 0;
}
